// ValidateVersitData.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/guard_page.h"
#include "support/text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

constexpr ResultCode kInvalidParam = 0x80800001U;
constexpr ResultCode kUnknownType = 0x80800002U;
constexpr ResultCode kInvalidText = 0x80800003U;

struct TextCase {
    std::uint32_t type;
    const char* text;
    ResultCode expected;
};

constexpr TextCase kTexts[] = {
    {1, "BEGIN:VCARD\r\nEND:VCARD\r\n", VZ_OK},
    {5, "BEGIN:VCARD\r\nEND:VCARD\r\n", VZ_OK},
    {2, "BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n", VZ_OK},
    {4, "BEGIN:VBKM\r\nEND:VBKM\r\n", VZ_OK},
    {1, "begin:vcard\r\nend:vcard\r\n", VZ_OK},
    {2, "Begin:vCalendar End:vCalendar", VZ_OK},
    {4, "begin:vbkmend:vbkm", VZ_OK},
    {1, "xEND:VCARD...BEGIN:VCARDx", VZ_OK},  // neither order nor place counts
    {1, "BEGIN:VCARD\r\n", kInvalidText},
    {1, "END:VCARD\r\n", kInvalidText},
    {1, "BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n", kInvalidText},
    {2, "BEGIN:VCARD\r\nEND:VCARD\r\n", kInvalidText},
    {4, "BEGIN:VBOOKMARK\r\nEND:VBOOKMARK\r\n", kInvalidText},
    {1, "BEGIN: VCARD\r\nEND: VCARD\r\n", kInvalidText},
    {1, "B", kInvalidText},
};

TEST(ValidateVersitData, LooksForBothMarkersOfTheType) {
    for (const TextCase& row : kTexts) {
        std::string text = row.text;
        const VersitData data = data_of(text);
        EXPECT_EQ(ValidateVersitData(row.type, &data), row.expected) << row.type << " " << row.text;
        EXPECT_EQ(text, row.text) << "the caller's text is only read";
    }
}

TEST(ValidateVersitData, MessageMarkersAreCaseSensitive) {
    std::u16string capitals = u"BEGIN:VMSG\r\nEND:VMSG\r\n";
    std::u16string small = u"begin:vmsg\r\nend:vmsg\r\n";
    std::u16string reversed = u"END:VMSG BEGIN:VMSG";
    std::u16string half = u"BEGIN:VMSG";
    VersitData data = data_of(capitals);
    EXPECT_EQ(ValidateVersitData(3, &data), VZ_OK);
    data = data_of(small);
    EXPECT_EQ(ValidateVersitData(3, &data), kInvalidText);
    data = data_of(reversed);
    EXPECT_EQ(ValidateVersitData(3, &data), VZ_OK);
    data = data_of(half);
    EXPECT_EQ(ValidateVersitData(3, &data), kInvalidText);
}

TEST(ValidateVersitData, AnOddLengthOfMessageTextLosesTheLastByteOnly) {
    std::u16string text = u"BEGIN:VMSG END:VMSGx";
    VersitData data = data_of(text);
    --data.length;
    EXPECT_EQ(ValidateVersitData(3, &data), VZ_OK);
}

TEST(ValidateVersitData, MarkersInEightBitTextAreNoMessage) {
    std::string text = "BEGIN:VMSG\r\nEND:VMSG\r\n";
    const VersitData data = data_of(text);
    EXPECT_EQ(ValidateVersitData(3, &data), kInvalidText);
}

TEST(ValidateVersitData, NothingBehindANulIsSeen) {
    std::string text("BEGIN:VCARD\r\n\0END:VCARD\r\n", 25);
    VersitData data = data_of(text);
    EXPECT_EQ(ValidateVersitData(1, &data), kInvalidText);
    std::u16string wide(u"BEGIN:VMSG\r\n\0END:VMSG\r\n", 23);
    data = data_of(wide);
    EXPECT_EQ(ValidateVersitData(3, &data), kInvalidText);
}

TEST(ValidateVersitData, UnusableRecordsAreInvalidBeforeTheTypeIsLookedAt) {
    const GuardPage page;
    std::string text = "BEGIN:VCARD\r\nEND:VCARD\r\n";
    const auto length = static_cast<std::uint32_t>(text.size());
    for (const std::uint32_t type : {1U, 3U, 9U}) {
        EXPECT_EQ(ValidateVersitData(type, nullptr), kInvalidParam);
        EXPECT_EQ(ValidateVersitData(type, page.unreadable_as<VersitData>()), kInvalidParam);
        const VersitData wrong_size{20, 0, length, text.data()};
        EXPECT_EQ(ValidateVersitData(type, &wrong_size), kInvalidParam);
        const VersitData no_length{24, 0, 0, text.data()};
        EXPECT_EQ(ValidateVersitData(type, &no_length), kInvalidParam);
        const VersitData no_text{24, 0, length, nullptr};
        EXPECT_EQ(ValidateVersitData(type, &no_text), kInvalidParam);
        const VersitData unreadable{24, 0, length, page.unreadable()};
        EXPECT_EQ(ValidateVersitData(type, &unreadable), kInvalidParam);
        const VersitData half_readable{24, 0, length, page.last(5)};
        EXPECT_EQ(ValidateVersitData(type, &half_readable), kInvalidParam);
    }
}

TEST(ValidateVersitData, UnknownTypesAreRefusedWithAValidText) {
    std::string text = "BEGIN:VCARD\r\nEND:VCARD\r\n";
    const VersitData data = data_of(text);
    for (const std::uint32_t type : {0U, 6U, 9U, UINT32_MAX}) {
        EXPECT_EQ(ValidateVersitData(type, &data), kUnknownType) << type;
    }
}

}  // namespace
