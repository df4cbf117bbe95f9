// A pointer to an address that need not be anyone's.
#pragma once

#include <cstdint>

namespace vzapi::test {

template <class T>
T* pointer_to(std::uintptr_t address) {
    return reinterpret_cast<T*>(address);  // NOLINT(performance-no-int-to-ptr): wild on purpose
}

}  // namespace vzapi::test
