// Times of calendar entries: in JSON, for a person, and the arithmetic on them.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "vzapi/calendar.h"

namespace vzconv {

// Whether the time is there: the rule of the record.
bool is_set(const CalendarTime& time);

bool is_utc(const CalendarTime& time);

// "2009-03-10T14:00:00", with a Z behind it in UTC. REQUIRES: it is set.
std::string iso_time_of(const CalendarTime& time);

// What a day without a time of day stands for: its first second or its last.
enum class DayEdge { First, Last };

// The time that such a text means, or "2009-03-10"; nothing where that is none that can be set.
std::optional<CalendarTime> time_of_iso(std::string_view text, DayEdge edge);

// Seconds on the clock of the time itself. REQUIRES: it is set.
std::chrono::local_seconds moment_of(const CalendarTime& time);

// The time of `moment` on the clock of `like`.
CalendarTime time_at(std::chrono::local_seconds moment, const CalendarTime& like);

bool is_midnight(const CalendarTime& time);
bool is_same_day(const CalendarTime& a, const CalendarTime& b);

// The bit VZ_DAY_ of its day of the week; 0 for a day that its month does not have.
uint32_t weekday_bit_of(const CalendarTime& time);

// "Tue 10 March 2009"; without the weekday where the month has no such day.
std::string day_in_words(const CalendarTime& time);

// "10 March 2009".
std::string plain_day_in_words(const CalendarTime& time);

// "14:00", with the seconds where there are any.
std::string clock_in_words(const CalendarTime& time);

// "Tue 10 March 2009, 14:00 UTC": day, time of day, and the mark of UTC.
std::string time_in_words(const CalendarTime& time);

// " UTC" of a time in UTC; else nothing.
std::string_view utc_mark_of(const CalendarTime& time);

}  // namespace vzconv
