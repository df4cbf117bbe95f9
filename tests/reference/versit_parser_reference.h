// The literal parser: six passes over the whole text, one function each, in their order. It says what the
// fast parser has to give back; nothing of the library is linked into it.
#pragma once

#include <string>
#include <vector>

#include "reference/text_reference.h"

namespace vzapi::reference {

// The logical lines of an 8-bit text, up to its first NUL.
std::vector<std::string> parse(const std::string& text);

// Bookmark text: soft breaks are not joined, no final '=' is taken off, lines with '=' are kept.
template <class Unit>
bool is_bookmark_text(const Text<Unit>& text);

// Passes 1 to 6 over `text`, which has no NUL and no message body.
template <class Unit>
std::vector<Text<Unit>> parse_passes(const Text<Unit>& text, bool is_bookmark);

}  // namespace vzapi::reference
