// What becomes of a calendar entry that is written and read again: the same, but for what the rules of
// vCalendar text lose. Each such loss is a predicate here; docs/limits.md lists them.
#pragma once

#include <cstdint>

#include "vcalendar/calendar_builder.h"

namespace vzapi::test::calendar {

// How an entry is written, and read again.
struct Trip {
    bool is_version_2 = false;
    std::uint32_t api_version = VZ_INTERFACE_VERSION;
};

// Times that are none, of a year of more than four digits, or with zone words that the library does not set.
[[nodiscard]] bool is_lost(const Time& time);

// A type that has no name of its own, or that the start makes another one.
[[nodiscard]] bool loses_type(const Calendar& calendar, const Trip& trip);

// A start or end that is lost or changed.
[[nodiscard]] bool loses_times(const Calendar& calendar, const Trip& trip);

// An alarm that is lost, of another kind, or in another zone.
[[nodiscard]] bool loses_alarm(const Calendar& calendar, const Trip& trip);

// A recurrence that comes back in other words, or not at all.
[[nodiscard]] bool loses_repeat(const Calendar& calendar, const Trip& trip);

[[nodiscard]] bool loses_exceptions(const Calendar& calendar, const Trip& trip);
[[nodiscard]] bool loses_zone(const Calendar& calendar, const Trip& trip);

// One entry of the array `fields`, whatever stands before it.
[[nodiscard]] bool is_lost(const Field& field, std::uint32_t type, const Trip& trip);
[[nodiscard]] bool loses_fields(const Calendar& calendar, const Trip& trip);  // any, or their number

// True when the entry comes back as it is: none of these.
[[nodiscard]] bool comes_back(const Calendar& calendar, const Trip& trip);

}  // namespace vzapi::test::calendar
