// Contact groups: ContactGroupItem to vCard 2.1 text with FN and X-CNTGRP, and back.
#pragma once

#include <string>

#include "call_context.h"
#include "versit/object.h"

namespace vzapi::vcard {

// Raises VZ_ERR_INVALID_PARAM for a record whose `size` is not 32, VZ_ERR_INVALID_TEXT for a version other
// than 2.1.
void read_contact_group(const versit::VersitObject& object, void* item, const ReaderContext& context);

// A name or an array that cannot be read counts as absent, a member that cannot be read ends the array.
// Raises VZ_ERR_POINTER for a record that cannot be read, VZ_ERR_INVALID_PARAM for one whose `size` is not 32.
[[nodiscard]] std::string write_contact_group(const void* item, const WriterContext& context);

// Releases the name, the members and their blocks and sets them to zero. Raises VZ_ERR_POINTER for a record
// that cannot be read, VZ_ERR_BAD_VALUE for one whose `size` is not 32 from interface version 13 on.
void release_contact_group(void* item, const ReleaseContext& context);

}  // namespace vzapi::vcard
