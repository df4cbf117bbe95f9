// What the numbers of a multimedia message are called, in JSON and for a person. Headers are apart.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vzconv/code_words.h"

namespace vzconv {

// What a person calls a PDU of that type, VZ_MMS_SEND_REQ and so on: "Delivery report".
std::string_view multimedia_heading_of(uint32_t type);

// VZ_MMS_VALUE_...
std::span<const CodeWord> value_kind_words();

// VZ_MMS_ADDRESS_...; a plain one has no word.
std::span<const CodeWord> address_type_words();

// The headers of parts, by their number in WSP.
std::span<const CodeWord> part_header_words();

// Charsets by their number in the registry of IANA (MIBenum).
std::span<const CodeWord> charset_words();

// "0x5A", which stands for a number without a name, and back.
std::string hex_of(uint32_t number);
std::optional<uint32_t> number_of_hex(std::string_view text);

}  // namespace vzconv
