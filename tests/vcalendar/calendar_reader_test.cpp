// vCalendar text to CalendarItem: what is read at all, item types, which component, dates and alarms.
#include "vcalendar/calendar_reader.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/machine_zone.h"
#include "vcalendar/calendar_time.h"
#include "vcalendar/owned_calendar.h"

namespace vzapi::test {
namespace {

const std::string kInvalid = "result " + std::to_string(VZ_ERR_INVALID_TEXT);

struct TextCase {
    std::string text;
    std::string expected;
};

// ---- What is read.

TEST(CalendarReader, TakesVersions10And20Only) {
    const std::string read = "type 1\n300 a\n";
    const TextCase cases[] = {
        {event("SUMMARY:a", "1.0"), read},
        {event("SUMMARY:a", "2.0"), read},
        {"begin:vcalendar\r\nversion:1.0\r\nbegin:vevent\r\nsummary:a\r\nend:vevent\r\nend:vcalendar\r\n",
         read},
        {"BEGIN: VCalendar \r\nBEGIN:VEVENT\r\nSUMMARY:a\r\nEND:VEVENT\r\nVERSION:1.0\r\n", read},
        {event("SUMMARY:a", "1.1"), kInvalid},
        {event("SUMMARY:a", "3.0"), kInvalid},
        {event("SUMMARY:a", "1.0 "), kInvalid},
        {event("SUMMARY:a", " 2.0"), kInvalid},
        {event("SUMMARY:a", "1.00"), kInvalid},
        {event("SUMMARY:a", ""), kInvalid},
        {"BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nSUMMARY:a\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n", kInvalid},
        {"BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nVERSION:1.0\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n", kInvalid},
        {"BEGIN:VCALENDAR\r\nVERSION:1.1\r\nVERSION:1.0\r\nEND:VCALENDAR\r\n", kInvalid},
        {"BEGIN:VCARD\r\nVERSION:1.0\r\nSUMMARY:a\r\nEND:VCARD\r\n", kInvalid},
        {"BEGIN:VCARD\r\nEND:VCARD\r\n" + event("SUMMARY:a"), kInvalid},
        {"BEGIN:VEVENT\r\nVERSION:1.0\r\nSUMMARY:a\r\nEND:VEVENT\r\n", kInvalid},
        {"VERSION:1.0\r\nSUMMARY:a\r\n", kInvalid},
        {"", kInvalid},
    };
    for (const TextCase& row : cases) EXPECT_EQ(read_text(row.text), row.expected) << row.text;
}

TEST(CalendarReader, AnotherVersionLeavesTheRecordAsItWas) {
    for (const std::uint32_t size : kCalendarSizes) {
        OwnedCalendar calendar(size);
        std::memset(calendar.memory() + 4, 0xA5, calendar.length() - 4);
        EXPECT_EQ(calendar.read(event("SUMMARY:a\r\nDTSTART:20090101T100000", "1.1")), VZ_ERR_INVALID_TEXT);
        for (std::size_t i = 4; i < calendar.length(); ++i) EXPECT_EQ(calendar.memory()[i], std::byte{0xA5});
        std::memset(calendar.memory() + 4, 0, calendar.length() - 4);
    }
}

TEST(CalendarReader, ACalendarWithoutEntriesGivesNothing) {
    EXPECT_EQ(read_text("BEGIN:VCALENDAR\r\nVERSION:1.0\r\nSUMMARY:a\r\nEND:VCALENDAR\r\n"), "type 0\n");
    EXPECT_EQ(read_text(event("")), "type 0\n");
    EXPECT_EQ(read_text("BEGIN:VCALENDAR\r\nVERSION:2.0"), "type 0\n");
}

TEST(CalendarReader, OnlyTheFirstEntryOfAKindIsRead) {
    const std::string two =
        "BEGIN:VEVENT\r\nSUMMARY:a\r\nEND:VEVENT\r\nBEGIN:VEVENT\r\nSUMMARY:b\r\nEND:VEVENT\r\n";
    EXPECT_EQ(read_text("BEGIN:VCALENDAR\r\nVERSION:1.0\r\n" + two + "END:VCALENDAR\r\n"), "type 1\n300 a\n");
    EXPECT_EQ(read_text(event("SUMMARY:a") + todo("SUMMARY:b")), "type 1\n300 a\n")
        << "what follows the calendar is none of it";
}

TEST(CalendarReader, AnEntryWithoutEndReachesToTheEndOfTheText) {
    EXPECT_EQ(read_text("BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nSUMMARY:a\r\nLOCATION:b"),
              "type 1\n300 a\n301 b\n");
}

TEST(CalendarReader, LinesOfTheCalendarAndOfNestedComponentsAreNotTheEntrys) {
    EXPECT_EQ(read_text(calendar_with("VEVENT",
                                      "BEGIN:VALARM\r\nSUMMARY:a\r\nDTSTART:20090101T000000\r\n"
                                      "X-VZAPI-ITEM-TYPE:\r\nEND:VALARM\r\nLOCATION:b",
                                      "2.0", "SUMMARY:c\r\nCATEGORIES:CALL\r\n")),
              "type 1\n301 b\n");
}

TEST(CalendarReader, LinesWithAGroupOrAnUnknownNameAreSkipped) {
    EXPECT_EQ(read_event("item1.SUMMARY:a\r\nitem1.DTSTART:20090101T100000\r\nX-OWN:b\r\nUID:1\r\nno line\r\n"
                         ":a\r\n;:a\r\nATTENDEE:c\r\nLOCATION:d"),
              "type 1\n301 d\n");
}

// ---- Item types.

struct TypeCase {
    std::string body;
    std::uint32_t type;
};

TEST(CalendarReader, ATypeIsNamedByCategoriesOrByTheAgendaTypes) {
    const TypeCase cases[] = {
        {"SUMMARY:a", 1},
        {"CATEGORIES:MEETING", 1},
        {"CATEGORIES:APPOINTMENT", 1},
        {"CATEGORIES:CALL", 2},
        {"CATEGORIES:PHONE CALL", 2},
        {"CATEGORIES:phone call", 2},
        {"CATEGORIES:BIRTHDAY", 3},
        {"CATEGORIES:ANNIVERSARY", 3},
        {"CATEGORIES:SPECIAL OCCASION", 3},
        {"CATEGORIES:MEMO", 4},
        {"CATEGORIES:EVENT", 4},
        {"CATEGORIES:MISCELLANEOUS", 4},
        {"CATEGORIES:REMINDER", 5},
        {"CATEGORIES:NOTE", 6},
        {"CATEGORIES:TODO", 7},
        {"CATEGORIES:BUSINESS", 0},
        {"CATEGORIES:", 0},
        {"CATEGORIES:CALL;MEETING", 0},
        {"X-EPOCAGENDAENTRYTYPE:CALL", 2},
        {"X-EPOCAGENDAENTRYTYPE:", 0},
        {"X-EPOC-AGENDA-TYPE:reminder", 5},
        {"X-EPOC-AGENDA-TYPE:MEMO\r\nX-EPOCAGENDAENTRYTYPE:CALL", 2},
        {"X-EPOC-AGENDA-TYPE:MEMO\r\nX-EPOCAGENDAENTRYTYPE:BUSINESS", 0},
        {"X-EPOCAGENDAENTRYTYPE:APPOINTMENT\r\nCATEGORIES:BUSINESS", 0},
        {"CATEGORIES:BUSINESS\r\nX-EPOCAGENDAENTRYTYPE:APPOINTMENT", 0},
        {"X-EPOCAGENDAENTRYTYPE:APPOINTMENT\r\nCATEGORIES:\r\nCATEGORIES:CALL", 0},
        {"CATEGORIES:MEMO\r\nCATEGORIES:CALL", 4},
        {"CATEGORIES;ENCODING=QUOTED-PRINTABLE:=43ALL", 2},
        {"CATEGORIES;CHARSET=UTF-8;ENCODING=BASE64:Q0FMTA==", 2},
        {"categories:call", 2},
        {"X-CATEGORIES:CALL", 1},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TypeCase& row : cases) {
            OwnedCalendar calendar;
            ASSERT_EQ(calendar.read(event(row.body, version)), VZ_OK);
            EXPECT_EQ(calendar.item().itemType, row.type) << row.body << " " << version;
        }
    }
}

TEST(CalendarReader, TheOwnItemTypeCountsFromInterfaceVersion14On) {
    const std::string bodies[] = {
        "X-VZAPI-ITEM-TYPE:ANNIVERSARY\r\nCATEGORIES:CALL",
        "CATEGORIES:CALL\r\nx-vzapi-item-type:",
        "CATEGORIES:CALL\r\nX-VZAPI-ITEM-TYPE;X=Y:whatever",
    };
    for (const std::string& body : bodies) {
        for (const std::uint32_t api_version : {0U, 12U, 13U, 14U, 15U, 16U, 17U}) {
            OwnedCalendar calendar(VZ_CALENDAR_SIZE_TIME_ZONE, api_version);
            ASSERT_EQ(calendar.read(event(body)), VZ_OK);
            EXPECT_EQ(calendar.item().itemType, api_version >= 14 ? 8U : 2U) << body << " " << api_version;
        }
    }
}

TEST(CalendarReader, AnEntryWithoutTypeThatBeginsAtMidnightIsAnEvent) {
    const TypeCase cases[] = {
        {"DTSTART:20090101T000000", 4},
        {"DTSTART:20090101", 4},
        {"DTSTART;VALUE=DATE:20090101", 4},
        {"DTSTART;TZID=Europe/Paris:20090101T000000", 4},
        {"DTSTART:2009-01-01T00:00:00", 4},
        {"CATEGORIES:BUSINESS\r\nDTSTART:20090101T000000", 4},
        {"X-EPOCAGENDAENTRYTYPE:\r\nDTSTART:20090101T000000", 4},
        {"CATEGORIES:\r\nX-EPOCAGENDAENTRYTYPE:CALL\r\nDTSTART:20090101T000000", 4},
        {"DTSTART:20090101T000000Z", 1},
        {"DTSTART:20090101T000001", 1},
        {"DTSTART:20090101T000100", 1},
        {"DTSTART:20090101T010000", 1},
        {"DTSTART:20091301T000000", 1},
        {"DTEND:20090101T000000", 1},
        {"DUE:20090101T000000", 1},
        {"CATEGORIES:MEETING\r\nDTSTART:20090101T000000", 1},
        {"X-EPOCAGENDAENTRYTYPE:CALL\r\nDTSTART:20090101T000000", 2},
        {"CATEGORIES:BUSINESS\r\nDTSTART:20090101T000001", 0},
        {"X-VZAPI-ITEM-TYPE:\r\nDTSTART:20090101T000000", 8},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TypeCase& row : cases) {
            OwnedCalendar calendar;
            ASSERT_EQ(calendar.read(event(row.body, version)), VZ_OK);
            EXPECT_EQ(calendar.item().itemType, row.type) << row.body << " " << version;
        }
    }
}

