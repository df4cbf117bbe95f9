// vBookmark text to BookmarkItem, and the release of what reading allocated.
#include <gtest/gtest.h>

#include <string>

#include "support/guard_page.h"
#include "support/text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

// A record that gives its strings back.
struct OwnedBookmark {
    OwnedBookmark() { item.size = 32; }
    ~OwnedBookmark() {
        item.size = 32;
        static_cast<void>(FreeConverterData(VZ_TYPE_BOOKMARK, &item));
    }
    OwnedBookmark(const OwnedBookmark&) = delete;
    OwnedBookmark& operator=(const OwnedBookmark&) = delete;

    ResultCode read(std::string text) {
        const VersitData in = data_of(text);
        return ConvertFromVersit(VZ_TYPE_BOOKMARK, &in, &item);
    }

    BookmarkItem item{};
};

struct ReadCase {
    const char* what;
    std::string text;
    std::u16string title;
    std::u16string url;
    std::u16string shortcut;
};

const char16_t* const kAbsent = u"(null)";

std::string bookmark(std::initializer_list<std::string_view> middle) {
    return lines({"BEGIN:VBKM", "VERSION:1.0"}) + lines(middle) + lines({"END:VBKM"});
}

const ReadCase kCases[] = {
    {"nothing but the frame", bookmark({}), kAbsent, kAbsent, kAbsent},
    {"empty values", bookmark({"TITLE:", "URL:"}), kAbsent, kAbsent, kAbsent},
    {"plain", bookmark({"TITLE:Example", "URL:http://example.com/"}), u"Example", u"http://example.com/",
     kAbsent},
    {"URL first", bookmark({"URL:http://example.com/", "TITLE:Example"}), u"Example", u"http://example.com/",
     kAbsent},
    {"names in lower case", bookmark({"title:Example", "url:http://example.com/"}), u"Example",
     u"http://example.com/", kAbsent},
    {"UTF-8",
     bookmark({"TITLE;CHARSET=UTF-8:Caf\xC3\xA9 \xF0\x9F\x98\x80", "URL;CHARSET=UTF-8:\xE6\x97\xA5"}),
     u"Caf\u00E9 \U0001F600", u"\u65E5", kAbsent},
    {"UTF-8 without a parameter", bookmark({"TITLE:Caf\xC3\xA9"}), u"Caf\u00E9", kAbsent, kAbsent},
    {"another charset named is UTF-8 all the same", bookmark({"TITLE;CHARSET=ISO-8859-1:Caf\xC3\xA9"}),
     u"Caf\u00E9", kAbsent, kAbsent},
    {"ill-formed UTF-8", bookmark({"TITLE:Caf\xE9!"}), u"Caf\uFFFD!", kAbsent, kAbsent},
    {"quoted-printable title", bookmark({"TITLE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Caf=C3=A9=3D"}),
     u"Caf\u00E9=", kAbsent, kAbsent},
    {"Base64 title", bookmark({"TITLE;ENCODING=BASE64:SGVsbG8="}), u"Hello", kAbsent, kAbsent},
    {"the address is not decoded", bookmark({"URL;ENCODING=QUOTED-PRINTABLE:http://example.com/=41"}),
     kAbsent, u"http://example.com/=41", kAbsent},
    {"an address with ':' and ';' and '='", bookmark({"URL:http://example.com:80/a;b?c=d"}), kAbsent,
     u"http://example.com:80/a;b?c=d", kAbsent},
    {"a title that ends in '='", bookmark({"TITLE:a="}), u"a=", kAbsent, kAbsent},
    {"shortcut",
     bookmark({"BEGIN:ENV", "X-IRMC-URL;QUOTED-PRINTABLE:=", "[InternetShortcut]=", "URL=http://example.com/",
               "END:ENV"}),
     kAbsent, kAbsent, u"http://example.com/"},
    {"shortcut without colon",
     bookmark(
         {"BEGIN:ENV", "X-IRMC-URL;QUOTED-PRINTABLE:=", "[InternetShortcut]=", "URL=/local/page", "END:ENV"}),
     kAbsent, kAbsent, u"/local/page"},
    {"encoded shortcut", bookmark({"BEGIN:ENV", "URL=http://example.com/=C3=A9?a=3Db", "END:ENV"}), kAbsent,
     kAbsent, u"http://example.com/\u00E9?a=b"},
    {"all three",
     bookmark({"TITLE:T", "URL:u", "BEGIN:ENV",
               "X-IRMC-URL;QUOTED-PRINTABLE:=", "[InternetShortcut]=", "URL=s", "END:ENV"}),
     u"T", u"u", u"s"},
    {"the later line wins", bookmark({"TITLE:1", "URL:1", "URL=1", "TITLE:2", "URL:2", "URL=2"}), u"2", u"2",
     u"2"},
    {"a later empty line does not", bookmark({"TITLE:1", "URL:1", "URL=1", "TITLE:", "URL:", "URL="}), u"1",
     u"1", u"1"},
    {"unknown lines with '=' fill the shortcut", bookmark({"FOO:a=b"}), kAbsent, kAbsent, u"b"},
    {"unknown lines without '=' are skipped", bookmark({"FOO:bar"}), kAbsent, kAbsent, kAbsent},
    {"lines with an ID are no shortcut", bookmark({"X-IRMC-URL:a=b", "NOTE:c=d"}), kAbsent, kAbsent, kAbsent},
    {"a NUL ends the text",
     lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:a"}) + std::string("URL:u\0URL:v\r\nTITLE:b", 20), u"a", u"u",
     kAbsent},
    {"root in lower case", lines({"begin:vbkm", "version:1.0", "title:a", "end:vbkm"}), u"a", kAbsent,
     kAbsent},
    {"blanks around the root name", lines({"BEGIN: VBKM ", "VERSION:1.0", "TITLE:BEGIN:VBKM", "END:VBKM"}),
     u"BEGIN:VBKM", kAbsent, kAbsent},
    {"no END", lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE:a"}), u"a", kAbsent, kAbsent},
    {"only the first of two", bookmark({"TITLE:a"}) + bookmark({"TITLE:b"}), u"a", kAbsent, kAbsent},
    {"folded", bookmark({"TITLE:abc", " def"}), u"abcdef", kAbsent, kAbsent},
    {"a line feed inside the title", "BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE:a\nb\r\nEND:VBKM\r\n", u"a\nb",
     kAbsent, kAbsent},
};

TEST(BookmarkReading, EachRowGivesItsRecord) {
    for (const ReadCase& row : kCases) {
        OwnedBookmark owned;
        ASSERT_EQ(owned.read(row.text), VZ_OK) << row.what;
        EXPECT_EQ(owned.item.size, 32U);
        EXPECT_EQ(text_of(owned.item.title), row.title) << row.what;
        EXPECT_EQ(text_of(owned.item.url), row.url) << row.what;
        EXPECT_EQ(text_of(owned.item.shortcut), row.shortcut) << row.what;
    }
}

TEST(BookmarkReading, AnotherRootOrVersionIsRefusedAndOnlyTheSizeIsSet) {
    for (const std::string& text : {
             lines({"BEGIN:VBKM", "VERSION:2.0", "TITLE:a", "END:VBKM"}),
             lines({"BEGIN:VBKM", "VERSION:1.0 ", "TITLE:a", "END:VBKM"}),
             lines({"BEGIN:VBKM", "TITLE:a", "END:VBKM"}),
             lines({"BEGIN:VBKM", "BEGIN:ENV", "VERSION:1.0", "END:ENV", "END:VBKM"}),
             lines({"BEGIN:VCARD", "VERSION:1.0", "TITLE:a", "END:VCARD"}),
             lines({"BEGIN:VCARD", "BEGIN:VBKM", "VERSION:1.0", "END:VBKM", "END:VCARD"}),
             lines({"TITLE:a", "VERSION:1.0"}),
         }) {
        OwnedBookmark owned;
        EXPECT_EQ(owned.read(text), VZ_ERR_INVALID_TEXT) << text;
        EXPECT_EQ(owned.item.size, 32U);
        EXPECT_EQ(owned.item.title, nullptr);
        EXPECT_EQ(owned.item.url, nullptr);
        EXPECT_EQ(owned.item.shortcut, nullptr);
    }
}

TEST(BookmarkReading, TheSizeBecomes32WhateverItHeld) {
    for (const std::uint32_t size : {0U, 24U, 64U}) {
        OwnedBookmark owned;
        owned.item.size = size;
        EXPECT_EQ(owned.read(bookmark({"TITLE:a"})), VZ_OK);
        EXPECT_EQ(owned.item.size, 32U);
        EXPECT_EQ(text_of(owned.item.title), u"a");
    }
}

TEST(BookmarkRelease, SetsTheStringsToNullAndMayBeRepeated) {
    OwnedBookmark owned;
    ASSERT_EQ(owned.read(bookmark({"TITLE:a", "URL:b", "URL=c"})), VZ_OK);
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(FreeConverterData(4, &owned.item), VZ_OK);
        EXPECT_EQ(owned.item.size, 32U);
        EXPECT_EQ(owned.item.title, nullptr);
        EXPECT_EQ(owned.item.url, nullptr);
        EXPECT_EQ(owned.item.shortcut, nullptr);
    }
}

TEST(BookmarkRelease, AWrongSizeIsRefusedFromVersionThirteenOn) {
    for (const std::uint32_t version : {12U, 13U, 14U, 16U}) {
        const AnnouncedVersion announced(version);
        OwnedBookmark owned;
        ASSERT_EQ(owned.read(bookmark({"TITLE:a"})), VZ_OK);
        owned.item.size = 24;
        const bool refused = version >= 13;
        EXPECT_EQ(FreeConverterData(4, &owned.item), refused ? VZ_ERR_BAD_VALUE : VZ_OK) << version;
        EXPECT_EQ(owned.item.title == nullptr, !refused) << version;
    }
}

TEST(BookmarkRelease, UnreadableStringsAndRecordsAreLeftAlone) {
    const GuardPage page;
    BookmarkItem item{32, page.unreadable_as<char16_t>(), nullptr, page.unreadable_as<char16_t>()};
    EXPECT_EQ(FreeConverterData(4, &item), VZ_OK);
    EXPECT_EQ(item.title, nullptr);
    EXPECT_EQ(item.shortcut, nullptr);
    EXPECT_EQ(FreeConverterData(4, page.last(16)), VZ_ERR_POINTER);
}

}  // namespace
