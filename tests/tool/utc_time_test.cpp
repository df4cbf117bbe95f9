#include "vzconv/utc_time.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

struct TimeRow {
    uint64_t seconds;
    const char* iso;
    const char* words;
};

TEST(UtcTime, SecondsAreSaidAndReadAgain) {
    const TimeRow rows[] = {
        {0, "1970-01-01T00:00:00Z", "Thu 1 January 1970, 00:00 UTC"},
        {983701230, "2001-03-04T10:20:30Z", "Sun 4 March 2001, 10:20:30 UTC"},
        {951827696, "2000-02-29T12:34:56Z", "Tue 29 February 2000, 12:34:56 UTC"},
        {2147483648, "2038-01-19T03:14:08Z", "Tue 19 January 2038, 03:14:08 UTC"},
        {4294967295, "2106-02-07T06:28:15Z", "Sun 7 February 2106, 06:28:15 UTC"},
        {253402300799, "9999-12-31T23:59:59Z", "Fri 31 December 9999, 23:59:59 UTC"},
    };
    for (const TimeRow& row : rows) {
        EXPECT_EQ(iso_utc_of(row.seconds), row.iso);
        EXPECT_EQ(seconds_of_iso_utc(row.iso), row.seconds);
        EXPECT_EQ(utc_in_words(row.seconds), row.words);
    }
    EXPECT_EQ(iso_utc_of(253402300800), std::nullopt);
    EXPECT_EQ(utc_in_words(253402300800), "253402300800 seconds after 1970");
}

TEST(UtcTime, WhatIsNoTimeInUtcIsNone) {
    for (const char* text : {"", "Z", "2001-03-04T10:20:30", "2001-03-04Z", "2001-02-29T10:20:30Z",
                             "2001-03-00T10:20:30Z", "1969-12-31T23:59:59Z", "2001-03-04T24:00:00Z",
                             "2001-03-04T10:20:30ZZ", "2001-03-04T10:20:30+01:00"})
        EXPECT_EQ(seconds_of_iso_utc(text), std::nullopt) << text;
}

TEST(UtcTime, ATimeSpanIsSaidInUnitsThatPeopleCountIn) {
    EXPECT_EQ(seconds_in_words(0), "0 seconds");
    EXPECT_EQ(seconds_in_words(1), "1 second");
    EXPECT_EQ(seconds_in_words(90), "1 minute 30 seconds");
    EXPECT_EQ(seconds_in_words(3600), "1 hour");
    EXPECT_EQ(seconds_in_words(259200), "3 days");
    EXPECT_EQ(seconds_in_words(259199), "2 days 23 hours 59 minutes 59 seconds");
    EXPECT_EQ(seconds_in_words(259201), "3 days 1 second");
    EXPECT_EQ(seconds_in_words(604800), "1 week");
    EXPECT_EQ(seconds_in_words(691200), "8 days");
    EXPECT_EQ(seconds_in_words(1209600), "2 weeks");
    EXPECT_EQ(seconds_in_words(UINT64_MAX), "213503982334601 days 7 hours 15 seconds");
    EXPECT_EQ(seconds_in_words(5400), "1 hour 30 minutes");
}

}  // namespace
}  // namespace vzconv
