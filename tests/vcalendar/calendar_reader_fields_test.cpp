// The texts and numbers of an event.
#include <gtest/gtest.h>

#include <string>

#include "support/environment.h"
#include "vcalendar/owned_calendar.h"

namespace vzapi::test {
namespace {

struct TextCase {
    std::string text;
    std::string expected;
};

const TextCase kLines[] = {
    // Texts.
    {"SUMMARY:a", "300 a\n"},
    {"LOCATION:a", "301 a\n"},
    {"DESCRIPTION:a", "302 a\n"},
    {"DESCRIPTION:1970", "302 1970\n"},
    {"summary:a\r\nLocation:b", "300 a\n301 b\n"},
    {"LOCATION:b\r\nSUMMARY:a\r\nDESCRIPTION:c", "301 b\n300 a\n302 c\n"},
    {"SUMMARY:a\r\nSUMMARY:b", "300 a\n300 b\n"},
    {"SUMMARY:", ""},
    {"SUMMARY:  a b  ", "300   a b  \n"},
    {"SUMMARY;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:caf=C3=A9=0D=0Ab", "300 caf\xC3\xA9\r\nb\n"},
    {"SUMMARY;QUOTED-PRINTABLE;CHARSET=ISO-8859-1:caf=E9", "300 caf\xC3\xA9\n"},
    {"SUMMARY;CHARSET=ISO-8859-1:caf\xE9", "300 caf\xC3\xA9\n"},
    {"SUMMARY;CHARSET=UTF-8:\xF0\x9F\x98\x80", "300 \xF0\x9F\x98\x80\n"},
    {"SUMMARY;CHARSET=SHIFT_JIS:\x95\x5C", "300 \xE8\xA1\xA8\n"},
    {"SUMMARY;ENCODING=BASE64:SGVsbG8=", "300 Hello\n"},
    {"SUMMARY;ENCODING=QUOTED-PRINTABLE:a=00b", "300 a\n"},
    {"SUMMARY;ENCODING=QUOTED-PRINTABLE:=00b", ""},
    {"SUMMARY:a\nb", "300 a\nb\n"},
    {"SUMMARY;LANGUAGE=en:a:b;c", "300 a:b;c\n"},
    // Class.
    {"CLASS:PRIVATE", "204 =1\n"},
    {"CLASS:PUBLIC", "204 =2\n"},
    {"CLASS:NONE", "204 =3\n"},
    {"CLASS: private ", "204 =1\n"},
    {"CLASS;ENCODING=QUOTED-PRINTABLE:=50RIVATE", "204 =1\n"},
    {"CLASS:CONFIDENTIAL", ""},
    {"CLASS:1", ""},
    {"CLASS:", ""},
    {"X-CLASS:PRIVATE", ""},
    // Numbers.
    {"PRIORITY:5", "303 =5\n"},
    {"PRIORITY:4294967295", "303 =4294967295\n"},
    {"PRIORITY:4294967296", ""},
    {"PRIORITY:99999999999999999999999999", ""},
    {"PRIORITY:+5", ""},
    {"PRIORITY:5 a", ""},
    {"PRIORITY:", ""},
    {"STATUS:COMPLETED", "304 =2\n"},
    {"STATUS:NEEDS ACTION", "304 =1\n"},
    {"STATUS:5", "304 =5\n"},
    {"STATUS:CONFIRMED", ""},
    // Places.
    {"GEO:1.5;2.5", "205 1.5|2.5\n"},
    {"GEO:37.24,-17.87", "205 37.24|-17.87\n"},
    {"GEO:37,24;-17,87", "205 37,24|-17,87\n"},
    {"GEO:;", "205 |\n"},
    {"GEO:1;", "205 1|\n"},
    {"GEO;ENCODING=QUOTED-PRINTABLE:1=3B2", "205 1|2\n"},
    {"GEO:1.5", ""},
    {"GEO:", ""},
    // References.
    {"X-VZAPI-CAL-REFERENCE:1;2;3", "306 =1=2=3\n"},
    {"x-vzapi-cal-reference:1;2;3", "306 =1=2=3\n"},
    {"X-VZAPI-CAL-REFERENCE;X=Y:0; 4294967295 ;0007", "306 =0=4294967295=7\n"},
    {"X-VZAPI-CAL-REFERENCE;ENCODING=QUOTED-PRINTABLE:1=3B2;3", "306 =1=2=3\n"},
    {"X-VZAPI-CAL-REFERENCE:1;2", ""},
    {"X-VZAPI-CAL-REFERENCE:1;2;", ""},
    {"X-VZAPI-CAL-REFERENCE:1;2;3;4", ""},
    {"X-VZAPI-CAL-REFERENCE:1;2;4294967296", ""},
    {"X-VZAPI-CAL-REFERENCE:1;b;3", ""},
    {"X-VZAPI-CAL-REFERENCE:", ""},
    {"X-VZAPI-CAL-REFERENCES:1;2;3", ""},
    // What is none of the fields.
    {"X-BIRTHYEAR:1970", ""},
    {"NOTE:a\r\nTITLE:b\r\nRESOURCES:c\r\nTRANSP:0\r\nURL:d\r\nX-OWN:e", ""},
};

TEST(EventFields, EachLineGivesItsEntry) {
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : kLines) {
            EXPECT_EQ(read_event(row.text, version), "type 1\n" + row.expected) << row.text << " " << version;
        }
    }
}

