// What we write, we read back: calendar entries through the exported interface, in all sizes, interface
// versions and both versions of the text.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "vcalendar/calendar_generator.h"
#include "vcalendar/calendar_trip.h"

namespace vzapi::test::calendar {
namespace {

constexpr std::uint32_t kSizes[] = {VZ_CALENDAR_SIZE_BASE, VZ_CALENDAR_SIZE_EXCEPTIONS,
                                    VZ_CALENDAR_SIZE_WIDE_REPEAT, VZ_CALENDAR_SIZE_TIME_ZONE};
constexpr std::uint32_t kInterfaces[] = {12, 13, 14, 15, 16};

TEST(CalendarRoundTrip, RandomEntriesComeBackEqual) {
    unsigned seed = 1234;
    std::size_t trips = 0;
    for (const std::uint32_t api_version : kInterfaces) {
        const AnnouncedVersion announced(api_version);
        for (const std::uint32_t size : kSizes) {
            for (const bool is_version_2 : {false, true}) {
                const Trip trip{is_version_2, api_version};
                CalendarGenerator calendars(seed++, size, trip);
                for (const std::uint32_t type : {0U, 1U, 2U, 3U, 4U, 5U, 7U, 8U}) {
                    if (type == VZ_ITEM_ANNIVERSARY && api_version < VZ_INTERFACE_MARKS) continue;
                    for (int i = 0; i < 25; ++i) {
                        const Calendar calendar = calendars.next(type);
                        ASSERT_TRUE(comes_back(calendar, trip)) << calendar;
                        ASSERT_EQ(there_and_back(calendar, trip), calendar) << text_of(calendar, trip);
                        ++trips;
                    }
                }
            }
        }
    }
    EXPECT_EQ(trips, 5 * 4 * 2 * 25 * 8U - 2 * 4 * 2 * 25U);
}

TEST(CalendarRoundTrip, EveryCharacterComesBackInBothVersions) {
    const AnnouncedVersion announced(16);
    for (char32_t point = 1; point < 0x110000; point += point < 0x3000 ? 1 : 251) {
        const bool is_control = (point < 0x20 && point != 9 && point != 10 && point != 13) || point == 0x7F;
        if (is_control || (point >= 0xD800 && point < 0xE000)) continue;
        std::u16string value = u"<";
        if (point < 0x10000) {
            value.push_back(static_cast<char16_t>(point));
        } else {
            value.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
            value.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
        }
        value.push_back(u'>');
        for (const bool is_version_2 : {false, true}) {
            Calendar event;
            event.type = VZ_ITEM_CALL;
            event.fields = {text(VZ_CALENDAR_SUMMARY, value), text(VZ_CALENDAR_DESCRIPTION, value),
                            geo(u"1", value)};
            ASSERT_EQ(there_and_back(event, {is_version_2, 16}), event) << static_cast<std::uint32_t>(point);
        }
    }
}

TEST(CalendarProfileOptions, TheLowHalfOfTheFirstCountsAndAllOfTheThird) {
    struct Row {
        std::uint64_t option1;
        std::uint32_t option2;
        std::uint64_t option3;
        bool is_version_2;
    };
    constexpr Row kRows[] = {
        {0, 0, 0, false},
        {0x02000020, 322, 1, true},
        {0x02000020, 321, 1, false},
        {0x02000020, 322, 0, false},
        {0x0000000102000020, 322, 1, true},
        {0xFFFFFFFF02000020, 322, 0x100000000, true},
        {0x0200002000000000, 322, 1, false},
    };
    CalendarRecord record{Calendar{}};
    for (const Row& row : kRows) {
        OwnedText text;
        ASSERT_EQ(ConvertToVersit2(row.option1, row.option2, row.option3, VZ_TYPE_CALENDAR, record.item(),
                                   &text.data),
                  VZ_OK);
        const std::string version = row.is_version_2 ? "2.0" : "1.0";
        EXPECT_EQ(text.bytes().find("BEGIN:VCALENDAR\r\nVERSION:" + version + "\r\n"), 0U) << row.option1;
    }
    OwnedText text;
    ASSERT_EQ(ConvertToVersit(VZ_TYPE_CALENDAR, record.item(), &text.data), VZ_OK);
    EXPECT_EQ(text.bytes().find("BEGIN:VCALENDAR\r\nVERSION:1.0\r\n"), 0U);
}

}  // namespace
}  // namespace vzapi::test::calendar
