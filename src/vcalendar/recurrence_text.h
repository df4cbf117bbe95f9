// Recurrences as text: the rules of vCalendar 1.0 ("Recurrence Rule Grammar") and RRULE of RFC 2445, section
// 4.3.10. `start` is the start of the entry; it need not be valid.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "vcalendar/recurrence.h"

namespace vzapi::vcalendar {

// Either form, told by the text itself: one that holds "FREQ" is an RRULE. Nothing for a text that is no
// rule, and for a rule that a Recurrence cannot express exactly: none at all is better than a wrong one.
[[nodiscard]] std::optional<Recurrence> parse_recurrence(std::string_view text, const CalendarTime& start);

// vCalendar 1.0: "W1 MO WE #0". A count becomes an end; a rule with neither count nor end date occurs twice.
[[nodiscard]] std::optional<Recurrence> parse_basic_rule(std::string_view text, const CalendarTime& start);

// RFC 2445: "FREQ=WEEKLY;BYDAY=MO,WE". A count becomes an end; UNTIL 21001230T000000Z is no end.
[[nodiscard]] std::optional<Recurrence> parse_rrule(std::string_view text, const CalendarTime& start);

// Append the rule; nothing when it does not recur, or needs of `start` what that does not have.
void append_basic_rule(const Recurrence& rule, const CalendarTime& start, std::string& text);
void append_rrule(const Recurrence& rule, const CalendarTime& start, std::string& text);

}  // namespace vzapi::vcalendar
