#include "vcard/member_number.h"

#include <algorithm>
#include <cstddef>

#include "versit/ascii.h"

namespace vzapi::vcard {
namespace {

// The same number in base 2^32, the lowest first: no compiler's 128-bit type is asked for.
using Limbs = std::array<std::uint32_t, 4>;

constexpr std::uint32_t kGroup = 1'000'000'000;  // what one division takes off the end
constexpr std::size_t kGroupDigits = 9;
constexpr std::size_t kMostDigits = 39;

Limbs limbs_of(const MemberNumber& number) noexcept {
    Limbs limbs{};
    for (std::size_t i = 0; i < number.size(); ++i) limbs[i / 4] |= std::uint32_t{number[i]} << (i % 4 * 8);
    return limbs;
}

MemberNumber number_of(const Limbs& limbs) noexcept {
    MemberNumber number{};
    for (std::size_t i = 0; i < number.size(); ++i) {
        number[i] = static_cast<std::uint8_t>(limbs[i / 4] >> (i % 4 * 8));
    }
    return number;
}

// `limbs` times ten plus `digit`; false when that does not fit.
bool append_digit(Limbs& limbs, std::uint32_t digit) noexcept {
    std::uint64_t carry = digit;
    for (std::uint32_t& limb : limbs) {
        carry += std::uint64_t{limb} * 10;
        limb = static_cast<std::uint32_t>(carry);
        carry >>= 32;
    }
    return carry == 0;
}

// Divides `limbs` by kGroup and returns the remainder.
std::uint32_t take_group(Limbs& limbs) noexcept {
    std::uint64_t rest = 0;
    for (std::size_t i = limbs.size(); i-- > 0;) {
        rest = rest << 32 | limbs[i];
        limbs[i] = static_cast<std::uint32_t>(rest / kGroup);
        rest %= kGroup;
    }
    return static_cast<std::uint32_t>(rest);
}

}  // namespace

std::optional<MemberNumber> parse_member_number(std::string_view text) noexcept {
    const std::string_view digits = versit::trim_blanks(text);
    if (digits.empty()) return std::nullopt;
    Limbs limbs{};
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') return std::nullopt;
        if (!append_digit(limbs, static_cast<std::uint32_t>(digit - '0'))) return std::nullopt;
    }
    return number_of(limbs);
}

void append_member_number(const MemberNumber& number, std::string& text) {
    Limbs limbs = limbs_of(number);
    std::array<char, kMostDigits + kGroupDigits>
        digits{};  // from the back; the last group may begin with zeros
    std::size_t first = digits.size();
    do {
        std::uint32_t group = take_group(limbs);
        for (std::size_t i = 0; i < kGroupDigits; ++i, group /= 10) {
            digits[--first] = static_cast<char>('0' + group % 10);
        }
    } while (limbs != Limbs{});
    while (first + 1 < digits.size() && digits[first] == '0') ++first;
    text.append(&digits[first], digits.size() - first);
}

}  // namespace vzapi::vcard
