// The lines that open and close a component: BEGIN and END.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vzconv {

struct Marker {
    bool begins;
    std::string_view name;  // as the text has it
};

// The marker that `line` is: BEGIN or END, a colon and a name, with blanks around the two.
std::optional<Marker> marker_of(std::string_view line);

// The same inside an object, where a line that begins with a blank continues the line before it and is none.
std::optional<Marker> marker_inside(std::string_view line);

// "no END:VCARD before the end of the text": why a component is not whole.
std::string missing_end(std::string_view component, const std::string& before);

}  // namespace vzconv
