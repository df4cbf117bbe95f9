// The time of a message in its two forms: X-NRD-DT of the header and the line "Date:" of the body. Times are
// carried as they stand, whatever the zone; year 0 is no time.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "vzapi/message.h"

namespace vzapi::vmessage {

// "20090305T140709Z"; "00000T000000Z" when there is no time.
[[nodiscard]] std::string header_time(const MessageTime& time);

// "05.03.2009 14:07:09"; empty when there is no time.
[[nodiscard]] std::string body_time(const MessageTime& time);

// The time that `text` tells in that form, blanks around it allowed; seconds and 'Z' may be missing. Numbers
// are not held against the calendar. All zero when the year is 0; nothing when `text` has not that form.
[[nodiscard]] std::optional<MessageTime> parse_header_time(std::u16string_view text) noexcept;
[[nodiscard]] std::optional<MessageTime> parse_body_time(std::u16string_view text) noexcept;

}  // namespace vzapi::vmessage
