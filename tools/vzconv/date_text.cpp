#include "vzconv/date_text.h"

#include <charconv>
#include <cstdio>

namespace vzconv {
namespace {

constexpr std::string_view kMonths[] = {"January",   "February", "March",    "April",
                                        "May",       "June",     "July",     "August",
                                        "September", "October",  "November", "December"};
constexpr std::string_view kWeekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                          "Thursday", "Friday", "Saturday"};

// Takes a number of exactly `digits` digits off the front of `text`, and the separator behind it.
std::optional<uint16_t> take_number(std::string_view& text, std::size_t digits, std::string_view separator) {
    if (text.size() < digits || !text.substr(digits).starts_with(separator)) return std::nullopt;
    uint16_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + digits, number);
    if (error != std::errc() || stop != text.data() + digits) return std::nullopt;
    text.remove_prefix(digits + separator.size());
    return number;
}

// Takes a part of two digits, at most `largest`, into `part`.
bool take_part(std::string_view& text, uint16_t largest, std::string_view separator, uint8_t& part) {
    const std::optional<uint16_t> number = take_number(text, 2, separator);
    if (!number || *number > largest) return false;
    part = static_cast<uint8_t>(*number);
    return true;
}

}  // namespace

std::string iso_day_of(const DateParts& date) {
    char text[32];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u", unsigned{date.year}, unsigned{date.month},
                  unsigned{date.day});
    return text;
}

std::string iso_clock_of(const DateParts& date) {
    char text[32];
    std::snprintf(text, sizeof text, "%02u:%02u:%02u", unsigned{date.hour}, unsigned{date.minute},
                  unsigned{date.second});
    return text;
}

std::optional<IsoDate> date_of_iso_text(std::string_view text) {
    IsoDate date{};
    const std::optional<uint16_t> year = take_number(text, 4, "-");
    if (!year || !take_part(text, 12, "-", date.parts.month) || !take_part(text, 31, "", date.parts.day)) {
        return std::nullopt;
    }
    date.parts.year = *year;
    date.has_clock = text.starts_with('T');
    if (date.has_clock) {
        text.remove_prefix(1);
        const bool is_clock = take_part(text, 23, ":", date.parts.hour) &&
                              take_part(text, 59, ":", date.parts.minute) &&
                              take_part(text, 59, "", date.parts.second);
        if (!is_clock) return std::nullopt;
    }
    if (!text.empty()) return std::nullopt;
    return date;
}

std::string_view month_name(unsigned month) {
    return kMonths[month - 1];
}

std::string_view weekday_name(unsigned day) {
    return kWeekdays[day];
}

}  // namespace vzconv
