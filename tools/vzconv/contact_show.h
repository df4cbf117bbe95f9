// A contact for a person to read.
#pragma once

#include <string>

#include "vzapi/contact.h"

namespace vzconv {

std::string show_contact(const ContactItem& item);

}  // namespace vzconv
