// Transfer encodings of a part (RFC 2045, section 6), which a binary format does not need and some writers
// apply all the same.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "mms/mms_message.h"

namespace vzapi::mms {

// True for the header Content-Transfer-Encoding, by its name or by a number that some writers give it, with
// an encoding that can be undone.
[[nodiscard]] bool is_transfer_encoding(const Header& header) noexcept;

// The bytes that `data` stands for, encoded as the first such header of `headers` says. Nothing when there is
// none, or when the data are not encoded so, whatever the header says.
[[nodiscard]] std::optional<std::vector<std::byte>> without_transfer_encoding(
    const std::vector<Header>& headers, Bytes data);

}  // namespace vzapi::mms
