// Reading into records of every version, out of memory, and out of texts of every brokenness.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/failing_allocations.h"
#include "support/pointer_to.h"
#include "vcalendar/owned_calendar.h"

namespace vzapi::test {
namespace {

// Every part of a record, every kind of value.
const std::string kRichEvent = calendar_with(
    "VEVENT",
    "DTSTART:20090105T100000\r\nDTEND:20090105T110000\r\nAALARM:20090105T094500;;0;\r\n"
    "RRULE:W1 MO WE 20090401T000000\r\nEXDATE:20090107T100000;20090112T100000Z\r\nCLASS:PRIVATE\r\n"
    "GEO:48.85;2.35\r\nSUMMARY;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:caf=C3=A9=0D=0A=\r\nat ten\r\n"
    "LOCATION;CHARSET=ISO-8859-1:caf\xE9\r\nDESCRIPTION:a long description that stands in the text\r\n"
    "X-VZAPI-CAL-REFERENCE:1;2;3\r\nPRIORITY:2",
    "1.0", "TZ:+01:00\r\nDAYLIGHT:TRUE;+02;20090329T020000;20091025T030000;CET;CEST\r\n");

const std::string kDates =
    "type 1\nstart 2009-01-05 10:00:00\nend 2009-01-05 11:00:00\nalarm 3 2009-01-05 09:45:00\n";
const std::string kRepeat = "repeat 2/1/10/0\n";
const std::string kWideRepeat = "wide 2/1/10/0\n";
const std::string kUntil = "until 2009-04-01 00:00:00\n";
const std::string kExceptions = "except 2009-01-07 10:00:00\nexcept 2009-01-12 10:00:00Z\n";
const std::string kFields =
    "204 =1\n205 48.85|2.35\n300 caf\xC3\xA9\r\nat ten\n301 caf\xC3\xA9\n"
    "302 a long description that stands in the text\n306 =1=2=3\n303 =2\n";
const std::string kZone = "zone 60 120 CET CEST\nrule 1 2009-03-29 02:00:00 2009-10-25 03:00:00\n";

std::string in_version_2(std::string text) {
    return text.replace(text.find("VERSION:1.0"), 11, "VERSION:2.0");
}

TEST(CalendarReaderMemory, EachVersionOfTheRecordHasItsBlocks) {
    for (std::uint32_t api_version = 12; api_version <= 16; ++api_version) {
        for (const std::string& text : {kRichEvent, in_version_2(kRichEvent)}) {
            SCOPED_TRACE(std::to_string(api_version) + "\n" + text);
            const auto read = [&](std::uint32_t size) { return read_text(text, size, api_version); };
            EXPECT_EQ(read(112), kDates + kRepeat + kUntil + kFields);
            EXPECT_EQ(read(128), kDates + kRepeat + kUntil + kExceptions + kFields);
            EXPECT_EQ(read(152), kDates + kRepeat + kWideRepeat + kUntil + kExceptions + kFields);
            EXPECT_EQ(read(192), kDates + kRepeat + kWideRepeat + kUntil + kExceptions + kFields +
                                     (api_version >= 16 ? kZone : ""));
        }
    }
}

const std::string kRichTodo = todo(
    "DUE:20090105T100000\r\nDTEND:20090105T110000\r\nDALARM:20090105T094500;;0;\r\nRRULE:W1 MO WE #0\r\n"
    "EXDATE:20090107T100000;20090112T100000Z\r\nSTATUS:COMPLETED\r\nSUMMARY:a");

TEST(CalendarReaderMemory, EachVersionOfTheRecordHasTheBlocksOfAToDo) {
    const std::string dates =
        "type 7\nstart 2009-01-05 10:00:00\nend 2009-01-05 11:00:00\nalarm 2 2009-01-05 09:45:00\n";
    const std::string fields = "304 =2\n300 a\n";
    for (std::uint32_t api_version = 12; api_version <= 16; ++api_version) {
        const std::string repeat = api_version >= 15 ? kRepeat : "";
        const std::string wide_repeat = api_version >= 15 ? kRepeat + kWideRepeat : "";
        for (const bool is_version_2 : {false, true}) {
            SCOPED_TRACE(std::to_string(api_version) + (is_version_2 ? " 2.0" : " 1.0"));
            const std::string exceptions = is_version_2 ? "" : kExceptions;
            const std::string text = is_version_2 ? in_version_2(kRichTodo) : kRichTodo;
            const auto read = [&](std::uint32_t size) { return read_text(text, size, api_version); };
            EXPECT_EQ(read(112), dates + repeat + fields);
            EXPECT_EQ(read(128), dates + repeat + exceptions + fields);
            EXPECT_EQ(read(152), dates + wide_repeat + exceptions + fields);
            EXPECT_EQ(read(192), dates + wide_repeat + exceptions + fields);
        }
    }
}

TEST(CalendarReaderMemory, ARecordOfAnUnknownSizeHasTheMembersUpToFields) {
    for (const std::uint32_t size : {0U, 4U, 111U, 113U, 160U, 193U, 0xFFFFFFFFU}) {
        OwnedCalendar calendar(size);
        ASSERT_EQ(calendar.length(), 112U);
        ASSERT_EQ(calendar.read(kRichEvent), VZ_OK);
        EXPECT_EQ(calendar.item().size, size) << "as it was";
        EXPECT_EQ(show(calendar.item()), kDates + kRepeat + kUntil + kFields);
    }
}

TEST(CalendarReaderMemory, ARecordOfAnUnknownSizeKeepsWhatTheTextDoesNotTell) {
    OwnedCalendar calendar(100);
    CalendarItem before = calendar.item();
    before.start.year = 1999;
    before.repeatKind = 4;
    before.fieldCount = 7;
    before.fields = pointer_to<CalendarField>(8);
    std::memcpy(calendar.memory(), &before, calendar.length());
    ASSERT_EQ(calendar.read(event("DTEND:20090105T110000")), VZ_OK);
    const CalendarItem item = calendar.item();
    EXPECT_EQ(item.start.year, 1999);
    EXPECT_EQ(item.end.year, 2009);
    EXPECT_EQ(item.repeatKind, 4);
    EXPECT_EQ(item.fieldCount, 0);
    EXPECT_EQ(item.fields, nullptr);
}

TEST(CalendarReaderMemory, ARecordAtAnOddAddress) {
    std::byte memory[sizeof(CalendarItem) + 1] = {};
    const std::uint32_t size = sizeof(CalendarItem);
    std::memcpy(memory + 1, &size, sizeof size);
    const versit::VersitObject object = versit::parse(kRichEvent);
    vcalendar::read_calendar(object, memory + 1, {VZ_INTERFACE_VERSION});
    CalendarItem item;
    std::memcpy(&item, memory + 1, sizeof item);
    EXPECT_EQ(show(item), kDates + kRepeat + kWideRepeat + kUntil + kExceptions + kFields + kZone);
    vcalendar::release_calendar(memory + 1, {VZ_INTERFACE_VERSION});
}

TEST(CalendarReaderMemory, AFailedAllocationLeaksNothingAndFillsNothing) {
    const std::string todo_text =
        todo("SUMMARY:a\r\nX-CLASS:PUBLIC\r\nEXDATE:20090105T100000\r\nRRULE:D1 #0");
    const std::string modern = event(
        "DTSTART:20090105T100000\r\nSUMMARY:a\\, long enough for a block of its "
        "own\r\nRRULE:FREQ=DAILY;COUNT=3\r\n"
        "BEGIN:VALARM\r\nTRIGGER:-PT15M\r\nEND:VALARM",
        "2.0");
    for (const std::string& text : {kRichEvent, todo_text, modern}) {
        const versit::VersitObject object = versit::parse(text);
        for (const std::uint32_t size : kCalendarSizes) {
            std::size_t failures = 0;
            for (std::size_t nth = 1;; ++nth) {
                OwnedCalendar calendar(size);
                FailingAllocations failing(nth);
                const ResultCode code = calendar.read(object);
                failing.stop();
                if (!failing.failed()) {
                    EXPECT_EQ(code, VZ_OK);
                    break;
                }
                EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY) << "allocation " << nth;
                std::byte untouched[sizeof(CalendarItem)] = {};
                std::memcpy(untouched, &size, sizeof size);
                EXPECT_EQ(std::memcmp(calendar.memory(), untouched, calendar.length()), 0) << nth;
                ++failures;
                ASSERT_LT(failures, 1000U);
            }
            EXPECT_GE(failures, 2U) << "a text and the array, at the least";
        }
    }
}

// ---- Counts are bytes.

std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    result.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i) result += text;
    return result;
}

