#include "vzconv/input_text.h"

#include <gtest/gtest.h>

#include <sstream>

#include "vzconv/email_document.h"
#include "vzconv/failure.h"
#include "vzconv/multimedia_pdu.h"

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

TEST(InputText, LostSurrogatesAreCountedAndHaveALine) {
    struct Row {
        const char* name;
        std::u16string units;
        std::size_t count;
        std::size_t line;
    };
    const Row rows[] = {
        {"none", u"a\xD83D\xDE00\n", 0, 0},
        {"at the front", u"\xDE00", 1, 1},
        {"at the end of a line", u"a\r\nb\xD83D\r\n", 1, 2},
        {"at the front of a line", u"a\r\n\xD83D", 1, 2},
        {"several", u"\n\n\xD83D\xD83D\xDE00\xDE00\n\xD83D", 3, 3},
    };
    for (const Row& row : rows) {
        std::string bytes = "\xFF\xFE";
        for (const char16_t unit : row.units) {
            bytes.push_back(static_cast<char>(unit & 0xFF));
            bytes.push_back(static_cast<char>(unit >> 8));
        }
        const InputText text = eight_bit_text(bytes);
        EXPECT_EQ(text.unpaired, row.count) << row.name;
        EXPECT_EQ(text.unpaired_line, row.line) << row.name;
    }
}

TEST(InputText, MarksOfJoinedFilesGo) {
    const std::string mark = "\xEF\xBB\xBF";
    const std::string joined =
        "BEGIN:A\r\nEND:A\r\n" + mark + "BEGIN:B\r\nT:" + mark + "BEGIN:\r\n" + mark + "END:B\r\n";
    const std::string parted = "BEGIN:A\r\nEND:A\r\nBEGIN:B\r\nT:" + mark + "BEGIN:\r\n" + mark + "END:B\r\n";
    EXPECT_EQ(eight_bit_text(mark + joined).text, parted);
    EXPECT_EQ(eight_bit_text(joined).text, joined) << "no mark in front, so the charset is not known";
}

TEST(InputText, AnEmailItemKeepsItsBytes) {
    const std::string rows[] = {"<Email/>", "\xEF\xBB\xBF<Email></Email>",
                                bytes("\xFF\xFE<\0E\0m\0\x61\0i\0l\0>\0"),
                                bytes("\0<\0E\0m\0\x61\0i\0l\0/\0>")};
    for (const std::string& row : rows) {
        const InputText text = eight_bit_text(row);
        EXPECT_EQ(text.document, kEmailElement) << row;
        EXPECT_EQ(text.text, row);
    }
    EXPECT_EQ(eight_bit_text("BEGIN:VCARD\r\nNOTE:<Email>\r\nEND:VCARD\r\n").document, "");
}

TEST(InputText, AMultimediaMessageKeepsItsBytes) {
    const std::string rows[] = {"\x8C\x80", bytes("\x8C\x84\x8D\x90\0\xFF\xFE"), "\x8C\xFF<Email/>"};
    for (const std::string& row : rows) {
        const InputText text = eight_bit_text(row);
        EXPECT_EQ(text.document, kMultimediaPdu);
        EXPECT_EQ(text.text, row);
    }
    for (const std::string& row : {std::string("\x8C"), bytes("\x8C\0\x42\0"), std::string("\x8C\x7F"),
                                   std::string("\xFF\xFE\x8C\x80"), std::string("\x8D\x90\x8C\x80")})
        EXPECT_EQ(eight_bit_text(row).document, "");
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
