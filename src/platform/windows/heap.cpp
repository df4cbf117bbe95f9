#include "platform/heap.h"

#include <windows.h>

#include "platform/allocation_gate.h"
#include "platform/pointer_probe.h"

namespace vzapi::platform {

void* heap_allocate(std::size_t size) noexcept {
    return allocation_allowed() ? HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, size) : nullptr;
}

void* heap_allocate_unfilled(std::size_t size) noexcept {
    return allocation_allowed() ? HeapAlloc(GetProcessHeap(), 0, size) : nullptr;
}

bool heap_owns(const void* block) noexcept {
    // The heap looks at its bookkeeping in front of the block, so that has to be readable, too.
    constexpr std::uintptr_t kBookkeeping = 16;
    const auto address = reinterpret_cast<std::uintptr_t>(block);
    if (address < kBookkeeping || address % MEMORY_ALLOCATION_ALIGNMENT != 0) return false;
    return is_readable(reinterpret_cast<const void*>(address - kBookkeeping), kBookkeeping + 1) &&
           HeapValidate(GetProcessHeap(), 0, block) != FALSE;
}

std::size_t heap_size(const void* block) noexcept {
    return heap_owns(block) ? HeapSize(GetProcessHeap(), 0, block) : 0;
}

bool heap_free(void* block, Wipe wipe) noexcept {
    if (!heap_owns(block)) return false;
    const std::size_t size = HeapSize(GetProcessHeap(), 0, block);
    if (wipe == Wipe::Yes) SecureZeroMemory(block, size);
    observe_release(block, size);
    return HeapFree(GetProcessHeap(), 0, block) != FALSE;
}

}  // namespace vzapi::platform
