// Text messages as a kind of object.
#pragma once

#include "vzconv/kind.h"

namespace vzconv {

extern const Converter kMessageConverter;

}  // namespace vzconv
