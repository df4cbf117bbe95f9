#include "vzconv/recurrence_words.h"

#include <gtest/gtest.h>

#include "vzconv/calendar_time.h"

namespace vzconv {
namespace {

CalendarTime time_of(const char* text) {
    return *text == '\0' ? CalendarTime{} : time_of_iso(text, DayEdge::First).value();
}

struct RepeatRow {
    uint32_t kind;
    uint32_t interval;
    uint32_t days;
    uint32_t position;
    const char* until;
    const char* words;
};

constexpr uint32_t kMondayAndThursday = VZ_DAY_MONDAY | VZ_DAY_THURSDAY;

TEST(RecurrenceWords, EachUnitReadsAsAPersonSaysIt) {
    const RepeatRow rows[] = {
        // clang-format off
        {VZ_REPEAT_DAILY,   0,   0,                  0, "",                     "every day"},
        {VZ_REPEAT_DAILY,   1,   0,                  0, "",                     "every day"},
        {VZ_REPEAT_DAILY,   2,   0,                  0, "",                     "every second day"},
        {VZ_REPEAT_DAILY,   10,  0,                  0, "",                     "every tenth day"},
        {VZ_REPEAT_DAILY,   11,  0,                  0, "",                     "every 11th day"},
        {VZ_REPEAT_DAILY,   13,  0,                  0, "",                     "every 13th day"},
        {VZ_REPEAT_DAILY,   21,  0,                  0, "",                     "every 21st day"},
        {VZ_REPEAT_DAILY,   22,  0,                  0, "",                     "every 22nd day"},
        {VZ_REPEAT_DAILY,   33,  0,                  0, "",                     "every 33rd day"},
        {VZ_REPEAT_DAILY,   112, 0,                  0, "",                     "every 112th day"},
        {VZ_REPEAT_DAILY,   4294967295, 0,           0, "",                     "every 4294967295th day"},
        {VZ_REPEAT_WEEKLY,  1,   0,                  0, "",                     "every Tuesday"},
        {VZ_REPEAT_WEEKLY,  1,   VZ_DAY_SUNDAY,      0, "",                     "every Sunday"},
        {VZ_REPEAT_WEEKLY,  2,   VZ_DAY_SATURDAY,    0, "",                     "every second Saturday"},
        {VZ_REPEAT_WEEKLY,  1,   kMondayAndThursday, 0, "",                     "every Monday and Thursday"},
        {VZ_REPEAT_WEEKLY,  3,   kMondayAndThursday, 0, "",                     "every third week on Monday and Thursday"},
        {VZ_REPEAT_WEEKLY,  1,   0x3E,               0, "",                     "every Monday to Friday"},
        {VZ_REPEAT_WEEKLY,  2,   0x3E,               0, "",                     "every second week, Monday to Friday"},
        {VZ_REPEAT_WEEKLY,  1,   0x43,               0, "",                     "every Monday, Saturday and Sunday"},
        {VZ_REPEAT_WEEKLY,  1,   0x7F,               0, "",                     "every day"},
        {VZ_REPEAT_WEEKLY,  2,   0xFF,               0, "",                     "every second week on all days"},
        {VZ_REPEAT_MONTHLY, 1,   VZ_DAY_MONDAY,      0, "",                     "every month on the 10th"},
        {VZ_REPEAT_MONTHLY, 2,   0,                  2, "",                     "every second month on the second Tuesday"},
        {VZ_REPEAT_MONTHLY, 1,   VZ_DAY_FRIDAY,      5, "",                     "every month on the last Friday"},
        {VZ_REPEAT_MONTHLY, 1,   kMondayAndThursday, 1, "",                     "every month on the first Monday and the first Thursday"},
        {VZ_REPEAT_MONTHLY, 1,   VZ_DAY_FRIDAY,      6, "",                     "every month on the 10th"},
        {VZ_REPEAT_YEARLY,  1,   0,                  0, "",                     "every year on 10 March"},
        {VZ_REPEAT_YEARLY,  4,   0,                  0, "",                     "every fourth year on 10 March"},
        {VZ_REPEAT_YEARLY,  1,   VZ_DAY_SUNDAY,      5, "",                     "every year on the last Sunday in March"},
        {VZ_REPEAT_DAILY,   1,   0,                  0, "2010-06-30T23:59:59",  "every day until 30 June 2010"},
        {VZ_REPEAT_DAILY,   1,   0,                  0, "2010-06-30T14:00:00",  "every day until 30 June 2010"},
        {VZ_REPEAT_DAILY,   1,   0,                  0, "2010-06-30T13:59:59",  "every day until 30 June 2010, 13:59:59"},
        {VZ_REPEAT_DAILY,   1,   0,                  0, "2010-06-30T14:00:00Z", "every day until 30 June 2010, 14:00 UTC"},
        // clang-format on
    };
    for (const RepeatRow& row : rows) {
        const Repeat repeat = {row.kind, row.interval, row.days, row.position, time_of(row.until)};
        EXPECT_EQ(recurrence_in_words(repeat, time_of("2009-03-10T14:00:00")), row.words);
    }
}

TEST(RecurrenceWords, WithoutAStartTheRestIsLeftOpen) {
    const RepeatRow rows[] = {
        {VZ_REPEAT_WEEKLY, 1, 0, 0, "", "every week"},
        {VZ_REPEAT_WEEKLY, 2, VZ_DAY_MONDAY, 0, "", "every second Monday"},
        {VZ_REPEAT_MONTHLY, 1, 0, 0, "", "every month"},
        {VZ_REPEAT_MONTHLY, 1, 0, 2, "", "every month"},
        {VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, 2, "", "every month on the second Monday"},
        {VZ_REPEAT_YEARLY, 1, VZ_DAY_MONDAY, 2, "", "every year"},
        {VZ_REPEAT_DAILY, 1, 0, 0, "2010-06-30", "every day until 30 June 2010"},
        {VZ_REPEAT_DAILY, 1, 0, 0, "2010-06-30T12:00:00", "every day until 30 June 2010, 12:00"},
    };
    for (const RepeatRow& row : rows) {
        const Repeat repeat = {row.kind, row.interval, row.days, row.position, time_of(row.until)};
        EXPECT_EQ(recurrence_in_words(repeat, {}), row.words);
    }
}

TEST(RecurrenceWords, ADayThatItsMonthDoesNotHaveHasNoWeekday) {
    EXPECT_EQ(recurrence_in_words({VZ_REPEAT_WEEKLY, 1, 0, 0, {}}, time_of("2009-02-31")), "every week");
    EXPECT_EQ(recurrence_in_words({VZ_REPEAT_MONTHLY, 1, 0, 0, {}}, time_of("2009-02-31")),
              "every month on the 31st");
}

TEST(RecurrenceWords, ExceptionsSayTheirTimeWhereItIsAnother) {
    const CalendarTime times[] = {time_of("2009-04-07"),
                                  time_of("2009-04-08T14:00:00"),
                                  time_of("2009-04-09T15:00:00"),
                                  {},
                                  time_of("2009-04-10T14:00:00Z")};
    EXPECT_EQ(exceptions_in_words(times, time_of("2009-03-10T14:00:00")),
              "7 April 2009, 8 April 2009, 9 April 2009 at 15:00 and 10 April 2009 at 14:00 UTC");
    EXPECT_EQ(exceptions_in_words({}, {}), "");
    EXPECT_EQ(exceptions_in_words({times, 1}, {}), "7 April 2009");
    EXPECT_EQ(exceptions_in_words({times, 2}, {}), "7 April 2009 and 8 April 2009 at 14:00");
}

}  // namespace
}  // namespace vzconv
