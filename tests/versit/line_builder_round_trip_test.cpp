// What the line builder writes, the parser, the accessors and the decoders read back, for every value but the
// few that the reading rules themselves lose: each of those is named by a predicate and shown by a test.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "platform/utf8.h"
#include "versit/ascii.h"
#include "versit/charset.h"
#include "versit/line_builder.h"
#include "versit/parser.h"
#include "versit/property_line.h"
#include "versit/quoted_printable.h"

namespace vzapi::versit {
namespace {

constexpr std::size_t kWidth = 76;

// The value with U+FFFD for each unpaired surrogate: UTF-8 cannot carry those.
std::u16string repaired(std::u16string_view value) {
    return platform::utf8_to_utf16(platform::utf16_to_utf8(value));
}

// ---- The values that the reading rules lose.

bool holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string upper_utf8(std::u16string_view value) {
    return to_upper(std::string_view(platform::utf16_to_utf8(value)));
}

bool is_written_plain(std::u16string_view value, ValueForm form) {
    return form == ValueForm::Plain || (form == ValueForm::Automatic && !needs_encoding(value));
}

// The whole text is read as a bookmark, in which no soft line break is joined.
bool makes_a_bookmark(std::u16string_view value) {
    return holds(upper_utf8(value), "BEGIN:VBKM");
}

// Encoded, the value names 7BIT or 8BIT, maybe with the last digit of an escape ("=C3=A7BIT"): it is then
// not decoded.
bool is_left_encoded(std::u16string_view value) {
    std::string encoded;
    append_quoted_printable(value, encoded);
    return holds(encoded, "7BIT") || holds(encoded, "8BIT");
}

// The last '=' of a line is taken for a soft line break.
bool ends_in_an_equals_sign(std::u16string_view value) {
    return !value.empty() && value.back() == u'=';
}

// An ESC at the end of a line stands for a line feed.
bool ends_in_an_escape_character(std::u16string_view value) {
    return !value.empty() && value.back() == u'\x1B';
}

// A NUL ends the text.
bool holds_a_nul(std::u16string_view value) {
    return value.find(u'\0') != std::u16string_view::npos;
}

// The value names an encoding and is decoded by it.
bool is_decoded_by_mistake(std::u16string_view value) {
    const std::string bytes = platform::utf16_to_utf8(value);
    if (holds(bytes, "7BIT") || holds(bytes, "8BIT")) return false;
    if (holds(bytes, "QUOTED-PRINTABLE")) return decode_quoted_printable(bytes) != bytes;
    return holds(bytes, "BASE64");
}

bool is_lost_by_the_rules(std::u16string_view value, ValueForm form) {
    if (makes_a_bookmark(value)) return true;
    if (!is_written_plain(value, form)) return is_left_encoded(value);
    return ends_in_an_equals_sign(value) || ends_in_an_escape_character(value) || holds_a_nul(value) ||
           is_decoded_by_mistake(value);
}

// ---- Writing a card with one line of interest, and reading it again.

struct Written {
    std::string line;  // the physical lines that the builder wrote for it
    std::string card;
};

Written write(std::string_view name, std::string_view parameters, std::u16string_view value, ValueForm form) {
    LineBuilder alone;
    alone.property(name, parameters, value, form);
    LineBuilder card;
    card.line("BEGIN:VCARD");
    card.property(PropertyId::Version, "", std::string_view("2.1"));
    card.property(PropertyId::Fn, "", std::u16string_view(u"caf\u00E9"));
    card.property(name, parameters, value, form);
    card.property("ACTION", "", std::string_view("after"));
    card.property(PropertyId::Tel, ";CELL", std::string_view("+123"));
    card.line("END:VCARD");
    return {alone.take(), card.take()};
}

constexpr std::size_t kLineOfInterest = 3;

std::vector<std::string> expected_neighbours() {
    return {"BEGIN:VCARD",  "VERSION:2.1",   "FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:caf=C3=A9",
            "ACTION:after", "TEL;CELL:+123", "END:VCARD"};
}

// Text of a value as a reader gets it; for values without CHARSET the readers' default is left out of the
// picture.
std::u16string read_text(const VersitProperty& line) {
    return decode_text(decoded_value(line, Encoding::None), line.parameter("CHARSET").value_or("UTF-8"));
}

void expect_same_card(const std::string& card, std::string_view name, std::u16string_view value) {
    const VersitObject object = parse(card);
    std::vector<std::string> neighbours;
    for (const VersitProperty& line : object.lines()) neighbours.emplace_back(line.text());
    ASSERT_EQ(neighbours.size(), 7U) << card;
    const VersitProperty line = object.lines()[kLineOfInterest];
    neighbours.erase(neighbours.begin() + kLineOfInterest);
    ASSERT_EQ(neighbours, expected_neighbours()) << card;
    ASSERT_EQ(line.raw_name(), name) << card;
    ASSERT_TRUE(read_text(line) == repaired(value)) << card;
}

std::vector<std::string> physical_lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find("\r\n"), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 2, text.size()));
    }
    return lines;
}

