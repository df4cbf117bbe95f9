#include "vzconv/multimedia_parts.h"

#include <cstddef>

#include "vzconv/ascii.h"
#include "vzconv/library.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

constexpr std::string_view kPresentationType = "application/smil";

constexpr uint32_t kNoCharset = 0;
constexpr uint32_t kUsAscii = 3;
constexpr uint32_t kLatin1 = 4;
constexpr uint32_t kUtf8 = 106;

// The length of a value that does not fit one octet, in groups of seven bits.
void append_length(std::string& pdu, std::size_t length) {
    constexpr std::size_t kGroup = 7;
    pdu.push_back('\x1F');
    std::size_t groups = 1;
    while (length >> kGroup * groups != 0) ++groups;
    while (groups-- > 0) {
        const std::size_t bits = length >> kGroup * groups & 0x7F;
        pdu.push_back(static_cast<char>(groups == 0 ? bits : bits | 0x80));
    }
}

void append_integer(std::string& value, uint32_t number) {
    value.push_back('\x04');
    for (int shift = 24; shift >= 0; shift -= 8) value.push_back(static_cast<char>(number >> shift & 0xFF));
}

// The bytes of one unit of text.
std::size_t unit_size(uint32_t charset) {
    switch (charset) {
        case 1000:  // UCS-2
        case 1013:  // UTF-16BE
        case 1014:  // UTF-16LE
        case 1015:  // UTF-16
            return 2;
        case 1001:  // UCS-4
        case 1017:  // UTF-32
        case 1018:  // UTF-32BE
        case 1019:  // UTF-32LE
            return 4;
        default:
            return 1;
    }
}

// The byte order mark that `text` begins with, or nothing.
std::string_view mark_of(std::string_view text, std::size_t unit) {
    constexpr std::string_view kMarks[] = {
        {"\xFF\xFE", 2}, {"\xFE\xFF", 2}, {"\xFF\xFE\0\0", 4}, {"\0\0\xFE\xFF", 4}};
    for (const std::string_view mark : kMarks) {
        if (mark.size() == unit && text.starts_with(mark)) return mark;
    }
    return {};
}

// Where the next unit begins that is 0; the size of `text` when there is none.
std::size_t next_nul(std::string_view text, std::size_t unit) {
    constexpr std::string_view kNul("\0\0\0\0", 4);
    for (std::size_t at = 0; at + unit <= text.size(); at += unit) {
        if (text.substr(at, unit) == kNul.substr(0, unit)) return at;
    }
    return text.size();
}

// Text without a NUL, as the subject of a PDU that has nothing else: charsets are the library's affair.
std::string subject_in_charset(const std::string& text, uint32_t charset) {
    const std::size_t unit = unit_size(charset);
    const bool is_quoted = unit == 1 && !text.empty() && static_cast<unsigned char>(text.front()) >= 0x7F;
    std::string value;
    append_integer(value, charset);
    if (is_quoted) value.push_back('\x7F');
    value.append(text).append(unit, '\0');
    std::string pdu = "\x8C\x80\x96";
    append_length(pdu, value.size());
    const ReadRecord<MultimediaItem, kMultimediaRecord> message(pdu + value, Door::Objects);
    for (const MultimediaHeader& header : headers_of(*message)) {
        if (header.kind == VZ_MMS_VALUE_ENCODED_TEXT) return text_of(header.value.record->text);
    }
    return {};
}

}  // namespace

std::span<const MultimediaHeader> headers_of(const MultimediaItem& item) {
    return {item.headers, item.headerCount};
}

std::span<const MultimediaHeader> headers_of(const MultimediaPart& part) {
    return {part.headers, part.headerCount};
}

std::span<const MultimediaPart> parts_of(const MultimediaItem& item) {
    return {item.parts, item.partCount};
}

std::span<const MultimediaParameter> parameters_of(const MultimediaPart& part) {
    return {part.parameters, part.parameterCount};
}

std::span<const MultimediaParameter> disposition_parameters_of(const MultimediaPart& part) {
    return {part.dispositionParameters, part.dispositionParameterCount};
}

std::string_view data_of(const MultimediaPart& part) {
    if (part.data == nullptr) return {};
    return {reinterpret_cast<const char*>(part.data), part.dataLength};
}

bool is_container(const MultimediaPart& part) {
    return (part.flags & VZ_MMS_PART_CONTAINER) != 0;
}

bool is_presentation(const MultimediaPart& part) {
    return (part.flags & VZ_MMS_PART_PRESENTATION) != 0 &&
           starts_ignoring_case(text_of(part.contentType), kPresentationType);
}

bool is_text_type(std::string_view content_type) {
    return starts_ignoring_case(content_type, "text/") ||
           starts_ignoring_case(content_type, kPresentationType);
}

bool is_plain_utf8(std::string_view data, uint32_t charset) {
    const bool may_be_utf8 = charset == kNoCharset || charset == kUsAscii || charset == kUtf8;
    return may_be_utf8 && is_utf8(data);
}

std::string text_in_charset(std::string_view data, uint32_t charset) {
    if (is_plain_utf8(data, charset)) return std::string(data);
    if (charset == kUtf8) return utf8_from_utf16(utf16_from_utf8(data));
    if (charset == kNoCharset || charset == kUsAscii) charset = kLatin1;
    const std::size_t unit = unit_size(charset);
    const std::string mark(mark_of(data, unit));
    data.remove_prefix(mark.size());
    // A NUL would end the text of a header.
    std::string text;
    for (;;) {
        const std::size_t end = next_nul(data, unit);
        text += subject_in_charset(mark + std::string(data.substr(0, end)), charset);
        if (end == data.size()) return text;
        text.push_back('\0');
        data.remove_prefix(end + unit);
    }
}

}  // namespace vzconv
