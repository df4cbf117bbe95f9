// The 8-bit parser against the literal one.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_check.h"
#include "reference/line_list_comparison.h"
#include "reference/versit_parser_reference.h"
#include "versit/parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi;
    if (size > fuzz::kLongestInput) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> lines;
    const versit::VersitObject object = versit::parse(text);
    for (const versit::VersitProperty& line : object.lines()) lines.emplace_back(line.text());
    const std::string difference =
        reference::line_difference<char>(reference::parse(std::string(text)), lines);
    fuzz::check(difference.empty(), reference::literal_of(std::string(text)) + "\n" + difference);
    fuzz::check(object.bodies().empty(), "8-bit text has no bodies");
    return 0;
}
