#include "reference/utf8_reference.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vzapi::reference {
namespace {

struct Range {
    unsigned first, last;
};

// Table 3-7, "Well-Formed UTF-8 Byte Sequences", row by row.
const std::vector<std::vector<Range>> kWellFormed = {
    {{0x00, 0x7F}},
    {{0xC2, 0xDF}, {0x80, 0xBF}},
    {{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}},
    {{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}},
    {{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}},
};

unsigned byte_at(const std::string& bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

// How many bytes from `start` fit the row, from its first on.
std::size_t fitting(const std::vector<Range>& row, const std::string& bytes, std::size_t start) {
    std::size_t count = 0;
    while (count < row.size() && start + count < bytes.size() &&
           byte_at(bytes, start + count) >= row[count].first &&
           byte_at(bytes, start + count) <= row[count].last) {
        ++count;
    }
    return count;
}

// Table 3-6, "UTF-8 Bit Distribution", for a well-formed sequence.
char32_t scalar_value(const std::string& sequence) {
    const unsigned first = byte_at(sequence, 0);
    char32_t value = 0;
    switch (sequence.size()) {
        case 1:
            value = first;
            break;
        case 2:
            value = first - 0xC0;
            break;
        case 3:
            value = first - 0xE0;
            break;
        default:
            value = first - 0xF0;
            break;
    }
    for (std::size_t i = 1; i < sequence.size(); ++i) value = value * 64 + (byte_at(sequence, i) - 0x80);
    return value;
}

// Table 3-5, "UTF-16 Bit Distribution".
std::u16string units_of(char32_t value) {
    if (value <= 0xFFFF) return {static_cast<char16_t>(value)};
    const char32_t rest = value - 0x10000;
    return {static_cast<char16_t>(0xD800 + rest / 0x400), static_cast<char16_t>(0xDC00 + rest % 0x400)};
}

// Table 3-6, the other way.
std::string bytes_of(char32_t value) {
    const auto byte = [](char32_t number) { return static_cast<char>(static_cast<unsigned char>(number)); };
    const auto trailing = [&](char32_t divisor) { return byte(0x80 + value / divisor % 64); };
    if (value <= 0x7F) return {byte(value)};
    if (value <= 0x7FF) return {byte(0xC0 + value / 64), trailing(1)};
    if (value <= 0xFFFF) return {byte(0xE0 + value / 4096), trailing(64), trailing(1)};
    return {byte(0xF0 + value / 262144), trailing(4096), trailing(64), trailing(1)};
}

bool is_high(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool is_low(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

std::u16string utf16_of_utf8(const std::string& bytes) {
    std::u16string text;
    std::size_t at = 0;
    while (at < bytes.size()) {
        std::size_t longest = 0;
        bool well_formed = false;
        for (const std::vector<Range>& row : kWellFormed) {
            const std::size_t count = fitting(row, bytes, at);
            longest = std::max(longest, count);
            well_formed = well_formed || count == row.size();
        }
        longest = std::max<std::size_t>(longest, 1);
        text += well_formed ? units_of(scalar_value(bytes.substr(at, longest))) : u"\uFFFD";
        at += longest;
    }
    return text;
}

std::string utf8_of_utf16(const std::u16string& text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (is_high(text[at]) && at + 1 < text.size() && is_low(text[at + 1])) {
            const char32_t high = static_cast<char32_t>(text[at]) - 0xD800;
            const char32_t low = static_cast<char32_t>(text[at + 1]) - 0xDC00;
            bytes += bytes_of(0x10000 + high * 0x400 + low);
            ++at;
        } else if (is_high(text[at]) || is_low(text[at])) {
            bytes += bytes_of(0xFFFD);
        } else {
            bytes += bytes_of(text[at]);
        }
    }
    return bytes;
}

}  // namespace vzapi::reference
