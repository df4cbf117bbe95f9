#include <gtest/gtest.h>

#include <string>

#include "vcalendar/calendar_time.h"
#include "vcalendar/recurrence_support.h"
#include "vcalendar/recurrence_text.h"

namespace vzapi::test {
namespace {

using reference::Date;
using vcalendar::parse_basic_rule;
using vcalendar::Recurrence;

enum class Listed { All, First };

struct Example {
    const char* start;
    const char* rule;
    const char* record;  // "none" where a record cannot express it
    Listed listed;
    const char* dates;
};

// Rules of all kinds, with the dates that the grammar gives them.
const Example kExamples[] = {
    // clang-format off
    {"19960415", "D1 #10", "daily 1 until 19960424T000000", Listed::All,
     "1996 0415 0416 0417 0418 0419 0420 0421 0422 0423 0424"},
    {"19960415", "D4", "daily 4 until 19960419T000000", Listed::All, "1996 0415 0419"},
    {"19960415", "D2 #0", "daily 2", Listed::First, "1996 0415 0417 0419"},
    {"19960415", "D10 #5", "daily 10 until 19960525T000000", Listed::All, "1996 0415 0425 0505 0515 0525"},
    {"19960415T090000", "D1 19960420T000000", "daily 1 until 19960420T000000", Listed::All,
     "1996 0415 0416 0417 0418 0419"},
    {"19960415T090000", "D1 19960420T090000", "daily 1 until 19960420T090000", Listed::All,
     "1996 0415 0416 0417 0418 0419 0420"},
    {"19960415", "D1 #3 19961224T000000Z", "daily 1 until 19960417T000000", Listed::All,
     "1996 0415 0416 0417"},
    {"19960415", "D1 #0 19960418T235959", "daily 1 until 19960418T235959", Listed::All,
     "1996 0415 0416 0417 0418"},
    {"19960415", "W1 #10", "weekly 1 MO until 19960617T000000", Listed::All,
     "1996 0415 0422 0429 0506 0513 0520 0527 0603 0610 0617"},
    {"19960415", "W1", "weekly 1 MO until 19960422T000000", Listed::All, "1996 0415 0422"},
    {"19960415", "W2 #0", "weekly 2 MO", Listed::First, "1996 0415 0429 0513"},
    {"19960416", "W1 TU TH #5", "weekly 1 TU TH until 19960430T000000", Listed::All,
     "1996 0416 0418 0423 0425 0430"},
    {"19960416", "W2 TU TH #4", "weekly 2 TU TH until 19960502T000000", Listed::All,
     "1996 0416 0418 0430 0502"},
    {"19960415", "W2 MO WE FR 19960601T000000", "weekly 2 MO WE FR until 19960601T000000", Listed::All,
     "1996 0415 0417 0419 0429 0501 0503 0513 0515 0517 0527 0529 0531"},
    {"19960415", "W1 MO TU WE TH FR #0", "weekly 1 MO TU WE TH FR", Listed::First,
     "1996 0415 0416 0417 0418 0419 0422"},
    {"19960405", "MP1 1+ FR #10", "monthly 1 position 1 FR until 19970103T000000", Listed::All,
     "1996 0405 0503 0607 0705 0802 0906 1004 1101 1206 1997 0103"},
    {"19960407", "MP2 1+ SU 1- SU #10", "none", Listed::First, "1996 0407 0428 0602 0630 0804 0825"},
    {"19960408", "MP6 2+ MO TU WE TH FR #10", "monthly 6 position 2 MO TU WE TH FR until 19961014T000000",
     Listed::All, "1996 0408 0409 0410 0411 0412 1008 1009 1010 1011 1014"},
    {"19960422", "MP1 2- MO #6", "none", Listed::All, "1996 0422 0520 0617 0722 0819 0923"},
    {"19960531", "MP1 5+ FR #4", "none", Listed::All, "1996 0531 0830 1129 1997 0131"},
    {"19960417", "MP1 #3", "monthly 1 position 3 WE until 19960619T000000", Listed::All,
     "1996 0417 0515 0619"},
    {"19960401", "MP1 1+ 3+ MO TU #6", "none", Listed::All, "1996 0401 0402 0415 0416 0506 0507"},
    {"19960428", "MD1 3- #0", "none", Listed::First, "1996 0428 0529 0628 0729"},
    {"19960415", "MD1 2 15 #6", "none", Listed::All, "1996 0415 0502 0515 0602 0615 0702"},
    {"19960430", "MD1 1 LD #6", "none", Listed::All, "1996 0430 0501 0531 0601 0630 0701"},
    {"19960430", "MD1 1 1- #6", "none", Listed::All, "1996 0430 0501 0531 0601 0630 0701"},
    {"19960331", "MD1 31 #5", "monthly 1 until 19961031T000000", Listed::All,
     "1996 0331 0531 0731 0831 1031"},
    {"19960131", "MD1 #4", "monthly 1 until 19960731T000000", Listed::All, "1996 0131 0331 0531 0731"},
    {"19960410", "MD18 10 11 12 13 14 15 #10", "none", Listed::All,
     "1996 0410 0411 0412 0413 0414 0415 1997 1010 1011 1012 1013"},
    {"19960830", "MD1 2- #5", "none", Listed::All, "1996 0830 0929 1030 1129 1230"},
    {"19960615", "YM1 6 7 #5", "none", Listed::All, "1996 0615 0715 1997 0615 0715 1998 0615"},
    {"19960115", "YM2 1 2 3 #7", "none", Listed::All,
     "1996 0115 0215 0315 1998 0115 0215 0315 2000 0115"},
    {"19960415", "YM1 #0", "yearly 1", Listed::First, "1996 0415 1997 0415 1998 0415"},
    {"19960415", "YM1 4 #0", "yearly 1", Listed::First, "1996 0415 1997 0415 1998 0415"},
    {"19960229", "YM1 2 #3", "yearly 1 until 20040229T000000", Listed::All,
     "1996 0229 2000 0229 2004 0229"},
    {"19960101", "YD3 1 100 200 #7", "none", Listed::All,
     "1996 0101 0409 0718 1999 0101 0410 0719 2002 0101"},
    {"19960415", "YD1 106 #3", "none", Listed::All, "1996 0415 1997 0416 1998 0416"},
    {"19961231", "YD1 366 #3", "none", Listed::All, "1996 1231 2000 1231 2004 1231"},
    // clang-format on
};

CalendarTime start_of(const Example& example) {
    return time_of_text(example.start);
}

std::vector<Date> shortened(std::vector<Date> dates, const Example& example) {
    const std::size_t most = dates_of_list(example.dates).size();
    if (example.listed == Listed::First && dates.size() > most) dates.resize(most);
    return dates;
}

constexpr Date kLast = {2010, 12, 31};

TEST(BasicRule, TheExamplesGiveTheRecordThatMeansTheSameOrNone) {
    for (const Example& example : kExamples) {
        EXPECT_EQ(in_words(parse_basic_rule(example.rule, start_of(example))), example.record)
            << example.rule;
    }
}

TEST(BasicRule, TheRecordsOfTheExamplesHaveTheirDates) {
    int expressible = 0;
    for (const Example& example : kExamples) {
        const CalendarTime start = start_of(example);
        const std::optional<Recurrence> rule = parse_basic_rule(example.rule, start);
        if (!rule) continue;
        ++expressible;
        const std::vector<Date> expected = dates_of_list(example.dates);
        const std::size_t most = example.listed == Listed::First ? expected.size() : SIZE_MAX;
        EXPECT_EQ(shown(dates_of(*rule, start, kLast, most)), shown(expected)) << example.rule;
        const std::vector<Date> dates =
            reference::expand_record(reference_rule(*rule), window_of(start, kLast));
        EXPECT_EQ(shown(shortened(dates, example)), shown(expected)) << example.rule;
    }
    EXPECT_EQ(expressible, 23);
}

// Those that no record can express too: it is the oracle of the other tests.
TEST(BasicRule, TheLiteralExpanderFindsTheDatesOfTheExamples) {
    for (const Example& example : kExamples) {
        const auto dates = reference::expand_basic_rule(example.rule, window_of(start_of(example), kLast));
        ASSERT_TRUE(dates) << example.rule;
        EXPECT_EQ(shown(shortened(*dates, example)), shown(dates_of_list(example.dates))) << example.rule;
    }
}

struct ReadRow {
    const char* rule;
    const char* record;
};

// The start of all rows is Tuesday, 10 March 2009, 14:30: the second Tuesday.
constexpr const char* kStart = "20090310T143000";

const ReadRow kReadRows[] = {
    // clang-format off
    // Letters in either case, blanks doubled, none at all where nothing is ambiguous.
    {"w2 mo we #0", "weekly 2 MO WE"},
    {"  W2 \t MO  WE   #0 ", "weekly 2 MO WE"},
    {"W2MOWE#0", "weekly 2 MO WE"},
    {"W1MO", "weekly 1 MO until 20090323T143000"},
    {"mp1 2+tu#0", "monthly 1 position 2 TU"},
    {"D1#0", "daily 1"},
    {"MD1 10#0", "monthly 1"},
    {"md1 10+ #0", "monthly 1"},
    {"MP1 2 TU #0", "monthly 1 position 2 TU"},
    {"D1 #0$", "daily 1"},
    {"D1 #0 $", "daily 1"},
    // An interval that is missing is 1.
    {"D #0", "daily 1"},
    {"W TU #0", "weekly 1 TU"},
    {"MD 10 #0", "monthly 1"},
    {"MP 1- FR #0", "monthly 1 position 5 FR"},
    {"YM 3 #0", "yearly 1"},
    {"D0 #0", "none"},
    {"W0 TU #0", "none"},
    // Twelve months are a year.
    {"MD12 #0", "yearly 1"},
    {"MD24 10 #0", "yearly 2"},
    {"MP12 2+ TU #0", "yearly 1 position 2 TU"},
    {"MP36 1- SU MO #0", "yearly 3 position 5 SU MO"},
    {"MP36 #0", "yearly 3 position 2 TU"},
    {"MD18 10 #0", "monthly 18"},
    // Ends: a date, a number, both in either order.
    {"D1 20090312T143000", "daily 1 until 20090312T143000"},
    {"D1 20090312T143000Z", "daily 1 until 20090312T143000Z"},
    {"D1 2009-03-12T14:30:00", "daily 1 until 20090312T143000"},
    {"D1 20090312", "daily 1 until 20090312T235959"},
    {"D1 2009-03-12", "daily 1 until 20090312T235959"},
    {"D1 #2 20090312T143000", "daily 1 until 20090311T143000"},
    {"D1 #9 20090312T143000", "daily 1 until 20090312T143000"},
    {"D1 20090312T143000 #2", "daily 1 until 20090311T143000"},
    {"D1 20090312T143000#2", "daily 1 until 20090311T143000"},
    {"D1 #0 20090312T143000", "daily 1 until 20090312T143000"},
    {"D1 #1", "daily 1 until 20090310T143000"},
    {"D1 21001230T000000Z", "daily 1 until 21001230T000000Z"},
    {"D1 #2 #3", "none"},
    {"D1 20090312T143000 20090313T143000", "none"},
    {"D1 #", "none"},
    {"D1 # 3", "none"},
    {"D1 #x", "none"},
    {"D1 #-1", "none"},
    {"D1 20091301T000000", "none"},
    {"D1 20090312T", "none"},
    {"D1 200903120", "none"},
    {"D1 #3x", "none"},
    // A start that is none of the days counts from the first that is.
    {"W1 WE #2", "weekly 1 WE until 20090318T143000"},
    {"MP1 1+ TU #2", "monthly 1 position 1 TU until 20090505T143000"},
    // Positions: one for all weekdays, first to fourth and last.
    {"MP1 1+ MO #0", "monthly 1 position 1 MO"},
    {"MP1 4+ MO #0", "monthly 1 position 4 MO"},
    {"MP1 1- MO #0", "monthly 1 position 5 MO"},
    {"MP1 5+ MO #0", "none"},
    {"MP1 5- MO #0", "none"},
    {"MP1 2- MO #0", "none"},
    {"MP1 0+ MO #0", "none"},
    {"MP1 6+ MO #0", "none"},
    {"MP1 2+ MO 2+ TU #0", "monthly 1 position 2 MO TU"},
    {"MP1 2+ 2+ MO #0", "monthly 1 position 2 MO"},
    {"MP1 2+ MO 3+ MO #0", "none"},
    {"MP1 2+ 3+ MO #0", "none"},
    {"MP1 2+ #0", "none"},
    {"MP1 MO #0", "none"},
    {"MP1 2+ MO 2+ #0", "none"},
    {"MP1 #0", "monthly 1 position 2 TU"},
    // Days of the month and months: those of the start.
    {"MD1 10 10 #0", "monthly 1"},
    {"MD1 11 #0", "none"},
    {"MD1 10 11 #0", "none"},
    {"MD1 10- #0", "none"},
    {"MD1 LD #0", "none"},
    {"MD1 32 #0", "none"},
    {"MD1 4294967306 #0", "none"},  // 10 more than 32 bits can hold
    {"YM1 3 3 #0", "yearly 1"},
    {"YM1 4 #0", "none"},
    {"YM1 3 4 #0", "none"},
    {"YM1 13 #0", "none"},
    {"YM1 3+ #0", "none"},
    {"YD1 69 #0", "none"},
    {"YD1 #0", "none"},
    // Lists that are not the frequency's own, or come too late.
    {"D1 TU #0", "none"},
    {"D1 3 #0", "none"},
    {"W1 3 #0", "none"},
    {"W1 2+ TU #0", "none"},
    {"MD1 TU #0", "none"},
    {"YM1 TU #0", "none"},
    {"W1 XX #0", "none"},
    {"W1 T #0", "none"},
    {"W1 TU,TH #0", "none"},
    {"W1 #0 TU", "none"},
    {"W1 20090312T143000 TU", "none"},
    // The extended grammar: minutes, times of day, nested rules, end markers inside.
    {"M5 #0", "none"},
    {"D1 0900 #0", "none"},
    {"W1 TU 0900 TH 1000 #0", "none"},
    {"D1 #5 M10 #6", "none"},
    {"MP6 1+ MO #5 D2 0600 1200 1500 #10 M5 #3", "none"},
    {"W1 TU$ TH #5", "none"},
    // No rule at all.
    {"", "none"},
    {" ", "none"},
    {"$", "none"},
    {"1 MO", "none"},
    {"M", "none"},
    {"Y1", "none"},
    {"MO", "none"},
    {"X1 #0", "none"},
    {"-1", "none"},
    // Numbers at the edges.
    {"D4294967295 #0", "daily 4294967295"},
    {"D4294967296 #0", "none"},
    {"D99999999999999999999999999 #0", "none"},
    {"MD51539607540 #0", "yearly 4294967295"},
    {"MD51539607552 #0", "none"},
    {"D1 #00000000000000000000000000002", "daily 1 until 20090311T143000"},
    {"D1 #99999999999999999999999999999", "daily 1"},
    {"D4294967295 #2", "daily 4294967295"},
    {"W4294967295 TU WE #2", "weekly 4294967295 TU WE until 20090311T143000"},
    {"W4294967295 TU WE #3", "weekly 4294967295 TU WE"},
    {"YM1 #7991", "yearly 1 until 99990310T143000"},
    {"YM1 #7992", "yearly 1"},
    // clang-format on
};

TEST(BasicRule, Reads) {
    const CalendarTime start = time_of_text(kStart);
    for (const ReadRow& row : kReadRows) {
        EXPECT_EQ(in_words(parse_basic_rule(row.rule, start)), row.record) << '"' << row.rule << '"';
    }
}

TEST(BasicRule, APositionLeftToAStartInTheFifthWeekIsNone) {
    EXPECT_EQ(in_words(parse_basic_rule("MP1 #0", time_of_text("20090328"))), "monthly 1 position 4 SA");
    EXPECT_EQ(in_words(parse_basic_rule("MP1 #0", time_of_text("20090329"))), "none");
}

TEST(BasicRule, WithoutAStartOnlyWhatLeavesNothingToIt) {
    const ReadRow rows[] = {
        {"D2 #0", "daily 2"},
        {"W1 MO #0", "weekly 1 MO"},
        {"W1 #0", "weekly 1"},
        {"MP1 2+ TU 20090312T143000", "monthly 1 position 2 TU until 20090312T143000"},
        {"MD1 #0", "monthly 1"},
        {"YM1 #0", "yearly 1"},
        {"D2", "none"},
        {"D2 #1", "none"},
        {"MP1 #0", "none"},
        {"MD1 10 #0", "none"},
        {"YM1 3 #0", "none"},
        {"MD1 0 #0", "none"},
        {"YM1 0 #0", "none"},
    };
    for (const ReadRow& row : rows) {
        EXPECT_EQ(in_words(parse_basic_rule(row.rule, CalendarTime{})), row.record) << row.rule;
    }
}

// A rule for ever, or with the end that stands in front of the rule's own text in a row.
struct WriteRow {
    Recurrence rule;
    const char* text;
};

std::string written(const Recurrence& rule, const CalendarTime& start) {
    std::string text;
    vcalendar::append_basic_rule(rule, start, text);
    return text;
}

TEST(BasicRule, Writes) {
    const CalendarTime start = time_of_text(kStart);
    const CalendarTime local = time_of_text("20090630T143000");
    const CalendarTime utc = time_of_text("20090630T143000Z");
    const WriteRow rows[] = {
        // clang-format off
        {{VZ_REPEAT_DAILY,   1, 0, 0, {}}, "D1 #0"},
        {{VZ_REPEAT_DAILY,   0, 0, 0, {}}, "D1 #0"},
        {{VZ_REPEAT_DAILY,   3, 4, 5, local}, "D3 20090630T143000"},
        {{VZ_REPEAT_WEEKLY,  1, VZ_DAY_MONDAY | VZ_DAY_WEDNESDAY, 0, {}}, "W1 MO WE #0"},
        {{VZ_REPEAT_WEEKLY,  2, 0x7F, 3, utc}, "W2 MO TU WE TH FR SA SU 20090630T143000Z"},
        {{VZ_REPEAT_WEEKLY,  2, 0, 0, {}}, "W2 TU #0"},
        {{VZ_REPEAT_WEEKLY,  2, 0x80, 0, {}}, "W2 TU #0"},
        {{VZ_REPEAT_MONTHLY, 1, 0, 0, local}, "MD1 10 20090630T143000"},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_SUNDAY, 6, {}}, "MD1 10 #0"},
        {{VZ_REPEAT_MONTHLY, 2, VZ_DAY_TUESDAY, VZ_POSITION_SECOND, {}}, "MP2 2+ TU #0"},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_SATURDAY | VZ_DAY_SUNDAY, VZ_POSITION_LAST, {}}, "MP1 1- SA SU #0"},
        {{VZ_REPEAT_MONTHLY, 1, 0, VZ_POSITION_FOURTH, {}}, "MP1 4+ TU #0"},
        {{VZ_REPEAT_YEARLY,  1, 0, 0, {}}, "YM1 3 #0"},
        {{VZ_REPEAT_YEARLY,  255, VZ_DAY_MONDAY, 0, {}}, "YM255 3 #0"},
        {{VZ_REPEAT_YEARLY,  1, VZ_DAY_SUNDAY, VZ_POSITION_LAST, utc}, "MP12 1- SU 20090630T143000Z"},
        {{VZ_REPEAT_YEARLY,  4294967295, VZ_DAY_SUNDAY, VZ_POSITION_FIRST, {}}, "MP51539607540 1+ SU #0"},
        {{VZ_REPEAT_NONE,    1, 0, 0, {}}, ""},
        {{5,                 1, 0, 0, {}}, ""},
        // clang-format on
    };
    for (const WriteRow& row : rows) EXPECT_EQ(written(row.rule, start), row.text);
}

