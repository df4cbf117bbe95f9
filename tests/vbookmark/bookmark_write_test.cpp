// BookmarkItem to vBookmark text.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/guard_page.h"
#include "support/text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

// Null stands for an absent string.
struct WriteCase {
    const char16_t* title;
    const char16_t* url;
    const char16_t* shortcut;
    std::string expected;
};

const WriteCase kCases[] = {
    {nullptr, nullptr, nullptr, lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:", "URL:", "END:VBKM"})},
    {u"", u"", nullptr, lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:", "URL:", "END:VBKM"})},
    {u"Example", u"http://example.com/", nullptr,
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:Example", "URL:http://example.com/", "END:VBKM"})},
    {u"Caf\u00E9", u"http://example.com/\u65E5", nullptr,
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE;CHARSET=UTF-8:Caf\xC3\xA9",
            "URL;CHARSET=UTF-8:http://example.com/\xE6\x97\xA5", "END:VBKM"})},
    {u"\U0001F600", nullptr, nullptr,
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE;CHARSET=UTF-8:\xF0\x9F\x98\x80", "URL:", "END:VBKM"})},
    {u"\xD83D!", nullptr, nullptr,
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE;CHARSET=UTF-8:\xEF\xBF\xBD!", "URL:", "END:VBKM"})},
    {u"a\tb\x7F=;:,\\", nullptr, nullptr,
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:a\tb\x7F=;:,\\", "URL:", "END:VBKM"})},
    // Line breaks go out as they are: the CHARSET parameter is all that tells of them.
    {u"a\r\nb", u"c\nd", nullptr,
     lines(
         {"BEGIN:VBKM", "VERSION:1.0", "TITLE;CHARSET=UTF-8:a\r\nb", "URL;CHARSET=UTF-8:c\nd", "END:VBKM"})},
    {u"A", u"u", u"http://example.com/?a=b",
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:A", "URL:u", "BEGIN:ENV", "X-IRMC-URL;QUOTED-PRINTABLE:=",
            "[InternetShortcut]=", "URL=http://example.com/?a=b", "END:ENV", "END:VBKM"})},
    {nullptr, nullptr, u"http://example.com/\u00E9?a=b",
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:", "URL:", "BEGIN:ENV", "X-IRMC-URL;QUOTED-PRINTABLE:=",
            "[InternetShortcut]=", "URL=http://example.com/=C3=A9?a=3Db", "END:ENV", "END:VBKM"})},
    {nullptr, nullptr, u"a\r\nb",
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:", "URL:", "BEGIN:ENV",
            "X-IRMC-URL;QUOTED-PRINTABLE:=", "[InternetShortcut]=", "URL=a=0D=0Ab", "END:ENV", "END:VBKM"})},
};

BookmarkItem item_of(const char16_t* title, const char16_t* url, const char16_t* shortcut) {
    return {32, const_cast<char16_t*>(title), const_cast<char16_t*>(url), const_cast<char16_t*>(shortcut)};
}

TEST(BookmarkWriting, EachRowGivesItsText) {
    for (const WriteCase& row : kCases) {
        const BookmarkItem item = item_of(row.title, row.url, row.shortcut);
        OwnedText out;
        ASSERT_EQ(ConvertToVersit(VZ_TYPE_BOOKMARK, &item, &out.data), VZ_OK);
        EXPECT_EQ(out.bytes(), row.expected);
        EXPECT_EQ(out.data.size, 24U);
        EXPECT_EQ(out.data.format, 1U);
    }
}

TEST(BookmarkWriting, OptionsAndSizeChangeNothing) {
    for (const std::uint32_t size : {0U, 24U, 32U, 1000U}) {
        BookmarkItem item = item_of(u"T", u"u", u"s");
        item.size = size;
        OwnedText plain;
        OwnedText profiled;
        ASSERT_EQ(ConvertToVersit(4, &item, &plain.data), VZ_OK);
        ASSERT_EQ(ConvertToVersit2(0x02000020, 300, 1, 4, &item, &profiled.data), VZ_OK);
        EXPECT_EQ(plain.bytes(), profiled.bytes());
    }
}

TEST(BookmarkWriting, ALongShortcutStaysOnePhysicalLine) {
    const std::u16string address = u"http://example.com/" + std::u16string(5000, u'\u00E9');
    const BookmarkItem item = item_of(nullptr, nullptr, address.c_str());
    OwnedText out;
    ASSERT_EQ(ConvertToVersit(4, &item, &out.data), VZ_OK);
    const std::string text = out.bytes();
    const std::size_t line = text.find("\r\nURL=") + 2;
    EXPECT_EQ(text.find("\r\n", line) - line, 4 + 19 + 5000U * 6);
}

TEST(BookmarkWriting, UnreadableStringsCountAsAbsent) {
    const GuardPage page;
    auto* unreadable = page.unreadable_as<char16_t>();
    for (int hidden = 0; hidden < 8; ++hidden) {
        const bool title = (hidden & 1) == 0;
        const bool url = (hidden & 2) == 0;
        const bool shortcut = (hidden & 4) == 0;
        const BookmarkItem item =
            item_of(title ? u"t" : unreadable, url ? u"u" : unreadable, shortcut ? u"s" : unreadable);
        const BookmarkItem expected =
            item_of(title ? u"t" : nullptr, url ? u"u" : nullptr, shortcut ? u"s" : nullptr);
        OwnedText out;
        OwnedText expected_out;
        ASSERT_EQ(ConvertToVersit(4, &item, &out.data), VZ_OK);
        ASSERT_EQ(ConvertToVersit(4, &expected, &expected_out.data), VZ_OK);
        EXPECT_EQ(out.bytes(), expected_out.bytes()) << hidden;
    }
}

TEST(BookmarkWriting, StringsAtOddAddressesAreTaken) {
    const std::u16string texts[] = {u"Caf\u00E9 and a title longer than one block", u"http://example.com/",
                                    u"s\u00E9"};
    std::vector<char> bytes;
    std::size_t places[3] = {};
    for (int i = 0; i < 3; ++i) {
        if (bytes.size() % 2 == 0) bytes.push_back('x');
        places[i] = bytes.size();
        const std::size_t size = (texts[i].size() + 1) * sizeof(char16_t);
        bytes.resize(bytes.size() + size);
        std::memcpy(&bytes[places[i]], texts[i].c_str(), size);
    }
    const auto at = [&](int i) { return static_cast<char16_t*>(static_cast<void*>(&bytes[places[i]])); };
    const BookmarkItem odd{32, at(0), at(1), at(2)};
    const BookmarkItem even = item_of(texts[0].c_str(), texts[1].c_str(), texts[2].c_str());
    OwnedText odd_out;
    OwnedText even_out;
    ASSERT_EQ(ConvertToVersit(4, &odd, &odd_out.data), VZ_OK);
    ASSERT_EQ(ConvertToVersit(4, &even, &even_out.data), VZ_OK);
    EXPECT_EQ(odd_out.bytes(), even_out.bytes());
}

TEST(BookmarkWriting, AStringThatRunsIntoAnUnreadablePageEndsThere) {
    const GuardPage page;
    auto* text = page.last_as<char16_t>(6);
    text[0] = u'a';
    text[1] = u'b';
    text[2] = u'c';
    const BookmarkItem item = item_of(text, nullptr, nullptr);
    OwnedText out;
    ASSERT_EQ(ConvertToVersit(4, &item, &out.data), VZ_OK);
    EXPECT_EQ(out.bytes(), lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:abc", "URL:", "END:VBKM"}));
}

}  // namespace
