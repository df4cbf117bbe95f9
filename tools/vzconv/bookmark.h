// Bookmarks: vBookmark 1.0 text.
#pragma once

#include "vzconv/kind.h"

namespace vzconv {

extern const Converter kBookmarkConverter;

}  // namespace vzconv
