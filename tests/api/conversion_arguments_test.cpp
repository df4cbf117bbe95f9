// What the conversion functions answer before any converter runs.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "support/guard_page.h"
#include "support/text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

constexpr std::uint32_t kTypes[] = {1, 2, 3, 4, 5};
constexpr std::uint32_t kUnknownTypes[] = {0, 6, 7, 0x80000000U, UINT32_MAX};

// A record of any type, big enough for all, filled with a pattern behind its size.
struct AnyRecord {
    explicit AnyRecord(std::uint32_t size) {
        bytes.fill(0xA5);
        std::memcpy(bytes.data(), &size, sizeof size);
    }
    [[nodiscard]] std::uint32_t size() const {
        std::uint32_t size = 0;
        std::memcpy(&size, bytes.data(), sizeof size);
        return size;
    }
    [[nodiscard]] bool is_zero_up_to(std::size_t end) const {
        for (std::size_t i = 4; i < end; ++i) {
            if (bytes[i] != 0) return false;
        }
        return true;
    }
    [[nodiscard]] bool is_untouched_from(std::size_t begin) const {
        for (std::size_t i = begin; i < bytes.size(); ++i) {
            if (bytes[i] != 0xA5) return false;
        }
        return true;
    }
    alignas(8) std::array<std::uint8_t, 256> bytes{};
};

struct SizeCase {
    std::uint32_t type;
    std::uint32_t size;
    bool known;
};

constexpr SizeCase kSizes[] = {
    {1, 64, true},   {1, 63, false},  {1, 32, false},  {2, 112, true},  {2, 128, true}, {2, 152, true},
    {2, 192, true},  {2, 113, false}, {2, 191, false}, {2, 196, false}, {3, 64, true},  {3, 60, false},
    {3, 112, false}, {4, 32, true},   {4, 24, false},  {4, 64, false},  {5, 32, true},  {5, 40, false},
};

TEST(ConvertFromVersit, NullItemOrInputIsInvalidWhateverTheType) {
    std::string text = "BEGIN:VBKM\r\n";
    const VersitData in = data_of(text);
    AnyRecord record(32);
    for (const std::uint32_t type : {0U, 1U, 2U, 3U, 4U, 5U, 7U}) {
        EXPECT_EQ(ConvertFromVersit(type, &in, nullptr), 0x80800001U) << type;
        EXPECT_EQ(ConvertFromVersit(type, nullptr, record.bytes.data()), 0x80800001U) << type;
        EXPECT_EQ(ConvertFromVersit(type, nullptr, nullptr), 0x80800001U) << type;
    }
    EXPECT_TRUE(record.is_untouched_from(4));
}

TEST(ConvertFromVersit, UnknownTypeIsRefusedBeforeAnythingIsRead) {
    const GuardPage page;
    for (const std::uint32_t type : kUnknownTypes) {
        EXPECT_EQ(ConvertFromVersit(type, page.unreadable_as<VersitData>(), page.unreadable()), 0x80800002U)
            << type;
    }
}

TEST(ConvertFromVersit, UnreadableInputRecordAndTextAreTold) {
    const GuardPage page;
    std::string text = "BEGIN:VBKM\r\n";
    const VersitData in = data_of(text);
    for (const std::uint32_t type : kTypes) {
        AnyRecord record(1);
        EXPECT_EQ(ConvertFromVersit(type, page.unreadable_as<VersitData>(), record.bytes.data()),
                  0x80100012U);
        EXPECT_EQ(ConvertFromVersit(type, &in, page.unreadable()), 0x80100012U);
        const VersitData unreadable{24, 0, 10, page.unreadable()};
        EXPECT_EQ(ConvertFromVersit(type, &unreadable, record.bytes.data()), 0x80100012U);
        const VersitData half_readable{24, 0, 20, page.last(10)};
        EXPECT_EQ(ConvertFromVersit(type, &half_readable, record.bytes.data()), 0x80100012U);
        const VersitData null_text{24, 0, 1, nullptr};
        EXPECT_EQ(ConvertFromVersit(type, &null_text, record.bytes.data()), 0x80100012U);
        const VersitData unreadable_empty{24, 0, 0, page.unreadable()};
        EXPECT_EQ(ConvertFromVersit(type, &unreadable_empty, record.bytes.data()), 0x80100012U);
    }
}

TEST(ConvertFromVersit, AHoleInTheMiddleOfTheTextIsFound) {
    const GuardPage page(2);  // two pages, then the hole: the text claims to go on behind it
    const VersitData in{24, 0, 2 * 4096 + 2 * 4096, page.begin()};
    AnyRecord record(64);
    EXPECT_EQ(ConvertFromVersit(1, &in, record.bytes.data()), 0x80100012U);
}

