// A calendar entry for a person to read.
#pragma once

#include <string>

#include "vzapi/calendar.h"

namespace vzconv {

std::string show_calendar(const CalendarItem& item);

}  // namespace vzconv
