// VTODO to CalendarItem.
#include <gtest/gtest.h>

#include <string>

#include "support/machine_zone.h"
#include "vcalendar/owned_calendar.h"

namespace vzapi::test {
namespace {

struct TextCase {
    std::string text;
    std::string expected;
};

TEST(TodoReader, DueIsTheStart) {
    const TextCase cases[] = {
        {"DUE:20090102T030405", "start 2009-01-02 03:04:05\n"},
        {"DUE:20090102T030405Z", "start 2009-01-02 03:04:05Z\n"},
        {"DUE:20090102", "start 2009-01-02 00:00:00\n"},
        {"DTSTART:20080102T030405\r\nDUE:20090102T030405", "start 2009-01-02 03:04:05\n"},
        {"DTSTART:20080102T030405", "start 2008-01-02 03:04:05\n"},
        {"DTSTART:20080102T030405\r\nDUE:", "start 2008-01-02 03:04:05\n"},
        {"DUE:20090102T030405\r\nDTEND:20090102T040000",
         "start 2009-01-02 03:04:05\nend 2009-01-02 04:00:00\n"},
        {"DUE;ENCODING=QUOTED-PRINTABLE:=320090102", "start 2009-01-02 00:00:00\n"},
        {"DUE:never\r\nDTEND:never", ""},
        {"", ""},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            EXPECT_EQ(read_todo(row.text, version), "type 7\n" + row.expected + "304 =1\n") << row.text;
        }
    }
}

TEST(TodoReader, Alarms) {
    const std::string due = "DUE:20090102T100000\r\n";
    const std::string start = "type 7\nstart 2009-01-02 10:00:00\n";
    const TextCase cases[] = {
        {"AALARM:20090102T030405;;0;", "alarm 3 2009-01-02 03:04:05\n"},
        {"DALARM:20090102T030405;;0;", "alarm 2 2009-01-02 03:04:05\n"},
        {"AALARM:20090102T030405\r\nDALARM:20090102T030406", "alarm 2 2009-01-02 03:04:06\n"},
        {"AALARM:", ""},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            EXPECT_EQ(read_todo(due + row.text, version), start + row.expected + "304 =1\n") << row.text;
        }
    }
}

TEST(TodoReader, AlarmComponentsCountFromTheStartOrTheDueDate) {
    const TextCase cases[] = {
        {"DTSTART:20090101T080000\r\nDUE:20090102T100000\r\nBEGIN:VALARM\r\nTRIGGER:-PT1H\r\nEND:VALARM",
         "start 2009-01-02 10:00:00\nalarm 3 2009-01-01 07:00:00\n"},
        {"DTSTART:20090101T080000\r\nDUE:20090102T100000\r\nBEGIN:VALARM\r\nTRIGGER;RELATED=END:-PT1H\r\n"
         "ACTION:DISPLAY\r\nEND:VALARM",
         "start 2009-01-02 10:00:00\nalarm 2 2009-01-02 09:00:00\n"},
        {"DUE:20090102T100000\r\nBEGIN:VALARM\r\nTRIGGER:-PT1H\r\nEND:VALARM",
         "start 2009-01-02 10:00:00\nalarm 3 2009-01-02 09:00:00\n"},
        {"DTSTART:20090101T080000\r\nDTEND:20090101T090000\r\nBEGIN:VALARM\r\nTRIGGER;RELATED=END:"
         "PT0S\r\nEND:VALARM",
         "start 2009-01-01 08:00:00\nend 2009-01-01 09:00:00\nalarm 3 2009-01-01 09:00:00\n"},
    };
    for (const TextCase& row : cases) {
        EXPECT_EQ(read_todo(row.text, "2.0"), "type 7\n" + row.expected + "304 =1\n") << row.text;
    }
}

TEST(TodoReader, EachOneHasAStatus) {
    const TextCase cases[] = {
        {"STATUS:NEEDS ACTION", "304 =1\n"},
        {"STATUS:NEEDS-ACTION", "304 =1\n"},
        {"STATUS:NEEDS_ACTION", "304 =1\n"},
        {"STATUS:needs action", "304 =1\n"},
        {"STATUS:COMPLETED", "304 =2\n"},
        {"status:Completed ", "304 =2\n"},
        {"STATUS;ENCODING=QUOTED-PRINTABLE:COMPLETE=44", "304 =2\n"},
        {"STATUS:2", "304 =2\n"},
        {"STATUS:7", "304 =7\n"},
        {"STATUS:0", "304 =0\n"},
        {"STATUS:4294967295", "304 =4294967295\n"},
        {"STATUS:4294967296", "304 =1\n"},
        {"STATUS:-1", "304 =1\n"},
        {"STATUS:ACCEPTED", "304 =1\n"},
        {"STATUS:NEEDSACTION", "304 =1\n"},
        {"STATUS:", "304 =1\n"},
        {"STATUS:ACCEPTED\r\nSTATUS:COMPLETED", "304 =2\n"},
        {"", "304 =1\n"},
        {"SUMMARY:a", "300 a\n304 =1\n"},
        {"STATUS:COMPLETED\r\nSUMMARY:a", "304 =2\n300 a\n"},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            EXPECT_EQ(read_todo(row.text, version), "type 7\n" + row.expected) << row.text << " " << version;
        }
    }
}

