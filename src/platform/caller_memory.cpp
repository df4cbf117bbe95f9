#include "platform/caller_memory.h"

#include <cstdint>

namespace vzapi::platform {

std::u16string_view CallerMemory::text(const char16_t* address) {
    const std::u16string_view text = probe_.text(address);
    const bool is_aligned = reinterpret_cast<std::uintptr_t>(address) % alignof(char16_t) == 0;
    if (is_aligned || text.data() == nullptr) return text;
    std::u16string& copy = aligned_texts_.emplace_front(text.size(), u'\0');
    std::memcpy(copy.data(), static_cast<const void*>(address), text.size() * sizeof(char16_t));
    return copy;
}

std::string_view CallerMemory::narrow_text(const char* address) noexcept {
    std::size_t length = 0;
    while (probe_.readable(address + length)) {
        const char* const at = address + length;
        const std::size_t rest_of_page = kPageSize - reinterpret_cast<std::uintptr_t>(at) % kPageSize;
        const void* const end = std::memchr(at, 0, rest_of_page);
        if (end != nullptr)
            return {address, static_cast<std::size_t>(static_cast<const char*>(end) - address)};
        length += rest_of_page;
    }
    return length == 0 ? std::string_view() : std::string_view(address, length);
}

const void* CallerMemory::entry_address(const void* array, std::size_t offset) noexcept {
    // A number: a wild count would carry a pointer out of its array.
    const auto begin = reinterpret_cast<std::uintptr_t>(array);
    if (array == nullptr || offset > UINTPTR_MAX - begin) return nullptr;
    return reinterpret_cast<const void*>(begin + offset);  // NOLINT(performance-no-int-to-ptr)
}

std::span<const std::byte> CallerMemory::bytes(const void* address, std::size_t length) noexcept {
    if (length == 0 || !probe_.readable(address, length)) return {};
    return {static_cast<const std::byte*>(address), length};
}

}  // namespace vzapi::platform
