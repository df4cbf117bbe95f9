// The words in a line's parameters, one at a time, and those that tell the type of a value.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "versit/ascii.h"

namespace vzapi::vcard {

// Calls `visit(name, word)` for each word of `parameters`, which are empty or begin with ';'. ";HOME" is the
// word HOME without a name, ";TYPE=HOME,VOICE" are two words of the name TYPE. Blanks around names and words,
// and quotes around words or lists of them, are taken off.
template <class Visit>
void for_each_parameter_word(std::string_view parameters, Visit visit) {
    constexpr auto kBare = [](std::string_view text) {
        text = versit::trim_blanks(text);
        if (text.starts_with('"')) text.remove_prefix(1);
        if (text.ends_with('"')) text.remove_suffix(1);
        return versit::trim_blanks(text);
    };
    while (!parameters.empty()) {
        parameters.remove_prefix(1);  // the ';'
        const std::size_t end = std::min(parameters.find(';'), parameters.size());
        std::string_view words = parameters.substr(0, end);
        parameters.remove_prefix(end);

        const std::size_t equals = words.find('=');
        std::string_view name;
        if (equals != std::string_view::npos) {
            name = versit::trim_blanks(words.substr(0, equals));
            words.remove_prefix(equals + 1);
        }
        for (;;) {
            const std::size_t comma = words.find(',');
            visit(name, kBare(words.substr(0, comma)));
            if (comma == std::string_view::npos) break;
            words.remove_prefix(comma + 1);
        }
    }
}

// A set of the words that tell the type of a value.
using TypeWords = std::uint32_t;

namespace type_word {
inline constexpr TypeWords kPref = 1U << 0;
inline constexpr TypeWords kHome = 1U << 1;
inline constexpr TypeWords kWork = 1U << 2;
inline constexpr TypeWords kVoice = 1U << 3;
inline constexpr TypeWords kCell = 1U << 4;
inline constexpr TypeWords kCar = 1U << 5;
inline constexpr TypeWords kFax = 1U << 6;
inline constexpr TypeWords kVideo = 1U << 7;
inline constexpr TypeWords kVoip = 1U << 8;
inline constexpr TypeWords kModem = 1U << 9;
inline constexpr TypeWords kPager = 1U << 10;
inline constexpr TypeWords kPoc = 1U << 11;
inline constexpr TypeWords kSwis = 1U << 12;
inline constexpr TypeWords kPersonal = 1U << 13;
inline constexpr TypeWords kBusiness = 1U << 14;
inline constexpr TypeWords kMobile = 1U << 15;
inline constexpr TypeWords kIrmcName = 1U << 16;
inline constexpr TypeWords kIrmcOrg = 1U << 17;
inline constexpr TypeWords kOther = 1U << 18;  // any that is none of these
}  // namespace type_word

// The words of `parameters` that stand without a name or behind TYPE=, without regard to case. Names of
// encodings are no types. "PREF=1" is the word PREF.
[[nodiscard]] TypeWords type_words(std::string_view parameters) noexcept;

}  // namespace vzapi::vcard
