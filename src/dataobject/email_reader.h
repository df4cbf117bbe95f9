// E-mail items: an XML document on the state of one message, to its record.
#pragma once

#include <string_view>

#include "vzapi/email.h"

namespace vzapi::dataobject {

// Fills `item` from the element "Email" of `document`. All of the record but its `size`, which is kept and
// not looked at, is zeroed first and stays so when the reading fails. Raises VZ_ERR_BAD_VALUE for bytes that
// are no XML document, VZ_ERR_UNEXPECTED where the system has no parser; throws std::bad_alloc.
void read_email(std::string_view document, EmailItem& item);

// Releases what read_email() put into `item`; counts are 0 and pointers null then.
void release_email(EmailItem& item) noexcept;

}  // namespace vzapi::dataobject
