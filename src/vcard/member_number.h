// The identifiers of group members: unsigned numbers of 128 bits, little-endian in records, decimal in text.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vzapi::vcard {

using MemberNumber = std::array<std::uint8_t, 16>;

// The number that `text` holds; none when it is empty, has anything but digits and blanks around them, or
// does not fit into 128 bits. Leading zeros do not count.
[[nodiscard]] std::optional<MemberNumber> parse_member_number(std::string_view text) noexcept;

// Appends `number` without leading zeros: 1 to 39 digits.
void append_member_number(const MemberNumber& number, std::string& text);

}  // namespace vzapi::vcard
