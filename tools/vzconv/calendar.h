// Calendar entries: vCalendar 1.0 and 2.0 text.
#pragma once

#include "vzconv/kind.h"

namespace vzconv {

extern const Converter kCalendarConverter;

}  // namespace vzconv
