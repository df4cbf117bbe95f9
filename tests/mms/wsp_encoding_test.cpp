#include "mms/wsp_encoding.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "mms/mms_charset.h"
#include "mms/mms_tables.h"
#include "mms/wire_bytes.h"
#include "support/guard_page.h"

namespace vzapi::mms {
namespace {

// What is left in the notation of wire() when the read succeeded, "failed" when it failed; a failed read must
// leave the position alone.
template <class Read>
auto read_all(const Octets& octets, Read read, std::size_t& taken) {
    CWSPEncoding reader{Bytes(octets)};
    auto result = read(reader);
    taken = reader.position();
    if (!result) {
        EXPECT_EQ(reader.position(), 0U) << shown(octets);
    }
    return result;
}

struct NumberRow {
    const char* octets;
    std::optional<std::uint64_t> value;
    std::size_t taken;
};

const NumberRow kUintvars[] = {
    {"00", 0, 1},
    {"7F", 127, 1},
    {"81 00", 128, 2},
    {"82 2C", 300, 2},
    {"FF 7F", 16383, 2},
    {"81 80 00", 16384, 3},
    {"8F FF FF FF 7F", 0xFFFFFFFF, 5},
    {"80 05", 5, 2},
    {"80 80 80 80 00", 0, 5},
    {"80 80 80 80 05 01", 5, 5},
    {"90 80 80 80 00", {}, 0},
    {"FF FF FF FF 7F", {}, 0},
    {"80 80 80 80 80 01", {}, 0},
    {"81", {}, 0},
    {"81 80 80 80", {}, 0},
    {"", {}, 0},
};

const NumberRow kShortIntegers[] = {{"80", 0, 1}, {"FF", 127, 1}, {"7F", {}, 0}, {"00", {}, 0}, {"", {}, 0}};

const NumberRow kLongIntegers[] = {
    {"01 00", 0, 2},
    {"01 FF 01", 255, 2},
    {"02 7D 00", 32000, 3},
    {"04 FF FF FF FF", 0xFFFFFFFF, 5},
    {"08 FF FF FF FF FF FF FF FF", 0xFFFFFFFFFFFFFFFF, 9},
    {"09 00 FF FF FF FF FF FF FF FF", 0xFFFFFFFFFFFFFFFF, 10},
    {"09 01 00 00 00 00 00 00 00 00", {}, 0},
    {"1E 000000000000000000000000000000000000000000000000000000000102", 258, 31},
    {"1E 010000000000000000000000000000000000000000000000000000000000", {}, 0},
    {"1F 00000000000000000000000000000000000000000000000000000000000001", {}, 0},
    {"00", {}, 0},
    {"02 7D", {}, 0},
    {"80", {}, 0},
    {"", {}, 0},
};

const NumberRow kValueLengths[] = {
    {"00", 0, 1},
    {"1E", 30, 1},
    {"1F 1F", 31, 2},
    {"1F 05", 5, 2},
    {"1F 81 00", 128, 3},
    {"1F", {}, 0},
    {"1F 81", {}, 0},
    {"20", {}, 0},
    {"1F 80 05", 5, 3},
    {"80", {}, 0},
    {"1F 90 80 80 80 00", {}, 0},
    {"1F 8F FF FF FF 7F", 0xFFFFFFFF, 6},
    {"", {}, 0},
};

template <class Read>
void expect_numbers(std::span<const NumberRow> rows, Read read) {
    for (const NumberRow& row : rows) {
        std::size_t taken = 0;
        const auto value = read_all(wire(row.octets), read, taken);
        ASSERT_EQ(value.has_value(), row.value.has_value()) << row.octets;
        if (value) {
            EXPECT_EQ(std::uint64_t{*value}, *row.value) << row.octets;
        }
        EXPECT_EQ(taken, row.taken) << row.octets;
    }
}

TEST(WspReader, Uintvar) {
    expect_numbers(kUintvars, [](CWSPEncoding& reader) { return reader.uintvar(); });
}

TEST(WspReader, ShortInteger) {
    expect_numbers(kShortIntegers, [](CWSPEncoding& reader) { return reader.short_integer(); });
}

TEST(WspReader, LongInteger) {
    expect_numbers(kLongIntegers, [](CWSPEncoding& reader) { return reader.long_integer(); });
}

TEST(WspReader, IntegerIsEither) {
    constexpr auto kRead = [](CWSPEncoding& reader) { return reader.integer(); };
    const NumberRow rows[] = {{"80", 0, 1}, {"FF", 127, 1}, {"01 80", 128, 2}, {"20", {}, 0}, {"", {}, 0}};
    expect_numbers(rows, kRead);
}

TEST(WspReader, SmallIntegerHas32Bits) {
    constexpr auto kRead = [](CWSPEncoding& reader) { return reader.small_integer(); };
    const NumberRow rows[] = {{"EA", 106, 1},
                              {"02 03 E8", 1000, 3},
                              {"04 FF FF FF FF", 0xFFFFFFFF, 5},
                              {"05 01 00 00 00 00", {}, 0},
                              {"", {}, 0}};
    expect_numbers(rows, kRead);
}

TEST(WspReader, ValueLength) {
    expect_numbers(kValueLengths, [](CWSPEncoding& reader) { return reader.value_length(); });
}

TEST(WspReader, MeasuredBytesMustBeThere) {
    struct Row {
        const char* octets;
        std::optional<std::string> value;
    };
    const Row rows[] = {
        {"00", ""},         {"02 'ab'", "ab"}, {"1F 02 'ab'", "ab"},           {"03 'ab'", {}},
        {"1F 03 'ab'", {}}, {"20", {}},        {"1F 8F FF FF FF 7F 'ab'", {}}, {"", {}}};
    for (const Row& row : rows) {
        std::size_t taken = 0;
        const Octets octets = wire(row.octets);
        const auto value = read_all(
            octets, [](CWSPEncoding& reader) { return reader.measured(); }, taken);
        ASSERT_EQ(value.has_value(), row.value.has_value()) << row.octets;
        if (value) {
            EXPECT_EQ(characters_of(*value), *row.value) << row.octets;
        }
    }
}

struct TextRow {
    const char* octets;
    std::optional<std::string> string;  // text_string()
    std::optional<std::string> text;    // text()
};

const TextRow kTexts[] = {
    {"00", "", ""},
    {"'abc' 00 'd'", "abc", "abc"},
    {"7F C3 A9 00", "\xC3\xA9", "\xC3\xA9"},
    {"C3 A9 00", "\xC3\xA9", "\xC3\xA9"},
    {"7F 'abc' 00", "abc", "abc"},
    {"7F 7F 'a' 00",
     "\x7F"
     "a",
     "\x7F"
     "a"},
    {"7F 00", "", ""},
    {"'\"abc' 00", "\"abc", "abc"},
    {"'\"abc\"' 00", "\"abc\"", "abc"},
    {"'\"' 00", "\"", ""},
    {"'\"\"' 00", "\"\"", ""},
    {"7F '\"a\"' 00", "\"a\"", "\"a\""},
    {"'a\"' 00", "a\"", "a\""},
    {"'abc'", {}, {}},
    {"7F", {}, {}},
    {"", {}, {}},
};

TEST(WspReader, Texts) {
    for (const TextRow& row : kTexts) {
        const Octets octets = wire(row.octets);
        std::size_t taken = 0;
        const auto string = read_all(
            octets, [](CWSPEncoding& reader) { return reader.text_string(); }, taken);
        EXPECT_EQ(string, row.string) << row.octets;
        const auto text = read_all(
            octets, [](CWSPEncoding& reader) { return reader.text(); }, taken);
        EXPECT_EQ(text, row.text) << row.octets;
    }
}

TEST(WspReader, BytesAndOctetsStopAtTheEnd) {
    const Octets octets = wire("01 02");
    CWSPEncoding reader{Bytes(octets)};
    EXPECT_EQ(reader.bytes(3), std::nullopt);
    EXPECT_EQ(reader.peek(), 1);
    EXPECT_EQ(reader.octet(), 1);
    EXPECT_EQ(reader.bytes(1)->size(), 1U);
    EXPECT_TRUE(reader.at_end());
    EXPECT_EQ(reader.peek(), std::nullopt);
    EXPECT_EQ(reader.octet(), std::nullopt);
    EXPECT_EQ(reader.bytes(static_cast<std::size_t>(-1)), std::nullopt);
    EXPECT_EQ(reader.bytes(0)->size(), 0U);
}

TEST(WspReader, SkipsByTheFirstOctet) {
    struct Row {
        const char* octets;
        std::optional<std::size_t> size;
    };
    const Row rows[] = {{"00 01", 1}, {"02 01 02 03", 3}, {"1F 02 01 02 03", 4}, {"'ab' 00 01", 3},
                        {"7F 00", 2}, {"80 01", 1},       {"FF 01", 1},          {"02 01", {}},
                        {"1F", {}},   {"1F 02 01", {}},   {"'ab'", {}},          {"", {}}};
    for (const Row& row : rows) {
        const Octets octets = wire(row.octets);
        std::size_t taken = 0;
        const auto value = read_all(
            octets, [](CWSPEncoding& reader) { return reader.skip_value(); }, taken);
        ASSERT_EQ(value.has_value(), row.size.has_value()) << row.octets;
        if (value) {
            EXPECT_EQ(value->size(), *row.size) << row.octets;
            EXPECT_EQ(taken, *row.size);
        }
    }
}

struct EncodedRow {
    const char* what;
    const char* octets;
    std::uint32_t charset;
    std::u16string text;
    const char* written;  // null: the same octets
};

const EncodedRow kEncoded[] = {
    {"empty", "00", 0, u"", nullptr},
    {"ASCII", "'Cafe' 00", 0, u"Cafe", nullptr},
    {"quote before ASCII", "7F 'Cafe' 00", 0, u"Cafe", "'Cafe' 00"},
    {"quotation marks are text", "'\"a\"' 00", 0, u"\"a\"", nullptr},
    {"a line break first", "7F 0A 'a' 00", 0, u"\na", nullptr},
    {"a quote as text", "7F 7F 'a' 00", 0,
     u"\x7F"
     u"a",
     nullptr},
    {"UTF-8 without a charset", "'Caf' C3 A9 00", 106, u"Caf\u00E9", "07 EA 'Caf' C3 A9 00"},
    {"quoted UTF-8 without a charset", "7F C3 A9 00", 106, u"\u00E9", "05 EA 7F C3 A9 00"},
    {"ISO-8859-1 without a charset", "'Caf' E9 00", 4, u"Caf\u00E9", "06 84 'Caf' E9 00"},
    {"UTF-8", "07 EA 'Caf' C3 A9 00", 106, u"Caf\u00E9", nullptr},
    {"quoted UTF-8", "05 EA 7F C3 A9 00", 106, u"\u00E9", nullptr},
    {"UTF-8 without its quote", "04 EA C3 A9 00", 106, u"\u00E9", "05 EA 7F C3 A9 00"},
    {"ill-formed UTF-8", "03 EA C3 00", 106, u"\uFFFD", "06 EA 7F EF BF BD 00"},
    {"empty UTF-8", "02 EA 00", 106, u"", nullptr},
    {"charset alone", "01 EA", 106, u"", "02 EA 00"},
    {"no NUL at the end", "03 EA 'ab'", 106, u"ab", "04 EA 'ab' 00"},
    {"bytes behind the NUL", "05 EA 'a' 00 'bc'", 106, u"a", "03 EA 'a' 00"},
    {"the long length", "1F 05 EA 'abc' 00", 106, u"abc", "05 EA 'abc' 00"},
    {"US-ASCII", "05 83 'abc' 00", 3, u"abc", nullptr},
    {"US-ASCII with eight bits", "04 83 'a' E9 00", 4, u"a\u00E9", "04 84 'a' E9 00"},
    {"US-ASCII that is UTF-8", "05 83 'a' C3 A9 00", 106, u"a\u00E9", "05 EA 'a' C3 A9 00"},
    {"any charset", "04 80 'ab' 00", 0, u"ab", "'ab' 00"},
    {"a length without a charset", "04 'abc' 00", 0, u"abc", "'abc' 00"},
    {"ISO-8859-1", "03 84 E9 00", 4, u"\u00E9", "04 84 7F E9 00"},
    {"Big5", "06 02 07 EA A4 A4 00", 2026, u"\u4E2D", "07 02 07 EA 7F A4 A4 00"},
    {"EUC-JP", "04 92 C6 FC 00", 106, u"\u65E5", "06 EA 7F E6 97 A5 00"},
    {"unknown charset", "04 81 'a' E9 00", 1, u"a\u00E9", nullptr},
    {"UCS-2 with two NULs", "09 02 03 E8 00 'C' 4E 00 00 00", 1000, u"C\u4E00", nullptr},
    {"UCS-2 with one NUL", "08 02 03 E8 00 'C' 4E 00 00", 1000, u"C\u4E00", "09 02 03 E8 00 'C' 4E 00 00 00"},
    {"UCS-2 without NUL", "07 02 03 E8 00 'C' 00 'D'", 1000, u"CD", "09 02 03 E8 00 'C' 00 'D' 00 00"},
    {"UCS-2 with a mark", "09 02 03 E8 FE FF 00 'C' 00 00", 1000, u"C", "07 02 03 E8 00 'C' 00 00"},
    {"UCS-2 with a quote", "08 02 03 E8 7F 97 E5 00 00", 1000, u"\u97E5", nullptr},
    {"UCS-2 without its quote", "07 02 03 E8 97 E5 00 00", 1000, u"\u97E5", "08 02 03 E8 7F 97 E5 00 00"},
    {"UCS-2 that begins like a quote", "07 02 03 E8 7F 8E 00 00", 1000, u"\u7F8E",
     "08 02 03 E8 7F 7F 8E 00 00"},
    {"and with its quote", "08 02 03 E8 7F 7F 8E 00 00", 1000, u"\u7F8E", nullptr},
    {"and with one NUL", "06 02 03 E8 7F 8E 00", 1000, u"\u7F8E", "08 02 03 E8 7F 7F 8E 00 00"},
    {"and with its quote and one NUL", "07 02 03 E8 7F 7F 8E 00", 1000, u"\u7F8E",
     "08 02 03 E8 7F 7F 8E 00 00"},
    {"empty UCS-2", "05 02 03 E8 00 00", 1000, u"", nullptr},
    {"UTF-16LE", "09 02 03 F6 'C' 00 00 4E 00 00", 1014, u"C\u4E00", nullptr},
    {"UTF-16LE with one NUL", "06 02 03 F6 'C' 00 00", 1014, u"C", "07 02 03 F6 'C' 00 00 00"},
    {"UTF-32", "0B 02 03 FA 00 01 F6 00 00 00 00 00", 1018, u"\U0001F600", nullptr},
};

TEST(EncodedText, EachFormIsReadAndWritten) {
    for (const EncodedRow& row : kEncoded) {
        const Octets octets = wire(row.octets);
        std::size_t taken = 0;
        const auto text = read_all(
            octets, [](CWSPEncoding& reader) { return reader.encoded_text(); }, taken);
        ASSERT_TRUE(text) << row.what;
        EXPECT_EQ(taken, octets.size()) << row.what;
        EXPECT_EQ(text->charset, row.charset) << row.what;
        EXPECT_EQ(text->text, row.text) << row.what;
        WspWriter writer;
        writer.encoded_text(text->charset, text->text);
        EXPECT_EQ(shown(writer.bytes()), shown(wire(row.written != nullptr ? row.written : row.octets)))
            << row.what;
        CWSPEncoding again{Bytes(writer.bytes())};
        const auto second = again.encoded_text();
        ASSERT_TRUE(second) << row.what;
        EXPECT_EQ(second->charset, row.charset) << row.what;
        EXPECT_EQ(second->text, row.text) << row.what;
    }
}

TEST(EncodedText, EmbeddedNulsOfSixteenBitTextStay) {
    const Octets octets = wire("0B 02 03 E8 00 'A' 00 00 00 'B' 00 00");
    CWSPEncoding reader{Bytes(octets)};
    const auto text = reader.encoded_text();
    ASSERT_TRUE(text);
    EXPECT_EQ(text->text, std::u16string(u"A\0B", 3));
}

TEST(EncodedText, IsRefusedWhenCutOffOrWithoutCharset) {
    for (const char* octets : {"", "'abc'", "05 EA 'ab' 00", "1F", "1F 05 EA", "03 1F 'a' 00", "03 00 'a' 00",
                               "0A 08 01 00 00 00 00 00 00 00 00"}) {
        std::size_t taken = 0;
        const auto text = read_all(
            wire(octets), [](CWSPEncoding& reader) { return reader.encoded_text(); }, taken);
        EXPECT_FALSE(text) << octets;
    }
}

TEST(EncodedText, IsWrittenUpToItsFirstNul) {
    for (const std::uint32_t charset : {0U, 106U, 1000U}) {
        WspWriter one;
        one.encoded_text(charset, std::u16string_view(u"A\0B", 3));
        WspWriter other;
        other.encoded_text(charset, u"A");
        EXPECT_EQ(shown(one.bytes()), shown(other.bytes()));
    }
}

Parameter parameter(std::u16string_view name, Value value) {
    return {std::u16string(name), std::move(value)};
}

struct TypeRow {
    const char* what;
    const char* octets;
    std::u16string media;
    std::uint32_t charset;
    std::vector<Parameter> parameters;
    const char* written;  // null: the same octets
};

const Octets kRawLevel = wire("02 01 02");
const Octets kRawNumber = wire("'x' 00");
const Octets kRawOctet = wire("85");

const TypeRow kTypes[] = {
    {"a number", "9E", u"image/jpeg", 0, {}, nullptr},
    {"any type", "80", u"*/*", 0, {}, nullptr},
    {"a text", "'application/smil' 00", u"application/smil", 0, {}, nullptr},
    {"a text that has a number", "'Text/Plain' 00", u"text/plain", 0, {}, "83"},
    {"a misspelt one", "'multipart/byterantes' 00", u"multipart/byteranges", 0, {}, "8E"},
    {"a number without a name", "D9", u"application/x-wsp-59", 0, {}, nullptr},
    {"a length", "01 83", u"text/plain", 0, {}, "83"},
    {"a registered number", "03 02 03 05", u"text/calendar", 0, {}, nullptr},
    {"a registered number without a name", "03 02 02 01", u"application/x-wsp-201", 0, {}, nullptr},
    {"a charset", "03 83 81 EA", u"text/plain", 106, {}, nullptr},
    {"a long charset", "05 83 81 02 03 E8", u"text/plain", 1000, {}, nullptr},
    {"an unknown charset", "05 83 81 02 0B B8", u"text/plain", 3000, {}, nullptr},
    {"a charset by name", "08 83 81 'utf-8' 00", u"text/plain", 106, {}, "03 83 81 EA"},
    {"a named charset by name", "0F 83 'Charset' 00 'UTF-8' 00", u"text/plain", 106, {}, "03 83 81 EA"},
    {"a named charset by number", "0A 83 'charset' 00 EA", u"text/plain", 106, {}, "03 83 81 EA"},
    {"a charset of no known name",
     "06 83 81 'xyz' 00",
     u"text/plain",
     0,
     {parameter(u"charset", text(u"xyz"))},
     nullptr},
    {"any charset", "03 83 81 80", u"text/plain", 0, {parameter(u"charset", number(0))}, nullptr},
    {"two charsets", "05 83 81 EA 81 84", u"text/plain", 106, {parameter(u"charset", number(4))}, nullptr},
    {"MIME's own form", "'text/plain; charset=UTF-8' 00", u"text/plain", 106, {}, "03 83 81 EA"},
    {"MIME's own form with a name",
     "'text/plain;charset=\"us-ascii\" ;NAME=\"a;b.txt\"' 00",
     u"text/plain",
     3,
     {parameter(u"name", text(u"a;b.txt"))},
     "0C 83 81 83 85 'a;b.txt' 00"},
    {"MIME's own form behind a length",
     "1F 1C 'text/plain;charset=utf-8' 00 85 'a' 00",
     u"text/plain",
     106,
     {parameter(u"name", text(u"a"))},
     "06 83 81 EA 85 'a' 00"},
    {"MIME parameters without a value",
     "'text/plain;x;y=;=z;' 00",
     u"text/plain",
     0,
     {parameter(u"x", Value{}), parameter(u"y", Value{})},
     "07 83 'x' 00 00 'y' 00 00"},
    {"related",
     "18 B3 89 'application/smil' 00 8A '<s>' 00",
     u"application/vnd.wap.multipart.related",
     0,
     {parameter(u"type", text(u"application/smil")), parameter(u"start", text(u"<s>"))},
     nullptr},
    {"the second set",
     "0E B3 89 83 99 '<s>' 00 97 'n' 00 9A 'i' 00",
     u"application/vnd.wap.multipart.related",
     0,
     {parameter(u"type", text(u"text/plain")), parameter(u"start", text(u"<s>")),
      parameter(u"name", text(u"n")), parameter(u"start-info", text(u"i"))},
     "0E B3 89 83 8A '<s>' 00 85 'n' 00 8B 'i' 00"},
    {"quoted name",
     "07 9E 97 '\"a.b' 00",
     u"image/jpeg",
     0,
     {parameter(u"name", text(u"a.b"))},
     "06 9E 85 'a.b' 00"},
    {"name with a quotation mark",
     "07 9E 85 7F '\"ab' 00",
     u"image/jpeg",
     0,
     {parameter(u"name", text(u"\"ab"))},
     nullptr},
    {"name in UTF-8",
     "06 9E 85 7F C3 A9 00",
     u"image/jpeg",
     0,
     {parameter(u"name", text(u"\u00E9"))},
     nullptr},
    {"name in UTF-8 without its quote",
     "05 9E 85 C3 A9 00",
     u"image/jpeg",
     0,
     {parameter(u"name", text(u"\u00E9"))},
     "06 9E 85 7F C3 A9 00"},
    {"empty name", "03 9E 85 00", u"image/jpeg", 0, {parameter(u"name", text(u""))}, nullptr},
    {"named parameters",
     "1F 11 9E 'x-a' 00 'b' 00 'x-c' 00 85 'x-d' 00 00",
     u"image/jpeg",
     0,
     {parameter(u"x-a", text(u"b")), parameter(u"x-c", number(5)), parameter(u"x-d", Value{})},
     "11 9E 'x-a' 00 'b' 00 'x-c' 00 85 'x-d' 00 00"},
    {"named empty text", "05 9E 'x' 00 7F 00", u"image/jpeg", 0, {parameter(u"x", text(u""))}, nullptr},
    {"a name at the end", "03 9E 'x' 00", u"image/jpeg", 0, {parameter(u"x", Value{})}, "04 9E 'x' 00 00"},
    {"named known parameter",
     "08 9E 'Name' 00 'a' 00",
     u"image/jpeg",
     0,
     {parameter(u"name", text(u"a"))},
     "04 9E 85 'a' 00"},
    {"unknown number",
     "1F 04 9E 84 'x' 00",
     u"image/jpeg",
     0,
     {parameter(u"0x04", raw(kRawNumber))},
     "04 9E 84 'x' 00"},
    {"value of another form",
     "05 9E 82 02 01 02",
     u"image/jpeg",
     0,
     {parameter(u"0x02", raw(kRawLevel))},
     nullptr},
    {"name that is an octet", "03 9E 85 85", u"image/jpeg", 0, {parameter(u"0x05", raw(kRawOctet))}, nullptr},
    {"a quality of too many octets", "08 9E 80 93 9B FF FF FB 7F", u"image/jpeg", 0, {}, "9E"},
    {"eight-bit text without its NUL", "04 9E 85 C3 A9", u"image/jpeg", 0, {}, "9E"},
    {"what can be no parameter", "04 9E 05 'ab'", u"image/jpeg", 0, {}, "9E"},
    {"text type of a number", "03 9E 83 85", u"image/jpeg", 0, {parameter(u"type", number(5))}, nullptr},
};

// Each number once, with a canonical value.
const TypeRow kParameterRows[] = {
    {"q", "03 9E 80 0B", u"image/jpeg", 0, {parameter(u"q", number(11))}, nullptr},
    {"q of two octets", "04 9E 80 81 64", u"image/jpeg", 0, {parameter(u"q", number(228))}, nullptr},
    {"level", "03 9E 82 90", u"image/jpeg", 0, {parameter(u"level", number(0x10))}, nullptr},
    {"level as text", "06 9E 82 '1.0' 00", u"image/jpeg", 0, {parameter(u"level", text(u"1.0"))}, nullptr},
    {"type", "03 9E 83 87", u"image/jpeg", 0, {parameter(u"type", number(7))}, nullptr},
    {"name", "04 9E 85 'a' 00", u"image/jpeg", 0, {parameter(u"name", text(u"a"))}, nullptr},
    {"filename", "04 9E 86 'a' 00", u"image/jpeg", 0, {parameter(u"filename", text(u"a"))}, nullptr},
    {"differences", "03 9E 87 8E", u"image/jpeg", 0, {parameter(u"differences", number(14))}, nullptr},
    {"padding", "03 9E 88 81", u"image/jpeg", 0, {parameter(u"padding", number(1))}, nullptr},
    {"multipart type", "03 9E 89 83", u"image/jpeg", 0, {parameter(u"type", text(u"text/plain"))}, nullptr},
    {"start", "04 9E 8A 'a' 00", u"image/jpeg", 0, {parameter(u"start", text(u"a"))}, nullptr},
    {"start-info", "04 9E 8B 'a' 00", u"image/jpeg", 0, {parameter(u"start-info", text(u"a"))}, nullptr},
    {"comment", "04 9E 8C 'a' 00", u"image/jpeg", 0, {parameter(u"comment", text(u"a"))}, nullptr},
    {"domain", "04 9E 8D 'a' 00", u"image/jpeg", 0, {parameter(u"domain", text(u"a"))}, nullptr},
    {"max-age", "05 9E 8E 02 0E 10", u"image/jpeg", 0, {parameter(u"max-age", number(3600))}, nullptr},
    {"path", "04 9E 8F 'a' 00", u"image/jpeg", 0, {parameter(u"path", text(u"a"))}, nullptr},
    {"secure", "03 9E 90 00", u"image/jpeg", 0, {parameter(u"secure", Value{})}, nullptr},
    {"sec", "03 9E 91 81", u"image/jpeg", 0, {parameter(u"sec", number(1))}, nullptr},
    {"mac", "04 9E 92 'a' 00", u"image/jpeg", 0, {parameter(u"mac", text(u"a"))}, nullptr},
    {"creation-date",
     "07 9E 93 04 3A A2 16 EE",
     u"image/jpeg",
     0,
     {parameter(u"creation-date", date(983701230))},
     nullptr},
    {"modification-date",
     "07 9E 94 04 3A A2 16 EE",
     u"image/jpeg",
     0,
     {parameter(u"modification-date", date(983701230))},
     nullptr},
    {"read-date",
     "07 9E 95 04 3A A2 16 EE",
     u"image/jpeg",
     0,
     {parameter(u"read-date", date(983701230))},
     nullptr},
    {"size", "05 9E 96 02 7D 00", u"image/jpeg", 0, {parameter(u"size", number(32000))}, nullptr},
    {"later name", "04 9E 97 'a' 00", u"image/jpeg", 0, {parameter(u"name", text(u"a"))}, "04 9E 85 'a' 00"},
    {"later filename",
     "04 9E 98 'a' 00",
     u"image/jpeg",
     0,
     {parameter(u"filename", text(u"a"))},
     "04 9E 86 'a' 00"},
    {"later start",
     "04 9E 99 'a' 00",
     u"image/jpeg",
     0,
     {parameter(u"start", text(u"a"))},
     "04 9E 8A 'a' 00"},
    {"later start-info",
     "04 9E 9A 'a' 00",
     u"image/jpeg",
     0,
     {parameter(u"start-info", text(u"a"))},
     "04 9E 8B 'a' 00"},
    {"later comment",
     "04 9E 9B 'a' 00",
     u"image/jpeg",
     0,
     {parameter(u"comment", text(u"a"))},
     "04 9E 8C 'a' 00"},
    {"later domain",
     "04 9E 9C 'a' 00",
     u"image/jpeg",
     0,
     {parameter(u"domain", text(u"a"))},
     "04 9E 8D 'a' 00"},
    {"later path", "04 9E 9D 'a' 00", u"image/jpeg", 0, {parameter(u"path", text(u"a"))}, "04 9E 8F 'a' 00"},
};

void expect_type(const TypeRow& row) {
    const Octets octets = wire(row.octets);
    CWSPEncoding reader{Bytes(octets)};
    const auto type = reader.content_type();
    ASSERT_TRUE(type) << row.what;
    EXPECT_EQ(type->media, row.media) << row.what << ": " << narrow(type->media);
    EXPECT_EQ(type->charset, row.charset) << row.what;
    EXPECT_EQ(type->parameters, row.parameters) << row.what;
    WspWriter writer;
    writer.content_type(*type);
    EXPECT_EQ(shown(writer.bytes()), shown(wire(row.written != nullptr ? row.written : row.octets)))
        << row.what;
    CWSPEncoding again{Bytes(writer.bytes())};
    EXPECT_EQ(again.content_type(), type) << row.what;
    EXPECT_TRUE(again.at_end()) << row.what;
}

TEST(ContentTypes, EachFormIsReadAndWritten) {
    for (const TypeRow& row : kTypes) expect_type(row);
}

TEST(ContentTypes, EachParameterIsReadAndWritten) {
    for (const TypeRow& row : kParameterRows) expect_type(row);
}

TEST(ContentTypes, EachNumberHasItsName) {
    for (std::uint32_t code = 0; code < 0x80; ++code) {
        Octets octets{static_cast<std::byte>(code | 0x80U)};
        CWSPEncoding reader{Bytes(octets)};
        const auto type = reader.content_type();
        ASSERT_TRUE(type);
        const std::string_view media = media_of_code(code);
        if (!media.empty()) {
            EXPECT_EQ(narrow(type->media), media);
        }
        WspWriter writer;
        writer.content_type(*type);
        EXPECT_EQ(writer.bytes(), octets) << code;
    }
}

TEST(ContentTypes, WhatIsNoneIsRefused) {
    for (const char* octets : {"", "00", "'text/plain'", "05 83 81 EA", "1F", "01 00", "01 'a'", "7F 00",
                               "';a=b' 00", "06 05 01 00 00 00 00", "1F 81"}) {
        std::size_t taken = 0;
        EXPECT_FALSE(read_all(
            wire(octets), [](CWSPEncoding& reader) { return reader.content_type(); }, taken))
            << octets;
    }
}

struct DispositionRow {
    const char* what;
    const char* octets;
    std::u16string kind;
    std::vector<Parameter> parameters;
    const char* written;  // null: the same octets
};

const DispositionRow kDispositions[] = {
    {"form-data", "01 80", u"form-data", {}, nullptr},
    {"attachment", "01 81", u"attachment", {}, nullptr},
    {"inline", "01 82", u"inline", {}, nullptr},
    {"with a file name", "04 81 86 'a' 00 ", u"attachment", {parameter(u"filename", text(u"a"))}, nullptr},
    {"with the later file name",
     "06 81 98 '\"a\"' 00",
     u"attachment",
     {parameter(u"filename", text(u"a"))},
     "04 81 86 'a' 00"},
    {"another kind", "06 'x-abc' 00", u"x-abc", {}, nullptr},
    {"a kind as text", "07 'Inline' 00", u"inline", {}, "01 82"},
    {"a kind without a name", "01 85", u"x-wsp-85", {}, nullptr},
    {"bare octet", "81", u"attachment", {}, "01 81"},
    {"bare text", "'attachment' 00", u"attachment", {}, "01 81"},
    {"MIME's own form",
     "'attachment; filename=\"a.b\"' 00",
     u"attachment",
     {parameter(u"filename", text(u"a.b"))},
     "06 81 86 'a.b' 00"},
    {"a charset stays a parameter",
     "03 81 81 EA",
     u"attachment",
     {parameter(u"charset", number(106))},
     nullptr},
};

TEST(Dispositions, EachFormIsReadAndWritten) {
    for (const DispositionRow& row : kDispositions) {
        const Octets octets = wire(row.octets);
        CWSPEncoding reader{Bytes(octets)};
        const auto disposition = reader.disposition();
        ASSERT_TRUE(disposition) << row.what;
        EXPECT_TRUE(reader.at_end() || octets.size() == 4) << row.what;
        EXPECT_EQ(narrow(disposition->kind), narrow(row.kind)) << row.what;
        EXPECT_EQ(disposition->parameters, row.parameters) << row.what;
        WspWriter writer;
        writer.disposition(*disposition);
        EXPECT_EQ(shown(writer.bytes()), shown(wire(row.written != nullptr ? row.written : row.octets)))
            << row.what;
        CWSPEncoding again{Bytes(writer.bytes())};
        EXPECT_EQ(again.disposition(), disposition) << row.what;
    }
}

TEST(Dispositions, WhatIsNoneIsRefused) {
    for (const char* octets : {"", "00", "'attachment'", "03 81", "01 00", "1F", "7F 00"}) {
        std::size_t taken = 0;
        EXPECT_FALSE(read_all(
            wire(octets), [](CWSPEncoding& reader) { return reader.disposition(); }, taken))
            << octets;
    }
}

// The numbers by division, one digit at a time.
Octets reference_uintvar(std::uint32_t value) {
    Octets octets{static_cast<std::byte>(value % 128)};
    while ((value /= 128) != 0) octets.insert(octets.begin(), static_cast<std::byte>(value % 128 + 128));
    return octets;
}

Octets reference_long_integer(std::uint64_t value) {
    Octets octets{static_cast<std::byte>(value % 256)};
    while ((value /= 256) != 0) octets.insert(octets.begin(), static_cast<std::byte>(value % 256));
    octets.insert(octets.begin(), static_cast<std::byte>(octets.size()));
    return octets;
}

TEST(WspWriterNumbers, AreTheShortestAndReadBack) {
    std::vector<std::uint64_t> numbers = {0,         1,         127,        128,         255,
                                          256,       16383,     16384,      2097151,     2097152,
                                          268435455, 268435456, 0xFFFFFFFF, 0x100000000, 0xFFFFFFFFFFFFFFFF};
    std::mt19937_64 random(7);
    for (int i = 0; i < 2000; ++i) numbers.push_back(random() >> random() % 64);
    for (const std::uint64_t number : numbers) {
        WspWriter writer;
        const auto small = static_cast<std::uint32_t>(number);
        writer.uintvar(small);
        EXPECT_EQ(writer.bytes(), reference_uintvar(small));
        EXPECT_EQ(CWSPEncoding(Bytes(writer.bytes())).uintvar(), small);
        WspWriter longer;
        longer.long_integer(number);
        EXPECT_EQ(longer.bytes(), reference_long_integer(number));
        EXPECT_EQ(CWSPEncoding(Bytes(longer.bytes())).long_integer(), number);
        WspWriter either;
        either.integer(number);
        EXPECT_EQ(either.bytes().size(), number < 128 ? 1U : longer.bytes().size());
        EXPECT_EQ(CWSPEncoding(Bytes(either.bytes())).integer(), number);
    }
    for (const std::size_t length : {0U, 30U, 31U, 127U, 128U, 100000U}) {
        WspWriter writer;
        writer.value_length(length);
        EXPECT_EQ(writer.bytes().size(),
                  length <= 30 ? 1U : 1 + reference_uintvar(std::uint32_t(length)).size());
        EXPECT_EQ(CWSPEncoding(Bytes(writer.bytes())).value_length(), length);
    }
}

struct WrittenTextRow {
    std::string_view text;
    const char* as_string;
    const char* as_text;
    const char* quoted;
};

const WrittenTextRow kWrittenTexts[] = {
    {"", "00", "00", "'\"' 00"},
    {"a", "'a' 00", "'a' 00", "'\"a' 00"},
    {"\xC3\xA9", "7F C3 A9 00", "7F C3 A9 00", "'\"' C3 A9 00"},
    {"\x7F", "7F 7F 00", "7F 7F 00", "'\"' 7F 00"},
    {"\x1F", "7F 1F 00", "7F 1F 00", "'\"' 1F 00"},
    {" ", "' ' 00", "' ' 00", "'\" ' 00"},
    {"\"a", "'\"a' 00", "7F '\"a' 00", "'\"\"a' 00"},
    {std::string_view("a\0b", 3), "'a' 00", "'a' 00", "'\"a' 00"},
};

TEST(WspWriterTexts, HaveTheirQuoteAndNul) {
    for (const WrittenTextRow& row : kWrittenTexts) {
        WspWriter string;
        string.text_string(row.text);
        EXPECT_EQ(shown(string.bytes()), shown(wire(row.as_string)));
        WspWriter text;
        text.text(row.text);
        EXPECT_EQ(shown(text.bytes()), shown(wire(row.as_text)));
        WspWriter quoted;
        quoted.quoted_text(row.text);
        EXPECT_EQ(shown(quoted.bytes()), shown(wire(row.quoted)));
    }
}

TEST(WspWriterTexts, AnyTextWithoutNulReadsBack) {
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string text(random() % 5, '\0');
        for (char& byte : text) byte = static_cast<char>(1 + random() % 255);
        WspWriter writer;
        writer.text_string(text);
        writer.text(text);
        CWSPEncoding reader{Bytes(writer.bytes())};
        EXPECT_EQ(reader.text_string(), text);
        EXPECT_EQ(reader.text(), text);
        EXPECT_TRUE(reader.at_end());
    }
}

// Runs every read over the bytes, which end at a page that cannot be read.
void read_everything(Bytes bytes) {
    const auto run = [bytes](auto read) {
        CWSPEncoding reader(bytes);
        const auto result = read(reader);
        EXPECT_LE(reader.position(), bytes.size());
        if (!result) {
            EXPECT_EQ(reader.position(), 0U);
        }
    };
    run([](CWSPEncoding& reader) { return reader.octet(); });
    run([](CWSPEncoding& reader) { return reader.uintvar(); });
    run([](CWSPEncoding& reader) { return reader.short_integer(); });
    run([](CWSPEncoding& reader) { return reader.long_integer(); });
    run([](CWSPEncoding& reader) { return reader.small_integer(); });
    run([](CWSPEncoding& reader) { return reader.value_length(); });
    run([](CWSPEncoding& reader) { return reader.measured(); });
    run([](CWSPEncoding& reader) { return reader.text_string(); });
    run([](CWSPEncoding& reader) { return reader.text(); });
    run([](CWSPEncoding& reader) { return reader.encoded_text(); });
    run([](CWSPEncoding& reader) { return reader.content_type(); });
    run([](CWSPEncoding& reader) { return reader.disposition(); });
    run([](CWSPEncoding& reader) { return reader.skip_value(); });
}

// A content type that was read, written and read again, is the same; so are the others.
void expect_stable(Bytes bytes) {
    CWSPEncoding reader(bytes);
    if (const auto type = reader.content_type()) {
        WspWriter writer;
        writer.content_type(*type);
        EXPECT_EQ(CWSPEncoding(Bytes(writer.bytes())).content_type(), type) << shown(bytes);
    }
    CWSPEncoding other(bytes);
    if (const auto disposition = other.disposition()) {
        WspWriter writer;
        writer.disposition(*disposition);
        EXPECT_EQ(CWSPEncoding(Bytes(writer.bytes())).disposition(), disposition) << shown(bytes);
    }
    CWSPEncoding third(bytes);
    const auto text = third.encoded_text();
    if (text && text->text.find(u'\0') == std::u16string::npos) {
        WspWriter writer;
        writer.encoded_text(text->charset, text->text);
        const auto again = CWSPEncoding(Bytes(writer.bytes())).encoded_text();
        ASSERT_TRUE(again) << shown(bytes);
        EXPECT_EQ(again->text, text->text) << shown(bytes);
        EXPECT_EQ(again->charset, text->charset) << shown(bytes);
    }
}

TEST(WspReader, NeverReadsBehindTheEnd) {
    const test::GuardPage page;
    const auto expect_all = [&page](const Octets& octets) {
        std::byte* begin = page.last(octets.size());
        if (!octets.empty()) std::memcpy(begin, octets.data(), octets.size());
        read_everything({begin, octets.size()});
        expect_stable({begin, octets.size()});
    };
    const auto expect_prefixes = [&expect_all](const Octets& octets) {
        for (std::size_t size = 0; size <= octets.size(); ++size) {
            expect_all(Octets(octets.begin(), octets.begin() + static_cast<std::ptrdiff_t>(size)));
        }
    };
    for (const EncodedRow& row : kEncoded) expect_prefixes(wire(row.octets));
    for (const TypeRow& row : kTypes) expect_prefixes(wire(row.octets));
    for (const TypeRow& row : kParameterRows) expect_prefixes(wire(row.octets));
    for (const DispositionRow& row : kDispositions) expect_prefixes(wire(row.octets));
}

TEST(WspReader, EveryCorruptedOctetIsSurvivedAndWhatWasReadIsStable) {
    const test::GuardPage page;
    for (const TypeRow& row : kTypes) {
        const Octets octets = wire(row.octets);
        for (std::size_t at = 0; at < octets.size(); ++at) {
            for (unsigned value = 0; value < 0x100; ++value) {
                std::byte* begin = page.last(octets.size());
                std::memcpy(begin, octets.data(), octets.size());
                begin[at] = static_cast<std::byte>(value);
                expect_stable({begin, octets.size()});
            }
        }
    }
}

TEST(WspReader, RandomValuesAreStable) {
    std::mt19937 random(3);
    // Octets that mean something, more often than others.
    const Octets likely = wire("00 01 02 03 04 05 1F 7F 80 81 82 83 85 89 8A EA 03 E8 F7 '\";=ax0' C3 A9");
    for (int round = 0; round < 60000; ++round) {
        Octets octets(random() % 16);
        for (std::byte& octet : octets) {
            octet = random() % 4 == 0 ? static_cast<std::byte>(random()) : likely[random() % likely.size()];
        }
        if (!octets.empty() && random() % 2 == 0) octets[0] = static_cast<std::byte>(octets.size() - 1);
        expect_stable(octets);
    }
}

}  // namespace
}  // namespace vzapi::mms
