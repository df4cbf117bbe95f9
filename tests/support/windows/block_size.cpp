#include "support/block_size.h"

#include <malloc.h>  // _msize

namespace vzapi::test {

std::size_t block_size(void* block) noexcept {
    return _msize(block);
}

}  // namespace vzapi::test
