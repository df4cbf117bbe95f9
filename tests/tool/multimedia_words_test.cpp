#include "vzconv/multimedia_words.h"

#include <gtest/gtest.h>

#include <set>

#include "vzapi/multimedia.h"
#include "vzconv/multimedia_header_words.h"

namespace vzconv {
namespace {

TEST(MultimediaWords, EachHeaderIsFoundByNumberAndName) {
    for (uint32_t number = VZ_MMS_HEADER_BCC; number <= VZ_MMS_HEADER_CANCEL_STATUS; ++number) {
        const MultimediaHeaderWord* word = multimedia_header_of(number);
        ASSERT_NE(word, nullptr) << number;
        EXPECT_EQ(word->number, number);
        EXPECT_EQ(multimedia_header_of(word->name), word) << word->name;
    }
    EXPECT_EQ(multimedia_header_of(VZ_MMS_HEADER_APPLICATION), nullptr);
    EXPECT_EQ(multimedia_header_of(0x40), nullptr);
    EXPECT_EQ(multimedia_header_of("subject"), nullptr);
}

TEST(MultimediaWords, EachValueComesBackFromItsWord) {
    std::size_t count = 0;
    for (uint32_t header = 0; header < 0x42; ++header) {
        for (uint64_t number = 0; number < 0x102; ++number) {
            const std::string word = value_word_of(header, number);
            if (word.empty()) continue;
            ++count;
            EXPECT_EQ(value_of_word(header, word), number) << header << " " << word;
        }
        EXPECT_EQ(value_of_word(header, ""), std::nullopt);
        EXPECT_EQ(value_of_word(header, "no such word"), std::nullopt);
    }
    // Codes: 10 headers of yes and no, the other tables, the attributes; and 128 versions.
    EXPECT_EQ(count, 10 * 2 + 4 + 24 + 3 + 26 + 2 + 8 + 8 + 2 + 4 + 5 + 8 + 1 + 8 + 2 + 63 + 128U);
}

TEST(MultimediaWords, VersionsAreMajorAndMinorNumber) {
    EXPECT_EQ(value_word_of(VZ_MMS_HEADER_VERSION, VZ_MMS_VERSION_1_2), "1.2");
    EXPECT_EQ(value_word_of(VZ_MMS_HEADER_VERSION, 0x1F), "1");
    EXPECT_EQ(value_word_of(VZ_MMS_HEADER_VERSION, 0x80), "");
    EXPECT_EQ(value_of_word(VZ_MMS_HEADER_VERSION, "1.3"), 0x13U);
    EXPECT_EQ(value_of_word(VZ_MMS_HEADER_VERSION, "1.15"), std::nullopt);
    EXPECT_EQ(value_of_word(VZ_MMS_HEADER_VERSION, "01.3"), std::nullopt);
}

TEST(MultimediaWords, NoWordStandsForTwoNumbers) {
    for (const auto words : {value_kind_words(), address_type_words(), part_header_words(), charset_words(),
                             multimedia_type_words()}) {
        std::set<std::string_view> names;
        std::set<uint32_t> numbers;
        for (const CodeWord& row : words) {
            EXPECT_TRUE(names.insert(row.word).second) << row.word;
            EXPECT_TRUE(numbers.insert(row.code).second) << row.word;
        }
    }
}

TEST(MultimediaWords, NumbersWithoutNameAreHexadecimal) {
    EXPECT_EQ(hex_of(0x5A), "0x5A");
    EXPECT_EQ(hex_of(0xFFFFFFFF), "0xFFFFFFFF");
    EXPECT_EQ(number_of_hex("0x05"), 5U);
    EXPECT_EQ(number_of_hex("0xFFFFFFFF"), 0xFFFFFFFFU);
    for (const char* text : {"", "0x", "0x5", "0x5a", "5A", "0x-5", "0x5A ", "0x100000000", "0x005A"})
        EXPECT_EQ(number_of_hex(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vzconv
