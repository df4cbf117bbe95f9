// Blocks of malloc that can be told from every other address: a header in front of the block holds a cookie
// that only this process, this kind of block and this address have, and the block's size.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vzapi::platform {

enum class BlockKind : std::uint64_t { Heap = 1, OleString = 2 };

// A new zero-filled block of `size` bytes, aligned for any type, followed by `tail` zero bytes that the size
// does not count; null when there is no memory. The low four bytes of the size stand right before the block.
[[nodiscard]] void* guarded_allocate(BlockKind kind, std::size_t size, std::size_t tail = 0) noexcept;

// True for the address of a live block of that kind. Looks at the header of any readable aligned address and
// nowhere else.
[[nodiscard]] bool guarded_owns(BlockKind kind, const void* block) noexcept;

// The two below take live blocks only.
[[nodiscard]] std::size_t guarded_size(const void* block) noexcept;
void guarded_free(void* block) noexcept;

}  // namespace vzapi::platform
