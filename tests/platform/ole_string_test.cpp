#include "platform/ole_string.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "platform/heap.h"
#include "support/failing_allocations.h"

namespace vzapi::platform {
namespace {

TEST(OleString, HasItsByteLengthBeforeTheFirstUnitAndAZeroUnitAfterTheLast) {
    for (const std::size_t units : {0U, 1U, 2U, 3U, 7U, 8U, 100U, 70000U}) {
        const std::u16string text(units, u'\u3042');
        const OleString string(ole_string_allocate(text));
        ASSERT_TRUE(string) << units;
        std::array<unsigned char, 4> before{};
        const auto* first = reinterpret_cast<const unsigned char*>(string.get());
        std::memcpy(before.data(), first - 4, 4);
        const std::array<unsigned char, 4> length = {
            static_cast<unsigned char>(units * 2), static_cast<unsigned char>(units * 2 >> 8),
            static_cast<unsigned char>(units * 2 >> 16), static_cast<unsigned char>(units * 2 >> 24)};
        EXPECT_EQ(before, length) << units;
        EXPECT_EQ(string.get()[units], u'\0') << units;
        EXPECT_EQ(ole_string_length(string.get()), units);
        EXPECT_EQ(string.view(), text) << units;
    }
}

TEST(OleString, KeepsZeroUnits) {
    constexpr std::u16string_view kText(u"a\0b\0", 4);
    const OleString string(ole_string_allocate(kText));
    ASSERT_TRUE(string);
    EXPECT_EQ(string.view(), kText);
}

TEST(OleString, OfNothingIsEmptyAndNotNull) {
    const OleString string(ole_string_allocate({}));
    ASSERT_TRUE(string);
    EXPECT_EQ(ole_string_length(string.get()), 0U);
    EXPECT_EQ(*string.get(), u'\0');
}

TEST(OleString, NullHasNoLengthAndNeedsNoRelease) {
    EXPECT_EQ(ole_string_length(nullptr), 0U);
    ole_string_free(nullptr);
    const OleString none;
    EXPECT_FALSE(none);
    EXPECT_TRUE(none.view().empty());
}

TEST(OleString, ALengthThatTheLengthFieldCannotHoldGivesNull) {
    // Only the length is looked at: no such text exists to be read.
    const char16_t unit = u'x';
    for (const std::size_t units : {std::size_t{0x7FFFFFFF}, std::size_t{0xFFFFFFFF},
                                    std::size_t{0x100000000}, std::size_t{0x8000000000000000}}) {
        EXPECT_EQ(ole_string_allocate({&unit, units}), nullptr) << units;
    }
}

TEST(OleString, ChangesOwnersWithoutACopy) {
    OleString first(ole_string_allocate(u"one"));
    const char16_t* address = first.get();
    OleString second(std::move(first));
    EXPECT_EQ(second.get(), address);
    OleString third(ole_string_allocate(u"three"));
    third = std::move(second);
    EXPECT_EQ(third.get(), address);
    char16_t* released = third.release();
    EXPECT_EQ(released, address);
    EXPECT_FALSE(third);
    ole_string_free(released);
}

TEST(OleString, FailsWhenTheGateSaysSo) {
    test::FailingAllocations failing(1, test::Allocations::HeapAndOle);
    const OleString first(ole_string_allocate(u"first"));
    const OleString second(ole_string_allocate(u"second"));
    failing.stop();
    EXPECT_FALSE(first);
    EXPECT_TRUE(second);
    EXPECT_EQ(failing.asked(), 2U);
}

}  // namespace
}  // namespace vzapi::platform