TEST(BasicRule, AnEndThatIsNoDateIsNone) {
    CalendarTime until = time_of_text("20090630T143000");
    until.month = 13;
    EXPECT_EQ(written({VZ_REPEAT_DAILY, 1, 0, 0, until}, time_of_text(kStart)), "D1 #0");
}

TEST(BasicRule, WritesNothingThatNeedsAStartWhichIsNone) {
    const WriteRow rows[] = {
        {{VZ_REPEAT_DAILY, 1, 0, 0, {}}, "D1 #0"},
        {{VZ_REPEAT_WEEKLY, 1, VZ_DAY_MONDAY, 0, {}}, "W1 MO #0"},
        {{VZ_REPEAT_WEEKLY, 1, 0, 0, {}}, ""},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, VZ_POSITION_FIRST, {}}, "MP1 1+ MO #0"},
        {{VZ_REPEAT_MONTHLY, 1, 0, VZ_POSITION_FIRST, {}}, ""},
        {{VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 0, {}}, ""},
        {{VZ_REPEAT_YEARLY, 1, VZ_DAY_MONDAY, VZ_POSITION_FIRST, {}}, "MP12 1+ MO #0"},
        {{VZ_REPEAT_YEARLY, 1, 0, 0, {}}, ""},
    };
    for (const WriteRow& row : rows) EXPECT_EQ(written(row.rule, CalendarTime{}), row.text);
}

}  // namespace
}  // namespace vzapi::test
