// Tells whether memory that a caller points at can be read.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vzapi::platform {

// Pages are probed at this granularity on both systems.
inline constexpr std::size_t kPageSize = 4096;

// True when the byte at `address` can be read. Never faults, changes nothing, keeps errno and the last error.
[[nodiscard]] bool is_readable(const void* address) noexcept;

// True when the `size` bytes at `address` can be read: the first, the last and one on every page between are
// probed. A range of 0 bytes counts as its first byte; one that wraps around the address space is unreadable.
[[nodiscard]] bool is_readable(const void* address, std::size_t size) noexcept;

// Readable memory from the page at `begin` up to, not including, the one at `end`; none when both are the same.
struct ReadablePages {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
    [[nodiscard]] bool none() const noexcept { return begin == end; }
};

// The page of `address` when it can be read, and the page next to it on the side where `address` is nearer to
// the border when the system tells that in the same breath.
[[nodiscard]] ReadablePages readable_pages_at(std::uintptr_t address) noexcept;

// True when all pages from the one at `first_page` to the one at `last_page`, another one, can be read.
[[nodiscard]] bool are_readable(std::uintptr_t first_page, std::uintptr_t last_page) noexcept;

// The same questions for the length of one call: a page found readable is not probed again while the object
// lives, so that a record of a hundred strings does not cost a hundred system calls.
class PointerProbe {
public:
    [[nodiscard]] bool readable(const void* address) noexcept;
    [[nodiscard]] bool readable(const void* address, std::size_t size) noexcept;

    // The zero-terminated text at `text`, without the terminator; text that runs into an unreadable page ends
    // there. Null, misaligned at the page end or unreadable from the start gives an empty view whose data()
    // is null; a readable empty text one whose data() is not.
    [[nodiscard]] std::u16string_view text(const char16_t* text) noexcept;

    // The same as units that may be read in place: text at an odd address is copied into `storage` first. Throws
    // only std::bad_alloc.
    [[nodiscard]] std::u16string_view text(const char16_t* text, std::u16string& storage);

private:
    [[nodiscard]] bool known(std::uintptr_t page) const noexcept;
    // Asks the system about the page of `address`.
    [[nodiscard]] bool find_out(std::uintptr_t address) noexcept;

    static constexpr std::size_t kSlots = 64;
    std::array<std::uintptr_t, kSlots> readable_pages_{};  // direct-mapped by page number; 0: nothing known
};

}  // namespace vzapi::platform
