// The quoted-printable transfer encoding (RFC 2045, section 6.7, without its line rules: soft line breaks are
// made by the line builder and joined by the parser).
#pragma once

#include <string>
#include <string_view>

namespace vzapi::versit {

// True as soon as `text` holds a unit above 127, a CR or a LF: such a value is written with
// ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8.
[[nodiscard]] bool needs_encoding(std::u16string_view text) noexcept;

// Appends `text`: TAB, blank and printable ASCII except '=' as they stand, everything else, CR and LF
// included, as the escapes of its UTF-8 bytes, two upper-case digits each. An unpaired surrogate gives
// =EF=BF=BD.
void append_quoted_printable(std::u16string_view text, std::string& out);

// Appends the escape of one byte, "=3D". Any character may be written so.
void append_escape(char byte, std::string& out);

// Undoes escapes with digits of either case; an '=' that no two digits follow is copied as it stands.
[[nodiscard]] std::string decode_quoted_printable(std::string_view text);

// The same in the place of what `out` held, so that a walk over many values uses its room again.
void decode_quoted_printable(std::string_view text, std::string& out);

}  // namespace vzapi::versit
