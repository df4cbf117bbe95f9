// Record to text to record: equal, but for what the rules themselves lose. Those losses are named here by
// predicate, each is shown by example, and docs/limits.md lists them.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "support/text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

using Text = std::optional<std::u16string>;

struct Bookmark {
    Text title;
    Text url;
    Text shortcut;
};

char16_t* pointer_to(Text& text) {
    return text ? text->data() : nullptr;
}

Text text_at(const char16_t* text) {
    return text == nullptr ? Text() : Text(text);
}

Bookmark there_and_back(Bookmark bookmark) {
    const BookmarkItem item{sizeof(BookmarkItem), pointer_to(bookmark.title), pointer_to(bookmark.url),
                            pointer_to(bookmark.shortcut)};
    OwnedText text;
    EXPECT_EQ(ConvertToVersit(VZ_TYPE_BOOKMARK, &item, &text.data), VZ_OK);
    BookmarkItem back{};
    back.size = sizeof back;
    EXPECT_EQ(ConvertFromVersit(VZ_TYPE_BOOKMARK, &text.data, &back), VZ_OK);
    Bookmark result{text_at(back.title), text_at(back.url), text_at(back.shortcut)};
    EXPECT_EQ(FreeConverterData(VZ_TYPE_BOOKMARK, &back), VZ_OK);
    return result;
}

// ---- What the rules lose.

bool contains(std::u16string_view text, std::u16string_view part) {
    return text.find(part) != text.npos;
}

std::u16string upper(std::u16string_view text) {
    std::u16string result(text);
    for (char16_t& unit : result) {
        if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - u'a' + u'A');
    }
    return result;
}

bool is_ascii(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 128; });
}

bool breaks_its_line(std::u16string_view text) {
    return contains(text, u"\r\n");
}

bool ends_in_an_escape_character(std::u16string_view text) {
    return text.ends_with(u'\x1B');
}

bool looks_softly_broken(std::u16string_view text) {
    return contains(upper(text), u"QUOTED-PRINTABLE") && text.ends_with(u'=');
}

// A continuation line loses all its blanks where Base64 is mentioned.
bool loses_blanks_after_a_line_feed(std::u16string_view text) {
    const bool blanks = contains(text, u"\n ") || contains(text, u"\n\t") || contains(text, u"\n\n");
    return blanks && contains(upper(text), u"BASE64");
}

bool names_a_decoded_encoding(std::u16string_view text) {
    if (contains(text, u"7BIT") || contains(text, u"8BIT")) return false;
    return contains(text, u"QUOTED-PRINTABLE") || contains(text, u"BASE64");
}

bool is_hexadecimal(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'F') || (unit >= u'a' && unit <= u'f');
}

bool looks_quoted_printable(std::u16string_view text) {
    for (std::size_t i = 2; i < text.size(); ++i) {
        if (text[i - 2] == u'=' && is_hexadecimal(text[i - 1]) && is_hexadecimal(text[i])) return true;
    }
    return false;
}

bool address_is_lost(std::u16string_view text) {
    return breaks_its_line(text) || ends_in_an_escape_character(text) || looks_softly_broken(text) ||
           loses_blanks_after_a_line_feed(text);
}

bool title_is_lost(std::u16string_view text) {
    return address_is_lost(text) || names_a_decoded_encoding(text);
}

bool shortcut_is_lost(std::u16string_view text) {
    const bool encoded = !is_ascii(text) || contains(text, u"\r") || contains(text, u"\n");
    if (encoded) return false;
    return looks_quoted_printable(text) || ends_in_an_escape_character(text) || looks_softly_broken(text);
}

// An empty text comes back as an absent one.
Text expected(const Text& text) {
    return text && text->empty() ? Text() : text;
}

// ---- Random records.

class Records {
public:
    explicit Records(unsigned seed) : random_(seed) {}

