// A record that a caller gave to be written, and what hangs on it: nothing is touched before it has been
// found readable, and nothing is expected to be aligned.
#pragma once

#include <cstddef>
#include <cstring>
#include <forward_list>
#include <span>
#include <string>
#include <string_view>

#include "platform/pointer_probe.h"

namespace vzapi::platform {

// Lives as long as the writing of one record; so do the texts that it hands out.
class CallerMemory {
public:
    // Copies what stands at `address` to `value`. False, and `value` untouched, when not all of it can be
    // read.
    template <class T>
    [[nodiscard]] bool load(const void* address, T& value) noexcept {
        if (!probe_.readable(address, sizeof value)) return false;
        std::memcpy(&value, address, sizeof value);
        return true;
    }

    // The same for entry number `index` of `array`, which may stand anywhere.
    template <class T>
    [[nodiscard]] bool load_entry(const T* array, std::size_t index, T& value) noexcept {
        const void* const address = entry_address(array, index * sizeof(T));
        return address != nullptr && load(address, value);
    }

    // The zero-terminated text at `address`, which ends at the latest where memory cannot be read. data() is
    // null when there is none: `address` is null or cannot be read.
    [[nodiscard]] std::u16string_view text(const char16_t* address);

    // The same for 8-bit text.
    [[nodiscard]] std::string_view narrow_text(const char* address) noexcept;

    // The `length` bytes at `address`; none when not all of them can be read.
    [[nodiscard]] std::span<const std::byte> bytes(const void* address, std::size_t length) noexcept;

    [[nodiscard]] bool readable(const void* address) noexcept { return probe_.readable(address); }

private:
    // Null where `array` is null or the address would lie behind the end of all memory.
    [[nodiscard]] static const void* entry_address(const void* array, std::size_t offset) noexcept;

    PointerProbe probe_;
    std::forward_list<std::u16string> aligned_texts_;  // copies of texts that stand at odd addresses
};

}  // namespace vzapi::platform
