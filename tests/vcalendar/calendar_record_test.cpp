// Building calendar records, and releasing what is left of them after a host had them in its hands.
#include "vcalendar/calendar_record.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "platform/allocation_gate.h"
#include "platform/heap.h"
#include "support/failing_allocations.h"
#include "support/guard_page.h"
#include "support/pointer_to.h"
#include "vcalendar/owned_calendar.h"

namespace vzapi::vcalendar {
namespace {

using test::GuardPage;
using test::kCalendarSizes;
using test::show;

constexpr SizeSwitches kAll = size_switches(VZ_CALENDAR_SIZE_TIME_ZONE, VZ_INTERFACE_VERSION);
constexpr CalendarTime kTime{0, 2009, 1, 2, 3, 4, 5, 0, 0, 0};

ZoneBlock some_zone() {
    return {60, 120, {{1, kTime, kTime}}, "CET", "CEST"};
}

void add_each_kind(CalendarBuilder& builder) {
    builder.add_text(VZ_CALENDAR_SUMMARY, u"a");
    builder.add_number(VZ_CALENDAR_CLASS, 2);
    builder.add_geo(u"1", u"");
    builder.add_reference({1, 2, 0xFFFFFFFFU});
    builder.add_text(VZ_CALENDAR_DESCRIPTION, u"b");
    builder.add_exception(kTime);
    builder.set_zone(some_zone());
}

constexpr std::string_view kFieldLines = "300 a\n204 =2\n205 1|\n306 =1=2=4294967295\n302 b\n";
constexpr std::string_view kExceptionLine = "except 2009-01-02 03:04:05Z\n";
constexpr std::string_view kZoneLines =
    "zone 60 120 CET CEST\nrule 1 2009-01-02 03:04:05Z 2009-01-02 03:04:05Z\n";

std::string each_kind() {
    return "type 1\n" + std::string(kExceptionLine) + std::string(kFieldLines) + std::string(kZoneLines);
}

CalendarItem item_of_each_kind() {
    CalendarItem item;
    std::memset(&item, 0, sizeof item);
    item.size = sizeof item;
    item.itemType = VZ_ITEM_APPOINTMENT;
    item.alarmKind = VZ_ALARM_NONE;
    CalendarBuilder builder;
    add_each_kind(builder);
    builder.hand_over(kAll, item);
    return item;
}

void expect_empty(const void* record, std::uint32_t size, std::size_t length) {
    std::vector<std::byte> expected(length);
    std::memcpy(expected.data(), &size, sizeof size);
    EXPECT_EQ(std::memcmp(record, expected.data(), length), 0);
}

ResultCode release(void* item, const ReleaseContext& context = {VZ_INTERFACE_VERSION}) {
    try {
        release_calendar(item, context);
    } catch (ResultCode code) {
        return code;
    }
    return VZ_OK;
}

TEST(CalendarRecord, HasTheLengthOfItsVersion) {
    for (const std::uint32_t size : kCalendarSizes) EXPECT_EQ(record_length(size), size);
    for (const std::uint32_t size : {0U, 4U, 111U, 113U, 127U, 129U, 151U, 191U, 193U, 0xFFFFFFFFU}) {
        EXPECT_EQ(record_length(size), 112U) << size;
    }
}

// ---- Building.

TEST(CalendarBuilder, HandsOverEachKindOfEntry) {
    CalendarItem item = item_of_each_kind();
    EXPECT_EQ(show(item), each_kind());
    EXPECT_EQ(item.zoneSize, 40U);
    EXPECT_EQ(release(&item), VZ_OK);
    expect_empty(&item, sizeof item, sizeof item);
}

TEST(CalendarBuilder, SetsTheMembersOfTheBlocksThatAreThere) {
    for (const std::uint32_t size : kCalendarSizes) {
        for (std::uint32_t api_version = 12; api_version <= 16; ++api_version) {
            CalendarItem item;
            std::memset(&item, 0xA5, sizeof item);
            const CalendarItem before = item;
            CalendarBuilder builder;
            add_each_kind(builder);
            builder.hand_over(size_switches(size, api_version), item);
            EXPECT_EQ(item.fieldCount, 5);
            const bool has_exceptions = size >= 128;
            EXPECT_EQ(item.exceptionCount, has_exceptions ? 1 : before.exceptionCount);
            EXPECT_EQ(item.exceptions != before.exceptions, has_exceptions);
            const bool has_zone = size == 192 && api_version == 16;
            EXPECT_EQ(item.zoneSize, has_zone ? 40 : before.zoneSize) << size << " " << api_version;
            EXPECT_EQ(item.daylightRules != before.daylightRules, has_zone);
            // All that is none of its business.
            EXPECT_EQ(std::memcmp(&item, &before, offsetof(CalendarItem, fieldCount)), 0);
            EXPECT_EQ(item.repeatSize, before.repeatSize);
            item.itemType = VZ_ITEM_OTHER;
            item.size = has_zone ? 192 : has_exceptions ? 128 : 112;
            EXPECT_EQ(release(&item), VZ_OK);
        }
    }
}

TEST(CalendarBuilder, WithoutAnythingGivesNothing) {
    CalendarItem item;
    std::memset(&item, 0xA5, sizeof item);
    CalendarBuilder().hand_over(kAll, item);
    EXPECT_EQ(item.size, 0xA5A5A5A5U) << "left alone";
    EXPECT_EQ(item.fieldCount + item.exceptionCount + item.daylightCount, 0);
    EXPECT_EQ(item.fields, nullptr);
    EXPECT_EQ(item.exceptions, nullptr);
    EXPECT_EQ(item.zoneSize, 0U);
    EXPECT_EQ(item.standardOffset, 0);
    EXPECT_EQ(item.daylightOffset, 0);
    EXPECT_EQ(item.daylightRules, nullptr);
    EXPECT_EQ(item.standardName, nullptr);
    EXPECT_EQ(item.daylightName, nullptr);
}

TEST(CalendarBuilder, AZoneWithoutNamesOrRulesHasNone) {
    CalendarItem item{};
    CalendarBuilder builder;
    builder.set_zone({-300, 0, {}, "", ""});
    builder.hand_over(kAll, item);
    EXPECT_EQ(item.zoneSize, 40U);
    EXPECT_EQ(item.standardOffset, -300);
    EXPECT_EQ(item.daylightCount, 0);
    EXPECT_EQ(item.daylightRules, nullptr);
    EXPECT_EQ(item.standardName, nullptr);
    EXPECT_EQ(item.daylightName, nullptr);
}

TEST(CalendarBuilder, KnowsWhatWasAdded) {
    CalendarBuilder builder;
    EXPECT_FALSE(builder.has(VZ_CALENDAR_STATUS));
    builder.add_number(VZ_CALENDAR_STATUS, 1);
    EXPECT_TRUE(builder.has(VZ_CALENDAR_STATUS));
    EXPECT_FALSE(builder.has(VZ_CALENDAR_PRIORITY));
}

TEST(CalendarBuilder, DropsWhatTheCountsCannotTell) {
    CalendarItem item{};
    item.size = sizeof item;
    CalendarBuilder builder;
    for (std::uint32_t i = 0; i < 300; ++i) {
        EXPECT_EQ(builder.fields_are_full(), i >= 255) << i;
        EXPECT_EQ(builder.exceptions_are_full(), i >= 255) << i;
        switch (i % 4) {
            case 0:
                builder.add_number(VZ_CALENDAR_PRIORITY, i);
                break;
            case 1:
                builder.add_text(VZ_CALENDAR_SUMMARY, u"a");
                break;
            case 2:
                builder.add_geo(u"1", u"2");
                break;
            default:
                builder.add_reference({i, i, i});
                break;
        }
        builder.add_exception(kTime);
    }
    ZoneBlock zone = some_zone();
    zone.rules.resize(300);
    builder.set_zone(zone);
    builder.hand_over(kAll, item);
    EXPECT_EQ(item.fieldCount, 255);
    EXPECT_EQ(item.fields[252].value.number, 252U);
    EXPECT_EQ(item.exceptionCount, 255);
    EXPECT_EQ(item.daylightCount, 255);
    EXPECT_EQ(release(&item), VZ_OK);
}

TEST(CalendarBuilder, AFailedAllocationLeavesItAsItWas) {
    for (std::size_t nth = 1;; ++nth) {
        CalendarItem item;
        std::memset(&item, 0, sizeof item);
        bool raised = false;
        {
            CalendarBuilder builder;
            ZoneBlock zone = some_zone();
            test::FailingAllocations failing(nth);
            try {
                builder.set_zone(std::move(zone));
                builder.add_text(VZ_CALENDAR_SUMMARY, u"a");
                builder.add_number(VZ_CALENDAR_CLASS, 2);
                builder.add_geo(u"1", u"");
                builder.add_reference({1, 2, 0xFFFFFFFFU});
                builder.add_text(VZ_CALENDAR_DESCRIPTION, u"b");
                builder.add_exception(kTime);
                builder.hand_over(kAll, item);
            } catch (ResultCode code) {
                raised = code == VZ_ERR_OUT_OF_MEMORY;
            } catch (const std::bad_alloc&) {
                raised = true;
            }
            failing.stop();
            EXPECT_EQ(raised, failing.failed()) << nth;
            if (raised) {
                expect_empty(&item, 0, sizeof item);
                builder.hand_over(kAll, item);  // what was added before the failure is all there
                const CalendarItem handed = item;
                std::string shown;
                for (std::uint8_t i = 0; i < handed.fieldCount; ++i) {
                    shown += test::show_field(handed.fields[i], VZ_ITEM_APPOINTMENT) + "\n";
                }
                EXPECT_EQ(shown, kFieldLines.substr(0, shown.size())) << nth;
                EXPECT_EQ(test::show_zone(handed), kZoneLines) << nth;
            }
        }
        item.size = sizeof item;
        EXPECT_EQ(release(&item), VZ_OK);
        if (!raised) break;
        ASSERT_LT(nth, 100U);
    }
}

// ---- Releasing.

std::size_t g_released = 0;

std::size_t blocks_released(void* item) {
    g_released = 0;
    platform::g_test_only_release_observer = [](const void*, std::size_t) noexcept { ++g_released; };
    EXPECT_EQ(release(item), VZ_OK);
    platform::g_test_only_release_observer = nullptr;
    return g_released;
}

TEST(ReleaseCalendar, GivesEveryBlockBack) {
    CalendarItem item = item_of_each_kind();
    EXPECT_EQ(blocks_released(&item), 11U)
        << "fields, exceptions, rules, two names, two texts, the geo and its two texts, the reference";
    expect_empty(&item, sizeof item, sizeof item);
    EXPECT_EQ(blocks_released(&item), 0U);
}

TEST(ReleaseCalendar, GivesBackAsManyBlocksAsARecordCanHave) {
    CalendarItem item{};
    item.size = sizeof item;
    CalendarBuilder builder;
    for (int i = 0; i < 255; ++i) builder.add_geo(u"1", u"2");
    builder.add_exception(kTime);
    builder.set_zone(some_zone());
    builder.hand_over(kAll, item);
    EXPECT_EQ(blocks_released(&item), 255 * 3 + 5U);
}

TEST(ReleaseCalendar, FollowsTheSizeOfTheRecord) {
    // What stands behind the size is not the record's, whatever it looks like.
    struct SizeCase {
        std::uint32_t size;
        std::size_t blocks;
        std::size_t length;
    };
    const SizeCase cases[] = {{112, 7, 112}, {128, 8, 128}, {152, 8, 152}, {192, 11, 192},
                              {0, 7, 112},   {24, 7, 112},  {160, 7, 112}, {0xFFFFFFFFU, 7, 112}};
    for (const SizeCase& row : cases) {
        CalendarItem item = item_of_each_kind();
        const CalendarItem before = item;
        const GuardPage page;
        item.size = row.size;
        std::memcpy(page.last(row.length), &item, row.length);
        EXPECT_EQ(blocks_released(page.last(row.length)), row.blocks) << row.size;
        expect_empty(page.last(row.length), row.size, row.length);
        if (row.length < 128) platform::heap_free(before.exceptions);
        if (row.length < 192) {
            platform::heap_free(before.daylightRules);
            platform::heap_free(before.standardName);
            platform::heap_free(before.daylightName);
        }
    }
}

TEST(ReleaseCalendar, IsTheSameForEveryInterfaceVersion) {
    for (const std::uint32_t api_version : {0U, 12U, 13U, 14U, 15U, 16U, 17U}) {
        CalendarItem item = item_of_each_kind();
        EXPECT_EQ(release(&item, {api_version}), VZ_OK);
        expect_empty(&item, sizeof item, sizeof item);
    }
}

TEST(ReleaseCalendar, RefusesARecordThatCannotBeRead) {
    const GuardPage page;
    EXPECT_EQ(release(nullptr), VZ_ERR_POINTER);
    EXPECT_EQ(release(page.unreadable()), VZ_ERR_POINTER);
    EXPECT_EQ(release(page.last(104)), VZ_ERR_POINTER);
    EXPECT_EQ(release(test::pointer_to<void>(8)), VZ_ERR_POINTER);
    for (const std::uint32_t size : {128U, 152U, 192U}) {
        std::memcpy(page.last(size - 8), &size, sizeof size);
        EXPECT_EQ(release(page.last(size - 8)), VZ_ERR_POINTER) << size;
    }
}

TEST(ReleaseCalendar, ARecordAtAnOddAddress) {
    std::array<std::byte, sizeof(CalendarItem) + 1> memory{};
    const CalendarItem item = item_of_each_kind();
    std::memcpy(memory.data() + 1, &item, sizeof item);
    EXPECT_EQ(blocks_released(memory.data() + 1), 11U);
    expect_empty(memory.data() + 1, sizeof item, sizeof item);
}

TEST(ReleaseCalendar, ABirthYearIsNoBlockWhateverItsNumber) {
    // The number equals the address of a block that somebody else owns.
    char16_t* const block = static_cast<char16_t*>(platform::heap_allocate(8));
    for (const std::uint32_t type : {VZ_ITEM_BIRTHDAY, VZ_ITEM_ANNIVERSARY}) {
        CalendarItem item = item_of_each_kind();
        platform::heap_free(item.fields[4].value.text);
        item.fields[4].value.text = block;
        item.itemType = type;
        EXPECT_EQ(release(&item), VZ_OK);
        EXPECT_TRUE(platform::heap_owns(block));
    }
    for (const std::uint32_t id : {VZ_CALENDAR_CLASS, VZ_CALENDAR_PRIORITY, VZ_CALENDAR_STATUS}) {
        CalendarItem item = item_of_each_kind();
        item.fields[1].fieldId = id;
        item.fields[1].value.text = block;
        EXPECT_EQ(release(&item), VZ_OK);
        EXPECT_TRUE(platform::heap_owns(block)) << id;
    }
    platform::heap_free(block);
}

TEST(ReleaseCalendar, ABlockThatIsTooShortForAPlaceIsLeftAlone) {
    CalendarItem item = item_of_each_kind();
    void* const block = platform::heap_allocate(sizeof(CalendarGeo) - 1);
    platform::heap_free(item.fields[0].value.text);
    item.fields[0].fieldId = VZ_CALENDAR_GEO;
    item.fields[0].value.geo = static_cast<CalendarGeo*>(block);
    EXPECT_EQ(release(&item), VZ_OK);
    EXPECT_TRUE(platform::heap_owns(block));
    platform::heap_free(block);
}

using Spoil = void (*)(CalendarItem& item, const GuardPage& page);

struct SpoilCase {
    const char* what;
    Spoil spoil;
};

// What hangs on a pointer that is overwritten is lost: it is given back here, before.
void free_fields(CalendarItem& item) {
    platform::heap_free(item.fields[0].value.text);
    platform::heap_free(item.fields[2].value.geo->latitude);
    platform::heap_free(item.fields[2].value.geo->longitude);
    platform::heap_free(item.fields[2].value.geo);
    platform::heap_free(item.fields[3].value.reference);
    platform::heap_free(item.fields[4].value.text);
    platform::heap_free(item.fields);
}

const SpoilCase kSpoiled[] = {
    {"wild counts",
     [](CalendarItem& item, const GuardPage&) {
         item.fieldCount = item.exceptionCount = item.daylightCount = 255;
     }},
    {"no counts",
     [](CalendarItem& item, const GuardPage&) {
         for (const int i : {0, 3, 4}) platform::heap_free(item.fields[i].value.text);
         platform::heap_free(item.fields[2].value.geo->latitude);
         platform::heap_free(item.fields[2].value.geo->longitude);
         platform::heap_free(item.fields[2].value.geo);
         item.fieldCount = item.exceptionCount = item.daylightCount = 0;
     }},
    {"unreadable arrays",
     [](CalendarItem& item, const GuardPage& page) {
         free_fields(item);
         platform::heap_free(item.exceptions);
         platform::heap_free(item.daylightRules);
         item.fields = page.unreadable_as<CalendarField>();
         item.exceptions = page.unreadable_as<CalendarTime>();
         item.daylightRules = page.unreadable_as<DaylightRule>();
     }},
    {"wild arrays",
     [](CalendarItem& item, const GuardPage&) {
         free_fields(item);
         platform::heap_free(item.exceptions);
         platform::heap_free(item.daylightRules);
         item.fields = test::pointer_to<CalendarField>(0x18);
         item.exceptions = test::pointer_to<CalendarTime>(1);
         item.daylightRules = test::pointer_to<DaylightRule>(UINTPTR_MAX);
     }},
    {"array of somebody else",
     [](CalendarItem& item, const GuardPage& page) {
         free_fields(item);
         item.fields = page.last_as<CalendarField>();
         item.fields[0] = {24, 0, 16, VZ_CALENDAR_SUMMARY, {test::pointer_to<char16_t>(2)}};
     }},
    {"null arrays and names",
     [](CalendarItem& item, const GuardPage&) {
         free_fields(item);
         platform::heap_free(item.exceptions);
         platform::heap_free(item.standardName);
         item.fields = nullptr;
         item.exceptions = nullptr;
         item.standardName = nullptr;
     }},
    {"entries of other sizes",
     [](CalendarItem& item, const GuardPage&) { item.fields[0].size = item.fields[0].valueSize = 0; }},
    {"entry of no field",
     [](CalendarItem& item, const GuardPage& page) {
         platform::heap_free(item.fields[0].value.text);
         item.fields[0].fieldId = 0x307;
         item.fields[0].value.text = page.unreadable_as<char16_t>();
     }},
    {"unreadable values",
     [](CalendarItem& item, const GuardPage& page) {
         platform::heap_free(item.fields[0].value.text);
         platform::heap_free(item.fields[3].value.reference);
         platform::heap_free(item.daylightName);
         item.fields[0].value.text = page.unreadable_as<char16_t>();
         item.fields[3].value.reference = page.unreadable_as<CalendarReference>();
         item.daylightName = page.unreadable_as<char>();
     }},
    {"a geo that is cut off by the page",
     [](CalendarItem& item, const GuardPage& page) {
         platform::heap_free(item.fields[2].value.geo->latitude);
         platform::heap_free(item.fields[2].value.geo->longitude);
         platform::heap_free(item.fields[2].value.geo);
         item.fields[2].value.geo = page.last_as<CalendarGeo>(16);
     }},
    {"no block in the place of a geo",
     [](CalendarItem& item, const GuardPage&) {
         item.fields[0].fieldId = VZ_CALENDAR_GEO;
         platform::heap_free(item.fields[0].value.text);
         item.fields[0].value.text = nullptr;
     }},
    {"foreign texts in a geo",
     [](CalendarItem& item, const GuardPage& page) {
         platform::heap_free(item.fields[2].value.geo->latitude);
         platform::heap_free(item.fields[2].value.geo->longitude);
         item.fields[2].value.geo->latitude = page.unreadable_as<char16_t>();
         item.fields[2].value.geo->longitude = test::pointer_to<char16_t>(3);
     }},
    {"a geo that leads to itself",
     [](CalendarItem& item, const GuardPage&) {
         CalendarGeo* const geo = item.fields[2].value.geo;
         platform::heap_free(geo->latitude);
         platform::heap_free(geo->longitude);
         geo->latitude = geo->longitude = static_cast<char16_t*>(static_cast<void*>(geo));
     }},
    {"a geo that leads to the array",
     [](CalendarItem& item, const GuardPage&) {
         CalendarGeo* const geo = item.fields[2].value.geo;
         platform::heap_free(geo->latitude);
         geo->latitude = static_cast<char16_t*>(static_cast<void*>(item.fields));
     }},
    {"an entry that is its own array",
     [](CalendarItem& item, const GuardPage&) {
         platform::heap_free(item.fields[0].value.text);
         item.fields[0].value.text = static_cast<char16_t*>(static_cast<void*>(item.fields));
     }},
    {"an entry whose array is its geo",
     [](CalendarItem& item, const GuardPage&) {
         platform::heap_free(item.fields[0].value.text);
         item.fields[0].fieldId = VZ_CALENDAR_GEO;
         item.fields[0].value.text = static_cast<char16_t*>(static_cast<void*>(item.fields));
     }},
    {"the same text twice",
     [](CalendarItem& item, const GuardPage&) {
         platform::heap_free(item.fields[4].value.text);
         item.fields[4].value.text = item.fields[0].value.text;
     }},
    {"the same geo twice",
     [](CalendarItem& item, const GuardPage&) {
         platform::heap_free(item.fields[0].value.text);
         item.fields[0] = item.fields[2];
     }},
    {"one block for everything",
     [](CalendarItem& item, const GuardPage&) {
         platform::heap_free(item.exceptions);
         platform::heap_free(item.daylightRules);
         platform::heap_free(item.standardName);
         void* const fields = item.fields;
         item.exceptions = static_cast<CalendarTime*>(fields);
         item.daylightRules = static_cast<DaylightRule*>(fields);
         item.standardName = static_cast<char*>(fields);
     }},
};

TEST(ReleaseCalendar, LeavesAloneWhatIsNotTheLibrarys) {
    for (const SpoilCase& row : kSpoiled) {
        SCOPED_TRACE(row.what);
        const GuardPage page;
        CalendarItem item = item_of_each_kind();
        row.spoil(item, page);
        EXPECT_EQ(release(&item), VZ_OK);
        expect_empty(&item, sizeof item, sizeof item);
    }
}

}  // namespace
}  // namespace vzapi::vcalendar
