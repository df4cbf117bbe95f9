#include "vzconv/member_id.h"

#include <algorithm>

namespace vzconv {

std::string decimal_of(MemberId id) {
    std::string digits;
    do {
        unsigned rest = 0;
        for (std::size_t i = id.size(); i-- > 0;) {
            const unsigned part = rest << 8 | id[i];
            id[i] = static_cast<uint8_t>(part / 10);
            rest = part % 10;
        }
        digits.push_back(static_cast<char>('0' + rest));
    } while (std::any_of(id.begin(), id.end(), [](uint8_t byte) { return byte != 0; }));
    std::reverse(digits.begin(), digits.end());
    return digits;
}

std::optional<MemberId> member_id_of(std::string_view text) {
    if (text.empty()) return std::nullopt;
    MemberId id{};
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        auto carry = static_cast<unsigned>(c - '0');
        for (uint8_t& byte : id) {
            carry += byte * 10U;
            byte = static_cast<uint8_t>(carry);
            carry >>= 8;
        }
        if (carry != 0) return std::nullopt;
    }
    return id;
}

}  // namespace vzconv
