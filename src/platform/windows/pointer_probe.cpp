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

}  // namespace vzapi::platform
