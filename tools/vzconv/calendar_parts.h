// The parts of a calendar record that count, by the version that its size says it is.
#pragma once

#include <cstdint>
#include <span>

#include "vzapi/calendar.h"

namespace vzconv {

struct Repeat {
    uint32_t kind = VZ_REPEAT_NONE;
    uint32_t interval = 0;
    uint32_t days = 0;
    uint32_t position = VZ_POSITION_NONE;
    CalendarTime until{};  // not set: no end
};

bool recurs(const Repeat& repeat);

// Whether a position, and days of the week, tell the dates of the recurrence.
bool has_position(const Repeat& repeat);
bool has_days(const Repeat& repeat);

// The VZ_DAY_ bits of the days on which it recurs: those that are selected; where none are, the weekday of
// `start`, if that is set.
uint32_t days_of(const Repeat& repeat, const CalendarTime& start);

Repeat repeat_of(const CalendarItem& item);
std::span<const CalendarField> fields_of(const CalendarItem& item);
std::span<const CalendarTime> exceptions_of(const CalendarItem& item);

// Whether the time zone is there; its rules.
bool has_zone(const CalendarItem& item);
std::span<const DaylightRule> daylight_rules_of(const CalendarItem& item);

// Whether the time zone has daylight-saving time.
bool has_daylight(const CalendarItem& item);

// Whether the times of the entry are days without a time of day.
bool is_day_long(const CalendarItem& item);

}  // namespace vzconv
