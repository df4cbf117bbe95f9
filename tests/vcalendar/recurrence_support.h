// Times and recurrences of tests: short to write, and shown in words when a test fails.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reference/recurrence_reference.h"
#include "vcalendar/recurrence.h"

namespace vzapi::test {

// The time of a text such as "19960415T090000Z". A text that is none fails the test.
[[nodiscard]] CalendarTime time_of_text(std::string_view text);

// "1996 0415 0416 1997 0103": years, each followed by months and days.
[[nodiscard]] std::vector<reference::Date> dates_of_list(const std::string& list);

// "weekly 2 MO WE until 19960601T000000", "monthly 1 position 5 FR", "none".
[[nodiscard]] std::string in_words(const std::optional<vcalendar::Recurrence>& rule);

// The dates of the rule up to `last`, at most `most`, asked for one by one with nth_occurrence().
[[nodiscard]] std::vector<reference::Date> dates_of(const vcalendar::Recurrence& rule,
                                                    const CalendarTime& start, const reference::Date& last,
                                                    std::size_t most = SIZE_MAX);

// What the oracles take.
[[nodiscard]] reference::Window window_of(const CalendarTime& start, const reference::Date& last);
[[nodiscard]] reference::RecordRule reference_rule(const vcalendar::Recurrence& rule);

// What `rule` says without what it may say in several ways, or says in vain: interval 0, days that do not
// count, zone words, an end that is none.
[[nodiscard]] vcalendar::Recurrence plain_form(const vcalendar::Recurrence& rule, const CalendarTime& start);

}  // namespace vzapi::test
