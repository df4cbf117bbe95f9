// The identifier of a group's member: an unsigned number of 128 bits, little-endian.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vzconv {

using MemberId = std::array<uint8_t, 16>;

// The number in decimal digits, without leading zeros.
std::string decimal_of(MemberId id);

// Nothing when `text` is anything but decimal digits, or the number does not fit.
std::optional<MemberId> member_id_of(std::string_view text);

}  // namespace vzconv
