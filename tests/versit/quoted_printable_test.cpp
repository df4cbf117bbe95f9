#include "versit/quoted_printable.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <random>
#include <string>

#include "platform/utf8.h"
#include "support/guard_page.h"

namespace vzapi::versit {
namespace {

std::string encode(std::u16string_view text) {
    std::string out;
    append_quoted_printable(text, out);
    return out;
}

std::string escape(unsigned byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return {'=', kDigits[byte / 16], kDigits[byte % 16]};
}

// The escapes of the UTF-8 bytes of one character, worked out from the definition of UTF-8.
std::string escapes_of(unsigned code_point) {
    if (code_point < 0x80) return escape(code_point);
    if (code_point < 0x800) return escape(0xC0 | code_point >> 6) + escape(0x80 | (code_point & 63));
    const std::string last_two = escape(0x80 | (code_point >> 6 & 63)) + escape(0x80 | (code_point & 63));
    if (code_point < 0x10000) return escape(0xE0 | code_point >> 12) + last_two;
    return escape(0xF0 | code_point >> 18) + escape(0x80 | (code_point >> 12 & 63)) + last_two;
}

TEST(QuotedPrintable, NeedsEncodingAsSoonAsThereIsANonAsciiUnitOrALineBreak) {
    EXPECT_FALSE(needs_encoding(u""));
    EXPECT_FALSE(needs_encoding(u"plain ASCII letters"));
    EXPECT_TRUE(needs_encoding(u"plain ASCII\r\nletters"));
    EXPECT_TRUE(needs_encoding(u"caf\u00E9"));
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const std::u16string text = u"some text" + std::u16string(1, static_cast<char16_t>(unit));
        ASSERT_EQ(needs_encoding(text), unit > 127 || unit == 13 || unit == 10) << unit;
    }
}

struct EncodeRow {
    std::u16string_view text;
    std::string_view expected;
};

constexpr EncodeRow kEncoded[] = {
    {u"", ""},
    {u"plain text, ~!;:", "plain text, ~!;:"},
    {u"a=b", "a=3Db"},
    {u"=41", "=3D41"},
    {u"\u00E9", "=C3=A9"},
    {u"a\r\nb", "a=0D=0Ab"},
    {u"\r", "=0D"},
    {u"\n", "=0A"},
    {u"\t x \t", "\t x \t"},
    {u"\u65E5\u672C", "=E6=97=A5=E6=9C=AC"},
    {u"\U0001F600!", "=F0=9F=98=80!"},
    {u"a\xD800"
     u"b",
     "a=EF=BF=BDb"},
    {u"\xDC00\xD800", "=EF=BF=BD=EF=BF=BD"},
    {u"\uFFFF", "=EF=BF=BF"},
    {u"\x7F", "=7F"},
};

TEST(QuotedPrintable, Encodes) {
    for (const EncodeRow& row : kEncoded) EXPECT_EQ(encode(row.text), row.expected);
    EXPECT_EQ(encode(std::u16string_view(u"\0", 1)), "=00");
}

TEST(QuotedPrintable, AppendsToWhatIsThere) {
    std::string out = "NOTE:";
    append_quoted_printable(u"=", out);
    append_quoted_printable(u"", out);
    append_quoted_printable(u"a", out);
    EXPECT_EQ(out, "NOTE:=3Da");
    append_escape('\t', out);
    append_escape('\xFE', out);
    EXPECT_EQ(out, "NOTE:=3Da=09=FE");
}

TEST(QuotedPrintable, NinetyFiveCharactersAreLiteral) {
    int literal = 0;
    for (char16_t unit = 0; unit < 128; ++unit) {
        const std::string encoded = encode(std::u16string(1, unit));
        const bool expected = unit == '\t' || (unit >= ' ' && unit <= '~' && unit != '=');
        EXPECT_EQ(encoded, expected ? std::string(1, static_cast<char>(unit)) : escapes_of(unit)) << +unit;
        literal += expected ? 1 : 0;
    }
    EXPECT_EQ(literal, 95);
}

TEST(QuotedPrintable, EveryOtherCharacterIsTheEscapesOfItsUtf8) {
    for (unsigned code_point = 128; code_point < 0x110000; ++code_point) {
        std::u16string text;
        if (code_point < 0x10000) {
            text = {static_cast<char16_t>(code_point)};
        } else {
            text = {static_cast<char16_t>(0xD7C0 + (code_point >> 10)),
                    static_cast<char16_t>(0xDC00 + (code_point & 0x3FF))};
        }
        const bool surrogate = code_point >= 0xD800 && code_point < 0xE000;
        ASSERT_EQ(encode(text), escapes_of(surrogate ? 0xFFFD : code_point)) << code_point;
    }
}

struct DecodeRow {
    std::string_view text;
    std::string_view expected;
};

constexpr DecodeRow kDecoded[] = {
    {"", ""},
    {"plain", "plain"},
    {"a=3Db", "a=b"},
    {"=3D=3d=C3=a9=cF", "==\xC3\xA9\xCF"},
    {"=41=42C=44", "ABCD"},
    // No escape: copied as it stands, and what follows is looked at afresh.
    {"=", "="},
    {"a=", "a="},
    {"=4", "=4"},
    {"a=4", "a=4"},
    {"=4G", "=4G"},
    {"=G4", "=G4"},
    {"==41", "=A"},
    {"=4=41", "=4A"},
    {"===", "==="},
    {"= 41", "= 41"},
    {"=x=3Dy", "=x=y"},
    {"=:0=@1=/2=`a=ga", "=:0=@1=/2=`a=ga"},
    {"=\xC3\xA9", "=\xC3\xA9"},
    // Other bytes pass, 8-bit ones and line feeds among them.
    {"\xC3\xA9\n\x80", "\xC3\xA9\n\x80"},
};

TEST(QuotedPrintable, Decodes) {
    for (const DecodeRow& row : kDecoded) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(decode_quoted_printable(row.text), row.expected);
    }
    EXPECT_EQ(decode_quoted_printable("a=00b"), std::string_view("a\0b", 3));
}

