#include "platform/module_path.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace vzapi::platform {
namespace {

// Lies in the module that asks.
const char kAnchor = 0;

}  // namespace

std::u16string module_path() {
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(&kAnchor), &module)) return {};
    std::array<wchar_t, 500> path{};
    GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    return {path.begin(), std::find(path.begin(), path.end() - 1, L'\0')};
}

}  // namespace vzapi::platform
