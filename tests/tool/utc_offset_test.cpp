#include "vzconv/utc_offset.h"

#include <gtest/gtest.h>

#include <limits>

namespace vzconv {
namespace {

struct OffsetRow {
    const char* text;
    int32_t minutes;
};

TEST(UtcOffset, TextsAndBack) {
    const OffsetRow rows[] = {
        {"+00:00", 0}, {"+01:00", 60}, {"-05:30", -330}, {"+23:59", 1439}, {"-23:59", -1439}, {"-00:01", -1},
    };
    for (const OffsetRow& row : rows) {
        EXPECT_EQ(minutes_of_utc_offset(row.text), row.minutes) << row.text;
        EXPECT_EQ(utc_offset_of(row.minutes), row.text);
    }
    EXPECT_EQ(minutes_of_utc_offset("-00:00"), 0);
    EXPECT_EQ(utc_offset_of(6000), "+100:00");
    EXPECT_EQ(utc_offset_of(std::numeric_limits<int32_t>::min()), "-35791394:08");
}

TEST(UtcOffset, AnyOtherTextIsNone) {
    for (const char* text : {"", "+1:00", "01:00", "+0100", "+01:0", "+01:000", "+24:00", "+01:60", "+-1:00",
                             "+01:-1", " +01:00", "+ 1:00", "+01.00", "CET"}) {
        EXPECT_EQ(minutes_of_utc_offset(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace vzconv
