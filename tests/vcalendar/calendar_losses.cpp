#include "vcalendar/calendar_losses.h"

#include <algorithm>
#include <chrono>

#include "vcard/contact_losses.h"

namespace vzapi::test::calendar {
namespace {

bool is_date(const Time& time) {
    return time.year >= 1900 && time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 &&
           time.hour < 24 && time.minute < 60 && time.second < 60;
}

bool is_utc(const Time& time) {
    return time.zone1 != VZ_ZONE_LOCAL && time.zone2 != VZ_ZONE_LOCAL;
}

bool is_midnight(const Time& time) {
    return time.hour == 0 && time.minute == 0 && time.second == 0;
}

std::chrono::year_month_day day_of(const Time& time) {
    return {std::chrono::year(time.year), std::chrono::month(time.month), std::chrono::day(time.day)};
}

// A day that its month has.
bool is_on_the_calendar(const Time& time) {
    return is_date(time) && day_of(time).ok();
}

std::uint32_t weekday_of(const Time& time) {
    return 1U << std::chrono::weekday(std::chrono::sys_days(day_of(time))).c_encoding();
}

bool is_todo(const Calendar& calendar) {
    return calendar.type == VZ_ITEM_TODO;
}

bool has_birth_year(std::uint32_t type) {
    return type == VZ_ITEM_BIRTHDAY || type == VZ_ITEM_ANNIVERSARY;
}

// ---- Recurrence.

constexpr Time kNoEnd = utc(2100, 12, 30);  // what version 2.0 writes for no end

bool has_wide_repeat(const Calendar& calendar) {
    return calendar.size == VZ_CALENDAR_SIZE_WIDE_REPEAT || calendar.size == VZ_CALENDAR_SIZE_TIME_ZONE;
}

Repeat clamped(const Repeat& repeat) {
    const auto byte = [](std::uint32_t value) { return std::min(value, 255U); };
    return {byte(repeat.frequency), byte(repeat.interval), byte(repeat.days), byte(repeat.position)};
}

// What an entry of 112 bytes says, whose day selection and position do not count.
Repeat by_its_start(const Repeat& repeat, const Time& start) {
    const bool is_weekly = repeat.frequency == VZ_REPEAT_WEEKLY;
    return {repeat.frequency, repeat.interval, is_weekly ? weekday_of(start) : 0, VZ_POSITION_NONE};
}

// A rule as reading gives it: nothing that does not count, nothing left to the start that has a member.
bool is_in_reading_form(const Repeat& repeat) {
    const bool has_days = repeat.days >= 1 && repeat.days <= 0x7F;
    switch (repeat.frequency) {
        case VZ_REPEAT_DAILY:
            return repeat.days == 0 && repeat.position == 0;
        case VZ_REPEAT_WEEKLY:
            return has_days && repeat.position == 0;
        case VZ_REPEAT_MONTHLY:
        case VZ_REPEAT_YEARLY:
            return repeat.position == 0 ? repeat.days == 0 : has_days && repeat.position <= VZ_POSITION_LAST;
        default:
            return false;
    }
}

bool becomes_a_year(const Repeat& repeat) {
    return repeat.frequency == VZ_REPEAT_MONTHLY && repeat.interval % 12 == 0;
}

// ---- Values.

std::u16string escaped(const std::u16string& text, const Trip& trip) {
    std::u16string result;
    for (const char16_t unit : text) {
        const bool has_escape = unit == u'\\' || unit == u';' || unit == u',';
        if (trip.is_version_2 && has_escape) result += u'\\';
        result += unit;
    }
    return result;
}

bool is_lost_value(const std::u16string& text) {
    // A value of one component, as that of a contact's text.
    return test::is_lost(test::property_value(test::text(VZ_CONTACT_NOTE, text)));
}

bool is_removed(char16_t unit) {
    return unit == 0x7F || (unit < u' ' && unit != u'\t' && unit != u'\r' && unit != u'\n');
}

bool loses_control_characters(const std::u16string& text) {
    const auto removed = std::count_if(text.begin(), text.end(), is_removed);
    return removed != 0 && static_cast<std::size_t>(removed) != text.size();
}

bool is_lost_text(const Text& text, const Trip& trip) {
    return !text || text->empty() || loses_control_characters(*text) || is_lost_value(escaped(*text, trip));
}

// Digits alone, as of a year, that 32 bits can hold.
bool is_number(std::u16string_view text) {
    const auto is_blank = [](char16_t unit) { return unit == u' ' || unit == u'\t'; };
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    std::uint64_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9' || number > UINT32_MAX) return false;
        number = number * 10 + (unit - u'0');
    }
    return !text.empty() && number <= UINT32_MAX;
}

bool turns_into_a_birth_year(const Text& text, std::uint32_t type, const Trip& trip) {
    const std::uint32_t from = type == VZ_ITEM_BIRTHDAY ? VZ_INTERFACE_CHECKED_SIZES : VZ_INTERFACE_MARKS;
    return trip.api_version >= from && is_number(*text);
}

bool is_lost_geo(const Geo& geo, const Trip& trip) {
    if (!geo.latitude || !geo.longitude) return true;  // comes back as an empty text
    const bool is_cut = !trip.is_version_2 && geo.latitude->find(u';') != std::u16string::npos;
    return is_cut || is_lost_value(escaped(*geo.latitude, trip) + u';' + escaped(*geo.longitude, trip));
}

bool is_lost_in_todo(const Field& field, const Trip& trip) {
    switch (field.id) {
        case VZ_CALENDAR_SUMMARY:
        case VZ_CALENDAR_DESCRIPTION:
            return is_lost_text(std::get<Text>(field.value), trip);
        case VZ_CALENDAR_PRIORITY:
        case VZ_CALENDAR_STATUS:
            return std::get<std::uint32_t>(field.value) == 0;
        default:
            return true;
    }
}

bool is_lost_in_event(const Field& field, std::uint32_t type, const Trip& trip) {
    switch (field.id) {
        case VZ_CALENDAR_SUMMARY:
        case VZ_CALENDAR_LOCATION:
            return is_lost_text(std::get<Text>(field.value), trip);
        case VZ_CALENDAR_DESCRIPTION:
            return !has_birth_year(type) && is_lost_text(std::get<Text>(field.value), trip);
        case VZ_CALENDAR_DESCRIPTION_ALONE:
            return !has_birth_year(type) || is_lost_text(std::get<Text>(field.value), trip) ||
                   turns_into_a_birth_year(std::get<Text>(field.value), type, trip);
        case VZ_CALENDAR_REFERENCE:
            return false;
        default:
            return true;
    }
}

bool is_birth_year(const Field& field, std::uint32_t type) {
    return has_birth_year(type) && field.id == VZ_CALENDAR_BIRTH_YEAR;
}

// The names stand in the line as they are; a few plain characters are enough here.
bool is_lost_name(const std::optional<std::string>& name) {
    if (!name) return false;
    const bool is_plain =
        std::all_of(name->begin(), name->end(), [](char byte) { return byte >= ' ' && byte <= '~'; });
    return name->empty() || !is_plain || is_lost_value(std::u16string(name->begin(), name->end()));
}

bool is_lost_offset(std::int32_t minutes) {
    return minutes <= -24 * 60 || minutes >= 24 * 60;
}

bool is_lost_rule(const Daylight& rule) {
    const bool has_date = rule.begin != kNoTime || rule.end != kNoTime;
    return is_lost(rule.begin) || is_lost(rule.end) || rule.flag > VZ_DAYLIGHT_TRUE ||
           (rule.flag == VZ_DAYLIGHT_TRUE && !has_date);
}

}  // namespace

