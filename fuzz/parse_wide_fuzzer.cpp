// The UTF-16 parser against the literal one. Behind an odd first byte stand UTF-16LE units; behind an even
// one each byte is a unit, which reaches the rules for ASCII sooner.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz_check.h"
#include "reference/line_list_comparison.h"
#include "reference/wide_parser_reference.h"
#include "versit/parser.h"

namespace {

std::vector<char16_t> units_of(const std::uint8_t* data, std::size_t size) {
    std::vector<char16_t> units;
    const std::size_t width = size > 0 && data[0] % 2 == 1 ? 2 : 1;
    for (std::size_t i = 1; i + width <= size; i += width) {
        const unsigned high = width == 2 ? data[i + 1] : 0U;
        units.push_back(static_cast<char16_t>(data[i] + high * 256));
    }
    return units;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi;
    if (size > fuzz::kLongestInput) return 0;
    const std::vector<char16_t> units = units_of(data, size);
    const std::u16string text(units.begin(), units.end());
    const versit::WideVersitObject object = versit::parse_wide({units.data(), units.size()});
    std::vector<std::u16string> lines;
    for (const versit::WideVersitProperty& line : object.lines()) lines.emplace_back(line.text());
    reference::BodyRanges bodies;
    for (const versit::LineRange& body : object.bodies()) bodies.emplace_back(body.begin, body.end);
    const reference::WideParse expected = reference::parse_wide(text);
    const std::string difference = reference::line_difference<char16_t>(expected.lines, lines) +
                                   reference::body_difference(expected.bodies, bodies);
    fuzz::check(difference.empty(), reference::literal_of(text) + "\n" + difference);
    return 0;
}
