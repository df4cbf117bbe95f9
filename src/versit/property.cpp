#include "versit/property.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "versit/ascii.h"
#include "versit/base64.h"
#include "versit/quoted_printable.h"
#include "versit/unit_block.h"

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

// The search looks for characters that are rare in text and stand in each of the words: B, Q and G.
template <class Unit>
constexpr bool is_anchor(Unit unit) noexcept {
    return unit == Unit('B') || unit == Unit('Q') || unit == Unit('G');
}

// Where in each of the words its anchor stands.
constexpr auto kAnchors = [] {
    std::array<std::size_t, kEncodingWords.size()> anchors{};
    for (std::size_t word = 0; word < anchors.size(); ++word) {
        while (!is_anchor(kEncodingWords[word].at(anchors[word]))) ++anchors[word];
    }
    return anchors;
}();

template <class Unit>
bool starts_with(View<Unit> text, std::string_view ascii) noexcept {
    return text.size() >= ascii.size() &&
           std::equal(ascii.begin(), ascii.end(), text.begin(),
                      [](char expected, Unit unit) { return unit == static_cast<Unit>(expected); });
}

// The first word of the list whose anchor may be the one at `at`; `best` when none of the words before that one
// stands there.
template <class Unit>
std::size_t better_word_around(View<Unit> line, std::size_t at, std::size_t best) noexcept {
    for (std::size_t word = 0; word < best; ++word) {
        const std::size_t anchor = kAnchors[word];
        const bool same = line[at] == static_cast<Unit>(kEncodingWords[word][anchor]) && anchor <= at;
        if (same && starts_with(line.substr(at - anchor), kEncodingWords[word])) return word;
    }
    return best;
}

// Index of the first word of the list that `line` holds anywhere; the size of the list when it holds none.
// Whole blocks are tested for an anchor at once.
template <class Unit>
std::size_t find_encoding_word(View<Unit> line) noexcept {
    std::size_t best = kEncodingWords.size();
    const auto look_closely = [&](std::size_t begin, std::size_t end) {
        for (std::size_t at = begin; at < end; ++at) {
            if (is_anchor(line[at])) best = better_word_around(line, at, best);
        }
    };
    constexpr std::size_t kBlock = kBlockUnits<Unit>;
    const auto has_anchor = [&](std::size_t begin) {
        const auto block = load_block(line.data() + begin);
        return any_unit(equal_to(block, 'B') | equal_to(block, 'Q') | equal_to(block, 'G'));
    };
    if (line.size() < kBlock) {
        look_closely(0, line.size());
        return best;
    }
    const std::size_t last = line.size() - kBlock;  // the last block overlaps the one before
    for (std::size_t at = 0; at < last && best > 0; at += kBlock) {
        if (has_anchor(at)) look_closely(at, at + kBlock);
    }
    if (has_anchor(last)) look_closely(last, line.size());
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
BasicVersitProperty<Unit>::BasicVersitProperty(View text) noexcept : text_(text) {
    const auto end = std::find_if(text.begin(), text.end(),
                                  [](Unit unit) { return unit == Unit(';') || unit == Unit(':'); });
    if (end == text.end()) return;
    name_end_ = static_cast<std::size_t>(end - text.begin());
    colon_ = text.find(Unit(':'), name_end_);
}

template <class Unit>
std::basic_string<Unit> BasicVersitProperty<Unit>::name() const {
    return to_upper(raw_name());
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
