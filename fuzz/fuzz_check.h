// How a fuzz target says that something is wrong: in words, then by abort(); a fuzzer then keeps the input.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace vzapi::fuzz {

// Longer inputs show nothing new, and the literal oracles take their time over them.
inline constexpr std::size_t kLongestInput = 1 << 14;

inline void check(bool holds, const std::string& what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

}  // namespace vzapi::fuzz
