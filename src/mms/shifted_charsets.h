// The East Asian charsets that switch between character sets inside a text, and EUC-JP. Not every system
// knows them; here they are rewritten into code pages that all know.
#pragma once

#include <string>
#include <string_view>

namespace vzapi::mms {

// All append the text of `bytes` to `out`, with U+FFFD for what is no character and for the sets that no code
// page holds (JIS X 0212, CNS 11643).
void append_iso_2022(std::string_view bytes, std::u16string& out);  // -JP, -JP-2, -KR, -CN, -CN-EXT
void append_hz(std::string_view bytes, std::u16string& out);        // RFC 1843
void append_euc_jp(std::string_view bytes, std::u16string& out);

}  // namespace vzapi::mms
