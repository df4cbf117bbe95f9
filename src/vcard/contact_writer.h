// ContactItem to vCard 2.1 text.
#pragma once

#include <string>

#include "call_context.h"

namespace vzapi::vcard {

// The text of the ContactItem at `item`, for the profile in `context`. Entries and values that cannot be read
// are skipped; in `phones` and `addresses` an unreadable entry ends the list. Raises VZ_ERR_BAD_VALUE for a
// record whose `size` is not 64 from interface version 13 on.
[[nodiscard]] std::string write_contact(const void* item, const WriterContext& context);

}  // namespace vzapi::vcard
