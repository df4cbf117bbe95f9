#include "vcalendar/calendar_reader_dates.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "vcalendar/alarm.h"
#include "vcalendar/calendar_time.h"
#include "vcalendar/duration.h"
#include "versit/ascii.h"

namespace vzapi::vcalendar {
namespace {

using versit::PropertyId;

// The date of the first line of that ID.
std::optional<DateText> first_date_text(const EntryText& entry, PropertyId id) {
    const versit::VersitProperty* line = entry.first(id);
    if (line == nullptr) return std::nullopt;
    std::string storage;
    return parse_date_text(plain_value(*line, storage));
}

std::optional<CalendarTime> first_date(const EntryText& entry, PropertyId id) {
    const std::optional<DateText> date = first_date_text(entry, id);
    return date ? std::optional(date->time) : std::nullopt;
}

// What the first DURATION line says.
std::optional<std::chrono::seconds> first_duration(const EntryText& entry) {
    const auto line =
        std::find_if(entry.lines.begin(), entry.lines.end(), [](const versit::IdentifiedLine& each) {
            return each.id == PropertyId::None &&
                   versit::equals_ignoring_case(each.line.raw_name(), "DURATION");
        });
    if (line == entry.lines.end()) return std::nullopt;
    std::string storage;
    return parse_duration(plain_value(line->line, storage));
}

// Where an event ends that says how long it lasts (RFC 2445, section 4.6.1): never before its start, and on a
// day where it starts on one.
std::optional<CalendarTime> end_by_duration(const EntryText& entry, const DateText& start) {
    constexpr std::chrono::seconds kNone{0};
    const std::optional<std::chrono::seconds> duration = first_duration(entry);
    if (!duration || *duration < kNone) return std::nullopt;
    if (start.is_bare_date && *duration % std::chrono::days(1) != kNone) return std::nullopt;
    return time_of(clock_of(start.time) + *duration, start.time);
}

// The end of an event. Its DTEND counts before its duration, whatever that line holds.
std::optional<CalendarTime> end_of(const EntryText& event, const VersionRules& rules,
                                   const std::optional<DateText>& start) {
    const bool has_end = event.first(PropertyId::Dtend) != nullptr;
    if (has_end || !rules.has_durations || !start) return first_date(event, PropertyId::Dtend);
    return end_by_duration(event, *start);
}

bool is_midnight(const CalendarTime& time) {
    return time.hour == 0 && time.minute == 0 && time.second == 0;
}

bool lasts_days(std::uint32_t item_type) {
    return item_type == VZ_ITEM_EVENT || item_type == VZ_ITEM_BIRTHDAY || item_type == VZ_ITEM_ANNIVERSARY;
}

// The days of an entry are those of the local calendar. One that is given as midnight in UTC is a day
// already.
CalendarTime on_its_day(const CalendarTime& time, std::uint32_t item_type) {
    return lasts_days(item_type) && time.hour != 0 ? to_local(time) : time;
}

// The first line of that ID that has a date. One that can be read as it stands is not decoded: the encoding
// is that of the sound or the text behind it.
std::optional<CalendarTime> first_alarm(const EntryText& entry, PropertyId id) {
    std::string storage;
    for (const versit::IdentifiedLine& line : entry.lines) {
        if (line.id != id) continue;
        if (const auto time = parse_alarm_value(line.line.value())) return time;
        if (const auto time = parse_alarm_value(plain_value(line.line, storage))) return time;
    }
    return std::nullopt;
}

// A display alarm counts before an audio one, both before the components of version 2.0, whose durations
// count from `start` and `end`.
void read_alarm(const EntryText& entry, const VersionRules& rules, const CalendarTime& start,
                const CalendarTime& end, CalendarItem& item) {
    item.alarmKind = VZ_ALARM_NONE;
    std::optional<Alarm> alarm;
    if (const auto display = first_alarm(entry, PropertyId::Dalarm)) {
        alarm = {*display, VZ_ALARM_DISPLAY};
    } else if (const auto audio = first_alarm(entry, PropertyId::Aalarm)) {
        alarm = {*audio, VZ_ALARM_AUDIO};
    } else if (rules.has_valarm) {
        alarm = read_valarm(entry.section, start, end);
    }
    if (!alarm) return;
    item.alarm = alarm->time;
    item.alarmKind = alarm->kind;
}

// The dates of one EXDATE value.
void read_exception_list(std::string_view list, CalendarBuilder& builder) {
    while (!builder.exceptions_are_full()) {
        const std::size_t end = std::min(list.find_first_of(";,"), list.size());
        if (const auto date = parse_date_text(list.substr(0, end))) builder.add_exception(date->time);
        if (end == list.size()) return;
        list.remove_prefix(end + 1);
    }
}

}  // namespace

void read_exceptions(const EntryText& entry, CalendarBuilder& builder) {
    std::string storage;
    for (const versit::IdentifiedLine& line : entry.lines) {
        if (builder.exceptions_are_full()) return;
        if (line.id == PropertyId::Exdate) read_exception_list(plain_value(line.line, storage), builder);
    }
}

void read_event_dates(const EntryText& entry, const VersionRules& rules, bool is_typed, CalendarItem& item) {
    const std::optional<DateText> start = first_date_text(entry, PropertyId::Dtstart);
    if (start) {
        if (!is_typed && !is_utc(start->time) && is_midnight(start->time)) item.itemType = VZ_ITEM_EVENT;
        item.start = on_its_day(start->time, item.itemType);
    }
    if (const auto end = end_of(entry, rules, start)) item.end = on_its_day(*end, item.itemType);
    read_alarm(entry, rules, item.start, item.end, item);
}

void read_todo_dates(const EntryText& entry, const VersionRules& rules, CalendarItem& item) {
    const std::optional<CalendarTime> due = first_date(entry, PropertyId::Due);
    const std::optional<CalendarTime> start = first_date(entry, PropertyId::Dtstart);
    const std::optional<CalendarTime> end = first_date(entry, PropertyId::Dtend);
    if (due || start) item.start = due ? *due : *start;
    if (end) item.end = *end;
    // To a to-do of version 2.0 the due date is the end, and DTSTART the start.
    read_alarm(entry, rules, start.value_or(item.start), due ? *due : item.end, item);
}

}  // namespace vzapi::vcalendar