bool is_lost(const Time& time) {
    if (time == kNoTime) return false;
    const bool has_plain_zone =
        time == with_zones(time, 0, 0) || time == with_zones(time, VZ_ZONE_LOCAL, VZ_ZONE_LOCAL);
    return !is_date(time) || time.year > 9999 || !has_plain_zone;
}

bool loses_type(const Calendar& calendar, const Trip& trip) {
    const bool has_no_name = calendar.type == VZ_ITEM_NOTE || calendar.type > VZ_ITEM_ANNIVERSARY;
    const bool is_too_new = calendar.type == VZ_ITEM_ANNIVERSARY && trip.api_version < VZ_INTERFACE_MARKS;
    const bool turns_into_a_day = calendar.type == VZ_ITEM_OTHER && is_date(calendar.start) &&
                                  !is_utc(calendar.start) && is_midnight(calendar.start);
    return has_no_name || is_too_new || turns_into_a_day;
}

bool loses_times(const Calendar& calendar, const Trip& trip) {
    const bool lasts_days = calendar.type == VZ_ITEM_EVENT || has_birth_year(calendar.type);
    const auto is_changed = [lasts_days](const Time& time) {
        return is_lost(time) || (lasts_days && is_date(time) && is_utc(time) && time.hour != 0);
    };
    const bool is_completed = trip.is_version_2 && calendar.type == VZ_ITEM_BIRTHDAY &&
                              calendar.end == kNoTime && calendar.start != kNoTime;
    return is_changed(calendar.start) || is_changed(calendar.end) || is_completed;
}

