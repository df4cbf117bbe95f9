#include "vzconv/message_time.h"

#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>

#include "vzconv/date_text.h"

namespace vzconv {
namespace {

namespace chrono = std::chrono;

constexpr std::size_t kShortWeekday = 3;
constexpr unsigned kLastYear = 9999;  // of ISO 8601; std::chrono ends at 32767

DateParts parts_of(const MessageTime& time) {
    return {time.year, time.month, time.day, time.hour, time.minute, time.second};
}

// Takes a number of `least` digits or more, but no leading zeros beyond them, and the separator behind it.
template <class Number>
bool take_number(std::string_view& text, std::size_t least, std::string_view separator, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    const auto digits = static_cast<std::size_t>(stop - text.data());
    if (error != std::errc() || digits < least || (digits > least && text.front() == '0')) return false;
    text.remove_prefix(digits);
    if (!text.starts_with(separator)) return false;
    text.remove_prefix(separator.size());
    return true;
}

bool is_time_of_a_day(const MessageTime& time) {
    const chrono::year_month_day date{chrono::year(time.year), chrono::month(time.month),
                                      chrono::day(time.day)};
    return time.year <= kLastYear && date.ok() && time.hour < 24 && time.minute < 60 && time.second < 60;
}

}  // namespace

bool is_set(const MessageTime& time) {
    return time.year != 0;
}

std::string iso_time_of(const MessageTime& time) {
    return iso_day_of(parts_of(time)) + "T" + iso_clock_of(parts_of(time));
}

std::optional<MessageTime> message_time_of(std::string_view text) {
    MessageTime time{};
    const bool is_day = take_number(text, 4, "-", time.year) && take_number(text, 2, "-", time.month) &&
                        take_number(text, 2, "", time.day);
    if (!is_day || !is_set(time)) return std::nullopt;
    if (text.empty()) return time;
    if (!text.starts_with('T')) return std::nullopt;
    text.remove_prefix(1);
    const bool is_clock = take_number(text, 2, ":", time.hour) && take_number(text, 2, ":", time.minute) &&
                          take_number(text, 2, "", time.second);
    if (!is_clock || !text.empty()) return std::nullopt;
    return time;
}

std::string time_in_words(const MessageTime& time) {
    if (!is_time_of_a_day(time)) return iso_time_of(time);
    const chrono::year_month_day date{chrono::year(time.year), chrono::month(time.month),
                                      chrono::day(time.day)};
    const unsigned weekday = chrono::weekday(chrono::local_days(date)).c_encoding();
    const std::string clock = iso_clock_of(parts_of(time));
    constexpr std::size_t kWithoutSeconds = 5;
    return std::string(weekday_name(weekday).substr(0, kShortWeekday)) + " " + std::to_string(time.day) +
           " " + std::string(month_name(time.month)) + " " + std::to_string(time.year) + ", " +
           (time.second == 0 ? clock.substr(0, kWithoutSeconds) : clock);
}

}  // namespace vzconv
