// An independent expander over the rules that we write and read.
//
// What libical 3.0 cannot be asked: an interval beyond 32,767, years from 2582 on. A local time and one in
// UTC it compares by their numbers, so that here start and end are of one kind. See also has_other_dates().
#include <gtest/gtest.h>
#include <libical/ical.h>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <string>

#include "vcalendar/recurrence_generator.h"
#include "vcalendar/recurrence_support.h"
#include "vcalendar/recurrence_text.h"

namespace vzapi::test {
namespace {

using reference::Date;
using vcalendar::Recurrence;

constexpr int kRules = 1000;
constexpr std::size_t kMostDates = 300;

std::string text_of(const CalendarTime& start) {
    const std::string kind = start.zone1 == VZ_ZONE_LOCAL ? "" : "Z";
    char text[32];
    std::snprintf(text, sizeof text, "%04u%02u%02uT%02u%02u%02u", unsigned{start.year}, unsigned{start.month},
                  unsigned{start.day}, unsigned{start.hour}, unsigned{start.minute}, unsigned{start.second});
    return text + kind;
}

std::vector<Date> expanded_by_libical(const std::string& rule, const CalendarTime& start, const Date& last) {
    std::vector<Date> dates;
    const icalrecurrencetype recurrence = icalrecurrencetype_from_string(rule.c_str());
    const icaltimetype first = icaltime_from_string(text_of(start).c_str());
    icalrecur_iterator* iterator = icalrecur_iterator_new(recurrence, first);
    EXPECT_NE(iterator, nullptr) << rule;
    if (iterator == nullptr) return dates;
    while (dates.size() < kMostDates) {
        const icaltimetype time = icalrecur_iterator_next(iterator);
        const Date date = {time.year, time.month, time.day};
        if (icaltime_is_null_time(time) != 0 || date > last) break;
        dates.push_back(date);
    }
    icalrecur_iterator_free(iterator);
    return dates;
}

std::string shown_up_to_limit(std::vector<Date> dates) {
    if (dates.size() > kMostDates) dates.resize(kMostDates);
    return shown(dates);
}

Date horizon(const CalendarTime& start) {
    return {start.year + 20, 12, 31};
}

// The rules for which libical 3.0 departs from RFC 2445, and that are passed over:
// - a weekly rule that names a weekday twice has all its dates twice;
// - a rule of every other week whose only weekday is Sunday counts from the week before the start, as if
//   weeks began on Sunday whatever WKST says ("FREQ=WEEKLY;INTERVAL=2;WKST=MO;BYDAY=SU" from Wednesday, 17
//   September 2014: the first is not the 21st); so may any single weekday where WKST is not Monday.
bool has_other_dates(const std::string& text, const Recurrence& rule) {
    const std::size_t by_day = text.find("BYDAY=");
    if (rule.frequency != VZ_REPEAT_WEEKLY || by_day == std::string::npos) return false;
    const std::string names = text.substr(by_day, text.find(';', by_day) - by_day);
    const int days = std::popcount(rule.days);
    if (std::count(names.begin(), names.end(), ',') + 1 > days) return true;
    const bool begins_on_monday =
        text.find("WKST") == std::string::npos || text.find("WKST=MO") != std::string::npos;
    return rule.interval > 1 && days == 1 && (rule.days == VZ_DAY_SUNDAY || !begins_on_monday);
}

TEST(Libical, ExpandsWhatWeWriteToTheDatesOfTheRecord) {
    RecurrenceGenerator generator(20'260'311);
    for (int compared = 0; compared < kRules;) {
        const CalendarTime start = generator.start();
        const Recurrence rule = plain_form(generator.narrow_record(start), start);
        std::string text;
        vcalendar::append_rrule(rule, start, text);
        if (has_other_dates(text, rule)) continue;
        ++compared;
        const auto expected =
            reference::expand_record(reference_rule(rule), window_of(start, horizon(start)));
        EXPECT_EQ(shown(expanded_by_libical(text, start, horizon(start))), shown_up_to_limit(expected))
            << text << " from " << text_of(start);
    }
}

TEST(Libical, ExpandsBasicRulesWrittenAsRruleToTheirDates) {
    RecurrenceGenerator generator(20'260'312);
    for (int compared = 0; compared < kRules;) {
        const CalendarTime start = generator.start();
        const std::string basic = generator.basic_rule(start);
        const auto rule = vcalendar::parse_recurrence(basic, start);
        if (!rule) continue;
        std::string text;
        vcalendar::append_rrule(*rule, start, text);
        if (has_other_dates(text, *rule)) continue;
        ++compared;
        const auto expected = reference::expand_basic_rule(basic, window_of(start, horizon(start)));
        ASSERT_TRUE(expected) << basic;
        EXPECT_EQ(shown(expanded_by_libical(text, start, horizon(start))), shown_up_to_limit(*expected))
            << basic << " as " << text << " from " << text_of(start);
    }
}

TEST(Libical, ExpandsTheRrulesThatWeReadToTheDatesOfTheRecord) {
    RecurrenceGenerator generator(20'260'313);
    for (int compared = 0; compared < kRules;) {
        const CalendarTime start = generator.start();
        const std::string text = generator.rrule(start);
        const auto rule = vcalendar::parse_recurrence(text, start);
        if (!rule || has_other_dates(text, *rule)) continue;
        ++compared;
        EXPECT_EQ(shown(expanded_by_libical(text, start, horizon(start))),
                  shown(dates_of(*rule, start, horizon(start), kMostDates)))
            << text << " as " << in_words(rule) << " from " << text_of(start);
    }
}

}  // namespace
}  // namespace vzapi::test
