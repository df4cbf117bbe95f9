#include "vcalendar/recurrence_support.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>

#include "vcalendar/calendar_time.h"
#include "vcalendar/occurrences.h"

namespace vzapi::test {
namespace {

using vcalendar::Recurrence;

reference::Moment moment_of(const CalendarTime& time) {
    return {{time.year, time.month, time.day}, (time.hour * 60 + time.minute) * 60 + time.second};
}

std::string names_of(std::uint32_t days) {
    constexpr const char* kNames[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    std::string names;
    for (unsigned i = 0; i < 7; ++i) {
        if (((days >> i) & 1) != 0) names += std::string(" ") + kNames[i];
    }
    if (days > 127) names += " and " + std::to_string(days - days % 128);
    return names;
}

}  // namespace

CalendarTime time_of_text(std::string_view text) {
    const auto date = vcalendar::parse_date_text(text);
    EXPECT_TRUE(date) << text;
    return date ? date->time : CalendarTime{};
}

std::vector<reference::Date> dates_of_list(const std::string& list) {
    constexpr int kLastOfDecember = 1231;
    std::istringstream words(list);
    std::vector<reference::Date> dates;
    int year = 0;
    for (int number = 0; words >> number;) {
        if (number > kLastOfDecember) {
            year = number;
        } else {
            dates.push_back({year, number / 100, number % 100});
        }
    }
    return dates;
}

std::string in_words(const std::optional<Recurrence>& rule) {
    constexpr const char* kFrequencies[] = {"daily", "weekly", "monthly", "yearly"};
    if (!rule) return "none";
    if (!vcalendar::recurs(*rule)) return "does not recur";
    std::string words = kFrequencies[rule->frequency - 1];
    words += " " + std::to_string(rule->interval);
    if (rule->position != 0) words += " position " + std::to_string(rule->position);
    words += names_of(rule->days);
    if (rule->until.year == 0) return words;
    words += " until ";
    vcalendar::append_zoned_date_text(rule->until, words);
    return words;
}

std::vector<reference::Date> dates_of(const Recurrence& rule, const CalendarTime& start,
                                      const reference::Date& last, std::size_t most) {
    // Asking a system for its zone takes long, and tells nothing where both are of one kind.
    const bool same_kind = vcalendar::is_utc(start) == vcalendar::is_utc(rule.until);
    const auto clock = same_kind ? vcalendar::clock_of : vcalendar::local_clock_of;
    std::optional<std::chrono::local_seconds> end;
    if (rule.until.year != 0) end = clock(rule.until);
    std::vector<reference::Date> dates;
    while (dates.size() < most) {
        const auto time = vcalendar::nth_occurrence(rule, start, dates.size() + 1);
        if (!time || moment_of(*time).date > last) break;
        if (end && clock(*time) > *end) break;
        dates.push_back(moment_of(*time).date);
    }
    return dates;
}

reference::Window window_of(const CalendarTime& start, const reference::Date& last) {
    return {moment_of(start), last};
}

reference::RecordRule reference_rule(const Recurrence& rule) {
    reference::RecordRule same;
    same.frequency = static_cast<int>(rule.frequency);
    same.interval = rule.interval;
    same.days = rule.days;
    same.position = rule.position;
    if (vcalendar::is_valid(rule.until)) same.until = moment_of(rule.until);
    return same;
}

Recurrence plain_form(const Recurrence& rule, const CalendarTime& start) {
    Recurrence plain = rule;
    if (plain.interval == 0) plain.interval = 1;
    const bool is_by_month = plain.frequency >= VZ_REPEAT_MONTHLY;
    if (!is_by_month || plain.position > VZ_POSITION_LAST) plain.position = VZ_POSITION_NONE;
    plain.days %= 128;
    const bool has_days = plain.frequency == VZ_REPEAT_WEEKLY || plain.position != VZ_POSITION_NONE;
    const reference::Day* day = reference::find_day({start.year, start.month, start.day});
    if (plain.days == 0 && day != nullptr) plain.days = 1U << day->weekday;
    if (!has_days) plain.days = 0;
    const bool is_utc = vcalendar::is_utc(plain.until);
    if (!vcalendar::is_valid(plain.until)) {
        plain.until = {};
    } else if (is_utc) {
        vcalendar::mark_utc(plain.until);
    } else {
        vcalendar::mark_local(plain.until);
    }
    plain.until.reserved = 0;
    return plain;
}

}  // namespace vzapi::test
