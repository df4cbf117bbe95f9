// Events of version 2.0 that say how long they last instead of when they end.
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

TEST(EventDuration, EndsTheEventThatLongAfterItsStart) {
    const std::string local = "DTSTART:20090102T100000\r\n";
    const std::string utc = "DTSTART:20090102T100000Z\r\n";
    const std::string local_start = "type 1\nstart 2009-01-02 10:00:00\n";
    const std::string utc_start = "type 1\nstart 2009-01-02 10:00:00Z\n";
    const TextCase cases[] = {
        {local + "DURATION:PT1H", local_start + "end 2009-01-02 11:00:00\n"},
        {utc + "DURATION:PT15M", utc_start + "end 2009-01-02 10:15:00Z\n"},
        {local + "DURATION:P15DT5H0M20S", local_start + "end 2009-01-17 15:00:20\n"},
        {local + "DURATION:P7W", local_start + "end 2009-02-20 10:00:00\n"},
        {local + "DURATION:+P1D", local_start + "end 2009-01-03 10:00:00\n"},
        {local + "DURATION:PT0S", local_start + "end 2009-01-02 10:00:00\n"},
        {"DURATION:PT1H\r\n" + local, local_start + "end 2009-01-02 11:00:00\n"},
        {local + "duration;X=Y: pt1h ", local_start + "end 2009-01-02 11:00:00\n"},
        {local + "DURATION;ENCODING=QUOTED-PRINTABLE:PT=31H", local_start + "end 2009-01-02 11:00:00\n"},
        {"DTSTART;TZID=Europe/Paris:20090102T100000\r\nDURATION:PT1H",
         local_start + "end 2009-01-02 11:00:00\n"},
        {"DTSTART:20081231T233000\r\nDURATION:PT45M",
         "type 1\nstart 2008-12-31 23:30:00\nend 2009-01-01 00:15:00\n"},
        {"DTSTART:20080228T120000\r\nDURATION:P2D",
         "type 1\nstart 2008-02-28 12:00:00\nend 2008-03-01 12:00:00\n"},
        {"DTSTART:99991231T230000\r\nDURATION:PT59M59S",
         "type 1\nstart 9999-12-31 23:00:00\nend 9999-12-31 23:59:59\n"},
    };
    for (const TextCase& row : cases) EXPECT_EQ(read_event(row.text, "2.0"), row.expected) << row.text;
}

TEST(EventDuration, OfADayIsInWholeDays) {
    const std::string day = "DTSTART;VALUE=DATE:20090102\r\n";
    const std::string start = "type 4\nstart 2009-01-02 00:00:00\n";
    const TextCase cases[] = {
        {day + "DURATION:P1D", start + "end 2009-01-03 00:00:00\n"},
        {day + "DURATION:P1W", start + "end 2009-01-09 00:00:00\n"},
        {day + "DURATION:PT48H", start + "end 2009-01-04 00:00:00\n"},
        {day + "DURATION:P0D", start + "end 2009-01-02 00:00:00\n"},
        {day + "DURATION:PT1H", start},
        {day + "DURATION:P1DT1S", start},
        // A midnight that is written out is a time of day.
        {"DTSTART:20090102T000000\r\nDURATION:PT1H", start + "end 2009-01-02 01:00:00\n"},
    };
    for (const TextCase& row : cases) EXPECT_EQ(read_event(row.text, "2.0"), row.expected) << row.text;
}

TEST(EventDuration, CountsNextToNoEndAndInVersion20Alone) {
    const std::string start_line = "DTSTART:20090102T100000\r\n";
    const std::string start = "type 1\nstart 2009-01-02 10:00:00\n";
    const TextCase cases[] = {
        {start_line + "DTEND:20090102T103000\r\nDURATION:PT1H", start + "end 2009-01-02 10:30:00\n"},
        {start_line + "DURATION:PT1H\r\nDTEND:20090102T103000", start + "end 2009-01-02 10:30:00\n"},
        {start_line + "DTEND:\r\nDURATION:PT1H", start},
        {start_line + "DURATION:PT1H\r\nDURATION:PT2H", start + "end 2009-01-02 11:00:00\n"},
        {start_line + "DURATION:long\r\nDURATION:PT2H", start},
        {start_line + "DURATION:-PT1H", start},
        {start_line + "DURATION:", start},
        {start_line + "DURATION:20090102T103000", start},
        {start_line + "X-DURATION:PT1H\r\nitem1.DURATION:PT1H", start},
        {start_line + "DURATION:P3652425D", start},
        {"DTSTART:99991231T230000\r\nDURATION:PT1H", "type 1\nstart 9999-12-31 23:00:00\n"},
        {"DTSTART:20091302T100000\r\nDURATION:PT1H", "type 1\n"},
        {"DURATION:PT1H", "type 1\n"},
        {start_line + "BEGIN:VALARM\r\nTRIGGER:PT0S\r\nDURATION:PT5M\r\nREPEAT:2\r\nEND:VALARM",
         start + "alarm 3 2009-01-02 10:00:00\n"},
    };
    for (const TextCase& row : cases) EXPECT_EQ(read_event(row.text, "2.0"), row.expected) << row.text;
    EXPECT_EQ(read_event(start_line + "DURATION:PT1H", "1.0"), start);
    EXPECT_EQ(read_todo(start_line + "DURATION:PT1H", "2.0"), "type 7\nstart 2009-01-02 10:00:00\n304 =1\n");
}

TEST(EventDuration, GivesTheEndThatAlarmsAndBirthdaysGoBy) {
    EXPECT_EQ(read_event("DTSTART:20090102T100000\r\nDURATION:PT1H\r\nBEGIN:VALARM\r\n"
                         "TRIGGER;RELATED=END:-PT10M\r\nEND:VALARM",
                         "2.0"),
              "type 1\nstart 2009-01-02 10:00:00\nend 2009-01-02 11:00:00\nalarm 3 2009-01-02 10:50:00\n");
    EXPECT_EQ(read_event("CATEGORIES:BIRTHDAY\r\nDTSTART;VALUE=DATE:20090102\r\nDURATION:P1D", "2.0"),
              "type 3\nstart 2009-01-02 00:00:00\nend 2009-01-03 00:00:00\n");
    EXPECT_EQ(read_event("CATEGORIES:BIRTHDAY\r\nDTSTART;VALUE=DATE:20090102\r\nDURATION:PT1H", "2.0"),
              "type 3\nstart 2009-01-02 00:00:00\nend 2009-01-02 00:00:00\n");
}

// The end is that which a DTEND would give.
TEST(EventDurationInMachineZone, EndsADayThatIsGivenInUtcOnItsLocalDay) {
    in_machine_zone("Asia/Kolkata", [] {
        const std::string start = "CATEGORIES:MEMO\r\nDTSTART:20090101T183000Z\r\n";
        const std::string both = "type 4\nstart 2009-01-02 00:00:00\nend 2009-01-03 00:00:00\n";
        EXPECT_EQ(read_event(start + "DURATION:P1D", "2.0"), both);
        EXPECT_EQ(read_event(start + "DTEND:20090102T183000Z", "2.0"), both);
    });
}

}  // namespace
}  // namespace vzapi::test
