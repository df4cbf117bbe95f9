#include "platform/heap.h"

#include <cstring>  // explicit_bzero

#include "platform/allocation_gate.h"
#include "platform/posix/guarded_block.h"
#include "platform/posix/heap_block.h"

namespace vzapi::platform {

void* heap_allocate(std::size_t size) noexcept {
    return allocation_allowed() ? guarded_allocate(BlockKind::Heap, size, Fill::Zeros) : nullptr;
}

void* heap_allocate_unfilled(std::size_t size) noexcept {
    return allocation_allowed() ? guarded_allocate(BlockKind::Heap, size, Fill::None) : nullptr;
}

bool heap_owns(const void* block) noexcept {
    return guarded_owns(BlockKind::Heap, block);
}

std::size_t heap_size(const void* block) noexcept {
    return heap_owns(block) ? guarded_size(block) : 0;
}

void heap_release(void* block, Wipe wipe) noexcept {
    const std::size_t size = guarded_size(block);
    if (wipe == Wipe::Yes) explicit_bzero(block, size);
    observe_release(block, size);
    guarded_free(block);
}

bool heap_free(void* block, Wipe wipe) noexcept {
    if (!heap_owns(block)) return false;
    heap_release(block, wipe);
    return true;
}

}  // namespace vzapi::platform
