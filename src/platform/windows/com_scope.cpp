#include "platform/com_scope.h"

#include <windows.h>
// After windows.h, on which it depends.
#include <objbase.h>

namespace vzapi::platform {

ComScope::ComScope() noexcept {
    const HRESULT first = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    release_ = first == S_OK;
    if (first == RPC_E_CHANGED_MODE) static_cast<void>(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
}

ComScope::~ComScope() {
    if (release_) CoUninitialize();
}

}  // namespace vzapi::platform
