// The endings that names of files have for what the files are.
#pragma once

#include <string>
#include <string_view>

namespace vzconv {

// The ending that a file of that content type ("image/jpeg", in any case, maybe with parameters) is to get
// when its name has `extension`, which is without its dot; empty: the name can stay as it is. A type that is
// not known takes any extension, and "bin" where there is none.
std::string_view missing_extension(std::string_view content_type, std::string_view extension);

// The content type of a picture by its first bytes; empty: none that is known.
std::string_view picture_type_of(std::string_view data);

}  // namespace vzconv
