#include "dataobject/email_time.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace vzapi::dataobject {
namespace {

// "2024-05-06 07:08:09"; empty for year 0.
std::string read(std::u16string_view text) {
    const MessageTime time = read_email_time(text);
    char line[40] = "";
    if (time.year != 0) {
        std::snprintf(line, sizeof line, "%d-%d-%d %d:%d:%d", time.year, time.month, time.day, time.hour,
                      time.minute, time.second);
    }
    return line;
}

struct Row {
    std::u16string_view text;
    const char* expected;
};

constexpr Row kRows[] = {
    {u"2024-05-06T07:08:09", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08", "2024-5-6 7:8:0"},
    {u"2024-05-06T07", "2024-5-6 7:0:0"},
    {u"2024-05-06T", "2024-5-6 0:0:0"},
    {u"2024-05-06", "2024-5-6 0:0:0"},
    {u"2024-05", "2024-5-0 0:0:0"},
    {u"2024", "2024-0-0 0:0:0"},
    {u"2024-5-6T7:8:9", "2024-5-6 7:8:9"},
    {u"0002024-005-006T007:008:009", "2024-5-6 7:8:9"},
    {u" 2024 - 05 - 06 T 07 : 08 : 09 ", "2024-5-6 7:8:9"},
    // Fractions and zones are not looked at.
    {u"2024-05-06T07:08:09.999", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08:09,5", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08:09Z", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08:09.25Z", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08:09+02:00", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08:09-11:30", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08:09 +0200", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08Z", "2024-5-6 7:8:0"},
    {u"2024-05-06T07:08+99:99", "2024-5-6 7:8:0"},
    {u"2024-05-06Z", "2024-5-6 0:0:0"},
    {u"2024-05-06+02:00", "2024-5-6 0:0:0"},
    {u"2024-05-06-05:00", "2024-5-6 0:0:0"},
    // Fields that are no number are 0.
    {u"2024-xx-06T07:08:09", "2024-0-6 7:8:9"},
    {u"2024-05-6thT07:08:09", "2024-5-0 7:8:9"},
    {u"2024-05-06Tnoon", "2024-5-6 0:0:0"},
    {u"2024-05-06Ta:b:c", "2024-5-6 0:0:0"},
    {u"2024--06T:08:", "2024-0-6 0:8:0"},
    {u"2024-05-06 07:08:09", "2024-5-0 0:0:0"},
    {u"2024-05-06t07:08:09", "2024-5-0 0:0:0"},
    {u"2024-00-31", "2024-0-31 0:0:0"},
    {u"2024-05-06T07:08:09T10", "2024-5-6 7:8:9"},
    {u"2024-05-06T07:08:09:10", "2024-5-6 7:8:9"},
    // No year, no time.
    {u"", ""},
    {u"T", ""},
    {u"0000-01-01T00:00:00", ""},
    {u"year-05-06", ""},
    {u"-2024-05-06", ""},
    {u"+2024-05-06", ""},
    {u"0x7E8-05-06", ""},
    {u"T07:08:09", ""},
    {u"\u0662\u0660\u0662\u0664-05-06", ""},
    // Neither what fits no field or no calendar.
    {u"65535-12-31T23:59:59", "65535-12-31 23:59:59"},
    {u"65536-01-01", ""},
    {u"67560-05-06", ""},  // 2024 in 16 bits
    {u"4294969320-05-06", ""},
    {u"99999999999999999999999-05-06", ""},
    {u"20240506T070809", ""},
    {u"2024-13-01", ""},
    {u"2024-261-01", ""},
    {u"2024-01-32", ""},
    {u"2024-00-32", ""},
    {u"2024-04-31", ""},
    {u"2024-02-29", "2024-2-29 0:0:0"},
    {u"2023-02-29", ""},
    {u"1900-02-29", ""},
    {u"2000-02-29", "2000-2-29 0:0:0"},
    {u"2024-02-30", ""},
    {u"2024-05-06T24:00:00", ""},
    {u"2024-05-06T23:60:00", ""},
    {u"2024-05-06T23:59:60", ""},
    {u"2024-05-06T256:00:00", ""},
    {u"2024-05-06T99999999999999999999:00:00", ""},
};

TEST(EmailTime, Reads) {
    for (const Row& row : kRows) {
        EXPECT_EQ(read(row.text), row.expected) << std::string(row.text.begin(), row.text.end());
    }
}

TEST(EmailTime, EveryDayOfEveryMonthIsInTheCalendar) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        for (int day = 1; day <= 31; ++day) {
            const std::string text = "2023-" + std::to_string(month) + "-" + std::to_string(day);
            const MessageTime time = read_email_time(std::u16string(text.begin(), text.end()));
            EXPECT_EQ(time.year != 0, day <= kDays[month - 1]) << text;
        }
    }
}

}  // namespace
}  // namespace vzapi::dataobject
