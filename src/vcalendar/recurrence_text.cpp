#include "vcalendar/recurrence_text.h"

#include <algorithm>

#include "versit/ascii.h"

namespace vzapi::vcalendar {

std::optional<Recurrence> parse_recurrence(std::string_view text, const CalendarTime& start) {
    constexpr std::string_view kMark = "FREQ";
    const auto same = [](char left, char right) { return versit::to_upper(left) == right; };
    const bool is_rrule =
        std::search(text.begin(), text.end(), kMark.begin(), kMark.end(), same) != text.end();
    return is_rrule ? parse_rrule(text, start) : parse_basic_rule(text, start);
}

}  // namespace vzapi::vcalendar
