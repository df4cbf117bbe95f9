// Texts that are hard on a parser: what a phone might write, what a broken one might, and what nobody would.
// The same seed gives the same texts on every platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vzapi::test {

class VersitTextGenerator {
public:
    explicit VersitTextGenerator(std::uint64_t seed) : random_(seed) {}

    // A whole text, short but for one in a thousand: pieces in any order, well-formed
    // lines, or an object; as it is or mutated.
    [[nodiscard]] std::string text();

    // The same for the UTF-16 side, with message bodies; bytes above 127 become units that a parser looking
    // at one byte of two would take for CR, LF, '=' and the like.
    [[nodiscard]] std::u16string wide_text();

    // Something like one logical line, for the accessors.
    [[nodiscard]] std::string line();

    // Something like Base64 or quoted-printable, for the decoders.
    [[nodiscard]] std::string encoded_value();

    // Any bytes, and any UTF-16 text with paired and unpaired surrogates, for the encoders.
    [[nodiscard]] std::string bytes();
    [[nodiscard]] std::u16string value();

private:
    std::size_t below(std::size_t limit);
    bool one_in(std::size_t count) { return below(count) == 0; }
    std::string pick(std::span<const std::string_view> pieces);
    std::string pieces(std::size_t most);
    std::string blanks(std::size_t most);
    std::string line_end();
    std::string line_head();
    std::string property();
    std::string soft_broken_property();
    std::string base64_property();
    std::string framed(std::size_t most);
    std::string mutated(std::string text);

    std::mt19937_64 random_;
};

// As VersitTextGenerator::wide_text() does it.
[[nodiscard]] std::u16string widened(std::string_view text);

// Calls `visit` with every sequence of up to `longest` of `tokens`, joined, the empty one first.
template <class Visit>
void for_each_sequence(std::span<const std::string_view> tokens, std::size_t longest, Visit visit) {
    std::vector<std::size_t> places;
    while (true) {
        std::string text;
        for (const std::size_t place : places) text += tokens[place];
        visit(text);
        std::size_t i = 0;
        while (i < places.size() && places[i] + 1 == tokens.size()) places[i++] = 0;
        if (i < places.size()) {
            ++places[i];
        } else if (places.size() < longest) {
            places.push_back(0);
        } else {
            return;
        }
    }
}

}  // namespace vzapi::test
