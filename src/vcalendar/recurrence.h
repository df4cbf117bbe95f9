// How an entry recurs: the one model behind both texts of a recurrence, and the members of the record.
#pragma once

#include <cstdint>
#include <optional>

#include "vcalendar/size_switches.h"
#include "vzapi/calendar.h"

namespace vzapi::vcalendar {

// The rule always has something to count from: the start of its entry, which gives what the rule leaves open
// (weekday, day of the month, month, time of day).
struct Recurrence {
    std::uint32_t frequency = VZ_REPEAT_NONE;   // a VZ_REPEAT_ code
    std::uint32_t interval = 1;                 // 0 counts as 1
    std::uint32_t days = 0;                     // VZ_DAY_ bits; none: the weekday of the start
    std::uint32_t position = VZ_POSITION_NONE;  // monthly and yearly; none: the day of the month of the start
    CalendarTime until{};                       // the last moment that may be an occurrence; year 0: no end
};

[[nodiscard]] constexpr bool recurs(const Recurrence& rule) noexcept {
    return rule.frequency >= VZ_REPEAT_DAILY && rule.frequency <= VZ_REPEAT_YEARLY;
}

// What the record says, by the blocks that it has: the full-width words when they are there and filled,
// otherwise the 8-bit members, day selection and position where they count.
[[nodiscard]] Recurrence load_recurrence(const CalendarItem& item, const SizeSwitches& switches) noexcept;

// Sets the 8-bit members, to 255 where a value does not fit, and the full-width words where the record has
// them.
void store_recurrence(const Recurrence& rule, const SizeSwitches& switches, CalendarItem& item) noexcept;

}  // namespace vzapi::vcalendar
