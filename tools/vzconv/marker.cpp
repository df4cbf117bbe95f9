#include "vzconv/marker.h"

#include <algorithm>

#include "vzconv/ascii.h"

namespace vzconv {
namespace {

// Names are of letters, digits and '-': "begin: all rooms, at 5" is a line of a letter.
bool is_component_name(std::string_view name) {
    constexpr std::size_t kLongest = 40;
    if (name.empty() || name.size() > kLongest) return false;
    return std::all_of(name.begin(), name.end(), [](char c) {
        return (upper(c) >= 'A' && upper(c) <= 'Z') || (c >= '0' && c <= '9') || c == '-';
    });
}

}  // namespace

std::optional<Marker> marker_of(std::string_view line) {
    constexpr std::size_t kLongestWord = 20;  // blanks included; keeps the search short in long lines
    const std::size_t colon = line.substr(0, kLongestWord).find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    const std::string_view word = trimmed(line.substr(0, colon));
    const std::string_view name = trimmed(line.substr(colon + 1));
    if (!is_component_name(name)) return std::nullopt;
    if (equal_ignoring_case(word, "BEGIN")) return Marker{true, name};
    if (equal_ignoring_case(word, "END")) return Marker{false, name};
    return std::nullopt;
}

std::optional<Marker> marker_inside(std::string_view line) {
    if (line.empty() || is_blank(line.front())) return std::nullopt;
    return marker_of(line);
}

std::string missing_end(std::string_view component, const std::string& before) {
    return "no END:" + std::string(component) + " before " + before;
}

}  // namespace vzconv