TEST(TodoReader, Fields) {
    const TextCase cases[] = {
        {"SUMMARY:a\r\nDESCRIPTION:b", "300 a\n302 b\n"},
        {"DESCRIPTION:1970", "302 1970\n"},
        {"PRIORITY:3", "303 =3\n"},
        {"PRIORITY: 0 ", "303 =0\n"},
        {"PRIORITY:high", ""},
        {"CLASS:PRIVATE", "204 =1\n"},
        {"X-CLASS:PUBLIC", "204 =2\n"},
        {"x-class:none", "204 =3\n"},
        {"CLASS:PRIVATE\r\nX-CLASS:PUBLIC", "204 =1\n"},
        {"X-CLASS:PUBLIC\r\nCLASS:PRIVATE", "204 =1\n"},
        {"CLASS:CONFIDENTIAL\r\nX-CLASS:PUBLIC", "204 =2\n"},
        {"X-CLASS:odd\r\nX-CLASS:NONE\r\nX-CLASS:PUBLIC", "204 =3\n"},
        {"GEO:1.5;2.5", "205 1.5|2.5\n"},
        {"LOCATION:a", "301 a\n"},
        {"X-VZAPI-CAL-REFERENCE:1;2;3", "306 =1=2=3\n"},
        {"X-BIRTHYEAR:1970\r\nCATEGORIES:CALL", ""},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            EXPECT_EQ(read_todo("STATUS:2\r\n" + row.text, version), "type 7\n304 =2\n" + row.expected)
                << row.text << " " << version;
        }
    }
}

TEST(TodoReader, WithTheTypeOfABirthdayKeepsItsDescriptionOutOfTheYear) {
    const std::string text =
        "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nCATEGORIES:BIRTHDAY\r\nEND:VEVENT\r\n"
        "BEGIN:VTODO\r\nDESCRIPTION:a\r\nEND:VTODO\r\nEND:VCALENDAR\r\n";
    EXPECT_EQ(read_text(text), "type 3\n305 a\n304 =1\n");
}

// A to-do beside an event.
std::string read_beside(const std::string& event_body, const std::string& todo_body,
                        const std::string& calendar_lines = "") {
    return read_text("BEGIN:VCALENDAR\r\nVERSION:1.0\r\n" + calendar_lines + "BEGIN:VEVENT\r\n" + event_body +
                     "\r\nEND:VEVENT\r\nBEGIN:VTODO\r\n" + todo_body + "\r\nEND:VTODO\r\nEND:VCALENDAR\r\n");
}

TEST(TodoReader, TheTypeOfTheEventBesideItIsNotThatOfADay) {
    EXPECT_EQ(read_beside("SUMMARY:a", "DTSTART:20090101T000000"),
              "type 1\nstart 2009-01-01 00:00:00\n304 =1\n");
    EXPECT_EQ(read_beside("DTSTART:20090101T000000\r\nAALARM:20090101T000000", "SUMMARY:b"),
              "type 1\n300 b\n304 =1\n");
}

TEST(TodoReaderInMachineZone, ItsDatesStayInUtcWhateverTheTypeOfTheEvent) {
    in_machine_zone("Asia/Kolkata", [] {
        EXPECT_EQ(read_beside("CATEGORIES:MEMO", "DUE:20090101T220000Z\r\nDTEND:20090101T230000Z"),
                  "type 4\nstart 2009-01-01 22:00:00Z\nend 2009-01-01 23:00:00Z\n304 =1\n");
    });
}

TEST(TodoReader, BesideAnAppointmentTheTimeZoneIsRead) {
    const std::string zone_lines =
        "TZ:+01:00\r\nDAYLIGHT:TRUE;+02;20090329T020000;20091025T030000;CET;CEST\r\n";
    EXPECT_EQ(read_beside("SUMMARY:a", "SUMMARY:b", zone_lines),
              "type 1\n300 b\n304 =1\nzone 60 120 CET CEST\n"
              "rule 1 2009-03-29 02:00:00 2009-10-25 03:00:00\n");
    EXPECT_EQ(read_beside("CATEGORIES:CALL", "SUMMARY:b", zone_lines), "type 2\n300 b\n304 =1\n");
}

TEST(TodoReader, RecursFromInterfaceVersion15On) {
    const std::string text = todo("DUE:20090105T100000\r\nRRULE:D2 #0");
    for (const std::uint32_t api_version : {0U, 12U, 13U, 14U, 15U, 16U}) {
        const std::string repeat = api_version >= 15 ? "repeat 1/2/0/0\n" : "";
        EXPECT_EQ(read_text(text, VZ_CALENDAR_SIZE_BASE, api_version),
                  "type 7\nstart 2009-01-05 10:00:00\n" + repeat + "304 =1\n")
            << api_version;
    }
    EXPECT_EQ(
        read_text(todo("DUE:20090105T100000\r\nRRULE:FREQ=DAILY;INTERVAL=2", "2.0"), VZ_CALENDAR_SIZE_BASE),
        "type 7\nstart 2009-01-05 10:00:00\nrepeat 1/2/0/0\n304 =1\n");
}

TEST(TodoReader, HasExcludedDatesInVersion10Alone) {
    const std::string body = "EXDATE:20090105T100000";
    const std::string with = "type 7\nexcept 2009-01-05 10:00:00\n304 =1\n";
    const std::string without = "type 7\n304 =1\n";
    for (const std::uint32_t api_version : {12U, 14U, 15U, 16U}) {
        EXPECT_EQ(read_todo(body, "1.0", api_version), with) << api_version;
        EXPECT_EQ(read_todo(body, "2.0", api_version), without) << api_version;
    }
    EXPECT_EQ(read_text(todo(body), VZ_CALENDAR_SIZE_BASE), without);
    EXPECT_EQ(read_text(todo(body), VZ_CALENDAR_SIZE_EXCEPTIONS), with);
}

}  // namespace
}  // namespace vzapi::test
