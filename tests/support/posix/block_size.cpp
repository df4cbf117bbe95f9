#include "support/block_size.h"

#include <malloc.h>  // malloc_usable_size

namespace vzapi::test {

std::size_t block_size(void* block) noexcept {
    return malloc_usable_size(block);
}

}  // namespace vzapi::test
