#include "vcalendar/calendar_generator.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string_view>

namespace vzapi::test::calendar {
namespace {

// What texts are made of: words that the rules of versit look for, and characters of every kind.
constexpr std::u16string_view kPieces[] = {u"a",
                                           u"Tide tables",
                                           u" ",
                                           u"  ",
                                           u"\t",
                                           u"\r",
                                           u"\n",
                                           u"\r\n",
                                           u"\r\n\r\n",
                                           u":",
                                           u";",
                                           u",",
                                           u".",
                                           u"=",
                                           u"==",
                                           u"=41",
                                           u"\\",
                                           u"\\;",
                                           u"\\,",
                                           u"\\\\",
                                           u"\\n",
                                           u"\\N",
                                           u"\x1B",
                                           u"\x01",
                                           u"\x7F",
                                           u"1984",
                                           u"BEGIN:VEVENT",
                                           u"END:VEVENT",
                                           u"END:VTODO",
                                           u"END:VCALENDAR",
                                           u"BEGIN:VALARM",
                                           u"BEGIN:VBKM",
                                           u"VERSION:3.0",
                                           u"DTSTART:20090315T143000",
                                           u"SUMMARY:",
                                           u"RRULE:D1 #0",
                                           u"X-VZAPI-ITEM-TYPE:",
                                           u"ENCODING=",
                                           u"CHARSET=SHIFT_JIS",
                                           u"QUOTED-PRINTABLE",
                                           u"quoted-printable",
                                           u"BASE64",
                                           u"7BIT",
                                           u"8BIT",
                                           u"\u00E9",
                                           u"\u0395\u03BB\u03BB\u03AC\u03B4\u03B1",
                                           u"\u0634\u0643\u0631\u0627",
                                           u"\u8868\u793A",
                                           u"\U0001F600",
                                           u"\U0001F468\u200D\U0001F469\u200D\U0001F467",
                                           u"\uFEFF",
                                           u"\uFFFF",
                                           u"\xD800"};

constexpr std::string_view kNames[] = {
    "CET", "CEST", "Eastern Standard Time", "a;b", "a\\b", ";", "\\", "x,y:z", " ", "1984"};

void mark_utc(Time& time) {
    time.zone1 = time.zone2 = 0;
}

// The rule that the start alone gives.
void by_start(const Calendar& calendar, Repeat& repeat) {
    const std::chrono::year_month_day day(std::chrono::year(calendar.start.year),
                                          std::chrono::month(calendar.start.month),
                                          std::chrono::day(calendar.start.day));
    repeat.frequency = VZ_REPEAT_WEEKLY;
    repeat.position = 0;
    if (day.ok()) repeat.days = 1U << std::chrono::weekday(std::chrono::sys_days(day)).c_encoding();
}

}  // namespace

Calendar CalendarGenerator::next(std::uint32_t type) {
    Calendar calendar;
    calendar.size = size_;
    calendar.type = type;
    fill(calendar, loses_times, &CalendarGenerator::add_times);
    if (loses_type(calendar, trip_)) mark_utc(calendar.start);
    fill(calendar, loses_alarm, &CalendarGenerator::add_alarm);
    fill(calendar, loses_repeat, &CalendarGenerator::add_repeat);
    fill(calendar, loses_exceptions, &CalendarGenerator::add_exceptions);
    fill(calendar, loses_zone, &CalendarGenerator::add_zone);
    add_fields(calendar);
    return calendar;
}

void CalendarGenerator::fill(Calendar& calendar, Loses loses, Add add) {
    for (int tries = 0; tries < 200; ++tries) {
        Calendar candidate = calendar;
        (this->*add)(candidate);
        if (loses(candidate, trip_)) continue;
        calendar = candidate;
        return;
    }
}

Time CalendarGenerator::any_time() {
    static constexpr unsigned kYears[] = {1900, 1970, 2009, 2010, 2012, 2037, 2038, 2100, 9999};
    const unsigned year = one_in(2) ? kYears[below(std::size(kYears))] : 1900 + below(8100);
    const Time time = one_in(3) ? utc(year, 1 + below(12), 1 + below(31))
                                : utc(year, 1 + below(12), 1 + below(31), below(24), below(60), below(60));
    return one_in(2) ? time : with_zones(time, VZ_ZONE_LOCAL, VZ_ZONE_LOCAL);
}

void CalendarGenerator::add_times(Calendar& calendar) {
    if (!one_in(8)) calendar.start = any_time();
    if (!one_in(4)) calendar.end = any_time();
}

void CalendarGenerator::add_alarm(Calendar& calendar) {
    if (one_in(3)) return;
    calendar.alarm = any_time();
    calendar.alarm_kind = one_in(2) ? VZ_ALARM_DISPLAY : VZ_ALARM_AUDIO;
}

void CalendarGenerator::add_repeat(Calendar& calendar) {
    if (one_in(3)) return;
    const bool is_wide = size_ >= VZ_CALENDAR_SIZE_WIDE_REPEAT;
    Repeat repeat;
    repeat.frequency = 1 + below(4);
    repeat.interval = one_in(2) ? 1 : 1 + below(is_wide && one_in(2) ? 100000 : 255);
    if (repeat.frequency == VZ_REPEAT_WEEKLY || (repeat.frequency >= VZ_REPEAT_MONTHLY && one_in(2))) {
        repeat.days = 1 + below(127);
    }
    if (repeat.days != 0 && repeat.frequency != VZ_REPEAT_WEEKLY) repeat.position = 1 + below(5);
    if (size_ == VZ_CALENDAR_SIZE_BASE && repeat.days != 0) by_start(calendar, repeat);
    calendar.repeat = repeat;
    if (is_wide) {
        calendar.wide_repeat = repeat;
        calendar.repeat.interval = std::min(repeat.interval, 255U);
    }
    if (one_in(2)) calendar.until = any_time();
}

void CalendarGenerator::add_exceptions(Calendar& calendar) {
    if (one_in(2)) return;
    for (unsigned count = one_in(20) ? 255 : 1 + below(4); count > 0; --count) {
        calendar.exceptions.push_back(any_time());
    }
}

void CalendarGenerator::add_zone(Calendar& calendar) {
    if (one_in(4)) return;
    Zone zone;
    zone.standard_offset = static_cast<std::int32_t>(below(2879)) - 1439;
    if (one_in(2)) zone.daylight_offset = static_cast<std::int32_t>(below(2879)) - 1439;
    if (one_in(2)) zone.standard_name = std::string(kNames[below(std::size(kNames))]);
    if (one_in(2)) zone.daylight_name = std::string(kNames[below(std::size(kNames))]);
    for (unsigned count = one_in(20) ? 255 : below(4); count > 0; --count) {
        zone.rules.push_back({below(2), one_in(4) ? kNoTime : any_time(), any_time()});
    }
    calendar.zone = zone;
}

void CalendarGenerator::add_fields(Calendar& calendar) {
    static constexpr std::uint32_t kIds[] = {0x204, 0x205, 0x300, 0x301, 0x302, 0x303, 0x304, 0x305, 0x306};
    for (unsigned count = one_in(30) ? 250 : below(8); count > 0; --count) {
        const Field next = field(kIds[below(std::size(kIds))], calendar.type);
        if (!is_lost(next, calendar.type, trip_)) calendar.fields.push_back(next);
    }
    const bool is_todo = calendar.type == VZ_ITEM_TODO;
    if (is_todo) calendar.fields.push_back(number(VZ_CALENDAR_STATUS, 1 + below(4)));
}

Field CalendarGenerator::field(std::uint32_t id, std::uint32_t type) {
    const bool has_birth_year = type == VZ_ITEM_BIRTHDAY || type == VZ_ITEM_ANNIVERSARY;
    switch (id) {
        case VZ_CALENDAR_CLASS:
            return number(id, 1 + below(3));
        case VZ_CALENDAR_GEO:
            return geo(one_in(2) ? u"47.5" : pieces(), one_in(2) ? u"-19.05" : pieces());
        case VZ_CALENDAR_REFERENCE:
            return reference(any_number(), any_number(), any_number());
        case VZ_CALENDAR_PRIORITY:
        case VZ_CALENDAR_STATUS:
            return number(id, any_number());
        case VZ_CALENDAR_DESCRIPTION:
            if (has_birth_year) return number(id, 1 + below(UINT32_MAX));
            [[fallthrough]];
        default:
            return text(id, pieces());
    }
}

std::u16string CalendarGenerator::pieces() {
    std::u16string text;
    for (unsigned count = 1 + below(8); count > 0; --count) text += kPieces[below(std::size(kPieces))];
    if (one_in(40)) text.append(below(500), u'x');
    return text;
}

}  // namespace vzapi::test::calendar