TEST(ConvertFromVersit, ARecordThatEndsInAnUnreadablePageIsToldBeforeItIsCleared) {
    const GuardPage page;
    std::string text = "BEGIN:VCALENDAR\r\n";
    const VersitData in = data_of(text);
    auto* record = page.last(150);
    const std::uint32_t size = 192;
    std::memcpy(record, &size, sizeof size);
    EXPECT_EQ(ConvertFromVersit(2, &in, record), 0x80100012U);
}

TEST(ConvertFromVersit, EmptyTextHoldsNoObject) {
    std::string empty;
    std::string nul("\0BEGIN:VCARD\r\n", 14);
    for (const std::uint32_t type : kTypes) {
        AnyRecord record(1);
        VersitData in{24, 0, 0, nullptr};
        EXPECT_EQ(ConvertFromVersit(type, &in, record.bytes.data()), 0x80800003U) << type;
        in = data_of(empty);
        EXPECT_EQ(ConvertFromVersit(type, &in, record.bytes.data()), 0x80800003U) << type;
        if (type == 3) continue;
        in = data_of(nul);
        EXPECT_EQ(ConvertFromVersit(type, &in, record.bytes.data()), 0x80800003U) << type;
    }
}

TEST(ConvertFromVersit, TheSizeOfTheInputIsNotLookedAt) {
    std::string text = "BEGIN:VBKM\r\nVERSION:1.0\r\nEND:VBKM\r\n";
    VersitData in = data_of(text);
    in.size = 7;
    in.format = 99;
    BookmarkItem item{};
    item.size = 32;
    EXPECT_EQ(ConvertFromVersit(4, &in, &item), 0U);
}

TEST(ConvertFromVersit, TextWithoutBeginLineHoldsNoObject) {
    std::string text = "VERSION:2.1\r\nTEL:1\r\n";
    std::u16string wide = u"VERSION:1.1\r\nTEL:1\r\n";
    for (const std::uint32_t type : kTypes) {
        AnyRecord record(type == 5 ? 32 : 1);  // contact groups look at the size first
        const VersitData in = type == 3 ? data_of(wide) : data_of(text);
        EXPECT_EQ(ConvertFromVersit(type, &in, record.bytes.data()), 0x80800003U) << type;
    }
}

TEST(ConvertFromVersit, ARecordOfAKnownSizeIsClearedAnyOtherKeepsItsContents) {
    std::string text = "no object here";
    std::u16string wide = u"no object here";
    for (const SizeCase& row : kSizes) {
        AnyRecord record(row.size);
        const VersitData in = row.type == 3 ? data_of(wide) : data_of(text);
        EXPECT_EQ(ConvertFromVersit(row.type, &in, record.bytes.data()), 0x80800003U);
        EXPECT_EQ(record.size(), row.size);
        EXPECT_EQ(record.is_zero_up_to(row.size), row.known) << row.type << " " << row.size;
        EXPECT_TRUE(record.is_untouched_from(row.known ? row.size : 4)) << row.type << " " << row.size;
    }
}

TEST(ConvertFromVersit, MessageTextAtAnOddAddressIsTaken) {
    std::u16string message = u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VBODY\r\nEND:VBODY\r\nEND:VMSG\r\n";
    std::vector<char> bytes(1 + message.size() * 2);
    std::memcpy(bytes.data() + 1, message.data(), message.size() * 2);
    const VersitData in{24, 0, static_cast<std::uint32_t>(message.size() * 2), bytes.data() + 1};
    AnyRecord record(64);
    EXPECT_EQ(ConvertFromVersit(3, &in, record.bytes.data()), 0U);
    EXPECT_EQ(FreeConverterData(3, record.bytes.data()), 0U);
    EXPECT_EQ(ValidateVersitData(3, &in), 0U);
}

TEST(ConvertFromVersit, AnOddLengthOfMessageTextLosesTheLastByteOnly) {
    std::u16string message = u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VBODY\r\nabc";
    VersitData in = data_of(message);
    --in.length;
    MessageItem item{};
    item.size = sizeof item;
    EXPECT_EQ(ConvertFromVersit(3, &in, &item), 0U);
    EXPECT_EQ(text_of(item.text), u"ab");
    EXPECT_EQ(FreeConverterData(3, &item), 0U);
    in.length = 1;
    EXPECT_EQ(ConvertFromVersit(3, &in, &item), 0x80800003U);
}

TEST(ConvertToVersit, ACalendarRecordThatEndsInAnUnreadablePageIsTold) {
    const GuardPage page;
    for (const std::uint32_t size : {128U, 152U, 192U}) {
        std::memcpy(page.last(size - 1), &size, sizeof size);
        VersitData out{1, 2, 3, page.begin()};
        EXPECT_EQ(ConvertToVersit(2, page.last(size - 1), &out), 0x80100012U) << size;
        EXPECT_EQ(out.size, 24U);
        EXPECT_EQ(out.format, 1U);
        EXPECT_EQ(out.length, 0U);
        EXPECT_EQ(out.text, nullptr);
    }
}