TEST(CalendarReader, TextOfVersion20IsUtf8AndHasEscapes) {
    // No name of a type has either; both are undone before the names are compared.
    EXPECT_EQ(read_event("CATEGORIES:PHONE\\, CALL", "2.0"), "type 0\n");
    EXPECT_EQ(read_event("SUMMARY:a\\, b", "2.0"), "type 1\n300 a, b\n");
    EXPECT_EQ(read_event("SUMMARY:a\\, b", "1.0"), "type 1\n300 a\\, b\n");
}

// ---- Which component.

TEST(CalendarReader, AToDoBesideAnEventIsReadWithTheTypeOfTheEvent) {
    const std::string event_part = "BEGIN:VEVENT\r\nCATEGORIES:CALL\r\nSUMMARY:a\r\nEND:VEVENT\r\n";
    const std::string todo_part = "BEGIN:VTODO\r\nSUMMARY:b\r\nEND:VTODO\r\n";
    const std::string empty_todo = "BEGIN:VTODO\r\nEND:VTODO\r\n";
    const TextCase cases[] = {
        {event_part + todo_part, "type 2\n300 b\n304 =1\n"},
        {todo_part + event_part, "type 2\n300 b\n304 =1\n"},
        {todo_part, "type 7\n300 b\n304 =1\n"},
        {empty_todo, "type 7\n304 =1\n"},
        {event_part + empty_todo, "type 2\n300 a\n"},
        {empty_todo + event_part, "type 2\n304 =1\n"},
        {"BEGIN:VTIMEZONE\r\nTZID:a\r\nEND:VTIMEZONE\r\n" + empty_todo + event_part, "type 2\n300 a\n"},
        {"BEGIN:VTIMEZONE\r\nTZID:a\r\nEND:VTIMEZONE\r\n" + todo_part, "type 7\n300 b\n304 =1\n"},
        {"BEGIN:VEVENT\r\nEND:VEVENT\r\n" + todo_part, "type 7\n300 b\n304 =1\n"},
        {"BEGIN:VEVENT\r\nEND:VEVENT\r\n", "type 0\n"},
        {"BEGIN:VTODO\r\nCATEGORIES:CALL\r\nEND:VTODO\r\n", "type 7\n304 =1\n"},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            const std::string text = "BEGIN:VCALENDAR\r\nVERSION:" + std::string(version) + "\r\n" +
                                     row.text + "END:VCALENDAR\r\n";
            EXPECT_EQ(read_text(text), row.expected) << text;
        }
    }
}

