// The body of a message as a record holds it.
#pragma once

#include <cstdint>
#include <span>

#include "platform/heap.h"
#include "versit/property.h"
#include "vzapi/message.h"

namespace vzapi::vmessage {

struct MessageBody {
    MessageTime time{};                    // of its line "Date:"; year 0: none
    platform::HeapPointer<char16_t> text;  // never null; a zero unit stands behind it
    std::uint32_t length = 0;              // bytes, without that unit
};

// Reads the `lines` of a VBODY as they stood in the text. The first may be "Date:" with a time or nothing
// behind it; the rest is the text. Where that begins with X-SMS;TYPE=TEXT, the value of this property and the
// lines behind it are the text, quoted-printable if it says so. Raises VZ_ERR_OUT_OF_MEMORY.
[[nodiscard]] MessageBody read_body(std::span<const versit::WideVersitProperty> lines);

}  // namespace vzapi::vmessage
