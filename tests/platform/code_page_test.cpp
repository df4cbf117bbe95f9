#include "platform/code_page.h"

#include <gtest/gtest.h>

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
