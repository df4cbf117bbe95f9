// Names for files that strangers thought of: the same on every system, and harmless on each.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vzconv {

// The longest name in bytes of UTF-8, which leaves room below the 255 that file systems have.
inline constexpr std::size_t kLongestName = 200;

// A name that a file can have on Linux and on Windows, made of what stands behind the last path separator of
// `name`, which is UTF-8. It has no separators, control characters, marks that turn the direction of text, or
// characters that Windows forbids ('_' stands in their place), no dots or blanks in front, none at its end,
// is no device of Windows, and not longer than kLongestName. It ends as files of `content_type` do. Where
// nothing is left of the name it is "unnamed".
std::string safe_name(std::string_view name, std::string_view content_type);

// "name (2).jpg" of "name.jpg" and 2, not longer than kLongestName either.
std::string numbered_name(std::string_view name, std::size_t number);

// The same for names that only differ in the case of letters, which Windows takes for one.
std::string folded_name(std::string_view name);

}  // namespace vzconv
