// Which files an argument of the program names.
#pragma once

#include <string>
#include <vector>

namespace vzconv {

// The files of the folder `name` in the order of their names, without those of folders in it; `name` itself
// when it is no folder. Names are UTF-8. Throws Failure when the folder cannot be read or holds no file.
std::vector<std::string> input_files(const std::string& name);

}  // namespace vzconv
