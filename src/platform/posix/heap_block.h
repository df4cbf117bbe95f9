// The end of a block of the process heap.
#pragma once

#include "platform/heap.h"

namespace vzapi::platform {

// Releases a block of the heap whose header is intact but for the cookie, wiped first when `wipe` says so.
void heap_release(void* block, Wipe wipe) noexcept;

}  // namespace vzapi::platform
