#include "platform/utf8.h"

#include <gtest/gtest.h>

#include "support/failing_allocations.h"

namespace vzapi::platform {
namespace {

struct Row {
    const char* what;
    std::string_view bytes;
    std::u16string_view text;
};

using namespace std::string_view_literals;

constexpr Row kWellFormed[] = {
    {"nothing", ""sv, u""sv},
    {"ASCII", "BEGIN:VCARD\r\n\t~\x7F"sv, u"BEGIN:VCARD\r\n\t~\x7F"sv},
    {"NUL", "a\0b"sv, u"a\0b"sv},
    {"lowest of two bytes", "\xC2\x80"sv, u"\u0080"sv},
    {"highest of two bytes", "\xDF\xBF"sv, u"\u07FF"sv},
    {"lowest of three bytes", "\xE0\xA0\x80"sv, u"\u0800"sv},
    {"below the surrogates", "\xED\x9F\xBF"sv, u"\uD7FF"sv},
    {"above the surrogates", "\xEE\x80\x80"sv, u"\uE000"sv},
    {"highest of three bytes", "\xEF\xBF\xBF"sv, u"\uFFFF"sv},
    {"lowest of four bytes", "\xF0\x90\x80\x80"sv, u"\U00010000"sv},
    {"highest of four bytes", "\xF4\x8F\xBF\xBF"sv, u"\U0010FFFF"sv},
    {"byte-order mark", "\xEF\xBB\xBFx"sv, u"\uFEFFx"sv},
    {"replacement character", "\xEF\xBF\xBD"sv, u"\uFFFD"sv},
    {"mixed", "Gr\xC3\xBC\xC3\x9F \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80!"sv,
     u"Gr\u00FC\u00DF \u65E5\u672C \U0001F600!"sv},
};

TEST(Utf8, WellFormedTextCrossesBothWays) {
    for (const Row& row : kWellFormed) {
        EXPECT_EQ(utf8_to_utf16(row.bytes), row.text) << row.what;
        EXPECT_EQ(utf16_to_utf8(row.text), row.bytes) << row.what;
    }
}

// The first four are the examples of the Unicode Standard, tables 3-8 to 3-11.
constexpr Row kIllFormed[] = {
    {"not shortest", "\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41"sv,
     u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA"sv},
    {"surrogates", "\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41"sv,
     u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA"sv},
    {"other", "\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA\uFFFD\uFFFDB"sv},
    {"truncated", "\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41"sv, u"\uFFFD\uFFFD\uFFFD\uFFFDA"sv},
    {"overlong of two bytes", "\xC1\xBF"sv, u"\uFFFD\uFFFD"sv},
    {"overlong of three bytes", "\xE0\x9F\xBF"sv, u"\uFFFD\uFFFD\uFFFD"sv},
    {"overlong of four bytes", "\xF0\x8F\xBF\xBF"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    {"overlong NUL", "\xC0\x80"sv, u"\uFFFD\uFFFD"sv},
    {"lowest surrogate", "\xED\xA0\x80"sv, u"\uFFFD\uFFFD\uFFFD"sv},
    {"highest surrogate", "\xED\xBF\xBF"sv, u"\uFFFD\uFFFD\uFFFD"sv},
    {"surrogate pair", "\xED\xA0\xBD\xED\xB8\x80"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    {"above U+10FFFF", "\xF4\x90\x80\x80"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    {"lead F5", "\xF5\x80\x80\x80"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    {"five bytes", "\xF8\x88\x80\x80\x80"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    {"FE and FF", "\xFE\xFF"sv, u"\uFFFD\uFFFD"sv},
    {"lone continuation", "\x80"sv, u"\uFFFD"sv},
    {"highest lone continuation", "\xBF"sv, u"\uFFFD"sv},
    {"continuation inside", "a\x80z"sv, u"a\uFFFDz"sv},
    {"1 of 2 at the end", "a\xC3"sv, u"a\uFFFD"sv},
    {"1 of 3 at the end", "a\xE6"sv, u"a\uFFFD"sv},
    {"2 of 3 at the end", "a\xE6\x97"sv, u"a\uFFFD"sv},
    {"1 of 4 at the end", "a\xF0"sv, u"a\uFFFD"sv},
    {"2 of 4 at the end", "a\xF0\x9F"sv, u"a\uFFFD"sv},
    {"3 of 4 at the end", "a\xF0\x9F\x98"sv, u"a\uFFFD"sv},
    {"1 of 2 before ASCII", "\xC3z"sv, u"\uFFFDz"sv},
    {"2 of 3 before ASCII", "\xE6\x97z"sv, u"\uFFFDz"sv},
    {"3 of 4 before ASCII", "\xF0\x9F\x98z"sv, u"\uFFFDz"sv},
    {"3 of 4 before a character", "\xF0\x9F\x98\xC3\xBC"sv, u"\uFFFD\u00FC"sv},
    {"lead before lead", "\xC3\xC3\xBC"sv, u"\uFFFD\u00FC"sv},
    {"one continuation too many", "\xC3\xBC\xBC"sv, u"\u00FC\uFFFD"sv},
};

TEST(Utf8, EveryMaximalIllFormedPartBecomesOneReplacementCharacter) {
    for (const Row& row : kIllFormed) {
        EXPECT_EQ(utf8_to_utf16(row.bytes), row.text) << row.what;
    }
}

TEST(Utf8, IllFormedPartsAreFoundWhereverTheyStand) {
    for (const Row& row : kIllFormed) {
        for (std::size_t before = 0; before < 40; ++before) {
            const std::string bytes =
                std::string(before, 'b') + std::string(row.bytes) + std::string(40, 'e');
            const std::u16string text =
                std::u16string(before, u'b') + std::u16string(row.text) + std::u16string(40, u'e');
            ASSERT_EQ(utf8_to_utf16(bytes), text) << row.what << " after " << before;
        }
    }
}

const std::u16string_view kUnpaired[] = {
    u"\xD800"sv,
    u"\xDBFF"sv,
    u"\xDC00"sv,
    u"\xDFFF"sv,
};

TEST(Utf8, AnUnpairedSurrogateBecomesAReplacementCharacter) {
    for (const std::u16string_view unit : kUnpaired) {
        const std::u16string one(unit);
        EXPECT_EQ(utf16_to_utf8(one), "\xEF\xBF\xBD");
        EXPECT_EQ(utf16_to_utf8(u"a" + one + u"z"), "a\xEF\xBF\xBDz");
        EXPECT_EQ(utf16_to_utf8(one + u"\u65E5"), "\xEF\xBF\xBD\xE6\x97\xA5");
    }
    EXPECT_EQ(utf16_to_utf8(u"\xD83D\xD83D\xDE00"sv), "\xEF\xBF\xBD\xF0\x9F\x98\x80") << "high before a pair";
    EXPECT_EQ(utf16_to_utf8(u"\xD83D\xDE00\xDE00"sv), "\xF0\x9F\x98\x80\xEF\xBF\xBD") << "low after a pair";
    EXPECT_EQ(utf16_to_utf8(u"\xDE00\xD83D"sv), "\xEF\xBF\xBD\xEF\xBF\xBD") << "a pair the wrong way round";
}

std::u16string units_of(char32_t code_point) {
    if (code_point < 0x10000) return {static_cast<char16_t>(code_point)};
    return {static_cast<char16_t>(0xD800 + ((code_point - 0x10000) >> 10)),
            static_cast<char16_t>(0xDC00 + ((code_point - 0x10000) & 0x3FF))};
}

TEST(Utf8, EveryCodePointRoundTrips) {
    std::u16string all;
    for (char32_t code_point = 0; code_point <= 0x10FFFF; ++code_point) {
        if (code_point >= 0xD800 && code_point <= 0xDFFF) continue;
        const std::u16string text = units_of(code_point);
        const std::string bytes = utf16_to_utf8(text);
        const std::size_t size = code_point < 0x80      ? 1
                                 : code_point < 0x800   ? 2
                                 : code_point < 0x10000 ? 3
                                                        : 4;
        ASSERT_EQ(bytes.size(), size) << std::hex << static_cast<std::uint32_t>(code_point);
        ASSERT_EQ(utf8_to_utf16(bytes), text) << std::hex << static_cast<std::uint32_t>(code_point);
        all += text;
    }
    EXPECT_EQ(utf8_to_utf16(utf16_to_utf8(all)), all);
}

TEST(Utf8, EveryPrefixIsItsWholeCharactersAndOneReplacementForTheRest) {
    const std::string bytes =
        "a\xC3\xBC"
        "b\xE6\x97\xA5"
        "c\xF0\x9F\x98\x80"
        "d";
    const std::u16string prefixes[] = {u"",
                                       u"a",
                                       u"a\uFFFD",
                                       u"a\u00FC",
                                       u"a\u00FCb",
                                       u"a\u00FCb\uFFFD",
                                       u"a\u00FCb\uFFFD",
                                       u"a\u00FCb\u65E5",
                                       u"a\u00FCb\u65E5c",
                                       u"a\u00FCb\u65E5c\uFFFD",
                                       u"a\u00FCb\u65E5c\uFFFD",
                                       u"a\u00FCb\u65E5c\uFFFD",
                                       u"a\u00FCb\u65E5c\U0001F600",
                                       u"a\u00FCb\u65E5c\U0001F600d"};
    ASSERT_EQ(std::size(prefixes), bytes.size() + 1);
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        // A block of its own size, so that reading behind the end is seen.
        const std::vector<char> exact(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(utf8_to_utf16({exact.data(), size}), prefixes[size]) << size;
    }
}

// Text is turned over in pieces inside; a character on the border of two must not suffer.
TEST(Utf8, LongTextsKeepTheirCharacters) {
    for (const std::string_view character : {"\xC3\xBC"sv, "\xE6\x97\xA5"sv, "\xF0\x9F\x98\x80"sv}) {
        const std::u16string unit = utf8_to_utf16(character);
        for (std::size_t before = 0; before < 2100; ++before) {
            if (before == 40) before = 1000;
            if (before == 1050) before = 2030;
            std::string bytes(before, 'x');
            bytes.append(character).append(character).append("y");
            std::u16string text(before, u'x');
            text.append(unit).append(unit).append(u"y");
            ASSERT_EQ(utf8_to_utf16(bytes), text) << before;
            ASSERT_EQ(utf16_to_utf8(text), bytes) << before;
        }
    }
}

TEST(Utf8, LongIllFormedTextsKeepTheirPlace) {
    EXPECT_EQ(utf8_to_utf16(std::string(100000, '\xFF')), std::u16string(100000, u'\uFFFD'));
    EXPECT_EQ(utf8_to_utf16(std::string(100000, '\x80')), std::u16string(100000, u'\uFFFD'));
    EXPECT_EQ(utf8_to_utf16(std::string(100000, '\xF0')), std::u16string(100000, u'\uFFFD'));
    std::string replaced;
    for (int i = 0; i < 100000; ++i) replaced += "\xEF\xBF\xBD";
    EXPECT_EQ(utf16_to_utf8(std::u16string(100000, u'\xD800')), replaced);
    EXPECT_EQ(utf16_to_utf8(std::u16string(100000, u'\xDC00')), replaced);
}

TEST(Utf8, AppendsBehindWhatIsThere) {
    std::u16string text = u"before ";
    append_utf16_from_utf8("\xC3\xBC", text);
    append_utf16_from_utf8({}, text);
    EXPECT_EQ(text, u"before \u00FC");
    std::string bytes = "before ";
    append_utf8(u"\u00FC", bytes);
    append_utf8({}, bytes);
    EXPECT_EQ(bytes, "before \xC3\xBC");
}

TEST(Utf8, ManySmallAppendsGrowTheTextGeometrically) {
    if (!test::FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new cannot be counted here";
    std::u16string text;
    std::string bytes;
    test::FailingAllocations count(test::FailingAllocations::kNone, test::Allocations::OperatorNew);
    for (int i = 0; i < 100000; ++i) {
        append_utf16_from_utf8("\xC3\xBCx", text);
        append_utf8(u"\u00FCx", bytes);
    }
    count.stop();
    EXPECT_EQ(text.size(), 200000U);
    EXPECT_EQ(bytes.size(), 300000U);
    EXPECT_GE(count.asked(), 2U);
    EXPECT_LE(count.asked(), 60U);
}

TEST(Utf8, WellFormedTextTakesOneAllocation) {
    if (!test::FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new cannot be counted here";
    std::string bytes;
    std::u16string expected;
    for (int i = 0; i < 10000; ++i) {
        bytes += "x\xC3\xBC\xE6\x97\xA5\xF0\x9F\x98\x80";
        expected += u"x\u00FC\u65E5\U0001F600";
    }
    test::FailingAllocations to_utf16(test::FailingAllocations::kNone, test::Allocations::OperatorNew);
    const std::u16string text = utf8_to_utf16(bytes);
    to_utf16.stop();
    test::FailingAllocations to_utf8(test::FailingAllocations::kNone, test::Allocations::OperatorNew);
    const std::string back = utf16_to_utf8(text);
    to_utf8.stop();
    EXPECT_EQ(text, expected);
    EXPECT_EQ(back, bytes);
    EXPECT_EQ(to_utf16.asked(), 1U);
    EXPECT_EQ(to_utf8.asked(), 1U);
}

}  // namespace
}  // namespace vzapi::platform
