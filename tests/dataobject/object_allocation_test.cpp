// Every allocation of the data-object family gets its turn to fail.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

#include "dataobject/email_text.h"
#include "support/failing_allocations.h"
#include "support/text.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

void expect_empty(const EmailItem& item) {
    EmailItem expected;
    std::memset(&expected, 0, sizeof expected);
    expected.size = item.size;
    EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0);
}

void read_with_failures(const std::string& document, const char* expected) {
    const DataObject in = object_of(document);
    std::size_t failures = 0;
    for (std::size_t nth = 1;; ++nth) {
        EmailRecord record;
        FailingAllocations failing(nth);
        const ResultCode code = ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, &record.item);
        failing.stop();
        if (!failing.failed()) {
            EXPECT_EQ(code, VZ_OK);
            EXPECT_EQ(described(record.item), expected);
            break;
        }
        ++failures;
        EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY) << "allocation " << nth;
        expect_empty(record.item);
    }
    EXPECT_GE(failures, FailingAllocations::sees_operator_new() ? 10U : 3U)
        << "two arrays and a string, and with operator new the text, the names and the entries, at the least";
}

TEST(ObjectAllocationFailure, ReadingAnEmailItem) {
    const std::string email =
        "<Email><read>false</read><created>2024-05-06</created><emailitem>a text longer than any short "
        "string</emailitem><an-element-with-a-long-name a-long-attribute-name=''/></Email>";
    const char* const expected =
        "read=0 created=2024-05-06T00:00:00 text=a text longer than any short string";
    read_with_failures(email, expected);
    read_with_failures("<?xml version='1.0' encoding='Shift_JIS'?>" + email, expected);
}

TEST(ObjectAllocationFailure, ParsingABookmark) {
    std::string text =
        lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:a title longer than any short string", "END:VBKM"});
    const DataObject in = data_of(text);
    std::size_t failures = 0;
    for (std::size_t nth = 1;; ++nth) {
        BookmarkItem item{};
        item.size = sizeof item;
        FailingAllocations failing(nth);
        const ResultCode code = ODCAPI_ParseDataObject(VZ_OBJECT_BOOKMARK, &in, &item);
        failing.stop();
        EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_BOOKMARK, &item), VZ_OK);
        if (!failing.failed()) {
            EXPECT_EQ(code, VZ_OK);
            break;
        }
        ++failures;
        EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY) << "allocation " << nth;
    }
    EXPECT_GE(failures, 1U);
}

// A creation that fails for lack of memory looks like any other that fails.
TEST(ObjectAllocationFailure, CreatingABookmark) {
    char16_t title[] = u"a title longer than any short string, caf\u00E9";
    const BookmarkItem item{sizeof item, title, nullptr, nullptr};
    std::size_t failures = 0;
    for (std::size_t nth = 1;; ++nth) {
        DataObject out{sizeof out, 0, 0, nullptr};
        FailingAllocations failing(nth);
        const ResultCode code = ODCAPI_CreateDataObject(VZ_OBJECT_BOOKMARK, &item, &out);
        failing.stop();
        EXPECT_EQ(code, VZ_OK);
        EXPECT_EQ(out.length == 0, failing.failed()) << "allocation " << nth;
        EXPECT_EQ(out.text == nullptr, failing.failed()) << "allocation " << nth;
        EXPECT_EQ(ODCAPI_FreeDataObject(&out), VZ_OK);
        if (!failing.failed()) break;
        ++failures;
    }
    EXPECT_GE(failures, 1U);
}

TEST(ObjectAllocationFailure, ValidatingAnEmailItem) {
    const DataObject in = object_of("<Email><read>1</read></Email>");
    for (std::size_t nth = 1; nth <= 8; ++nth) {
        FailingAllocations failing(nth);
        const ResultCode code = ODCAPI_ValidateDataObject(VZ_OBJECT_EMAIL, &in);
        failing.stop();
        EXPECT_EQ(code, VZ_OK) << "the result is that of the release";
    }
}

}  // namespace
}  // namespace vzapi::test
