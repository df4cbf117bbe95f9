#include "versit/quoted_printable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/utf8.h"
#include "versit/unit_block.h"

namespace vzapi::versit {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

// How a byte is written: itself, or its escape. Four characters, so that they can be stored at once.
struct Written {
    std::array<char, 4> text;
    std::uint8_t length;
};

constexpr bool is_literal(std::size_t byte) {
    return byte == '\t' || (byte >= ' ' && byte <= '~' && byte != '=');
}

constexpr std::array<Written, 256> make_written() {
    std::array<Written, 256> written{};
    for (std::size_t byte = 0; byte < written.size(); ++byte) {
        if (is_literal(byte)) {
            written[byte] = {{static_cast<char>(byte)}, 1};
        } else {
            written[byte] = {{'=', kDigits[byte >> 4], kDigits[byte & 15]}, 3};
        }
    }
    return written;
}
constexpr auto kWritten = make_written();

// The value of a hexadecimal digit, or kNoDigit.
constexpr std::uint8_t kNoDigit = 16;
constexpr std::array<std::uint8_t, 256> make_digit_values() {
    std::array<std::uint8_t, 256> values{};
    for (auto& value : values) value = kNoDigit;
    for (std::size_t digit = 0; digit < kDigits.size(); ++digit) {
        const auto unit = static_cast<std::uint8_t>(kDigits[digit]);
        values[unit] = static_cast<std::uint8_t>(digit);
        if (digit > 9) values[unit + std::size_t{'a' - 'A'}] = static_cast<std::uint8_t>(digit);
    }
    return values;
}
constexpr auto kDigitValues = make_digit_values();

constexpr unsigned digit_value(char digit) {
    return kDigitValues[static_cast<std::uint8_t>(digit)];
}

void append_escaped_bytes(std::string_view bytes, std::string& out) {
    const auto literal_count = static_cast<std::size_t>(std::count_if(
        bytes.begin(), bytes.end(), [](char byte) { return is_literal(static_cast<std::uint8_t>(byte)); }));
    const std::size_t length = 3 * bytes.size() - 2 * literal_count;
    const std::size_t begin = out.size();
    // All four characters are stored and only as many counted, which spares a branch per byte; the last byte
    // stores up to three beyond its end.
    out.resize(begin + length + 3);
    char* to = out.data() + begin;
    for (const char byte : bytes) {
        const Written& written = kWritten[static_cast<std::uint8_t>(byte)];
        std::memcpy(to, written.text.data(), written.text.size());
        to += written.length;
    }
    out.resize(begin + length);
}

}  // namespace

bool needs_encoding(std::u16string_view text) noexcept {
    constexpr std::size_t kBlock = kBlockUnits<char16_t>;
    for (; text.size() >= kBlock; text.remove_prefix(kBlock)) {
        const UnitBlock block = load_block(text.data());
        constexpr std::uint16_t kLastAscii = 127;
        if (any_unit((block > kLastAscii) | equal_to(block, '\r') | equal_to(block, '\n'))) return true;
    }
    return std::any_of(text.begin(), text.end(),
                       [](char16_t unit) { return unit > 127 || unit == u'\r' || unit == u'\n'; });
}

void append_quoted_printable(std::u16string_view text, std::string& out) {
    append_escaped_bytes(platform::utf16_to_utf8(text), out);
}

void append_escape(char byte, std::string& out) {
    const auto unit = static_cast<std::uint8_t>(byte);
    out.append({'=', kDigits[unit >> 4], kDigits[unit & 15]});
}

std::string decode_quoted_printable(std::string_view text) {
    std::string decoded;
    decode_quoted_printable(text, decoded);
    return decoded;
}

void decode_quoted_printable(std::string_view text, std::string& out) {
    out.resize(text.size());
    char* to = out.data();
    std::size_t at = 0;
    while (at < text.size()) {
        if (text[at] != '=') {
            const std::size_t run_end = std::min(text.find('=', at), text.size());
            to = std::copy_n(text.data() + at, run_end - at, to);
            at = run_end;
            continue;
        }
        const bool complete = text.size() - at > 2;
        const unsigned high = complete ? digit_value(text[at + 1]) : kNoDigit;
        const unsigned low = complete ? digit_value(text[at + 2]) : kNoDigit;
        const bool is_escape = high < kNoDigit && low < kNoDigit;
        *to++ = is_escape ? static_cast<char>(high << 4 | low) : '=';
        at += is_escape ? 3 : 1;
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
}

}  // namespace vzapi::versit
