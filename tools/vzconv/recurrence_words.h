// How an entry recurs, as a person says it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "vzconv/calendar_parts.h"

namespace vzconv {

// "every second Tuesday until 30 June 2010". What the recurrence leaves open comes from `start`; where that is
// not set, it is left open here too. REQUIRES: it recurs.
std::string recurrence_in_words(const Repeat& repeat, const CalendarTime& start);

// "7 April 2009 and 5 May 2009"; with the time of day where it is another than that of `start`.
std::string exceptions_in_words(std::span<const CalendarTime> exceptions, const CalendarTime& start);

// "a", "a and b", "a, b and c".
std::string list_in_words(const std::vector<std::string>& parts);

}  // namespace vzconv
