#include "reference/day_table.h"

#include <algorithm>
#include <cstddef>

namespace vzapi::reference {
namespace {

bool is_leap(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

Day next(const Day& day) {
    Day after = day;
    after.number += 1;
    after.weekday = (day.weekday + 1) % 7;
    after.day_of_year += 1;
    after.date.day += 1;
    if (after.date.day > day.month_length) {
        after.date.day = 1;
        after.date.month += 1;
    }
    if (after.date.month > 12) {
        after.date.month = 1;
        after.date.year += 1;
        after.day_of_year = 1;
    }
    after.month_length = month_length(after.date.year, after.date.month);
    after.year_length = is_leap(after.date.year) ? 366 : 365;
    return after;
}

std::vector<Day> make_table() {
    std::vector<Day> days;
    // 1 January 1900 was a Monday.
    for (Day day{{1900, 1, 1}, 1, 0, 1, 31, 365}; day.date.year < 2500; day = next(day)) days.push_back(day);
    return days;
}

void append_padded(int number, std::size_t width, std::string& text) {
    const std::string digits = std::to_string(number);
    if (digits.size() < width) text.append(width - digits.size(), '0');
    text += digits;
}

}  // namespace

int month_length(int year, int month) {
    if (month == 2) return is_leap(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

const std::vector<Day>& day_table() {
    static const std::vector<Day> table = make_table();
    return table;
}

const Day* find_day(const Date& date) {
    const std::vector<Day>& table = day_table();
    const auto found = std::lower_bound(table.begin(), table.end(), date,
                                        [](const Day& day, const Date& wanted) { return day.date < wanted; });
    return found != table.end() && found->date == date ? &*found : nullptr;
}

// Millions of dates are shown: by hand, as one C library takes microseconds to format a number.
std::string shown(const std::vector<Date>& dates) {
    std::string text;
    for (const Date& date : dates) {
        append_padded(date.year, 4, text);
        text += '-';
        append_padded(date.month, 2, text);
        text += '-';
        append_padded(date.day, 2, text);
        text += ' ';
    }
    return text;
}

}  // namespace vzapi::reference
