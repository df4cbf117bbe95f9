// The two forms of a message's time: written, and read with what is tolerated.
#include "vmessage/message_time.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vmessage/message_builder.h"

namespace vzapi::vmessage {
namespace {

using test::record_time;
using test::Time;
using test::time_of;

struct WrittenRow {
    Time time;
    std::string header;
    std::string body;
};

TEST(MessageTimes, AreWrittenAsTheyStand) {
    const WrittenRow rows[] = {
        {{2009, 3, 5, 14, 7, 9}, "20090305T140709Z", "05.03.2009 14:07:09"},
        {{1999, 12, 31, 23, 59, 59}, "19991231T235959Z", "31.12.1999 23:59:59"},
        {{1, 1, 1, 0, 0, 0}, "10101T000000Z", "01.01.1 00:00:00"},
        {{65535, 99, 99, 99, 99, 99}, "655359999T999999Z", "99.99.65535 99:99:99"},
        {{2009, 0, 0, 0, 0, 0}, "20090000T000000Z", "00.00.2009 00:00:00"},
        {{2009, 255, 100, 101, 102, 103}, "2009255100T101102103Z", "100.255.2009 101:102:103"},
        {{0, 0, 0, 0, 0, 0}, "00000T000000Z", ""},
        {{0, 3, 5, 14, 7, 9}, "00000T000000Z", ""},
    };
    for (const WrittenRow& row : rows) {
        EXPECT_EQ(header_time(record_time(row.time)), row.header);
        EXPECT_EQ(body_time(record_time(row.time)), row.body);
    }
}

struct ReadRow {
    std::u16string_view text;
    std::optional<Time> time;
};

std::optional<Time> time_in(const std::optional<MessageTime>& time) {
    if (!time) return std::nullopt;
    EXPECT_EQ(time->reserved, 0U);
    return time_of(*time);
}

TEST(MessageTimes, OfTheHeader) {
    const ReadRow rows[] = {
        {u"20090305T140709Z", Time{2009, 3, 5, 14, 7, 9}},
        {u"20090305T140709", Time{2009, 3, 5, 14, 7, 9}},
        {u"20090305T1407Z", Time{2009, 3, 5, 14, 7, 0}},
        {u"20090305T1407", Time{2009, 3, 5, 14, 7, 0}},
        {u" \t20090305T140709Z ", Time{2009, 3, 5, 14, 7, 9}},
        {u"10101T000000Z", Time{1, 1, 1, 0, 0, 0}},
        {u"655359999T999999Z", Time{65535, 99, 99, 99, 99, 99}},
        {u"00000T000000Z", Time{}},
        {u"00000T000000", Time{}},
        {u"00000305T140709Z", Time{}},
        {u"655360101T000000Z", {}},  // a year of more than 16 bits
        {u"0020090305T140709Z", {}},
        {u"0305T140709Z", {}},
        {u"20090305", {}},
        {u"20090305T", {}},
        {u"20090305T14", {}},
        {u"20090305T140", {}},
        {u"20090305T14070", {}},
        {u"20090305T1407099", {}},
        {u"20090305T140709ZZ", {}},
        {u"20090305T140709z", {}},
        {u"20090305t140709Z", {}},
        {u"20090305 140709Z", {}},
        {u"20090305T140709+0100", {}},
        {u"2009-03-05T14:07:09Z", {}},
        {u"-20090305T140709Z", {}},
        {u"200903\uFF105T140709Z", {}},  // a digit, but not of ASCII
        {u"Z", {}},
        {u"T", {}},
        {u"", {}},
    };
    for (const ReadRow& row : rows) {
        EXPECT_EQ(time_in(parse_header_time(row.text)), row.time) << testing::PrintToString(row.text);
    }
}

TEST(MessageTimes, OfTheBody) {
    const ReadRow rows[] = {
        {u"05.03.2009 14:07:09", Time{2009, 3, 5, 14, 7, 9}},
        {u"5.3.2009 4:7:9", Time{2009, 3, 5, 4, 7, 9}},
        {u"05.03.2009 14:07", Time{2009, 3, 5, 14, 7, 0}},
        {u"05.03.2009 14:07:09Z", Time{2009, 3, 5, 14, 7, 9}},
        {u"05.03.2009 14:07Z", Time{2009, 3, 5, 14, 7, 0}},
        {u" 05.03.2009 \t 14:07:09\t", Time{2009, 3, 5, 14, 7, 9}},
        {u"255.255.65535 255:255:255", Time{65535, 255, 255, 255, 255, 255}},
        {u"00.00.0 00:00:00", Time{}},
        {u"00.00.0000 00:00:00", Time{}},
        {u"05.03.0 14:07:09", Time{}},
        {u"256.03.2009 14:07:09", {}},
        {u"05.03.65536 14:07:09", {}},
        {u"05.03.200900 14:07:09", {}},
        {u"0005.03.2009 14:07:09", {}},
        {u"05.03.2009 14", {}},
        {u"05.03.2009 14:07:", {}},
        {u"05.03.2009 14:07:09x", {}},
        {u"05.03.2009", {}},
        {u"05.03.200914:07:09", {}},
        {u"05/03/2009 14:07:09", {}},
        {u"2009.3.5.14.7.9Z", {}},
        {u"tomorrow at 8", {}},
        {u"..  ::", {}},
        {u"", {}},
    };
    for (const ReadRow& row : rows) {
        EXPECT_EQ(time_in(parse_body_time(row.text)), row.time) << testing::PrintToString(row.text);
    }
}

}  // namespace
}  // namespace vzapi::vmessage