struct CountCase {
    std::size_t count;
    int kept;
};
constexpr CountCase kCounts[] = {{0, 0}, {1, 1}, {254, 254}, {255, 255}, {256, 255}, {257, 255}, {600, 255}};

TEST(CalendarReaderMemory, KeepsAtMost255Entries) {
    for (const CountCase& row : kCounts) {
        OwnedCalendar calendar;
        ASSERT_EQ(calendar.read(event("LOCATION:\r\n" + repeated("SUMMARY:a\r\n", row.count) + "UID:1")),
                  VZ_OK);
        EXPECT_EQ(calendar.item().fieldCount, row.kept) << row.count;
    }
}

// The last field, as "304 =1", and the number of them.
std::string last_of(const std::string& text) {
    OwnedCalendar calendar;
    EXPECT_EQ(calendar.read(text), VZ_OK);
    const CalendarItem item = calendar.item();
    if (item.fieldCount == 0) return "none";
    const CalendarField& last = item.fields[item.fieldCount - 1];
    return std::to_string(item.fieldCount) + ": " + show_field(last, item.itemType);
}

TEST(CalendarReaderMemory, AToDoKeepsAPlaceForItsStatus) {
    const std::string class_line = "X-CLASS:PRIVATE\r\n";
    const std::string status = "STATUS:COMPLETED\r\n";
    for (const std::size_t count : {254U, 255U, 256U, 1000U}) {
        const std::string summaries = repeated("SUMMARY:a\r\n", count);
        EXPECT_EQ(last_of(todo(summaries + "UID:1")), "255: 304 =1") << count;
        EXPECT_EQ(last_of(todo(summaries + status + "UID:1")), "255: 304 =2") << count;
        EXPECT_EQ(last_of(todo(class_line + summaries + "UID:1")), "255: 304 =1") << count;
        EXPECT_EQ(last_of(todo(status + summaries + "UID:1")), "255: 300 a") << count;
    }
    const std::string summaries = repeated("SUMMARY:a\r\n", 253);
    EXPECT_EQ(last_of(todo(summaries + class_line + "UID:1")), "255: 304 =1");
    EXPECT_EQ(last_of(todo(status + summaries + class_line + "UID:1")), "255: 204 =1");
    EXPECT_EQ(last_of(todo(repeated(status, 300) + "UID:1")), "255: 304 =2");
}

