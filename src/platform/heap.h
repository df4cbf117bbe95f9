// The process heap: the blocks that the library hands to its caller and takes back.
#pragma once

#include <cstddef>
#include <memory>

namespace vzapi::platform {

enum class Wipe : bool { No, Yes };

// A new zero-filled block of `size` bytes (a block of its own also for 0), aligned for any type; null when
// there is no memory.
[[nodiscard]] void* heap_allocate(std::size_t size) noexcept;

// The same with bytes of any value in it: for a block that is written over from end to end at once.
[[nodiscard]] void* heap_allocate_unfilled(std::size_t size) noexcept;

// True when `block` is the address of a live block of this heap. Null, foreign, freed and unreadable
// addresses give false and are not touched.
[[nodiscard]] bool heap_owns(const void* block) noexcept;

// The size in bytes that `block` was allocated with; 0 for an address that this heap does not own.
[[nodiscard]] std::size_t heap_size(const void* block) noexcept;

// Releases `block`, overwritten with zeros first when `wipe` says so. Returns false, and leaves it alone, for
// an address that this heap does not own.
bool heap_free(void* block, Wipe wipe = Wipe::No) noexcept;

struct HeapDeleter {
    void operator()(void* block) const noexcept { heap_free(block); }
};

// Owns one block until a caller's record takes it over with release().
template <class T>
using HeapPointer = std::unique_ptr<T, HeapDeleter>;

}  // namespace vzapi::platform
