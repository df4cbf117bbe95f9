// Texts made to be expensive. All of them are read in time proportional to their length: with a megabyte
// each, anything worse would not come to an end.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "vcalendar/recurrence_support.h"
#include "vcalendar/recurrence_text.h"

namespace vzapi::test {
namespace {

constexpr std::size_t kMegabyte = 1 << 20;

std::string repeated(std::string_view piece, std::size_t size = kMegabyte) {
    std::string text;
    while (text.size() < size) text += piece;
    return text;
}

struct Row {
    std::string text;
    const char* record;
};

TEST(HostileRecurrences, AreReadInLinearTime) {
    const CalendarTime start = time_of_text("20090310T143000");
    const Row rows[] = {
        // clang-format off
        {"W1" + repeated(" MO WE") + " #0", "weekly 1 MO WE"},
        {"W1" + repeated("MOWE") + "#0", "weekly 1 MO WE"},
        {"W1" + repeated(" ") + "MO #0", "weekly 1 MO"},
        {"MD1" + repeated(" 10") + " #0", "monthly 1"},
        {"MP1" + repeated(" 2+ TU") + " #0", "monthly 1 position 2 TU"},
        {"MP1 2+" + repeated(" TU") + " #0", "monthly 1 position 2 TU"},
        {"YM1" + repeated(" 3") + " #0", "yearly 1"},
        {"D" + repeated("9") + " #0", "none"},
        {"D" + repeated("0") + "7 #0", "daily 7"},
        {"D1 #" + repeated("9"), "daily 1"},
        {"D1" + repeated(" #1"), "none"},
        {"D1 " + repeated("20090312T143000"), "none"},
        {"D1" + repeated(" 20090312T143000"), "none"},
        {repeated("$"), "none"},
        {repeated("#"), "none"},
        {repeated(" "), "none"},
        {"FREQ=WEEKLY;BYDAY=" + repeated("MO,WE,") + "FR", "weekly 1 MO WE FR"},
        {"FREQ=WEEKLY;BYDAY=MO" + repeated(","), "none"},
        {"FREQ=MONTHLY;BYMONTHDAY=" + repeated("10,") + "10", "monthly 1"},
        {"FREQ=YEARLY;BYMONTH=" + repeated("3,") + "3", "yearly 1"},
        {"FREQ=DAILY" + repeated(";"), "daily 1"},
        {"FREQ=DAILY" + repeated("; "), "daily 1"},
        {"FREQ=DAILY" + repeated(";X=1"), "none"},
        {"FREQ=DAILY;COUNT=" + repeated("9"), "daily 1"},
        {"FREQ=DAILY;INTERVAL=" + repeated("0") + "7", "daily 7"},
        {"FREQ=DAILY;UNTIL=" + repeated("2"), "none"},
        {"FREQ=" + repeated(" ") + "DAILY", "daily 1"},
        {repeated("FREQ="), "none"},
        {repeated("FRE"), "none"},
        // clang-format on
    };
    for (const Row& row : rows) {
        EXPECT_EQ(in_words(vcalendar::parse_recurrence(row.text, start)), row.record)
            << row.text.substr(0, 40);
    }
}

TEST(HostileRecurrences, EveryPrefixOfARuleIsReadOrNot) {
    const CalendarTime start = time_of_text("20090310T143000");
    for (const std::string whole : {"MP12 2+ TU WE #10 20100312T143000Z", "W2 MO WE FR 20090312T143000$",
                                    "FREQ=MONTHLY;INTERVAL=2;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=TU;COUNT=7",
                                    "FREQ=YEARLY;BYMONTH=3;BYDAY=2TU,2WE;UNTIL=20190312T143000Z;WKST=SU"}) {
        for (std::size_t length = 0; length < whole.size(); ++length) {
            // A copy of its own lets the sanitizers see a byte read too far.
            const std::string prefix = whole.substr(0, length);
            const auto rule = vcalendar::parse_recurrence(prefix, start);
            EXPECT_TRUE(!rule || vcalendar::recurs(*rule)) << prefix;
        }
        EXPECT_TRUE(vcalendar::parse_recurrence(whole, start)) << whole;
    }
}

}  // namespace
}  // namespace vzapi::test
