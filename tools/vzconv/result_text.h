// Result codes of the library in plain words.
#pragma once

#include <string>
#include <string_view>

#include "vzapi/base.h"

namespace vzconv {

// What `code` means to a person, with the code behind it.
std::string result_text(ResultCode code);

// The same in the caller's own words.
std::string result_text(ResultCode code, std::string_view words);

}  // namespace vzconv