// The part of a value on one physical line: only whole escapes and whole characters.
void expect_whole(std::string_view part) {
    const std::size_t last_escape = part.rfind('=');
    ASSERT_TRUE(last_escape == std::string_view::npos || last_escape + 3 <= part.size()) << part;
    const std::string bytes = decode_quoted_printable(part);
    if (bytes.empty()) return;
    ASSERT_NE(bytes.front() & 0xC0, 0x80) << part;
    ASSERT_TRUE(platform::utf16_to_utf8(platform::utf8_to_utf16(bytes)) == bytes) << part;
}

void expect_soft_breaks(const std::string& written, std::size_t head) {
    const std::vector<std::string> lines = physical_lines(written);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool first = i == 0;
        const bool last = i + 1 == lines.size();
        const std::string& line = lines[i];
        if (first && head >= kWidth && !last) {
            ASSERT_EQ(line.size(), head + 1) << written;
        } else if (!first || head <= kWidth) {
            ASSERT_LE(line.size(), kWidth) << written;
        }
        ASSERT_TRUE(last || line.back() == '=') << written;
        if (!first) {
            ASSERT_FALSE(line.empty() || is_blank(line.front())) << written;
            ASSERT_FALSE(begins_known_property(std::string_view(line))) << written;
        }
        const std::size_t begin = first ? head : 0;
        expect_whole(std::string_view(line).substr(begin, line.size() - begin - (last ? 0 : 1)));
    }
}

void expect_round_trip(std::string_view name, std::string_view parameters, std::u16string_view value,
                       ValueForm form) {
    const Written written = write(name, parameters, value, form);
    if (is_written_plain(value, form)) {
        ASSERT_EQ(physical_lines(written.line).size(), 1U);
    } else {
        const std::size_t head =
            name.size() + parameters.size() + sizeof ";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:" - 1;
        expect_soft_breaks(written.line, head);
    }
    if (!is_lost_by_the_rules(value, form)) expect_same_card(written.card, name, value);
}

// ---- The values.

struct Alphabet {
    std::string_view name;
    std::vector<std::u16string> pieces;
};

std::vector<Alphabet> alphabets() {
    return {
        {"words", {u"old ", u"devices", u", ", u"write ", u"what", u" they ", u"like."}},
        {"one letter", {u"x"}},
        {"property lines", {u"TEL:", u"END:VCARD", u"X-A:", u"item1.TEL:", u"tel;", u"FOO:", u"x", u"x-b"}},
        {"nothing but TEL:", {u"TEL:"}},
        {"extensions", {u"X-", u"X-A", u";", u":", u"-", u"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"}},
        {"equals signs", {u"="}},
        {"equals signs and digits", {u"=", u"3D", u"41", u"a", u"="}},
        {"blanks", {u" "}},
        {"tabs and blanks", {u"\t", u" ", u"x"}},
        {"line breaks", {u"\r", u"\n", u"\r\n", u"a", u" ", u"END:VCARD"}},
        {"emoji", {u"\U0001F600"}},
        {"emoji and letters", {u"\U0001F600", u"a", u"\U0001F469\u200D\U0001F467"}},
        {"surrogates", {u"\xD83D", u"\xDE00", u"a", u"\xD83D\xDE00"}},
        {"CJK", {u"\u65E5", u"\u672C", u"\u8A9E"}},
        {"two bytes", {u"\u00E9", u"\u00DF", u"e"}},
        {"controls", {std::u16string(1, u'\0'), u"\x01", u"\x1B", u"\x7F", u"a"}},
        {"encoding names",
         {u"7BIT", u"8BIT", u"QUOTED-PRINTABLE", u"BASE64", u"ENCODING=", u"=41", u" ", u"\u00E7", u"="}},
        {"names in other case", {u"quoted-printable", u"=", u"base64", u"8bit", u"\n", u" ", u"Tel:"}},
        {"everything",
         {u"TEL:", u"END:VCARD", u"X-A:", u"item1.TEL:", u"=", u" ", u"\t", u"\r", u"\n", u"\r\n",
          u"\U0001F600", u"\xD800", u"\u65E5", u"\u00E9", u"\x01", u"word", u";", u":", u"BEGIN:VBODY"}},
    };
}

