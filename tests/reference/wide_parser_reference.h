// The literal parser of UTF-16 text: the six passes over what stands outside message bodies, and the bodies'
// own lines in between, exactly as they are.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vzapi::reference {

struct WideParse {
    std::vector<std::u16string> lines;

    // For each body the index of its first line, and the index behind its last: that of the END:VBODY line,
    // or the end of the list.
    std::vector<std::pair<std::size_t, std::size_t>> bodies;

    friend bool operator==(const WideParse&, const WideParse&) = default;
};

// `text` counts up to its first NUL.
WideParse parse_wide(const std::u16string& text);

}  // namespace vzapi::reference
