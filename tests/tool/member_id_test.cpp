#include "vzconv/member_id.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

struct IdRow {
    const char* text;
    MemberId id;
};

constexpr IdRow kRows[] = {
    {"0", {}},
    {"1", {1}},
    {"255", {255}},
    {"256", {0, 1}},
    {"18446744073709551616", {0, 0, 0, 0, 0, 0, 0, 0, 1}},
    {"340282366920938463463374607431768211455",
     {255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255}},
};

TEST(MemberId, NumbersThereAndBack) {
    for (const IdRow& row : kRows) {
        EXPECT_EQ(decimal_of(row.id), row.text);
        EXPECT_EQ(member_id_of(row.text), row.id) << row.text;
    }
}

TEST(MemberId, LeadingZerosSayNothing) {
    EXPECT_EQ(member_id_of("00000000000000000000000000000000000000000000000007"), MemberId{7});
}

TEST(MemberId, WhatIsNoNumberOrTooLargeIsNone) {
    for (const char* text :
         {"", "x", "1x", " 1", "-1", "+1", "1.0", "0x10", "340282366920938463463374607431768211456",
          "999999999999999999999999999999999999999999"}) {
        EXPECT_FALSE(member_id_of(text)) << text;
    }
}

}  // namespace
}  // namespace vzconv
