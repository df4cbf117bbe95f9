// How many generated inputs the differential tests take: VZAPI_DIFFERENTIAL_TEXTS, or enough for every day.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <string>

namespace vzapi::test {

inline constexpr std::size_t kEverydayTexts = 50'000;
inline constexpr std::size_t kAllTexts = 1'000'000;

// Throws std::invalid_argument for a value that is no number.
inline std::size_t differential_text_count() {
    const char* count = std::getenv("VZAPI_DIFFERENTIAL_TEXTS");
    return count == nullptr ? kEverydayTexts : std::stoul(count);
}

}  // namespace vzapi::test
