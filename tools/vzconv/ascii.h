// Letters and blanks of versit names and markers, which are ASCII whatever the charset of the values.
#pragma once

#include <cstddef>
#include <string_view>

namespace vzconv {

inline bool is_blank(char c) {
    return c == ' ' || c == '\t';
}

inline char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline bool equal_ignoring_case(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (upper(a[i]) != upper(b[i])) return false;
    }
    return true;
}

inline bool starts_ignoring_case(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && equal_ignoring_case(text.substr(0, start.size()), start);
}

// `text` without the blanks before and behind it.
inline std::string_view trimmed(std::string_view text) {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace vzconv
