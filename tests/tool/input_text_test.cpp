#include "vzconv/input_text.h"

#include <gtest/gtest.h>

#include <sstream>

#include "vzconv/failure.h"

namespace vzconv {
namespace {

struct InputRow {
    const char* name;
    std::string bytes;
    std::string text;
    TextCharset charset = TextCharset::Unknown;
};

// The bytes of a literal, which may hold NUL.
template <std::size_t kSize>
std::string bytes(const char (&literal)[kSize]) {
    return {literal, kSize - 1};
}

TEST(InputText, FormsOfUnicodeBecomeEightBitText) {
    const InputRow rows[] = {
        {"empty", "", ""},
        {"one byte", "B", "B"},
        {"ASCII", "BEGIN", "BEGIN"},
        {"UTF-8", "T:\xC3\xA9", "T:\xC3\xA9"},
        {"UTF-8 with a mark", "\xEF\xBB\xBFT:\xC3\xA9", "T:\xC3\xA9", TextCharset::Utf8},
        {"a mark alone", "\xEF\xBB\xBF", "", TextCharset::Utf8},
        {"another charset", "T:\xE9\x8A", "T:\xE9\x8A"},
        {"UTF-16LE with a mark", bytes("\xFF\xFET\0\xE9\0"), "T\xC3\xA9", TextCharset::Utf8},
        {"UTF-16BE with a mark", bytes("\xFE\xFF\0T\0\xE9"), "T\xC3\xA9", TextCharset::Utf8},
        {"UTF-16LE", bytes("T\0:\0\xE9\0"), "T:\xC3\xA9", TextCharset::Utf8},
        {"UTF-16BE", bytes("\0T\0:\0\xE9"), "T:\xC3\xA9", TextCharset::Utf8},
        {"a surrogate pair", bytes("\xFF\xFE\x3D\xD8\x00\xDE"), "\xF0\x9F\x98\x80", TextCharset::Utf8},
        {"half a surrogate pair", bytes("\xFF\xFE\x3D\xD8z\0"), "\xEF\xBF\xBDz", TextCharset::Utf8},
        {"half a unit at the end", bytes("\xFF\xFET\0z"), "T\xEF\xBF\xBD", TextCharset::Utf8},
        {"NULs behind ASCII", bytes("T\0\0\0"), bytes("T\0\0\0")},
    };
    for (const InputRow& row : rows) {
        const InputText text = eight_bit_text(row.bytes);
        EXPECT_EQ(text.text, row.text) << row.name;
        EXPECT_EQ(text.charset, row.charset) << row.name;
    }
}

TEST(InputText, StandardInputIsReadToItsEnd) {
    const std::string text(3 * 1024 * 1024 + 7, 'x');
    std::istringstream in(text);
    EXPECT_EQ(read_input("-", in).text, text);
    std::istringstream nothing;
    EXPECT_EQ(read_input("-", nothing).text, "");
}

TEST(InputText, AMissingFileIsAFailureWithAReason) {
    std::istringstream in;
    try {
        read_input("no such folder/no such file", in);
        FAIL() << "was read";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "cannot be opened: No such file or directory");
    }
}

}  // namespace
}  // namespace vzconv
