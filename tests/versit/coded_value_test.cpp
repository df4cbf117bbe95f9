// Words and decimal digits that stand for a number.
#include "versit/coded_value.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/utf8.h"

namespace vzapi::versit {
namespace {

constexpr std::array<WordRow, 4> kRows{{{7, "lower"}, {2, "UPPER"}, {9, "Upper"}, {7, "TWO WORDS"}}};

struct CodeCase {
    std::u16string text;
    std::optional<std::uint32_t> code;
};

TEST(CodedValue, AWordIsFoundInAnyCaseAndBetweenBlanks) {
    const CodeCase cases[] = {
        {u"lower", 7},       {u"LOWER", 7},       {u"lOwEr", 7},
        {u" \tlower\t ", 7}, {u"upper", 2},  // the first of two rows
        {u"two words", 7},   {u"two  words", {}}, {u"lowe", {}},
        {u"lowers", {}},     {u"", {}},           {u" ", {}},
        {u"\nlower", {}},    {u"lower\xA0", {}},  {u"l\u014Fwer", {}},  // whose low byte is an 'O'
        {u"l\u016Fwer", {}},                                            // an 'o'
        {u"7", {}},
    };
    for (const CodeCase& row : cases) EXPECT_EQ(find_code(kRows, row.text), row.code) << row.text.size();
    EXPECT_EQ(find_code({}, u"lower"), std::nullopt);
    EXPECT_EQ(find_code({}, u""), std::nullopt);
}

TEST(CodedValue, ACodeHasTheWordOfItsFirstRowAsWritten) {
    EXPECT_EQ(find_word(kRows, 7), "lower");
    EXPECT_EQ(find_word(kRows, 2), "UPPER");
    EXPECT_EQ(find_word(kRows, 9), "Upper");
    EXPECT_EQ(find_word(kRows, 0), "");
    EXPECT_EQ(find_word(kRows, 0x80000007), "");
    EXPECT_EQ(find_word({}, 7), "");
}

TEST(CodedValue, ClassesInTheOrderOfTheirCodes) {
    constexpr std::string_view kWords[] = {"PRIVATE", "PUBLIC", "NONE"};
    ASSERT_EQ(class_words().size(), std::size(kWords));
    for (std::uint32_t i = 0; i < std::size(kWords); ++i) {
        EXPECT_EQ(class_words()[i].code, i + 1);
        EXPECT_EQ(class_words()[i].word, kWords[i]);
    }
}

TEST(CodedValue, ANumberIsDigitsAloneThatFitInto32Bits) {
    const CodeCase cases[] = {
        {u"0", 0},
        {u"7", 7},
        {u"42", 42},
        {u" \t42\t ", 42},
        {u"007", 7},
        {u"2147483648", 0x80000000},
        {u"4294967295", 0xFFFFFFFF},
        {u"00000000000000000000004294967295", 0xFFFFFFFF},
        {u"4294967296", {}},
        {u"42949672950", {}},
        {u"18446744073709551616", {}},  // 0 to 64 bits
        {u"18446744073709551617", {}},
        {u"99999999999999999999999999999999", {}},
        {u"", {}},
        {u" ", {}},
        {u"+1", {}},
        {u"-1", {}},
        {u"1 2", {}},
        {u"1.0", {}},
        {u"1a", {}},
        {u"a1", {}},
        {u"0x1", {}},
        {u"/", {}},
        {u":", {}},
        {u"\n1", {}},
        {u"\u0661", {}},
        {u"\u0131", {}},  // whose low byte is a '1'
    };
    for (const CodeCase& row : cases) {
        EXPECT_EQ(parse_number(row.text), row.code) << platform::utf16_to_utf8(row.text);
    }
}

}  // namespace
}  // namespace vzapi::versit
