// The size of a file, as a person says it.
#pragma once

#include <cstdint>
#include <string>

namespace vzconv {

// "1 byte", "268 bytes", "4.2 KB", "12 KB", "1.5 MB".
std::string size_in_words(uint64_t bytes);

}  // namespace vzconv