TEST(EventFields, Version10HasNoEscapes) {
    EXPECT_EQ(read_event("SUMMARY:a\\nb\\,c\\;d\\\\e\\"), "type 1\n300 a\\nb\\,c\\;d\\\\e\\\n");
    EXPECT_EQ(read_event("GEO:1\\;2;3;4"), "type 1\n205 1\\|2;3;4\n");
}

TEST(EventFields, Version20TakesEscapesBack) {
    const TextCase cases[] = {
        {"SUMMARY:a\\nb\\Nc\\,d\\;e\\\\f", "300 a\nb\nc,d;e\\f\n"},
        {"SUMMARY:a\\\\nb", "300 a\\nb\n"},
        {"SUMMARY:a\\xb\\", "300 a\\xb\\\n"},
        {"LOCATION:C:\\\\new\\, old", "301 C:\\new, old\n"},
        {"DESCRIPTION:a\\, b", "302 a, b\n"},
        {"SUMMARY;ENCODING=QUOTED-PRINTABLE:a=5C,b=0D=0Ac", "300 a,b\r\nc\n"},
        {"SUMMARY;CHARSET=SHIFT_JIS:\x95\x5C,", "300 \xE8\xA1\xA8,\n"},
        {"SUMMARY:caf\xC3\xA9", "300 caf\xC3\xA9\n"},  // UTF-8 also where the system's charset is another
        {"CLASS:PRI\\VATE", ""},
        {"GEO:1;2;3", "205 1|2\n"},
        {"GEO:1\\;5;2", "205 1;5|2\n"},
        {"GEO:1\\;2", "205 1|2\n"},
        {"GEO:1\\,2", "205 1|2\n"},
        {"GEO:1\\,5;2\\,5", "205 1,5|2,5\n"},
        {"X-VZAPI-CAL-REFERENCE:1\\;2\\;3", "306 =1=2=3\n"},
    };
    for (const TextCase& row : cases) {
        EXPECT_EQ(read_event(row.text, "2.0"), "type 1\n" + row.expected) << row.text;
    }
}

#ifndef _WIN32
TEST(EventFields, TextWithoutCharsetIsUtf8InVersion20) {
    const EnvironmentVariable locale("LC_ALL", "xx_XX.ISO-8859-1");
    EXPECT_EQ(read_event("SUMMARY:caf\xE9", "1.0"), "type 1\n300 caf\xC3\xA9\n");
    EXPECT_EQ(read_event("SUMMARY:caf\xC3\xA9", "2.0"), "type 1\n300 caf\xC3\xA9\n");
    EXPECT_EQ(read_event("SUMMARY;CHARSET=ISO-8859-1:caf\xE9", "2.0"), "type 1\n300 caf\xC3\xA9\n");
    EXPECT_EQ(read_todo("SUMMARY:caf\xC3\xA9", "2.0"), "type 7\n300 caf\xC3\xA9\n304 =1\n");
}
#endif

// ---- The year of birth.

struct YearCase {
    std::uint32_t api_version;
    std::string type_line;
    std::string text;
    std::string expected;
};

