#include <gtest/gtest.h>

#include <string>

#include "vcalendar/calendar_time.h"
#include "vcalendar/recurrence_support.h"
#include "vcalendar/recurrence_text.h"

namespace vzapi::test {
namespace {

using vcalendar::parse_rrule;
using vcalendar::Recurrence;

struct ReadRow {
    const char* rule;
    const char* record;  // "none" where a record cannot express it
};

// The start of all rows is Tuesday, 10 March 2009, 14:30: the second Tuesday.
constexpr const char* kStart = "20090310T143000";

const ReadRow kReadRows[] = {
    // clang-format off
    {"FREQ=DAILY", "daily 1"},
    {"FREQ=WEEKLY", "weekly 1 TU"},
    {"FREQ=MONTHLY", "monthly 1"},
    {"FREQ=YEARLY", "yearly 1"},
    {"FREQ=WEEKLY;BYDAY=MO,WE", "weekly 1 MO WE"},
    {"FREQ=WEEKLY;BYDAY=MO,MO", "weekly 1 MO"},
    // Any order, either case, blanks around names and values, a ';' too many.
    {"BYDAY=MO,WE;FREQ=WEEKLY", "weekly 1 MO WE"},
    {"freq=weekly;byday=mo,we;until=20090312t143000z", "weekly 1 MO WE until 20090312T143000Z"},
    {" FREQ = WEEKLY ; BYDAY = MO , WE ", "weekly 1 MO WE"},
    {";FREQ=WEEKLY;;BYDAY=MO,WE;", "weekly 1 MO WE"},
    // Interval.
    {"FREQ=DAILY;INTERVAL=1", "daily 1"},
    {"FREQ=DAILY;INTERVAL=007", "daily 7"},
    {"FREQ=DAILY;INTERVAL=4294967295", "daily 4294967295"},
    {"FREQ=DAILY;INTERVAL=4294967296", "none"},
    {"FREQ=DAILY;INTERVAL=0", "none"},
    {"FREQ=DAILY;INTERVAL=", "none"},
    {"FREQ=DAILY;INTERVAL=-1", "none"},
    {"FREQ=DAILY;INTERVAL=1x", "none"},
    {"FREQ=MONTHLY;INTERVAL=12", "monthly 12"},
    // Ends.
    {"FREQ=DAILY;UNTIL=20090312T143000", "daily 1 until 20090312T143000"},
    {"FREQ=DAILY;UNTIL=20090312T143000Z", "daily 1 until 20090312T143000Z"},
    {"FREQ=DAILY;UNTIL=20090312", "daily 1 until 20090312T235959"},
    {"FREQ=DAILY;UNTIL=2009-03-12", "daily 1 until 20090312T235959"},
    {"FREQ=DAILY;UNTIL=2009-03-12T14:30:00Z", "daily 1 until 20090312T143000Z"},
    {"FREQ=DAILY;UNTIL=21001230T000000Z", "daily 1"},
    {"FREQ=DAILY;UNTIL=21001230T000000", "daily 1 until 21001230T000000"},
    {"FREQ=DAILY;UNTIL=21001230T000001Z", "daily 1 until 21001230T000001Z"},
    {"FREQ=DAILY;UNTIL=20091312", "none"},
    {"FREQ=DAILY;UNTIL=", "none"},
    {"FREQ=DAILY;COUNT=1", "daily 1 until 20090310T143000"},
    {"FREQ=DAILY;COUNT=10", "daily 1 until 20090319T143000"},
    {"FREQ=DAILY;COUNT=0", "none"},
    {"FREQ=DAILY;COUNT=", "none"},
    {"FREQ=DAILY;COUNT=-3", "none"},
    {"FREQ=DAILY;COUNT=99999999999999999999", "daily 1"},
    {"FREQ=DAILY;COUNT=3;UNTIL=20090319T143000", "daily 1 until 20090312T143000"},
    {"FREQ=DAILY;COUNT=3;UNTIL=20090311T143000", "daily 1 until 20090311T143000"},
    {"FREQ=DAILY;COUNT=3;UNTIL=21001230T000000Z", "daily 1 until 20090312T143000"},
    {"FREQ=WEEKLY;BYDAY=MO,WE;COUNT=3", "weekly 1 MO WE until 20090318T143000"},
    {"FREQ=MONTHLY;BYDAY=2TU;COUNT=3", "monthly 1 position 2 TU until 20090512T143000"},
    {"FREQ=YEARLY;COUNT=3", "yearly 1 until 20110310T143000"},
    // Certain weekdays of every day are those of every week.
    {"FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR", "weekly 1 MO TU WE TH FR"},
    {"FREQ=DAILY;BYDAY=MO,TU;COUNT=3", "weekly 1 MO TU until 20090317T143000"},
    {"FREQ=DAILY;INTERVAL=2;BYDAY=MO", "none"},
    {"FREQ=DAILY;BYDAY=1MO", "none"},
    {"FREQ=DAILY;BYMONTH=3", "none"},
    {"FREQ=DAILY;BYMONTHDAY=10", "none"},
    // Weeks that begin on another day than Monday, where that says something else, and where it does not.
    {"FREQ=WEEKLY;INTERVAL=2;WKST=MO;BYDAY=SU,TU", "weekly 2 SU TU"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=SU;BYDAY=SU,TU", "none"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=SU;BYDAY=SU", "none"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=SU;BYDAY=TU,TH", "weekly 2 TU TH"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=SU;BYDAY=MO,TU,SA", "weekly 2 MO TU SA"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=TU;BYDAY=TU,TH", "weekly 2 TU TH"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=TU;BYDAY=MO,TU", "none"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=WE;BYDAY=TU,TH", "none"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=WE;BYDAY=TU", "weekly 2 TU"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=WE", "weekly 2 TU"},
    {"FREQ=WEEKLY;INTERVAL=1;WKST=SU;BYDAY=SU,TU", "weekly 1 SU TU"},
    {"FREQ=MONTHLY;INTERVAL=2;WKST=SU", "monthly 2"},
    {"FREQ=DAILY;INTERVAL=2;WKST=SU", "daily 2"},
    {"FREQ=WEEKLY;WKST=XX", "none"},
    {"FREQ=WEEKLY;WKST=", "none"},
    {"FREQ=WEEKLY;BYDAY=2TU", "none"},
    {"FREQ=WEEKLY;BYMONTH=3", "none"},
    {"FREQ=WEEKLY;BYMONTHDAY=10", "none"},
    {"FREQ=WEEKLY;BYDAY=TU;BYSETPOS=1", "none"},
    // Months by the day: that of the start.
    {"FREQ=MONTHLY;BYMONTHDAY=10", "monthly 1"},
    {"FREQ=MONTHLY;BYMONTHDAY=+10", "monthly 1"},
    {"FREQ=MONTHLY;BYMONTHDAY=10,10", "monthly 1"},
    {"FREQ=MONTHLY;BYMONTHDAY=11", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=10,11", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=-22", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=10,-1", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=32", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=0", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=10,", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=10;BYSETPOS=1", "none"},
    {"FREQ=MONTHLY;BYMONTH=3", "none"},
    // Months by position, said in the three ways.
    {"FREQ=MONTHLY;BYDAY=2TU", "monthly 1 position 2 TU"},
    {"FREQ=MONTHLY;BYDAY=+2TU", "monthly 1 position 2 TU"},
    {"FREQ=MONTHLY;BYDAY=-1FR", "monthly 1 position 5 FR"},
    {"FREQ=MONTHLY;BYDAY=2TU,2WE", "monthly 1 position 2 TU WE"},
    {"FREQ=MONTHLY;BYDAY=2TU,3WE", "none"},
    {"FREQ=MONTHLY;BYDAY=2TU,WE", "none"},
    {"FREQ=MONTHLY;BYDAY=WE,2TU", "none"},
    {"FREQ=MONTHLY;BYDAY=1FR,-1FR", "none"},
    {"FREQ=MONTHLY;BYDAY=5FR", "none"},
    {"FREQ=MONTHLY;BYDAY=-2FR", "none"},
    {"FREQ=MONTHLY;BYDAY=0FR", "none"},
    {"FREQ=MONTHLY;BYDAY=FR", "none"},
    {"FREQ=MONTHLY;BYDAY=2", "none"},
    {"FREQ=MONTHLY;BYDAY=2 TU", "none"},
    {"FREQ=MONTHLY;BYDAY=", "none"},
    {"FREQ=MONTHLY;BYDAY=2TU,", "none"},
    {"FREQ=MONTHLY;BYDAY=2TUE", "none"},
    {"FREQ=MONTHLY;BYDAY=TU;BYSETPOS=2", "monthly 1 position 2 TU"},
    {"FREQ=MONTHLY;BYDAY=FR;BYSETPOS=-1", "monthly 1 position 5 FR"},
    {"FREQ=MONTHLY;BYDAY=FR;BYSETPOS=5", "none"},
    {"FREQ=MONTHLY;BYDAY=FR;BYSETPOS=1,2", "none"},
    {"FREQ=MONTHLY;BYDAY=FR;BYSETPOS=", "none"},
    {"FREQ=MONTHLY;BYDAY=MO,TU;BYSETPOS=1", "none"},
    {"FREQ=MONTHLY;BYDAY=2TU;BYSETPOS=1", "none"},
    {"FREQ=MONTHLY;BYSETPOS=1", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=1,2,3,4,5,6,7;BYDAY=TU", "monthly 1 position 1 TU"},
    {"FREQ=MONTHLY;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=TU,WE", "monthly 1 position 2 TU WE"},
    {"FREQ=MONTHLY;BYDAY=TU;BYMONTHDAY=14,13,12,11,10,9,8,8", "monthly 1 position 2 TU"},
    {"FREQ=MONTHLY;BYMONTHDAY=15,16,17,18,19,20,21;BYDAY=TU", "monthly 1 position 3 TU"},
    {"FREQ=MONTHLY;BYMONTHDAY=22,23,24,25,26,27,28;BYDAY=TU", "monthly 1 position 4 TU"},
    {"FREQ=MONTHLY;BYMONTHDAY=-7,-6,-5,-4,-3,-2,-1;BYDAY=SU", "monthly 1 position 5 SU"},
    {"FREQ=MONTHLY;BYMONTHDAY=29,30,31;BYDAY=TU", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=8,9,10,11,12,13;BYDAY=TU", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=9,10,11,12,13,14,15;BYDAY=TU", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=-14,-13,-12,-11,-10,-9,-8;BYDAY=TU", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=13;BYDAY=FR", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=2TU", "none"},
    {"FREQ=MONTHLY;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=TU;BYSETPOS=1", "none"},
    // Years.
    {"FREQ=YEARLY;BYMONTH=3", "yearly 1"},
    {"FREQ=YEARLY;BYMONTH=3,3", "yearly 1"},
    {"FREQ=YEARLY;BYMONTH=3;BYMONTHDAY=10", "yearly 1"},
    {"FREQ=YEARLY;BYMONTH=3;BYMONTHDAY=11", "none"},
    {"FREQ=YEARLY;BYMONTH=4", "none"},
    {"FREQ=YEARLY;BYMONTH=3,4", "none"},
    {"FREQ=YEARLY;BYMONTH=", "none"},
    {"FREQ=YEARLY;BYMONTH=+3", "none"},
    {"FREQ=YEARLY;BYMONTHDAY=10", "none"},
    {"FREQ=YEARLY;BYMONTH=3;BYDAY=2TU", "yearly 1 position 2 TU"},
    {"FREQ=YEARLY;BYDAY=-1SU;BYMONTH=3", "yearly 1 position 5 SU"},
    {"FREQ=YEARLY;BYMONTH=3;BYDAY=SU;BYSETPOS=-1", "yearly 1 position 5 SU"},
    {"FREQ=YEARLY;BYMONTH=3;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=TU", "yearly 1 position 2 TU"},
    {"FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU", "none"},
    {"FREQ=YEARLY;BYDAY=2TU", "none"},
    {"FREQ=YEARLY;BYDAY=TU", "none"},
    {"FREQ=YEARLY;BYMONTH=3;BYDAY=TU", "none"},
    {"FREQ=YEARLY;BYDAY=TU;BYSETPOS=2", "none"},
    // What no record says, unknown parts, parts said twice, no rule at all.
    {"FREQ=HOURLY", "none"},
    {"FREQ=MINUTELY", "none"},
    {"FREQ=SECONDLY", "none"},
    {"FREQ=DAILY;BYHOUR=9", "none"},
    {"FREQ=DAILY;BYMINUTE=30", "none"},
    {"FREQ=DAILY;BYSECOND=0", "none"},
    {"FREQ=YEARLY;BYYEARDAY=69", "none"},
    {"FREQ=YEARLY;BYWEEKNO=11", "none"},
    {"FREQ=DAILY;X-PART=1", "none"},
    {"FREQ=DAILY;RSCALE=GREGORIAN", "none"},
    {"FREQ=DAILY;FREQ=DAILY", "none"},
    {"FREQ=DAILY;COUNT=2;COUNT=2", "none"},
    {"FREQ=DAILY;COUNT", "none"},
    {"FREQ=DAILY;=2", "none"},
    {"FREQ=", "none"},
    {"FREQ", "none"},
    {"FREQ=FORTNIGHTLY", "none"},
    {"INTERVAL=2", "none"},
    {"", "none"},
    // clang-format on
};

TEST(Rrule, Reads) {
    const CalendarTime start = time_of_text(kStart);
    for (const ReadRow& row : kReadRows) {
        EXPECT_EQ(in_words(parse_rrule(row.rule, start)), row.record) << '"' << row.rule << '"';
    }
}

TEST(Rrule, WithoutAStartOnlyWhatLeavesNothingToIt) {
    const ReadRow rows[] = {
        {"FREQ=DAILY;INTERVAL=2", "daily 2"},
        {"FREQ=WEEKLY", "weekly 1"},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,TU", "weekly 2 MO TU"},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,TU;WKST=SU", "none"},
        {"FREQ=WEEKLY;INTERVAL=2;WKST=SU", "weekly 2"},
        {"FREQ=MONTHLY", "monthly 1"},
        {"FREQ=MONTHLY;BYMONTHDAY=10", "none"},
        {"FREQ=MONTHLY;BYDAY=2TU", "monthly 1 position 2 TU"},
        {"FREQ=YEARLY", "yearly 1"},
        {"FREQ=YEARLY;BYMONTH=3", "none"},
        {"FREQ=YEARLY;BYMONTH=0", "none"},
        {"FREQ=DAILY;COUNT=2", "none"},
    };
    for (const ReadRow& row : rows) {
        EXPECT_EQ(in_words(parse_rrule(row.rule, CalendarTime{})), row.record) << row.rule;
    }
}

TEST(Rrule, ACountThatIsNeverReachedLeavesNoEnd) {
    CalendarTime start = time_of_text("20090228T120000");
    start.day = 30;
    EXPECT_EQ(in_words(parse_rrule("FREQ=YEARLY;COUNT=3", start)), "yearly 1");
    EXPECT_EQ(in_words(parse_rrule("FREQ=YEARLY;COUNT=3;UNTIL=20200101", start)),
              "yearly 1 until 20200101T235959");
    EXPECT_EQ(in_words(parse_rrule("FREQ=MONTHLY;INTERVAL=12;COUNT=3", start)), "monthly 12");
}

TEST(RecurrenceText, ItsFormIsToldByTheTextItself) {
    const ReadRow rows[] = {
        {"FREQ=DAILY;INTERVAL=3", "daily 3"},
        {"interval=3;freq=daily", "daily 3"},
        {"D3 #0", "daily 3"},
        {"D3 #0 FREQ", "none"},
        {"FRE=DAILY", "none"},
        {"", "none"},
    };
    for (const ReadRow& row : rows) {
        EXPECT_EQ(in_words(vcalendar::parse_recurrence(row.rule, time_of_text(kStart))), row.record)
            << row.rule;
    }
}

struct Example {
    const char* start;
    const char* rule;
    const char* record;  // "none" where a record cannot express it
    const char* dates;   // the first ones
};

// Examples of RFC 2445, section 4.8.5.4.
const Example kExamples[] = {
    // clang-format off
    {"19970902T090000", "FREQ=DAILY;COUNT=10", "daily 1 until 19970911T090000",
     "1997 0902 0903 0904 0905 0906 0907 0908 0909 0910 0911"},
    {"19970902T090000", "FREQ=DAILY;INTERVAL=10;COUNT=5", "daily 10 until 19971012T090000",
     "1997 0902 0912 0922 1002 1012"},
    {"19970902T090000", "FREQ=WEEKLY;INTERVAL=2;WKST=SU", "weekly 2 TU", "1997 0902 0916 0930 1014 1028"},
    {"19970902T090000", "FREQ=WEEKLY;INTERVAL=2;COUNT=8;WKST=SU;BYDAY=TU,TH",
     "weekly 2 TU TH until 19971016T090000", "1997 0902 0904 0916 0918 0930 1002 1014 1016"},
    {"19970805T090000", "FREQ=WEEKLY;INTERVAL=2;COUNT=4;BYDAY=TU,SU;WKST=MO",
     "weekly 2 SU TU until 19970824T090000", "1997 0805 0810 0819 0824"},
    {"19970805T090000", "FREQ=WEEKLY;INTERVAL=2;COUNT=4;BYDAY=TU,SU;WKST=SU", "none",
     "1997 0805 0817 0819 0831"},
    {"19970905T090000", "FREQ=MONTHLY;COUNT=10;BYDAY=1FR", "monthly 1 position 1 FR until 19980605T090000",
     "1997 0905 1003 1107 1205 1998 0102 0206 0306 0403 0501 0605"},
    {"19970907T090000", "FREQ=MONTHLY;INTERVAL=2;COUNT=10;BYDAY=1SU,-1SU", "none",
     "1997 0907 0928 1102 1130 1998 0104 0125 0301 0329 0503 0531"},
    {"19970922T090000", "FREQ=MONTHLY;COUNT=6;BYDAY=-2MO", "none",
     "1997 0922 1020 1117 1222 1998 0119 0216"},
    {"19970930T090000", "FREQ=MONTHLY;COUNT=10;BYMONTHDAY=1,-1", "none",
     "1997 0930 1001 1031 1101 1130 1201 1231 1998 0101 0131 0201"},
    {"19970902T090000", "FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13", "none",
     "1998 0213 0313 1113 1999 0813 2000 1013"},
    {"19970904T090000", "FREQ=MONTHLY;COUNT=3;BYDAY=TU,WE,TH;BYSETPOS=3", "none", "1997 0904 1007 1106"},
    {"19970929T090000", "FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-2", "none",
     "1997 0929 1030 1127 1230 1998 0129 0226 0330"},
    {"19970610T090000", "FREQ=YEARLY;COUNT=10;BYMONTH=6,7", "none",
     "1997 0610 0710 1998 0610 0710 1999 0610 0710 2000 0610 0710 2001 0610 0710"},
    {"19970101T090000", "FREQ=YEARLY;INTERVAL=3;COUNT=10;BYYEARDAY=1,100,200", "none",
     "1997 0101 0410 0719 2000 0101 0409 0718 2003 0101 0410 0719 2006 0101"},
    {"19970519T090000", "FREQ=YEARLY;BYDAY=20MO", "none", "1997 0519 1998 0518 1999 0517"},
    {"19970313T090000", "FREQ=YEARLY;BYMONTH=3;BYDAY=TH", "none",
     "1997 0313 0320 0327 1998 0305 0312 0319 0326"},
    {"19970406T020000", "FREQ=YEARLY;BYDAY=1SU;BYMONTH=4", "yearly 1 position 1 SU",
     "1997 0406 1998 0405 1999 0404"},
    // clang-format on
};

TEST(Rrule, TheExamplesGiveTheRecordThatMeansTheSameOrNone) {
    for (const Example& example : kExamples) {
        const CalendarTime start = time_of_text(example.start);
        const auto rule = parse_rrule(example.rule, start);
        EXPECT_EQ(in_words(rule), example.record) << example.rule;
        if (!rule) continue;
        const auto expected = dates_of_list(example.dates);
        EXPECT_EQ(shown(dates_of(*rule, start, {2010, 12, 31}, expected.size())), shown(expected))
            << example.rule;
    }
}

// Those that no record can express too: it is the oracle of the other tests.
TEST(Rrule, TheLiteralExpanderFindsTheDatesOfTheExamples) {
    for (const Example& example : kExamples) {
        const auto expected = dates_of_list(example.dates);
        auto dates =
            reference::expand_rrule(example.rule, window_of(time_of_text(example.start), {2010, 12, 31}));
        ASSERT_TRUE(dates) << example.rule;
        const bool is_counted = std::string(example.rule).find("COUNT") != std::string::npos;
        if (!is_counted && dates->size() > expected.size()) dates->resize(expected.size());
        EXPECT_EQ(shown(*dates), shown(expected)) << example.rule;
    }
}

struct WriteRow {
    Recurrence rule;
    const char* text;
};

std::string written(const Recurrence& rule, const CalendarTime& start) {
    std::string text;
    vcalendar::append_rrule(rule, start, text);
    return text;
}

TEST(Rrule, Writes) {
    const CalendarTime start = time_of_text(kStart);
    const CalendarTime local = time_of_text("20090630T143000");
    const CalendarTime utc = time_of_text("20090630T143000Z");
    const WriteRow rows[] = {
        // clang-format off
        {{VZ_REPEAT_DAILY, 1, 0, 0, {}}, "FREQ=DAILY;UNTIL=21001230T000000Z"},
        {{VZ_REPEAT_DAILY, 0, 0, 0, local}, "FREQ=DAILY;UNTIL=20090630T143000"},
        {{VZ_REPEAT_DAILY, 3, 4, 5, utc}, "FREQ=DAILY;UNTIL=20090630T143000Z;INTERVAL=3"},
        {{VZ_REPEAT_WEEKLY, 2, VZ_DAY_MONDAY | VZ_DAY_WEDNESDAY, 0, utc},
         "FREQ=WEEKLY;UNTIL=20090630T143000Z;INTERVAL=2;WKST=MO;BYDAY=MO,WE"},
        {{VZ_REPEAT_WEEKLY, 1, 0x7F, 2, {}},
         "FREQ=WEEKLY;UNTIL=21001230T000000Z;WKST=MO;BYDAY=MO,TU,WE,TH,FR,SA,SU"},
        {{VZ_REPEAT_WEEKLY, 1, 0, 0, {}}, "FREQ=WEEKLY;UNTIL=21001230T000000Z;WKST=MO;BYDAY=TU"},
        {{VZ_REPEAT_MONTHLY, 1, 0, 0, {}}, "FREQ=MONTHLY;UNTIL=21001230T000000Z;BYMONTHDAY=10"},
        {{VZ_REPEAT_MONTHLY, 2, VZ_DAY_MONDAY, 6, local},
         "FREQ=MONTHLY;UNTIL=20090630T143000;INTERVAL=2;BYMONTHDAY=10"},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 1, {}},
         "FREQ=MONTHLY;UNTIL=21001230T000000Z;BYMONTHDAY=1,2,3,4,5,6,7;BYDAY=MO"},
        {{VZ_REPEAT_MONTHLY, 3, VZ_DAY_TUESDAY, 2, {}},
         "FREQ=MONTHLY;UNTIL=21001230T000000Z;INTERVAL=3;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=TU"},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_TUESDAY | VZ_DAY_SUNDAY, 3, {}},
         "FREQ=MONTHLY;UNTIL=21001230T000000Z;BYMONTHDAY=15,16,17,18,19,20,21;BYDAY=TU,SU"},
        {{VZ_REPEAT_MONTHLY, 1, 0, 4, {}},
         "FREQ=MONTHLY;UNTIL=21001230T000000Z;BYMONTHDAY=22,23,24,25,26,27,28;BYDAY=TU"},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_FRIDAY, 5, {}},
         "FREQ=MONTHLY;UNTIL=21001230T000000Z;BYMONTHDAY=-7,-6,-5,-4,-3,-2,-1;BYDAY=FR"},
        {{VZ_REPEAT_YEARLY, 1, VZ_DAY_FRIDAY, 0, {}}, "FREQ=YEARLY;UNTIL=21001230T000000Z"},
        {{VZ_REPEAT_YEARLY, 4, 0, 0, local}, "FREQ=YEARLY;UNTIL=20090630T143000;INTERVAL=4"},
        {{VZ_REPEAT_YEARLY, 2, VZ_DAY_TUESDAY, 2, {}},
         "FREQ=YEARLY;UNTIL=21001230T000000Z;INTERVAL=2;BYMONTH=3;BYDAY=2TU"},
        {{VZ_REPEAT_YEARLY, 1, VZ_DAY_SATURDAY | VZ_DAY_SUNDAY, 5, {}},
         "FREQ=YEARLY;UNTIL=21001230T000000Z;BYMONTH=3;BYDAY=-1SA,-1SU"},
        {{VZ_REPEAT_NONE, 1, 0, 0, {}}, ""},
        {{5, 1, 0, 0, {}}, ""},
        {{4294967295, 1, 0, 0, {}}, ""},
        // clang-format on
    };
    for (const WriteRow& row : rows) EXPECT_EQ(written(row.rule, start), row.text);
}

