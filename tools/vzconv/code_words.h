// Numbers of a record that stand for something, and the words that JSON has for them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vzconv {

struct CodeWord {
    uint32_t code;
    std::string_view word;
};

// Empty: the code has no word.
std::string_view word_of(std::span<const CodeWord> words, uint32_t code);

std::optional<uint32_t> code_of(std::span<const CodeWord> words, std::string_view word);

// The access classes, VZ_CLASS_..., of contacts and calendar entries.
std::span<const CodeWord> class_words();

}  // namespace vzconv
