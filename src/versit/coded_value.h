// Values that stand for a number: a word of a table, or decimal digits.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vzapi::versit {

// A number of a record and the word that stands for it in a line.
struct WordRow {
    std::uint32_t code;
    std::string_view word;  // as written
};

// The access class of contacts and calendar entries: PRIVATE, PUBLIC, NONE, in the order of the VZ_CLASS_
// codes.
[[nodiscard]] std::span<const WordRow> class_words() noexcept;

// The code of the first row whose word is `text`, without regard to case and to blanks around it; nothing
// when it is none of them.
[[nodiscard]] std::optional<std::uint32_t> find_code(std::span<const WordRow> rows,
                                                     std::u16string_view text) noexcept;

// The word of the first row with that code; empty when none has it.
[[nodiscard]] std::string_view find_word(std::span<const WordRow> rows, std::uint32_t code) noexcept;

// The number that `text` is: decimal digits alone, blanks around them allowed. Nothing for an empty text and
// for a number of more than 32 bits; leading zeros do not count.
[[nodiscard]] std::optional<std::uint32_t> parse_number(std::u16string_view text) noexcept;

}  // namespace vzapi::versit
