// Random recurrences and random texts of them, the same on every machine for one seed. Most texts are rules;
// many of these say what a record cannot.
#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "vcalendar/recurrence.h"

namespace vzapi::test {

class RecurrenceGenerator {
public:
    explicit RecurrenceGenerator(std::uint64_t seed) : engine_(seed) {}

    // A day that exists, from 1980 to 2030, at any time of day; in UTC or not.
    [[nodiscard]] CalendarTime start();

    // Every member has any value, those that do not count included. The end, if any, is within twelve years
    // of the start and of its kind.
    [[nodiscard]] vcalendar::Recurrence record(const CalendarTime& start);

    // The same with an interval of at most 255.
    [[nodiscard]] vcalendar::Recurrence narrow_record(const CalendarTime& start);

    // Numbers that a rule may repeat from its start are often those of `start`.
    [[nodiscard]] std::string basic_rule(const CalendarTime& start);
    [[nodiscard]] std::string rrule(const CalendarTime& start);

private:
    std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(engine_() % limit); }
    bool chance(std::uint32_t one_in) { return below(one_in) == 0; }
    std::uint32_t interval();
    std::string weekday();
    std::string small_interval();
    std::string list_of_basic_rule(const std::string& letters, const CalendarTime& start);
    std::string number_list(std::uint32_t usual, std::uint32_t greatest, char separator);
    std::string by_days(const std::string& frequency);
    std::string by_month_days(const CalendarTime& start);
    CalendarTime end(const CalendarTime& start);

    std::mt19937_64 engine_;
};

}  // namespace vzapi::test
