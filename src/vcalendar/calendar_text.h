// The parts of a calendar's text that its record is read from, found in one walk over the lines.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "versit/object.h"

namespace vzapi::vcalendar {

// A view into the object, as all of this.
struct EntryText {
    std::vector<versit::IdentifiedLine> lines;        // between BEGIN and END, without nested components
    std::span<const versit::VersitProperty> section;  // from BEGIN to END, nested components included

    // The first line of that ID; null when there is none.
    [[nodiscard]] const versit::VersitProperty* first(versit::PropertyId id) const noexcept;
};

struct CalendarText {
    std::string_view version;                        // value of its first VERSION line; empty without any
    std::string_view first_component;                // name of the first one inside it, blanks taken off
    std::vector<versit::VersitProperty> zone_lines;  // its TZ and DAYLIGHT lines
    EntryText event;                                 // the first VEVENT; empty without any
    EntryText todo;                                  // the first VTODO
};

// The component that the first "BEGIN:" line opens; nothing when that is no VCALENDAR. What follows its END
// is not looked at.
[[nodiscard]] std::optional<CalendarText> split_calendar(const versit::VersitObject& object);
void split_calendar(versit::VersitObject&& object) = delete;

// The value of `line`, its transfer encoding undone: a view of the line, or of `storage` when it had one.
[[nodiscard]] std::string_view plain_value(const versit::VersitProperty& line, std::string& storage);

}  // namespace vzapi::vcalendar
