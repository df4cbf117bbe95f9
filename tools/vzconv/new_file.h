// Files that were not there before.
#pragma once

#include <filesystem>
#include <string_view>

namespace vzconv {

// Makes the file `path` with `data` in it. False when the name is taken, by a link that leads nowhere too,
// and nothing is changed then. Throws Failure when it cannot be made or not all be written; what was written
// of it is removed.
bool write_new_file(const std::filesystem::path& path, std::string_view data);

}  // namespace vzconv
