#include "versit/property_line.h"

#include <algorithm>
#include <cstddef>

#include "versit/ascii.h"
#include "versit/names.h"

namespace vzapi::versit {
namespace {

template <class Unit>
bool is_name_unit(Unit unit) {
    return (unit >= Unit('A') && unit <= Unit('Z')) || (unit >= Unit('a') && unit <= Unit('z')) ||
           (unit >= Unit('0') && unit <= Unit('9')) || unit == Unit('-');
}

// Where the run of name characters at the front of `line` ends.
template <class Unit>
std::size_t name_end(std::basic_string_view<Unit> line) {
    std::size_t end = 0;
    while (end < line.size() && is_name_unit(line[end])) ++end;
    return end;
}

// `line` without its "group." prefix, if it has one.
template <class Unit>
std::basic_string_view<Unit> without_group(std::basic_string_view<Unit> line) {
    const std::size_t end = name_end(line);
    const bool has_group = end > 0 && end < line.size() && line[end] == Unit('.');
    return has_group ? line.substr(end + 1) : line;
}

template <class Unit>
bool ends_name(std::basic_string_view<Unit> line, std::size_t at) {
    return at < line.size() && (line[at] == Unit(';') || line[at] == Unit(':'));
}

}  // namespace

template <class Unit>
bool begins_known_property(std::basic_string_view<Unit> line) noexcept {
    if (ends_name(line, 0)) return false;
    const std::basic_string_view<Unit> named = without_group(line);
    if (starts_with_ignoring_case(named, "X-")) {
        return std::any_of(named.begin(), named.end(),
                           [](Unit unit) { return unit == Unit(';') || unit == Unit(':'); });
    }
    const std::size_t end = name_end(named);
    return ends_name(named, end) && find_property(named.substr(0, end)) != PropertyId::None;
}

template <class Unit>
bool has_property_form(std::basic_string_view<Unit> line) noexcept {
    const std::basic_string_view<Unit> named = without_group(line);
    const std::size_t end = name_end(named);
    return end > 0 && ends_name(named, end);
}

template bool begins_known_property(std::string_view) noexcept;
template bool begins_known_property(std::u16string_view) noexcept;
template bool has_property_form(std::string_view) noexcept;
template bool has_property_form(std::u16string_view) noexcept;

}  // namespace vzapi::versit
