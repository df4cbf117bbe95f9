// Character tests and case rules of versit text: ASCII only, whatever the locale; for bytes and UTF-16 units.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vzapi::versit {

template <class Unit>
[[nodiscard]] constexpr Unit to_upper(Unit unit) noexcept {
    return unit >= Unit('a') && unit <= Unit('z') ? static_cast<Unit>(unit - ('a' - 'A')) : unit;
}

template <class Unit>
[[nodiscard]] std::basic_string<Unit> to_upper(std::basic_string_view<Unit> text) {
    std::basic_string<Unit> upper(text);
    for (Unit& unit : upper) unit = to_upper(unit);
    return upper;
}

template <class Unit>
[[nodiscard]] constexpr bool is_blank(Unit unit) noexcept {
    return unit == Unit(' ') || unit == Unit('\t');
}

// `text` without blanks at both ends.
template <class Unit>
[[nodiscard]] constexpr std::basic_string_view<Unit> trim_blanks(std::basic_string_view<Unit> text) noexcept {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

// True when `text` equals `ascii`, a literal in capitals, without regard to case.
template <class Unit>
[[nodiscard]] constexpr bool equals_ignoring_case(std::basic_string_view<Unit> text,
                                                  std::string_view ascii_upper) noexcept {
    if (text.size() != ascii_upper.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (to_upper(text[i]) != Unit(ascii_upper[i])) return false;
    }
    return true;
}

template <class Unit>
[[nodiscard]] constexpr bool starts_with_ignoring_case(std::basic_string_view<Unit> text,
                                                       std::string_view ascii_upper) noexcept {
    return text.size() >= ascii_upper.size() &&
           equals_ignoring_case(text.substr(0, ascii_upper.size()), ascii_upper);
}

// True when `text` holds `ascii_upper`, a literal in capitals with at least one character that has no case,
// without regard to case. That character is looked for first: it is rarer in text than any letter.
template <class Unit>
[[nodiscard]] constexpr bool contains_ignoring_case(std::basic_string_view<Unit> text,
                                                    std::string_view ascii_upper) noexcept {
    std::size_t anchor = 0;
    while (ascii_upper[anchor] >= 'A' && ascii_upper[anchor] <= 'Z') ++anchor;
    std::size_t at = text.find(Unit(ascii_upper[anchor]), anchor);
    while (at != text.npos) {
        if (starts_with_ignoring_case(text.substr(at - anchor), ascii_upper)) return true;
        at = text.find(Unit(ascii_upper[anchor]), at + 1);
    }
    return false;
}

}  // namespace vzapi::versit
