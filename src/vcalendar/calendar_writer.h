// The calendar record to vCalendar text.
#pragma once

#include <string>

#include "call_context.h"

namespace vzapi::vcalendar {

// The VCALENDAR with one VEVENT or VTODO for the CalendarItem at `item`: version 1.0, or 2.0 for the profile
// VZ_PROFILE_20 from its version VZ_PROFILE_20_CALENDAR_2 on when the third option is not 0. What cannot be
// read is skipped. Raises VZ_ERR_POINTER when the record itself cannot be read.
[[nodiscard]] std::string write_calendar(const void* item, const WriterContext& context);

}  // namespace vzapi::vcalendar
