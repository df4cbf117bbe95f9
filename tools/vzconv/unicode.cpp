#include "vzconv/unicode.h"

#include <cstddef>
#include <optional>

namespace vzconv {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool is_high_surrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool is_low_surrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Whether a surrogate pair stands at `at`.
bool is_pair_at(std::u16string_view text, std::size_t at) {
    return is_high_surrogate(text[at]) && at + 1 < text.size() && is_low_surrogate(text[at + 1]);
}

// The first unpaired surrogate at or behind `at`, where no pair is cut.
std::size_t next_unpaired_surrogate(std::u16string_view text, std::size_t at) {
    while (at < text.size()) {
        if (is_pair_at(text, at)) {
            at += 2;
        } else if (is_high_surrogate(text[at]) || is_low_surrogate(text[at])) {
            break;
        } else {
            ++at;
        }
    }
    return at;
}

void append_utf8(std::string& out, char32_t code) {
    const auto byte = [&out](char32_t value) { out.push_back(static_cast<char>(value)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6));
        byte(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        byte(0xE0 | (code >> 12));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    } else {
        byte(0xF0 | (code >> 18));
        byte(0x80 | ((code >> 12) & 0x3F));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    }
}

void append_utf16(std::u16string& out, char32_t code) {
    if (code < 0x10000) {
        out.push_back(static_cast<char16_t>(code));
        return;
    }
    out.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
}

// What a lead byte promises: how many bytes follow, and which values the first of them may have (the rest may
// have 80 to BF). The bounds keep out overlong forms, surrogates and what lies above U+10FFFF.
struct Lead {
    unsigned char first, last;
    unsigned char following;
    unsigned char low, high;
    unsigned char bits;
};

constexpr Lead kLeads[] = {
    {0xC2, 0xDF, 1, 0x80, 0xBF, 0x1F},  //
    {0xE0, 0xE0, 2, 0xA0, 0xBF, 0x0F},  //
    {0xE1, 0xEC, 2, 0x80, 0xBF, 0x0F},  //
    {0xED, 0xED, 2, 0x80, 0x9F, 0x0F},  //
    {0xEE, 0xEF, 2, 0x80, 0xBF, 0x0F},  //
    {0xF0, 0xF0, 3, 0x90, 0xBF, 0x07},  //
    {0xF1, 0xF3, 3, 0x80, 0xBF, 0x07},  //
    {0xF4, 0xF4, 3, 0x80, 0x8F, 0x07},  //
};

const Lead* lead_of(unsigned char byte) {
    for (const Lead& lead : kLeads) {
        if (byte >= lead.first && byte <= lead.last) return &lead;
    }
    return nullptr;
}

// Takes the code point that begins at `at` and moves `at` behind it; of an ill-formed sequence the maximal
// part, which is nothing that UTF-8 can say.
std::optional<char32_t> next_code_point(std::string_view text, std::size_t& at) {
    const auto byte_at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte_at(at++);
    if (first < 0x80) return first;
    const Lead* lead = lead_of(first);
    if (lead == nullptr) return std::nullopt;
    char32_t code = static_cast<char32_t>(first & lead->bits);
    for (int i = 0; i < lead->following; ++i) {
        const unsigned low = i == 0 ? lead->low : 0x80;
        const unsigned high = i == 0 ? lead->high : 0xBF;
        if (at == text.size() || byte_at(at) < low || byte_at(at) > high) return std::nullopt;
        code = (code << 6) | (byte_at(at++) & 0x3FU);
    }
    return code;
}

}  // namespace

std::string utf8_from_utf16(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (is_pair_at(text, i)) {
            const char32_t high = unit - 0xD800U;
            const char32_t low = text[++i] - 0xDC00U;
            append_utf8(out, 0x10000 + (high << 10) + low);
        } else if (is_high_surrogate(unit) || is_low_surrogate(unit)) {
            append_utf8(out, kReplacement);
        } else {
            append_utf8(out, unit);
        }
    }
    return out;
}

std::size_t unpaired_surrogates_in(std::u16string_view text) {
    std::size_t count = 0;
    std::size_t at = next_unpaired_surrogate(text, 0);
    for (; at < text.size(); at = next_unpaired_surrogate(text, at + 1)) ++count;
    return count;
}

std::size_t first_unpaired_surrogate(std::u16string_view text) {
    return next_unpaired_surrogate(text, 0);
}

std::string text_of(const char16_t* text) {
    return text == nullptr ? std::string() : utf8_from_utf16(text);
}

std::u16string utf16_from_utf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        append_utf16(out, next_code_point(text, at).value_or(kReplacement));
    }
    return out;
}

bool is_utf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (!next_code_point(text, at)) return false;
    }
    return true;
}

}  // namespace vzconv