// ---- Dates of events.

TEST(CalendarReader, StartAndEndOfAnEvent) {
    const TextCase cases[] = {
        {"DTSTART:20090102T030405\r\nDTEND:20090102T040000",
         "type 1\nstart 2009-01-02 03:04:05\nend 2009-01-02 04:00:00\n"},
        {"DTEND:20090102T040000Z\r\nDTSTART:20090102T030405Z",
         "type 1\nstart 2009-01-02 03:04:05Z\nend 2009-01-02 04:00:00Z\n"},
        {"DTSTART;TZID=Europe/Paris:20090102T030405", "type 1\nstart 2009-01-02 03:04:05\n"},
        {"DTSTART;ENCODING=QUOTED-PRINTABLE:=32009-01-02T03:04:05Z", "type 1\nstart 2009-01-02 03:04:05Z\n"},
        {"DTSTART;BASE64:MjAwOTAxMDJUMDMwNDA1", "type 1\nstart 2009-01-02 03:04:05\n"},
        // The first line counts, whatever it holds.
        {"DTSTART:20090102T030405\r\nDTSTART:20100102T030405", "type 1\nstart 2009-01-02 03:04:05\n"},
        {"DTEND:20090102T030405\r\nDTEND:20100102T030405", "type 1\nend 2009-01-02 03:04:05\n"},
        {"DTEND:\r\nDTEND:20100102T030405", "type 1\n"},
        // No date leaves nothing.
        {"DTSTART:\r\nDTEND:", "type 1\n"},
        {"DTSTART:18991231T100000\r\nDTEND:tomorrow", "type 1\n"},
        {"DTSTART:20091301T100000\r\nDTEND:20090132T100000", "type 1\n"},
        {"DTSTART:20090101T240000", "type 1\n"},
        {"DUE:20090102T030405\r\nCOMPLETED:20090102T030405\r\nRDATE:20090102T030405", "type 1\n"},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            EXPECT_EQ(read_event(row.text, version), row.expected) << row.text << " " << version;
        }
    }
}

