#include "vcalendar/recurrence_parts.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <limits>

#include "vcalendar/calendar_time.h"
#include "vcalendar/occurrences.h"
#include "versit/ascii.h"

namespace vzapi::vcalendar {
namespace {

struct WeekdayRow {
    std::uint32_t day;
    std::string_view name;
};

// In the order of a week, which begins on Monday.
constexpr WeekdayRow kWeekdays[] = {
    // clang-format off
    {VZ_DAY_MONDAY,    "MO"},
    {VZ_DAY_TUESDAY,   "TU"},
    {VZ_DAY_WEDNESDAY, "WE"},
    {VZ_DAY_THURSDAY,  "TH"},
    {VZ_DAY_FRIDAY,    "FR"},
    {VZ_DAY_SATURDAY,  "SA"},
    {VZ_DAY_SUNDAY,    "SU"},
    // clang-format on
};

bool goes_by_weekday(const Recurrence& rule) noexcept {
    const bool goes_by_month = rule.frequency == VZ_REPEAT_MONTHLY || rule.frequency == VZ_REPEAT_YEARLY;
    return rule.frequency == VZ_REPEAT_WEEKLY || (goes_by_month && position_of(rule) != VZ_POSITION_NONE);
}

}  // namespace

std::uint32_t weekday_of(const CalendarTime& time) noexcept {
    const std::chrono::weekday day(std::chrono::floor<std::chrono::days>(clock_of(time)));
    return 1U << day.c_encoding();
}

std::uint32_t days_of(const Recurrence& rule, const CalendarTime& start) noexcept {
    return has_days(rule) ? rule.days & kAllDays : weekday_of(start);
}

bool is_complete(const Recurrence& rule) noexcept {
    return rule.frequency == VZ_REPEAT_DAILY || (goes_by_weekday(rule) && has_days(rule));
}

bool has_end(const Recurrence& rule) noexcept {
    return is_valid(rule.until);
}

std::optional<std::uint32_t> parse_weekday(std::string_view text) noexcept {
    for (const WeekdayRow& row : kWeekdays) {
        if (versit::equals_ignoring_case(text, row.name)) return row.day;
    }
    return std::nullopt;
}

void append_weekdays(std::uint32_t days, char separator, std::string& text) {
    bool is_first = true;
    for (const WeekdayRow& row : kWeekdays) {
        if ((days & row.day) == 0) continue;
        if (!is_first) text += separator;
        text += row.name;
        is_first = false;
    }
}

std::optional<std::uint64_t> take_number(std::string_view& text) noexcept {
    constexpr std::uint64_t kGreatest = std::numeric_limits<std::uint64_t>::max();
    const std::size_t length = std::min(text.find_first_not_of("0123456789"), text.size());
    if (length == 0) return std::nullopt;
    std::uint64_t number = 0;
    for (const char character : text.substr(0, length)) {
        const auto digit = static_cast<std::uint64_t>(character - '0');
        number = number > (kGreatest - digit) / 10 ? kGreatest : number * 10 + digit;
    }
    text.remove_prefix(length);
    return number;
}

void append_number(std::uint64_t number, std::string& text) {
    text += std::to_string(number);
}

std::optional<CalendarTime> parse_end(std::string_view text) noexcept {
    std::optional<DateText> date = parse_date_text(text);
    if (!date) return std::nullopt;
    if (date->is_bare_date) {
        date->time.hour = 23;
        date->time.minute = 59;
        date->time.second = 59;
    }
    return date->time;
}

std::optional<Recurrence> completed(Recurrence rule, const Limits& limits,
                                    const CalendarTime& start) noexcept {
    if (limits.interval == 0 || limits.interval > std::numeric_limits<std::uint32_t>::max()) {
        return std::nullopt;
    }
    rule.interval = static_cast<std::uint32_t>(limits.interval);
    rule.until = limits.until;
    const bool has_start = is_valid(start);
    if (goes_by_weekday(rule) && has_start) rule.days = days_of(rule, start);
    if (limits.count == 0) return rule;
    if (!has_start) return std::nullopt;
    end_after(rule, start, limits.count);
    return rule;
}

}  // namespace vzapi::vcalendar
