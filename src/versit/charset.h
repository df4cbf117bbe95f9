// Text of a CHARSET parameter's character set to UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace vzapi::versit {

// Appends the text of `bytes`. `charset`, compared without regard to case: empty is the system's default code
// page; "SHIFT_JIS" code page 932; "ISO-8859-1" takes the bytes as code points; any other name is UTF-8.
// Undecodable bytes become what the system puts in their place.
void append_text(std::string_view bytes, std::string_view charset, std::u16string& out);

[[nodiscard]] std::u16string decode_text(std::string_view bytes, std::string_view charset);

}  // namespace vzapi::versit
