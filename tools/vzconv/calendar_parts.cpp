#include "vzconv/calendar_parts.h"

#include <algorithm>

#include "vzconv/calendar_time.h"

namespace vzconv {
namespace {

bool is_day_type(uint32_t item_type) {
    return item_type == VZ_ITEM_EVENT || item_type == VZ_ITEM_BIRTHDAY || item_type == VZ_ITEM_ANNIVERSARY;
}

// Midnight, or the last minute of a day, which some devices write for the end of one.
bool ends_a_day(const CalendarTime& time) {
    return is_midnight(time) || (time.hour == 23 && time.minute == 59);
}

template <class Entry>
std::span<const Entry> entries(const Entry* first, uint8_t count) {
    return first == nullptr ? std::span<const Entry>() : std::span<const Entry>(first, count);
}

}  // namespace

bool recurs(const Repeat& repeat) {
    return repeat.kind >= VZ_REPEAT_DAILY && repeat.kind <= VZ_REPEAT_YEARLY;
}

bool has_position(const Repeat& repeat) {
    const bool counts = repeat.kind == VZ_REPEAT_MONTHLY || repeat.kind == VZ_REPEAT_YEARLY;
    return counts && repeat.position >= VZ_POSITION_FIRST && repeat.position <= VZ_POSITION_LAST;
}

bool has_days(const Repeat& repeat) {
    return repeat.kind == VZ_REPEAT_WEEKLY || has_position(repeat);
}

uint32_t days_of(const Repeat& repeat, const CalendarTime& start) {
    constexpr uint32_t kAllDays = 0x7F;
    const uint32_t days = repeat.days & kAllDays;
    if (days != 0) return days;
    return is_set(start) ? weekday_bit_of(start) : 0;
}

Repeat repeat_of(const CalendarItem& item) {
    if (item.size >= VZ_CALENDAR_SIZE_WIDE_REPEAT && item.repeatSize == VZ_REPEAT_BLOCK_SIZE) {
        return {item.repeatKind2, item.repeatInterval2, item.repeatDays2, item.repeatPosition2,
                item.repeatUntil};
    }
    const bool has_days = item.size == VZ_CALENDAR_SIZE_EXCEPTIONS;
    const uint32_t position = item.repeatPosition & VZ_POSITION_MASK;
    return {item.repeatKind, item.repeatInterval, has_days ? item.repeatDays : 0U, has_days ? position : 0U,
            item.repeatUntil};
}

std::span<const CalendarField> fields_of(const CalendarItem& item) {
    return entries(item.fields, item.fieldCount);
}

std::span<const CalendarTime> exceptions_of(const CalendarItem& item) {
    if (item.size < VZ_CALENDAR_SIZE_EXCEPTIONS) return {};
    return entries(item.exceptions, item.exceptionCount);
}

bool has_zone(const CalendarItem& item) {
    return item.size >= VZ_CALENDAR_SIZE_TIME_ZONE && item.zoneSize == VZ_ZONE_BLOCK_SIZE;
}

std::span<const DaylightRule> daylight_rules_of(const CalendarItem& item) {
    return entries(item.daylightRules, item.daylightCount);
}

bool has_daylight(const CalendarItem& item) {
    const std::span<const DaylightRule> rules = daylight_rules_of(item);
    return std::any_of(rules.begin(), rules.end(),
                       [](const DaylightRule& rule) { return rule.flag == VZ_DAYLIGHT_TRUE; });
}

bool is_day_long(const CalendarItem& item) {
    if (!is_set(item.start) || !is_midnight(item.start)) return false;
    if (item.itemType == VZ_ITEM_TODO) return true;
    const bool is_day = is_day_type(item.itemType);
    if (!is_set(item.end)) return is_day;
    if (is_utc(item.start) != is_utc(item.end) || !ends_a_day(item.end)) return false;
    if (is_day) return moment_of(item.end) >= moment_of(item.start);
    return !is_utc(item.start) && moment_of(item.end) > moment_of(item.start);
}

}  // namespace vzconv
