#include "vzconv/text_lines.h"

#include <algorithm>

namespace vzconv {
namespace {

// The first `wanted` at or behind `from`; the length of the text when there is none.
std::size_t position_of(std::string_view text, char wanted, std::size_t from) {
    return std::min(text.find(wanted, from), text.size());
}

}  // namespace

bool TextLines::next(TextLine& line) {
    if (at_ >= text_.size()) return false;
    if (!started_ || next_cr_ < at_) next_cr_ = position_of(text_, '\r', at_);
    if (!started_ || next_lf_ < at_) next_lf_ = position_of(text_, '\n', at_);
    started_ = true;
    const std::size_t end = std::min(next_cr_, next_lf_);
    std::size_t ending = end == text_.size() ? 0 : 1;
    if (ending == 1 && next_cr_ + 1 == next_lf_) ending = 2;
    line = {text_.substr(at_, end - at_), text_.substr(end, ending), at_, ++number_};
    at_ = end + ending;
    return true;
}

}  // namespace vzconv
