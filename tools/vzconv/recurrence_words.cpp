#include "vzconv/recurrence_words.h"

#include <bit>
#include <string_view>

#include "vzconv/calendar_time.h"
#include "vzconv/calendar_words.h"
#include "vzconv/date_text.h"

namespace vzconv {
namespace {

constexpr uint32_t kAllDays = 0x7F;
constexpr uint32_t kWorkdays =
    VZ_DAY_MONDAY | VZ_DAY_TUESDAY | VZ_DAY_WEDNESDAY | VZ_DAY_THURSDAY | VZ_DAY_FRIDAY;

constexpr std::string_view kOrdinals[] = {"first", "second",  "third",  "fourth", "fifth",
                                          "sixth", "seventh", "eighth", "ninth",  "tenth"};

// "31st".
std::string short_ordinal_of(uint32_t number) {
    const uint32_t last = number % 10;
    const bool is_teen = number / 10 % 10 == 1;
    const char* ending = is_teen || last == 0 || last > 3 ? "th" : last == 1 ? "st" : last == 2 ? "nd" : "rd";
    return std::to_string(number) + ending;
}

// "second", "31st".
std::string ordinal_of(uint32_t number) {
    return number <= std::size(kOrdinals) ? std::string(kOrdinals[number - 1]) : short_ordinal_of(number);
}

// "every month", "every second month".
std::string every(uint32_t interval, std::string_view unit) {
    return (interval <= 1 ? "every " : "every " + ordinal_of(interval) + " ") + std::string(unit);
}

// "Monday" of a bit.
std::string_view name_of_day(uint32_t bit) {
    return weekday_name(static_cast<unsigned>(std::countr_zero(bit)));
}

std::string days_in_words(uint32_t days) {
    if ((days & kAllDays) == kWorkdays) return "Monday to Friday";
    std::vector<std::string> names;
    for (const CodeWord& day : day_words()) {
        if ((days & day.code) != 0) names.emplace_back(name_of_day(day.code));
    }
    return list_in_words(names);
}

std::string weekly(const Repeat& repeat, const CalendarTime& start) {
    const uint32_t days = days_of(repeat, start);
    if (days == kAllDays) {
        return repeat.interval <= 1 ? "every day" : every(repeat.interval, "week") + " on all days";
    }
    if (std::has_single_bit(days)) return every(repeat.interval, name_of_day(days));
    if (days == 0) return every(repeat.interval, "week");
    if (repeat.interval <= 1) return "every " + days_in_words(days);
    return every(repeat.interval, "week") + (days == kWorkdays ? ", " : " on ") + days_in_words(days);
}

// "the last Friday"; nothing where no day is known.
std::string day_of_position(const Repeat& repeat, const CalendarTime& start) {
    const uint32_t days = days_of(repeat, start);
    if (days == 0) return {};
    const std::string_view position = word_of(position_words(), repeat.position);
    // Each of the days, not the days together.
    std::vector<std::string> names;
    for (const CodeWord& day : day_words()) {
        if ((days & day.code) == 0) continue;
        names.push_back("the " + std::string(position) + " " + std::string(name_of_day(day.code)));
    }
    return list_in_words(names);
}

std::string monthly(const Repeat& repeat, const CalendarTime& start) {
    const std::string month = every(repeat.interval, "month");
    if (has_position(repeat)) {
        const std::string day = day_of_position(repeat, start);
        return day.empty() ? month : month + " on " + day;
    }
    return is_set(start) ? month + " on the " + short_ordinal_of(start.day) : month;
}

std::string yearly(const Repeat& repeat, const CalendarTime& start) {
    std::string year = every(repeat.interval, "year");
    if (!is_set(start)) return year;
    const std::string month(month_name(start.month));
    if (!has_position(repeat)) return year + " on " + std::to_string(start.day) + " " + month;
    const std::string day = day_of_position(repeat, start);
    return day.empty() ? year : year + " on " + day + " in " + month;
}

bool is_same_clock(const CalendarTime& a, const CalendarTime& b) {
    return a.hour == b.hour && a.minute == b.minute && a.second == b.second;
}

// Whether an occurrence on the last day is still before the end, so that the day says it all.
bool ends_with_its_day(const CalendarTime& until, const CalendarTime& start) {
    if (!is_set(start)) return is_midnight(until);
    if (is_utc(until) != is_utc(start)) return false;
    return moment_of(until) - std::chrono::floor<std::chrono::days>(moment_of(until)) >=
           moment_of(start) - std::chrono::floor<std::chrono::days>(moment_of(start));
}

std::string end_in_words(const CalendarTime& until, const CalendarTime& start) {
    if (!is_set(until)) return {};
    std::string words = " until " + plain_day_in_words(until);
    if (!ends_with_its_day(until, start)) {
        words += ", " + clock_in_words(until) + std::string(utc_mark_of(until));
    }
    return words;
}

std::string exception_in_words(const CalendarTime& time, const CalendarTime& start) {
    const bool is_of_start = is_set(start) && is_utc(time) == is_utc(start) && is_same_clock(time, start);
    if (is_of_start || (is_midnight(time) && !is_utc(time))) return plain_day_in_words(time);
    return plain_day_in_words(time) + " at " + clock_in_words(time) + std::string(utc_mark_of(time));
}

}  // namespace

std::string recurrence_in_words(const Repeat& repeat, const CalendarTime& start) {
    const std::string end = end_in_words(repeat.until, start);
    switch (repeat.kind) {
        case VZ_REPEAT_WEEKLY:
            return weekly(repeat, start) + end;
        case VZ_REPEAT_MONTHLY:
            return monthly(repeat, start) + end;
        case VZ_REPEAT_YEARLY:
            return yearly(repeat, start) + end;
        default:
            return every(repeat.interval, "day") + end;
    }
}

std::string exceptions_in_words(std::span<const CalendarTime> exceptions, const CalendarTime& start) {
    std::vector<std::string> days;
    for (const CalendarTime& time : exceptions) {
        if (is_set(time)) days.push_back(exception_in_words(time, start));
    }
    return list_in_words(days);
}

std::string list_in_words(const std::vector<std::string>& parts) {
    std::string list;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i != 0) list += i + 1 == parts.size() ? " and " : ", ";
        list += parts[i];
    }
    return list;
}

}  // namespace vzconv
