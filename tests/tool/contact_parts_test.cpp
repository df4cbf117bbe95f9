#include "vzconv/contact_parts.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

ContactDate date(uint16_t year, uint8_t month, uint8_t day, uint8_t hour = 0, uint8_t minute = 0,
                 uint8_t second = 0) {
    return {sizeof(ContactDate), year, month, day, hour, minute, second, 0, {}};
}

struct DateRow {
    ContactDate date;
    const char* iso;
    const char* readable;
};

const DateRow kRows[] = {
    {date(1980, 2, 29), "1980-02-29", "29 February 1980"},
    {date(1999, 12, 31, 23, 59, 58), "1999-12-31T23:59:58", "31 December 1999, 23:59:58"},
    {date(2001, 1, 1, 0, 0, 1), "2001-01-01T00:00:01", "1 January 2001, 00:00:01"},
    {date(0, 5, 1), "0000-05-01", "1 May"},
    {date(1980, 0, 1), "1980-00-01", "1980-00-01"},
    {date(1980, 1, 0), "1980-01-00", "1980-01-00"},
};

TEST(ContactParts, DatesThereAndBack) {
    for (const DateRow& row : kRows) {
        EXPECT_EQ(iso_date_of(row.date), row.iso);
        EXPECT_EQ(readable_date_of(row.date), row.readable);
        const std::optional<ContactDate> read = date_of_iso(row.iso);
        ASSERT_TRUE(read) << row.iso;
        EXPECT_EQ(iso_date_of(*read), row.iso);
        EXPECT_EQ(read->size, sizeof(ContactDate));
    }
}

TEST(ContactParts, AnyOtherFormIsNoDate) {
    for (const char* text :
         {"", "1980", "19800229", "1980-2-29", "1980-02-29T", "1980-02-29T12:30", "1980-02-29T12:30:00Z",
          "1980-02-29 12:30:00", "1980-13-01", "1980-01-32", "1980-01-01T24:00:00", "1980-01-01T00:60:00",
          "1980-01-01T00:00:60", "+980-01-01", "198a-01-01", " 1980-01-01", "1980-01-01T00:00:000"}) {
        EXPECT_FALSE(date_of_iso(text)) << text;
    }
}

TEST(ContactParts, AListIsAsLongAsItsSignedCount) {
    ContactField fields[2]{};
    ContactItem item{};
    item.phones = fields;
    item.phoneCount = 2;
    EXPECT_EQ(entries_of(item, ContactList::Phones).size(), 2U);
    EXPECT_EQ(entries_of(item, ContactList::Addresses).size(), 0U);
    item.phoneCount = 0x80000000;
    EXPECT_EQ(entries_of(item, ContactList::Phones).size(), 0U);
    item.phones = nullptr;
    item.phoneCount = 2;
    EXPECT_EQ(entries_of(item, ContactList::Phones).size(), 0U);
}

}  // namespace
}  // namespace vzconv
