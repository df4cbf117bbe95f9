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

bool are_readable(std::uintptr_t first_page, std::uintptr_t last_page) noexcept {
    for (std::uintptr_t page = first_page; page < last_page; page += kPageSize) {
        if (!is_readable(reinterpret_cast<const void*>(page))) return false;
    }
    return is_readable(reinterpret_cast<const void*>(last_page));
}

}  // namespace vzapi::platform
