// Base64 (RFC 2045, section 6.8) by way of a text of '0' and '1'.
#pragma once

#include <string>

namespace vzapi::reference {

// In one piece, padded.
std::string encode_base64(const std::string& bytes);

// Blank, TAB, CR and LF are skipped; '=' and any other character outside the alphabet end the text. What is
// left of the bits behind the last whole byte is dropped.
std::string decode_base64(const std::string& text);

}  // namespace vzapi::reference
