// The date and time of an e-mail item: "2024-05-06T07:08:09".
#pragma once

#include <string_view>

#include "vzapi/message.h"

namespace vzapi::dataobject {

// Reads `text` as a date-time: a date of three numbers with '-' between them and, behind a 'T', a time of
// three with ':'. Missing numbers, and fields that are none, are 0; a fraction and a zone designator (Z,
// +02:00) are not looked at. Year 0, which means no time, when a number does not fit its field or is in no
// calendar: month 13, the 30th of February, 24 o'clock.
[[nodiscard]] MessageTime read_email_time(std::u16string_view text) noexcept;

}  // namespace vzapi::dataobject
