// vCalendar 1.0 and 2.0 text to the calendar record.
#pragma once

#include "call_context.h"
#include "versit/object.h"

namespace vzapi::vcalendar {

// Fills the CalendarItem at `item`, cleared by the caller where its size is one of the four. Raises
// VZ_ERR_INVALID_TEXT, the record untouched, for an object that is no VCALENDAR of version 1.0 or 2.0. Dates
// that are none leave their member zero.
void read_calendar(const versit::VersitObject& object, void* item, const ReaderContext& context);

}  // namespace vzapi::vcalendar
