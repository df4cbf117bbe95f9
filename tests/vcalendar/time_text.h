// Times of calendar entries as short texts, for the rows and the messages of tests.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "vcalendar/calendar_time.h"

namespace vzapi::vcalendar::test {

// "20090315T143000Z", without the Z for a local time; "none" for one that is not valid.
[[nodiscard]] inline std::string text_of(const CalendarTime& time) {
    std::string text;
    if (!is_valid(time)) return "none";
    append_zoned_date_text(time, text);
    return text;
}

[[nodiscard]] inline std::string text_of(const std::optional<CalendarTime>& time) {
    return time ? text_of(*time) : "none";
}

// The time of that text; one that is not valid for "none".
[[nodiscard]] inline CalendarTime time_at(std::string_view text) {
    if (text == "none") return {};
    const std::optional<DateText> date = parse_date_text(text);
    if (!date) throw std::invalid_argument(std::string(text));
    return date->time;
}

}  // namespace vzapi::vcalendar::test
