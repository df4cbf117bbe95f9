// The losses that docs/limits.md lists, each by example: what comes back instead, and nothing else suffers.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "vcalendar/calendar_trip.h"

namespace vzapi::test::calendar {
namespace {

// Changes an entry.
using Change = void (*)(Calendar&);

struct LossRow {
    const char* what;
    Calendar calendar;
    Change back;  // makes of it what comes back
    Trip trip{};
};

Calendar event_of(std::uint32_t type, std::vector<Field> fields = {}) {
    Calendar calendar;
    calendar.size = VZ_CALENDAR_SIZE_EXCEPTIONS;
    calendar.type = type;
    calendar.fields = std::move(fields);
    return calendar;
}

Calendar call_with(std::vector<Field> fields) {
    return event_of(VZ_ITEM_CALL, std::move(fields));
}

Calendar todo_with(std::vector<Field> fields) {
    fields.push_back(number(VZ_CALENDAR_STATUS, 1));
    return event_of(VZ_ITEM_TODO, std::move(fields));
}

Calendar with_times(std::uint32_t type, const Time& start, const Time& end = kNoTime) {
    Calendar calendar = event_of(type);
    calendar.start = start;
    calendar.end = end;
    return calendar;
}

Calendar with_alarm(std::uint32_t type, const Time& start, std::uint32_t kind, const Time& alarm) {
    Calendar calendar = with_times(type, start);
    if (type == VZ_ITEM_TODO) calendar.fields = {number(VZ_CALENDAR_STATUS, 1)};
    calendar.alarm_kind = kind;
    calendar.alarm = alarm;
    return calendar;
}

// Tuesday, 17 March 2009.
const Time kTuesday = local(2009, 3, 17, 9);

Calendar with_repeat(std::uint32_t size, const Repeat& repeat, const Time& until = kNoTime) {
    Calendar calendar = with_times(VZ_ITEM_CALL, kTuesday);
    calendar.size = size;
    calendar.repeat = repeat;
    calendar.until = until;
    return calendar;
}

Calendar with_zone(const Zone& zone, std::uint32_t type = VZ_ITEM_APPOINTMENT,
                   std::uint32_t size = VZ_CALENDAR_SIZE_TIME_ZONE) {
    Calendar calendar = event_of(type);
    calendar.size = size;
    calendar.zone = zone;
    return calendar;
}

void expect_losses(const std::vector<LossRow>& rows) {
    for (const LossRow& row : rows) {
        SCOPED_TRACE(row.what);
        const AnnouncedVersion announced(row.trip.api_version);
        EXPECT_FALSE(comes_back(row.calendar, row.trip));
        // Neighbours that come back from every trip.
        Calendar calendar = row.calendar;
        const Field neighbour = text(VZ_CALENDAR_SUMMARY, u"caf\u00E9");
        calendar.fields.insert(calendar.fields.begin(), neighbour);
        Calendar expected = row.calendar;
        row.back(expected);
        expected.fields.insert(expected.fields.begin(), neighbour);
        EXPECT_EQ(there_and_back(calendar, row.trip), expected) << text_of(calendar, row.trip);
    }
}

constexpr Trip kFirst{false, 16};
constexpr Trip kSecond{true, 16};

TEST(CalendarLimits, TypesAndTimes) {
    expect_losses({
        {"a note", event_of(VZ_ITEM_NOTE), [](Calendar& c) { c.type = VZ_ITEM_OTHER; }},
        {"an unknown type", event_of(9), [](Calendar& c) { c.type = VZ_ITEM_OTHER; }},
        {"an anniversary before interface 14",
         event_of(VZ_ITEM_ANNIVERSARY),
         [](Calendar& c) { c.type = VZ_ITEM_BIRTHDAY; },
         {false, 13}},
        {"no type and a start at local midnight", with_times(VZ_ITEM_OTHER, local(2009, 3, 15)),
         [](Calendar& c) { c.type = VZ_ITEM_EVENT; }},
        {"a note that starts at local midnight", with_times(VZ_ITEM_NOTE, local(2009, 3, 15)),
         [](Calendar& c) { c.type = VZ_ITEM_EVENT; }},
        {"a start that is no date", with_times(VZ_ITEM_CALL, local(2009, 13, 15)),
         [](Calendar& c) { c.start = kNoTime; }},
        {"an end before 1900", with_times(VZ_ITEM_CALL, kTuesday, utc(1899, 12, 31)),
         [](Calendar& c) { c.end = kNoTime; }},
        {"a year of five digits", with_times(VZ_ITEM_CALL, utc(10000, 1, 1)),
         [](Calendar& c) { c.start = kNoTime; }},
        {"another zone word than the two", with_times(VZ_ITEM_CALL, with_zones(kTuesday, 60, 120)),
         [](Calendar& c) { c.start = with_zones(c.start, 0, 0); }},
        {"one local zone word", with_times(VZ_ITEM_CALL, with_zones(kTuesday, 0, VZ_ZONE_LOCAL)),
         [](Calendar& c) { c.start = kTuesday; }},
        {"a birthday without end in version 2.0", with_times(VZ_ITEM_BIRTHDAY, local(2009, 3, 15)),
         [](Calendar& c) { c.end = c.start; }, kSecond},
    });
}

TEST(CalendarLimits, ADayInUtcComesBackAsTheLocalOne) {
    const AnnouncedVersion announced(16);
    for (const std::uint32_t type : {VZ_ITEM_BIRTHDAY, VZ_ITEM_EVENT, VZ_ITEM_ANNIVERSARY}) {
        const Calendar calendar = with_times(type, utc(2009, 3, 15, 12), utc(2009, 3, 15, 13));
        EXPECT_FALSE(comes_back(calendar, kFirst));
        const Calendar back = there_and_back(calendar, kFirst);
        EXPECT_EQ(back.start.zone1, VZ_ZONE_LOCAL);
        EXPECT_EQ(back.end.zone2, VZ_ZONE_LOCAL);
        EXPECT_EQ(there_and_back(back, kFirst), back) << "and stays";
    }
}

TEST(CalendarLimits, Alarms) {
    const Time alarm = local(2009, 3, 17, 8, 45);
    const Time utc_alarm = utc(2009, 3, 17, 8, 45);
    expect_losses({
        {"an alarm of an unknown kind", with_alarm(VZ_ITEM_CALL, kTuesday, 1, alarm),
         [](Calendar& c) { c.alarm_kind = VZ_ALARM_AUDIO; }},
        {"a kind without an alarm", with_alarm(VZ_ITEM_CALL, kTuesday, VZ_ALARM_DISPLAY, kNoTime),
         [](Calendar& c) { c.alarm_kind = VZ_ALARM_NONE; }},
        {"an alarm that is no date", with_alarm(VZ_ITEM_CALL, kTuesday, VZ_ALARM_AUDIO, utc(2009, 3, 32)),
         [](Calendar& c) {
             c.alarm = kNoTime;
             c.alarm_kind = VZ_ALARM_NONE;
         }},
        {"a display alarm in version 2.0", with_alarm(VZ_ITEM_CALL, kTuesday, VZ_ALARM_DISPLAY, alarm),
         [](Calendar& c) { c.alarm_kind = VZ_ALARM_AUDIO; }, kSecond},
        {"an alarm on a day that its month has not, in version 2.0",
         with_alarm(VZ_ITEM_CALL, kTuesday, VZ_ALARM_AUDIO, local(2009, 2, 31, 9)),
         [](Calendar& c) { c.alarm = local(2009, 3, 3, 9); }, kSecond},
        {"an alarm in UTC of a to-do that is due at midnight",
         with_alarm(VZ_ITEM_TODO, local(2009, 3, 18), VZ_ALARM_AUDIO, utc_alarm),
         [](Calendar& c) { c.alarm = local(2009, 3, 17, 8, 45); }},
    });
}

TEST(CalendarLimits, AnAlarmOfVersion2HasTheZoneOfItsStart) {
    const AnnouncedVersion announced(16);
    const Calendar calendar = with_alarm(VZ_ITEM_CALL, kTuesday, VZ_ALARM_AUDIO, utc(2009, 3, 17, 8));
    EXPECT_FALSE(comes_back(calendar, kSecond));
    const Calendar back = there_and_back(calendar, kSecond);
    EXPECT_EQ(back.alarm.zone1, VZ_ZONE_LOCAL);
    EXPECT_EQ(there_and_back(back, kSecond), back) << "and stays";
}

TEST(CalendarLimits, Recurrences) {
    const auto narrow = [](std::uint32_t frequency, std::uint32_t interval, std::uint32_t days = 0,
                           std::uint32_t position = 0, const Time& until = kNoTime) {
        return with_repeat(VZ_CALENDAR_SIZE_EXCEPTIONS, {frequency, interval, days, position}, until);
    };
    const auto nothing = [](Calendar& c) {
        c.repeat = {};
        c.until = kNoTime;
    };
    Calendar monthly_without_start = narrow(VZ_REPEAT_MONTHLY, 1);
    monthly_without_start.start = kNoTime;
    Calendar todo = narrow(VZ_REPEAT_DAILY, 1);
    todo.type = VZ_ITEM_TODO;
    todo.fields = {number(VZ_CALENDAR_STATUS, 1)};
    expect_losses({
        {"an unknown frequency", narrow(5, 2, VZ_DAY_MONDAY, 1, kTuesday), nothing},
        {"an end without a frequency", narrow(0, 0, 0, 0, kTuesday), nothing},
        {"interval 0", narrow(VZ_REPEAT_DAILY, 0), [](Calendar& c) { c.repeat.interval = 1; }},
        {"days of a daily rule", narrow(VZ_REPEAT_DAILY, 1, VZ_DAY_MONDAY),
         [](Calendar& c) { c.repeat.days = 0; }},
        {"no days of a weekly rule", narrow(VZ_REPEAT_WEEKLY, 1),
         [](Calendar& c) { c.repeat.days = VZ_DAY_TUESDAY; }},
        {"a position of a weekly rule", narrow(VZ_REPEAT_WEEKLY, 1, VZ_DAY_MONDAY, 2),
         [](Calendar& c) { c.repeat.position = 0; }},
        {"days without a position", narrow(VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY),
         [](Calendar& c) { c.repeat.days = 0; }},
        {"a position without days", narrow(VZ_REPEAT_MONTHLY, 1, 0, 2),
         [](Calendar& c) { c.repeat.days = VZ_DAY_TUESDAY; }},
        {"a position that is none", narrow(VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 6),
         [](Calendar& c) {
             c.repeat.days = 0;
             c.repeat.position = 0;
         }},
        {"the eighth bit of the days", narrow(VZ_REPEAT_WEEKLY, 1, 0x80 | VZ_DAY_MONDAY),
         [](Calendar& c) { c.repeat.days = VZ_DAY_MONDAY; }},
        {"the upper half of the position", narrow(VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 0x12),
         [](Calendar& c) { c.repeat.position = 2; }},
        {"twelve months in version 1.0", narrow(VZ_REPEAT_MONTHLY, 24),
         [](Calendar& c) {
             c.repeat = {VZ_REPEAT_YEARLY, 2, 0, 0};
         }},
        {"twelve months by position in version 1.0", narrow(VZ_REPEAT_MONTHLY, 12, VZ_DAY_MONDAY, 2),
         [](Calendar& c) {
             c.repeat = {VZ_REPEAT_YEARLY, 1, VZ_DAY_MONDAY, 2};
         }},
        {"an end that is no date", narrow(VZ_REPEAT_DAILY, 1, 0, 0, utc(2009, 13, 1)),
         [](Calendar& c) { c.until = kNoTime; }},
        {"30 December 2100 in version 2.0", narrow(VZ_REPEAT_DAILY, 1, 0, 0, utc(2100, 12, 30)),
         [](Calendar& c) { c.until = kNoTime; }, kSecond},
        {"months without a start", monthly_without_start, nothing},
        {"a to-do before interface 15", todo, nothing, {false, 14}},
        {"days in 112 bytes",
         with_repeat(VZ_CALENDAR_SIZE_BASE, {VZ_REPEAT_WEEKLY, 1, VZ_DAY_MONDAY | VZ_DAY_FRIDAY, 0}),
         [](Calendar& c) { c.repeat.days = VZ_DAY_TUESDAY; }},
        {"a position in 112 bytes",
         with_repeat(VZ_CALENDAR_SIZE_BASE, {VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 2}),
         [](Calendar& c) {
             c.repeat.days = 0;
             c.repeat.position = 0;
         }},
        {"full-width words that are not filled",
         with_repeat(VZ_CALENDAR_SIZE_WIDE_REPEAT, {VZ_REPEAT_DAILY, 3, 0, 0}),
         [](Calendar& c) { c.wide_repeat = c.repeat; }},
    });
    Calendar wide = with_repeat(VZ_CALENDAR_SIZE_WIDE_REPEAT, {VZ_REPEAT_DAILY, 3, 0, 0});
    wide.wide_repeat = Repeat{VZ_REPEAT_WEEKLY, 300, VZ_DAY_MONDAY, 0};
    expect_losses({{"8-bit members beside full-width words", wide, [](Calendar& c) {
                        c.repeat = {VZ_REPEAT_WEEKLY, 255, VZ_DAY_MONDAY, 0};
                    }}});
}

TEST(CalendarLimits, Exceptions) {
    Calendar event = event_of(VZ_ITEM_CALL);
    event.exceptions = {utc(2009, 13, 1), kTuesday, with_zones(kTuesday, 60, 60)};
    Calendar small = event;
    small.size = VZ_CALENDAR_SIZE_BASE;
    Calendar todo = todo_with({});
    todo.exceptions = {kTuesday};
    const auto nothing = [](Calendar& c) { c.exceptions.clear(); };
    expect_losses({
        {"no date, and other zone words", event,
         [](Calendar& c) {
             c.exceptions = {kTuesday, with_zones(kTuesday, 0, 0)};
         }},
        {"112 bytes", small, nothing},
        {"a to-do of version 2.0", todo, nothing, kSecond},
        {"a to-do before interface 15", todo, nothing, {false, 14}},
    });
}

TEST(CalendarLimits, Zones) {
    const Zone zone{
        60, 120, {{VZ_DAYLIGHT_TRUE, local(2009, 3, 29, 2), local(2009, 10, 25, 3)}}, "CET", "CEST"};
    const auto nothing = [](Calendar& c) { c.zone.reset(); };
    const auto with_rule = [&zone](const Daylight& rule) {
        Calendar calendar = with_zone(zone);
        calendar.zone->rules.push_back(rule);
        return calendar;
    };
    Calendar names = with_zone(zone);
    names.zone->standard_name = "C\r\nET";
    names.zone->daylight_name = "";
    Calendar equals = with_zone(zone);
    equals.zone->daylight_name = "CEST=";
    Calendar offsets = with_zone(zone);
    offsets.zone->standard_offset = 24 * 60;
    offsets.zone->daylight_offset = -24 * 60;
    expect_losses({
        {"of another type than an appointment", with_zone(zone, VZ_ITEM_CALL), nothing},
        {"before interface 16", with_zone(zone), nothing, {false, 15}},
        {"an empty one", with_zone(Zone{}), nothing},
        {"offsets of a day", offsets,
         [](Calendar& c) {
             c.zone->standard_offset = 0;
             c.zone->daylight_offset = 0;
         }},
        {"a rule without a date", with_rule({VZ_DAYLIGHT_TRUE, kNoTime, kNoTime}),
         [](Calendar& c) { c.zone->rules.pop_back(); }},
        {"a rule with another flag", with_rule({7, kTuesday, kNoTime}),
         [](Calendar& c) { c.zone->rules.back().flag = VZ_DAYLIGHT_TRUE; }},
        {"a rule with a date that is none", with_rule({VZ_DAYLIGHT_TRUE, kTuesday, utc(2009, 13, 1)}),
         [](Calendar& c) { c.zone->rules.back().end = kNoTime; }},
        {"names with line breaks and without characters", names,
         [](Calendar& c) {
             c.zone->standard_name = "C";
             c.zone->daylight_name.reset();
         }},
        {"a name that ends the line with an equals sign", equals,
         [](Calendar& c) { c.zone->daylight_name = "CEST"; }},
    });
}

TEST(CalendarLimits, Fields) {
    const auto gone = [](Calendar& c) { c.fields.erase(c.fields.begin()); };
    expect_losses({
        {"an empty text", call_with({text(0x301, u"")}), gone},
        {"a null text", call_with({text(0x301, {})}), gone},
        {"control characters", call_with({text(0x301, u"a\x01z")}),
         [](Calendar& c) { c.fields[0].value = Text(u"az"); }},
        {"a final equals sign", call_with({text(0x301, u"a=")}),
         [](Calendar& c) { c.fields[0].value = Text(u"a"); }},
        {"an unpaired surrogate", call_with({text(0x301, u"a\xD800z")}),
         [](Calendar& c) { c.fields[0].value = Text(u"a\uFFFDz"); }},
        {"an encoded value that names 8BIT", call_with({text(0x301, u"\u00E9 8BIT")}),
         [](Calendar& c) { c.fields[0].value = Text(u"=C3=A9 8BIT"); }},
        {"a class without a word", call_with({number(0x204, 4)}), gone},
        {"a place without texts", call_with({geo({}, {})}),
         [](Calendar& c) {
             c.fields[0].value = Geo{u"", u""};
         }},
        {"a semicolon in the latitude in version 1.0", call_with({geo(u"1;2", u"3")}),
         [](Calendar& c) {
             c.fields[0].value = Geo{u"1", u"2;3"};
         }},
        {"the other description", call_with({text(0x305, u"a")}),
         [](Calendar& c) { c.fields[0].id = VZ_CALENDAR_DESCRIPTION; }},
        {"the other description of a birthday that is a number",
         event_of(VZ_ITEM_BIRTHDAY, {text(0x305, u"1984")}),
         [](Calendar& c) { c.fields[0] = number(VZ_CALENDAR_BIRTH_YEAR, 1984); }},
        {"priority and status of an event", call_with({number(0x303, 1), number(0x304, 1)}),
         [](Calendar& c) { c.fields.clear(); }},
        {"texts for them", call_with({text(0x303, u"5"), text(0x304, u"COMPLETED")}),
         [](Calendar& c) { c.fields.clear(); }},
        {"no year behind a year", event_of(VZ_ITEM_BIRTHDAY, {number(0x302, 1984), number(0x302, 0)}),
         [](Calendar& c) { c.fields[1] = number(0x302, 1984); }},
        {"a field that is none", call_with({text(0x777, u"a")}), gone},
        {"what a to-do has not", todo_with({text(0x301, u"a"), text(0x305, u"a"), reference(1, 2, 3)}),
         [](Calendar& c) { c.fields.erase(c.fields.begin(), c.fields.begin() + 3); }},
        {"no priority", todo_with({number(0x303, 0)}), gone},
        {"no status", todo_with({number(0x304, 0)}), gone},
        {"a to-do without status", event_of(VZ_ITEM_TODO, {number(0x204, 1)}),
         [](Calendar& c) { c.fields.push_back(number(0x304, VZ_TODO_NEEDS_ACTION)); }},
    });
}

TEST(CalendarLimits, AMentionOfABookmarkUndoesTheSoftBreaksOfTheEntry) {
    const Calendar calendar = call_with({text(0x301, u"begin:vbkm \u00E9 " + std::u16string(100, u'x'))});
    EXPECT_FALSE(comes_back(calendar, kFirst));
    EXPECT_NE(there_and_back(calendar, kFirst), calendar);
}

}  // namespace
}  // namespace vzapi::test::calendar
