#include "versit/value_reader.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/code_page.h"
#include "platform/utf8.h"
#include "versit/ascii.h"
#include "versit/base64.h"
#include "versit/charset.h"
#include "versit/quoted_printable.h"

namespace vzapi::versit {
namespace {

constexpr std::string_view kShiftJis = "SHIFT_JIS";

std::string_view charset_of(const VersitProperty& line) {
    if (line.parameters().empty()) return {};
    std::string_view charset = line.parameter("CHARSET").value_or(std::string_view{});
    if (charset.size() > 1 && charset.front() == '"' && charset.back() == '"') {
        charset = charset.substr(1, charset.size() - 2);
    }
    return charset;
}

// The byte that an escape at the front of `text` stands for.
std::optional<unsigned char> escaped_byte(std::string_view text) {
    if (text.size() < 3 || text[0] != '=') return std::nullopt;
    unsigned char byte = 0;
    const char* const end = text.data() + 3;
    const auto [stopped, error] = std::from_chars(text.data() + 1, end, byte, 16);
    if (error != std::errc{} || stopped != end) return std::nullopt;
    return byte;
}

// Length of the two bytes of a Shift_JIS character at the front of quoted-printable `text`, each as it stands
// or escaped; 0 when no lead byte stands there.
std::size_t double_byte_length(std::string_view text) {
    const std::optional<unsigned char> escape = escaped_byte(text);
    const unsigned char first = escape ? *escape : static_cast<unsigned char>(text.front());
    if (first < 0x81 || (first > 0x9F && first < 0xE0) || first > 0xFC) return 0;
    const std::size_t length = escape ? 3 : 1;
    const std::string_view rest = text.substr(length);
    return length + (escaped_byte(rest) ? 3 : std::min<std::size_t>(1, rest.size()));
}

// Where the first component of quoted-printable `value` ends: at a ';' that stands there itself, is no trail
// byte and has no '\' before it.
std::size_t end_of_component(std::string_view value, bool shift_jis) {
    std::size_t at = 0;
    while (at < value.size() && value[at] != ';') {
        const std::size_t both = shift_jis ? double_byte_length(value.substr(at)) : 0;
        const bool is_pair =
            value[at] == '\\' && at + 1 < value.size() && (value[at + 1] == ';' || value[at + 1] == '\\');
        at += both != 0 ? both : (is_pair ? 2 : 1);
    }
    return std::min(at, value.size());
}

}  // namespace

ValueReader::ValueReader(DefaultCharset charset)
    : default_is_utf8_(charset == DefaultCharset::Utf8 || platform::system_charset() == "UTF-8") {
    constexpr std::size_t kUsualText = 120;
    constexpr std::size_t kUsualParts = 8;
    text_.reserve(kUsualText);
    parts_.reserve(kUsualParts);
}

void ValueReader::convert(std::string_view bytes, std::string_view charset) {
    bytes = bytes.substr(0, bytes.find('\0'));
    if (charset.empty() && default_is_utf8_) {
        platform::append_utf16_from_utf8(bytes, text_);
    } else {
        append_text(bytes, charset, text_);
    }
}

std::u16string_view ValueReader::text(const VersitProperty& line) {
    std::string_view bytes = line.value();
    switch (line.encoding()) {
        case Encoding::QuotedPrintable:
            decode_quoted_printable(bytes, bytes_);
            bytes = bytes_;
            break;
        case Encoding::Base64:
            bytes_ = decode_base64(bytes);
            bytes = bytes_;
            break;
        default:
            break;
    }
    text_.clear();
    convert(bytes, charset_of(line));
    return text_;
}

std::u16string_view ValueReader::text(const VersitProperty& line, Escapes escapes) {
    static_cast<void>(text(line));
    unescape_from(0, escapes);
    return text_;
}

std::size_t ValueReader::split(const VersitProperty& line, Escapes escapes, std::size_t most) {
    parts_.clear();
    if (line.encoding() == Encoding::QuotedPrintable) {
        split_encoded(line.value(), charset_of(line), escapes, most);
    } else {
        static_cast<void>(text(line));
        split_text(escapes, most);
    }
    return parts_.size();
}

std::u16string_view ValueReader::component(std::size_t index) const noexcept {
    if (index >= parts_.size()) return {};
    return std::u16string_view(text_).substr(parts_[index].begin, parts_[index].end - parts_[index].begin);
}

void ValueReader::split_encoded(std::string_view value, std::string_view charset, Escapes escapes,
                                std::size_t most) {
    const bool shift_jis = equals_ignoring_case(charset, kShiftJis);
    text_.clear();
    for (;;) {
        const std::size_t end = end_of_component(value, shift_jis);
        decode_quoted_printable(value.substr(0, end), bytes_);
        const std::size_t begin = text_.size();
        convert(bytes_, charset);
        unescape_from(begin, escapes);
        parts_.push_back({begin, text_.size()});
        if (end == value.size() || parts_.size() >= most) return;
        value.remove_prefix(end + 1);
    }
}

// In place: what is written never overtakes what is read.
void ValueReader::split_text(Escapes escapes, std::size_t most) {
    std::size_t to = 0;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text_.size();) {
        if (text_[at] != u';') {
            text_[to++] = take_unescaped(text_, at, escapes);
            continue;
        }
        parts_.push_back({begin, to});
        if (parts_.size() >= most) return;
        begin = to;
        ++at;
    }
    parts_.push_back({begin, to});
}

void ValueReader::unescape_from(std::size_t begin, Escapes escapes) {
    std::size_t to = text_.find(u'\\', begin);
    if (to == std::u16string::npos) return;
    for (std::size_t at = to; at < text_.size();) text_[to++] = take_unescaped(text_, at, escapes);
    text_.resize(to);
}

}  // namespace vzapi::versit
