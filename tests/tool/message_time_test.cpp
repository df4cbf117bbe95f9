#include "vzconv/message_time.h"

#include <gtest/gtest.h>

#include <cstring>

namespace vzconv {
namespace {

MessageTime time_at(uint16_t year, uint8_t month, uint8_t day, uint8_t hour, uint8_t minute, uint8_t second) {
    MessageTime time{};
    time.year = year;
    time.month = month;
    time.day = day;
    time.hour = hour;
    time.minute = minute;
    time.second = second;
    return time;
}

TEST(MessageTime, EveryTimeOfARecordComesBackFromItsText) {
    const MessageTime rows[] = {
        time_at(2009, 3, 5, 14, 7, 9),           time_at(1, 1, 1, 0, 0, 0),
        time_at(65535, 255, 255, 255, 255, 255), time_at(2009, 0, 0, 99, 60, 61),
        time_at(2009, 2, 30, 0, 0, 0),           time_at(10000, 100, 100, 100, 100, 100),
    };
    for (const MessageTime& row : rows) {
        const std::optional<MessageTime> time = message_time_of(iso_time_of(row));
        ASSERT_TRUE(time) << iso_time_of(row);
        EXPECT_EQ(std::memcmp(&*time, &row, sizeof row), 0) << iso_time_of(row);
    }
}

TEST(MessageTime, ADayIsItsMidnight) {
    EXPECT_EQ(iso_time_of(message_time_of("2009-03-05").value()), "2009-03-05T00:00:00");
}

TEST(MessageTime, OtherTextsAreNone) {
    for (const char* text :
         {"", "2009", "2009-03", "2009-3-05", "2009-03-5", "0000-01-01", "2009-03-05T", "2009-03-05T14",
          "2009-03-05T14:07", "2009-03-05T14:07:09Z", "2009-03-05 14:07:09", "65536-01-01", "2009-256-01",
          "02009-03-05", "2009-003-05", "-009-03-05", "2009-03-05T14:07:256", " 2009-03-05"}) {
        EXPECT_FALSE(message_time_of(text)) << text;
    }
}

TEST(MessageTime, WordsAreThoseOfTheCalendarWhereItHasTheTime) {
    EXPECT_EQ(time_in_words(time_at(2009, 3, 5, 14, 7, 9)), "Thu 5 March 2009, 14:07:09");
    EXPECT_EQ(time_in_words(time_at(2008, 2, 29, 0, 0, 0)), "Fri 29 February 2008, 00:00");
    EXPECT_EQ(time_in_words(time_at(2009, 2, 29, 1, 2, 3)), "2009-02-29T01:02:03");
    EXPECT_EQ(time_in_words(time_at(10000, 1, 1, 0, 0, 0)), "10000-01-01T00:00:00");
    EXPECT_EQ(time_in_words(time_at(65535, 1, 1, 0, 0, 0)), "65535-01-01T00:00:00");
    EXPECT_EQ(time_in_words(time_at(2009, 13, 1, 0, 0, 0)), "2009-13-01T00:00:00");
    EXPECT_EQ(time_in_words(time_at(2009, 1, 1, 24, 0, 0)), "2009-01-01T24:00:00");
}

}  // namespace
}  // namespace vzconv
