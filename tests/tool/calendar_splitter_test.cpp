#include "vzconv/calendar_splitter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vzconv {
namespace {

std::string with_line_ends(std::string text) {
    for (char& c : text) {
        if (c == '/') c = '\n';
    }
    return text;
}

// Each entry as "line component: text", or "line component! reason"; '/' stands for LF.
std::vector<std::string> entries_of(const std::string& text) {
    const std::string lines = with_line_ends(text);
    std::vector<std::string> result;
    ObjectSplitter splitter(lines);
    for (Piece piece; splitter.next(piece);) {
        for_each_entry(piece, [&](const Piece& entry) {
            std::string said = std::to_string(entry.line) + " " + std::string(entry.component) +
                               (entry.reason.empty() ? ": " + std::string(entry.text) : "! " + entry.reason);
            for (char& c : said) {
                if (c == '\n') c = '/';
            }
            result.push_back(said);
            EXPECT_EQ(entry.form == Piece::Form::Object, entry.reason.empty()) << said;
        });
    }
    return result;
}

struct SplitRow {
    const char* name;
    std::string text;
    std::vector<std::string> entries;
};

void expect_rows(std::initializer_list<SplitRow> rows) {
    for (const SplitRow& row : rows) EXPECT_EQ(entries_of(row.text), row.entries) << row.name;
}

TEST(CalendarSplitter, WhatNeedsNoSplittingIsHandedOnAsItIs) {
    expect_rows({
        {"one event",
         "BEGIN:VCALENDAR/X:1/BEGIN:VEVENT/A:1/END:VEVENT/Y:1/END:VCALENDAR/",
         {"1 VCALENDAR: BEGIN:VCALENDAR/X:1/BEGIN:VEVENT/A:1/END:VEVENT/Y:1/END:VCALENDAR/"}},
        {"one to-do without its END",
         "BEGIN:VCALENDAR/BEGIN:VTODO/A:1/END:VCALENDAR/",
         {"1 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VTODO/A:1/END:VCALENDAR/"}},
        {"no entry",
         "BEGIN:VCALENDAR/BEGIN:VTIMEZONE/END:VTIMEZONE/END:VCALENDAR/",
         {"1 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VTIMEZONE/END:VTIMEZONE/END:VCALENDAR/"}},
        {"another kind",
         "BEGIN:VCARD/BEGIN:VEVENT/END:VEVENT/BEGIN:VEVENT/END:VEVENT/END:VCARD/",
         {"1 VCARD: BEGIN:VCARD/BEGIN:VEVENT/END:VEVENT/BEGIN:VEVENT/END:VEVENT/END:VCARD/"}},
        {"an unknown kind",
         "BEGIN:VNOTE/BEGIN:VEVENT/END:VEVENT/BEGIN:VEVENT/END:VEVENT/END:VNOTE/",
         {"1 VNOTE! no kind of object that vzconv knows"}},
    });
}

TEST(CalendarSplitter, EachEntryIsACalendarOfItsOwn) {
    expect_rows({
        {"the head says what it says of all, wherever it stands",
         "BEGIN:VCALENDAR/VERSION:1.0/X:1/TZ:+01/BEGIN:VEVENT/A:1/END:VEVENT/daylight;X=1 :FALSE/"
         "BEGIN:VTODO/B:1/END:VTODO/END:VCALENDAR/",
         {"5 VCALENDAR: BEGIN:VCALENDAR/VERSION:1.0/TZ:+01/daylight;X=1 :FALSE/BEGIN:VEVENT/A:1/END:VEVENT/"
          "END:VCALENDAR/",
          "9 VCALENDAR: BEGIN:VCALENDAR/VERSION:1.0/TZ:+01/daylight;X=1 :FALSE/BEGIN:VTODO/B:1/END:VTODO/"
          "END:VCALENDAR/"}},
        {"folded lines of the head",
         "BEGIN:VCALENDAR/VERSION/ :1.0/X:1/ "
         "TZ:2/BEGIN:VEVENT/END:VEVENT/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/",
         {"6 VCALENDAR: BEGIN:VCALENDAR/VERSION/ :1.0/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/",
          "8 VCALENDAR: BEGIN:VCALENDAR/VERSION/ :1.0/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/"}},
        {"components inside of entries and beside them",
         "BEGIN:VCALENDAR/BEGIN:VTIMEZONE/TZ:1/BEGIN:DAYLIGHT/END:DAYLIGHT/TZ:2/END:VTIMEZONE/BEGIN:VEVENT/"
         "BEGIN:VALARM/TZ:3/END:VALARM/END:VEVENT/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/",
         {"8 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/BEGIN:VALARM/TZ:3/END:VALARM/END:VEVENT/END:VCALENDAR/",
          "13 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/"}},
        {"in any case, behind another object",
         "BEGIN:VBKM/END:VBKM/begin:vcalendar/begin:vevent/end:VEVENT/BEGIN:vtodo/END:vTodo/end:vcalendar/",
         {"1 VBKM: BEGIN:VBKM/END:VBKM/",
          "4 VCALENDAR: begin:vcalendar/begin:vevent/end:VEVENT/END:VCALENDAR/",
          "6 VCALENDAR: begin:vcalendar/BEGIN:vtodo/END:vTodo/END:VCALENDAR/"}},
    });
}

TEST(CalendarSplitter, EntriesOfOthersAreNamed) {
    expect_rows({
        {"alone",
         "BEGIN:VCALENDAR/BEGIN:VJOURNAL/END:VJOURNAL/END:VCALENDAR/",
         {"2 VJOURNAL! no kind of entry that vzconv knows"}},
        {"beside one of ours",
         "BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/BEGIN:VFREEBUSY/END:VFREEBUSY/END:VCALENDAR/",
         {"2 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/",
          "4 VFREEBUSY! no kind of entry that vzconv knows"}},
    });
}

TEST(CalendarSplitter, AMissingEndCostsNoOtherEntry) {
    expect_rows({
        {"of an entry, another one follows",
         "BEGIN:VCALENDAR/BEGIN:VEVENT/A:1/BEGIN:VEVENT/B:1/END:VEVENT/END:VCALENDAR/",
         {"2 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/A:1/END:VCALENDAR/",
          "4 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/B:1/END:VEVENT/END:VCALENDAR/"}},
        {"of the last entry",
         "BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/BEGIN:VEVENT/B:1/END:VCALENDAR/",
         {"2 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/",
          "4 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/B:1/END:VCALENDAR/"}},
        {"of a time zone",
         "BEGIN:VCALENDAR/BEGIN:VTIMEZONE/BEGIN:VEVENT/END:VEVENT/BEGIN:VTODO/END:VTODO/TZ:1/END:VCALENDAR/",
         {"3 VCALENDAR: BEGIN:VCALENDAR/TZ:1/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/",
          "5 VCALENDAR: BEGIN:VCALENDAR/TZ:1/BEGIN:VTODO/END:VTODO/END:VCALENDAR/"}},
        {"of the calendar",
         "BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT",
         {"1 VCALENDAR! no END:VCALENDAR before the end of the text",
          "2 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/"}},
        {"of the calendar and its last entry",
         "BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/BEGIN:VTODO/A",
         {"1 VCALENDAR! no END:VCALENDAR before the end of the text",
          "2 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VEVENT/END:VEVENT/END:VCALENDAR/",
          "4 VCALENDAR! no END:VTODO before its calendar breaks off"}},
        {"of the calendar and its only entry",
         "BEGIN:VCALENDAR/BEGIN:VEVENT/A",
         {"1 VCALENDAR! no END:VCALENDAR before the end of the text"}},
        {"of the calendar, another one follows",
         "BEGIN:VCALENDAR/BEGIN:VTODO/END:VTODO/BEGIN:VCALENDAR/END:VCALENDAR/",
         {"1 VCALENDAR! no END:VCALENDAR before the BEGIN:VCALENDAR of line 4",
          "2 VCALENDAR: BEGIN:VCALENDAR/BEGIN:VTODO/END:VTODO/END:VCALENDAR/",
          "4 VCALENDAR: BEGIN:VCALENDAR/END:VCALENDAR/"}},
    });
}

TEST(CalendarSplitter, ALongHeadIsNotRepeatedAsOftenAsThereAreEntries) {
    std::string text = "BEGIN:VCALENDAR/VERSION:1.0/";
    for (int i = 0; i < 10000; ++i) text += "DAYLIGHT:FALSE/";
    for (int i = 0; i < 1000; ++i) text += "BEGIN:VEVENT/END:VEVENT/";
    text = with_line_ends(text + "END:VCALENDAR/");
    ObjectSplitter splitter(text);
    Piece piece;
    ASSERT_TRUE(splitter.next(piece));
    std::size_t entries = 0;
    for_each_entry(piece, [&](const Piece& entry) {
        ++entries;
        EXPECT_LT(entry.text.size(), 0x8100U);
        EXPECT_GT(entry.text.size(), 255 * sizeof "DAYLIGHT:FALSE");
    });
    EXPECT_EQ(entries, 1000U);
}

}  // namespace
}  // namespace vzconv
