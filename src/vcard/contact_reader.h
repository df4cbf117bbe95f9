// vCard 2.1 and 3.0 text to ContactItem.
#pragma once

#include "call_context.h"
#include "versit/object.h"

namespace vzapi::vcard {

// Fills the lists of the ContactItem at `item`, fresh whatever they held. Raises VZ_ERR_INVALID_TEXT, and
// touches nothing, when the text is no vCard of version 2.1 or 3.0.
void read_contact(const versit::VersitObject& object, void* item, const ReaderContext& context);

}  // namespace vzapi::vcard
