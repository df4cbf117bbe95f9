#include "versit/coded_value.h"

#include <algorithm>

#include "versit/ascii.h"
#include "vzapi/base.h"

namespace vzapi::versit {
namespace {

constexpr WordRow kClassWords[] = {
    {VZ_CLASS_PRIVATE, "PRIVATE"},
    {VZ_CLASS_PUBLIC, "PUBLIC"},
    {VZ_CLASS_NONE, "NONE"},
};

bool is_word(std::u16string_view text, std::string_view word) noexcept {
    return text.size() == word.size() &&
           std::equal(text.begin(), text.end(), word.begin(), [](char16_t unit, char letter) {
               return to_upper(unit) == static_cast<char16_t>(to_upper(letter));
           });
}

}  // namespace

std::span<const WordRow> class_words() noexcept {
    return kClassWords;
}

std::optional<std::uint32_t> find_code(std::span<const WordRow> rows, std::u16string_view text) noexcept {
    text = trim_blanks(text);
    for (const WordRow& row : rows) {
        if (is_word(text, row.word)) return row.code;
    }
    return std::nullopt;
}

std::string_view find_word(std::span<const WordRow> rows, std::uint32_t code) noexcept {
    const auto row =
        std::find_if(rows.begin(), rows.end(), [code](const WordRow& each) { return each.code == code; });
    return row == rows.end() ? std::string_view() : row->word;
}

std::optional<std::uint32_t> parse_number(std::u16string_view text) noexcept {
    text = trim_blanks(text);
    if (text.empty()) return std::nullopt;
    std::uint64_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') return std::nullopt;
        number = number * 10 + (unit - u'0');
        if (number > UINT32_MAX) return std::nullopt;
    }
    return static_cast<std::uint32_t>(number);
}

}  // namespace vzapi::versit
