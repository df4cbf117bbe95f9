// The bytes of an XML document to UTF-16: by their byte-order mark, by their first bytes, or by the
// declaration.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vzapi::platform {

// The text without its byte-order mark; nothing when the declaration names a character set that is not known,
// or the bytes are ill-formed in theirs. What the first bytes show wins over what the declaration says.
// Whether UTF-16 has unpaired surrogates is left to the reader of the text.
[[nodiscard]] std::optional<std::u16string> decode_xml(std::string_view document);

}  // namespace vzapi::platform
