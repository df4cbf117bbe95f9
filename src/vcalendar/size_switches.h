// Which blocks of a CalendarItem exist, by the version of the record that the caller knows.
#pragma once

#include <cstdint>

#include "vzapi/calendar.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcalendar {

// Lives on the stack of one call.
struct SizeSwitches {
    bool narrow_days;  // the 8-bit day selection and position of the recurrence count
    bool exceptions;   // `exceptionCount` and `exceptions`
    bool wide_repeat;  // `repeatSize` and the four words behind it
    bool time_zone;    // the block from `zoneSize` on
};

// All off for a size that no version of the record has: it then has the members up to `fields` alone.
[[nodiscard]] constexpr SizeSwitches size_switches(std::uint32_t size, std::uint32_t api_version) noexcept {
    const bool has_time_zone = size == VZ_CALENDAR_SIZE_TIME_ZONE;
    const bool has_wide_repeat = size == VZ_CALENDAR_SIZE_WIDE_REPEAT || has_time_zone;
    const bool has_exceptions_alone = size == VZ_CALENDAR_SIZE_EXCEPTIONS;
    return {has_exceptions_alone, has_exceptions_alone || has_wide_repeat, has_wide_repeat,
            has_time_zone && api_version >= VZ_INTERFACE_TIME_ZONES};
}

}  // namespace vzapi::vcalendar
