// UTF-8 to UTF-16 and back. What is no Unicode text (ill-formed bytes, an unpaired surrogate) becomes U+FFFD,
// so that the result is always well-formed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vzconv {

std::string utf8_from_utf16(std::u16string_view text);

// How many surrogates of `text` have no other half beside them, and where the first of them stands (the size
// of the text when there is none).
std::size_t unpaired_surrogates_in(std::u16string_view text);
std::size_t first_unpaired_surrogate(std::u16string_view text);

// UTF-8 of a string of a record; null is empty.
std::string text_of(const char16_t* text);

// One U+FFFD stands for each maximal part of an ill-formed sequence.
std::u16string utf16_from_utf8(std::string_view text);

// Whether all of `text` is well-formed UTF-8.
bool is_utf8(std::string_view text);

}  // namespace vzconv
