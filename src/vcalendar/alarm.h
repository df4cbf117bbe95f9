// Alarms: AALARM and DALARM of vCalendar 1.0, VALARM of RFC 2445 (section 4.6.6).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "versit/property.h"
#include "vzapi/calendar.h"

namespace vzapi::vcalendar {

// The time of an AALARM or DALARM value, the first of its ';' components; nothing when that is no date.
[[nodiscard]] std::optional<CalendarTime> parse_alarm_value(std::string_view value) noexcept;

struct Alarm {
    CalendarTime time;
    std::uint32_t kind;  // VZ_ALARM_AUDIO or VZ_ALARM_DISPLAY
};

// The alarm of the first VALARM among the lines of an entry (its nested components included) whose TRIGGER
// gives a time: absolute, or as a duration from `start`, from `end` with RELATED=END. A time by duration has
// the zone words of the time that it counts from. ACTION:DISPLAY is a display alarm, any other an audio
// alarm.
[[nodiscard]] std::optional<Alarm> read_valarm(std::span<const versit::VersitProperty> entry_lines,
                                               const CalendarTime& start, const CalendarTime& end);

// The TRIGGER value of an alarm: the duration from `start`, negative before it; the date text of the alarm
// where `start` is not valid. Where only one of the two is in UTC, that one counts as this machine's clock
// shows it. REQUIRES: `alarm` is valid.
[[nodiscard]] std::string trigger_value(const CalendarTime& alarm, const CalendarTime& start);

}  // namespace vzapi::vcalendar