bool loses_alarm(const Calendar& calendar, const Trip& trip) {
    const Time& alarm = calendar.alarm;
    if (alarm == kNoTime) return calendar.alarm_kind != VZ_ALARM_NONE;
    const bool has_kind = calendar.alarm_kind == VZ_ALARM_DISPLAY || calendar.alarm_kind == VZ_ALARM_AUDIO;
    if (is_lost(alarm) || !has_kind) return true;
    if (is_todo(calendar)) {
        return trip.api_version >= VZ_INTERFACE_TODO_REPEATS && is_utc(alarm) && is_midnight(calendar.start);
    }
    if (!trip.is_version_2) return false;
    const bool has_zone_of_start = calendar.start == kNoTime || is_utc(alarm) == is_utc(calendar.start);
    const bool stays = calendar.start == kNoTime || is_on_the_calendar(alarm);
    return calendar.alarm_kind != VZ_ALARM_AUDIO || !has_zone_of_start || !stays;
}

bool loses_repeat(const Calendar& calendar, const Trip& trip) {
    const bool is_empty = calendar.repeat == Repeat() && !calendar.wide_repeat && calendar.until == kNoTime;
    if (is_empty) return false;
    if (is_todo(calendar) && trip.api_version < VZ_INTERFACE_TODO_REPEATS) return true;
    if (has_wide_repeat(calendar) != calendar.wide_repeat.has_value()) return true;
    const Repeat repeat = calendar.wide_repeat.value_or(calendar.repeat);
    if (clamped(repeat) != calendar.repeat || !is_in_reading_form(repeat) || repeat.interval == 0)
        return true;
    if (is_lost(calendar.until) || !is_on_the_calendar(calendar.start)) return true;
    if (calendar.size == VZ_CALENDAR_SIZE_BASE && repeat != by_its_start(repeat, calendar.start)) return true;
    const bool is_rrule = trip.is_version_2 && !is_todo(calendar);
    return is_rrule ? calendar.until == kNoEnd : becomes_a_year(repeat);
}

bool loses_exceptions(const Calendar& calendar, const Trip& trip) {
    if (calendar.exceptions.empty()) return false;
    if (calendar.size == VZ_CALENDAR_SIZE_BASE) return true;
    if (is_todo(calendar) && (trip.is_version_2 || trip.api_version < VZ_INTERFACE_TODO_REPEATS)) return true;
    return std::any_of(calendar.exceptions.begin(), calendar.exceptions.end(),
                       [](const Time& time) { return time == kNoTime || is_lost(time); });
}

bool loses_zone(const Calendar& calendar, const Trip& trip) {
    if (!calendar.zone) return false;
    const Zone& zone = *calendar.zone;
    const bool is_there = calendar.size == VZ_CALENDAR_SIZE_TIME_ZONE &&
                          calendar.type == VZ_ITEM_APPOINTMENT &&
                          trip.api_version >= VZ_INTERFACE_TIME_ZONES && zone != Zone();
    return !is_there || is_lost_offset(zone.standard_offset) || is_lost_offset(zone.daylight_offset) ||
           is_lost_name(zone.standard_name) || is_lost_name(zone.daylight_name) ||
           std::any_of(zone.rules.begin(), zone.rules.end(), is_lost_rule);
}

bool is_lost(const Field& field, std::uint32_t type, const Trip& trip) {
    if (field.id == VZ_CALENDAR_CLASS) {
        const auto code = std::get<std::uint32_t>(field.value);
        return code < 1 || code > 3;
    }
    if (field.id == VZ_CALENDAR_GEO) return is_lost_geo(std::get<Geo>(field.value), trip);
    return type == VZ_ITEM_TODO ? is_lost_in_todo(field, trip) : is_lost_in_event(field, type, trip);
}

bool loses_fields(const Calendar& calendar, const Trip& trip) {
    std::uint32_t last_year = 0;
    bool has_status = false;
    for (const Field& field : calendar.fields) {
        if (is_lost(field, calendar.type, trip)) return true;
        has_status = has_status || field.id == VZ_CALENDAR_STATUS;
        if (!is_birth_year(field, calendar.type)) continue;
        const auto year = std::get<std::uint32_t>(field.value);
        if (year == 0 && last_year != 0) return true;
        last_year = year;
    }
    return is_todo(calendar) && !has_status;
}

bool comes_back(const Calendar& calendar, const Trip& trip) {
    return !loses_type(calendar, trip) && !loses_times(calendar, trip) && !loses_alarm(calendar, trip) &&
           !loses_repeat(calendar, trip) && !loses_exceptions(calendar, trip) &&
           !loses_zone(calendar, trip) && !loses_fields(calendar, trip);
}

}  // namespace vzapi::test::calendar
