#include "mms/wsp_encoding.h"

#include <algorithm>
#include <limits>

#include "mms/mms_charset.h"
#include "mms/wsp_parameters.h"

namespace vzapi::mms {
namespace {

constexpr std::uint8_t kLengthQuote = 0x1F;  // a uintvar with the length follows
constexpr std::uint8_t kMostShortLength = 0x1E;
constexpr std::uint8_t kQuote = 0x7F;
constexpr std::uint8_t kSpace = 0x20;
constexpr std::uint8_t kHighBit = 0x80;
constexpr std::size_t kMostUintvarOctets = 5;

std::string_view characters(Bytes bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string_view up_to_nul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

std::u16string_view up_to_nul(std::u16string_view text) {
    return text.substr(0, text.find(u'\0'));
}

std::string_view without_quote(std::string_view text) {
    if (!text.empty() && static_cast<std::uint8_t>(text.front()) == kQuote) text.remove_prefix(1);
    return text;
}

// The quote and the NULs of a text with units of several bytes can be told from its characters by the number
// of bytes alone. One NUL byte in place of a NUL unit ends it too.
std::string_view wide_text(std::string_view text, std::size_t unit) {
    const auto ends_in_zeros = [&text](std::size_t count) {
        return text.size() >= count && std::all_of(text.end() - static_cast<std::ptrdiff_t>(count),
                                                   text.end(), [](char byte) { return byte == '\0'; });
    };
    const std::size_t end = ends_in_zeros(unit) ? unit : ends_in_zeros(1) ? 1 : 0;
    if ((text.size() - end) % unit != 0) text = without_quote(text);
    if (text.size() % unit == 0 && ends_in_zeros(unit)) {
        text.remove_suffix(unit);
    } else if (text.size() % unit == 1 && ends_in_zeros(1)) {
        text.remove_suffix(1);
    }
    return text;
}

// Eight-bit text without a charset gets that for which it was taken.
CWSPEncoding::EncodedText plain_text(std::string_view bytes) {
    return {guess_charset(bytes), decode_text(kNoCharset, bytes)};
}

CWSPEncoding::EncodedText text_in_charset(std::uint32_t charset, std::string_view bytes) {
    if (charset == kNoCharset) return plain_text(up_to_nul(without_quote(bytes)));
    const std::size_t unit = unit_size(charset);
    const std::string_view body = unit == 1 ? up_to_nul(without_quote(bytes)) : wide_text(bytes, unit);
    if (charset == kUsAscii && guess_charset(body) != kNoCharset) return plain_text(body);
    CWSPEncoding::EncodedText text{charset, decode_text(charset, body)};
    if (charset != kUtf8) static_cast<void>(encode_text(text.charset, text.text));
    return text;
}

}  // namespace

std::optional<std::uint8_t> CWSPEncoding::peek() const noexcept {
    if (at_end()) return std::nullopt;
    return static_cast<std::uint8_t>(bytes_[at_]);
}

std::optional<std::uint8_t> CWSPEncoding::octet() noexcept {
    const std::optional<std::uint8_t> value = peek();
    if (value) ++at_;
    return value;
}

std::optional<std::uint32_t> CWSPEncoding::uintvar() noexcept {
    std::uint64_t value = 0;
    const std::size_t most = std::min(left(), kMostUintvarOctets);
    for (std::size_t i = 0; i < most; ++i) {
        const auto next = static_cast<std::uint8_t>(bytes_[at_ + i]);
        value = value << 7U | (next & 0x7FU);
        if ((next & kHighBit) != 0) continue;
        if (value > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
        at_ += i + 1;
        return static_cast<std::uint32_t>(value);
    }
    return std::nullopt;
}

std::optional<std::uint8_t> CWSPEncoding::short_integer() noexcept {
    const std::optional<std::uint8_t> first = peek();
    if (!first || *first < kHighBit) return std::nullopt;
    ++at_;
    return static_cast<std::uint8_t>(*first & 0x7FU);
}

std::optional<std::uint64_t> CWSPEncoding::long_integer() noexcept {
    const std::optional<std::uint8_t> length = peek();
    if (!length || *length == 0 || *length > kMostShortLength || left() - 1 < *length) return std::nullopt;
    std::uint64_t value = 0;
    for (const std::byte next : bytes_.subspan(at_ + 1, *length)) {
        if (value >> 56U != 0) return std::nullopt;
        value = value << 8U | static_cast<std::uint8_t>(next);
    }
    at_ += 1U + *length;
    return value;
}

std::optional<std::uint64_t> CWSPEncoding::integer() noexcept {
    if (const std::optional<std::uint8_t> value = short_integer()) return *value;
    return long_integer();
}

std::optional<std::uint32_t> CWSPEncoding::small_integer() noexcept {
    const std::size_t before = at_;
    const std::optional<std::uint64_t> value = integer();
    if (value && *value <= std::numeric_limits<std::uint32_t>::max()) {
        return static_cast<std::uint32_t>(*value);
    }
    at_ = before;
    return std::nullopt;
}

std::optional<std::size_t> CWSPEncoding::value_length() noexcept {
    const std::optional<std::uint8_t> first = peek();
    if (!first || *first > kLengthQuote) return std::nullopt;
    ++at_;
    if (*first != kLengthQuote) return *first;
    if (const std::optional<std::uint32_t> length = uintvar()) return *length;
    --at_;
    return std::nullopt;
}

std::optional<Bytes> CWSPEncoding::bytes(std::size_t count) noexcept {
    if (count > left()) return std::nullopt;
    at_ += count;
    return bytes_.subspan(at_ - count, count);
}

std::optional<Bytes> CWSPEncoding::measured() noexcept {
    const std::size_t before = at_;
    if (const std::optional<std::size_t> length = value_length()) {
        if (const std::optional<Bytes> value = bytes(*length)) return value;
    }
    at_ = before;
    return std::nullopt;
}

std::optional<std::string_view> CWSPEncoding::text_string() noexcept {
    const std::string_view all = characters(rest());
    const std::size_t end = all.find('\0');
    if (end == std::string_view::npos) return std::nullopt;
    at_ += end + 1;
    return without_quote(all.substr(0, end));
}

std::optional<std::string_view> CWSPEncoding::text() noexcept {
    const std::optional<std::uint8_t> first = peek();
    std::optional<std::string_view> text = text_string();
    if (!text || first != '"') return text;
    text->remove_prefix(1);
    if (text->ends_with('"')) text->remove_suffix(1);
    return text;
}

std::optional<CWSPEncoding::EncodedText> CWSPEncoding::encoded_text() {
    const std::optional<std::uint8_t> first = peek();
    if (!first) return std::nullopt;
    if (*first > kLengthQuote) {
        const std::optional<std::string_view> text = text_string();
        if (!text) return std::nullopt;
        return plain_text(*text);
    }
    const std::size_t before = at_;
    const std::optional<Bytes> value = measured();
    std::optional<EncodedText> text;
    if (value) text = charset_and_text(*value);
    if (!text) at_ = before;
    return text;
}

std::optional<CWSPEncoding::EncodedText> CWSPEncoding::encoded_text_in(Bytes bytes) {
    if (bytes.empty()) return EncodedText{};
    if (static_cast<std::uint8_t>(bytes.front()) > kLengthQuote) {
        return plain_text(up_to_nul(without_quote(characters(bytes))));
    }
    return CWSPEncoding(bytes).encoded_text();
}

std::optional<CWSPEncoding::EncodedText> CWSPEncoding::charset_and_text(Bytes bytes) {
    CWSPEncoding value(bytes);
    const std::optional<std::uint8_t> first = value.peek();
    if (!first) return EncodedText{};
    if (*first >= kSpace && *first < kHighBit) return text_in_charset(kNoCharset, characters(bytes));
    const std::optional<std::uint32_t> charset = value.small_integer();
    if (!charset) return std::nullopt;
    return text_in_charset(*charset, characters(value.rest()));
}

std::optional<ContentType> CWSPEncoding::content_type() {
    const std::size_t before = at_;
    std::optional<ContentType> type;
    if (const std::optional<std::uint8_t> first = peek(); first && *first != 0 && *first <= kLengthQuote) {
        if (const std::optional<Bytes> value = measured()) {
            CWSPEncoding fields = inside(*value);
            type = read_media(fields);
            if (type) read_parameters(fields, *type);
        }
    } else if (first && *first != 0) {
        type = read_media(*this);
    }
    if (!type) at_ = before;
    return type;
}

std::optional<Disposition> CWSPEncoding::disposition() {
    const std::size_t before = at_;
    std::optional<Disposition> disposition;
    if (const std::optional<std::uint8_t> first = peek(); first && *first != 0 && *first <= kLengthQuote) {
        if (const std::optional<Bytes> value = measured()) {
            CWSPEncoding fields = inside(*value);
            disposition = read_disposition_kind(fields);
            if (disposition) read_parameters(fields, disposition->parameters);
        }
    } else if (first && *first != 0) {
        disposition = read_disposition_kind(*this);
    }
    if (!disposition) at_ = before;
    return disposition;
}

std::optional<Bytes> CWSPEncoding::skip_value() noexcept {
    const std::size_t before = at_;
    const std::optional<std::uint8_t> first = peek();
    if (!first) return std::nullopt;
    if (*first >= kHighBit) {
        ++at_;
    } else if (*first > kLengthQuote ? !text_string().has_value() : !measured().has_value()) {
        return std::nullopt;
    }
    return bytes_.subspan(before, at_ - before);
}

void WspWriter::uintvar(std::uint32_t value) {
    std::uint32_t shift = 0;
    while (shift < 28 && value >> (shift + 7) != 0) shift += 7;
    for (; shift != 0; shift -= 7) octet(static_cast<std::uint8_t>((value >> shift & 0x7FU) | kHighBit));
    octet(static_cast<std::uint8_t>(value & 0x7FU));
}

void WspWriter::long_integer(std::uint64_t value) {
    std::uint32_t length = 1;
    while (length < 8 && value >> (8 * length) != 0) ++length;
    octet(static_cast<std::uint8_t>(length));
    while (length-- != 0) octet(static_cast<std::uint8_t>(value >> (8 * length) & 0xFFU));
}

void WspWriter::integer(std::uint64_t value) {
    if (value < kHighBit) {
        short_integer(static_cast<std::uint8_t>(value));
    } else {
        long_integer(value);
    }
}

void WspWriter::value_length(std::size_t value) {
    if (value <= kMostShortLength) {
        octet(static_cast<std::uint8_t>(value));
    } else {
        octet(kLengthQuote);
        uintvar(static_cast<std::uint32_t>(value));
    }
}

void WspWriter::measured(Bytes bytes) {
    value_length(bytes.size());
    append(bytes);
}

void WspWriter::text_string(std::string_view bytes) {
    bytes = up_to_nul(bytes);
    if (!bytes.empty()) {
        const auto first = static_cast<std::uint8_t>(bytes.front());
        if (first < kSpace || first >= kQuote) octet(kQuote);
    }
    append(std::as_bytes(std::span(bytes)));
    octet(0);
}

void WspWriter::text(std::string_view bytes) {
    if (bytes.starts_with('"')) octet(kQuote);
    text_string(bytes);
}

void WspWriter::quoted_text(std::string_view bytes) {
    octet('"');
    append(std::as_bytes(std::span(up_to_nul(bytes))));
    octet(0);
}

void WspWriter::encoded_text(std::uint32_t charset, std::u16string_view text) {
    const std::string bytes = encode_text(charset, up_to_nul(text));
    if (charset == kNoCharset) return text_string(bytes);
    WspWriter value;
    value.integer(charset);
    if (!bytes.empty() && static_cast<std::uint8_t>(bytes.front()) >= kQuote) value.octet(kQuote);
    value.append(std::as_bytes(std::span(bytes)));
    for (std::size_t i = 0; i < unit_size(charset); ++i) value.octet(0);
    measured(value.bytes());
}

void WspWriter::content_type(const ContentType& type) {
    WspWriter media;
    const bool is_short = write_media(type.media, media);
    if (type.charset == kNoCharset && type.parameters.empty() && is_short) return append(media.bytes());
    write_charset(type.charset, media);
    write_parameters(type.parameters, media);
    measured(media.bytes());
}

void WspWriter::disposition(const Disposition& disposition) {
    WspWriter value;
    write_disposition_kind(disposition.kind, value);
    write_parameters(disposition.parameters, value);
    measured(value.bytes());
}

}  // namespace vzapi::mms
