// The Base64 transfer encoding (RFC 2045, section 6.8).
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vzapi::versit {

// Appends `bytes` in one piece, padded, without line breaks.
void append_base64(std::span<const std::byte> bytes, std::string& out);

// Skips white space (blank, TAB, CR, LF), does not ask for padding (the parser takes a final '=' off a line),
// stops at '=' or at the first other character outside the alphabet. Bits short of a whole byte are dropped.
[[nodiscard]] std::string decode_base64(std::string_view text);

// The same into `out`, and the number of bytes that came of it: for pictures, of which there should be one copy
// less. REQUIRES: room for decoded_base64_room() bytes.
[[nodiscard]] std::size_t decode_base64(std::string_view text, std::byte* out);
[[nodiscard]] constexpr std::size_t decoded_base64_room(std::string_view text) noexcept {
    return text.size() / 4 * 3 + 3;
}

}  // namespace vzapi::versit
