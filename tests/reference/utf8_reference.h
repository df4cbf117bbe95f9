// UTF-8 and UTF-16 by the letter of the Unicode Standard, chapter 3.9: slow, and easy to compare with its
// tables.
#pragma once

#include <string>

namespace vzapi::reference {

// Every maximal subpart of an ill-formed subsequence becomes one U+FFFD.
std::u16string utf16_of_utf8(const std::string& bytes);

// An unpaired surrogate becomes U+FFFD.
std::string utf8_of_utf16(const std::u16string& text);

}  // namespace vzapi::reference
