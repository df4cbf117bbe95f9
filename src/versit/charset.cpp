#include "versit/charset.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>

#include "platform/code_page.h"
#include "platform/utf8.h"
#include "result.h"
#include "versit/ascii.h"

namespace vzapi::versit {
namespace {

// Hosts tell this path's lack of memory from any other by its result code.
void append_latin1(std::string_view bytes, std::u16string& out) {
    const std::size_t begin = out.size();
    try {
        out.resize(begin + bytes.size());
    } catch (const std::bad_alloc&) {
        raise(VZ_ERR_OLE_OUT_OF_MEMORY);
    }
    std::transform(bytes.begin(), bytes.end(), out.begin() + static_cast<std::ptrdiff_t>(begin),
                   [](char byte) { return char16_t{static_cast<std::uint8_t>(byte)}; });
}

}  // namespace

void append_text(std::string_view bytes, std::string_view charset, std::u16string& out) {
    if (bytes.empty()) return;
    if (charset.empty()) {
        platform::append_utf16(platform::CodePage::SystemDefault, bytes, out);
    } else if (equals_ignoring_case(charset, "SHIFT_JIS")) {
        platform::append_utf16(platform::CodePage::ShiftJis, bytes, out);
    } else if (equals_ignoring_case(charset, "ISO-8859-1")) {
        append_latin1(bytes, out);
    } else {
        platform::append_utf16_from_utf8(bytes, out);
    }
}

std::u16string decode_text(std::string_view bytes, std::string_view charset) {
    std::u16string text;
    append_text(bytes, charset, text);
    return text;
}

}  // namespace vzapi::versit
