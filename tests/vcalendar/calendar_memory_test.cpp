// Writing a calendar entry out of memory that cannot be trusted: records that end where their size says,
// pointers that cannot be read, addresses that are odd, and allocations that fail.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "result.h"
#include "support/failing_allocations.h"
#include "support/guard_page.h"
#include "support/pointer_to.h"
#include "vcalendar/written_calendar.h"

namespace vzapi::test::calendar {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kPagesOfTheLongestArray = 255 * sizeof(DaylightRule) / kPage + 1;

// Everything that a record can hold.
Calendar full(std::uint32_t size) {
    Calendar event;
    event.size = size;
    event.type = VZ_ITEM_CALL;
    event.start = local(2009, 3, 16, 9);
    event.end = utc(2009, 3, 16, 10);
    event.alarm_kind = VZ_ALARM_DISPLAY;
    event.alarm = local(2009, 3, 16, 8);
    event.repeat = {VZ_REPEAT_WEEKLY, 2, VZ_DAY_TUESDAY, VZ_POSITION_NONE};
    event.wide_repeat = event.repeat;
    event.fields = {text(VZ_CALENDAR_SUMMARY, u"Caf\u00E9"), text(VZ_CALENDAR_LOCATION, u"Pier 7"),
                    geo(u"47.5", u"19.05"), reference(1, 2, 3), number(VZ_CALENDAR_CLASS, 1)};
    event.exceptions = {local(2009, 3, 17, 9), utc(2009, 3, 31, 9)};
    event.zone = Zone{60,
                      120,
                      {{VZ_DAYLIGHT_TRUE, local(2009, 3, 29, 2), local(2009, 10, 25, 3)}},
                      std::string("CET"),
                      std::string("CEST")};
    return event;
}

// ---- The record.

TEST(CalendarMemory, NothingBehindTheSizeIsRead) {
    const GuardPage page;
    for (const std::uint32_t size : {0U, 1U, 111U, 112U, 113U, 128U, 151U, 152U, 192U, 193U, UINT32_MAX}) {
        const bool is_known = size == 128 || size == 152 || size == 192;
        const std::size_t length = is_known ? size : std::size_t{112};
        for (const std::uint32_t api_version : {12U, 16U}) {
            CalendarRecord record(full(size));
            std::memcpy(page.last(length), &record.whole, length);
            const std::string text = written(page.last(length), at_interface(api_version));
            EXPECT_EQ(text, written(record, at_interface(api_version))) << size;
            EXPECT_TRUE(holds_line(text, "LOCATION:Pier 7")) << size;
            EXPECT_EQ(holds_name(text, "EXDATE"), is_known) << size;
        }
    }
}

void expect_refused(const void* record) {
    try {
        static_cast<void>(written(record));
        ADD_FAILURE();
    } catch (ResultCode code) {
        EXPECT_EQ(code, VZ_ERR_POINTER);
    }
}

TEST(CalendarMemory, ARecordThatCannotBeReadIsRefused) {
    const GuardPage page;
    for (const void* record : {static_cast<const void*>(nullptr), static_cast<const void*>(page.unreadable()),
                               pointer_to<const void>(UINTPTR_MAX - 100), pointer_to<const void>(1)}) {
        expect_refused(record);
    }
    for (const std::uint32_t size : {112U, 128U, 152U, 192U}) {
        const CalendarRecord record(full(size));
        for (const std::size_t length : {std::size_t{2}, std::size_t{4}, std::size_t{size} - 1}) {
            std::memcpy(page.last(length), &record.whole, length);
            expect_refused(page.last(length));
        }
    }
}

// ---- The arrays.

// The addresses at which nothing can be read.
std::vector<void*> wild_addresses(const GuardPage& page) {
    return {nullptr,
            page.unreadable(),
            page.last(1),
            page.last(8),
            pointer_to<void>(1),
            pointer_to<void>(UINTPTR_MAX),
            pointer_to<void>(UINTPTR_MAX - 19),
            pointer_to<void>(UINTPTR_MAX - 1000)};
}

TEST(CalendarMemory, ArraysThatCannotBeReadAreAbsentWhateverTheirCount) {
    const GuardPage page(1, kPagesOfTheLongestArray);
    for (void* wild : wild_addresses(page)) {
        for (const std::uint8_t count : {std::uint8_t{1}, std::uint8_t{2}, std::uint8_t{255}}) {
            CalendarRecord record(full(192));
            const std::string whole = written(record);
            record.whole.exceptions = static_cast<CalendarTime*>(wild);
            record.whole.exceptionCount = count;
            std::string expected = whole;
            expected.erase(expected.find("EXDATE:"), 9 + 15 + 16 + 1);
            EXPECT_EQ(written(record), expected);

            record.whole.fields = static_cast<CalendarField*>(wild);
            record.whole.fieldCount = count;
            const std::size_t begin = expected.find("SUMMARY");
            expected.erase(begin, expected.find("RRULE") - begin);
            EXPECT_EQ(written(record), expected);

            record.whole.daylightRules = static_cast<DaylightRule*>(wild);
            record.whole.daylightCount = count;
            const std::string text = written(record);
            EXPECT_FALSE(holds_line(text, "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;CET;CEST"));
            EXPECT_TRUE(holds_line(text, "TZ:+01:00"));
        }
    }
}

TEST(CalendarMemory, AnUnreadableArrayOfFieldsHasASummaryAddedAllTheSame) {
    const GuardPage page;
    CalendarRecord record(full(112));
    record.whole.itemType = VZ_ITEM_APPOINTMENT;
    record.whole.fields = page.unreadable_as<CalendarField>();
    EXPECT_TRUE(holds_line(written(record), "SUMMARY:"));
}

TEST(CalendarMemory, EntriesBehindAnUnreadablePageStillCount) {
    const GuardPage page(1, 1, 1);
    constexpr std::size_t kSize = sizeof(CalendarField);
    std::u16string texts[] = {u"first", u"last"};
    for (std::size_t shift = 0; shift < kSize; ++shift) {
        std::memset(page.begin(), 0, kPage);
        std::memset(page.behind(), 0, kPage);
        std::byte* const entries = page.last(kSize + shift);
        const auto distance = static_cast<std::size_t>(page.behind() - entries);
        const std::size_t first_behind = (distance + kSize - 1) / kSize;
        for (const std::size_t which : {std::size_t{0}, std::size_t{1}}) {
            CalendarField field{kSize, 0, VZ_CALENDAR_VALUE_SIZE, VZ_CALENDAR_LOCATION, {}};
            field.value.text = texts[which].data();
            std::memcpy(entries + which * first_behind * kSize, &field, kSize);
        }
        Calendar event;
        event.type = VZ_ITEM_CALL;
        CalendarRecord record(event);
        record.whole.fields = static_cast<CalendarField*>(static_cast<void*>(entries));
        record.whole.fieldCount = static_cast<std::uint8_t>(first_behind + 1);
        EXPECT_EQ(written(record), call_text({"LOCATION:first", "LOCATION:last"})) << shift;
        record.whole.fieldCount = static_cast<std::uint8_t>(first_behind);
        EXPECT_EQ(written(record), call_text({"LOCATION:first"})) << shift;
    }
}

TEST(CalendarMemory, ArraysThatRunIntoAnUnreadablePageEndThere) {
    const GuardPage page(1, kPagesOfTheLongestArray);
    for (std::size_t cut = 0; cut < sizeof(CalendarTime); ++cut) {  // bytes of an entry in front of the page
        const CalendarTime times[] = {record_time(utc(2009, 1, 2)), record_time(utc(2009, 1, 3))};
        std::memcpy(page.last(sizeof times + cut), times, sizeof times);
        Calendar event;
        event.type = VZ_ITEM_CALL;
        CalendarRecord record(event);
        record.whole.exceptions = page.last_as<CalendarTime>(sizeof times + cut);
        record.whole.exceptionCount = 255;
        EXPECT_EQ(written(record), call_text({"EXDATE:20090102T000000Z;20090103T000000Z"})) << cut;
    }
    for (std::size_t cut = 0; cut < sizeof(DaylightRule); ++cut) {
        const DaylightRule rule{VZ_DAYLIGHT_TRUE, record_time(local(2009, 3, 29, 2)),
                                record_time(local(2009, 10, 25, 3))};
        std::memcpy(page.last(sizeof rule + cut), &rule, sizeof rule);
        CalendarRecord record(full(192));
        const std::string expected = written(record);
        record.whole.daylightRules = page.last_as<DaylightRule>(sizeof rule + cut);
        record.whole.daylightCount = 255;
        EXPECT_EQ(written(record), expected) << cut;
    }
}

// ---- The values.

TEST(CalendarMemory, ValuesThatCannotBeReadHaveNoLine) {
    const GuardPage page;
    struct Row {
        Field field;
        std::size_t length;  // bytes of the value that the record needs
    };
    const Row rows[] = {{text(VZ_CALENDAR_SUMMARY, u"a"), 2},
                        {text(VZ_CALENDAR_LOCATION, u"a"), 2},
                        {text(VZ_CALENDAR_DESCRIPTION, u"a"), 2},
                        {text(VZ_CALENDAR_DESCRIPTION_ALONE, u"a"), 2},
                        {geo(u"1", u"2"), 32},
                        {reference(1, 2, 3), 16}};
    for (const Row& row : rows) {
        Calendar event;
        event.type = VZ_ITEM_CALL;
        event.fields = {text(VZ_CALENDAR_LOCATION, u"before"), row.field,
                        text(VZ_CALENDAR_LOCATION, u"behind")};
        CalendarRecord record(event);
        CalendarValue& value = record.whole.fields[1].value;
        std::memcpy(page.last(row.length - 1), static_cast<const void*>(value.text), row.length - 1);
        std::vector<void*> addresses = wild_addresses(page);
        addresses.erase(addresses.begin() + 2, addresses.begin() + 4);  // some bytes can be read there
        addresses.push_back(page.last(row.length - 1));
        EXPECT_NE(written(record), call_text({"LOCATION:before", "LOCATION:behind"})) << row.field;
        for (void* address : addresses) {
            value.text = static_cast<char16_t*>(address);
            EXPECT_EQ(written(record), call_text({"LOCATION:before", "LOCATION:behind"})) << row.field;
        }
    }
}

TEST(CalendarMemory, TextsOfAPlaceThatCannotBeReadAreEmpty) {
    const GuardPage page;
    for (char16_t* text : {page.unreadable_as<char16_t>(), static_cast<char16_t*>(nullptr),
                           pointer_to<char16_t>(UINTPTR_MAX)}) {
        Calendar event;
        event.type = VZ_ITEM_CALL;
        event.fields = {geo(u"1", u"2")};
        CalendarRecord record(event);
        record.whole.fields[0].value.geo->latitude = text;
        EXPECT_EQ(written(record), call_text({"GEO:;2"}));
        record.whole.fields[0].value.geo->longitude = text;
        EXPECT_EQ(written(record), call_text({"GEO:;"}));
    }
}

TEST(CalendarMemory, ATextThatRunsIntoAnUnreadablePageEndsThere) {
    const GuardPage page;
    for (const std::size_t odd : {0U, 1U}) {
        const char16_t letters[] = {u'a', u'b', u'c'};
        std::memcpy(page.last(sizeof letters + odd), letters, sizeof letters);
        Calendar event;
        event.type = VZ_ITEM_CALL;
        event.fields = {text(VZ_CALENDAR_LOCATION, u""), geo(u"", u"2")};
        CalendarRecord record(event);
        record.whole.fields[0].value.text = page.last_as<char16_t>(sizeof letters + odd);
        record.whole.fields[1].value.geo->latitude = page.last_as<char16_t>(sizeof letters + odd);
        EXPECT_EQ(written(record), call_text({"LOCATION:abc", "GEO:abc;2"}));
    }
}

TEST(CalendarMemory, NamesOfAZoneEndWhereTheyCannotBeRead) {
    const GuardPage page;
    std::memcpy(page.last(3), "EST", 3);
    CalendarRecord record(full(192));
    record.whole.standardName = page.last_as<char>(3);
    record.whole.daylightName = page.unreadable_as<char>();
    EXPECT_TRUE(holds_line(written(record), "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;EST;"));
    record.whole.standardName = nullptr;
    EXPECT_TRUE(holds_line(written(record), "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;;"));
    std::string name(2 * kPage, 'x');
    record.whole.standardName = name.data();
    EXPECT_TRUE(
        holds_line(written(record), "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;" + name + ";"));
}

// ---- Odd addresses.

TEST(CalendarMemory, NothingNeedsToBeAligned) {
    CalendarRecord record(full(192));
    CalendarItem& item = record.whole;
    const std::string expected = written(record);
    std::vector<std::byte> memory(kPage);
    std::size_t used = 1;
    const auto move = [&](auto*& what, std::size_t count) {
        const std::size_t size = count * sizeof *what;
        std::byte* const to = memory.data() + used;
        std::memcpy(to, static_cast<const void*>(what), size);
        used += size + size % 2;
        what = static_cast<std::remove_reference_t<decltype(what)>>(static_cast<void*>(to));
    };
    move(item.fields[0].value.text, 5);
    move(item.fields[1].value.text, 7);
    move(item.fields[2].value.geo->latitude, 5);
    move(item.fields[2].value.geo->longitude, 6);
    move(item.fields[2].value.geo, 1);
    move(item.fields[3].value.reference, 1);
    move(item.fields, 5);
    move(item.exceptions, 2);
    move(item.daylightRules, 1);
    CalendarItem* odd = &item;
    move(odd, 1);
    ASSERT_LE(used, memory.size());
    EXPECT_EQ(written(static_cast<const void*>(odd)), expected);
}

// ---- Allocations.

TEST(CalendarMemory, EveryAllocationMayFail) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new cannot be made to fail here";
    Calendar event = full(192);
    const std::u16string long_text = u"\x01" + std::u16string(100, u'\u00E9');
    event.fields.push_back(text(VZ_CALENDAR_DESCRIPTION, long_text));
    event.zone->standard_name = std::string(100, 'x');
    CalendarRecord record(event);
    const void* const item = record.item();
    for (const Target& target : {kPlain, kVersion2}) {
        const std::string expected = written(item, target);
        for (std::size_t nth = 1;; ++nth) {
            std::string out;
            bool refused = false;
            FailingAllocations failing(nth);
            try {
                out = written(item, target);
            } catch (const std::bad_alloc&) {
                refused = true;
            }
            failing.stop();
            EXPECT_EQ(refused, failing.failed()) << nth;
            if (!failing.failed()) {
                EXPECT_EQ(out, expected);
                EXPECT_GE(nth, 5U)
                    << "the text, the rules, a name, a clean text and its encoding, at the least";
                break;
            }
        }
    }
}

}  // namespace
}  // namespace vzapi::test::calendar
