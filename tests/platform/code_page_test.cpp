#include "platform/code_page.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/environment.h"

namespace vzapi::platform {
namespace {

using namespace std::string_view_literals;

std::u16string decoded(CodePage code_page, std::string_view bytes) {
    std::u16string text;
    append_utf16(code_page, bytes, text);
    return text;
}

struct Row {
    const char* what;
    std::string_view bytes;
    std::u16string_view text;
};

constexpr Row kShiftJis[] = {
    {"nothing", ""sv, u""sv},
    {"ASCII", "BEGIN:VCARD\r\n"sv, u"BEGIN:VCARD\r\n"sv},
    {"NUL inside", "a\0b"sv, u"a\0b"sv},
    {"backslash and tilde", "\x5C\x7E"sv, u"\\~"sv},
    {"half-width katakana", "\xB1\xB2\xB3\xDF\xA1"sv, u"\uFF71\uFF72\uFF73\uFF9F\uFF61"sv},
    {"hiragana", "\x82\xA0\x82\xA2"sv, u"\u3042\u3044"sv},
    {"second byte 5C", "\x83\x5C\x95\x5C\x94\x5C"sv, u"\u30BD\u8868\u80FD"sv},
    {"second byte 5C before a backslash", "\x95\x5C\x5C"sv, u"\u8868\\"sv},
    {"second byte 7C", "\x83\x7C"sv, u"\u30DD"sv},
    {"wave dash", "\x81\x60"sv, u"\uFF5E"sv},
    {"circled digit", "\x87\x40"sv, u"\u2460"sv},
    {"kanji", "\x93\xFA\x96\x7B"sv, u"\u65E5\u672C"sv},
    {"highest lead bytes", "\xFA\x40\xFC\x4B"sv, u"\u2170\u9ED1"sv},
    {"wide and narrow", "A\x82\xA0\xB1z"sv, u"A\u3042\uFF71z"sv},
};

TEST(CodePage932, DecodesItsCharacters) {
    for (const Row& row : kShiftJis) EXPECT_EQ(decoded(CodePage::ShiftJis, row.bytes), row.text) << row.what;
}

TEST(CodePage932, TheStrictReadingRefusesWhatIsNotDefined) {
    for (const Row& row : kShiftJis) {
        std::u16string text = u"before ";
        EXPECT_TRUE(append_utf16_from_shift_jis(row.bytes, text)) << row.what;
        EXPECT_EQ(text, std::u16string(u"before ").append(row.text)) << row.what;
    }
    for (const std::string_view bytes :
         {"\x80"sv, "\x81"sv, "a\xFC"sv, "\x81\x20"sv, "\x81\xAD"sv, "\x85\x40"sv}) {
        std::u16string text;
        EXPECT_FALSE(append_utf16_from_shift_jis(bytes, text)) << bytes;
    }
}

// Every byte and every pair of bytes, as one number: the systems' tables are the same.
TEST(CodePage932, TheStrictReadingIsTheSameOnEverySystem) {
    std::uint32_t sum = 2166136261;
    std::size_t defined = 0;
    const auto add = [&](const std::string& bytes) {
        std::u16string text;
        if (!append_utf16_from_shift_jis(bytes, text)) text = u"\uFFFF";
        defined += text == u"\uFFFF" ? 0 : 1;
        for (const char16_t unit : text) sum = (sum ^ unit) * 16777619;
    };
    for (int first = 0; first < 0x100; ++first) {
        add({static_cast<char>(first)});
        for (int second = 0; second < 0x100; ++second)
            add({static_cast<char>(first), static_cast<char>(second)});
    }
    EXPECT_EQ(defined, 46276U);
    EXPECT_EQ(sum, 1499524507U);
}

TEST(CodePage932, RefusesNothing) {
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const std::string bytes = {'A', static_cast<char>(byte), '\x01', 'B'};
        const std::u16string text = decoded(CodePage::ShiftJis, bytes);
        EXPECT_GE(text.size(), 3U) << byte;
        EXPECT_EQ(text.front(), u'A') << byte;
        EXPECT_EQ(text.back(), u'B') << byte;
    }
    EXPECT_EQ(decoded(CodePage::ShiftJis,
                      "A\xFF"
                      "B")
                  .size(),
              3U);
}

TEST(CodePage932, ACharacterCutOffByTheEndIsOneUnit) {
    const std::u16string text = decoded(CodePage::ShiftJis, "\x82\xA0\x83");
    ASSERT_EQ(text.size(), 2U);
    EXPECT_EQ(text[0], u'\u3042');
}

TEST(CodePage932, LongTextsKeepTheirCharacters) {
    // Three bytes a time: whatever piece the conversion works on, characters lie across its borders.
    std::string bytes;
    std::u16string text;
    for (int i = 0; i < 1200000; ++i) {
        bytes += "x\x95\x5C";
        text += u"x\u8868";
    }
    EXPECT_TRUE(decoded(CodePage::ShiftJis, bytes) == text);
    EXPECT_TRUE(decoded(CodePage::ShiftJis, bytes + "x") == text + u"x");
    EXPECT_TRUE(decoded(CodePage::ShiftJis, "x" + bytes) == u"x" + text);
}

TEST(CodePageUtf8, IsTheSameOnBothSystems) {
    EXPECT_EQ(decoded(CodePage::Utf8, "Gr\xC3\xBC\xC3\x9F"), u"Gr\u00FC\u00DF");
    EXPECT_EQ(decoded(CodePage::Utf8, "\xED\xA0\x80|\xF0\x9F\x98"), u"\uFFFD\uFFFD\uFFFD|\uFFFD");
    EXPECT_EQ(decoded(CodePage::Utf8, {}), u"");
}

TEST(CodePage, AppendsBehindWhatIsThere) {
    for (const CodePage code_page : {CodePage::SystemDefault, CodePage::ShiftJis, CodePage::Utf8}) {
        std::u16string text = u"before ";
        append_utf16(code_page, "after", text);
        append_utf16(code_page, {}, text);
        EXPECT_EQ(text, u"before after");
    }
}

constexpr SystemCharset kGreek = {1253, "CP1253"};
constexpr SystemCharset kKorean = {949, "CP949"};
constexpr SystemCharset kUtf7 = {65000, "UTF-7"};
constexpr SystemCharset kNone = {1, "no-such-charset"};

TEST(SystemCharsets, ConvertBothWays) {
    struct CharsetRow {
        SystemCharset charset;
        std::string_view bytes;
        std::u16string_view text;
    };
    constexpr CharsetRow kRows[] = {
        {kGreek, "a\xC1\xE1"sv, u"a\u0391\u03B1"sv},
        {kKorean, "\xC7\xD1\xB1\xB9."sv, u"\uD55C\uAD6D."sv},
        {kUtf7, "+ZeVnLIqe-"sv, u"\u65E5\u672C\u8A9E"sv},
        {kGreek, ""sv, u""sv},
        {kUtf7, ""sv, u""sv},
    };
    for (const CharsetRow& row : kRows) {
        std::u16string text = u"<";
        EXPECT_TRUE(append_utf16(row.charset, row.bytes, text));
        EXPECT_EQ(text, u"<" + std::u16string(row.text));
        std::string bytes = "<";
        EXPECT_TRUE(append_bytes(row.charset, row.text, bytes));
        EXPECT_EQ(bytes, "<" + std::string(row.bytes));
    }
}

TEST(SystemCharsets, LongTextsKeepTheirCharacters) {
    std::string bytes;
    std::u16string text;
    for (int i = 0; i < 700000; ++i) {
        bytes += "x\xC7\xD1";
        text += u"x\uD55C";
    }
    std::u16string decoded;
    EXPECT_TRUE(append_utf16(kKorean, bytes, decoded));
    EXPECT_TRUE(decoded == text);
    std::string encoded;
    EXPECT_TRUE(append_bytes(kKorean, text, encoded));
    EXPECT_TRUE(encoded == bytes);
}

TEST(SystemCharsets, RefuseWhatTheyDoNotHaveAndAppendNothing) {
    std::string bytes = "before";
    for (const std::u16string_view text : {u"abc\u65E5"sv, u"\u65E5"sv, u"\xD800"sv}) {
        EXPECT_FALSE(append_bytes(kGreek, text, bytes));
    }
    EXPECT_FALSE(append_bytes(kNone, u"a", bytes));
    EXPECT_EQ(bytes, "before");
    std::u16string text = u"before";
    EXPECT_FALSE(append_utf16(kNone, "a", text));
    EXPECT_EQ(text, u"before");
}

TEST(SystemCodePage, HasANameAndKnowsAscii) {
    EXPECT_FALSE(system_charset().empty());
    EXPECT_EQ(decoded(CodePage::SystemDefault, "BEGIN:VCARD\r\n"), u"BEGIN:VCARD\r\n");
}

TEST(SystemCodePage, RefusesNothing) {
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const std::string bytes = {'A', static_cast<char>(byte), '\n', 'B'};
        const std::u16string text = decoded(CodePage::SystemDefault, bytes);
        EXPECT_EQ(text.front(), u'A') << byte;
        EXPECT_EQ(text.back(), u'B') << byte;
    }
}

}  // namespace
}  // namespace vzapi::platform
