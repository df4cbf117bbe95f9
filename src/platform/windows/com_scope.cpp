#include "platform/com_scope.h"

#include <windows.h>
// After windows.h, on which it depends.
#include <objbase.h>

namespace vzapi::platform {

ComScope::ComScope(ComRelease release) noexcept {
    const HRESULT first = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    HRESULT last = first;
    if (first == RPC_E_CHANGED_MODE) last = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    release_ = release == ComRelease::Always ? SUCCEEDED(last) : first == S_OK;
}

ComScope::~ComScope() {
    if (release_) CoUninitialize();
}

}  // namespace vzapi::platform
