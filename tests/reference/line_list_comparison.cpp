#include "reference/line_list_comparison.h"

#include <cstdint>

namespace vzapi::reference {
namespace {

std::string digits(std::uint32_t value, std::uint32_t base, int count) {
    std::string text;
    for (; count > 0; --count, value /= base) text.insert(text.begin(), "0123456789ABCDEF"[value % base]);
    return text;
}

bool is_hexadecimal_digit(std::uint32_t unit) {
    return std::string("0123456789ABCDEFabcdef").find(static_cast<char>(unit)) != std::string::npos;
}

// A unit that needs no number in a literal; empty when it does.
std::string plain_spelling(std::uint32_t unit) {
    if (unit == '\r') return "\\r";
    if (unit == '\n') return "\\n";
    if (unit == '\t') return "\\t";
    if (unit == '"' || unit == '\\') return std::string("\\") + static_cast<char>(unit);
    return unit >= ' ' && unit <= '~' ? std::string(1, static_cast<char>(unit)) : std::string();
}

template <class Unit>
std::string list_of(const std::string& title, const std::vector<Text<Unit>>& lines) {
    std::string text = title + ", " + std::to_string(lines.size()) + " lines:\n";
    for (const Text<Unit>& line : lines) text += "    " + literal_of(line) + "\n";
    return text;
}

std::string list_of(const std::string& title, const BodyRanges& bodies) {
    std::string text = title + " bodies:";
    for (const auto& [begin, end] : bodies) {
        text += " [" + std::to_string(begin) + ", " + std::to_string(end) + ")";
    }
    return text + "\n";
}

}  // namespace

std::string literal_of(const std::string& text) {
    std::string literal = "\"";
    for (const char character : text) {
        const std::uint32_t unit = static_cast<unsigned char>(character);
        const std::string plain = plain_spelling(unit);
        literal += plain.empty() ? "\\" + digits(unit, 8, 3) : plain;
    }
    return literal + "\"";
}

// A hexadecimal escape takes in every digit behind it, so a digit that follows one starts a new literal.
std::string literal_of(const std::u16string& text) {
    std::string literal = "u\"";
    bool is_behind_number = false;
    for (const std::uint32_t unit : text) {
        const std::string plain = plain_spelling(unit);
        if (is_behind_number && !plain.empty() && is_hexadecimal_digit(unit)) literal += "\" u\"";
        literal += plain.empty() ? "\\x" + digits(unit, 16, 4) : plain;
        is_behind_number = plain.empty();
    }
    return literal + "\"";
}

template <class Unit>
std::string line_difference(const std::vector<Text<Unit>>& expected, const std::vector<Text<Unit>>& actual) {
    if (expected == actual) return {};
    std::size_t first = 0;
    while (first < expected.size() && first < actual.size() && expected[first] == actual[first]) ++first;
    return "first difference in line " + std::to_string(first) + "\n" + list_of("expected", expected) +
           list_of("actual", actual);
}

std::string body_difference(const BodyRanges& expected, const BodyRanges& actual) {
    if (expected == actual) return {};
    return list_of("expected", expected) + list_of("actual", actual);
}

template std::string line_difference(const std::vector<std::string>&, const std::vector<std::string>&);
template std::string line_difference(const std::vector<std::u16string>&, const std::vector<std::u16string>&);

}  // namespace vzapi::reference
