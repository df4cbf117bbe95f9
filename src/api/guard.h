// The one place where failures become results: every exported function that converts, validates or frees runs
// its body under guarded().
#pragma once

#include <new>

#include "vzapi/base.h"

namespace vzapi {

// Runs `body`; a raised ResultCode is the result, else VZ_OK. A failed allocation is VZ_ERR_OUT_OF_MEMORY,
// any other exception VZ_ERR_UNEXPECTED.
template <class Body>
[[nodiscard]] ResultCode guarded(Body&& body) noexcept {
    try {
        body();
        return VZ_OK;
    } catch (ResultCode code) {
        return code;
    } catch (const std::bad_alloc&) {
        return VZ_ERR_OUT_OF_MEMORY;
    } catch (...) {
        return VZ_ERR_UNEXPECTED;
    }
}

}  // namespace vzapi
