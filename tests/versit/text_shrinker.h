// Makes a text that fails a test as short as it can while it still fails.
#pragma once

#include <cstddef>

namespace vzapi::test {

// Takes out ever smaller pieces for as long as `still_fails(text)` holds. REQUIRES: it holds for `text`.
template <class Text, class StillFails>
Text shrunk(Text text, StillFails still_fails) {
    for (std::size_t length = text.size(); length > 0; length /= 2) {
        for (std::size_t at = 0; at < text.size();) {
            Text shorter = text;
            shorter.erase(at, length);
            if (still_fails(shorter)) {
                text = shorter;
            } else {
                ++at;
            }
        }
    }
    return text;
}

}  // namespace vzapi::test
