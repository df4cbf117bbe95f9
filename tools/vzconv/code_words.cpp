#include "vzconv/code_words.h"

#include "vzapi/vzapi.h"

namespace vzconv {
namespace {

constexpr CodeWord kClassWords[] = {
    {VZ_CLASS_PRIVATE, "private"},
    {VZ_CLASS_PUBLIC, "public"},
    {VZ_CLASS_NONE, "none"},
};

}  // namespace

std::string_view word_of(std::span<const CodeWord> words, uint32_t code) {
    for (const CodeWord& row : words) {
        if (row.code == code) return row.word;
    }
    return {};
}

std::optional<uint32_t> code_of(std::span<const CodeWord> words, std::string_view word) {
    for (const CodeWord& row : words) {
        if (row.word == word) return row.code;
    }
    return std::nullopt;
}

std::span<const CodeWord> class_words() {
    return kClassWords;
}

}  // namespace vzconv
