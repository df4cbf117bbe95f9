#include "platform/xml_characters.h"

#include <algorithm>
#include <iterator>

namespace vzapi::platform {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// What a name may begin with, in the order of the characters.
constexpr Range kNameStart[] = {
    {U':', U':'},     {U'A', U'Z'},     {U'_', U'_'},     {U'a', U'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

// What a name may hold besides.
constexpr Range kNameOnly[] = {
    {U'-', U'.'}, {U'0', U'9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template <std::size_t count>
bool is_in(const Range (&ranges)[count], char32_t code) noexcept {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [code](const Range& range) { return code >= range.first && code <= range.last; });
}

}  // namespace

bool may_begin_xml_name(char32_t code) noexcept {
    return is_in(kNameStart, code);
}

bool may_continue_xml_name(char32_t code) noexcept {
    return is_in(kNameStart, code) || is_in(kNameOnly, code);
}

}  // namespace vzapi::platform
