// What a file holds, as the text that the rest of the tool works on.
#pragma once

#include <iosfwd>
#include <string>

#include "vzconv/charset_marks.h"

namespace vzconv {

struct InputText {
    std::string text;
    TextCharset charset = TextCharset::Unknown;
};

// Reads the file `name` (UTF-8), or `standard_input` to its end when the name is "-", and brings it to 8-bit
// text as `eight_bit_text` does. Throws Failure when the file cannot be opened or read.
InputText read_input(const std::string& name, std::istream& standard_input);

// UTF-16 text, which a byte order mark or the zero halves of its first two units tell, becomes UTF-8. Any
// other text keeps its bytes, whose charset its own lines may name; a UTF-8 byte order mark goes, but is
// remembered.
InputText eight_bit_text(std::string bytes);

}  // namespace vzconv
