// Blocks of malloc that can be told from every other address: a header in front of the block holds a cookie
// that only this process, this kind of block and this address have, and the block's size.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/pointer_probe.h"

namespace vzapi::platform {

enum class BlockKind : std::uint64_t { Heap = 1, OleString = 2 };

// A new block of `size` bytes, aligned for any type, followed by `tail` bytes that the size does not count; all
// of them zero, or what was there before. Null when there is no memory. The low four bytes of the size stand
// right before the block.
enum class Fill : bool { None, Zeros };
[[nodiscard]] void* guarded_allocate(BlockKind kind, std::size_t size, Fill fill,
                                     std::size_t tail = 0) noexcept;

// True for the address of a live block of that kind. Looks at the header of any readable aligned address and
// nowhere else.
[[nodiscard]] bool guarded_owns(BlockKind kind, const void* block) noexcept;
[[nodiscard]] bool guarded_owns(BlockKind kind, const void* block, PointerProbe& probe) noexcept;

// The size of a live or retired block.
[[nodiscard]] std::size_t guarded_size(const void* block) noexcept;

// Retires a live block: nobody owns it any more, but it stays where it is, with a note of its owner's.
void guarded_retire(void* block, std::uintptr_t note) noexcept;
[[nodiscard]] std::uintptr_t guarded_note(const void* block) noexcept;

// Gives a live or retired block back to malloc.
void guarded_free(void* block) noexcept;

}  // namespace vzapi::platform
