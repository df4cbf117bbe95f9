#include "vzconv/profile.h"

#include <gtest/gtest.h>

#include <set>

#include "vzapi/vzapi.h"
#include "vzconv/failure.h"

namespace vzconv {
namespace {

struct NameRow {
    const char* text;
    uint64_t family;
    uint32_t version;
};

TEST(Profile, NamesAndNumbersStandForAProfile) {
    const NameRow rows[] = {
        {"10-messengers", 0x02000010, 10},
        {"10-messengers-and-sms", 0x02000010, 16},
        {"10-empty-fields", 0x02000010, 260},
        {"10-empty-fields-revision", 0x02000010, 280},
        {"20-empty-fields", 0x02000020, 300},
        {"20-calendar-2", 0x02000020, 322},
        {"20-plain-voice", 0x02000020, 323},
        {"20-Plain-Voice", 0x02000020, 323},
        {"0x02000020:300", 0x02000020, 300},
        {"0X2000010:0x118", 0x02000010, 280},
        {"33554464:4294967295", 0x02000020, 0xFFFFFFFF},
        {"0xFFFFFFFFFFFFFFFF:0", 0xFFFFFFFFFFFFFFFF, 0},
    };
    for (const NameRow& row : rows) {
        const Profile profile = profile_of(row.text);
        EXPECT_EQ(profile.family, row.family) << row.text;
        EXPECT_EQ(profile.version, row.version) << row.text;
        EXPECT_EQ(profile.counts, uint64_t{VZ_PROFILE_ON}) << row.text;
    }
    EXPECT_TRUE(profile_of("none").is_none());
}

TEST(Profile, EachHasANameOfItsOwn) {
    std::set<std::string_view> names;
    for (const ProfileRow& row : profiles()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_EQ(profile_of(row.name).family, row.family) << row.name;
        EXPECT_EQ(profile_of(row.name).version, row.version) << row.name;
    }
}

TEST(Profile, AnythingElseIsRefused) {
    for (const char* text : {"", "20", "nobody", ":", "1:", ":1", "1:2:3", "0x:1", "1:4294967296", "-1:1",
                             "1: 1", "0x10000000000000000:1"}) {
        EXPECT_THROW(profile_of(text), Failure) << text;
    }
}

}  // namespace
}  // namespace vzconv