TEST(CalendarReaderMemory, KeepsAtMost255ExcludedDates) {
    for (const CountCase& row : kCounts) {
        const std::string in_one_line = "EXDATE:" + repeated("20090105T100000;", row.count);
        const std::string in_many = "UID:1\r\n" + repeated("EXDATE:20090105T100000\r\n", row.count) + "UID:1";
        for (const std::string& body : {in_one_line, in_many}) {
            OwnedCalendar calendar;
            ASSERT_EQ(calendar.read(event(body)), VZ_OK);
            EXPECT_EQ(calendar.item().exceptionCount, row.kept) << row.count;
        }
    }
}

TEST(CalendarReaderMemory, KeepsAtMost255DaylightRules) {
    for (const CountCase& row : kCounts) {
        const std::string rules =
            repeated("DAYLIGHT:TRUE;+02;20090329T020000;20091025T030000;a;b\r\n", row.count);
        OwnedCalendar calendar;
        ASSERT_EQ(calendar.read(calendar_with("VEVENT", "SUMMARY:a", "1.0", rules)), VZ_OK);
        EXPECT_EQ(calendar.item().daylightCount, row.kept) << row.count;
    }
}

// ---- Broken and hostile texts.

TEST(CalendarReaderMemory, EveryPrefixIsReadOrRefused) {
    std::size_t read = 0;
    for (std::size_t length = 0; length <= kRichEvent.size(); ++length) {
        OwnedCalendar calendar;
        const ResultCode code = calendar.read(kRichEvent.substr(0, length));
        EXPECT_TRUE(code == VZ_OK || code == VZ_ERR_INVALID_TEXT) << length;
        if (code == VZ_OK) static_cast<void>(show(calendar.item()));
        read += code == VZ_OK ? 1 : 0;
    }
    // All that hold the version, but for the one that cuts its line end in two: "1.0\r" is no version.
    EXPECT_EQ(read, kRichEvent.size() - std::string("BEGIN:VCALENDAR\r\nVERSION:1.0").size());
}

