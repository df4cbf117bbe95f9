#include "versit/text_cleanup.h"

#include <algorithm>

namespace vzapi::versit {
namespace {

constexpr bool is_removed(char16_t unit) {
    const bool kept_control = unit == u'\t' || unit == u'\r' || unit == u'\n';
    return (unit < u' ' && !kept_control) || unit == u'\x7F';
}

}  // namespace

std::u16string clean_text(std::u16string_view text) {
    std::u16string clean(text);
    std::erase_if(clean, is_removed);
    return clean;
}

std::u16string_view clean_text(std::u16string_view text, std::u16string& storage) {
    if (std::none_of(text.begin(), text.end(), is_removed)) return text;
    storage = clean_text(text);
    return storage;
}

}  // namespace vzapi::versit
