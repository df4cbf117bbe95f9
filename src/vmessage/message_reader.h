// vMessage text to a message record.
#pragma once

#include "call_context.h"
#include "versit/object.h"

namespace vzapi::vmessage {

// Fills the MessageItem at `item`, whose 64 bytes must be readable. Its `size` becomes 64 whatever it held.
// Raises VZ_ERR_INVALID_TEXT, and sets only `size`, when the text is no message of version 1.0 or 1.1 or has
// no body; VZ_ERR_OUT_OF_MEMORY.
void read(const versit::WideVersitObject& object, void* item, const ReaderContext& context);

}  // namespace vzapi::vmessage