TEST(CalendarReaderMemory, EveryByteInPlaceOfEveryOtherIsReadOrRefused) {
    for (std::size_t at = 0; at < kRichEvent.size(); ++at) {
        for (const char byte : {'\0', '\r', '\n', ';', ':', '=', '\\', '"', ',', '#', '9', 'Z', '\xFF'}) {
            std::string text = kRichEvent;
            text[at] = byte;
            OwnedCalendar calendar;
            const ResultCode code = calendar.read(text);
            EXPECT_TRUE(code == VZ_OK || code == VZ_ERR_INVALID_TEXT) << at;
            if (code == VZ_OK) static_cast<void>(show(calendar.item()));
        }
    }
}

// Each takes time in proportion to its length, so that the whole is over at once.
TEST(CalendarReaderMemory, LongTextsOfOneKindAreRead) {
    constexpr std::size_t kMany = 100'000;
    const std::string bodies[] = {
        "EXDATE:" + repeated("20090105T100000;", kMany),
        "EXDATE:" + repeated("20090105,", kMany),
        "EXDATE:" + repeated(";", kMany),
        "EXDATE:" + repeated("x;", kMany),
        "EXDATE;QUOTED-PRINTABLE:" + repeated("=3B", kMany),
        "AALARM:" + repeated(";", kMany),
        "DALARM:" + repeated("2", kMany),
        "DTSTART:" + repeated("2", kMany),
        "RRULE:W1" + repeated(" MO", kMany),
        "RRULE:FREQ=WEEKLY;BYDAY=MO" + repeated(",MO", kMany),
        "RRULE:D1 #" + repeated("9", kMany),
        "GEO:" + repeated(",", kMany),
        "GEO:" + repeated("\\;", kMany),
        "SUMMARY:" + repeated("\\n", kMany),
        "SUMMARY" + repeated(";CHARSET=UTF-8", kMany) + ":a",
        "CATEGORIES:" + repeated("CALL;", kMany),
        "X-VZAPI-CAL-REFERENCE:" + repeated("1;", kMany),
        "DESCRIPTION:" + repeated("1", kMany),
        "PRIORITY:" + repeated("1", kMany),
        repeated("SUMMARY:a\r\n", kMany) + "UID:1",
        repeated("GEO:1;2\r\n", kMany) + "UID:1",
        repeated("X-CLASS:PRIVATE\r\n", kMany) + "UID:1",
        repeated("STATUS:odd\r\n", kMany) + "UID:1",
        repeated("AALARM:\r\n", kMany) + "UID:1",
        repeated("DTSTART:\r\n", kMany) + "UID:1",
        repeated("EXDATE:x\r\n", kMany) + "UID:1",
        repeated("RRULE:D1 #0\r\n", kMany) + "UID:1",
        repeated("CATEGORIES:CALL\r\n", kMany) + "UID:1",
        repeated("X-OWN:a\r\n", kMany) + "UID:1",
        repeated("TZ:+01\r\nDAYLIGHT:FALSE\r\n", kMany) + "UID:1",
        repeated("BEGIN:VALARM\r\n", kMany) + "UID:1",
        repeated("BEGIN:VALARM\r\nTRIGGER:x\r\nEND:VALARM\r\n", kMany) + "UID:1",
        repeated("END:VALARM\r\n", kMany) + "UID:1",
        repeated("BEGIN:VEVENT\r\n", kMany) + "UID:1",
        repeated("BEGIN:VTODO\r\nSUMMARY:a\r\nEND:VTODO\r\n", kMany) + "UID:1",
    };
    for (const char* version : {"1.0", "2.0"}) {
        for (const std::string& body : bodies) {
            for (const std::string& text : {event(body, version), todo(body, version)}) {
                OwnedCalendar calendar;
                EXPECT_EQ(calendar.read(text), VZ_OK) << body.substr(0, 40);
            }
        }
        OwnedCalendar calendar;
        const std::string zones =
            repeated("DAYLIGHT:TRUE;+02;20090329T020000;20091025T030000;a;b\r\n", kMany);
        EXPECT_EQ(calendar.read(calendar_with("VEVENT", "SUMMARY:a", version, zones)), VZ_OK);
    }
}

}  // namespace
}  // namespace vzapi::test
