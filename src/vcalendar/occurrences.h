// The dates that a recurrence gives.
#pragma once

#include <cstdint>
#include <optional>

#include "vcalendar/recurrence.h"

namespace vzapi::vcalendar {

// The `number`th time (from 1) that `rule` gives, counted from `start`, which counts when it fits the rule.
// Days that do not exist are neither generated nor counted; `until` is not looked at. Nothing when that time
// is not before the year 10000. The cost is bounded: at most one step for each month up to then. REQUIRES:
// `rule` recurs, `start` is valid, `number` is not 0.
[[nodiscard]] std::optional<CalendarTime> nth_occurrence(const Recurrence& rule, const CalendarTime& start,
                                                         std::uint64_t number) noexcept;

// Ends `rule` with its `number`th occurrence, or earlier where it has an end already; a rule that never comes
// to that occurrence keeps the end that it has.
void end_after(Recurrence& rule, const CalendarTime& start, std::uint64_t number) noexcept;

}  // namespace vzapi::vcalendar
