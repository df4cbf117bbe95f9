// Base64 (RFC 4648, section 4), the form that binary data has in JSON.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vzconv {

// With padding, on one line.
std::string base64_of(std::span<const uint8_t> bytes);

// The bytes that `text` stands for; nothing when it is not exactly what base64_of gives for some bytes, so
// that no two texts stand for the same ones.
std::optional<std::vector<uint8_t>> bytes_of_base64(std::string_view text);

}  // namespace vzconv
