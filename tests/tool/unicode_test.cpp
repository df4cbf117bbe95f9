#include "vzconv/unicode.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

struct TextRow {
    std::string utf8;
    std::u16string utf16;
};

TEST(Unicode, WellFormedTextConvertsBothWays) {
    const TextRow rows[] = {
        {"", u""},
        {"a~", u"a~"},
        {"\xC2\x80\xDF\xBF", u"\x0080\x07FF"},
        {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", u"\x0800\xD7FF\xE000\xFFFF"},
        {"\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF", u"\xD800\xDC00\xD83D\xDE00\xDBFF\xDFFF"},
        {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
    };
    for (const TextRow& row : rows) {
        EXPECT_EQ(utf8_from_utf16(row.utf16), row.utf8);
        EXPECT_EQ(utf16_from_utf8(row.utf8), row.utf16);
    }
}

TEST(Unicode, UnpairedSurrogatesBecomeTheReplacementCharacter) {
    const TextRow rows[] = {
        {"\xEF\xBF\xBD", u"\xD83D"},
        {"\xEF\xBF\xBD", u"\xDE00"},
        {"\xEF\xBF\xBDz", u"\xD83Dz"},
        {"\xEF\xBF\xBD\xEF\xBF\xBD", u"\xDE00\xD83D"},
        {"\xEF\xBF\xBD\xF0\x9F\x98\x80", u"\xD83D\xD83D\xDE00"},
    };
    for (const TextRow& row : rows) EXPECT_EQ(utf8_from_utf16(row.utf16), row.utf8);
}

TEST(Unicode, UnpairedSurrogatesAreFound) {
    struct Row {
        std::u16string text;
        std::size_t count;
        std::size_t first;
    };
    const Row rows[] = {
        {u"", 0, 0},         {u"a\xD83D\xDE00", 0, 3},      {u"\xD83D", 1, 0},
        {u"a\xDE00z", 1, 1}, {u"\xD83D\xD83D\xDE00", 1, 0}, {u"\xD83D\xDE00\xDE00\xD83D", 2, 2},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(unpaired_surrogates_in(row.text), row.count);
        EXPECT_EQ(first_unpaired_surrogate(row.text), row.first);
    }
}

TEST(Unicode, EachMaximalIllFormedPartBecomesOneReplacementCharacter) {
    const TextRow rows[] = {
        {"\x80", u"\xFFFD"},
        {"\xC0\xAF", u"\xFFFD\xFFFD"},
        {"\xE2\x82", u"\xFFFD"},
        {"\xE2\x82z", u"\xFFFDz"},
        {"\xE0\x80\x80", u"\xFFFD\xFFFD\xFFFD"},
        {"\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},
        {"\xF0\x9F\x98", u"\xFFFD"},
        {"\xF0\x9F\x98\xE2\x82\xAC", u"\xFFFD\x20AC"},
        {"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xF5\xFF", u"\xFFFD\xFFFD"},
    };
    for (const TextRow& row : rows) EXPECT_EQ(utf16_from_utf8(row.utf8), row.utf16);
}

}  // namespace
}  // namespace vzconv
