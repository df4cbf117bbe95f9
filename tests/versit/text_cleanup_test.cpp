#include "versit/text_cleanup.h"

#include <gtest/gtest.h>

#include <string>

namespace vzapi::versit {
namespace {

TEST(TextCleanup, RemovesControlCharactersOtherThanTabCrAndLf) {
    std::u16string every;
    std::u16string expected;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        every += static_cast<char16_t>(unit);
        const bool removed = (unit < 0x20 && unit != 9 && unit != 10 && unit != 13) || unit == 0x7F;
        if (!removed) expected += static_cast<char16_t>(unit);
    }
    EXPECT_EQ(every.size() - expected.size(), 30U);  // 29 below U+0020, and U+007F
    EXPECT_TRUE(clean_text(every) == expected);
}

struct Row {
    std::u16string_view text;
    std::u16string_view expected;
};

constexpr Row kRows[] = {
    {u"", u""},
    {u"\x1B", u""},
    {u"Dinner", u"Dinner"},
    {u"\x01"
     u"Din\x02\x03ner\x1F",
     u"Dinner"},
    {u"a\tb\r\nc", u"a\tb\r\nc"},
    {u"caf\u00E9 \u0085 \U0001F600", u"caf\u00E9 \u0085 \U0001F600"},
};

TEST(TextCleanup, KeepsEverythingElseInOrder) {
    for (const Row& row : kRows) EXPECT_TRUE(clean_text(row.text) == row.expected);
}

TEST(TextCleanup, CopiesOnlyWhatChanges) {
    for (const Row& row : kRows) {
        std::u16string storage;
        const std::u16string_view clean = clean_text(row.text, storage);
        EXPECT_TRUE(clean == row.expected);
        EXPECT_EQ(clean.data() == row.text.data(), row.text == row.expected);
    }
}

}  // namespace
}  // namespace vzapi::versit
