#include "vzconv/utc_time.h"

#include <chrono>

#include "vzconv/date_text.h"
#include "vzconv/message_time.h"

namespace vzconv {
namespace {

namespace chrono = std::chrono;

constexpr uint64_t kEnd = 253402300800;  // the first second of the year 10000
constexpr uint64_t kMinute = 60;
constexpr uint64_t kHour = 60 * kMinute;
constexpr uint64_t kDay = 24 * kHour;

// REQUIRES: `seconds` is less than kEnd.
MessageTime time_of(uint64_t seconds) {
    const chrono::year_month_day date{
        chrono::sys_days(chrono::days(static_cast<chrono::days::rep>(seconds / kDay)))};
    MessageTime time{};
    time.year = static_cast<uint16_t>(static_cast<int>(date.year()));
    time.month = static_cast<uint8_t>(static_cast<unsigned>(date.month()));
    time.day = static_cast<uint8_t>(static_cast<unsigned>(date.day()));
    time.hour = static_cast<uint8_t>(seconds % kDay / kHour);
    time.minute = static_cast<uint8_t>(seconds % kHour / kMinute);
    time.second = static_cast<uint8_t>(seconds % kMinute);
    return time;
}

struct Unit {
    uint64_t seconds;
    const char* name;
};

constexpr uint64_t kWeek = 7 * kDay;  // said only where weeks come out even
constexpr Unit kUnits[] = {{kDay, "day"}, {kHour, "hour"}, {kMinute, "minute"}, {1, "second"}};

std::string counted(uint64_t count, const std::string& name) {
    return std::to_string(count) + " " + name + (count == 1 ? "" : "s");
}

}  // namespace

std::optional<std::string> iso_utc_of(uint64_t seconds) {
    if (seconds >= kEnd) return std::nullopt;
    return iso_time_of(time_of(seconds)) + "Z";
}

std::optional<uint64_t> seconds_of_iso_utc(std::string_view text) {
    if (!text.ends_with('Z')) return std::nullopt;
    const std::optional<IsoDate> date = date_of_iso_text(text.substr(0, text.size() - 1));
    if (!date || !date->has_clock) return std::nullopt;
    const DateParts& parts = date->parts;
    const chrono::year_month_day day{chrono::year(parts.year), chrono::month(parts.month),
                                     chrono::day(parts.day)};
    constexpr int kFirstYear = 1970;
    if (!day.ok() || parts.year < kFirstYear) return std::nullopt;
    const auto days = static_cast<uint64_t>(chrono::sys_days(day).time_since_epoch().count());
    return days * kDay + parts.hour * kHour + parts.minute * kMinute + parts.second;
}

std::string utc_in_words(uint64_t seconds) {
    if (seconds >= kEnd) return std::to_string(seconds) + " seconds after 1970";
    return time_in_words(time_of(seconds)) + " UTC";
}

std::string seconds_in_words(uint64_t seconds) {
    if (seconds == 0) return counted(0, "second");
    if (seconds % kWeek == 0) return counted(seconds / kWeek, "week");
    std::string words;
    for (const Unit& unit : kUnits) {
        const uint64_t count = seconds / unit.seconds;
        seconds %= unit.seconds;
        if (count != 0) words += (words.empty() ? "" : " ") + counted(count, unit.name);
    }
    return words;
}

}  // namespace vzconv
