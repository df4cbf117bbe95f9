// The parts of a vMessage that a record is made of, found in one walk over its lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "versit/object.h"

namespace vzapi::vmessage {

// A record counts its addresses with 8 bits.
inline constexpr std::size_t kMostAddresses = 255;

// Views into the object that they were found in.
struct MessageParts {
    // Of the lines that stand directly in the message; of each, but the version, the last one counts.
    std::u16string_view version;  // empty without any
    std::optional<std::u16string_view> status;
    std::optional<std::u16string_view> box;
    std::optional<std::u16string_view> time;
    std::optional<std::u16string_view> type;

    // The TEL lines of all cards in the order of the text, at most kMostAddresses.
    std::vector<versit::WideVersitProperty> numbers;

    // The lines of the innermost VBODY, the first one of several.
    std::optional<versit::LineRange> body;
};

// The parts of the message that `object` begins with; nothing when its first component is not called VMSG,
// exactly so. A component without its END ends with the one around it, the message before the next
// BEGIN:VMSG; an END without its BEGIN is skipped. Nothing in a body is taken for a line of the message.
[[nodiscard]] std::optional<MessageParts> message_parts(const versit::WideVersitObject& object);
void message_parts(versit::WideVersitObject&& object) = delete;

}  // namespace vzapi::vmessage
