// The texts and numbers of an entry.
#pragma once

#include <cstdint>

#include "vcalendar/calendar_reader_rules.h"
#include "vcalendar/calendar_record.h"
#include "vcalendar/calendar_text.h"

namespace vzapi::vcalendar {

// Adds one entry for each line that stands for a field, in the order of the lines. What 0x302 is depends on
// `item_type` and `api_version`.
void read_event_fields(const EntryText& entry, EntryValues& values, std::uint32_t item_type,
                       std::uint32_t api_version, CalendarBuilder& builder);

// The same for a to-do, which always has a status, and its class also as X-CLASS.
void read_todo_fields(const EntryText& entry, EntryValues& values, std::uint32_t item_type,
                      std::uint32_t api_version, CalendarBuilder& builder);

}  // namespace vzapi::vcalendar
