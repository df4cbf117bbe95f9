// Times of messages and e-mail items: in JSON and for a person.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "vzapi/message.h"

namespace vzconv {

// Whether the time is there: the rule of the record.
bool is_set(const MessageTime& time);

// "2009-03-05T14:07:09", without regard to the calendar: devices write times such as "2009-00-00T99:00:00",
// which come back as they were.
std::string iso_time_of(const MessageTime& time);

// The time that such a text means, or a day alone, whose time of day is midnight; nothing for any other text,
// for a year 0, which a record cannot hold, and for parts that do not fit into the record.
std::optional<MessageTime> message_time_of(std::string_view text);

// "Thu 5 March 2009, 14:07"; a time that is none of the calendar or the clock as iso_time_of says it.
std::string time_in_words(const MessageTime& time);

}  // namespace vzconv
