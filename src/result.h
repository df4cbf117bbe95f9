// Failures inside a call are raised as a ResultCode and caught in one place, the guard of the exported
// functions.
#pragma once

#include "vzapi/base.h"

namespace vzapi {

// Ends the current call with `code`.
[[noreturn]] inline void raise(ResultCode code) {
    throw code;
}

}  // namespace vzapi
