// Every day from 1900 to 2499, made by stepping from one to the next: the calendar of the oracles.
#pragma once

#include <compare>
#include <string>
#include <vector>

namespace vzapi::reference {

struct Date {
    int year = 0;
    int month = 0;
    int day = 0;

    friend auto operator<=>(const Date&, const Date&) = default;
};

struct Day {
    Date date;
    int weekday;       // Sunday is 0
    int number;        // 1 January 1900 is 0
    int day_of_year;   // 1 January is 1
    int month_length;  // days
    int year_length;   // days
};

int month_length(int year, int month);

// In order; day_table()[n].number is n.
const std::vector<Day>& day_table();

// Null when there is no such day between 1900 and 2499.
const Day* find_day(const Date& date);

// "1996-04-15 1996-04-22".
std::string shown(const std::vector<Date>& dates);

}  // namespace vzapi::reference
