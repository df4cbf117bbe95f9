// Numbers and texts as the writer puts them.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "mms/wire_bytes.h"
#include "mms/wsp_encoding.h"

namespace vzapi::mms {
namespace {

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

}  // namespace
}  // namespace vzapi::mms
