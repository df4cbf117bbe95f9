#include "vzconv/email_document.h"

#include <cstddef>

namespace vzconv {
namespace {

constexpr std::string_view kSpace = " \t\r\n";

}  // namespace

bool is_email_document(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kSpace);
    if (begin == std::string_view::npos || text[begin] != '<') return false;
    const std::string_view tag = kEmailElement.substr(0, kEmailElement.size() - 1);
    for (std::size_t at = text.find(tag, begin); at != std::string_view::npos; at = text.find(tag, at + 1)) {
        const std::size_t behind = at + tag.size();
        if (behind == text.size()) return false;
        const char next = text[behind];
        if (next == '>' || next == '/' || kSpace.find(next) != std::string_view::npos) return true;
    }
    return false;
}

}  // namespace vzconv
