#include "versit/property.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <string>

#include "support/guard_page.h"

namespace vzapi::versit {
namespace {

std::u16string widen(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

struct PartsRow {
    std::string_view line;
    std::string_view name;
    int id;
    std::string_view parameters;
    std::string_view value;
};

constexpr PartsRow kParts[] = {
    {"TEL;TYPE=CELL:+123", "TEL", 13, ";TYPE=CELL", "+123"},
    {"tel:+123", "TEL", 13, "", "+123"},
    {"item1.TEL:+123", "ITEM1.TEL", -1, "", "+123"},
    {"TEL;CELL;VOICE:+1;2:3", "TEL", 13, ";CELL;VOICE", "+1;2:3"},
    {"N:Doe;Jo;;;", "N", 4, "", "Doe;Jo;;;"},
    {"TEL", "", -1, "", ""},
    {"", "", -1, "", ""},
    {":", "", -1, "", ""},
    {":value", "", -1, "", ""},
    {":a;b:c", "", -1, "", ""},
    {";", "", -1, ";", ""},
    {";P:value", "", -1, ";P", "value"},
    {"TEL:", "TEL", 13, "", ""},
    {"TEL;", "TEL", 13, ";", ""},
    {"TEL;HOME", "TEL", 13, ";HOME", ""},
    {"TEL::", "TEL", 13, "", ":"},
    {"NOTE:a\nb", "NOTE", 17, "", "a\nb"},
    {"no name: value", "NO NAME", -1, "", " value"},
    {"TEL :1", "TEL ", -1, "", "1"},
    {"\xC3\xA9t:1", "\xC3\xA9T", -1, "", "1"},
};

TEST(Property, PartsOfALine) {
    for (const PartsRow& row : kParts) {
        SCOPED_TRACE(row.line);
        const VersitProperty line(row.line);
        EXPECT_EQ(line.text(), row.line);
        EXPECT_EQ(line.name(), row.name);
        EXPECT_EQ(static_cast<int>(line.id()), row.id);
        EXPECT_EQ(line.parameters(), row.parameters);
        EXPECT_EQ(line.value(), row.value);
    }
}

TEST(Property, PartsOfAUtf16Line) {
    for (const PartsRow& row : kParts) {
        SCOPED_TRACE(row.line);
        const std::u16string text = widen(row.line);
        const WideVersitProperty line(text);
        EXPECT_TRUE(line.name() == widen(row.name));
        EXPECT_EQ(static_cast<int>(line.id()), row.id);
        EXPECT_TRUE(line.parameters() == widen(row.parameters));
        EXPECT_TRUE(line.value() == widen(row.value));
    }
}

TEST(Property, RawNameKeepsItsCase) {
    EXPECT_EQ(VersitProperty("Item1.Tel;HOME:1").raw_name(), "Item1.Tel");
    EXPECT_TRUE(WideVersitProperty(u"x-\u00E9:1").raw_name() == u"x-\u00E9");
    EXPECT_TRUE(WideVersitProperty(u"x-\u00E9:1").name() == u"X-\u00E9");
}

TEST(Property, EachSideUsesItsOwnNameTable) {
    EXPECT_EQ(VersitProperty("NICKNAME:Bo").id(), PropertyId::None);
    EXPECT_EQ(WideVersitProperty(u"NICKNAME:Bo").id(), PropertyId::Nickname);
    EXPECT_EQ(VersitProperty("X-GENDER:1").id(), PropertyId::XGender);
    EXPECT_EQ(WideVersitProperty(u"X-GENDER:1").id(), PropertyId::None);
}

struct ParameterRow {
    std::string_view line;
    std::string_view name;
    std::optional<std::string_view> expected;
};

constexpr ParameterRow kParameters[] = {
    {"NOTE;CHARSET=UTF-8:x", "CHARSET", "UTF-8"},
    {"NOTE;charset=utf-8:x", "CHARSET", "utf-8"},
    {"NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=SHIFT_JIS:x", "CHARSET", "SHIFT_JIS"},
    {"NOTE; CHARSET = UTF-8 ;HOME:x", "CHARSET", "UTF-8"},
    {"NOTE;\tCHARSET\t=\tUTF-8\t:x", "CHARSET", "UTF-8"},
    {"NOTE;CHARSET=:x", "CHARSET", ""},
    {"NOTE;CHARSET=A;CHARSET=B:x", "CHARSET", "A"},
    {"NOTE;CHARSET=a=b:x", "CHARSET", "a=b"},
    {"NOTE;CHARSET=UTF-8", "CHARSET", "UTF-8"},
    {"NOTE;;;CHARSET=UTF-8:x", "CHARSET", "UTF-8"},
    {";CHARSET=UTF-8:x", "CHARSET", "UTF-8"},
    {"NOTE:x;CHARSET=UTF-8:y", "CHARSET", std::nullopt},
    {"NOTE:;CHARSET=UTF-8", "CHARSET", std::nullopt},
    {"NOTE;HOME:;CHARSET=UTF-8", "CHARSET", std::nullopt},
    {"NOTE;X-CHARSET=A;CHARSETS=B;CHARSE=C:x", "CHARSET", std::nullopt},
    {"NOTE;CHARSET:x", "CHARSET", std::nullopt},
    {"CHARSET=UTF-8;HOME:x", "CHARSET", std::nullopt},
    {"NOTE;LABEL=CHARSET=UTF-8:x", "CHARSET", std::nullopt},
    {":;CHARSET=UTF-8:x", "CHARSET", std::nullopt},
    {"", "CHARSET", std::nullopt},
    {"TEL;HOME;TYPE=CELL;PREF:1", "TYPE", "CELL"},
    {"TEL;HOME:1", "", "HOME"},  // a value alone is a parameter without a name
};

TEST(Property, FindsParameters) {
    for (const ParameterRow& row : kParameters) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(VersitProperty(row.line).parameter(row.name), row.expected);
    }
}

TEST(Property, FindsParametersOfAUtf16Line) {
    for (const ParameterRow& row : kParameters) {
        SCOPED_TRACE(row.line);
        const std::u16string text = widen(row.line);
        const auto found = WideVersitProperty(text).parameter(row.name);
        ASSERT_EQ(found.has_value(), row.expected.has_value());
        EXPECT_TRUE(found.value_or(u"") == widen(row.expected.value_or("")));
    }
}

struct EncodingRow {
    std::string_view line;
    Encoding expected;
};

constexpr EncodingRow kEncodings[] = {
    {"NOTE:abc", Encoding::None},
    {"", Encoding::None},
    {"7BI", Encoding::None},
    {"NOTE;ENCODING=X-FOO:abc", Encoding::Unknown},
    {"NOTE:an ENCODING", Encoding::Unknown},
    {"NOTE;ENCODING=7BIT:abc", Encoding::SevenBit},
    {"NOTE;ENCODING=8BIT:abc", Encoding::EightBit},
    {"NOTE;ENCODING=QUOTED-PRINTABLE:abc", Encoding::QuotedPrintable},
    {"NOTE;QUOTED-PRINTABLE:abc", Encoding::QuotedPrintable},
    {"PHOTO;ENCODING=BASE64:abc", Encoding::Base64},
    // The value is searched like everything else.
    {"NOTE:see 8BIT docs", Encoding::EightBit},
    {"NOTE:see 7BIT", Encoding::SevenBit},
    {"PHOTO;ENCODING=BASE64:abc7BIT", Encoding::SevenBit},
    {"7BIT", Encoding::SevenBit},
    {"BASE64", Encoding::Base64},
    // The order of the table decides, not the order in the line.
    {"NOTE;ENCODING=BASE64:QUOTED-PRINTABLE 8BIT 7BIT", Encoding::SevenBit},
    {"NOTE;ENCODING=BASE64:QUOTED-PRINTABLE 8BIT", Encoding::EightBit},
    {"NOTE;ENCODING=BASE64:QUOTED-PRINTABLE", Encoding::QuotedPrintable},
    {"NOTE;QUOTED-PRINTABLE:BASE64", Encoding::QuotedPrintable},
    {"NOTE:7BIT BASE64", Encoding::SevenBit},
    // Case as written.
    {"NOTE;ENCODING=base64:abc", Encoding::Unknown},
    {"NOTE;encoding=quoted-printable:abc", Encoding::None},
    {"NOTE;ENCODING=Quoted-Printable:abc", Encoding::Unknown},
    {"NOTE:8bit", Encoding::None},
    // Near misses.
    {"NOTE;ENCODING=B:abc", Encoding::Unknown},
    {"NOTE:7 BIT 8-BIT BASE 64 BASE6", Encoding::None},
    {"NOTE:QUOTED-PRINTABL", Encoding::None},
    {"NOTE:ENCODIN", Encoding::None},
    {"NOTE:77BIT", Encoding::SevenBit},
    {"NOTE:BASBASE64", Encoding::Base64},
    {"NOTE:QUOTED-QUOTED-PRINTABLE", Encoding::QuotedPrintable},
};

TEST(Property, EncodingIsTheFirstNameOfTheTableAnywhereInTheLine) {
    for (const EncodingRow& row : kEncodings) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(VersitProperty(row.line).encoding(), row.expected);
        const std::u16string wide = widen(row.line);
        EXPECT_EQ(WideVersitProperty(wide).encoding(), row.expected);
    }
}

TEST(Property, EncodingNamesAreFoundAtEveryPlace) {
    constexpr EncodingRow kWords[] = {
        {"7BIT", Encoding::SevenBit},    {"8BIT", Encoding::EightBit},
        {"BASE64", Encoding::Base64},    {"QUOTED-PRINTABLE", Encoding::QuotedPrintable},
        {"ENCODING", Encoding::Unknown},
    };
    for (const EncodingRow& word : kWords) {
        for (const char filler : {'.', 'B', '7', 'E', '8', 'Q', 'T'}) {
            for (std::size_t before = 0; before < 40; ++before) {
                for (std::size_t after = 0; after < 5; ++after) {
                    const std::string line =
                        std::string(before, filler) + std::string(word.line) + std::string(after, filler);
                    ASSERT_EQ(VersitProperty(line).encoding(), word.expected) << line;
                    const std::u16string wide = widen(line);
                    ASSERT_EQ(WideVersitProperty(wide).encoding(), word.expected) << line;
                }
            }
        }
    }
}

// The rule as it is told, a search for each name from the front.
Encoding searched_encoding(std::string_view line) {
    for (int id = 0; id < 4; ++id) {
        if (line.find(encoding_name(Encoding{id})) != std::string_view::npos) return Encoding{id};
    }
    return line.find("ENCODING") != std::string_view::npos ? Encoding::Unknown : Encoding::None;
}

TEST(Property, EncodingAgreesWithASearchForEachName) {
    constexpr std::string_view kPieces[] = {"7BIT", "8BIT", "QUOTED-PRINTABLE", "BASE64", "ENCODING"};
    std::mt19937 random(20);
    for (int round = 0; round < 200000; ++round) {
        std::string line;
        const std::size_t piece_count = random() % 8;
        for (std::size_t i = 0; i < piece_count; ++i) {
            const std::string_view piece = kPieces[random() % std::size(kPieces)];
            const std::size_t begin = random() % 3 == 0 ? random() % piece.size() : 0;
            const std::size_t length = random() % 3 == 0 ? random() % piece.size() : piece.size();
            line += piece.substr(begin, length);
        }
        ASSERT_EQ(VersitProperty(line).encoding(), searched_encoding(line)) << line;
    }
}

TEST(Property, UnitsThatOnlyShareTheirLowBitsNameNoEncoding) {
    for (const std::u16string_view name : {u"7BIT", u"8BIT", u"QUOTED-PRINTABLE", u"BASE64", u"ENCODING"}) {
        for (const char16_t bit : {u'\x80', u'\x100', u'\x8000'}) {
            for (std::size_t at = 0; at < name.size(); ++at) {
                std::u16string text(name);
                text[at] = static_cast<char16_t>(text[at] | bit);
                ASSERT_EQ(WideVersitProperty(text).encoding(), Encoding::None) << at;
            }
        }
    }
    EXPECT_EQ(VersitProperty("\xB7"
                             "BIT \xB8"
                             "BIT")
                  .encoding(),
              Encoding::None);
}

TEST(Property, NothingIsReadBehindTheLine) {
    constexpr std::string_view kText = "NOTE;ENCODING=BASE64;CHARSET=UTF-8:QUOTED-PRINTABLE7BIT";
    const test::GuardPage page;
    for (std::size_t size = 0; size <= kText.size(); ++size) {
        char* last = page.last_as<char>(size);
        if (size > 0) std::memcpy(last, kText.data(), size);
        const VersitProperty line(std::string_view(last, size));
        EXPECT_EQ(line.encoding(), searched_encoding(kText.substr(0, size)));
        EXPECT_EQ(line.parameter("CHARSET").has_value(), size > kText.find("CHARSET=") + 7) << size;
        EXPECT_EQ(line.value().size(), size > kText.find(':') ? size - kText.find(':') - 1 : 0);
    }
}

struct DecodedRow {
    std::string_view line;
    Encoding default_encoding;
    std::string_view expected;
};

constexpr DecodedRow kDecoded[] = {
    {"NOTE:a=3Db", Encoding::None, "a=3Db"},
    {"NOTE:a=3Db", Encoding::QuotedPrintable, "a=b"},
    {"NOTE:a=3Db", Encoding::SevenBit, "a=3Db"},
    {"NOTE:a=3Db", Encoding::EightBit, "a=3Db"},
    {"NOTE:YWJj", Encoding::Base64, "abc"},
    {"NOTE:YWJj", Encoding::Base64Default, "abc"},
    {"NOTE:YWJj", Encoding::Base64Default2, "abc"},
    {"NOTE;ENCODING=QUOTED-PRINTABLE:a=3Db", Encoding::None, "a=b"},
    {"NOTE;ENCODING=QUOTED-PRINTABLE:YWJj", Encoding::Base64, "YWJj"},
    {"NOTE;ENCODING=BASE64:YWJj", Encoding::None, "abc"},
    {"NOTE;ENCODING=BASE64:YWI", Encoding::QuotedPrintable, "ab"},
    // A line that states an encoding, known or not, is not decoded by the default.
    {"NOTE;ENCODING=X-FOO:a=3Db", Encoding::QuotedPrintable, "a=3Db"},
    {"NOTE;ENCODING=8BIT:YWJj", Encoding::Base64, "YWJj"},
    {"NOTE:see 8BIT docs", Encoding::QuotedPrintable, "see 8BIT docs"},
    {"NOTE;ENCODING=BASE64:", Encoding::None, ""},
    {"no colon", Encoding::QuotedPrintable, ""},
};

TEST(Property, DecodesTheValueByTheStatedOrElseTheDefaultEncoding) {
    for (const DecodedRow& row : kDecoded) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(decoded_value(VersitProperty(row.line), row.default_encoding), row.expected);
    }
}

}  // namespace
}  // namespace vzapi::versit
