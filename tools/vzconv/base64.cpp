#include "vzconv/base64.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace vzconv {
namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr uint8_t kNoDigit = 64;

constexpr auto make_digits() {
    std::array<uint8_t, 256> digits{};
    for (uint8_t& digit : digits) digit = kNoDigit;
    for (uint8_t i = 0; i < kNoDigit; ++i) digits[static_cast<unsigned char>(kAlphabet[i])] = i;
    return digits;
}
constexpr auto kDigits = make_digits();

// The 24 bits of four characters, of which the last `padding` are '='; nothing when one is no digit.
std::optional<uint32_t> quantum_of(std::string_view four, std::size_t padding) {
    uint32_t bits = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const uint8_t digit = i < 4 - padding ? kDigits[static_cast<unsigned char>(four[i])] : uint8_t{0};
        if (digit == kNoDigit) return std::nullopt;
        bits = bits << 6 | digit;
    }
    return bits;
}

}  // namespace

std::string base64_of(std::span<const uint8_t> bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i) bits = bits << 8 | (i < count ? bytes[at + i] : 0U);
        for (std::size_t i = 0; i < 4; ++i) {
            text.push_back(i <= count ? kAlphabet[bits >> (18 - 6 * i) & 0x3F] : '=');
        }
    }
    return text;
}

std::optional<std::vector<uint8_t>> bytes_of_base64(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    std::vector<uint8_t> bytes;
    bytes.reserve(text.size() / 4 * 3);
    for (std::size_t at = 0; at < text.size(); at += 4) {
        const std::string_view four = text.substr(at, 4);
        const bool is_last = at + 4 == text.size();
        const std::size_t padding = !is_last || four[3] != '=' ? 0 : four[2] != '=' ? 1 : 2;
        const std::optional<uint32_t> bits = quantum_of(four, padding);
        if (!bits || (*bits & ((1U << 8 * padding) - 1)) != 0) return std::nullopt;
        for (std::size_t i = 0; i < 3 - padding; ++i) {
            bytes.push_back(static_cast<uint8_t>(*bits >> (16 - 8 * i)));
        }
    }
    return bytes;
}

}  // namespace vzconv