TEST(Rrule, AnEndThatIsNoDateIsNone) {
    CalendarTime until = time_of_text("20090630T143000");
    until.hour = 24;
    EXPECT_EQ(written({VZ_REPEAT_DAILY, 1, 0, 0, until}, time_of_text(kStart)),
              "FREQ=DAILY;UNTIL=21001230T000000Z");
}

TEST(Rrule, WritesNothingThatNeedsAStartWhichIsNone) {
    const std::string end = ";UNTIL=21001230T000000Z";
    EXPECT_EQ(written({VZ_REPEAT_DAILY, 1, 0, 0, {}}, {}), "FREQ=DAILY" + end);
    EXPECT_EQ(written({VZ_REPEAT_WEEKLY, 1, VZ_DAY_MONDAY, 0, {}}, {}),
              "FREQ=WEEKLY" + end + ";WKST=MO;BYDAY=MO");
    EXPECT_EQ(written({VZ_REPEAT_WEEKLY, 1, 0, 0, {}}, {}), "");
    EXPECT_EQ(written({VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 1, {}}, {}),
              "FREQ=MONTHLY" + end + ";BYMONTHDAY=1,2,3,4,5,6,7;BYDAY=MO");
    EXPECT_EQ(written({VZ_REPEAT_MONTHLY, 1, 0, 1, {}}, {}), "");
    EXPECT_EQ(written({VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 0, {}}, {}), "");
    EXPECT_EQ(written({VZ_REPEAT_YEARLY, 1, 0, 0, {}}, {}), "FREQ=YEARLY" + end);
    EXPECT_EQ(written({VZ_REPEAT_YEARLY, 1, VZ_DAY_MONDAY, 1, {}}, {}), "");
}

}  // namespace
}  // namespace vzapi::test
