#include "versit/base64.h"

#include <array>
#include <cstdint>

namespace vzapi::versit {
namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kPad = '=';

// The two characters of every 12 bits.
struct Pair {
    char first;
    char second;
};

constexpr std::array<Pair, 4096> make_pairs() {
    std::array<Pair, 4096> pairs{};
    for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
        pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
    }
    return pairs;
}
constexpr auto kPairs = make_pairs();

// What a character is to the decoder: its six bits, or one of these.
constexpr std::uint32_t kSkipped = 1U << 30;
constexpr std::uint32_t kForeign = 1U << 31;
constexpr std::uint32_t kNotInAlphabet = kSkipped | kForeign;

constexpr std::array<std::uint32_t, 256> make_bits() {
    std::array<std::uint32_t, 256> bits{};
    for (auto& entry : bits) entry = kForeign;
    for (const char blank : {' ', '\t', '\r', '\n'}) bits[static_cast<std::uint8_t>(blank)] = kSkipped;
    for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
        bits[static_cast<std::uint8_t>(kAlphabet[i])] = static_cast<std::uint32_t>(i);
    }
    return bits;
}
constexpr auto kBits = make_bits();

constexpr std::uint32_t bits_of(char unit) {
    return kBits[static_cast<std::uint8_t>(unit)];
}

char* put_pair(std::size_t bits, char* to) {
    *to++ = kPairs[bits].first;
    *to++ = kPairs[bits].second;
    return to;
}

char* put_byte(std::uint32_t bits, char* to) {
    *to++ = static_cast<char>(bits & 0xFF);
    return to;
}

// Writes the one or two bytes left over after groups of three.
void put_rest(std::span<const std::byte> rest, char* to) {
    const auto first = std::to_integer<std::size_t>(rest[0]);
    const auto second = rest.size() > 1 ? std::to_integer<std::size_t>(rest[1]) : 0;
    to = put_pair(first << 4 | second >> 4, to);
    *to++ = rest.size() > 1 ? kAlphabet[(second & 15) << 2] : kPad;
    *to = kPad;
}

// The bits of a character by its place in a group of four: the group is all four together.
using GroupBits = std::array<std::array<std::uint32_t, 256>, 4>;

constexpr GroupBits make_group_bits() {
    GroupBits bits{};
    for (std::size_t place = 0; place < bits.size(); ++place) {
        for (std::size_t unit = 0; unit < kBits.size(); ++unit) {
            const bool in_alphabet = (kBits[unit] & kNotInAlphabet) == 0;
            bits[place][unit] = in_alphabet ? kBits[unit] << (18 - 6 * place) : kBits[unit];
        }
    }
    return bits;
}
constexpr GroupBits kGroupBits = make_group_bits();

// Decodes groups of four alphabet characters for as long as nothing else comes; returns what is left of
// `text`.
std::string_view decode_groups(std::string_view text, char*& to) {
    const auto bits_at = [&text](std::size_t place) {
        return kGroupBits[place][static_cast<std::uint8_t>(text[place])];
    };
    while (text.size() >= 4) {
        const std::uint32_t group = bits_at(0) | bits_at(1) | bits_at(2) | bits_at(3);
        if ((group & kNotInAlphabet) != 0) break;
        to = put_byte(group >> 16, to);
        to = put_byte(group >> 8, to);
        to = put_byte(group, to);
        text.remove_prefix(4);
    }
    return text;
}

// Decodes one group with skipped characters in it, or the last, incomplete one. Returns what is left of
// `text`: nothing when it ended or a foreign character came.
std::string_view decode_one_group(std::string_view text, char*& to) {
    std::uint32_t group = 0;
    int count = 0;
    while (count < 4 && !text.empty()) {
        const std::uint32_t bits = bits_of(text.front());
        if (bits == kForeign) {
            text = {};
            break;
        }
        text.remove_prefix(1);
        if (bits == kSkipped) continue;
        group = group << 6 | bits;
        ++count;
    }
    const int byte_count = count * 6 / 8;
    group <<= 6 * (4 - count);
    for (int i = 0; i < byte_count; ++i) to = put_byte(group >> (16 - 8 * i), to);
    return text;
}

}  // namespace

void append_base64(std::span<const std::byte> bytes, std::string& out) {
    const std::size_t begin = out.size();
    out.resize(begin + (bytes.size() + 2) / 3 * 4);
    char* to = out.data() + begin;
    for (; bytes.size() >= 3; bytes = bytes.subspan(3)) {
        const std::size_t group = std::to_integer<std::size_t>(bytes[0]) << 16 |
                                  std::to_integer<std::size_t>(bytes[1]) << 8 |
                                  std::to_integer<std::size_t>(bytes[2]);
        to = put_pair(group >> 12, to);
        to = put_pair(group & 0xFFF, to);
    }
    if (!bytes.empty()) put_rest(bytes, to);
}

std::string decode_base64(std::string_view text) {
    std::string decoded(decoded_base64_room(text), '\0');
    decoded.resize(decode_base64(text, reinterpret_cast<std::byte*>(decoded.data())));
    return decoded;
}

std::size_t decode_base64(std::string_view text, std::byte* out) {
    char* const begin = reinterpret_cast<char*>(out);
    char* to = begin;
    while (!text.empty()) {
        text = decode_groups(text, to);
        text = decode_one_group(text, to);
    }
    return static_cast<std::size_t>(to - begin);
}

}  // namespace vzapi::versit
