// What a recurrence loses on its way through text, and that it loses nothing else.
#include <gtest/gtest.h>

#include <string>

#include "vcalendar/calendar_time.h"
#include "vcalendar/recurrence_support.h"
#include "vcalendar/recurrence_text.h"

namespace vzapi::test {
namespace {

using vcalendar::Recurrence;

// Tuesday, the second of its month.
constexpr const char* kStart = "20090310T143000";

std::optional<Recurrence> through_rrule(const Recurrence& rule, const CalendarTime& start) {
    std::string text;
    vcalendar::append_rrule(rule, start, text);
    return vcalendar::parse_recurrence(text, start);
}

std::optional<Recurrence> through_basic_rule(const Recurrence& rule, const CalendarTime& start) {
    std::string text;
    vcalendar::append_basic_rule(rule, start, text);
    return vcalendar::parse_recurrence(text, start);
}

CalendarTime with_zone(const char* text, std::int32_t zone1, std::int32_t zone2) {
    CalendarTime time = time_of_text(text);
    time.zone1 = zone1;
    time.zone2 = zone2;
    return time;
}

CalendarTime of_month(const char* text, unsigned month) {
    CalendarTime time = time_of_text(text);
    time.month = static_cast<std::uint8_t>(month);
    return time;
}

CalendarTime of_year(const char* text, unsigned year) {
    CalendarTime time = time_of_text(text);
    time.year = static_cast<std::uint16_t>(year);
    return time;
}

struct Row {
    Recurrence rule;
    const char* from_rrule;
    const char* from_basic_rule;
};

TEST(RecurrenceLimits, EachLossAsListed) {
    const CalendarTime no_end = time_of_text("21001230T000000Z");
    const Row rows[] = {
        // clang-format off
        {{VZ_REPEAT_DAILY, 0, 0, 0, {}}, "daily 1", "daily 1"},
        {{VZ_REPEAT_WEEKLY, 1, 0, 0, {}}, "weekly 1 TU", "weekly 1 TU"},
        {{VZ_REPEAT_WEEKLY, 1, 0x80, 0, {}}, "weekly 1 TU", "weekly 1 TU"},
        {{VZ_REPEAT_WEEKLY, 1, 0x102, 0, {}}, "weekly 1 MO", "weekly 1 MO"},
        {{VZ_REPEAT_MONTHLY, 1, 0, 3, {}}, "monthly 1 position 3 TU", "monthly 1 position 3 TU"},
        {{VZ_REPEAT_YEARLY, 1, 0, 5, {}}, "yearly 1 position 5 TU", "yearly 1 position 5 TU"},
        {{VZ_REPEAT_DAILY, 2, 0x7F, 0, {}}, "daily 2", "daily 2"},
        {{VZ_REPEAT_MONTHLY, 2, 0x7F, 0, {}}, "monthly 2", "monthly 2"},
        {{VZ_REPEAT_YEARLY, 2, 0x7F, 0, {}}, "yearly 2", "yearly 2"},
        {{VZ_REPEAT_DAILY, 2, 0, 5, {}}, "daily 2", "daily 2"},
        {{VZ_REPEAT_WEEKLY, 2, VZ_DAY_MONDAY, 5, {}}, "weekly 2 MO", "weekly 2 MO"},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 6, {}}, "monthly 1", "monthly 1"},
        {{VZ_REPEAT_YEARLY, 1, VZ_DAY_MONDAY, UINT32_MAX, {}}, "yearly 1", "yearly 1"},
        {{VZ_REPEAT_DAILY, 1, 0, 0, of_month("20090630T143000", 13)}, "daily 1", "daily 1"},
        {{VZ_REPEAT_DAILY, 1, 0, 0, of_year("20090630T143000", 1899)}, "daily 1", "daily 1"},
        {{VZ_REPEAT_DAILY, 1, 0, 0, of_year("20090630T143000", 10000)}, "none", "none"},
        {{VZ_REPEAT_DAILY, 1, 0, 0, no_end}, "daily 1", "daily 1 until 21001230T000000Z"},
        {{VZ_REPEAT_MONTHLY, 12, 0, 0, {}}, "monthly 12", "yearly 1"},
        {{VZ_REPEAT_MONTHLY, 24, VZ_DAY_MONDAY, 2, {}}, "monthly 24 position 2 MO", "yearly 2 position 2 MO"},
        // clang-format on
    };
    const CalendarTime start = time_of_text(kStart);
    for (const Row& row : rows) {
        EXPECT_EQ(in_words(through_rrule(row.rule, start)), row.from_rrule) << in_words(row.rule);
        EXPECT_EQ(in_words(through_basic_rule(row.rule, start)), row.from_basic_rule) << in_words(row.rule);
    }
}

TEST(RecurrenceLimits, ZoneWordsOfTheEndSayLocalOrNot) {
    struct ZoneRow {
        std::int32_t zone1, zone2, expected;
    };
    constexpr ZoneRow kZones[] = {{0, 0, 0},
                                  {60, -5, 0},
                                  {VZ_ZONE_LOCAL, 0, VZ_ZONE_LOCAL},
                                  {60, VZ_ZONE_LOCAL, VZ_ZONE_LOCAL},
                                  {VZ_ZONE_LOCAL, VZ_ZONE_LOCAL, VZ_ZONE_LOCAL}};
    const CalendarTime start = time_of_text(kStart);
    for (const ZoneRow& row : kZones) {
        const Recurrence rule = {VZ_REPEAT_DAILY, 1, 0, 0,
                                 with_zone("20090630T143000", row.zone1, row.zone2)};
        for (const auto& again : {through_rrule(rule, start), through_basic_rule(rule, start)}) {
            ASSERT_TRUE(again);
            EXPECT_EQ(again->until.zone1, row.expected);
            EXPECT_EQ(again->until.zone2, row.expected);
        }
    }
}

TEST(RecurrenceLimits, ARuleThatNeedsAStartIsLostWithoutOne) {
    const Row rows[] = {
        {{VZ_REPEAT_DAILY, 2, 0, 0, {}}, "daily 2", "daily 2"},
        {{VZ_REPEAT_WEEKLY, 1, VZ_DAY_MONDAY, 0, {}}, "weekly 1 MO", "weekly 1 MO"},
        {{VZ_REPEAT_WEEKLY, 1, 0, 0, {}}, "none", "none"},
        {{VZ_REPEAT_MONTHLY, 1, 0, 0, {}}, "none", "none"},
        {{VZ_REPEAT_MONTHLY, 1, 0, 2, {}}, "none", "none"},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 2, {}}, "monthly 1 position 2 MO", "monthly 1 position 2 MO"},
        {{VZ_REPEAT_YEARLY, 1, 0, 0, {}}, "yearly 1", "none"},
        {{VZ_REPEAT_YEARLY, 1, VZ_DAY_MONDAY, 2, {}}, "none", "yearly 1 position 2 MO"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(in_words(through_rrule(row.rule, {})), row.from_rrule) << in_words(row.rule);
        EXPECT_EQ(in_words(through_basic_rule(row.rule, {})), row.from_basic_rule) << in_words(row.rule);
    }
}

}  // namespace
}  // namespace vzapi::test