TEST(ConvertToVersit, NullItemOrOutputIsInvalidWhateverTheType) {
    AnyRecord record(32);
    VersitData out{1, 2, 3, nullptr};
    for (const std::uint32_t type : {0U, 1U, 2U, 3U, 4U, 5U, 7U}) {
        EXPECT_EQ(ConvertToVersit(type, nullptr, &out), 0x80800001U) << type;
        EXPECT_EQ(ConvertToVersit(type, record.bytes.data(), nullptr), 0x80800001U) << type;
        EXPECT_EQ(ConvertToVersit2(1, 2, 3, type, nullptr, &out), 0x80800001U) << type;
    }
    EXPECT_EQ(out.size, 1U) << "refused arguments leave the output alone";
    EXPECT_EQ(out.format, 2U);
    EXPECT_EQ(out.length, 3U);
}

TEST(ConvertToVersit, UnknownTypeIsRefusedBeforeAnythingIsRead) {
    const GuardPage page;
    for (const std::uint32_t type : kUnknownTypes) {
        EXPECT_EQ(ConvertToVersit(type, page.unreadable(), page.unreadable_as<VersitData>()), 0x80800002U);
    }
}

TEST(ConvertToVersit, UnreadableItemOrOutputIsTold) {
    const GuardPage page;
    for (const std::uint32_t type : kTypes) {
        AnyRecord record(32);
        VersitData out{};
        EXPECT_EQ(ConvertToVersit(type, page.unreadable(), &out), 0x80100012U) << type;
        EXPECT_EQ(ConvertToVersit(type, page.last(8), &out), 0x80100012U) << type;
        EXPECT_EQ(ConvertToVersit(type, record.bytes.data(), page.unreadable_as<VersitData>()), 0x80100012U);
        EXPECT_EQ(ConvertToVersit(type, record.bytes.data(), page.last_as<VersitData>(16)), 0x80100012U);
    }
}

TEST(FreeVersitData, NullAndUnreadableRecordsAreTold) {
    const GuardPage page;
    EXPECT_EQ(FreeVersitData(nullptr), 0x80100012U);
    EXPECT_EQ(FreeVersitData(page.unreadable_as<VersitData>()), 0x80100012U);
    EXPECT_EQ(FreeVersitData(page.last_as<VersitData>(8)), 0x80100012U);
}

TEST(FreeVersitData, AnotherSizeIsInvalidAndChangesNothing) {
    char text[] = "text";
    VersitData data{20, 1, 4, text};
    EXPECT_EQ(FreeVersitData(&data), 0x80800001U);
    EXPECT_EQ(data.size, 20U);
    EXPECT_EQ(data.format, 1U);
    EXPECT_EQ(data.length, 4U);
    EXPECT_EQ(data.text, text);
}

TEST(FreeVersitData, ReleasesOnceAndLeavesAllZero) {
    BookmarkItem item{};
    item.size = 32;
    VersitData data{};
    ASSERT_EQ(ConvertToVersit(4, &item, &data), 0U);
    ASSERT_NE(data.text, nullptr);
    EXPECT_EQ(FreeVersitData(&data), 0U);
    EXPECT_EQ(data.size, 0U);
    EXPECT_EQ(data.format, 0U);
    EXPECT_EQ(data.length, 0U);
    EXPECT_EQ(data.text, nullptr);
    EXPECT_EQ(FreeVersitData(&data), 0x80800001U) << "a freed record has size 0";
}

TEST(FreeVersitData, ForeignAndUnreadableTextIsLeftAlone) {
    const GuardPage page;
    char text[] = "not from the process heap";
    for (void* pointer :
         {static_cast<void*>(text), static_cast<void*>(page.unreadable()), static_cast<void*>(nullptr)}) {
        VersitData data{24, 1, 4, pointer};
        EXPECT_EQ(FreeVersitData(&data), 0U);
        EXPECT_EQ(data.size, 0U);
        EXPECT_EQ(data.text, nullptr);
    }
    EXPECT_STREQ(text, "not from the process heap");
}

TEST(FreeConverterData, UnknownTypeComesBeforeNull) {
    for (const std::uint32_t type : kUnknownTypes) EXPECT_EQ(FreeConverterData(type, nullptr), 0x80800002U);
}

TEST(FreeConverterData, NullAndUnreadableRecordsAreTold) {
    const GuardPage page;
    for (const std::uint32_t type : kTypes) {
        EXPECT_EQ(FreeConverterData(type, nullptr), 0x80100012U) << type;
        EXPECT_EQ(FreeConverterData(type, page.unreadable()), 0x80100012U) << type;
    }
}

}  // namespace
