#include "versit/property.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "versit/ascii.h"
#include "versit/base64.h"
#include "versit/quoted_printable.h"

namespace vzapi::versit {
namespace {

template <class Unit>
using View = std::basic_string_view<Unit>;

// The words that tell a line's transfer encoding, the encoding names first, in the order of their table.
constexpr std::array<std::string_view, kEncodingCount + 1> kEncodingWords{
    "7BIT",              //
    "8BIT",              //
    "QUOTED-PRINTABLE",  //
    "BASE64",            //
    "ENCODING",
};
constexpr std::size_t kEncodingWord = kEncodingCount;

// The search looks at every third pair of neighbours only: each word is at least four characters long, so one
// of the three pairs within its first four stands where the search looks.
constexpr std::size_t kPairStride = 3;
static_assert(std::all_of(kEncodingWords.begin(), kEncodingWords.end(),
                          [](std::string_view word) { return word.size() > kPairStride; }));

// Units above 127 share a place with an ASCII character; the comparison that follows tells them apart.
template <class Unit>
constexpr std::size_t pair_index(Unit first, Unit second) noexcept {
    return (static_cast<std::size_t>(first & 0x7F) << 7) | static_cast<std::size_t>(second & 0x7F);
}

// 1 for the pairs that stand within the first four characters of a word.
constexpr std::array<std::uint8_t, std::size_t{128} * 128> make_word_pairs() {
    std::array<std::uint8_t, std::size_t{128} * 128> pairs{};
    for (const std::string_view word : kEncodingWords) {
        for (std::size_t at = 0; at < kPairStride; ++at) pairs[pair_index(word[at], word[at + 1])] = 1;
    }
    return pairs;
}
constexpr auto kWordPairs = make_word_pairs();

template <class Unit>
bool starts_with(View<Unit> text, std::string_view ascii) noexcept {
    return text.size() >= ascii.size() &&
           std::equal(ascii.begin(), ascii.end(), text.begin(),
                      [](char expected, Unit unit) { return unit == static_cast<Unit>(expected); });
}

// The first of the words before `best` that begins one of the places whose pair at `at` the search looks at;
// `best` when there is none.
template <class Unit>
std::size_t better_word_around(View<Unit> line, std::size_t at, std::size_t best) noexcept {
    for (std::size_t start = at - std::min(at, kPairStride - 1); start <= at; ++start) {
        for (std::size_t word = 0; word < best; ++word) {
            if (starts_with(line.substr(start), kEncodingWords[word])) best = word;
        }
    }
    return best;
}

// Index of the first word of the list that `line` holds anywhere; the size of the list when it holds none.
template <class Unit>
std::size_t find_encoding_word(View<Unit> line) noexcept {
    std::size_t best = kEncodingWords.size();
    for (std::size_t at = 0; at + 1 < line.size() && best > 0; at += kPairStride) {
        if (kWordPairs[pair_index(line[at], line[at + 1])] != 0) best = better_word_around(line, at, best);
    }
    return best;
}

template <class Unit>
BasicVersitParameter<Unit> split_parameter(View<Unit> text) noexcept {
    const std::size_t equals = text.find(Unit('='));
    if (equals == View<Unit>::npos) return {{}, trim_blanks(text)};
    return {trim_blanks(text.substr(0, equals)), trim_blanks(text.substr(equals + 1))};
}

}  // namespace

template <class Unit>
auto BasicVersitProperty<Unit>::raw_name() const noexcept -> View {
    const auto end = std::find_if(text_.begin(), text_.end(),
                                  [](Unit unit) { return unit == Unit(';') || unit == Unit(':'); });
    if (end == text_.end()) return {};
    return text_.substr(0, static_cast<std::size_t>(end - text_.begin()));
}

template <class Unit>
std::basic_string<Unit> BasicVersitProperty<Unit>::name() const {
    return to_upper(raw_name());
}

template <class Unit>
auto BasicVersitProperty<Unit>::value() const noexcept -> View {
    const std::size_t colon = text_.find(Unit(':'));
    if (colon == View::npos || colon == 0) return {};
    return text_.substr(colon + 1);
}

template <class Unit>
auto BasicVersitProperty<Unit>::parameters() const noexcept -> View {
    const View before_value = text_.substr(0, text_.find(Unit(':')));
    const std::size_t semicolon = before_value.find(Unit(';'));
    return semicolon == View::npos ? View{} : before_value.substr(semicolon);
}

template <class Unit>
auto BasicVersitProperty<Unit>::parameter(std::string_view upper_name) const noexcept -> std::optional<View> {
    View rest = parameters();
    while (!rest.empty()) {
        rest.remove_prefix(1);  // the ';' that begins each parameter
        const std::size_t end = std::min(rest.find(Unit(';')), rest.size());
        const auto found = split_parameter(rest.substr(0, end));
        if (equals_ignoring_case(found.name, upper_name)) return found.value;
        rest.remove_prefix(end);
    }
    return std::nullopt;
}

template <class Unit>
Encoding BasicVersitProperty<Unit>::encoding() const noexcept {
    const std::size_t word = find_encoding_word(text_);
    if (word < kEncodingWord) return static_cast<Encoding>(word);
    return word == kEncodingWord ? Encoding::Unknown : Encoding::None;
}

template class BasicVersitProperty<char>;
template class BasicVersitProperty<char16_t>;

std::string decoded_value(const VersitProperty& line, Encoding default_encoding) {
    const Encoding stated = line.encoding();
    switch (stated == Encoding::None ? default_encoding : stated) {
        case Encoding::QuotedPrintable:
            return decode_quoted_printable(line.value());
        case Encoding::Base64:
        case Encoding::Base64Default:
        case Encoding::Base64Default2:
            return decode_base64(line.value());
        case Encoding::None:
        case Encoding::Unknown:
        case Encoding::SevenBit:
        case Encoding::EightBit:
            break;
    }
    return std::string(line.value());
}

}  // namespace vzapi::versit
