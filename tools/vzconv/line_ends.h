// The line ends of one object, as the library expects them.
#pragma once

#include <string>
#include <string_view>

namespace vzconv {

// In the library's text lines end in CR LF, and a bare LF or CR is part of a value. An object whose first or
// last line shows that its writer ended lines with a bare LF (or CR) gets a CR LF for each of them; and its
// BEGIN and END lines lose their blanks. Returns `object` itself where nothing is to change, else a view of
// `storage`, which then holds the text.
std::string_view with_library_line_ends(std::string_view object, std::string& storage);

}  // namespace vzconv
