#include "vmessage/decoded_value.h"

#include <algorithm>
#include <cstddef>

#include "platform/utf8.h"
#include "versit/base64.h"
#include "versit/charset.h"
#include "versit/quoted_printable.h"

namespace vzapi::vmessage {
namespace {

constexpr std::string_view kDefaultCharset = "UTF-8";

std::string charset_of(const versit::WideVersitProperty& line) {
    std::u16string_view charset = line.parameter("CHARSET").value_or(std::u16string_view{});
    if (charset.size() > 1 && charset.front() == u'"' && charset.back() == u'"') {
        charset = charset.substr(1, charset.size() - 2);
    }
    return charset.empty() ? std::string(kDefaultCharset) : platform::utf16_to_utf8(charset);
}

bool is_ascii(char16_t unit) noexcept {
    return unit < 128;
}

// How many units at the front of `text` are ASCII, or are not.
std::size_t run_length(std::u16string_view text, bool ascii) noexcept {
    const auto end =
        std::find_if(text.begin(), text.end(), [&](char16_t unit) { return is_ascii(unit) != ascii; });
    return static_cast<std::size_t>(end - text.begin());
}

std::u16string decode_base64(std::u16string_view encoded, const versit::WideVersitProperty& line) {
    const std::string bytes = versit::decode_base64(platform::utf16_to_utf8(encoded));
    return versit::decode_text(bytes, charset_of(line));
}

}  // namespace

std::u16string_view value_of(const versit::WideVersitProperty& line) noexcept {
    std::u16string_view value = line.value();
    while (value.ends_with(u'\n')) value.remove_suffix(1);
    return value;
}

std::u16string decode_quoted_printable(std::u16string_view encoded, const versit::WideVersitProperty& line) {
    const std::string charset = charset_of(line);
    std::u16string text;
    std::string bytes;
    while (!encoded.empty()) {
        const std::size_t narrow = run_length(encoded, true);
        const std::string ascii(encoded.begin(), encoded.begin() + static_cast<std::ptrdiff_t>(narrow));
        versit::decode_quoted_printable(ascii, bytes);
        versit::append_text(bytes, charset, text);
        encoded.remove_prefix(narrow);
        const std::size_t wide = run_length(encoded, false);
        text.append(encoded.substr(0, wide));
        encoded.remove_prefix(wide);
    }
    return text;
}

std::u16string decoded_value(const versit::WideVersitProperty& line) {
    switch (line.encoding()) {
        case versit::Encoding::QuotedPrintable:
            return decode_quoted_printable(value_of(line), line);
        case versit::Encoding::Base64:
            return decode_base64(value_of(line), line);
        default:
            return std::u16string(value_of(line));
    }
}

}  // namespace vzapi::vmessage
