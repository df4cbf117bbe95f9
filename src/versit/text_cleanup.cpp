#include "versit/text_cleanup.h"

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

}  // namespace vzapi::versit
