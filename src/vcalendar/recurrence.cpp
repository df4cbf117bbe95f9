#include "vcalendar/recurrence.h"

#include <algorithm>
#include <limits>

namespace vzapi::vcalendar {
namespace {

std::uint8_t clamped(std::uint32_t value) noexcept {
    return static_cast<std::uint8_t>(
        std::min<std::uint32_t>(value, std::numeric_limits<std::uint8_t>::max()));
}

}  // namespace

Recurrence load_recurrence(const CalendarItem& item, const SizeSwitches& switches) noexcept {
    if (switches.wide_repeat && item.repeatSize == VZ_REPEAT_BLOCK_SIZE) {
        return {item.repeatKind2, item.repeatInterval2, item.repeatDays2, item.repeatPosition2,
                item.repeatUntil};
    }
    Recurrence rule{item.repeatKind, item.repeatInterval, 0, VZ_POSITION_NONE, item.repeatUntil};
    if (switches.narrow_days) {
        rule.days = item.repeatDays;
        rule.position = item.repeatPosition & VZ_POSITION_MASK;
    }
    return rule;
}

void store_recurrence(const Recurrence& rule, const SizeSwitches& switches, CalendarItem& item) noexcept {
    item.repeatKind = clamped(rule.frequency);
    item.repeatInterval = clamped(rule.interval);
    item.repeatDays = clamped(rule.days);
    item.repeatPosition = clamped(rule.position);
    item.repeatUntil = rule.until;
    if (!switches.wide_repeat) return;
    item.repeatSize = VZ_REPEAT_BLOCK_SIZE;
    item.repeatKind2 = rule.frequency;
    item.repeatInterval2 = rule.interval;
    item.repeatDays2 = rule.days;
    item.repeatPosition2 = rule.position;
}

}  // namespace vzapi::vcalendar
