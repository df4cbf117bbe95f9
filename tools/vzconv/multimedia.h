// Multimedia messages as a kind of object: binary files, one PDU each.
#pragma once

#include "vzconv/kind.h"

namespace vzconv {

extern const Converter kMultimediaConverter;

}  // namespace vzconv