TEST(EventFields, ADescriptionMayBeTheYearOfBirth) {
    const std::string birthday = "CATEGORIES:BIRTHDAY\r\n";
    const std::string anniversary = "X-VZAPI-ITEM-TYPE:\r\nCATEGORIES:BIRTHDAY\r\n";
    const YearCase cases[] = {
        {12, birthday, "DESCRIPTION:1970", "type 3\n305 1970\n"},
        {13, birthday, "DESCRIPTION:1970", "type 3\n302 =1970\n"},
        {14, birthday, "DESCRIPTION:1970", "type 3\n302 =1970\n"},
        {16, birthday, "DESCRIPTION:1970", "type 3\n302 =1970\n"},
        {12, anniversary, "DESCRIPTION:1970", "type 3\n305 1970\n"},
        {13, anniversary, "DESCRIPTION:1970", "type 3\n302 =1970\n"},
        {14, anniversary, "DESCRIPTION:1970", "type 8\n302 =1970\n"},
        {16, anniversary, "DESCRIPTION:1970", "type 8\n302 =1970\n"},
        {16, birthday, "DESCRIPTION: 1970 ", "type 3\n302 =1970\n"},
        {16, birthday, "DESCRIPTION;ENCODING=QUOTED-PRINTABLE:=31970", "type 3\n302 =1970\n"},
        {16, birthday, "DESCRIPTION:born 1970", "type 3\n305 born 1970\n"},
        {16, birthday, "DESCRIPTION:-1970", "type 3\n305 -1970\n"},
        {16, birthday, "DESCRIPTION:19700101000000", "type 3\n305 19700101000000\n"},
        {16, birthday, "DESCRIPTION:", "type 3\n"},
        {16, anniversary, "DESCRIPTION:some text", "type 8\n305 some text\n"},
        {12, birthday, "DESCRIPTION:some text", "type 3\n305 some text\n"},
        {12, birthday, "X-BIRTHYEAR:1970", "type 3\n302 =1970\n"},
        {16, birthday, "X-BIRTHYEAR: 1970", "type 3\n302 =1970\n"},
        {16, birthday, "X-BIRTHYEAR:0", "type 3\n302 =0\n"},
        {16, birthday, "X-BIRTHYEAR:MCMLXX", "type 3\n"},
        {14, anniversary, "x-birthyear:1970", "type 8\n302 =1970\n"},
        {16, birthday, "X-BIRTHYEAR:1970\r\nDESCRIPTION:a", "type 3\n302 =1970\n305 a\n"},
        {16, "CATEGORIES:MEMO\r\n", "DESCRIPTION:1970\r\nX-BIRTHYEAR:1970", "type 4\n302 1970\n"},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const YearCase& row : cases) {
            EXPECT_EQ(read_event(row.type_line + row.text, version, row.api_version), row.expected)
                << row.api_version << " " << row.type_line << row.text;
        }
    }
}

// ---- Recurrence, excluded dates, time zone.

TEST(EventReader, TheFormOfARecurrenceIsToldByItsText) {
    const std::string body = "DTSTART:20090105T100000\r\nRRULE:";
    const std::string start = "type 1\nstart 2009-01-05 10:00:00\n";
    const TextCase cases[] = {
        {"D3 #0", "repeat 1/3/0/0\nwide 1/3/0/0\n"},
        {"FREQ=DAILY;INTERVAL=3", "repeat 1/3/0/0\nwide 1/3/0/0\n"},
        {"W1 MO WE #0", "repeat 2/1/10/0\nwide 2/1/10/0\n"},
        {"FREQ=MONTHLY;INTERVAL=2;BYDAY=-1FR", "repeat 3/2/32/5\nwide 3/2/32/5\n"},
        {"D1 20090110T100000", "repeat 1/1/0/0\nwide 1/1/0/0\nuntil 2009-01-10 10:00:00\n"},
        {"FREQ=DAILY;INTERVAL=1000", "repeat 1/255/0/0\nwide 1/1000/0/0\n"},
        {"YD1 100 #0", ""},
        {"", ""},
        {"every day", ""},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            EXPECT_EQ(read_event(body + row.text, version), start + row.expected)
                << row.text << " " << version;
        }
        EXPECT_EQ(read_event("DTSTART:20090105T100000\r\nRRULE;ENCODING=QUOTED-PRINTABLE:D3=20#0", version),
                  start + cases[0].expected);
        EXPECT_EQ(read_event(body + "D3 #0\r\nRRULE:W1 #0", version), start + cases[0].expected);
        EXPECT_EQ(read_event(body + "YD1 100 #0\r\nRRULE:D3 #0", version), start);
    }
}

