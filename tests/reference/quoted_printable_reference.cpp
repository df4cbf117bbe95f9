#include "reference/quoted_printable_reference.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vzapi::reference {
namespace {

bool is_high_surrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDBFF;
}
bool is_low_surrogate(char32_t code) {
    return code >= 0xDC00 && code <= 0xDFFF;
}

std::vector<char32_t> code_points(const std::u16string& text) {
    std::vector<char32_t> codes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        const char32_t next = i + 1 < text.size() ? text[i + 1] : 0;
        if (is_high_surrogate(unit) && is_low_surrogate(next)) {
            codes.push_back(0x10000 + (unit - 0xD800) * 0x400 + (next - 0xDC00));
            ++i;
        } else {
            codes.push_back(is_high_surrogate(unit) || is_low_surrogate(unit) ? 0xFFFD : unit);
        }
    }
    return codes;
}

// The bytes of RFC 3629, section 3.
std::vector<std::uint32_t> utf8_bytes(char32_t code) {
    const auto tail = [code](unsigned shift) { return 0x80 + ((code >> shift) % 64); };
    if (code < 0x80) return {code};
    if (code < 0x800) return {0xC0 + (code >> 6), tail(0)};
    if (code < 0x10000) return {0xE0 + (code >> 12), tail(6), tail(0)};
    return {0xF0 + (code >> 18), tail(12), tail(6), tail(0)};
}

// The value of a hexadecimal digit of either case, or -1.
int digit_value(char digit) {
    const std::size_t place = std::string("00112233445566778899aAbBcCdDeEfF").find(digit);
    return place == std::string::npos ? -1 : static_cast<int>(place / 2);
}

}  // namespace

bool needs_encoding(const std::u16string& text) {
    for (const char16_t unit : text) {
        if (unit > 127 || unit == 13 || unit == 10) return true;
    }
    return false;
}

std::string encode_quoted_printable(const std::u16string& text) {
    std::string encoded;
    for (const char32_t code : code_points(text)) {
        if (code == '\t' || code == ' ' || (code >= '!' && code <= '~' && code != '=')) {
            encoded += static_cast<char>(code);
            continue;
        }
        for (const std::uint32_t byte : utf8_bytes(code)) {
            encoded += '=';
            encoded += "0123456789ABCDEF"[byte / 16];
            encoded += "0123456789ABCDEF"[byte % 16];
        }
    }
    return encoded;
}

std::string decode_quoted_printable(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool room = i + 2 < text.size();
        if (text[i] == '=' && room && digit_value(text[i + 1]) >= 0 && digit_value(text[i + 2]) >= 0) {
            bytes += static_cast<char>(digit_value(text[i + 1]) * 16 + digit_value(text[i + 2]));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

}  // namespace vzapi::reference
