// The photos of contacts.
#pragma once

#include <vector>

#include "vzapi/contact.h"
#include "vzconv/embedded_file.h"

namespace vzconv {

// As files with the name of the contact. Their type is what their first bytes say, else what the contact
// says.
std::vector<EmbeddedFile> photos_of(const ContactItem& item);

}  // namespace vzconv
