#include "mms/mms_charset.h"

#include <gtest/gtest.h>

#include <random>

#include "mms/shifted_charsets.h"
#include "mms/wire_bytes.h"

namespace vzapi::mms {
namespace {

using namespace std::string_view_literals;

struct Row {
    std::uint32_t number;
    bool is_written;  // the text in this charset is the same bytes again
    std::u16string_view name;
    std::string_view bytes;
    std::u16string_view text;
};

// In the order of the numbers; a text that the charset alone reads so.
const Row kRows[] = {
    {3, true, u"us-ascii", "Hello"sv, u"Hello"},
    {4, true, u"ISO-8859-1", "Caf\xE9\x80"sv, u"Caf\u00E9\u0080"},
    {5, true, u"iso-8859-2", "\xA3\xF3\xBC"sv, u"\u0141\u00F3\u017A"},
    {6, true, u"iso-8859-3", "\xA6\xE6"sv, u"\u0124\u0109"},
    {7, true, u"iso-8859-4", "\xA2\xE0"sv, u"\u0138\u0101"},
    {8, true, u"iso-8859-5", "\xBF\xE0"sv, u"\u041F\u0440"},
    {9, true, u"iso-8859-6", "\xC7\xE4"sv, u"\u0627\u0644"},
    {10, true, u"iso-8859-7", "\xC1\xE1"sv, u"\u0391\u03B1"},
    {11, true, u"iso-8859-8", "\xF9\xEC"sv, u"\u05E9\u05DC"},
    {12, true, u"iso-8859-9", "\xD0\xFD"sv, u"\u011E\u0131"},
    {13, true, u"iso-8859-10", "\xA1\xFF"sv, u"\u0104\u0138"},
    {17, true, u"Shift_JIS", "\x93\xFA\x96\x7B\xB1"sv, u"\u65E5\u672C\uFF71"},
    {18, false, u"EUC-JP", "A\xC6\xFC\xCB\xDC\x8E\xB1"sv, u"A\u65E5\u672C\uFF71"},
    {36, true, u"ks_c_5601-1987", "\xC7\xD1"sv, u"\uD55C"},
    {37, false, u"iso-2022-kr", "\x1B$)C\x0E\x47\x51\x0F!"sv, u"\uD55C!"},
    {38, true, u"euc-kr", "\xC7\xD1\xB1\xB9"sv, u"\uD55C\uAD6D"},
    {39, false, u"iso-2022-jp", "A\x1B$B\x46\x7C\x4B\x5C\x1B(BB"sv, u"A\u65E5\u672C\x42"},
    {40, false, u"iso-2022-jp-2", "\x1B$A\x56\x50\x1B$(C\x47\x51\x1B(B"sv, u"\u4E2D\uD55C"},
    {103, true, u"unicode-1-1-utf-7", "Hi +ZeVnLIqe-"sv, u"Hi \u65E5\u672C\u8A9E"},
    {104, false, u"iso-2022-cn", "\x1B$)A\x0E\x56\x50\x0F"sv, u"\u4E2D"},
    {105, false, u"iso-2022-cn-ext", "\x1B$)A\x0E\x56\x50\x0F"sv, u"\u4E2D"},
    {106, true, u"utf-8", "Caf\xC3\xA9 \xF0\x9F\x98\x80"sv, u"Caf\u00E9 \U0001F600"},
    {109, true, u"iso-8859-13", "\xC0\xE0"sv, u"\u0104\u0105"},
    {110, true, u"iso-8859-14", "\xA1\xD0"sv, u"\u1E02\u0174"},
    {111, true, u"iso-8859-15", "\xA4\xBD"sv, u"\u20AC\u0153"},
    {112, true, u"iso-8859-16", "\xA4\xDE"sv, u"\u20AC\u021A"},
    {113, true, u"GBK", "\xD6\xD0\x81\x40"sv, u"\u4E2D\u4E02"},
    {114, true, u"GB18030", "\xD6\xD0"sv, u"\u4E2D"},
    {1000, true, u"iso-10646-ucs-2", "\x00\x43\x4E\x00"sv, u"C\u4E00"},
    {1001, true, u"iso-10646-ucs-4", "\x00\x00\x00\x43\x00\x01\xF6\x00"sv, u"C\U0001F600"},
    {1012, true, u"utf-7", "Hi +ZeVnLIqe-"sv, u"Hi \u65E5\u672C\u8A9E"},
    {1013, true, u"utf-16be", "\x00\x43\xD8\x3D\xDE\x00"sv, u"C\U0001F600"},
    {1014, true, u"utf-16le", "\x43\x00\x3D\xD8\x00\xDE"sv, u"C\U0001F600"},
    {1015, true, u"utf-16", "\x00\x43\x4E\x00"sv, u"C\u4E00"},
    {1016, true, u"cesu-8", "\xC3\xA9\xED\xA0\xBD\xED\xB8\x80"sv, u"\u00E9\U0001F600"},
    {1017, true, u"utf-32", "\x00\x00\x00\x43"sv, u"C"},
    {1018, true, u"utf-32be", "\x00\x01\xF6\x00"sv, u"\U0001F600"},
    {1019, true, u"utf-32le", "\x00\xF6\x01\x00"sv, u"\U0001F600"},
    {2009, true, u"ibm850", "\x82\xB5"sv, u"\u00E9\u00C1"},
    {2011, true, u"ibm437", "\x82\xB5"sv, u"\u00E9\u2561"},
    {2024, true, u"windows-31j", "\x87\x40"sv, u"\u2460"},
    {2025, true, u"gb2312", "\xD6\xD0"sv, u"\u4E2D"},
    {2026, true, u"big5", "\xA4\xA4\xA4\xE5"sv, u"\u4E2D\u6587"},
    {2084, true, u"koi8-r", "\xF0\xD2"sv, u"\u041F\u0440"},
    {2085, false, u"hz-gb-2312", "a~{VP~}~~"sv, u"a\u4E2D~"},
    {2086, true, u"ibm866", "\x8F\xE0"sv, u"\u041F\u0440"},
    {2088, true, u"koi8-u", "\xA4\xF0"sv, u"\u0454\u041F"},
    {2101, true, u"big5-hkscs", "\xA4\xA4\xA4\xE5"sv, u"\u4E2D\u6587"},
    {2109, true, u"windows-874", "\x80\xA1"sv, u"\u20AC\u0E01"},
    {2250, true, u"windows-1250", "\x8A\xA3"sv, u"\u0160\u0141"},
    {2251, true, u"windows-1251", "\xCF\xF0"sv, u"\u041F\u0440"},
    {2252, true, u"windows-1252", "\x80\x93\xE9"sv, u"\u20AC\u201C\u00E9"},
    {2253, true, u"windows-1253", "\xC1\xA2"sv, u"\u0391\u0386"},
    {2254, true, u"windows-1254", "\xD0\x8C"sv, u"\u011E\u0152"},
    {2255, true, u"windows-1255", "\xF9\xA4"sv, u"\u05E9\u20AA"},
    {2256, true, u"windows-1256", "\xC7\x81"sv, u"\u0627\u067E"},
    {2257, true, u"windows-1257", "\xC0\xE0"sv, u"\u0104\u0105"},
    {2258, true, u"windows-1258", "\xD0\xFE"sv, u"\u0110\u20AB"},
    {2259, true, u"tis-620", "\xA1\xE0"sv, u"\u0E01\u0E40"},
};

TEST(Charsets, EachReadsItsText) {
    for (const Row& row : kRows) EXPECT_EQ(decode_text(row.number, row.bytes), row.text) << row.number;
}

TEST(Charsets, EachHasItsNameInAnyCase) {
    for (const Row& row : kRows) {
        EXPECT_EQ(charset_of_name(row.name), row.number);
        std::u16string name(row.name);
        for (char16_t& unit : name) {
            if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - 0x20);
        }
        EXPECT_EQ(charset_of_name(name), row.number) << row.number;
    }
}

TEST(Charsets, EachWritesItsTextOrChangesToUtf8) {
    for (const Row& row : kRows) {
        std::uint32_t charset = row.number;
        const std::string bytes = encode_text(charset, row.text);
        EXPECT_EQ(charset, row.is_written ? row.number : kUtf8) << row.number;
        EXPECT_EQ(decode_text(charset, bytes), row.text) << row.number;
        // UTF-7 leaves open which characters stand for themselves.
        if (row.is_written && row.number != 1012 && row.number != 103) {
            EXPECT_EQ(bytes, row.bytes) << row.number;
        }
    }
}

TEST(Charsets, AsciiIsTheSameInAllWithUnitsOfOneByte) {
    std::u16string text;
    for (char16_t unit = 0x20; unit < 0x7F; ++unit) {
        if (unit != u'+' && unit != u'~' && unit != u'\\') text += unit;
    }
    for (const Row& row : kRows) {
        if (unit_size(row.number) != 1) continue;
        const std::string bytes(text.begin(), text.end());
        EXPECT_EQ(decode_text(row.number, bytes), text) << row.number;
    }
}

TEST(Charsets, OtherNamesAreKnownToo) {
    EXPECT_EQ(charset_of_name(u"ASCII"), kUsAscii);
    EXPECT_EQ(charset_of_name(u"latin1"), kLatin1);
    EXPECT_EQ(charset_of_name(u"Utf8"), kUtf8);
    EXPECT_EQ(charset_of_name(u"sjis"), 17U);
    EXPECT_EQ(charset_of_name(u"cp1252"), 2252U);
    EXPECT_EQ(charset_of_name(u"ucs-2"), 1000U);
    for (const std::u16string_view name :
         {u""sv, u" "sv, u"utf-9"sv, u"utf-8 utf8"sv, u"ISO-8859-"sv, u"\u0130SO-8859-1"sv}) {
        EXPECT_EQ(charset_of_name(name), std::nullopt) << narrow(name);
    }
}

TEST(Charsets, UnknownOnesAreWidenedAndWrittenAgain) {
    std::string bytes;
    std::u16string text;
    for (int byte = 1; byte < 0x100; ++byte) {
        bytes += static_cast<char>(byte);
        text += static_cast<char16_t>(byte);
    }
    for (const std::uint32_t number : {1U, 2U, 99U, 2999U, 0xFFFFFFFFU}) {
        EXPECT_EQ(decode_text(number, bytes), text);
        std::uint32_t charset = number;
        EXPECT_EQ(encode_text(charset, text), bytes);
        EXPECT_EQ(charset, number);
        encode_text(charset, u"\u0100").size();
        EXPECT_EQ(charset, kUtf8);
    }
}

TEST(Charsets, WithoutOneUtf8IsTriedFirst) {
    EXPECT_EQ(decode_text(kNoCharset, "Caf\xC3\xA9"), u"Caf\u00E9");
    EXPECT_EQ(decode_text(kNoCharset, "Caf\xE9"), u"Caf\u00E9");
    EXPECT_EQ(decode_text(kUsAscii, "Caf\xC3\xA9"), u"Caf\u00E9");
    EXPECT_EQ(decode_text(kUsAscii, "Caf\xE9"), u"Caf\u00E9");
    EXPECT_EQ(guess_charset("Cafe"), kNoCharset);
    EXPECT_EQ(guess_charset("Caf\xC3\xA9"), kUtf8);
    EXPECT_EQ(guess_charset("Caf\xE9"), kLatin1);
}

struct Utf8Row {
    std::string_view bytes;
    bool is_valid;
};

constexpr Utf8Row kUtf8Rows[] = {
    {"\xC2\x80", true},
    {"\xC1\xBF", false},
    {"\xDF\xBF", true},
    {"\xC2", false},
    {"\xC2\x41", false},
    {"\x80", false},
    {"\xE0\xA0\x80", true},
    {"\xE0\x9F\xBF", false},
    {"\xED\x9F\xBF", true},
    {"\xED\xA0\x80", false},
    {"\xEF\xBF\xBF", true},
    {"\xE2\x82", false},
    {"\xF0\x90\x80\x80", true},
    {"\xF0\x8F\xBF\xBF", false},
    {"\xF4\x8F\xBF\xBF", true},
    {"\xF4\x90\x80\x80", false},
    {"\xF5\x80\x80\x80", false},
    {"\xF0\x9F\x98", false},
    {"\xFF", false},
};

TEST(Charsets, GuessingKnowsTheLimitsOfUtf8) {
    for (const Utf8Row& row : kUtf8Rows) {
        EXPECT_EQ(guess_charset(row.bytes), row.is_valid ? kUtf8 : kLatin1)
            << shown(std::as_bytes(std::span(row.bytes)));
    }
}

struct UnitRow {
    const char* what;
    std::uint32_t charset;
    std::string_view bytes;
    std::u16string_view text;
};

const UnitRow kUnitRows[] = {
    {"big-endian mark", 1015, "\xFE\xFF\x00\x41"sv, u"A"},
    {"little-endian mark", 1015, "\xFF\xFE\x41\x00"sv, u"A"},
    {"UCS-2 with a mark", 1000, "\xFF\xFE\x41\x00"sv, u"A"},
    {"mark in the given order", 1013, "\xFE\xFF\x00\x41"sv, u"A"},
    {"mark in the other order is none", 1013, "\xFF\xFE\x00\x41"sv, u"\uFFFE\u0041"},
    {"little-endian with its mark", 1014, "\xFF\xFE\x41\x00"sv, u"A"},
    {"one mark alone", 1015, "\xFE\xFF\xFE\xFF"sv, u"\uFEFF"},
    {"half a unit", 1000, "\x00\x41\x42"sv, u"A\uFFFD"},
    {"one byte", 1000, "\x41"sv, u"\uFFFD"},
    {"nothing", 1000, ""sv, u""},
    {"NUL inside", 1000, "\x00\x41\x00\x00\x00\x42"sv, u"A\0B"sv},
    {"UTF-32 with a little-endian mark", 1017, "\xFF\xFE\x00\x00\x41\x00\x00\x00"sv, u"A"},
    {"surrogate in UTF-32", 1018, "\x00\x00\xD8\x00"sv, u"\uFFFD"},
    {"behind Unicode", 1018, "\x00\x11\x00\x00"sv, u"\uFFFD"},
    {"highest", 1018, "\x00\x10\xFF\xFF"sv, u"\U0010FFFF"},
    {"three quarters of a unit", 1018, "\x00\x00\x00"sv, u"\uFFFD"},
};

TEST(WideCharsets, MarksAndBrokenUnits) {
    for (const UnitRow& row : kUnitRows) EXPECT_EQ(decode_text(row.charset, row.bytes), row.text) << row.what;
}

TEST(WideCharsets, ATextThatBeginsLikeAMarkComesBack) {
    for (const std::uint32_t number : {1000U, 1001U, 1013U, 1014U, 1015U, 1017U, 1018U, 1019U}) {
        for (const std::u16string_view text : {u"\uFEFF"sv, u"\uFFFE"sv, u"\uFEFF\uFEFF"sv, u"\uFEFFx"sv}) {
            std::uint32_t charset = number;
            const std::string bytes = encode_text(charset, text);
            EXPECT_EQ(charset, number);
            EXPECT_EQ(decode_text(charset, bytes), text) << number;
        }
    }
}

TEST(WideCharsets, UnpairedSurrogatesLastInSixteenBitsOnly) {
    std::uint32_t charset = 1000;
    EXPECT_EQ(decode_text(1000, encode_text(charset, u"\xD800x")), u"\xD800x");
    EXPECT_EQ(charset, 1000U);
    charset = 1018;
    EXPECT_EQ(encode_text(charset, u"\xD800x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(charset, kUtf8);
}

struct ShiftedRow {
    const char* what;
    std::uint32_t charset;
    std::string_view bytes;
    std::u16string_view text;
};

const ShiftedRow kShifted[] = {
    {"katakana of seven bits", 39, "\x1B(I\x31\x32\x1B(B"sv, u"\uFF71\uFF72"},
    {"Roman letters", 39, "\x1B(JAB"sv, u"AB"},
    {"old kanji set", 39, "\x1B$@\x46\x7C"sv, u"\u65E5"},
    {"the last row and column", 39, "\x1B$B\x74\x26"sv, u"\u7199"},
    {"columns around the gap", 39, "\x1B$B\x25\x5F\x25\x60"sv, u"\u30DF\u30E0"},
    {"an even row", 39, "\x1B$B\x24\x22"sv, u"\u3042"},
    {"a set that no code page has", 39, "\x1B$(D\x30\x21\x1B(B!"sv, u"\uFFFD!"},
    {"a line ends it", 39, "\x1B$B\x46\x7C\nF|"sv, u"\u65E5\nF|"},
    {"half a character", 39, "\x1B$B\x46"sv, u"\uFFFD"},
    {"half a character before an escape", 39, "\x1B$B\x46\x1B(BA"sv, u"\uFFFD\x41"},
    {"eight bits", 39, "A\xC6"sv, u"A\uFFFD"},
    {"an escape that means nothing", 39, "\x1B[A"sv, u"\x1B[A"},
    {"Korean without designation", 37, "\x0E\x47\x51\x0F"sv, u"\uD55C"},
    {"blank between shifted characters", 37, "\x0E\x47\x51 \x47\x51\x0F"sv, u"\uD55C \uD55C"},
    {"Chinese, then a plane that no code page has", 105, "\x1B$)A\x0E\x56\x50\x1B$)E\x21\x21\x0F."sv,
     u"\u4E2D\uFFFD."},
    {"HZ line", 2085, "~{VP\nVP"sv, u"\u4E2D\nVP"},
    {"HZ line that goes on", 2085, "a~\nb"sv, u"ab"},
    {"HZ with half a character", 2085, "~{V"sv, u"\uFFFD"},
    {"HZ tilde before another", 2085, "~a"sv, u"~a"},
    {"HZ eight bits", 2085, "\xD6"sv, u"\uFFFD"},
    {"EUC three bytes", 18, "\x8F\xB0\xA1!"sv, u"\uFFFD!"},
    {"EUC cut off", 18, "\xC6"sv, u"\uFFFD"},
    {"EUC single shift without katakana", 18, "\x8E!"sv, u"\uFFFD!"},
    {"nothing", 39, ""sv, u""},
};

TEST(ShiftedCharsets, ReadWhatTheySwitchTo) {
    for (const ShiftedRow& row : kShifted) {
        EXPECT_EQ(decode_text(row.charset, row.bytes), row.text) << row.what;
    }
}

TEST(Charsets, WhatWasReadIsWrittenAndReadAgain) {
    std::mt19937 random(20261121);
    for (const Row& row : kRows) {
        for (int round = 0; round < 60; ++round) {
            std::string bytes(random() % 12, '\0');
            for (char& byte : bytes) byte = static_cast<char>(random());
            std::uint32_t charset = row.number;
            const std::u16string text = decode_text(row.number, bytes);
            const std::string written = encode_text(charset, text);
            EXPECT_EQ(decode_text(charset, written), text) << row.number;
            EXPECT_TRUE(charset == row.number || charset == kUtf8);
        }
    }
}

}  // namespace
}  // namespace vzapi::mms
