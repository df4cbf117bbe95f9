// Values made of several components, joined with ';': N, ADR, ORG, SOUND (vCard 2.1, section 2.1.2). A ';' or
// '\' inside a component has a '\' before it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "versit/property.h"

namespace vzapi::versit {

// Which escapes a reader takes back.
enum class Escapes {
    Components,  // vCard 2.1: "\;" and "\\"
    Text,        // vCard 3.0 (RFC 2426, section 4): also "\," and "\n", "\N" for a line feed
};

// Takes the unit at `at` off `text`, the escape that begins there as what it stands for; a '\' before any
// other character stays. REQUIRES: `at` is below the size.
[[nodiscard]] constexpr char16_t take_unescaped(std::u16string_view text, std::size_t& at,
                                                Escapes escapes) noexcept {
    const char16_t unit = text[at++];
    if (unit != u'\\' || at == text.size()) return unit;
    const char16_t next = text[at];
    const bool is_text = escapes == Escapes::Text;
    if (next == u';' || next == u'\\' || (is_text && next == u',')) return text[at++];
    if (!is_text || (next != u'n' && next != u'N')) return unit;
    ++at;
    return u'\n';
}

// `text` with its escapes taken back.
[[nodiscard]] std::u16string unescape(std::u16string_view text, Escapes escapes);

// Appends `component` to `value` with its ';' and '\' escaped; the caller puts the ';' between components.
void append_component(std::u16string_view component, std::u16string& value);

// The components of the line's value, decoded and unescaped; at least one, which may be empty. A
// quoted-printable value is split at its raw ';' first and decoded component by component, so that an encoded
// "=3B" stays inside; any other is converted from its charset first and split as UTF-16, so that no trail
// byte of Shift_JIS is taken for a '\'. Readers of many lines do the same with a ValueReader.
[[nodiscard]] std::vector<std::u16string> component_texts(const VersitProperty& line, Escapes escapes);

}  // namespace vzapi::versit
