// The rules of both parsers, one group of rows a rule.
#include "versit/parser.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vzapi::versit {
namespace {

template <class Unit>
using Lines = std::vector<std::basic_string<Unit>>;

Lines<char> parsed(std::string_view text) {
    Lines<char> lines;
    const VersitObject object = parse(text);
    for (const VersitProperty& line : object.lines()) lines.emplace_back(line.text());
    return lines;
}

Lines<char16_t> parsed(std::u16string_view text) {
    Lines<char16_t> lines;
    const WideVersitObject object = parse_wide(text);
    for (const WideVersitProperty& line : object.lines()) lines.emplace_back(line.text());
    return lines;
}

std::u16string widened(std::string_view text) {
    return {text.begin(), text.end()};
}

Lines<char16_t> widened(const Lines<char>& lines) {
    Lines<char16_t> wide;
    for (const std::string& line : lines) wide.push_back(widened(line));
    return wide;
}

struct Case {
    std::string text;
    Lines<char> expected;
};

// Both parsers agree where a text has no body and no bare LF before a property.
void expect_from_both(std::initializer_list<Case> cases) {
    for (const Case& row : cases) {
        EXPECT_EQ(parsed(row.text), row.expected) << testing::PrintToString(row.text);
        EXPECT_EQ(parsed(widened(row.text)), widened(row.expected)) << testing::PrintToString(row.text);
    }
}

TEST(Parser, ABareLineFeedBelongsToTheValue) {
    expect_from_both({
        {"NOTE:a\nb\r\n", {"NOTE:a\nb"}},
        {"NOTE:a\n\nb\r\n", {"NOTE:a\n\nb"}},
        {"NOTE:a\n b\r\n", {"NOTE:a\n b"}},
        {"NOTE:a\nb\nc\r\nTEL:1\r\n", {"NOTE:a\nb\nc", "TEL:1"}},
        {"NOTE:a\n", {"NOTE:a\n"}},
        {"NOTE:a=\nb\r\n", {"NOTE:a=\nb"}},
        {"NOTE:a\x1B\r\nTEL:1\r\n", {"NOTE:a\n", "TEL:1"}},  // the mark itself in the text reads as one
        {"\nlost:\r\nTEL:1\r\n", {"TEL:1"}},                 // no value for it to belong to
    });
    EXPECT_EQ(parsed(std::string_view("\nNOTE:a\r\n")), Lines<char>{});
}

TEST(Parser, AFoldedLineIsJoinedWithoutItsFirstBlank) {
    expect_from_both({
        {"NOTE:abc\r\n def\r\n", {"NOTE:abcdef"}},
        {"NOTE:abc\r\n\tdef\r\n", {"NOTE:abcdef"}},
        {"NOTE:abc\r\n  def\r\n", {"NOTE:abc def"}},
        {"NOTE:abc\r\n\r\n def\r\n", {"NOTE:abcdef"}},
        {"NOTE\r\n :abc\r\n", {"NOTE:abc"}},
        {" lost\r\n lost:too\r\nNOTE:a\r\n", {"NOTE:a"}},
        {"NOTE:a\r\n ", {"NOTE:a"}},
    });
}

TEST(Parser, ABase64ValueLosesAllBlanksOfItsFolds) {
    expect_from_both({
        {"PHOTO;ENCODING=BASE64:AAAA\r\n    BBBB\r\n \t CCCC\r\n\r\nTEL:1\r\n",
         {"PHOTO;ENCODING=BASE64:AAAABBBBCCCC", "TEL:1"}},
        {"photo;base64:AAAA\r\n    BBBB\r\n", {"photo;base64:AAAABBBB"}},
        {"NOTE:a\r\n    in base64 words\r\n", {"NOTE:ain base64 words"}},
        {"NOTE:a\r\n    in other words\r\n", {"NOTE:a   in other words"}},
        {"PHOTO;ENCODING=BASE64:AAAA\r\n BBB=\r\n", {"PHOTO;ENCODING=BASE64:AAAABBB"}},
    });
}

TEST(Parser, LinesWithoutColonAreNotInTheResult) {
    expect_from_both({
        {"stray\r\nNOTE:a\r\nstray=\r\n", {"NOTE:a"}},
        {"just a word", {}},
        {"no colon\nat all\n", {}},
        {"", {}},
        {"\r\n\r\n", {}},
        {":", {":"}},
    });
}

TEST(Parser, AFinalEqualsSignIsTakenForASoftBreakExceptInBookmarks) {
    expect_from_both({
        {"BEGIN:VCARD\r\nURL:http://example.com/?a=\r\nEND:VCARD\r\n",
         {"BEGIN:VCARD", "URL:http://example.com/?a", "END:VCARD"}},
        {"BEGIN:VBKM\r\nURL:http://example.com/?a=\r\nEND:VBKM\r\n",
         {"BEGIN:VBKM", "URL:http://example.com/?a=", "END:VBKM"}},
        {"URL:a=\r\nnote:BeGiN:vBkM\r\n", {"URL:a=", "note:BeGiN:vBkM"}},  // wherever the marker stands
        {"URL:a==\r\n", {"URL:a="}},
        {"URL:a=", {"URL:a="}},  // the last line has no line end to break
    });
}

TEST(Parser, SoftBreaksOfQuotedPrintableAreJoined) {
    expect_from_both({
        {"NOTE;ENCODING=QUOTED-PRINTABLE:abc=\r\ndef\r\nTEL:1\r\n",
         {"NOTE;ENCODING=QUOTED-PRINTABLE:abcdef", "TEL:1"}},
        {"NOTE;QUOTED-PRINTABLE:abc=\r\ndef=\r\nghi\r\nTEL:1\r\n",
         {"NOTE;QUOTED-PRINTABLE:abcdefghi", "TEL:1"}},
        {"note;quoted-printable:abc=\r\ndef\r\nTEL:1\r\n", {"note;quoted-printable:abcdef", "TEL:1"}},
        // Blanks at the front of a continuation belong to the value.
        {"NOTE;QUOTED-PRINTABLE:abc=\r\n  def\r\n", {"NOTE;QUOTED-PRINTABLE:abc  def"}},
        // A line after a break is a property only when its name is known.
        {"NOTE;QUOTED-PRINTABLE:abc=\r\nsee: this\r\n", {"NOTE;QUOTED-PRINTABLE:abcsee: this"}},
        {"NOTE;QUOTED-PRINTABLE:abc=\r\nTEL:1\r\n", {"NOTE;QUOTED-PRINTABLE:abc", "TEL:1"}},
        {"NOTE;QUOTED-PRINTABLE:abc=\r\nitem1.TEL:1\r\n", {"NOTE;QUOTED-PRINTABLE:abc", "item1.TEL:1"}},
        {"NOTE;QUOTED-PRINTABLE:abc=\r\nX-Any Thing:1\r\n", {"NOTE;QUOTED-PRINTABLE:abc", "X-Any Thing:1"}},
        // Without one before it, the form of a property is enough.
        {"NOTE;QUOTED-PRINTABLE:abc=\r\ndef\r\nsee: this\r\n", {"NOTE;QUOTED-PRINTABLE:abcdef", "see: this"}},
        {"NOTE;QUOTED-PRINTABLE:abc=\r\ndef\r\nno form\r\n", {"NOTE;QUOTED-PRINTABLE:abcdefno form"}},
        // A bare LF inside such a value gains no blank.
        {"NOTE;QUOTED-PRINTABLE:abc=\r\ndef\nghi\r\n", {"NOTE;QUOTED-PRINTABLE:abcdef\nghi"}},
    });
}

TEST(Parser, BookmarkTextKeepsTheThreeLinesOfTheShortcut) {
    expect_from_both({
        {"BEGIN:VBKM\r\nX-IRMC-URL;QUOTED-PRINTABLE:=\r\n[InternetShortcut]=\r\nURL=local\r\nstray\r\nEND:"
         "VBKM\r\n",
         {"BEGIN:VBKM", "X-IRMC-URL;QUOTED-PRINTABLE:", "[InternetShortcut]=", "URL=local", "END:VBKM"}},
    });
}

TEST(Parser, TheTextEndsAtItsFirstNul) {
    EXPECT_EQ(parsed(std::string_view("NOTE:a\0b\r\nTEL:1\r\n", 18)), (Lines<char>{"NOTE:a"}));
    EXPECT_EQ(parsed(std::u16string_view(u"NOTE:a\0b\r\nTEL:1\r\n", 18)), (Lines<char16_t>{u"NOTE:a"}));
    EXPECT_EQ(parsed(std::string_view("\0NOTE:a", 7)), Lines<char>{});
}

TEST(Parser, EveryPrefixOfACardParses) {
    const std::string card =
        "BEGIN:VCARD\r\nN;ENCODING=QUOTED-PRINTABLE:a=\r\nb\r\nNOTE:x\ny\r\n z\r\n"
        "PHOTO;BASE64:\r\n  AAA=\r\n\r\nEND:VCARD\r\n";
    Lines<char> all = parsed(card);
    ASSERT_EQ(all.size(), 5U);
    for (std::size_t length = 0; length <= card.size(); ++length) {
        EXPECT_LE(parsed(card.substr(0, length)).size(), all.size()) << length;
    }
}

TEST(WideParser, OutsideABodyALineFeedBeforeAPropertyEndsTheLine) {
    EXPECT_EQ(parsed(u"X-IRMC-TYPE:SMS\nX-NRD-DT:1\r\n"),
              (Lines<char16_t>{u"X-IRMC-TYPE:SMS", u"X-NRD-DT:1"}));
    EXPECT_EQ(parsed(u"N:a\nno property\r\n"), (Lines<char16_t>{u"N:a\nno property"}));
    EXPECT_EQ(parsed(u"BEGIN:VMSG\nVERSION:1.1\nEND:VMSG"),
              (Lines<char16_t>{u"BEGIN:VMSG", u"VERSION:1.1", u"END:VMSG"}));
}

struct BodyCase {
    std::u16string text;
    Lines<char16_t> lines;
    std::vector<LineRange> bodies;
};

TEST(WideParser, ABodyIsKeptLineByLine) {
    const BodyCase cases[] = {
        {u"BEGIN:VBODY\r\nDate:1\r\nword\r\n\r\n folded?\r\nsoft=\r\nEND:VBODY\r\nEND:VENV\r\n",
         {u"BEGIN:VBODY", u"Date:1", u"word", u"", u" folded?", u"soft=", u"END:VBODY", u"END:VENV"},
         {{1, 6}}},
        {u"BEGIN:VBODY\na\nb\nEND:VBODY\nEND:VMSG\n",
         {u"BEGIN:VBODY", u"a", u"b", u"END:VBODY", u"END:VMSG\n"},
         {{1, 3}}},
        {u"BEGIN:VBODY\r\na\rb\r\nEND:VBODY\r\n", {u"BEGIN:VBODY", u"a\rb", u"END:VBODY"}, {{1, 2}}},
        // A message may quote an end, and a whole body.
        {u"BEGIN:VBODY\r\na\r\nEND:VBODY\r\nb\r\nEND:VBODY\r\n",
         {u"BEGIN:VBODY", u"a", u"END:VBODY", u"b", u"END:VBODY"},
         {{1, 4}}},
        {u"BEGIN:VBODY\r\nBEGIN:VBODY\r\nEND:VBODY\r\nEND:VBODY\r\n",
         {u"BEGIN:VBODY", u"BEGIN:VBODY", u"END:VBODY", u"END:VBODY"},
         {{1, 3}}},
        // Two bodies; between them the rules of properties hold.
        {u"BEGIN:VBODY\r\na\r\nEND:VBODY\r\nword\r\nTEL:1\r\n 2\r\nBEGIN:VBODY\r\nb\r\nEND:VBODY\r\n",
         {u"BEGIN:VBODY", u"a", u"END:VBODY", u"TEL:12", u"BEGIN:VBODY", u"b", u"END:VBODY"},
         {{1, 2}, {5, 6}}},
        {u"BEGIN:VBODY\r\nEND:VBODY\r\n", {u"BEGIN:VBODY", u"END:VBODY"}, {{1, 1}}},
        {u"BEGIN:VBODY\r\nnever closed", {u"BEGIN:VBODY", u"never closed"}, {{1, 2}}},
        {u"BEGIN:VBODY\r\nnot END:VBODY\r\nEND:VBODY!\r\nEND:VBODY \r\n",
         {u"BEGIN:VBODY", u"not END:VBODY", u"END:VBODY!", u"END:VBODY "},
         {{1, 3}}},
    };
    for (const BodyCase& row : cases) {
        const WideVersitObject object = parse_wide(row.text);
        EXPECT_EQ(parsed(row.text), row.lines);
        EXPECT_EQ(object.bodies(), row.bodies) << testing::PrintToString(row.lines);
    }
}

TEST(WideParser, AMentionOfABookmarkReachesOverTheWholeMessage) {
    EXPECT_EQ(
        parsed(u"NOTE;QUOTED-PRINTABLE:a=\r\nb=\r\nX:c=\r\nBEGIN:VBODY\r\nsee begin:vbkm\r\nEND:VBODY\r\n"),
        (Lines<char16_t>{u"NOTE;QUOTED-PRINTABLE:a", u"b=", u"X:c=", u"BEGIN:VBODY", u"see begin:vbkm",
                         u"END:VBODY"}));
    EXPECT_EQ(
        parsed(u"NOTE;QUOTED-PRINTABLE:a=\r\nb=\r\nX-C:c=\r\nBEGIN:VBODY\r\nno mention\r\nEND:VBODY\r\n"),
        (Lines<char16_t>{u"NOTE;QUOTED-PRINTABLE:ab", u"X-C:c", u"BEGIN:VBODY", u"no mention",
                         u"END:VBODY"}));
}

TEST(WideParser, UnitsAboveAsciiAreKept) {
    EXPECT_EQ(parsed(u"N:\u00E9\xD83D\u0D0A\u0A0D\r\n \U0001F600\r\n"),
              (Lines<char16_t>{u"N:\u00E9\xD83D\u0D0A\u0A0D\U0001F600"}));
}

}  // namespace
}  // namespace vzapi::versit
