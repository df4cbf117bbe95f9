#include "mms/wsp_encoding.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "mms/wire_bytes.h"
#include "mms/wsp_reading.h"

namespace vzapi::mms {
namespace {

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

}  // namespace
}  // namespace vzapi::mms
