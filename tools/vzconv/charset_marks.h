// The charset of lines that do not name theirs.
#pragma once

#include <string>
#include <string_view>

namespace vzconv {

// What is known about the charset of a text.
enum class TextCharset {
    Unknown,  // 8-bit text, as some device wrote it
    Utf8,     // the file said so, by its byte order mark or by being UTF-16
};

// The library reads a value whose line has no CHARSET in the code page of the system, so that one file means
// one thing here and another there. Adds ";CHARSET=UTF-8" to each line of `object` that has none and needs
// one: its value holds bytes above 127, as they are or as quoted-printable escapes. Where `charset` is not
// known, the lines stay as they are unless all of those bytes are UTF-8, which text in another charset hardly
// ever is.
//
// `object` has the library's line ends. Returns it itself where nothing is to add, else a view of `storage`,
// which then holds the text. Linear in the size of the object.
std::string_view with_charset_marks(std::string_view object, TextCharset charset, std::string& storage);

}  // namespace vzconv
