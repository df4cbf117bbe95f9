// The alarm of an entry.
#include "vcalendar/alarm.h"
#include "vcalendar/calendar_time.h"
#include "vcalendar/calendar_writing.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcalendar {
namespace {

using versit::PropertyId;

// The components behind the time: no duration, no repetition, nothing to play or show.
constexpr std::string_view kAlarmTail = ";;0;";

// Not VZ_ZONE_LOCAL: five digits. Devices rely on the line that all other values bring about, an empty AALARM
// for an entry without an alarm.
constexpr std::int32_t kNoEmptyAlarm = 0xFFFFF;

void write_empty_alarm(CalendarWriting& writing) {
    const CalendarTime& alarm = writing.item().alarm;
    if (alarm.zone1 == kNoEmptyAlarm || alarm.zone2 == kNoEmptyAlarm) return;
    writing.lines().property(PropertyId::Aalarm, {}, std::string_view());
}

// REQUIRES: the alarm is valid.
void write_alarm_lines(CalendarWriting& writing, bool is_floating) {
    const CalendarItem& item = writing.item();
    std::string value;
    append_date_text(item.alarm, value);
    if (is_utc(item.alarm) && !is_floating) value.push_back('Z');
    value.append(kAlarmTail);
    writing.lines().property(PropertyId::Aalarm, {}, std::string_view(value));
    if (item.alarmKind == VZ_ALARM_DISPLAY) {
        writing.lines().property(PropertyId::Dalarm, {}, std::string_view(value));
    }
}

// REQUIRES: the alarm is valid.
void write_valarm(CalendarWriting& writing) {
    const CalendarItem& item = writing.item();
    versit::LineBuilder& lines = writing.lines();
    lines.line("BEGIN:VALARM");
    lines.property(PropertyId::Trigger, {}, std::string_view(trigger_value(item.alarm, item.start)));
    lines.line("ACTION:AUDIO");
    lines.line("END:VALARM");
}

bool is_midnight(const CalendarTime& time) {
    return time.hour == 0 && time.minute == 0 && time.second == 0;
}

}  // namespace

void write_event_alarm(CalendarWriting& writing) {
    if (!is_valid(writing.item().alarm)) {
        write_empty_alarm(writing);
    } else if (writing.is_version_2()) {
        write_valarm(writing);
    } else {
        write_alarm_lines(writing, false);
    }
}

void write_todo_alarm(CalendarWriting& writing) {
    if (!is_valid(writing.item().alarm)) {
        write_empty_alarm(writing);
        return;
    }
    // The alarm of a day-long to-do rings by the clock of the device, wherever that is.
    const bool is_floating =
        writing.api_version() >= VZ_INTERFACE_TODO_REPEATS && is_midnight(writing.item().start);
    write_alarm_lines(writing, is_floating);
}

}  // namespace vzapi::vcalendar
