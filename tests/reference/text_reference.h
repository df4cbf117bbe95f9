// What the oracles are written in: text helpers that copy, for bytes and for UTF-16 units, ASCII only.
#pragma once

#include <string>
#include <string_view>

namespace vzapi::reference {

template <class Unit>
using Text = std::basic_string<Unit>;

// An ASCII literal as text of either kind.
template <class Unit>
Text<Unit> ascii(std::string_view literal) {
    return Text<Unit>(literal.begin(), literal.end());
}

template <class Unit>
Text<Unit> upper_cased(Text<Unit> text) {
    for (Unit& unit : text) {
        if (unit >= Unit('a') && unit <= Unit('z')) unit = static_cast<Unit>(unit - Unit('a') + Unit('A'));
    }
    return text;
}

template <class Unit>
bool contains(const Text<Unit>& text, std::string_view literal) {
    return text.find(ascii<Unit>(literal)) != Text<Unit>::npos;
}

template <class Unit>
bool contains_in_any_case(const Text<Unit>& text, std::string_view upper_literal) {
    return contains(upper_cased(text), upper_literal);
}

template <class Unit>
bool ends_with(const Text<Unit>& text, char unit) {
    return !text.empty() && text.back() == Unit(unit);
}

template <class Unit>
Text<Unit> up_to_first_nul(const Text<Unit>& text) {
    return text.substr(0, text.find(Unit(0)));
}

}  // namespace vzapi::reference
