#include "vzconv/calendar_time.h"

#include "vzconv/date_text.h"

namespace vzconv {
namespace {

namespace chrono = std::chrono;

constexpr std::size_t kShortWeekday = 3;

chrono::year_month_day date_of(const CalendarTime& time) {
    return {chrono::year(time.year), chrono::month(time.month), chrono::day(time.day)};
}

DateParts parts_of(const CalendarTime& time) {
    return {time.year, time.month, time.day, time.hour, time.minute, time.second};
}

CalendarTime time_of_parts(const DateParts& parts) {
    CalendarTime time{};
    time.year = parts.year;
    time.month = parts.month;
    time.day = parts.day;
    time.hour = parts.hour;
    time.minute = parts.minute;
    time.second = parts.second;
    return time;
}

void set_clock(CalendarTime& time, uint8_t hour, uint8_t minute, uint8_t second) {
    time.hour = hour;
    time.minute = minute;
    time.second = second;
}

}  // namespace

bool is_set(const CalendarTime& time) {
    return time.year >= 1900 && time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 &&
           time.hour <= 23 && time.minute <= 59 && time.second <= 59;
}

bool is_utc(const CalendarTime& time) {
    return time.zone1 != VZ_ZONE_LOCAL && time.zone2 != VZ_ZONE_LOCAL;
}

std::string iso_time_of(const CalendarTime& time) {
    const DateParts parts = parts_of(time);
    return iso_day_of(parts) + "T" + iso_clock_of(parts) + (is_utc(time) ? "Z" : "");
}

std::optional<CalendarTime> time_of_iso(std::string_view text, DayEdge edge) {
    const bool utc = text.ends_with('Z');
    if (utc) text.remove_suffix(1);
    const std::optional<IsoDate> date = date_of_iso_text(text);
    if (!date || (utc && !date->has_clock)) return std::nullopt;
    CalendarTime time = time_of_parts(date->parts);
    if (!date->has_clock && edge == DayEdge::Last) set_clock(time, 23, 59, 59);
    time.zone1 = time.zone2 = utc ? 0 : VZ_ZONE_LOCAL;
    if (!is_set(time)) return std::nullopt;
    return time;
}

chrono::local_seconds moment_of(const CalendarTime& time) {
    return chrono::local_days(date_of(time)) + chrono::hours(time.hour) + chrono::minutes(time.minute) +
           chrono::seconds(time.second);
}

CalendarTime time_at(chrono::local_seconds moment, const CalendarTime& like) {
    const auto day = chrono::floor<chrono::days>(moment);
    const chrono::year_month_day date(day);
    const chrono::hh_mm_ss clock(moment - day);
    CalendarTime time = like;
    time.year = static_cast<uint16_t>(static_cast<int>(date.year()));
    time.month = static_cast<uint8_t>(static_cast<unsigned>(date.month()));
    time.day = static_cast<uint8_t>(static_cast<unsigned>(date.day()));
    set_clock(time, static_cast<uint8_t>(clock.hours().count()),
              static_cast<uint8_t>(clock.minutes().count()), static_cast<uint8_t>(clock.seconds().count()));
    return time;
}

bool is_midnight(const CalendarTime& time) {
    return time.hour == 0 && time.minute == 0 && time.second == 0;
}

bool is_same_day(const CalendarTime& a, const CalendarTime& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

uint32_t weekday_bit_of(const CalendarTime& time) {
    const chrono::year_month_day date = date_of(time);
    return date.ok() ? 1U << chrono::weekday(chrono::local_days(date)).c_encoding() : 0;
}

std::string day_in_words(const CalendarTime& time) {
    const chrono::year_month_day date = date_of(time);
    if (!date.ok()) return plain_day_in_words(time);
    const unsigned weekday = chrono::weekday(chrono::local_days(date)).c_encoding();
    return std::string(weekday_name(weekday).substr(0, kShortWeekday)) + " " + plain_day_in_words(time);
}

std::string plain_day_in_words(const CalendarTime& time) {
    return std::to_string(time.day) + " " + std::string(month_name(time.month)) + " " +
           std::to_string(time.year);
}

std::string clock_in_words(const CalendarTime& time) {
    const std::string clock = iso_clock_of(parts_of(time));
    constexpr std::size_t kWithoutSeconds = 5;
    return time.second == 0 ? clock.substr(0, kWithoutSeconds) : clock;
}

std::string time_in_words(const CalendarTime& time) {
    return day_in_words(time) + ", " + clock_in_words(time) + std::string(utc_mark_of(time));
}

std::string_view utc_mark_of(const CalendarTime& time) {
    return is_utc(time) ? " UTC" : "";
}

}  // namespace vzconv
