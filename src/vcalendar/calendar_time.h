// Times of calendar entries: their text, and the arithmetic on them (vCalendar 1.0, "Date and Time"; RFC
// 2445, sections 4.3.4 and 4.3.5).
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "vzapi/calendar.h"

namespace vzapi::vcalendar {

// True when `time` is a date: year 1900 or later, month 1 to 12, day 1 to 31 (whatever the month), hour at
// most 23, minute and second at most 59.
[[nodiscard]] bool is_valid(const CalendarTime& time) noexcept;

// True when neither zone word marks the time as local.
[[nodiscard]] bool is_utc(const CalendarTime& time) noexcept;

// Marks `time` as local (both zone words VZ_ZONE_LOCAL) or as UTC (both 0).
void mark_local(CalendarTime& time) noexcept;
void mark_utc(CalendarTime& time) noexcept;

struct DateText {
    CalendarTime time;
    bool is_bare_date;  // the text had no time of day, which is 00:00:00 in `time`
};

// YYYYMMDD or YYYYMMDDTHHMMSS, also with '-' and ':' between the numbers, the latter with a 'Z' that marks
// the time as UTC; without it the time is local. Letters in either case, blanks around it allowed. Nothing
// for any other text and where the result would not be valid.
[[nodiscard]] std::optional<DateText> parse_date_text(std::string_view text) noexcept;

// Appends YYYYMMDDTHHMMSS, without a Z. REQUIRES: `time` is valid.
void append_date_text(const CalendarTime& time, std::string& text);

// The same with a 'Z' behind a time in UTC.
void append_zoned_date_text(const CalendarTime& time, std::string& text);

// The moment that the numbers of `time` spell on its own clock, whichever that is; a day behind the end of
// its month counts on into the next one. REQUIRES: `time` is valid.
[[nodiscard]] std::chrono::local_seconds clock_of(const CalendarTime& time) noexcept;

// The time with the numbers of `clock` and the zone words of `zone`; nothing when its year is not between
// 1900 and 9999.
[[nodiscard]] std::optional<CalendarTime> time_of(std::chrono::local_seconds clock,
                                                  const CalendarTime& zone) noexcept;

// The moment of `time` on the clock of this machine: that of a local time is its own. REQUIRES: valid.
[[nodiscard]] std::chrono::local_seconds local_clock_of(const CalendarTime& time) noexcept;

// A time in UTC as the clock of this machine shows it, marked local; any other one as it is, and one that
// the clock shows in a year that time_of() does not give.
[[nodiscard]] CalendarTime to_local(const CalendarTime& time) noexcept;

}  // namespace vzapi::vcalendar
