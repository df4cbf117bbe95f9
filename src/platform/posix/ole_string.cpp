// The layout that Windows gives an OLE string, in a block that is known again when it comes back.
#include "platform/ole_string.h"

#include <cstdint>
#include <cstring>
#include <limits>

#include "platform/allocation_gate.h"
#include "platform/posix/guarded_block.h"

namespace vzapi::platform {

char16_t* ole_string_allocate(std::u16string_view text) noexcept {
    // As on Windows: the text, its terminator and a length field have to fit 32 bits.
    constexpr std::size_t kMostUnits =
        (std::numeric_limits<std::uint32_t>::max() - sizeof(char16_t) - sizeof(std::uint64_t)) /
        sizeof(char16_t);
    if (text.size() >= kMostUnits || !allocation_allowed()) return nullptr;
    const std::size_t bytes = text.size() * sizeof(char16_t);
    auto* units =
        static_cast<char16_t*>(guarded_allocate(BlockKind::OleString, bytes, Fill::None, sizeof(char16_t)));
    if (units == nullptr) return nullptr;
    if (bytes != 0) std::memcpy(units, text.data(), bytes);
    units[text.size()] = u'\0';
    return units;
}

std::size_t ole_string_length(const char16_t* text) noexcept {
    if (text == nullptr) return 0;
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, text - sizeof bytes / sizeof(char16_t), sizeof bytes);
    return bytes / sizeof(char16_t);
}

void ole_string_free(char16_t* text) noexcept {
    if (guarded_owns(BlockKind::OleString, text)) guarded_free(text);
}

}  // namespace vzapi::platform
