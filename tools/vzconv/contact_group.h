// Contact groups: vCard 2.1 text with X-CNTGRP.
#pragma once

#include "vzconv/kind.h"

namespace vzconv {

extern const Converter kContactGroupConverter;

}  // namespace vzconv
