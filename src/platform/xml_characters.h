// The characters of XML 1.0, fifth edition.
#pragma once

#include <string_view>

namespace vzapi::platform {

// [2] Char
[[nodiscard]] constexpr bool is_xml_character(char32_t code) noexcept {
    if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
    return code < 0xD800 || (code > 0xDFFF && code < 0xFFFE) || (code > 0xFFFF && code <= 0x10FFFF);
}

// [3] S
[[nodiscard]] constexpr bool is_xml_space(char32_t code) noexcept {
    return code == ' ' || code == '\t' || code == '\n' || code == '\r';
}

// `text` without white space at both ends.
[[nodiscard]] constexpr std::u16string_view trim_xml_space(std::u16string_view text) noexcept {
    while (!text.empty() && is_xml_space(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_xml_space(text.back())) text.remove_suffix(1);
    return text;
}

// [4] NameStartChar
[[nodiscard]] bool may_begin_xml_name(char32_t code) noexcept;

// [4a] NameChar
[[nodiscard]] bool may_continue_xml_name(char32_t code) noexcept;

}  // namespace vzapi::platform
