// CalendarItem to vCalendar text: which lines there are, in which order, in which version.
#include <gtest/gtest.h>

#include <string>

#include "result.h"
#include "vcalendar/written_calendar.h"

namespace vzapi::test::calendar {
namespace {

// ---- The whole text.

Calendar full_event() {
    Calendar event;
    event.type = VZ_ITEM_ANNIVERSARY;
    event.start = local(2009, 3, 15, 14, 30);
    event.end = utc(2009, 3, 15, 15, 30, 59);
    event.alarm_kind = VZ_ALARM_DISPLAY;
    event.alarm = local(2009, 3, 15, 14, 15);
    event.wide_repeat = Repeat{VZ_REPEAT_DAILY, 2, 0, 0};
    event.until = local(2009, 4, 15, 14, 30);
    event.fields = {text(VZ_CALENDAR_LOCATION, u"Pier 7"), text(VZ_CALENDAR_SUMMARY, u"Regatta"),
                    number(VZ_CALENDAR_CLASS, 1), number(VZ_CALENDAR_BIRTH_YEAR, 1984)};
    event.exceptions = {local(2009, 3, 17, 14, 30), local(2009, 3, 19, 14, 30)};
    event.zone = Zone{60,
                      120,
                      {{VZ_DAYLIGHT_TRUE, local(2009, 3, 29, 2), local(2009, 10, 25, 3)}},
                      std::string("CET"),
                      std::string("CEST")};
    return event;
}

TEST(CalendarWriting, AnEventHasItsLinesInOneOrder) {
    EXPECT_EQ(written(full_event()),
              lines({"BEGIN:VCALENDAR", "VERSION:1.0",
                     "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;CET;CEST", "TZ:+01:00",
                     "BEGIN:VEVENT", "DTSTART:20090315T143000", "DTEND:20090315T153059Z",
                     "AALARM:20090315T141500;;0;", "DALARM:20090315T141500;;0;",
                     "X-EPOCAGENDAENTRYTYPE:ANNIVERSARY", "X-VZAPI-ITEM-TYPE:ANNIVERSARY", "LOCATION:Pier 7",
                     "SUMMARY:Regatta", "CLASS:PRIVATE", "X-BIRTHYEAR:1984", "RRULE:D2 20090415T143000",
                     "EXDATE:20090317T143000;20090319T143000", "END:VEVENT", "END:VCALENDAR"}));
}

TEST(CalendarWriting, AnEventOfVersion2HasItsLinesInOneOrder) {
    EXPECT_EQ(written(full_event(), kVersion2),
              lines({"BEGIN:VCALENDAR",
                     "VERSION:2.0",
                     "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;CET;CEST",
                     "TZ:+01:00",
                     "BEGIN:VEVENT",
                     "DTSTART:20090315T143000",
                     "DTEND:20090315T153059Z",
                     "BEGIN:VALARM",
                     "TRIGGER:-P0DT0H15M0S",
                     "ACTION:AUDIO",
                     "END:VALARM",
                     "X-EPOCAGENDAENTRYTYPE:ANNIVERSARY",
                     "X-VZAPI-ITEM-TYPE:ANNIVERSARY",
                     "LOCATION:Pier 7",
                     "SUMMARY:Regatta",
                     "CLASS:PRIVATE",
                     "X-BIRTHYEAR:1984",
                     "RRULE:FREQ=DAILY;UNTIL=20090415T143000;INTERVAL=2",
                     "EXDATE:20090317T143000;20090319T143000",
                     "END:VEVENT",
                     "END:VCALENDAR"}));
}

Calendar full_todo() {
    Calendar todo = full_event();
    todo.type = VZ_ITEM_TODO;
    todo.fields = {number(VZ_CALENDAR_STATUS, 2), text(VZ_CALENDAR_SUMMARY, u"Paint the boat"),
                   text(VZ_CALENDAR_DESCRIPTION, u"Blue"), number(VZ_CALENDAR_PRIORITY, 3)};
    return todo;
}

TEST(CalendarWriting, AToDoHasItsLinesInOneOrder) {
    EXPECT_EQ(
        written(full_todo()),
        lines({"BEGIN:VCALENDAR", "VERSION:1.0",
               "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;CET;CEST", "TZ:+01:00", "BEGIN:VTODO",
               "DUE:20090315T143000", "DTEND:20090315T153059Z", "AALARM:20090315T141500;;0;",
               "DALARM:20090315T141500;;0;", "X-EPOCAGENDAENTRYTYPE:TODO", "STATUS:COMPLETED",
               "SUMMARY:Paint the boat", "DESCRIPTION:Blue", "PRIORITY:3", "RRULE:D2 20090415T143000",
               "EXDATE:20090317T143000;20090319T143000", "END:VTODO", "END:VCALENDAR"}));
}

TEST(CalendarWriting, AToDoOfVersion2KeepsItsAlarmAndItsRecurrenceOfVersion1) {
    std::string expected = written(full_todo());
    expected.replace(expected.find("VERSION:1.0"), 11, "VERSION:2.0");
    EXPECT_EQ(written(full_todo(), kVersion2), expected);
}

// ---- The version.

struct VersionCase {
    Target target;
    bool is_version_2;
};

TEST(CalendarWriting, TheThreeOptionsChooseTheVersion) {
    constexpr VersionCase kCases[] = {
        {{0, 0, 0, 16}, false},
        {{0x02000020, 321, 1, 16}, false},
        {{0x02000020, 322, 1, 16}, true},
        {{0x02000020, 323, 1, 16}, true},
        {{0x02000020, 0x80000000, 1, 16}, true},  // unsigned
        {{0x02000020, 0xFFFFFFFF, 1, 16}, true},
        {{0x02000020, 322, 0, 16}, false},
        {{0x02000020, 322, 0x100000000, 16}, true},  // all of the third counts
        {{0x02000020, 322, UINT64_MAX, 16}, true},
        {{0x02000010, 322, 1, 16}, false},
        {{0x02000021, 322, 1, 16}, false},
        {{0x02000020, 0, 1, 16}, false},
        {{0x02000020, 322, 1, 0}, true},  // whatever the interface
        {{0x02000020, 322, 1, 12}, true},
    };
    for (const VersionCase& row : kCases) {
        const std::string text = written(full_event(), row.target);
        SCOPED_TRACE(std::to_string(row.target.family) + ' ' + std::to_string(row.target.version) + ' ' +
                     std::to_string(row.target.third));
        EXPECT_EQ(holds_line(text, "VERSION:2.0"), row.is_version_2);
        EXPECT_EQ(holds_line(text, "VERSION:1.0"), !row.is_version_2);
        EXPECT_EQ(holds_line(text, "BEGIN:VALARM"), row.is_version_2);
        EXPECT_EQ(holds_name(text, "AALARM"), !row.is_version_2);
        EXPECT_EQ(holds_line(text, "RRULE:FREQ=DAILY;UNTIL=20090415T143000;INTERVAL=2"), row.is_version_2);
        EXPECT_EQ(holds_line(text, "RRULE:D2 20090415T143000"), !row.is_version_2);
    }
}

// ---- Times.

struct TimeCase {
    const char* what;
    Time time;
    std::string text;
};

const TimeCase kTimes[] = {
    {"none", kNoTime, ""},
    {"local", local(2009, 3, 15, 14, 30), "20090315T143000"},
    {"in UTC", utc(2009, 3, 15, 14, 30), "20090315T143000Z"},
    {"any other zone word is UTC", with_zones(utc(2009, 3, 15), -60, 0xFFFFF), "20090315T000000Z"},
    {"one local zone word is enough", with_zones(utc(2009, 3, 15), 0xFFFF, 0), "20090315T000000"},
    {"the other one too", with_zones(utc(2009, 3, 15), 0, 0xFFFF), "20090315T000000"},
    {"the first year", utc(1900, 1, 1), "19000101T000000Z"},
    {"the year before", utc(1899, 12, 31), ""},
    {"the last year of four digits", utc(9999, 12, 31, 23, 59, 59), "99991231T235959Z"},
    {"a year of five digits", utc(65535, 12, 31), "655351231T000000Z"},
    {"month 0", utc(2009, 0, 1), ""},
    {"month 13", utc(2009, 13, 1), ""},
    {"day 0", utc(2009, 1, 0), ""},
    {"day 32", utc(2009, 1, 32), ""},
    {"a day that its month has not", utc(2009, 2, 31), "20090231T000000Z"},
    {"hour 24", utc(2009, 1, 1, 24), ""},
    {"minute 60", utc(2009, 1, 1, 0, 60), ""},
    {"second 60", utc(2009, 1, 1, 0, 0, 60), ""},
};

TEST(CalendarWriting, TimesOfAnEvent) {
    for (const TimeCase& row : kTimes) {
        SCOPED_TRACE(row.what);
        Calendar event;
        event.start = row.time;
        EXPECT_EQ(written(event),
                  event_text({"DTSTART:" + row.text, "DTEND:", "AALARM:", "X-EPOCAGENDAENTRYTYPE:"}));
        event.start = kNoTime;
        event.end = row.time;
        EXPECT_EQ(written(event),
                  event_text({"DTSTART:", "DTEND:" + row.text, "AALARM:", "X-EPOCAGENDAENTRYTYPE:"}));
    }
}

TEST(CalendarWriting, TimesOfAToDoThatAreNoneHaveNoLine) {
    for (const TimeCase& row : kTimes) {
        SCOPED_TRACE(row.what);
        Calendar todo;
        todo.type = VZ_ITEM_TODO;
        todo.start = row.time;
        const auto expected = [&row](const std::string& name) {
            return row.text.empty() ? bare_todo_text({})
                                    : todo_text({name + row.text, "AALARM:", "X-EPOCAGENDAENTRYTYPE:TODO"});
        };
        EXPECT_EQ(written(todo), expected("DUE:"));
        todo.start = kNoTime;
        todo.end = row.time;
        EXPECT_EQ(written(todo), expected("DTEND:"));
    }
}

// ---- Item types.

struct TypeCase {
    std::uint32_t type;
    std::string_view name;
};

constexpr TypeCase kTypes[] = {
    {0, ""},
    {1, "APPOINTMENT"},
    {2, "CALL"},
    {3, "ANNIVERSARY"},
    {4, "EVENT"},
    {5, "REMINDER"},
    {6, ""},
    {7, "TODO"},
    {8, "ANNIVERSARY"},
    {9, ""},
    {0x107, ""},
    {UINT32_MAX, ""},
};

TEST(CalendarWriting, EveryItemTypeHasItsName) {
    for (const TypeCase& row : kTypes) {
        for (const std::uint32_t api_version : {12U, 13U, 14U, 15U, 16U, 17U}) {
            SCOPED_TRACE(std::to_string(row.type) + " at " + std::to_string(api_version));
            Calendar item;
            item.type = row.type;
            const std::string text = written(item, at_interface(api_version));
            EXPECT_TRUE(holds_line(text, "X-EPOCAGENDAENTRYTYPE:" + std::string(row.name)));
            EXPECT_EQ(holds_line(text, "BEGIN:VTODO"), row.type == 7);
            EXPECT_EQ(holds_line(text, "BEGIN:VEVENT"), row.type != 7);
            EXPECT_EQ(holds_line(text, "X-VZAPI-ITEM-TYPE:ANNIVERSARY"), row.type == 8 && api_version >= 14);
            EXPECT_EQ(holds_name(text, "X-VZAPI-ITEM-TYPE"), row.type == 8 && api_version >= 14);
        }
    }
}

// ---- Recurrence.

// The rule of a record with everything filled, each member with a frequency of its own.
Calendar with_both_rules(std::uint32_t size) {
    Calendar event;
    event.size = size;
    event.type = VZ_ITEM_CALL;
    event.start = local(2009, 3, 16, 9);  // a Monday
    event.repeat = {VZ_REPEAT_WEEKLY, 2, VZ_DAY_TUESDAY, 0xF0 | VZ_POSITION_SECOND};
    event.wide_repeat = Repeat{VZ_REPEAT_WEEKLY, 300, VZ_DAY_FRIDAY, VZ_POSITION_NONE};
    return event;
}

TEST(CalendarWriting, TheSizeTellsWhichMembersHoldTheRecurrence) {
    struct Row {
        std::uint32_t size;
        std::uint32_t repeat_size;
        const char* rule;
    };
    constexpr Row kRows[] = {
        {112, 20, "RRULE:W2 MO #0"},    // no day selection: that of the start
        {128, 20, "RRULE:W2 TU #0"},    // the 8-bit one
        {152, 20, "RRULE:W300 FR #0"},  // the full-width words
        {192, 20, "RRULE:W300 FR #0"},  //
        {152, 0, "RRULE:W2 MO #0"},     // which are not filled: the 8-bit ones without day selection
        {192, 19, "RRULE:W2 MO #0"},    //
        {192, 21, "RRULE:W2 MO #0"},    //
        {113, 20, "RRULE:W2 MO #0"},    // of no version: as 112
        {193, 20, "RRULE:W2 MO #0"},    //
        {0, 20, "RRULE:W2 MO #0"},      //
    };
    for (const Row& row : kRows) {
        for (const std::uint32_t api_version : {12U, 13U, 14U, 15U, 16U}) {
            CalendarRecord record(with_both_rules(row.size));
            record.whole.repeatSize = row.repeat_size;
            EXPECT_TRUE(holds_line(written(record, at_interface(api_version)), row.rule)) << row.size;
        }
    }
}

TEST(CalendarWriting, ThePositionIsTheLowHalfOfItsByteIn128BytesOnly) {
    Calendar event = with_both_rules(128);
    event.repeat.frequency = VZ_REPEAT_MONTHLY;
    EXPECT_TRUE(holds_line(written(event), "RRULE:MP2 2+ TU #0")) << written(event);
    event.size = 112;
    EXPECT_TRUE(holds_line(written(event), "RRULE:MD2 16 #0")) << written(event);
}

TEST(CalendarWriting, NothingRecursWithoutAFrequency) {
    for (const Target& target : {kPlain, kVersion2}) {
        for (const std::uint32_t frequency : {0U, 5U, 255U}) {
            Calendar event = with_both_rules(128);
            event.repeat.frequency = frequency;
            EXPECT_FALSE(holds_name(written(event, target), "RRULE")) << frequency;
        }
    }
}

TEST(CalendarWriting, ARuleWithoutEndHasAnEndInVersion2) {
    EXPECT_TRUE(holds_line(written(with_both_rules(128), kVersion2),
                           "RRULE:FREQ=WEEKLY;UNTIL=21001230T000000Z;INTERVAL=2;WKST=MO;BYDAY=TU"));
}

TEST(CalendarWriting, AToDoRecursFromInterface15OnInTheFormOfVersion1) {
    Calendar todo = with_both_rules(128);
    todo.type = VZ_ITEM_TODO;
    todo.exceptions = {local(2009, 3, 17, 9)};
    for (const Target& target : {kPlain, kVersion2}) {
        for (const std::uint32_t api_version : {12U, 13U, 14U, 15U, 16U}) {
            const std::string text = written(todo, at_interface(api_version, target));
            EXPECT_EQ(holds_line(text, "RRULE:W2 TU #0"), api_version >= 15) << text;
            EXPECT_EQ(holds_line(text, "EXDATE:20090317T090000"), api_version >= 15) << text;
            EXPECT_EQ(holds_name(text, "RRULE"), api_version >= 15) << text;
        }
    }
}

// ---- Exceptions.

TEST(CalendarWriting, ExceptionsAreOneLineOfValidDates) {
    struct Row {
        const char* what;
        std::vector<Time> exceptions;
        std::vector<std::string_view> lines;
    };
    const Row rows[] = {
        {"none", {}, {}},
        {"one", {local(2009, 1, 2, 3, 4, 5)}, {"EXDATE:20090102T030405"}},
        {"each with a zone of its own",
         {utc(2009, 1, 2), local(2009, 1, 3), with_zones(utc(2009, 1, 4), 0, 0xFFFF)},
         {"EXDATE:20090102T000000Z;20090103T000000;20090104T000000"}},
        {"one that is no date, in front", {kNoTime, utc(2009, 1, 3)}, {"EXDATE:20090103T000000Z"}},
        {"in the middle",
         {utc(2009, 1, 2), utc(2009, 13, 1), utc(2009, 1, 3)},
         {"EXDATE:20090102T000000Z;20090103T000000Z"}},
        {"at the end", {utc(2009, 1, 2), utc(1899, 12, 31)}, {"EXDATE:20090102T000000Z"}},
        {"none that is a date", {kNoTime, kNoTime}, {"EXDATE:"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        for (const std::uint32_t size : {128U, 152U, 192U}) {
            Calendar event;
            event.size = size;
            event.type = VZ_ITEM_CALL;
            event.exceptions = row.exceptions;
            const std::string expected = row.lines.empty() ? call_text({}) : call_text({row.lines.front()});
            EXPECT_EQ(written(event), expected);
        }
    }
}

TEST(CalendarWriting, ARecordWithoutTheBlockHasNoExceptions) {
    for (const std::uint32_t size : {0U, 112U, 127U, 129U, 191U, 193U}) {
        Calendar event;
        event.size = size;
        event.type = VZ_ITEM_CALL;
        event.exceptions = {utc(2009, 1, 2)};
        EXPECT_EQ(written(event), call_text({})) << size;
    }
}

TEST(CalendarWriting, AllExceptionsThatACountCanTell) {
    Calendar event;
    event.exceptions.assign(255, utc(2009, 1, 2));
    const std::string text = written(event);
    const std::size_t begin = text.find("\r\nEXDATE:") + 9;
    EXPECT_EQ(text.find("\r\n", begin) - begin, 255 * 17U - 1);
}

// ---- The time zone.

TEST(CalendarWriting, TheTimeZoneNeedsItsBlockAndInterface16) {
    for (const std::uint32_t size : {112U, 128U, 152U, 192U, 200U}) {
        for (const std::uint32_t api_version : {12U, 13U, 14U, 15U, 16U, 17U}) {
            for (const std::uint32_t zone_size : {0U, 39U, 40U, 41U}) {
                for (const std::uint32_t type : {1U, 7U, 8U}) {
                    Calendar item = full_event();
                    item.size = size;
                    item.type = type;
                    CalendarRecord record(item);
                    record.whole.zoneSize = zone_size;
                    const std::string text = written(record, at_interface(api_version));
                    const bool is_there = size == 192 && api_version >= 16 && zone_size == 40;
                    EXPECT_EQ(holds_line(text, "TZ:+01:00"), is_there) << size << ' ' << api_version;
                    EXPECT_EQ(holds_name(text, "TZ"), is_there) << size << ' ' << api_version;
                    EXPECT_EQ(holds_name(text, "DAYLIGHT"), is_there) << size << ' ' << api_version;
                }
            }
        }
    }
}

TEST(CalendarWriting, AnEmptyTimeZoneHasNoLine) {
    Calendar event;
    event.type = VZ_ITEM_CALL;
    event.zone = Zone{};
    EXPECT_EQ(written(event), call_text({}));
}

TEST(CalendarWriting, ATimeZoneWithoutRulesAndNames) {
    Calendar event;
    event.zone = Zone{-210, 0, {}, {}, {}};
    const std::string text = written(event);
    EXPECT_TRUE(holds_line(text, "TZ:-03:30")) << text;
    EXPECT_FALSE(holds_name(text, "DAYLIGHT")) << text;
}

}  // namespace
}  // namespace vzapi::test::calendar
