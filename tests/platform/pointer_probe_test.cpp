#include "platform/pointer_probe.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <memory>
#include <string>

#include "support/guard_page.h"
#include "support/pointer_to.h"

namespace vzapi::platform {
namespace {

using test::GuardPage;

const void* at(std::uintptr_t address) {
    return test::pointer_to<const void>(address);
}

TEST(IsReadable, MemoryInUseIs) {
    static const int in_static_memory = 1;
    const int on_the_stack = 1;
    const auto of_the_allocator = std::make_unique<int>(1);
    EXPECT_TRUE(is_readable(&in_static_memory));
    EXPECT_TRUE(is_readable(&on_the_stack));
    EXPECT_TRUE(is_readable(of_the_allocator.get()));
    EXPECT_TRUE(is_readable("literal"));
}

TEST(IsReadable, NullAndWildAddressesAreNot) {
    constexpr std::uintptr_t kHighest = std::numeric_limits<std::uintptr_t>::max();
    for (const std::uintptr_t address :
         {std::uintptr_t{0}, std::uintptr_t{1}, std::uintptr_t{7}, std::uintptr_t{8}, std::uintptr_t{0xFFF},
          kHighest, kHighest - 8, kHighest / 2 + 1, std::uintptr_t{0x00DEADBEEF000000}}) {
        EXPECT_FALSE(is_readable(at(address))) << std::hex << address;
        EXPECT_FALSE(is_readable(at(address), 0)) << std::hex << address;
        EXPECT_FALSE(is_readable(at(address), 4)) << std::hex << address;
        EXPECT_FALSE(PointerProbe().readable(at(address))) << std::hex << address;
        EXPECT_EQ(PointerProbe().text(static_cast<const char16_t*>(at(address & ~std::uintptr_t{1}))).data(),
                  nullptr)
            << std::hex << address;
    }
}

TEST(IsReadable, EveryByteUpToAnUnreadablePageIsAndNoneOfThatPage) {
    const GuardPage page;
    for (std::size_t offset = 0; offset < kPageSize; ++offset) {
        ASSERT_TRUE(is_readable(page.begin() + offset)) << offset;
        ASSERT_FALSE(is_readable(page.unreadable() + offset)) << offset;
    }
}

struct RangeRow {
    std::ptrdiff_t begin;  // relative to the unreadable page, which three readable ones come before
    std::size_t size;
    bool readable;
};

constexpr std::ptrdiff_t kPages = 3;
constexpr std::ptrdiff_t kFirst = -kPages * std::ptrdiff_t{kPageSize};

constexpr RangeRow kRanges[] = {
    {kFirst, 0, true},
    {kFirst, 1, true},
    {kFirst, kPageSize, true},
    {kFirst, kPageSize + 1, true},
    {kFirst, 3 * kPageSize, true},
    {kFirst, 3 * kPageSize + 1, false},
    {kFirst + 100, 3 * kPageSize - 100, true},
    {kFirst + 100, 3 * kPageSize - 99, false},
    {kFirst, 5 * kPageSize, false},
    {-1, 0, true},
    {-1, 1, true},
    {-1, 2, false},
    {-2, 2, true},
    {-8, 8, true},
    {-8, 9, false},
    {0, 0, false},
    {0, 1, false},
    {5, 10, false},
    {-1, std::numeric_limits<std::size_t>::max(), false},
    {kFirst, std::numeric_limits<std::size_t>::max(), false},
    {kFirst, std::numeric_limits<std::size_t>::max() / 2, false},
};

TEST(IsReadable, ARangeIsWhenAllItsPagesAre) {
    const GuardPage page(kPages);
    PointerProbe probe;
    for (int round = 0; round < 2; ++round) {  // the second from what the probe remembers
        for (const RangeRow& row : kRanges) {
            const std::byte* begin = page.unreadable() + row.begin;
            EXPECT_EQ(is_readable(begin, row.size), row.readable) << row.begin << " " << row.size;
            EXPECT_EQ(probe.readable(begin, row.size), row.readable) << row.begin << " " << row.size;
        }
    }
}

TEST(IsReadable, ARangeOfAnyNumberOfPagesIsUpToTheUnreadableOne) {
    constexpr std::size_t kReadable = 8;
    const GuardPage page(kReadable);
    for (std::size_t first = 0; first < kReadable; ++first) {
        for (std::size_t pages = 1; pages <= kReadable + 2; ++pages) {
            const std::byte* begin = page.begin() + first * kPageSize + 1;
            const std::size_t size = pages * kPageSize - 1;  // to the last byte of a page
            const bool readable = first + pages <= kReadable;
            EXPECT_EQ(is_readable(begin, size), readable) << first << " " << pages;
            EXPECT_EQ(is_readable(begin, size - kPageSize + 1), readable) << first << " " << pages;
            EXPECT_EQ(PointerProbe().readable(begin, size), readable) << first << " " << pages;
        }
    }
}

TEST(PointerProbe, TellsPagesApartThatShareASlot) {
    constexpr std::size_t kMany = 200;
    const GuardPage page(kMany);
    PointerProbe probe;
    for (int round = 0; round < 2; ++round) {
        for (std::size_t number = 0; number < kMany; ++number) {
            ASSERT_TRUE(probe.readable(page.begin() + number * kPageSize + 17)) << number;
        }
        EXPECT_FALSE(probe.readable(page.unreadable() + 17));
    }
}

TEST(PointerProbe, DoesNotAskAgainForAPageFoundReadable) {
    auto page = std::make_unique<GuardPage>(2);
    const std::byte* first = page->begin();
    PointerProbe probe;
    EXPECT_TRUE(probe.readable(first + 1));
    page.reset();
    // Only the addresses are asked about: the memory is gone.
    EXPECT_TRUE(probe.readable(first + 4000));
    EXPECT_FALSE(probe.readable(first + kPageSize));
}

// Writes `text` so that it ends, terminator included where there is one, `gap` bytes before the unreadable
// page.
const char16_t* place(const GuardPage& page, std::u16string_view text, std::size_t gap) {
    std::byte* begin = page.last(text.size() * sizeof(char16_t) + gap);
    std::memcpy(begin, text.data(), text.size() * sizeof(char16_t));
    return reinterpret_cast<const char16_t*>(begin);
}

TEST(PointerProbeText, EndsAtItsTerminator) {
    const GuardPage page(4);
    for (const std::size_t length : {1U, 2U, 15U, 2047U, 2048U, 2049U, 4096U, 5000U, 8191U - 8U}) {
        for (const std::size_t gap : {0U, 2U, 14U, 16U}) {
            std::u16string text(length, u'x');
            text.push_back(u'\0');
            const char16_t* begin = place(page, text, gap);
            const std::u16string_view found = PointerProbe().text(begin);
            EXPECT_EQ(found.data(), begin);
            EXPECT_EQ(found.size(), length) << "gap " << gap;
        }
    }
}

TEST(PointerProbeText, EndsAtAnUnreadablePage) {
    const GuardPage page(4);
    for (const std::size_t length : {1U, 2U, 15U, 2047U, 2048U, 2049U, 8192U}) {
        const std::u16string text(length, u'x');
        const std::u16string_view found = PointerProbe().text(place(page, text, 0));
        EXPECT_EQ(found, text) << length;
    }
}

TEST(PointerProbeText, MayBeginAnywhereInAPage) {
    const GuardPage page(2);
    const std::u16string text(4096, u'x');
    const char16_t* begin = place(page, text, 0);
    for (std::size_t skipped = 0; skipped < text.size(); ++skipped) {
        ASSERT_EQ(PointerProbe().text(begin + skipped).size(), text.size() - skipped);
    }
}

TEST(PointerProbeText, TellsEmptyFromUnreadable) {
    const GuardPage page;
    PointerProbe probe;
    const std::u16string_view empty = probe.text(page.last_as<char16_t>());
    EXPECT_TRUE(empty.empty());
    EXPECT_NE(empty.data(), nullptr);
    EXPECT_EQ(probe.text(nullptr).data(), nullptr);
    EXPECT_EQ(probe.text(page.unreadable_as<char16_t>()).data(), nullptr);
}

// Its address only: a char16_t at an odd address is not the test's to read.
const char16_t* odd(const std::byte* address) {
    return static_cast<const char16_t*>(static_cast<const void*>(address));
}

TEST(PointerProbeText, WholeUnitsOnlyCountAtAnOddAddress) {
    const GuardPage page(2);
    std::memset(page.begin(), 'x', 2 * kPageSize);
    PointerProbe probe;
    EXPECT_EQ(probe.text(odd(page.last(1))).data(), nullptr);
    EXPECT_EQ(probe.text(odd(page.last(3))).size(), 1U);
    EXPECT_EQ(probe.text(odd(page.last(kPageSize + 1))).size(), kPageSize / 2);
    std::memset(page.last(kPageSize + 1), 0, 2);  // a terminator with a byte on either page
    EXPECT_EQ(probe.text(odd(page.last(kPageSize + 5))).size(), 2U);
}

TEST(PointerProbeText, AtAnOddAddressIsCopiedWhereItMayBeRead) {
    const GuardPage page;
    std::byte* text = page.last(7);
    std::memcpy(text, u"ab\u00E9", 6);
    PointerProbe probe;
    std::u16string storage;
    EXPECT_EQ(probe.text(odd(text), storage), u"ab\u00E9");
    std::memset(text, 0, 2);
    const std::u16string_view empty = probe.text(odd(text), storage);
    EXPECT_TRUE(empty.empty());
    EXPECT_NE(empty.data(), nullptr);
    EXPECT_EQ(probe.text(odd(page.unreadable() + 1), storage).data(), nullptr);
    const char16_t* aligned = u"in place";
    EXPECT_EQ(probe.text(aligned, storage).data(), aligned);
}

}  // namespace
}  // namespace vzapi::platform
