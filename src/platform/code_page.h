// Text in a code page of the system to UTF-16 and back.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vzapi::platform {

enum class CodePage : std::uint32_t {
    SystemDefault = 0,  // Windows: the ANSI code page. Linux: the character set of the user's locale.
    ShiftJis = 932,
    Utf8 = 65001,
};

// Appends the text of `bytes` to `out`. Bytes that the code page does not define become what the system puts
// in their place (U+FFFD on Linux and in UTF-8); nothing is refused. Throws only std::bad_alloc.
void append_utf16(CodePage code_page, std::string_view bytes, std::u16string& out);

// The same for Shift_JIS without replacements: returns false when a byte is not defined or a character is cut
// off by the end; what was appended then means nothing.
[[nodiscard]] bool append_utf16_from_shift_jis(std::string_view bytes, std::u16string& out);

// A character set under the names that the two systems have for it.
struct SystemCharset {
    std::uint32_t code_page;  // Windows
    const char* iconv_name;   // Linux
};

// The same; false when the system does not know the character set, and then nothing is appended.
[[nodiscard]] bool append_utf16(const SystemCharset& charset, std::string_view bytes, std::u16string& out);

// Appends `text` in the character set to `out`; false, and nothing appended, when the system does not know it
// or it lacks a character of the text. Throws only std::bad_alloc.
[[nodiscard]] bool append_bytes(const SystemCharset& charset, std::u16string_view text, std::string& out);

// The name of the character set behind CodePage::SystemDefault, "UTF-8" or another name that the system
// knows. On Linux: the charset of the locale that LC_ALL, LC_CTYPE or LANG names, the first that is set;
// UTF-8 when none is, when it is "C" or "POSIX", or when the system does not know it. A locale that is not
// installed has the charset that its own name tells after the '.'.
[[nodiscard]] std::string system_charset();

}  // namespace vzapi::platform
