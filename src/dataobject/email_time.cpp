#include "dataobject/email_time.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/xml_characters.h"

namespace vzapi::dataobject {
namespace {

using Numbers = std::array<std::uint32_t, 3>;

// More than any field holds; what does not fit is kept at this.
constexpr std::uint32_t kTooMuch = 1'000'000;

// The part of `text` up to `end`, which is taken off `text` together with it.
std::u16string_view take_part(std::u16string_view& text, char16_t end) noexcept {
    const std::size_t at = std::min(text.find(end), text.size());
    const std::u16string_view part = text.substr(0, at);
    text.remove_prefix(std::min(at + 1, text.size()));
    return part;
}

// 0 unless all of `field` is digits.
std::uint32_t number_of(std::u16string_view field) noexcept {
    std::uint32_t number = 0;
    for (const char16_t unit : platform::trim_xml_space(field)) {
        if (unit < u'0' || unit > u'9') return 0;
        number = std::min(number * 10 + (unit - u'0'), kTooMuch);
    }
    return number;
}

Numbers numbers_of(std::u16string_view text, char16_t separator) noexcept {
    Numbers numbers{};
    for (std::uint32_t& number : numbers) number = number_of(take_part(text, separator));
    return numbers;
}

std::uint32_t days_in_month(std::uint32_t year, std::uint32_t month) noexcept {
    constexpr std::uint32_t kDays[] = {31, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};  // [0]: unknown
    const bool is_leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && !is_leap ? 28 : kDays[month];
}

bool is_in_calendar(const Numbers& date, const Numbers& time) noexcept {
    const auto [year, month, day] = date;
    const auto [hour, minute, second] = time;
    if (year > UINT16_MAX || month > 12 || day > days_in_month(year, month)) return false;
    return hour < 24 && minute < 60 && second < 60;
}

}  // namespace

MessageTime read_email_time(std::u16string_view text) noexcept {
    std::u16string_view date_text = take_part(text, u'T');
    std::u16string_view time_text = take_part(text, u'T');
    date_text = date_text.substr(0, date_text.find_first_of(u"Z+"));
    time_text = time_text.substr(0, time_text.find_first_of(u".,Z+-"));
    const Numbers date = numbers_of(date_text, u'-');
    const Numbers time = numbers_of(time_text, u':');
    if (!is_in_calendar(date, time)) return {};
    MessageTime result{};
    result.year = static_cast<std::uint16_t>(date[0]);
    result.month = static_cast<std::uint8_t>(date[1]);
    result.day = static_cast<std::uint8_t>(date[2]);
    result.hour = static_cast<std::uint8_t>(time[0]);
    result.minute = static_cast<std::uint8_t>(time[1]);
    result.second = static_cast<std::uint8_t>(time[2]);
    return result;
}

}  // namespace vzapi::dataobject
