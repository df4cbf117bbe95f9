// The literal parser by itself: what it is measured by are the rules' own examples, and each reading of them.
#include "reference/versit_parser_reference.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reference/wide_parser_reference.h"

namespace vzapi::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

struct Case {
    std::string shows;
    std::string text;
    std::vector<std::string> lines;
};

void expect_lines(const std::vector<Case>& cases) {
    for (const Case& row : cases) EXPECT_EQ(reference::parse(row.text), row.lines) << row.shows;
}

TEST(ParserReference, BareLineFeedStaysInTheValue) {
    expect_lines({
        {"inside a value", "NOTE:a\nb\r\n", {"NOTE:a\nb"}},
        {"two of them", "NOTE:a\n\nb\r\n", {"NOTE:a\n\nb"}},
        {"before a blank", "NOTE:a\n b\r\n", {"NOTE:a\n b"}},
        {"before what looks like a property", "NOTE:a\nTEL:1\r\n", {"NOTE:a\nTEL:1"}},
        {"at the end of the text", "NOTE:a\n", {"NOTE:a\n"}},
        {"at the start of the text", "\nNOTE:a\r\n", {}},
        {"behind an empty line: the blank of a fold", "NOTE:a\r\n\nb\r\n", {"NOTE:ab"}},
        {"after an ESC that ends a line", "NOTE:a\x1B\r\n b\r\n", {"NOTE:a\nb"}},
    });
}

TEST(ParserReference, LineEndIsOneCrAndOneLf) {
    expect_lines({
        {"a CR too many stays", "NOTE:a\r\r\nTEL:1\r\n", {"NOTE:a\r", "TEL:1"}},
        {"a lone CR stays", "NOTE:a\rb\r\n", {"NOTE:a\rb"}},
        {"the last line needs none", "NOTE:a\r\nTEL:1", {"NOTE:a", "TEL:1"}},
        {"the text ends at its first NUL", "NOTE:a\r\nTEL:1\0;TEL:2\r\n"s, {"NOTE:a", "TEL:1"}},
    });
}

TEST(ParserReference, FoldLosesOneLeadingBlank) {
    expect_lines({
        {"blank", "NOTE:abc\r\n def\r\n", {"NOTE:abcdef"}},
        {"TAB", "NOTE:abc\r\n\tdef\r\n", {"NOTE:abcdef"}},
        {"two blanks", "NOTE:abc\r\n  def\r\n", {"NOTE:abc def"}},
        {"empty line", "NOTE:abc\r\n\r\n def\r\n", {"NOTE:abcdef"}},
        {"before the first head line", " x\r\nNOTE:abc\r\n", {"NOTE:abc"}},
    });
}

TEST(ParserReference, Base64LosesAllLeadingBlanks) {
    expect_lines({
        {"named by the head line", "PHOTO;BASE64:AA\r\n    BB\r\n \t CC\r\n", {"PHOTO;BASE64:AABBCC"}},
        {"in small letters", "PHOTO;base64:AA\r\n   BB\r\n", {"PHOTO;base64:AABB"}},
        {"named by the continuation", "NOTE:AA\r\n   base64\r\n   BB\r\n", {"NOTE:AAbase64  BB"}},
        {"padding goes with the soft-break rule", "PHOTO;BASE64:AA==\r\n", {"PHOTO;BASE64:AA="}},
        {"line feeds are blanks", "PHOTO;BASE64:AA\r\n\n \nBB\r\n", {"PHOTO;BASE64:AABB"}},
    });
}

TEST(ParserReference, LineWithoutColonIsDropped) {
    expect_lines({
        {"stray word", "NOTE:a\r\nstray\r\nTEL:1\r\n", {"NOTE:a", "TEL:1"}},
        {"nothing but words", "one two three", {}},
        {"empty text", "", {}},
        {"line ends alone", "\r\n\r\n\n\r\n", {}},
    });
}

TEST(ParserReference, FinalEqualsSignIsTakenForASoftBreak) {
    expect_lines({
        {"any line", "NOTE:a=\r\n", {"NOTE:a"}},
        {"the last one only with a line end", "NOTE:a=", {"NOTE:a="}},
        {"one sign only", "NOTE:a==\r\n", {"NOTE:a="}},
        {"before a bare LF it is not final", "NOTE:a=\nb\r\n", {"NOTE:a=\nb"}},
        {"stays in bookmark text", "BEGIN:VBKM\r\nURL:a=\r\n", {"BEGIN:VBKM", "URL:a="}},
        {"bookmark text in any case", "URL:a=\r\nbegin:vbkm\r\n", {"URL:a=", "begin:vbkm"}},
    });
}

TEST(ParserReference, BookmarkKeepsTheLinesOfTheShortcut) {
    const std::string text =
        "BEGIN:VBKM\r\nBEGIN:ENV\r\nX-IRMC-URL;QUOTED-PRINTABLE:=\r\n[InternetShortcut]=\r\nURL=a\r\nEND:"
        "ENV\r\n"
        "stray\r\nEND:VBKM\r\n";
    EXPECT_THAT(reference::parse(text), ElementsAre("BEGIN:VBKM", "BEGIN:ENV", "X-IRMC-URL;QUOTED-PRINTABLE:",
                                                    "[InternetShortcut]=", "URL=a", "END:ENV", "END:VBKM"));
}

