// The dates of an entry: start, end, alarm, excluded dates.
#pragma once

#include "vcalendar/calendar_reader_rules.h"
#include "vcalendar/calendar_record.h"
#include "vcalendar/calendar_text.h"
#include "vzapi/calendar.h"

namespace vzapi::vcalendar {

// EXDATE, all lines; both ';' and ',' separate dates.
void read_exceptions(const EntryText& entry, CalendarBuilder& builder);

// DTSTART, DTEND or DURATION, and the alarm of an event. An entry without a type (`is_typed` false) that
// begins at midnight by the local clock becomes an event that lasts the day.
void read_event_dates(const EntryText& entry, const VersionRules& rules, bool is_typed, CalendarItem& item);

// DUE into `start`, DTSTART where there is none; DTEND and the alarm of a to-do.
void read_todo_dates(const EntryText& entry, const VersionRules& rules, CalendarItem& item);

}  // namespace vzapi::vcalendar
