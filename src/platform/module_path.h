// Where this library lies on disk.
#pragma once

#include <string>

namespace vzapi::platform {

// The full path of the library (of the program, where the code is linked into one); empty when the system
// does not tell. Windows paths end after 499 units.
[[nodiscard]] std::u16string module_path();

}  // namespace vzapi::platform
