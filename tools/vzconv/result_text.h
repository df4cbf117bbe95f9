// Result codes of the library in plain words.
#pragma once

#include <string>

#include "vzapi/base.h"

namespace vzconv {

// What `code` means to a person, with the code behind it.
std::string result_text(ResultCode code);

}  // namespace vzconv