    Text text(bool (*lost)(std::u16string_view)) {
        if (below(8) == 0) return {};
        std::u16string text;
        do {
            text = pieces();
        } while (lost(text));
        return text;
    }

private:
    unsigned below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(random_); }

    std::u16string pieces() {
        static constexpr std::u16string_view kPieces[] = {u"a",
                                                          u"Title",
                                                          u" ",
                                                          u"\t",
                                                          u"=",
                                                          u"=4",
                                                          u"=41",
                                                          u":",
                                                          u";",
                                                          u"\r",
                                                          u"\n",
                                                          u"\x1B",
                                                          u"\\",
                                                          u",",
                                                          u"TITLE:",
                                                          u"URL=",
                                                          u"END:VBKM",
                                                          u"BEGIN:VBKM",
                                                          u"BEGIN:ENV",
                                                          u"VERSION:2.0",
                                                          u"[InternetShortcut]=",
                                                          u"QUOTED-PRINTABLE",
                                                          u"quoted-printable",
                                                          u"BASE64",
                                                          u"7BIT",
                                                          u"8BIT",
                                                          u"http://example.com/",
                                                          u"\u00E9",
                                                          u"\u7FFF",
                                                          u"\U0001F600",
                                                          u"\uFEFF",
                                                          u"\uFFFF",
                                                          u"\x01",
                                                          u"\x7F",
                                                          u"\u0080"};
        std::u16string text;
        for (unsigned count = below(12); count > 0; --count) text += kPieces[below(std::size(kPieces))];
        if (below(20) == 0) text.append(below(500), u'x');
        return text;
    }

    std::mt19937 random_;
};

TEST(BookmarkRoundTrip, RandomRecordsComeBackEqual) {
    Records records(1234);
    for (int i = 0; i < 20'000; ++i) {
        const Bookmark bookmark{records.text(title_is_lost), records.text(address_is_lost),
                                records.text(shortcut_is_lost)};
        const Bookmark back = there_and_back(bookmark);
        ASSERT_EQ(back.title, expected(bookmark.title)) << i;
        ASSERT_EQ(back.url, expected(bookmark.url)) << i;
        ASSERT_EQ(back.shortcut, expected(bookmark.shortcut)) << i;
    }
}

TEST(BookmarkRoundTrip, EveryCharacterComesBack) {
    for (char32_t point = 1; point < 0x110000; point += point < 0x3000 ? 1 : 251) {
        if (point >= 0xD800 && point < 0xE000) continue;
        std::u16string text = u"<";
        if (point < 0x10000) {
            text.push_back(static_cast<char16_t>(point));
        } else {
            text.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
        }
        text.push_back(u'>');
        const Bookmark back = there_and_back({text, text, text});
        ASSERT_EQ(back.title, text) << static_cast<std::uint32_t>(point);
        ASSERT_EQ(back.url, text) << static_cast<std::uint32_t>(point);
        ASSERT_EQ(back.shortcut, text) << static_cast<std::uint32_t>(point);
    }
}

// ---- The losses, each by example: what comes back instead, and nothing else suffers.

struct LossRow {
    std::u16string text;
    Text title;
    Text url;
    Text shortcut;
};

TEST(BookmarkLimits, EachLossAsListed) {
    const std::u16string_view surrogate = u"a\xD800z";
    const LossRow rows[] = {
        {u"", {}, {}, {}},
        {u"a\r\nb", u"a", u"a", u"a\r\nb"},
        {u"a\r\nb=c", u"a", u"a", u"a\r\nb=c"},
        {u"a\x1B", u"a\n", u"a\n", u"a\n"},
        {u"x=41", u"x=41", u"x=41", u"xA"},
        {u"see BASE64", u"\uFFFD\uFFFD\x01!:", u"see BASE64", u"see BASE64"},
        {u"QUOTED-PRINTABLE =41", u"QUOTED-PRINTABLE A", u"QUOTED-PRINTABLE =41", u"QUOTED-PRINTABLE A"},
        {u"quoted-printable=", u"quoted-printable", u"quoted-printable", u"quoted-printable"},
        {u"base64\n  a", u"base64\na", u"base64\na", u"base64\n  a"},
        {std::u16string(surrogate), u"a\uFFFDz", u"a\uFFFDz", u"a\uFFFDz"},
    };
    for (const LossRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        EXPECT_EQ(there_and_back({row.text, u"u", {}}).title, row.title);
        EXPECT_EQ(there_and_back({u"t", row.text, {}}).url, row.url);
        EXPECT_EQ(there_and_back({u"t", u"u", row.text}).shortcut, row.shortcut);
    }
}

TEST(BookmarkLimits, ALineBreakInATitleMayBeginAnotherProperty) {
    const Bookmark back = there_and_back({u"a\r\nURL:injected", {}, {}});
    EXPECT_EQ(back.title, u"a");
    EXPECT_EQ(back.url, u"injected");
}

}  // namespace
