// Versit text to logical lines. Linear in the size of the text, for every text.
#pragma once

#include <string_view>

#include "versit/object.h"

namespace vzapi::versit {

// Parses 8-bit text up to its first NUL. The rules, and the reasons for the odd ones: docs/formats.md.
// Throws only std::bad_alloc.
[[nodiscard]] VersitObject parse(std::string_view text);

// Parses UTF-16 text up to its first NUL by the same rules, with two differences that messages need:
// - outside a body, a bare LF ends the line when the next one begins a known property;
// - the physical lines of a body, from BEGIN:VBODY to the END:VBODY that closes it, stay exactly as they are.
//   That END:VBODY is the last one that fills a line before the next BEGIN:VBODY, so that a message may quote
//   one.
[[nodiscard]] WideVersitObject parse_wide(std::u16string_view text);

}  // namespace vzapi::versit
