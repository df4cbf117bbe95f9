// What a file holds, as the text that the rest of the tool works on.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

#include "vzconv/charset_marks.h"

namespace vzconv {

struct InputText {
    std::string text;  // where `document` is set the bytes of the file
    TextCharset charset = TextCharset::Unknown;
    // The component of the object that the file is as a whole: an e-mail item, a multimedia message. Empty:
    // versit text.
    std::string_view document;
    // Unpaired surrogates of UTF-16, which UTF-8 cannot say: U+FFFD stands in their place.
    std::size_t unpaired = 0;
    std::size_t unpaired_line = 0;  // of the first one
};

// Reads the file `name` (UTF-8), or `standard_input` to its end when the name is "-", and brings it to 8-bit
// text as `eight_bit_text` does. Throws Failure when the file cannot be opened or read.
InputText read_input(const std::string& name, std::istream& standard_input);

// UTF-16 text, which a byte order mark or the zero halves of its first two units tell, becomes UTF-8. Any
// other text keeps its bytes, whose charset its own lines may name. A byte order mark goes, but is
// remembered; so do those in front of further objects, which stand there when files were joined. An e-mail
// item, whose document says its charset itself, and a multimedia message, which is no text, are left as they
// are.
InputText eight_bit_text(std::string bytes);

}  // namespace vzconv
