// Quoted-printable (RFC 2045, section 6.7, without soft line breaks), one character at a time.
#pragma once

#include <string>

namespace vzapi::reference {

// True when `text` holds a unit above 127, a CR or a LF.
bool needs_encoding(const std::u16string& text);

// TAB, blank and '!' to '~' but for '=' stay; all else becomes the escapes of its UTF-8 bytes, in capitals.
// An unpaired surrogate is U+FFFD.
std::string encode_quoted_printable(const std::u16string& text);

// '=' and two hexadecimal digits of either case are one byte; anything else stays.
std::string decode_quoted_printable(const std::string& text);

}  // namespace vzapi::reference
