#include "mms/transfer_encoding.h"

#include <algorithm>

#include "versit/ascii.h"
#include "versit/base64.h"

namespace vzapi::mms {
namespace {

constexpr std::uint32_t kTransferEncodingNumber = 0x48;

enum class Encoding { None, Base64, QuotedPrintable };

Encoding encoding_of(const Header& header) noexcept {
    const Value& value = header.value;
    const bool is_named =
        value.kind == VZ_MMS_VALUE_NAMED_TEXT &&
        versit::equals_ignoring_case(std::u16string_view(value.name), "CONTENT-TRANSFER-ENCODING");
    const bool is_numbered = value.kind == VZ_MMS_VALUE_TEXT && header.number == kTransferEncodingNumber;
    if (!is_named && !is_numbered) return Encoding::None;
    const std::u16string_view name = versit::trim_blanks(std::u16string_view(value.text));
    if (versit::equals_ignoring_case(name, "BASE64")) return Encoding::Base64;
    return versit::equals_ignoring_case(name, "QUOTED-PRINTABLE") ? Encoding::QuotedPrintable
                                                                  : Encoding::None;
}

constexpr bool is_base64_digit(char character) noexcept {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
           (character >= '0' && character <= '9') || character == '+' || character == '/';
}

constexpr bool is_space(char character) noexcept {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

bool is_base64(std::string_view text) noexcept {
    const std::size_t padding = std::min(text.find('='), text.size());
    return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(padding),
                       [](char each) { return is_base64_digit(each) || is_space(each); }) &&
           std::all_of(text.begin() + static_cast<std::ptrdiff_t>(padding), text.end(),
                       [](char each) { return each == '=' || is_space(each); });
}

std::vector<std::byte> base64_content(std::string_view text) {
    std::vector<std::byte> content(versit::decoded_base64_room(text));
    content.resize(versit::decode_base64(text, content.data()));
    return content;
}

// -1: no hexadecimal digit.
constexpr int hexadecimal(char character) noexcept {
    if (character >= '0' && character <= '9') return character - '0';
    const char upper = versit::to_upper(character);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

// The length of the soft line break at the start of `text`, which begins behind an '='; 0: none.
std::size_t soft_break(std::string_view text) noexcept {
    const std::size_t end = std::min(text.find_first_not_of(" \t"), text.size());
    if (end == text.size()) return end == 0 ? 0 : end;
    if (text[end] == '\n') return end + 1;
    return text.substr(end).starts_with("\r\n") ? end + 2 : 0;
}

std::optional<std::vector<std::byte>> quoted_printable_content(std::string_view text) {
    std::vector<std::byte> content;
    content.reserve(text.size());
    while (!text.empty()) {
        const char first = text.front();
        text.remove_prefix(1);
        if (static_cast<unsigned char>(first) > 0x7E) return std::nullopt;
        if (first != '=') {
            content.push_back(static_cast<std::byte>(first));
        } else if (const std::size_t length = soft_break(text); length != 0 || text.empty()) {
            text.remove_prefix(length);
        } else {
            const int high = hexadecimal(text[0]);
            const int low = text.size() > 1 ? hexadecimal(text[1]) : -1;
            if (high < 0 || low < 0) return std::nullopt;
            content.push_back(static_cast<std::byte>(high * 16 + low));
            text.remove_prefix(2);
        }
    }
    return content;
}

}  // namespace

bool is_transfer_encoding(const Header& header) noexcept {
    return encoding_of(header) != Encoding::None;
}

std::optional<std::vector<std::byte>> without_transfer_encoding(const std::vector<Header>& headers,
                                                                Bytes data) {
    const auto header = std::find_if(headers.begin(), headers.end(), is_transfer_encoding);
    if (header == headers.end()) return std::nullopt;
    const std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
    if (encoding_of(*header) == Encoding::QuotedPrintable) return quoted_printable_content(text);
    if (!is_base64(text)) return std::nullopt;
    return base64_content(text);
}

}  // namespace vzapi::mms
