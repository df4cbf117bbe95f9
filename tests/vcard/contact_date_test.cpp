#include "vcard/contact_date.h"

#include <gtest/gtest.h>

#include <string>

#include "vcard/owned_contact.h"

namespace vzapi::vcard {
namespace {

struct DateCase {
    std::u16string text;
    std::string expected;  // empty: none
};

const DateCase kCases[] = {
    {u"20010203", "2001-02-03"},
    {u"2001-02-03", "2001-02-03"},
    {u" 20010203\t", "2001-02-03"},
    {u"00010101", "0001-01-01"},
    {u"99991231", "9999-12-31"},
    {u"20000229", "2000-02-29"},
    {u"20040229", "2004-02-29"},
    {u"20010203T040506", "2001-02-03 04:05:06"},
    {u"20010203T040506Z", "2001-02-03 04:05:06"},
    {u"20010203t040506+0100", "2001-02-03 04:05:06"},
    {u"2001-02-03T04:05:06", "2001-02-03 04:05:06"},
    {u"2001-02-03T04:05:06.789Z", "2001-02-03 04:05:06"},
    {u"2001-02-03T04:05", "2001-02-03 04:05:00"},
    {u"2001-02-03T0405", "2001-02-03 04:05:00"},
    {u"2001-02-03T04:0506", "2001-02-03 04:05:00"},
    {u"20010203T0405:06", "2001-02-03 04:05:00"},
    {u"20010203T235959", "2001-02-03 23:59:59"},
    {u"20010203T000000", "2001-02-03"},
    // A time that is none does not cost the day.
    {u"20010203T", "2001-02-03"},
    {u"20010203T24:00:00", "2001-02-03"},
    {u"20010203T046006", "2001-02-03"},
    {u"20010203T040560", "2001-02-03"},
    {u"20010203T4", "2001-02-03"},
    {u"20010203Tnoon", "2001-02-03"},
    // No days.
    {u"", ""},
    {u"2001", ""},
    {u"2001020", ""},
    {u"200102030", ""},
    {u"2001-0203", ""},
    {u"200102-03", ""},
    {u"2001-2-3", ""},
    {u"2001/02/03", ""},
    {u"--02-03", ""},
    {u"--0203", ""},
    {u"00000203", ""},
    {u"20010003", ""},
    {u"20011303", ""},
    {u"20010200", ""},
    {u"20010132", ""},
    {u"20010229", ""},
    {u"19000229", ""},
    {u"20010431", ""},
    {u"20010203 04:05:06", ""},
    {u"20010203x", ""},
    {u"\uFF12\uFF10\uFF10\uFF110203", ""},
};

TEST(ContactDateText, EachTextIsItsDayOrNone) {
    for (const DateCase& row : kCases) {
        const auto date = parse_contact_date(row.text);
        EXPECT_EQ(date ? test::show_date(*date) : "", row.expected) << platform::utf16_to_utf8(row.text);
        EXPECT_EQ(date ? date->size : 20U, 20U);
    }
}

TEST(ContactDateText, EachMonthEndsOnItsLastDay) {
    const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        for (int day = 0; day < 40; ++day) {
            const std::string text = "2001" + test::digits(static_cast<unsigned>(month), 2) +
                                     test::digits(static_cast<unsigned>(day), 2);
            const bool valid = parse_contact_date(platform::utf8_to_utf16(text)).has_value();
            EXPECT_EQ(valid, day >= 1 && day <= days[month - 1]) << text;
        }
    }
}

}  // namespace
}  // namespace vzapi::vcard
