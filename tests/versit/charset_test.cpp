#include "versit/charset.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "platform/code_page.h"
#include "support/environment.h"
#include "support/failing_allocations.h"
#include "vzapi/base.h"

namespace vzapi::versit {
namespace {

struct Row {
    std::string_view bytes;
    std::string_view charset;
    std::u16string_view expected;
};

constexpr Row kRows[] = {
    {"", "", u""},
    {"", "UTF-8", u""},
    {"", "SHIFT_JIS", u""},
    {"", "ISO-8859-1", u""},
    {"plain", "", u"plain"},
    // Code page 932.
    {"\x93\xFA\x96\x7B", "SHIFT_JIS", u"\u65E5\u672C"},
    {"\x93\xFA", "shift_jis", u"\u65E5"},
    {"\xB1", "Shift_JIS", u"\uFF71"},
    {"abc", "SHIFT_JIS", u"abc"},
    // Bytes as code points, also where Windows-1252 would differ.
    {"caf\xE9", "ISO-8859-1", u"caf\u00E9"},
    {"\x80\x93\xFF", "iso-8859-1", u"\u0080\u0093\u00FF"},
    {"\xC3\xA9", "ISO-8859-1", u"\u00C3\u00A9"},
    // UTF-8, under its own name and every other.
    {"\xC3\xA9", "UTF-8", u"\u00E9"},
    {"\xC3\xA9", "utf-8", u"\u00E9"},
    {"\xF0\x9F\x98\x80", "UTF-8", u"\U0001F600"},
    {"\xC3\xA9", "ISO-8859-15", u"\u00E9"},
    {"\xC3\xA9", "ISO-8859-", u"\u00E9"},
    {"\xC3\xA9", "SHIFT-JIS", u"\u00E9"},
    {"\xC3\xA9", "US-ASCII", u"\u00E9"},
    {"\xC3\xA9", " ", u"\u00E9"},
    {"caf\xE9!", "UTF-8", u"caf\uFFFD!"},
    {"\xEF\xBB\xBF"
     "a",
     "UTF-8",
     u"\uFEFF"
     u"a"},
};

TEST(Charset, DecodesByName) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(std::string(row.charset) + ", " + testing::PrintToString(row.bytes));
        EXPECT_TRUE(decode_text(row.bytes, row.charset) == row.expected);
    }
}

TEST(Charset, AppendsToWhatIsThere) {
    for (const std::string_view charset : {"", "SHIFT_JIS", "ISO-8859-1", "UTF-8"}) {
        std::u16string text = u"Name: ";
        append_text("Jo", charset, text);
        append_text("", charset, text);
        append_text("e", charset, text);
        EXPECT_TRUE(text == u"Name: Joe") << charset;
    }
}

TEST(Charset, EveryByteIsItsCodePointInLatin1) {
    std::string bytes;
    std::u16string expected;
    for (int i = 0; i < 256; ++i) {
        bytes += static_cast<char>(i);
        expected += static_cast<char16_t>(i);
    }
    EXPECT_TRUE(decode_text(bytes, "ISO-8859-1") == expected);
}

TEST(Charset, WithoutANameItIsTheDefaultCodePageOfTheSystem) {
    constexpr std::string_view kBytes = "caf\xC3\xA9 \xE9 \x93\xFA";
    std::u16string expected;
    platform::append_utf16(platform::CodePage::SystemDefault, kBytes, expected);
    EXPECT_TRUE(decode_text(kBytes, "") == expected);
}

TEST(Charset, WithoutANameItIsNotUtf8WhereTheSystemHasAnotherCodePage) {
    // Settles the code page on Linux; on Windows it is the machine's.
    const test::EnvironmentVariable locale("LC_ALL", "xx_XX.ISO-8859-15");
    if (platform::system_charset() == "UTF-8")
        GTEST_SKIP() << "the default code page of this system is UTF-8";
    constexpr std::string_view kBytes = "caf\xC3\xA9";
    EXPECT_TRUE(decode_text(kBytes, "UTF-8") == u"caf\u00E9");
    EXPECT_FALSE(decode_text(kBytes, "") == u"caf\u00E9");
}

TEST(Charset, LackOfMemoryForLatin1HasItsOwnResultCode) {
    if (!test::FailingAllocations::sees_operator_new())
        GTEST_SKIP() << "operator new cannot be made to fail here";
    constexpr std::string_view kBytes = "more than fits into a string without a block of its own";
    std::u16string text = u"kept";
    ResultCode code = VZ_OK;
    test::FailingAllocations failing(1, test::Allocations::OperatorNew);
    try {
        append_text(kBytes, "ISO-8859-1", text);
    } catch (const ResultCode raised) {
        code = raised;
    }
    failing.stop();
    EXPECT_TRUE(failing.failed());
    EXPECT_EQ(code, VZ_ERR_OLE_OUT_OF_MEMORY);
    EXPECT_TRUE(text == u"kept");
}

TEST(Charset, LackOfMemoryForOtherCharsetsIsTheHeaps) {
    if (!test::FailingAllocations::sees_operator_new())
        GTEST_SKIP() << "operator new cannot be made to fail here";
    constexpr std::string_view kBytes = "more than fits into a string without a block of its own";
    for (const std::string_view charset : {"", "SHIFT_JIS", "UTF-8"}) {
        std::u16string text;
        bool raised = false;
        test::FailingAllocations failing(1, test::Allocations::OperatorNew);
        try {
            append_text(kBytes, charset, text);
        } catch (const std::bad_alloc&) {
            raised = true;
        }
        failing.stop();
        EXPECT_TRUE(failing.failed() && raised) << charset;
    }
}

}  // namespace
}  // namespace vzapi::versit
