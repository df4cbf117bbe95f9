// What both texts of a recurrence and its arithmetic share: what a rule means once the start of its entry has
// filled in what it leaves open, and the small parts of the texts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vcalendar/recurrence.h"

namespace vzapi::vcalendar {

inline constexpr std::uint32_t kAllDays = 0x7F;  // all VZ_DAY_ bits

[[nodiscard]] constexpr std::uint32_t interval_of(const Recurrence& rule) noexcept {
    return rule.interval == 0 ? 1 : rule.interval;
}

// VZ_POSITION_NONE for what is no position.
[[nodiscard]] constexpr std::uint32_t position_of(const Recurrence& rule) noexcept {
    return rule.position <= VZ_POSITION_LAST ? rule.position : std::uint32_t{VZ_POSITION_NONE};
}

// True when the rule names its weekdays itself.
[[nodiscard]] constexpr bool has_days(const Recurrence& rule) noexcept {
    return (rule.days & kAllDays) != 0;
}

// The VZ_DAY_ bit of the day that `time` falls on. REQUIRES: `time` is valid.
[[nodiscard]] std::uint32_t weekday_of(const CalendarTime& time) noexcept;

// The weekdays of the rule, that of `start` where it names none. REQUIRES: it does, or `start` is valid.
[[nodiscard]] std::uint32_t days_of(const Recurrence& rule, const CalendarTime& start) noexcept;

// True when nothing of the rule is left to `start` but the time of day: every day, or weekdays that it names.
[[nodiscard]] bool is_complete(const Recurrence& rule) noexcept;

[[nodiscard]] bool has_end(const Recurrence& rule) noexcept;

// SU to SA, in either case, as a VZ_DAY_ bit.
[[nodiscard]] std::optional<std::uint32_t> parse_weekday(std::string_view text) noexcept;

// Appends the names of `days`, Monday first, with `separator` between them.
void append_weekdays(std::uint32_t days, char separator, std::string& text);

// Takes the digits off the front of `text`; nothing when there are none. What 64 bits cannot hold is the
// greatest number that they can.
[[nodiscard]] std::optional<std::uint64_t> take_number(std::string_view& text) noexcept;

void append_number(std::uint64_t number, std::string& text);

// An end of a recurrence. A date without a time of day includes that day.
[[nodiscard]] std::optional<CalendarTime> parse_end(std::string_view text) noexcept;

// What a text said beside the rule itself.
struct Limits {
    std::uint64_t interval = 1;
    std::uint64_t count = 0;  // 0: none
    CalendarTime until{};     // year 0: none
};

// The rule with interval and end, and with its weekday where that is left to `start`; nothing when the
// interval is 0 or no 32-bit number, or when occurrences are to be counted from a start that is not valid.
[[nodiscard]] std::optional<Recurrence> completed(Recurrence rule, const Limits& limits,
                                                  const CalendarTime& start) noexcept;

}  // namespace vzapi::vcalendar