TEST(EventReader, AnEventRecursInEveryInterfaceVersion) {
    for (const std::uint32_t api_version : {0U, 12U, 14U, 15U, 16U}) {
        EXPECT_EQ(read_text(event("RRULE:FREQ=DAILY", "2.0"), VZ_CALENDAR_SIZE_BASE, api_version),
                  "type 1\nrepeat 1/1/0/0\n");
    }
}

TEST(EventReader, ExcludedDates) {
    const std::string one = "except 2009-01-05 10:00:00\n";
    const std::string two = "except 2009-01-06 10:00:00Z\n";
    const TextCase cases[] = {
        {"EXDATE:20090105T100000", one},
        {"EXDATE:20090105T100000;20090106T100000Z", one + two},
        {"EXDATE:20090105T100000,20090106T100000Z", one + two},
        {"EXDATE:20090105T100000; 20090106T100000Z ;", one + two},
        {"EXDATE:20090105T100000\r\nSUMMARY:a\r\nEXDATE:20090106T100000Z", one + two + "300 a\n"},
        {"EXDATE;VALUE=DATE:20090105,20090106", "except 2009-01-05 00:00:00\nexcept 2009-01-06 00:00:00\n"},
        {"EXDATE;TZID=Europe/Paris:20090105T100000", one},
        {"EXDATE:;,;20090105T100000;tomorrow;20091301", one},
        {"EXDATE;ENCODING=QUOTED-PRINTABLE:20090105T100000=3B20090106T100000Z", one + two},
        {"EXDATE:20090106T100000Z;20090105T100000;20090105T100000", two + one + one},
        {"EXDATE:", ""},
        {"EXRULE:D1 #0\r\nRDATE:20090105T100000", ""},
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const TextCase& row : cases) {
            EXPECT_EQ(read_event(row.text, version), "type 1\n" + row.expected) << row.text << " " << version;
        }
    }
}

TEST(EventReader, TheTimeZoneIsReadForAppointments) {
    const std::string zone_lines =
        "TZ:+01:00\r\nDAYLIGHT:TRUE;+02;20090329T020000;20091025T030000;CET;CEST\r\n";
    const std::string zone = "zone 60 120 CET CEST\nrule 1 2009-03-29 02:00:00 2009-10-25 03:00:00\n";
    const auto read = [&](const std::string& body, std::uint32_t api_version) {
        return read_text(calendar_with("VEVENT", body, "1.0", zone_lines), VZ_CALENDAR_SIZE_TIME_ZONE,
                         api_version);
    };
    EXPECT_EQ(read("SUMMARY:a", 16), "type 1\n300 a\n" + zone);
    EXPECT_EQ(read("CATEGORIES:MEETING", 17), "type 1\n" + zone);
    EXPECT_EQ(read("SUMMARY:a", 15), "type 1\n300 a\n");
    EXPECT_EQ(read("CATEGORIES:CALL", 16), "type 2\n");
    EXPECT_EQ(read("CATEGORIES:MEMO", 16), "type 4\n");
    EXPECT_EQ(read("DTSTART:20090101", 16), "type 4\nstart 2009-01-01 00:00:00\n" + zone)
        << "an appointment until its start has been read";
    EXPECT_EQ(read_event("TZ:+01:00"), "type 1\n") << "a line of the calendar, not of the event";
    EXPECT_EQ(read_text(calendar_with("VTODO", "SUMMARY:a", "1.0", zone_lines)), "type 7\n300 a\n304 =1\n");
    EXPECT_EQ(read_text(calendar_with("VEVENT", "SUMMARY:a", "2.0", zone_lines)), "type 1\n300 a\n" + zone);
    EXPECT_EQ(read_text(calendar_with("VEVENT", "SUMMARY:a", "1.0",
                                      "BEGIN:VTIMEZONE\r\nTZ:+01:00\r\nEND:VTIMEZONE\r\nTZ:east\r\n")),
              "type 1\n300 a\n");
}

}  // namespace
}  // namespace vzapi::test
