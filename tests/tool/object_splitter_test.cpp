#include "vzconv/object_splitter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vzconv {
namespace {

const char* form_name(Piece::Form form) {
    switch (form) {
        case Piece::Form::Object:
            return "object";
        case Piece::Form::Unfinished:
            return "unfinished";
        case Piece::Form::Unknown:
            return "unknown";
        case Piece::Form::Stray:
            return "stray";
    }
    return "?";
}

// The pieces as "form component line: text", with '/' for LF and '~' for CR.
std::vector<std::string> pieces_of(std::string text) {
    for (char& c : text) {
        if (c == '/') c = '\n';
        if (c == '~') c = '\r';
    }
    std::vector<std::string> result;
    ObjectSplitter splitter(text);
    for (Piece piece; splitter.next(piece);) {
        std::string said = form_name(piece.form);
        if (!piece.component.empty()) said += " " + std::string(piece.component);
        said += " " + std::to_string(piece.line) + ": " + std::string(piece.text);
        for (char& c : said) {
            if (c == '\n') c = '/';
            if (c == '\r') c = '~';
        }
        result.push_back(said);
    }
    return result;
}

struct SplitRow {
    const char* name;
    std::string text;
    std::vector<std::string> pieces;
};

void expect_rows(std::initializer_list<SplitRow> rows) {
    for (const SplitRow& row : rows) EXPECT_EQ(pieces_of(row.text), row.pieces) << row.name;
}

TEST(ObjectSplitter, FindsWholeObjects) {
    expect_rows({
        {"nothing", "", {}},
        {"blank lines", "/ //", {}},
        {"one", "BEGIN:VBKM/A:1/END:VBKM/", {"object VBKM 1: BEGIN:VBKM/A:1/END:VBKM/"}},
        {"no last line end", "BEGIN:VBKM/END:VBKM", {"object VBKM 1: BEGIN:VBKM/END:VBKM"}},
        {"CR LF", "BEGIN:VBKM~/A:1~/END:VBKM~/", {"object VBKM 1: BEGIN:VBKM~/A:1~/END:VBKM~/"}},
        {"CR", "BEGIN:VBKM~A:1~END:VBKM~", {"object VBKM 1: BEGIN:VBKM~A:1~END:VBKM~"}},
        {"any case", "begin:vbkm/End:VbkM/", {"object VBKM 1: begin:vbkm/End:VbkM/"}},
        {"blanks", "  BEGIN : VBKM /END:VBKM\t/", {"object VBKM 1: BEGIN : VBKM /END:VBKM\t/"}},
        {"each component",
         "BEGIN:VCARD/END:VCARD/BEGIN:VCALENDAR/END:VCALENDAR/BEGIN:VMSG/END:VMSG/",
         {"object VCARD 1: BEGIN:VCARD/END:VCARD/", "object VCALENDAR 3: BEGIN:VCALENDAR/END:VCALENDAR/",
          "object VMSG 5: BEGIN:VMSG/END:VMSG/"}},
        {"blank lines between",
         "/BEGIN:VBKM/END:VBKM// /BEGIN:VBKM/END:VBKM//",
         {"object VBKM 2: BEGIN:VBKM/END:VBKM/", "object VBKM 6: BEGIN:VBKM/END:VBKM/"}},
    });
}

TEST(ObjectSplitter, ComponentsInsideArePartOfTheObject) {
    expect_rows({
        {"ENV",
         "BEGIN:VBKM/BEGIN:ENV/END:ENV/END:VBKM/",
         {"object VBKM 1: BEGIN:VBKM/BEGIN:ENV/END:ENV/END:VBKM/"}},
        {"cards of a message",
         "BEGIN:VMSG/BEGIN:VCARD/END:VCARD/BEGIN:VENV/END:VENV/END:VMSG/",
         {"object VMSG 1: BEGIN:VMSG/BEGIN:VCARD/END:VCARD/BEGIN:VENV/END:VENV/END:VMSG/"}},
        {"an event",
         "BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/",
         {"object VCALENDAR 1: BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/"}},
        {"the card of an agent",
         "BEGIN:VCARD/AGENT:/BEGIN:VCARD/END:VCARD/END:VCARD/",
         {"object VCARD 1: BEGIN:VCARD/AGENT:/BEGIN:VCARD/END:VCARD/END:VCARD/"}},
        {"with a blank line between",
         "BEGIN:VCARD/agent:/ /BEGIN:VCARD/END:VCARD/END:VCARD/",
         {"object VCARD 1: BEGIN:VCARD/agent:/ /BEGIN:VCARD/END:VCARD/END:VCARD/"}},
        {"with a group and parameters",
         "BEGIN:VCARD/A.AGENT;X=1:/BEGIN:VCARD/END:VCARD/END:VCARD/",
         {"object VCARD 1: BEGIN:VCARD/A.AGENT;X=1:/BEGIN:VCARD/END:VCARD/END:VCARD/"}},
        {"on one line",
         "BEGIN:VCARD/AGENT:BEGIN:VCARD/END:VCARD/END:VCARD/",
         {"object VCARD 1: BEGIN:VCARD/AGENT:BEGIN:VCARD/END:VCARD/END:VCARD/"}},
        {"an agent of an agent",
         "BEGIN:VCARD/AGENT:/BEGIN:VCARD/AGENT:/BEGIN:VCARD/END:VCARD/END:VCARD/END:VCARD/",
         {"object VCARD 1: "
          "BEGIN:VCARD/AGENT:/BEGIN:VCARD/AGENT:/BEGIN:VCARD/END:VCARD/END:VCARD/END:VCARD/"}},
        {"folded text that looks like an END",
         "BEGIN:VBKM/TITLE:a/ END:VBKM/END:VBKM/",
         {"object VBKM 1: BEGIN:VBKM/TITLE:a/ END:VBKM/END:VBKM/"}},
        {"an END inside a line",
         "BEGIN:VBKM/TITLE:END:VBKM/END:VBKM/",
         {"object VBKM 1: BEGIN:VBKM/TITLE:END:VBKM/END:VBKM/"}},
        {"the END of another component",
         "BEGIN:VBKM/END:VCARD/END:VBKM/",
         {"object VBKM 1: BEGIN:VBKM/END:VCARD/END:VBKM/"}},
    });
}

TEST(ObjectSplitter, AnUnfinishedObjectDoesNotSwallowTheNext) {
    expect_rows({
        {"end of the text", "BEGIN:VBKM/A:1/", {"unfinished VBKM 1: BEGIN:VBKM/A:1/"}},
        {"the next of its kind",
         "BEGIN:VBKM/A:1/BEGIN:VBKM/END:VBKM/",
         {"unfinished VBKM 1: BEGIN:VBKM/A:1/", "object VBKM 3: BEGIN:VBKM/END:VBKM/"}},
        {"several",
         "BEGIN:VBKM/BEGIN:VBKM/BEGIN:VBKM/END:VBKM/",
         {"unfinished VBKM 1: BEGIN:VBKM/", "unfinished VBKM 2: BEGIN:VBKM/",
          "object VBKM 3: BEGIN:VBKM/END:VBKM/"}},
        {"one of another kind",
         "BEGIN:VCALENDAR/BEGIN:VCARD/END:VCARD/",
         {"unfinished VCALENDAR 1: BEGIN:VCALENDAR/", "object VCARD 2: BEGIN:VCARD/END:VCARD/"}},
        {"a card that is no agent's",
         "BEGIN:VCARD/AGENT:x/BEGIN:VCARD/END:VCARD/",
         {"unfinished VCARD 1: BEGIN:VCARD/AGENT:x/", "object VCARD 3: BEGIN:VCARD/END:VCARD/"}},
        {"a message",
         "BEGIN:VMSG/BEGIN:VCARD/END:VCARD/BEGIN:VMSG/END:VMSG/",
         {"unfinished VMSG 1: BEGIN:VMSG/BEGIN:VCARD/END:VCARD/", "object VMSG 4: BEGIN:VMSG/END:VMSG/"}},
        {"inside a component",
         "BEGIN:VBKM/BEGIN:ENV/BEGIN:VBKM/END:VBKM/",
         {"unfinished VBKM 1: BEGIN:VBKM/BEGIN:ENV/", "object VBKM 3: BEGIN:VBKM/END:VBKM/"}},
    });
}

TEST(ObjectSplitter, NoLineOfTheTextOfAMessageCounts) {
    const std::string frame = "BEGIN:VMSG/BEGIN:VBODY/";
    const std::string end = "END:VBODY/END:VMSG/";
    expect_rows({
        {"an END of the message", frame + "END:VMSG/" + end, {"object VMSG 1: " + frame + "END:VMSG/" + end}},
        {"a BEGIN of a message",
         frame + "BEGIN:VMSG/" + end,
         {"object VMSG 1: " + frame + "BEGIN:VMSG/" + end}},
        {"an END of the body, and of all",
         frame + "END:VBODY/END:VMSG/BEGIN:VCARD/" + end,
         {"object VMSG 1: " + frame + "END:VBODY/END:VMSG/BEGIN:VCARD/" + end}},
        {"the body of the next message is another",
         frame + "END:VMSG/" + end + frame + end,
         {"object VMSG 1: " + frame + "END:VMSG/" + end, "object VMSG 6: " + frame + end}},
        {"a body without END",
         frame + "a/END:VMSG/" + frame + end,
         {"object VMSG 1: " + frame + "a/END:VMSG/", "object VMSG 5: " + frame + end}},
        {"a body without END in a message without END",
         frame + "a/" + frame + end,
         {"unfinished VMSG 1: " + frame + "a/", "object VMSG 4: " + frame + end}},
        {"the body of something else",
         "BEGIN:VBKM/BEGIN:VBODY/END:VBKM/END:VBODY/",
         {"object VBKM 1: BEGIN:VBKM/BEGIN:VBODY/END:VBKM/", "stray 4: END:VBODY"}},
    });
}

TEST(ObjectSplitter, SaysWhyAnObjectIsUnfinished) {
    ObjectSplitter splitter("BEGIN:VBKM\nBEGIN:VCARD\nEND:VCARD\nBEGIN:VMSG\n");
    Piece piece;
    ASSERT_TRUE(splitter.next(piece));
    EXPECT_EQ(piece.reason, "no END:VBKM before the BEGIN:VCARD of line 2");
    ASSERT_TRUE(splitter.next(piece));
    EXPECT_EQ(piece.reason, "");
    ASSERT_TRUE(splitter.next(piece));
    EXPECT_EQ(piece.reason, "no END:VMSG before the end of the text");
    EXPECT_FALSE(splitter.next(piece));
}

TEST(ObjectSplitter, TellsWhatIsNoObject) {
    expect_rows({
        {"text before, between, behind",
         "a/b//BEGIN:VBKM/END:VBKM/ c /BEGIN:VBKM/END:VBKM//d",
         {"stray 1: a/b", "object VBKM 4: BEGIN:VBKM/END:VBKM/", "stray 6: c ",
          "object VBKM 7: BEGIN:VBKM/END:VBKM/", "stray 10: d"}},
        {"an END alone", "END:VBKM/", {"stray 1: END:VBKM"}},
        {"a component of others",
         "BEGIN:VNOTE/BODY:x/END:VNOTE/BEGIN:VBKM/END:VBKM/",
         {"unknown VNOTE 1: BEGIN:VNOTE/BODY:x/END:VNOTE/", "object VBKM 4: BEGIN:VBKM/END:VBKM/"}},
        {"one without END",
         "BEGIN:VNOTE/BEGIN:VBKM/END:VBKM/",
         {"unknown VNOTE 1: BEGIN:VNOTE/", "object VBKM 2: BEGIN:VBKM/END:VBKM/"}},
        {"a sentence", "Begin: all of us, at five/", {"stray 1: Begin: all of us, at five"}},
        {"NUL padding",
         "BEGIN:VBKM/END:VBKM/" + std::string(8, '\0'),
         {"object VBKM 1: BEGIN:VBKM/END:VBKM/"}},
    });
}

TEST(ObjectSplitter, EveryPrefixOfAnObjectIsUnfinishedOrStray) {
    const std::string whole = "BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE:x\r\nEND:VBKM";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string text = whole.substr(0, length);
        ObjectSplitter splitter(text);
        Piece piece;
        if (!splitter.next(piece)) {
            EXPECT_EQ(length, 0U);
            continue;
        }
        EXPECT_NE(piece.form, Piece::Form::Object) << length;
        EXPECT_EQ(piece.form == Piece::Form::Unfinished, length >= sizeof "BEGIN:VBKM" - 1) << length;
    }
}

}  // namespace
}  // namespace vzconv