TEST(ParserReference, SoftBreakJoinsWhatIsNoProperty) {
    const std::string head = "NOTE;QUOTED-PRINTABLE:a=\r\n";
    const std::string joined = "NOTE;QUOTED-PRINTABLE:a";
    expect_lines({
        {"plain text", head + "b\r\n", {joined + "b"}},
        {"blanks of the value stay", head + " b\r\n", {joined + " b"}},
        {"further soft breaks", head + "b=\r\nc\r\n", {joined + "bc"}},
        {"a known name ends the run", head + "TEL:1\r\n", {joined, "TEL:1"}},
        {"in a group too", head + "item1.tel:1\r\n", {joined, "item1.tel:1"}},
        {"X- ends it", head + "x-any;p:1\r\n", {joined, "x-any;p:1"}},
        {"an unknown name does not", head + "FOO:1\r\n", {joined + "FOO:1"}},
        {"unless no '=' stands before it", head + "b\r\nFOO:1\r\n", {joined + "b", "FOO:1"}},
        {"text behind the run's end stays in it", head + "b\r\nc d\r\n", {joined + "bc d"}},
        {"a line of the run opens none",
         head + "FOO;QUOTED-PRINTABLE:=\r\nBAR:1\r\n",
         {joined + "FOO;QUOTED-PRINTABLE:BAR:1"}},
        {"a property in the run opens the next",
         head + "FN;QUOTED-PRINTABLE:x=\r\ny\r\n",
         {joined, "FN;QUOTED-PRINTABLE:xy"}},
        {"a bare LF gains no blank", head + "b\nc=\r\nd\r\n", {joined + "b\ncd"}},
        {"behind a bare LF nothing is a property",
         head + "b\nTEL:1\r\nTEL:2\r\n",
         {joined + "b\nTEL:1", "TEL:2"}},
        {"small letters open a run", "NOTE;quoted-printable:a=\r\nb\r\n", {"NOTE;quoted-printable:ab"}},
        {"and lose two signs", "NOTE;quoted-printable:a==\r\nb\r\n", {"NOTE;quoted-printable:ab"}},
        {"no run without the name", "NOTE:a=\r\nb\r\n", {"NOTE:a"}},
        {"no run from a line without form", "a b;QUOTED-PRINTABLE:a=\r\nb\r\n", {"a b;QUOTED-PRINTABLE:a"}},
        {"a run from an unknown name", "FOO;QUOTED-PRINTABLE:a=\r\nb\r\n", {"FOO;QUOTED-PRINTABLE:ab"}},
    });
}

TEST(WideParserReference, BareLineFeedBeforeAPropertyEndsTheLine) {
    EXPECT_THAT(reference::parse_wide(u"BEGIN:VMSG\nTEL:1\nb\nfoo:2\nNICKNAME:x\nEND:VMSG\n").lines,
                ElementsAre(u"BEGIN:VMSG", u"TEL:1\nb\nfoo:2", u"NICKNAME:x", u"END:VMSG\n"));
    EXPECT_THAT(reference::parse_wide(u"TEL:1=\nTEL:2\r\n").lines, ElementsAre(u"TEL:1", u"TEL:2"));
    EXPECT_THAT(reference::parse_wide(u"\nTEL:2\r\n").lines, ElementsAre(u"TEL:2"));
}

TEST(WideParserReference, BodyLinesStayAsTheyAre) {
    const reference::WideParse parse = reference::parse_wide(
        u"BEGIN:VMSG\r\nbegin:vbody \t\r\nDate:1=\r\n folded\r\n\r\nno colon\rnext\nlast\r\r\nEnd:VBody\r\n"
        u"END:VMSG\r\n");
    EXPECT_THAT(parse.lines, ElementsAre(u"BEGIN:VMSG", u"begin:vbody \t", u"Date:1=", u" folded", u"",
                                         u"no colon\rnext", u"last\r", u"End:VBody", u"END:VMSG"));
    EXPECT_THAT(parse.bodies, ElementsAre(Pair(2U, 7U)));
}

TEST(WideParserReference, LastEndBeforeTheNextBodyCloses) {
    const reference::WideParse parse = reference::parse_wide(
        u"BEGIN:VBODY\r\nBEGIN:VBODY\r\nEND:VBODY\r\na\r\nEND:VBODY\r\nTEL:1\r\nBEGIN:VBODY\r\nb\r\nEND:"
        u"VBODY");
    EXPECT_THAT(parse.lines, ElementsAre(u"BEGIN:VBODY", u"BEGIN:VBODY", u"END:VBODY", u"a", u"END:VBODY",
                                         u"TEL:1", u"BEGIN:VBODY", u"b", u"END:VBODY"));
    EXPECT_THAT(parse.bodies, ElementsAre(Pair(1U, 4U), Pair(7U, 8U)));
}

TEST(WideParserReference, UnclosedBodyReachesToTheEnd) {
    const reference::WideParse parse = reference::parse_wide(u"BEGIN:VBODY\na\n\n");
    EXPECT_THAT(parse.lines, ElementsAre(u"BEGIN:VBODY", u"a", u""));
    EXPECT_THAT(parse.bodies, ElementsAre(Pair(1U, 3U)));
    EXPECT_THAT(reference::parse_wide(u"BEGIN:VBODY").bodies, ElementsAre(Pair(1U, 1U)));
    EXPECT_THAT(reference::parse_wide(u" BEGIN:VBODY\r\nTEL:1").bodies, IsEmpty());
}

TEST(WideParserReference, WhatFollowsABodyIsParsedByItself) {
    const reference::WideParse parse = reference::parse_wide(
        u"NOTE;QUOTED-PRINTABLE:a=\r\nBEGIN:VBODY\r\nx\r\nEND:VBODY\n y\r\nstray\r\nTEL:1\0TEL:2"s);
    EXPECT_THAT(parse.lines,
                ElementsAre(u"NOTE;QUOTED-PRINTABLE:a", u"BEGIN:VBODY", u"x", u"END:VBODY\n y", u"TEL:1"));
}

}  // namespace
}  // namespace vzapi::test
