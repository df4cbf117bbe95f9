// Phone books of any size for the benchmarks: the same text for the same size on every machine.
#pragma once

#include <cstddef>
#include <string>

namespace vzapi::bench {

// `count` vCards 2.1, about a dozen lines each: every third with quoted-printable UTF-8 values, every
// twentieth with a Base64 photo of some 3 KB.
[[nodiscard]] std::string card_corpus(std::size_t count);

// `value` folded over `lines` physical lines of one property, framed as a vCard.
[[nodiscard]] std::string folded_card(std::size_t lines);

}  // namespace vzapi::bench
