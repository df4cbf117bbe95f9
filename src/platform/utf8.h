// UTF-8 to UTF-16 and back, the same on both platforms.
#pragma once

#include <string>
#include <string_view>

namespace vzapi::platform {

// Appends the text of `bytes` to `out`. Every maximal ill-formed part becomes one U+FFFD (Unicode 15,
// section 3.9, "U+FFFD Substitution of Maximal Subparts"); a byte-order mark is a character like any other.
void append_utf16_from_utf8(std::string_view bytes, std::u16string& out);

// Appends `text` in UTF-8 to `out`: a surrogate pair as four bytes, an unpaired surrogate as U+FFFD (EF BF
// BD).
void append_utf8(std::u16string_view text, std::string& out);

[[nodiscard]] std::u16string utf8_to_utf16(std::string_view bytes);
[[nodiscard]] std::string utf16_to_utf8(std::u16string_view text);

}  // namespace vzapi::platform
