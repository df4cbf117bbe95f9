// Tells a line that begins a property from the continuation of a value. The parser asks on reading; the line
// builder asks so that it never writes a continuation that would be taken for a property.
#pragma once

#include <string_view>

namespace vzapi::versit {

// True when the name of `line`, the text before its first ';' or ':', is in the property table or starts with
// "X-", without regard to case. A "group." prefix of letters, digits and '-' does not count as part of it.
// A line without ';' and ':' begins nothing.
template <class Unit>
[[nodiscard]] bool begins_known_property(std::basic_string_view<Unit> line) noexcept;

// True when `line` has the form [group.]name;... or [group.]name:... with names of letters, digits and '-'.
template <class Unit>
[[nodiscard]] bool has_property_form(std::basic_string_view<Unit> line) noexcept;

}  // namespace vzapi::versit
