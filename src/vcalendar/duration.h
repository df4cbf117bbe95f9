// Durations (RFC 2445, section 4.3.6).
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace vzapi::vcalendar {

// [+-]P[nW][nD][T[nH][nM][nS]], letters in either case, blanks around it allowed. Parts may be missing, but
// not all of them. "-P15M", a slip of that standard, is a quarter of an hour. Nothing for any other text and
// for one of more than 10,000 years.
[[nodiscard]] std::optional<std::chrono::seconds> parse_duration(std::string_view text) noexcept;

// Appends [-]PnDTnHnMnS with all four numbers: "-P0DT0H15M0S".
void append_duration(std::chrono::seconds duration, std::string& text);

}  // namespace vzapi::vcalendar
