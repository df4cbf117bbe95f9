// Holds the reading of recurrences and the counting of their occurrences against the literal expanders, and
// the writing against the reading.
#include <gtest/gtest.h>

#include <string>

#include "vcalendar/calendar_time.h"
#include "vcalendar/occurrences.h"
#include "vcalendar/recurrence_generator.h"
#include "vcalendar/recurrence_support.h"
#include "vcalendar/recurrence_text.h"
#include "versit/differential_size.h"

namespace vzapi::test {
namespace {

using reference::Date;
using vcalendar::Recurrence;

// Expanding a rule takes far longer than parsing a text.
std::size_t rule_count() {
    return differential_text_count() / 50;
}

Date years_after(const CalendarTime& start, int years) {
    return {start.year + years, 12, 31};
}

// Both the oracle's reading of the record and the occurrences asked for one by one.
void expect_dates(const std::vector<Date>& expected, const Recurrence& rule, const CalendarTime& start,
                  const Date& last, const std::string& what) {
    SCOPED_TRACE(what + " from " + in_words(rule));
    EXPECT_EQ(shown(reference::expand_record(reference_rule(rule), window_of(start, last))), shown(expected));
    EXPECT_EQ(shown(dates_of(rule, start, last)), shown(expected));
}

void expect_same_rule(const Recurrence& actual, const Recurrence& expected, const std::string& text) {
    EXPECT_EQ(in_words(actual), in_words(expected)) << text;
    EXPECT_EQ(actual.until.zone1, expected.until.zone1) << text;
    EXPECT_EQ(actual.until.zone2, expected.until.zone2) << text;
    EXPECT_EQ(actual.until.reserved, expected.until.reserved) << text;
}

TEST(RecurrenceDifferential, Occurrences) {
    RecurrenceGenerator generator(20'260'301);
    for (std::size_t i = rule_count(); i > 0 && !HasFailure(); --i) {
        const CalendarTime start = generator.start();
        const Recurrence rule = generator.record(start);
        const Date last = years_after(start, 12);
        const auto expected =
            reference::expand_record(reference_rule(plain_form(rule, start)), window_of(start, last));
        EXPECT_EQ(shown(dates_of(rule, start, last)), shown(expected)) << in_words(rule);
    }
}

TEST(RecurrenceDifferential, OccurrencesKeepTimeOfDayAndZone) {
    RecurrenceGenerator generator(20'260'302);
    for (unsigned i = 0; i < 1000; ++i) {
        const CalendarTime start = generator.start();
        const auto time = vcalendar::nth_occurrence(generator.record(start), start, i % 3 + 1);
        if (!time) continue;
        EXPECT_EQ(time->hour, start.hour);
        EXPECT_EQ(time->minute, start.minute);
        EXPECT_EQ(time->second, start.second);
        EXPECT_EQ(time->zone1, start.zone1);
        EXPECT_EQ(time->zone2, start.zone2);
        EXPECT_GE(vcalendar::clock_of(*time), vcalendar::clock_of(start));
    }
}

// Whatever is read means exactly the dates of the text.
TEST(RecurrenceDifferential, BasicRulesIn) {
    RecurrenceGenerator generator(20'260'303);
    std::size_t read = 0;
    for (std::size_t i = rule_count(); i > 0 && !HasFailure(); --i) {
        const CalendarTime start = generator.start();
        const std::string text = generator.basic_rule(start);
        const Date last = years_after(start, 16);
        const auto expected = reference::expand_basic_rule(text, window_of(start, last));
        ASSERT_TRUE(expected) << text;
        const auto rule = vcalendar::parse_recurrence(text, start);
        if (!rule) continue;
        ++read;
        expect_dates(*expected, *rule, start, last, text);
    }
    EXPECT_GT(read, rule_count() / 3);
    EXPECT_LT(read, rule_count());
}

TEST(RecurrenceDifferential, RrulesIn) {
    RecurrenceGenerator generator(20'260'304);
    std::size_t read = 0;
    for (std::size_t i = rule_count(); i > 0 && !HasFailure(); --i) {
        const CalendarTime start = generator.start();
        const std::string text = generator.rrule(start);
        const Date last = years_after(start, 16);
        const auto rule = vcalendar::parse_recurrence(text, start);
        if (!rule) continue;
        ++read;
        const auto expected = reference::expand_rrule(text, window_of(start, last));
        ASSERT_TRUE(expected) << text;
        expect_dates(*expected, *rule, start, last, text);
    }
    EXPECT_GT(read, rule_count() / 4);
    EXPECT_LT(read, rule_count());
}

TEST(RecurrenceDifferential, RrulesOut) {
    RecurrenceGenerator generator(20'260'305);
    for (std::size_t i = rule_count(); i > 0 && !HasFailure(); --i) {
        const CalendarTime start = generator.start();
        const Recurrence rule = plain_form(generator.record(start), start);
        std::string text;
        vcalendar::append_rrule(rule, start, text);
        const Date last = years_after(start, 12);
        const auto dates = reference::expand_rrule(text, window_of(start, last));
        ASSERT_TRUE(dates) << text;
        expect_dates(*dates, rule, start, last, text);
    }
}

TEST(RecurrenceDifferential, BasicRulesOut) {
    RecurrenceGenerator generator(20'260'306);
    for (std::size_t i = rule_count(); i > 0 && !HasFailure(); --i) {
        const CalendarTime start = generator.start();
        const Recurrence rule = plain_form(generator.record(start), start);
        std::string text;
        vcalendar::append_basic_rule(rule, start, text);
        const Date last = years_after(start, 12);
        const auto dates = reference::expand_basic_rule(text, window_of(start, last));
        ASSERT_TRUE(dates) << text;
        expect_dates(*dates, rule, start, last, text);
    }
}

TEST(RecurrenceDifferential, RecordsComeBackFromAnRrule) {
    RecurrenceGenerator generator(20'260'307);
    for (std::size_t i = differential_text_count(); i > 0 && !HasFailure(); --i) {
        const CalendarTime start = generator.start();
        const Recurrence rule = generator.record(start);
        std::string text;
        vcalendar::append_rrule(rule, start, text);
        const auto again = vcalendar::parse_recurrence(text, start);
        ASSERT_TRUE(again) << text;
        expect_same_rule(*again, plain_form(rule, start), text);
    }
}

// In this form twelve months are a year.
TEST(RecurrenceDifferential, RecordsComeBackFromABasicRule) {
    RecurrenceGenerator generator(20'260'308);
    for (std::size_t i = differential_text_count(); i > 0 && !HasFailure(); --i) {
        const CalendarTime start = generator.start();
        const Recurrence rule = generator.record(start);
        std::string text;
        vcalendar::append_basic_rule(rule, start, text);
        const auto again = vcalendar::parse_recurrence(text, start);
        ASSERT_TRUE(again) << text;
        Recurrence expected = plain_form(rule, start);
        if (expected.frequency == VZ_REPEAT_MONTHLY && expected.interval % 12 == 0) {
            expected.frequency = VZ_REPEAT_YEARLY;
            expected.interval /= 12;
        }
        expect_same_rule(*again, expected, text);
    }
}

}  // namespace
}  // namespace vzapi::test
