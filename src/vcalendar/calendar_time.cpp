#include "vcalendar/calendar_time.h"

#include <cstddef>
#include <cstdint>

#include "platform/time_zone.h"
#include "versit/ascii.h"

namespace vzapi::vcalendar {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::local_days;
using std::chrono::local_seconds;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::year;

constexpr local_seconds kFirstMoment = local_days(year(1900) / 1 / 1);
constexpr local_seconds kBehindLastMoment = local_days(year(10000) / 1 / 1);

// Takes exactly `count` digits off the front of `text`; `count` is so small that nothing overflows.
template <class Number>
bool take_number(std::string_view& text, std::size_t count, Number& number) noexcept {
    if (text.size() < count) return false;
    unsigned value = 0;
    for (const char digit : text.substr(0, count)) {
        if (digit < '0' || digit > '9') return false;
        value = value * 10 + static_cast<unsigned>(digit - '0');
    }
    number = static_cast<Number>(value);
    text.remove_prefix(count);
    return true;
}

bool take(std::string_view& text, char upper) noexcept {
    if (text.empty() || versit::to_upper(text.front()) != upper) return false;
    text.remove_prefix(1);
    return true;
}

// Both separators stand there, or none; the same in take_time_of_day().
bool take_date(std::string_view& text, CalendarTime& time) noexcept {
    if (!take_number(text, 4, time.year)) return false;
    const bool separated = take(text, '-');
    return take_number(text, 2, time.month) && take(text, '-') == separated && take_number(text, 2, time.day);
}

bool take_time_of_day(std::string_view& text, CalendarTime& time) noexcept {
    if (!take_number(text, 2, time.hour)) return false;
    const bool separated = take(text, ':');
    return take_number(text, 2, time.minute) && take(text, ':') == separated &&
           take_number(text, 2, time.second);
}

void append_number(unsigned number, std::size_t width, std::string& text) {
    const std::string digits = std::to_string(number);
    if (digits.size() < width) text.append(width - digits.size(), '0');
    text += digits;
}

}  // namespace

bool is_valid(const CalendarTime& time) noexcept {
    return time.year >= 1900 && time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 &&
           time.hour <= 23 && time.minute <= 59 && time.second <= 59;
}

bool is_utc(const CalendarTime& time) noexcept {
    return time.zone1 != VZ_ZONE_LOCAL && time.zone2 != VZ_ZONE_LOCAL;
}

void mark_local(CalendarTime& time) noexcept {
    time.zone1 = VZ_ZONE_LOCAL;
    time.zone2 = VZ_ZONE_LOCAL;
}

void mark_utc(CalendarTime& time) noexcept {
    time.zone1 = 0;
    time.zone2 = 0;
}

std::optional<DateText> parse_date_text(std::string_view text) noexcept {
    text = versit::trim_blanks(text);
    DateText date{};
    mark_local(date.time);
    if (!take_date(text, date.time)) return std::nullopt;
    date.is_bare_date = !take(text, 'T');
    if (!date.is_bare_date) {
        if (!take_time_of_day(text, date.time)) return std::nullopt;
        if (take(text, 'Z')) mark_utc(date.time);
    }
    if (!text.empty() || !is_valid(date.time)) return std::nullopt;
    return date;
}

void append_date_text(const CalendarTime& time, std::string& text) {
    append_number(time.year, 4, text);
    append_number(time.month, 2, text);
    append_number(time.day, 2, text);
    text += 'T';
    append_number(time.hour, 2, text);
    append_number(time.minute, 2, text);
    append_number(time.second, 2, text);
}

void append_zoned_date_text(const CalendarTime& time, std::string& text) {
    append_date_text(time, text);
    if (is_utc(time)) text += 'Z';
}

local_seconds clock_of(const CalendarTime& time) noexcept {
    // std::chrono::year ends at 32767, the member of the record at 65535. The calendar repeats itself.
    constexpr int kYearsOfCycle = 400;
    constexpr days kDaysOfCycle{146097};
    const int cycles = time.year / kYearsOfCycle;
    const std::chrono::month month_of_year{time.month};
    const local_days first_of_month{year(time.year % kYearsOfCycle) / month_of_year / 1};
    return first_of_month + cycles * kDaysOfCycle + days(time.day - 1) + hours(time.hour) +
           minutes(time.minute) + seconds(time.second);
}

std::optional<CalendarTime> time_of(local_seconds clock, const CalendarTime& zone) noexcept {
    if (clock < kFirstMoment || clock >= kBehindLastMoment) return std::nullopt;
    const local_days day = std::chrono::floor<days>(clock);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time_of_day(clock - day);
    CalendarTime time{};
    time.year = static_cast<std::uint16_t>(static_cast<int>(date.year()));
    time.month = static_cast<std::uint8_t>(static_cast<unsigned>(date.month()));
    time.day = static_cast<std::uint8_t>(static_cast<unsigned>(date.day()));
    time.hour = static_cast<std::uint8_t>(time_of_day.hours().count());
    time.minute = static_cast<std::uint8_t>(time_of_day.minutes().count());
    time.second = static_cast<std::uint8_t>(time_of_day.seconds().count());
    time.zone1 = zone.zone1;
    time.zone2 = zone.zone2;
    return time;
}

local_seconds local_clock_of(const CalendarTime& time) noexcept {
    const local_seconds clock = clock_of(time);
    return is_utc(time) ? platform::to_local_time(std::chrono::sys_seconds(clock.time_since_epoch())) : clock;
}

CalendarTime to_local(const CalendarTime& time) noexcept {
    if (!is_valid(time) || !is_utc(time)) return time;
    CalendarTime zone{};
    mark_local(zone);
    return time_of(local_clock_of(time), zone).value_or(time);
}

}  // namespace vzapi::vcalendar
