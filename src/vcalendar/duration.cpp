#include "vcalendar/duration.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "versit/ascii.h"

namespace vzapi::vcalendar {
namespace {

struct UnitRow {
    char letter;
    bool is_time;  // stands behind the 'T'
    std::int64_t seconds;
};

// In the order in which they stand in a text.
constexpr UnitRow kUnits[] = {
    // clang-format off
    {'W', false, 604800},
    {'D', false,  86400},
    {'H', true,    3600},
    {'M', true,      60},
    {'S', true,       1},
    // clang-format on
};
constexpr std::size_t kFirstTimeUnit = 2;

constexpr std::int64_t kMostSeconds = std::chrono::seconds(std::chrono::years(10000)).count();

bool take(std::string_view& text, char upper) noexcept {
    if (text.empty() || versit::to_upper(text.front()) != upper) return false;
    text.remove_prefix(1);
    return true;
}

// Takes all digits off the front of `text`; a number above kMostSeconds stays just above it.
std::optional<std::int64_t> take_number(std::string_view& text) noexcept {
    std::int64_t number = 0;
    std::size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
        if (number <= kMostSeconds) number = number * 10 + (text[digits] - '0');
    }
    if (digits == 0) return std::nullopt;
    text.remove_prefix(digits);
    return number <= kMostSeconds ? number : kMostSeconds + 1;
}

// Takes the letter of a unit, of `next` or one behind it.
std::optional<std::size_t> take_unit(std::string_view& text, std::size_t next, bool behind_t) noexcept {
    for (std::size_t unit = next; unit < std::size(kUnits); ++unit) {
        const UnitRow& row = kUnits[unit];
        const bool in_place = row.is_time == behind_t || row.letter == 'M';
        if (in_place && take(text, row.letter)) return unit;
    }
    return std::nullopt;
}

// The parts behind the 'P'.
std::optional<std::int64_t> parse_parts(std::string_view text) noexcept {
    std::int64_t total = 0;
    std::size_t next = 0;
    bool behind_t = false;
    bool has_part = false;
    while (!text.empty()) {
        if (!behind_t && next <= kFirstTimeUnit && take(text, 'T')) {
            behind_t = true;
            continue;
        }
        const std::optional<std::int64_t> number = take_number(text);
        if (!number) return std::nullopt;
        const std::optional<std::size_t> unit = take_unit(text, next, behind_t);
        if (!unit) return std::nullopt;
        total += *number * kUnits[*unit].seconds;
        if (total > kMostSeconds) return std::nullopt;
        next = *unit + 1;
        has_part = true;
    }
    return has_part ? std::optional(total) : std::nullopt;
}

}  // namespace

std::optional<std::chrono::seconds> parse_duration(std::string_view text) noexcept {
    text = versit::trim_blanks(text);
    const bool negative = take(text, '-');
    if (!negative) take(text, '+');
    if (!take(text, 'P')) return std::nullopt;
    const std::optional<std::int64_t> total = parse_parts(text);
    if (!total) return std::nullopt;
    return std::chrono::seconds(negative ? -*total : *total);
}

void append_duration(std::chrono::seconds duration, std::string& text) {
    const bool negative = duration.count() < 0;
    // Unsigned: the lowest number has no positive twin.
    const auto bits = static_cast<std::uint64_t>(duration.count());
    const std::uint64_t total = negative ? 0 - bits : bits;
    text += negative ? "-P" : "P";
    text += std::to_string(total / 86400) + "DT";
    text += std::to_string(total / 3600 % 24) + "H";
    text += std::to_string(total / 60 % 60) + "M";
    text += std::to_string(total % 60) + "S";
}

}  // namespace vzapi::vcalendar
