// Dates and times of day as text: in ISO 8601, and the words of a person.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vzconv {

struct DateParts {
    uint16_t year = 0;
    uint8_t month = 0;
    uint8_t day = 0;
    uint8_t hour = 0;
    uint8_t minute = 0;
    uint8_t second = 0;
};

// "1980-02-29".
std::string iso_day_of(const DateParts& date);

// "12:30:00".
std::string iso_clock_of(const DateParts& date);

struct IsoDate {
    DateParts parts;
    bool has_clock;  // the text had a time of day, which is midnight in `parts` otherwise
};

// The date that a text like "1980-02-29" or "1980-02-29T12:30:00" means; nothing for any other text. No month
// is above 12, no day above 31; either may be 0.
std::optional<IsoDate> date_of_iso_text(std::string_view text);

// "February" of 2. REQUIRES: `month` is 1 to 12.
std::string_view month_name(unsigned month);

// "Sunday" of 0. REQUIRES: `day` is 0 to 6.
std::string_view weekday_name(unsigned day);

}  // namespace vzconv
