// Sixteen bytes of text tested at once, for searches that mostly find nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vzapi::versit {

using ByteBlock [[gnu::vector_size(16)]] = std::uint8_t;
using UnitBlock [[gnu::vector_size(16)]] = std::uint16_t;

// How many units a block has.
template <class Unit>
inline constexpr std::size_t kBlockUnits = 16 / sizeof(Unit);

[[nodiscard]] inline ByteBlock load_block(const char* text) noexcept {
    ByteBlock block;
    std::memcpy(&block, text, sizeof block);
    return block;
}

[[nodiscard]] inline UnitBlock load_block(const char16_t* text) noexcept {
    UnitBlock block;
    std::memcpy(&block, text, sizeof block);
    return block;
}

// Comparisons of each unit of a block with an ASCII character.
[[nodiscard]] inline auto equal_to(ByteBlock block, char character) noexcept {
    return block == static_cast<std::uint8_t>(character);
}
[[nodiscard]] inline auto equal_to(UnitBlock block, char character) noexcept {
    return block == static_cast<std::uint16_t>(character);
}

// True when a comparison of blocks holds for any of their units.
template <class Comparison>
[[nodiscard]] bool any_unit(Comparison comparison) noexcept {
    std::array<std::uint64_t, 2> halves;
    static_assert(sizeof halves == sizeof comparison);
    std::memcpy(halves.data(), &comparison, sizeof comparison);
    return (halves[0] | halves[1]) != 0;
}

}  // namespace vzapi::versit
