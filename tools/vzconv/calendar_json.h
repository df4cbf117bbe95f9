// A calendar entry in JSON.
//
// "type" and all that has a code are words, times are in ISO 8601, offsets from UTC are texts like "+01:00".
// A to-do has "due" where the others have "start". The keys of texts and numbers ("title" and so on) stand in
// the order of the record's fields, which is that of the lines of a text; a field that the entry has more than
// once is an array.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "vzconv/calendar_record.h"

namespace vzconv {

struct JsonObject;

// Adds what counts of `item`, as it would when it is written.
void put_calendar(const CalendarItem& item, nlohmann::ordered_json& object);

// Fills `record`, which is as it was made, from `object`. Throws Failure when anything in `object` is unknown,
// of a wrong type, or has no place in an entry of its type.
void take_calendar(const JsonObject& object, CalendarRecord& record);

}  // namespace vzconv
