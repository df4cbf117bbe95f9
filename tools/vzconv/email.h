// E-mail items as a kind of object: XML documents, read only.
#pragma once

#include "vzconv/kind.h"

namespace vzconv {

extern const Converter kEmailConverter;

}  // namespace vzconv
