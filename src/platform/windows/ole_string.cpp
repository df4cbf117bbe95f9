#include "platform/ole_string.h"

#include <windows.h>
// After windows.h, on which it depends.
#include <oleauto.h>

#include <limits>

#include "platform/allocation_gate.h"

namespace vzapi::platform {

static_assert(sizeof(OLECHAR) == sizeof(char16_t));

char16_t* ole_string_allocate(std::u16string_view text) noexcept {
    if (text.size() > std::numeric_limits<UINT>::max() || !allocation_allowed()) return nullptr;
    const auto* units = reinterpret_cast<const OLECHAR*>(text.data());
    return reinterpret_cast<char16_t*>(SysAllocStringLen(units, static_cast<UINT>(text.size())));
}

std::size_t ole_string_length(const char16_t* text) noexcept {
    return SysStringLen(reinterpret_cast<BSTR>(const_cast<char16_t*>(text)));
}

void ole_string_free(char16_t* text) noexcept {
    SysFreeString(reinterpret_cast<BSTR>(text));
}

}  // namespace vzapi::platform
