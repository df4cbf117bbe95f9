#include "vcard/contact_date.h"

#include <cstddef>
#include <cstdint>

#include "versit/ascii.h"

namespace vzapi::vcard {
namespace {

struct Date {
    unsigned year = 0;
    unsigned month = 0;
    unsigned day = 0;
};

struct Time {
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
};

// Takes exactly `count` digits off the front of `text`.
bool take_digits(std::u16string_view& text, std::size_t count, unsigned& number) noexcept {
    if (text.size() < count) return false;
    number = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (text[i] < u'0' || text[i] > u'9') return false;
        number = number * 10 + (text[i] - u'0');
    }
    text.remove_prefix(count);
    return true;
}

bool take(std::u16string_view& text, char16_t unit) noexcept {
    if (text.empty() || text.front() != unit) return false;
    text.remove_prefix(1);
    return true;
}

bool is_calendar_day(const Date& date) noexcept {
    constexpr unsigned kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (date.year == 0 || date.month < 1 || date.month > 12) return false;
    const bool leap = date.year % 4 == 0 && (date.year % 100 != 0 || date.year % 400 == 0);
    const unsigned days = date.month == 2 && leap ? 29 : kDays[date.month - 1];
    return date.day >= 1 && date.day <= days;
}

// Both separators stand there, or none.
bool take_date(std::u16string_view& text, Date& date) noexcept {
    if (!take_digits(text, 4, date.year)) return false;
    const bool separated = take(text, u'-');
    return take_digits(text, 2, date.month) && take(text, u'-') == separated &&
           take_digits(text, 2, date.day) && is_calendar_day(date);
}

Time parse_time(std::u16string_view text) noexcept {
    Time time;
    if (!take_digits(text, 2, time.hour)) return {};
    const bool separated = take(text, u':');
    if (!take_digits(text, 2, time.minute)) return {};
    if (!separated || take(text, u':')) {
        // No seconds are zero seconds.
        if (!take_digits(text, 2, time.second)) time.second = 0;
    }
    return time.hour < 24 && time.minute < 60 && time.second < 60 ? time : Time{};
}

}  // namespace

std::optional<ContactDate> parse_contact_date(std::u16string_view text) noexcept {
    text = versit::trim_blanks(text);
    Date day;
    if (!take_date(text, day)) return std::nullopt;
    const bool has_time = take(text, u'T') || take(text, u't');
    if (!has_time && !text.empty()) return std::nullopt;
    const Time time = has_time ? parse_time(text) : Time{};

    ContactDate date{};
    date.size = sizeof date;
    date.year = static_cast<std::uint16_t>(day.year);
    date.month = static_cast<std::uint8_t>(day.month);
    date.day = static_cast<std::uint8_t>(day.day);
    date.hour = static_cast<std::uint8_t>(time.hour);
    date.minute = static_cast<std::uint8_t>(time.minute);
    date.second = static_cast<std::uint8_t>(time.second);
    return date;
}

}  // namespace vzapi::vcard