TEST(QuotedPrintable, DecodesInThePlaceOfWhatTheTextHeld) {
    std::string text = "a longer text that was there before";
    decode_quoted_printable("=C3=A9", text);
    EXPECT_EQ(text, "\xC3\xA9");
    decode_quoted_printable("", text);
    EXPECT_EQ(text, "");
}

// One character after the other, by the definition.
std::string decode_one_by_one(std::string_view text) {
    const auto is_digit = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '=' && i + 2 < text.size() && is_digit(text[i + 1]) && is_digit(text[i + 2])) {
            const std::string digits(text.substr(i + 1, 2));
            decoded += static_cast<char>(std::stoi(digits, nullptr, 16));
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

TEST(QuotedPrintable, DecodesEveryPairOfBytesBehindAnEqualsSign) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string text{'=', static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(decode_quoted_printable(text), decode_one_by_one(text)) << first << ' ' << second;
        }
    }
}

TEST(QuotedPrintable, DecodesRandomTextsByTheDefinition) {
    constexpr std::string_view kAlphabet = "==4Dda0xZ \t\n\xC3";
    std::mt19937 random(3);
    for (int round = 0; round < 50000; ++round) {
        std::string text(random() % 24, ' ');
        for (char& c : text) c = kAlphabet[random() % kAlphabet.size()];
        ASSERT_EQ(decode_quoted_printable(text), decode_one_by_one(text)) << text;
    }
}

TEST(QuotedPrintable, DecodesEveryPrefixWithoutReadingBehindIt) {
    constexpr std::string_view kText = "Stra=C3=9Fe =F0=9F=98=80=3D=3d=4";
    const test::GuardPage page;
    for (std::size_t size = 0; size <= kText.size(); ++size) {
        char* last = page.last_as<char>(size);
        if (size > 0) std::memcpy(last, kText.data(), size);
        EXPECT_EQ(decode_quoted_printable({last, size}), decode_one_by_one(kText.substr(0, size))) << size;
    }
}

TEST(QuotedPrintable, DecodingUndoesEncoding) {
    std::mt19937 random(4);
    for (int round = 0; round < 20000; ++round) {
        std::u16string text(random() % 40, u' ');
        for (char16_t& unit : text) unit = static_cast<char16_t>(random() >> (random() % 2 == 0 ? 25 : 16));
        ASSERT_EQ(decode_quoted_printable(encode(text)), platform::utf16_to_utf8(text)) << round;
    }
}

}  // namespace
}  // namespace vzapi::versit