std::string local_date_line(const char* name, const char* utc) {
    return std::string(name) + show_time(vcalendar::to_local(vcalendar::parse_date_text(utc)->time)) + "\n";
}

void read_days_given_in_utc() {
    const std::string both = "\r\nDTSTART:20090101T220000Z\r\nDTEND:20090102T220000Z";
    const std::string local_dates =
        local_date_line("start ", "20090101T220000Z") + local_date_line("end ", "20090102T220000Z");
    const std::string utc_dates = "start 2009-01-01 22:00:00Z\nend 2009-01-02 22:00:00Z\n";
    const TextCase cases[] = {
        {"CATEGORIES:BUSINESS" + both, "type 0\n" + utc_dates},
        {"CATEGORIES:MEETING" + both, "type 1\n" + utc_dates},
        {"CATEGORIES:CALL" + both, "type 2\n" + utc_dates},
        {"CATEGORIES:BIRTHDAY" + both, "type 3\n" + local_dates},
        {"CATEGORIES:MEMO" + both, "type 4\n" + local_dates},
        {"CATEGORIES:REMINDER" + both, "type 5\n" + utc_dates},
        {"CATEGORIES:NOTE" + both, "type 6\n" + utc_dates},
        {"CATEGORIES:TODO" + both, "type 7\n" + utc_dates},
        {"X-VZAPI-ITEM-TYPE:" + both, "type 8\n" + local_dates},
        // Within the first hour it is a day already.
        {"CATEGORIES:MEMO\r\nDTSTART:20090101T000000Z\r\nDTEND:20090101T235959Z",
         "type 4\nstart 2009-01-01 00:00:00Z\n" + local_date_line("end ", "20090101T235959Z")},
        {"CATEGORIES:MEMO\r\nDTSTART:20090101T003000Z", "type 4\nstart 2009-01-01 00:30:00Z\n"},
        {"CATEGORIES:MEMO\r\nDTSTART:20090101T220000", "type 4\nstart 2009-01-01 22:00:00\n"},
        // The type that midnight gives counts for the end.
        {"DTSTART:20090101T000000\r\nDTEND:20090102T220000Z",
         "type 4\nstart 2009-01-01 00:00:00\n" + local_date_line("end ", "20090102T220000Z")},
    };
    for (const TextCase& row : cases) EXPECT_EQ(read_event(row.text), row.expected) << row.text;
}

