#include "platform/pointer_probe.h"

#include <windows.h>

namespace vzapi::platform {

bool is_readable(const void* address) noexcept {
    const DWORD error_before = GetLastError();
    const auto code = reinterpret_cast<FARPROC>(reinterpret_cast<std::uintptr_t>(address));
    const bool readable = IsBadCodePtr(code) == FALSE;
    SetLastError(error_before);
    return readable;
}

// One page and no more: a look at the page next to it might grow another thread's stack.
ReadablePages readable_pages_at(std::uintptr_t address) noexcept {
    const std::uintptr_t page = address & ~std::uintptr_t{kPageSize - 1};
    if (!is_readable(reinterpret_cast<const void*>(address))) return {};
    return {page, page + kPageSize};
}

}  // namespace vzapi::platform
