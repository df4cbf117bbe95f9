// Moments as multimedia messages have them: seconds since 1970-01-01 00:00:00 UTC.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vzconv {

// "2001-03-04T10:20:30Z". Nothing behind the year 9999, where ISO 8601 ends.
std::optional<std::string> iso_utc_of(uint64_t seconds);

// The moment that such a text means; nothing when it means none.
std::optional<uint64_t> seconds_of_iso_utc(std::string_view text);

// "Sun 4 March 2001, 10:20:30 UTC"; behind the year 9999 the seconds.
std::string utc_in_words(uint64_t seconds);

// How long something lasts: "2 weeks", "3 days", "1 hour 30 minutes".
std::string seconds_in_words(uint64_t seconds);

}  // namespace vzconv