TEST(CalendarReaderInMachineZone, DaysThatAreGivenInUtcBecomeLocal) {
    for (const char* zone : {"Asia/Kolkata", "America/New_York"})
        in_machine_zone(zone, read_days_given_in_utc);
}

TEST(CalendarReaderInMachineZone, TheLocalDayIsThatOfTheRulesOfItsDate) {
    struct ZoneCase {
        const char* zone;
        const char* utc;
        const char* local;
    };
    constexpr ZoneCase kCases[] = {
        {"UTC", "20090701T220000Z", "2009-07-01 22:00:00"},
        {"Europe/Berlin", "20090101T230000Z", "2009-01-02 00:00:00"},
        {"Europe/Berlin", "20090630T220000Z", "2009-07-01 00:00:00"},
        {"Europe/Berlin", "20090329T010000Z", "2009-03-29 03:00:00"},
        {"America/New_York", "20090102T050000Z", "2009-01-02 00:00:00"},
        {"America/New_York", "20090702T040000Z", "2009-07-02 00:00:00"},
        {"Australia/Sydney", "20090101T130000Z", "2009-01-02 00:00:00"},
        {"Australia/Sydney", "20090630T140000Z", "2009-07-01 00:00:00"},
    };
    for (const ZoneCase& row : kCases) {
        in_machine_zone(row.zone, [&row] {
            const std::string dates = "\r\nDTSTART:" + std::string(row.utc) + "\r\nDTEND:" + row.utc;
            const std::string local = "start " + std::string(row.local) + "\nend " + row.local + "\n";
            for (const char* version : {"1.0", "2.0"}) {
                EXPECT_EQ(read_event("CATEGORIES:BIRTHDAY" + dates, version), "type 3\n" + local) << row.zone;
                EXPECT_EQ(read_event("CATEGORIES:MEMO" + dates, version), "type 4\n" + local) << row.zone;
                EXPECT_EQ(read_event("X-VZAPI-ITEM-TYPE:" + dates, version), "type 8\n" + local) << row.zone;
            }
        });
    }
}

TEST(CalendarReader, ABirthdayWithoutEndLastsItsStartDayInVersion20) {
    const std::string birthday = "CATEGORIES:BIRTHDAY\r\nDTSTART:20090102T000000";
    EXPECT_EQ(read_event(birthday, "2.0"), "type 3\nstart 2009-01-02 00:00:00\nend 2009-01-02 00:00:00\n");
    EXPECT_EQ(read_event(birthday, "1.0"), "type 3\nstart 2009-01-02 00:00:00\n");
    EXPECT_EQ(read_event(birthday + "\r\nDTEND:20090103T000000", "2.0"),
              "type 3\nstart 2009-01-02 00:00:00\nend 2009-01-03 00:00:00\n");
    EXPECT_EQ(read_event("CATEGORIES:BIRTHDAY", "2.0"), "type 3\n");
    EXPECT_EQ(read_event("CATEGORIES:MEMO\r\nDTSTART:20090102T000000", "2.0"),
              "type 4\nstart 2009-01-02 00:00:00\n");
    EXPECT_EQ(read_event("X-VZAPI-ITEM-TYPE:\r\nDTSTART:20090102T000000", "2.0"),
              "type 8\nstart 2009-01-02 00:00:00\n");
}

// ---- Alarms.

