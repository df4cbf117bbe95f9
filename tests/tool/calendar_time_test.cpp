#include "vzconv/calendar_time.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

struct TimeRow {
    const char* text;
    const char* iso;  // null: refused
};

TEST(CalendarTime, IsoTextsAndBack) {
    const TimeRow rows[] = {
        {"2009-03-10T14:05:06", "2009-03-10T14:05:06"},
        {"2009-03-10T14:05:06Z", "2009-03-10T14:05:06Z"},
        {"2009-03-10", "2009-03-10T00:00:00"},
        {"1900-01-01", "1900-01-01T00:00:00"},
        {"9999-12-31T23:59:59", "9999-12-31T23:59:59"},
        {"2009-02-31", "2009-02-31T00:00:00"},
        {"1899-12-31", nullptr},
        {"2009-00-10", nullptr},
        {"2009-13-10", nullptr},
        {"2009-03-00", nullptr},
        {"2009-03-32", nullptr},
        {"2009-03-10T24:00:00", nullptr},
        {"2009-03-10T14:60:00", nullptr},
        {"2009-03-10T14:05:60", nullptr},
        {"2009-03-10Z", nullptr},
        {"2009-03-10T14:05", nullptr},
        {"2009-03-10T14:05:06z", nullptr},
        {"20090310T140506", nullptr},
        {" 2009-03-10", nullptr},
        {"2009-3-10", nullptr},
        {"", nullptr},
        {"Z", nullptr},
    };
    for (const TimeRow& row : rows) {
        const std::optional<CalendarTime> time = time_of_iso(row.text, DayEdge::First);
        ASSERT_EQ(time.has_value(), row.iso != nullptr) << row.text;
        if (time) {
            EXPECT_EQ(iso_time_of(*time), row.iso);
        }
    }
    EXPECT_EQ(iso_time_of(time_of_iso("2009-03-10", DayEdge::Last).value()), "2009-03-10T23:59:59");
    EXPECT_EQ(iso_time_of(time_of_iso("2009-03-10T00:00:00", DayEdge::Last).value()), "2009-03-10T00:00:00");
}

TEST(CalendarTime, ZoneWordsTellLocalTimesFromUtc) {
    const CalendarTime local = time_of_iso("2009-03-10T14:00:00", DayEdge::First).value();
    EXPECT_EQ(local.zone1, VZ_ZONE_LOCAL);
    EXPECT_EQ(local.zone2, VZ_ZONE_LOCAL);
    const CalendarTime utc = time_of_iso("2009-03-10T14:00:00Z", DayEdge::First).value();
    EXPECT_EQ(utc.zone1, 0);
    EXPECT_EQ(utc.zone2, 0);
    CalendarTime half = utc;
    half.zone1 = VZ_ZONE_LOCAL;
    EXPECT_TRUE(is_utc(utc));
    EXPECT_FALSE(is_utc(local));
    EXPECT_FALSE(is_utc(half));
    EXPECT_FALSE(is_set({}));
}

TEST(CalendarTime, ReadsAsAPersonWritesIt) {
    const TimeRow rows[] = {
        {"2009-03-10T14:00:00", "Tue 10 March 2009, 14:00"},
        {"2009-03-10T04:05:06Z", "Tue 10 March 2009, 04:05:06 UTC"},
        {"1900-01-01", "Mon 1 January 1900, 00:00"},
        {"2000-02-29", "Tue 29 February 2000, 00:00"},
        {"1900-02-29", "29 February 1900, 00:00"},
        {"9999-12-31", "Fri 31 December 9999, 00:00"},
    };
    for (const TimeRow& row : rows) {
        EXPECT_EQ(time_in_words(time_of_iso(row.text, DayEdge::First).value()), row.iso);
    }
}

TEST(CalendarTime, MomentsAndBack) {
    for (const char* text : {"1900-01-01T00:00:00", "2009-02-28T23:59:59Z", "2000-02-29T12:30:00"}) {
        const CalendarTime time = time_of_iso(text, DayEdge::First).value();
        EXPECT_EQ(iso_time_of(time_at(moment_of(time), time)), text);
    }
    const CalendarTime first = time_of_iso("2009-03-01", DayEdge::First).value();
    EXPECT_EQ(iso_time_of(time_at(moment_of(first) - std::chrono::days(1), first)), "2009-02-28T00:00:00");
    EXPECT_EQ(weekday_bit_of(first), uint32_t{VZ_DAY_SUNDAY});
}

}  // namespace
}  // namespace vzconv
