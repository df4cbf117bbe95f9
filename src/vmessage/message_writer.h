// A message record to vMessage text.
#pragma once

#include <string>

#include "call_context.h"

namespace vzapi::vmessage {

// The text of the MessageItem at `item`. Whatever in it cannot be read counts as absent. The extended form,
// for VZ_PROFILE_10 with version 16, is chosen by the lower 32 bits of `option1`, whether or not the profile
// is on.
[[nodiscard]] std::u16string write(const void* item, const WriterContext& context);

}  // namespace vzapi::vmessage