TEST(CalendarReader, AlarmsOfAnEvent) {
    const std::string audio = "alarm 3 2009-01-02 03:04:05\n";
    const std::string display = "alarm 2 2009-01-02 03:04:05\n";
    const TextCase cases[] = {
        {"SUMMARY:a", "300 a\n"},
        {"AALARM:20090102T030405;;0;", audio},
        {"AALARM:20090102T030405", audio},
        {"AALARM;TYPE=WAVE;VALUE=URL:20090102T030405;;;file:///mmedia/taps.wav", audio},
        {"AALARM:20090102T030405Z;PT5M;2;", "alarm 3 2009-01-02 03:04:05Z\n"},
        {"DALARM:20090102T030405;;0;text", display},
        {"DALARM;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:20090102T030405;;0;caf=C3=A9", display},
        {"AALARM;ENCODING=QUOTED-PRINTABLE:=32=30090102T030405=3B;0;", audio},
        // The encoding is that of the sound or the text; a time that can be read as it stands is the time.
        {"AALARM;TYPE=WAVE;VALUE=INLINE;ENCODING=BASE64:20090102T030405;;0;UklGRiQA", audio},
        {"DALARM:20090102T030405;;0;in BASE64", display},
        {"AALARM;ENCODING=BASE64:MjAwOTAxMDJUMDMwNDA1Ozsw", audio},
        {"AALARM:20090102T030405;;0;\r\nDALARM:20090102T030405;;0;", display},
        {"DALARM:20090102T030405;;0;\r\nAALARM:20100102T030405;;0;", display},
        {"AALARM:20090102T030405;;0;\r\nDALARM:", audio},
        {"DALARM:later\r\nAALARM:20090102T030405", audio},
        {"AALARM:\r\nAALARM:20090102T030405", audio},
        {"AALARM:20090102T030405\r\nAALARM:20100102T030405", audio},
        {"AALARM:", ""},
        {"AALARM:;;0;", ""},
        {"DALARM:\r\nAALARM:;", ""},
        {"MALARM:20090102T030405;;;a@example.com\r\nPALARM:20090102T030405", ""},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            EXPECT_EQ(read_event(row.text, version), "type 1\n" + row.expected) << row.text << " " << version;
        }
    }
}

TEST(CalendarReader, AnEntryWithoutAlarmSaysSo) {
    for (const std::string& text :
         {event("SUMMARY:a"), todo("SUMMARY:a"), event("AALARM:"), todo("DALARM:x")}) {
        OwnedCalendar calendar;
        ASSERT_EQ(calendar.read(text), VZ_OK);
        EXPECT_EQ(calendar.item().alarmKind, std::uint32_t{VZ_ALARM_NONE});
        EXPECT_EQ(calendar.item().alarm.year, 0);
    }
}

TEST(CalendarReader, AlarmComponentsOfVersion20) {
    const std::string start = "DTSTART:20090102T100000\r\nDTEND:20090102T110000\r\n";
    const std::string dates = "type 1\nstart 2009-01-02 10:00:00\nend 2009-01-02 11:00:00\n";
    const auto valarm = [](const std::string& body) { return "BEGIN:VALARM\r\n" + body + "\r\nEND:VALARM"; };
    const TextCase cases[] = {
        {valarm("TRIGGER:-P0DT0H15M0S\r\nACTION:AUDIO"), "alarm 3 2009-01-02 09:45:00\n"},
        {valarm("TRIGGER:-PT15M\r\nACTION:DISPLAY"), "alarm 2 2009-01-02 09:45:00\n"},
        {valarm("TRIGGER;RELATED=END:PT15M"), "alarm 3 2009-01-02 11:15:00\n"},
        {valarm("TRIGGER;VALUE=DATE-TIME:20090101T120000Z"), "alarm 3 2009-01-01 12:00:00Z\n"},
        {valarm("TRIGGER:soon"), ""},
        {valarm("TRIGGER:-PT15M") + "\r\nAALARM:20090102T093000", "alarm 3 2009-01-02 09:30:00\n"},
        {valarm("TRIGGER:-PT15M") + "\r\nAALARM:", "alarm 3 2009-01-02 09:45:00\n"},
    };
    for (const TextCase& row : cases) {
        EXPECT_EQ(read_event(start + row.text, "2.0"), dates + row.expected) << row.text;
    }
    EXPECT_EQ(read_event(start + cases[0].text, "1.0"), dates);
}

TEST(CalendarReaderInMachineZone, TheAlarmOfADayCountsFromItsLocalStart) {
    in_machine_zone("Asia/Kolkata", [] {
        const std::string read = read_event(
            "CATEGORIES:MEMO\r\nDTSTART:20090101T220000Z\r\nBEGIN:VALARM\r\nTRIGGER:PT0S\r\nEND:VALARM",
            "2.0");
        EXPECT_EQ(read, "type 4\n" + local_date_line("start ", "20090101T220000Z") +
                            local_date_line("alarm 3 ", "20090101T220000Z"));
    });
}

}  // namespace
}  // namespace vzapi::test