std::u16string make_value(const Alphabet& alphabet, std::size_t length, std::mt19937& random) {
    std::u16string value;
    while (value.size() < length) value += alphabet.pieces[random() % alphabet.pieces.size()];
    value.resize(length);
    return value;
}

constexpr std::size_t kLongestValue = 400;

void expect_every_length(ValueForm form) {
    std::mt19937 random(76);
    for (const Alphabet& alphabet : alphabets()) {
        SCOPED_TRACE(alphabet.name);
        for (std::size_t length = 0; length <= kLongestValue; ++length) {
            for (int i = 0; i < 4; ++i) {
                const std::u16string value = make_value(alphabet, length, random);
                expect_round_trip("NOTE", i % 2 == 0 ? "" : ";HOME;PREF", value, form);
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

TEST(LineBuilderRoundTrip, QuotedPrintableValuesOfEveryLength) {
    expect_every_length(ValueForm::QuotedPrintable);
}

TEST(LineBuilderRoundTrip, AutomaticValuesOfEveryLength) {
    expect_every_length(ValueForm::Automatic);
}

// The head leaves every number of columns, down to none.
TEST(LineBuilderRoundTrip, HeadsOfEveryLength) {
    std::mt19937 random(77);
    for (const Alphabet& alphabet : alphabets()) {
        SCOPED_TRACE(alphabet.name);
        for (std::size_t length = 0; length < 90; ++length) {
            const std::string parameters = length == 0 ? "" : ";" + std::string(length, 'P');
            for (const std::size_t value_length : {0U, 1U, 2U, 3U, 12U, 40U, 100U}) {
                const std::u16string value = make_value(alphabet, value_length, random);
                expect_round_trip("X-NOTE", parameters, value, ValueForm::QuotedPrintable);
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

// Every place of a word that is special at the front of a line, against every border.
TEST(LineBuilderRoundTrip, SpecialWordsAtEveryColumn) {
    constexpr std::u16string_view kWords[] = {
        u"TEL:1", u"END:VCARD", u"X-A:b",  u"item1.TEL:1", u" blank", u"\ttab",    u"  blanks",
        u"=41",   u"\u00E9",    u"\u65E5", u"\U0001F600",  u"\r\n",   u"BASE64 B", u"\xDC00x"};
    for (const std::u16string_view word : kWords) {
        for (std::size_t before = 0; before < 170; ++before) {
            for (const std::size_t after : {std::size_t{0}, std::size_t{1}, std::size_t{80}}) {
                const std::u16string value =
                    std::u16string(before, u'x') + std::u16string(word) + std::u16string(after, u'y');
                expect_round_trip("NOTE", "", value, ValueForm::QuotedPrintable);
                if (HasFatalFailure()) return;
            }
        }
    }
}

TEST(LineBuilderRoundTrip, Base64OfEveryLength) {
    std::mt19937 random(78);
    for (std::size_t size = 0; size <= kLongestValue; ++size) {
        std::string bytes(size, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        LineBuilder builder;
        builder.line("BEGIN:VCARD");
        builder.base64("PHOTO", size % 2 == 0 ? ";ENCODING=BASE64" : ";TYPE=JPEG;ENCODING=BASE64",
                       std::as_bytes(std::span(bytes)));
        builder.property("ACTION", "", std::string_view("after"));
        builder.line("END:VCARD");
        const std::string text = builder.take();
        const VersitObject object = parse(text);
        ASSERT_EQ(object.count(), 4U) << text;
        ASSERT_EQ(decoded_value(object.lines()[1], Encoding::None), bytes) << text;
        ASSERT_EQ(object.lines()[2].text(), "ACTION:after");
    }
}

// ---- The losses, each by example.

// What a reader gets for the value: the count of lines, and the text of the one of interest.
struct ReadBack {
    std::size_t line_count;
    std::u16string text;
};

ReadBack read_back(std::u16string_view value, ValueForm form = ValueForm::Automatic) {
    const VersitObject object = parse(write("NOTE", "", value, form).card);
    if (object.count() <= kLineOfInterest) return {object.count(), {}};
    return {object.count(), read_text(object.lines()[kLineOfInterest])};
}

struct LossRow {
    bool (*lost)(std::u16string_view);
    ValueForm form;
    std::u16string_view value;
    std::u16string_view read;  // what comes back instead
};

const LossRow kLosses[] = {
    {is_left_encoded, ValueForm::Automatic, u"caf\u00E9 8BIT", u"caf=C3=A9 8BIT"},
    {is_left_encoded, ValueForm::Automatic, u"7BIT\n", u"7BIT=0A"},
    {is_left_encoded, ValueForm::Automatic, u"\u00E7BIT", u"=C3=A7BIT"},
    {ends_in_an_equals_sign, ValueForm::Automatic, u"a=", u"a"},
    {ends_in_an_equals_sign, ValueForm::Automatic, u"==", u"="},
    {ends_in_an_escape_character, ValueForm::Automatic, u"a\x1B", u"a\n"},
    {is_decoded_by_mistake, ValueForm::Automatic, u"QUOTED-PRINTABLE =41", u"QUOTED-PRINTABLE A"},
    {is_decoded_by_mistake, ValueForm::Automatic, u"BASE64", u"\x04\x04\uFFFD\uFFFD"},
};

TEST(LineBuilderRoundTrip, LossesOfTheRules) {
    for (const LossRow& row : kLosses) {
        SCOPED_TRACE(platform::utf16_to_utf8(row.value));
        EXPECT_TRUE(row.lost(row.value));
        EXPECT_TRUE(is_lost_by_the_rules(row.value, row.form));
        const ReadBack back = read_back(row.value, row.form);
        EXPECT_EQ(back.line_count, 7U);
        EXPECT_EQ(platform::utf16_to_utf8(back.text), platform::utf16_to_utf8(row.read));
    }
}

TEST(LineBuilderRoundTrip, ANulInAPlainValueEndsTheText) {
    constexpr std::u16string_view kValue(u"a\0b", 3);
    EXPECT_TRUE(holds_a_nul(kValue));
    const ReadBack back = read_back(kValue);
    EXPECT_EQ(back.line_count, kLineOfInterest + 1);
    EXPECT_TRUE(back.text == u"a");
    EXPECT_EQ(read_back(kValue, ValueForm::QuotedPrintable).line_count, 7U);
}

// Besides its '=' such a value loses the next line, unless that begins a known property.
TEST(LineBuilderRoundTrip, APlainValueThatLooksSoftlyBrokenTakesInTheNextLine) {
    const ReadBack back = read_back(u"quoted-printable=");
    EXPECT_EQ(back.line_count, 6U);
    EXPECT_TRUE(back.text == u"quoted-printableACTION:after");
}

TEST(LineBuilderRoundTrip, AMentionOfABookmarkUndoesAllSoftBreaks) {
    const std::u16string value = u"BEGIN:VBKM " + std::u16string(80, u'x') + u"\u00E9";
    EXPECT_TRUE(makes_a_bookmark(value));
    EXPECT_TRUE(makes_a_bookmark(u"begin:vbkm"));
    const ReadBack back = read_back(value);
    EXPECT_LT(back.text.size(), value.size());
    EXPECT_TRUE(value.starts_with(back.text));
}

// Values that look lost and are not.
TEST(LineBuilderRoundTrip, KeptByTheRules) {
    constexpr std::u16string_view kKept[] = {
        u"see 8BIT docs",
        u"7BIT BASE64",
        u"QUOTED-PRINTABLE",
        u"ENCODING=X",
        u"base64 8bit \u00E9",
        u"\u00E9 BASE64",
        u"\u00E9 QUOTED-PRINTABLE =41",
        u"\u00E9=",
        u"\u00E9\x1B",
        u"a=b",
        u"\x1B"
        u"a",
    };
    for (const std::u16string_view value : kKept) {
        SCOPED_TRACE(platform::utf16_to_utf8(value));
        EXPECT_FALSE(is_lost_by_the_rules(value, ValueForm::Automatic));
        const ReadBack back = read_back(value);
        EXPECT_EQ(back.line_count, 7U);
        EXPECT_EQ(platform::utf16_to_utf8(back.text), platform::utf16_to_utf8(value));
    }
}

TEST(LineBuilderRoundTrip, LineBreaksInAPlainValueMakeLines) {
    const ReadBack back = read_back(u"a\r\nURL:b", ValueForm::Plain);
    EXPECT_EQ(back.line_count, 8U);
    EXPECT_TRUE(back.text == u"a");
}

}  // namespace
}  // namespace vzapi::versit
