// The release of what reading a message allocated, and of records that hold anything else.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "support/guard_page.h"
#include "vmessage/message_builder.h"

namespace {

using namespace vzapi::test;

std::u16string text_with_two_numbers() {
    return written(Message{5, 1, {u"1", u"2"}, u"Hello", {2009, 3, 5, 14, 7, 9}});
}

void expect_released(const MessageItem& item) {
    EXPECT_EQ(item.size, 64U);
    EXPECT_EQ(item.text, nullptr);
    EXPECT_EQ(item.textLength, 0U);
    EXPECT_EQ(item.addresses, nullptr);
    EXPECT_EQ(item.addressCount, 0U);
}

TEST(MessageRelease, LeavesNoPointerAndMayComeTwice) {
    OwnedMessage message;
    ASSERT_EQ(message.read(text_with_two_numbers()), VZ_OK);
    ASSERT_EQ(message.item.addressCount, 2U);
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &message.item), VZ_OK);
        expect_released(message.item);
    }
}

TEST(MessageRelease, TheSizeCountsFromInterfaceVersion13On) {
    for (const std::uint32_t version : {1U, 12U, 13U, 16U}) {
        const AnnouncedVersion announced(version);
        for (const std::uint32_t size : {0U, 63U, 112U}) {
            OwnedMessage message;
            ASSERT_EQ(message.read(text_with_two_numbers()), VZ_OK);
            message.item.size = size;
            const bool refused = version >= 13;
            EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &message.item), refused ? VZ_ERR_BAD_VALUE : VZ_OK);
            EXPECT_EQ(message.item.text != nullptr, refused);
            EXPECT_EQ(message.item.addresses != nullptr, refused);
        }
    }
}

// Gives back a string that was taken out of a record.
void release_string(char16_t* string) {
    BookmarkItem bookmark{sizeof bookmark, string, nullptr, nullptr};
    EXPECT_EQ(FreeConverterData(VZ_TYPE_BOOKMARK, &bookmark), VZ_OK);
}

TEST(MessageRelease, AnyMixtureOfNullAndOwnedPointers) {
    for (unsigned mixture = 0; mixture < 16; ++mixture) {
        OwnedMessage message;
        ASSERT_EQ(message.read(text_with_two_numbers()), VZ_OK);
        MessageItem& item = message.item;
        MessageItem taken{};
        taken.size = sizeof taken;
        for (unsigned i = 0; i < 2; ++i) {
            if ((mixture >> i & 1U) != 0) release_string(std::exchange(item.addresses[i].number, nullptr));
        }
        if ((mixture & 4U) != 0) taken.text = std::exchange(item.text, nullptr);
        if ((mixture & 8U) != 0) taken.addresses = std::exchange(item.addresses, nullptr);
        for (MessageItem* record : {&item, &taken}) {
            EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, record), VZ_OK);
            expect_released(*record);
        }
    }
}

TEST(MessageRelease, UnreadablePointersAndRecords) {
    const GuardPage page;
    MessageItem item{};
    item.size = sizeof item;
    item.text = page.unreadable_as<char16_t>();
    item.textLength = 4;
    item.addresses = page.unreadable_as<MessageAddress>();
    item.addressCount = 3;
    EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &item), VZ_OK);
    expect_released(item);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, page.last(63)), VZ_ERR_POINTER);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, nullptr), VZ_ERR_POINTER);
}

TEST(MessageRelease, WhatTheLibraryDidNotAllocateIsLeftAlone) {
    MessageRecord record(Message{5, 1, {u"1", u"2"}, u"Hello", {}});
    char16_t* const number = record.addresses[0].number;
    const char16_t* const text = record.item.text;
    EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &record.item), VZ_OK);
    expect_released(record.item);
    EXPECT_EQ(record.addresses[0].number, number);
    EXPECT_EQ(std::u16string(number), u"1");
    EXPECT_EQ(std::u16string(text), u"Hello");
}

TEST(MessageRelease, TheArrayItselfTellsHowManyAddressesItHas) {
    for (const std::uint8_t count : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{255}}) {
        OwnedMessage message;
        ASSERT_EQ(message.read(text_with_two_numbers()), VZ_OK);
        message.item.addressCount = count;
        EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &message.item), VZ_OK);
        expect_released(message.item);
    }
}

TEST(MessageRelease, AnUnreadableNumberDoesNotKeepTheOthers) {
    const GuardPage page;
    OwnedMessage message;
    ASSERT_EQ(message.read(text_with_two_numbers()), VZ_OK);
    char16_t* const number = std::exchange(message.item.addresses[0].number, page.unreadable_as<char16_t>());
    EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &message.item), VZ_OK);
    expect_released(message.item);
    release_string(number);
}

}  // namespace
