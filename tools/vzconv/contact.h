// Contacts: vCard 2.1 and 3.0 text.
#pragma once

#include "vzconv/kind.h"

namespace vzconv {

extern const Converter kContactConverter;

}  // namespace vzconv
