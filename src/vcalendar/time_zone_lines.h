// The time zone of a calendar: TZ and DAYLIGHT (vCalendar 1.0, "Calendar Properties").
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "versit/line_builder.h"
#include "versit/property.h"
#include "vzapi/calendar.h"

namespace vzapi::vcalendar {

// Minutes east of UTC: "+01:00", "-05", "+0530", "-5"; a missing sign is '+', blanks around it are allowed.
// Nothing for any other text and from 24 hours on.
[[nodiscard]] std::optional<std::int32_t> parse_utc_offset(std::string_view text) noexcept;

// Appends "+01:00".
void append_utc_offset(std::int32_t minutes, std::string& text);

struct ZoneBlock {
    std::int32_t standard_offset = 0;  // minutes east of UTC
    std::int32_t daylight_offset = 0;
    std::vector<DaylightRule> rules;  // at most 255
    std::string standard_name;        // bytes in whatever charset the line has
    std::string daylight_name;

    [[nodiscard]] bool empty() const noexcept;
};

// The zone that the lines of a calendar (those of its components left out) tell; nothing when none of them is
// a TZ or DAYLIGHT line with a value that can be read. Offset and names come from the first line that gives
// them; every DAYLIGHT line is a rule, but for one that is TRUE without either date. Dates that are none are
// zero. Rules behind the 255th are dropped.
[[nodiscard]] std::optional<ZoneBlock> read_zone(std::span<const versit::VersitProperty> calendar_lines);

// DAYLIGHT, one line a rule or one without dates where there is no rule but an offset or a name, and TZ;
// nothing for an empty block. A name is written up to its first line break or NUL, an offset of 24 hours or
// more is left out. Reading the lines gives the same block otherwise, but for a rule whose flag is TRUE and
// whose dates are both not valid.
void append_zone_lines(const ZoneBlock& zone, versit::LineBuilder& lines);

}  // namespace vzapi::vcalendar
