// The values of the header fields, one form of header_rows() at a time.
#pragma once

#include <cstdint>
#include <optional>

#include "mms/mms_message.h"
#include "mms/mms_tables.h"
#include "mms/wsp_encoding.h"

namespace vzapi::mms {

// True for the PDUs whose response text has a count before it. A response text with a charset looks the same;
// nothing but the type tells them apart.
[[nodiscard]] bool counts_response_texts(std::uint32_t pdu_type) noexcept;

// The value in the form; where it is not understood the octets of the value as they stand; nothing when they
// are cut off. A text value that is missing, so that the next field follows at once, is an empty one. What a
// value is depends on its own octets alone, so that it stays the same wherever it is written again.
[[nodiscard]] std::optional<Value> read_header_value(HeaderForm form, std::uint32_t pdu_type,
                                                     CWSPEncoding& pdu);

// False, and nothing written, when the value is of no kind that the form has or does not fit it.
[[nodiscard]] bool write_header_value(HeaderForm form, std::uint32_t pdu_type, const Value& value,
                                      WspWriter& pdu);

}  // namespace vzapi::mms
