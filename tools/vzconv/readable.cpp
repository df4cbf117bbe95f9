#include "vzconv/readable.h"

#include <algorithm>
#include <cstddef>

#include "vzconv/ascii.h"

namespace vzconv {
namespace {

constexpr std::size_t kIndent = 2;

// The picture of a C0 control or DEL (U+2400 to U+2421), which is three bytes.
void append_picture(std::string& out, unsigned char control) {
    const unsigned low = control == 0x7F ? 0x21 : control;
    out.append("\xE2\x90").push_back(static_cast<char>(0x80 + low));
}

// A C1 control (U+0080 to U+009F) is C2 and its own number in UTF-8; some terminals obey those too.
bool is_c1_control(std::string_view value, std::size_t at) {
    if (value[at] != '\xC2' || at + 1 == value.size()) return false;
    const auto second = static_cast<unsigned char>(value[at + 1]);
    return second >= 0x80 && second <= 0x9F;
}

// Embeddings, overrides and isolates: U+202A to U+202E, U+2066 to U+2069.
bool is_direction_control(std::string_view value, std::size_t at) {
    if (value.size() - at < 3 || value[at] != '\xE2') return false;
    const auto last = static_cast<unsigned char>(value[at + 2]);
    if (value[at + 1] == '\x80') return last >= 0xAA && last <= 0xAE;
    return value[at + 1] == '\x81' && last >= 0xA6 && last <= 0xA9;
}

void append_value(std::string& out, std::string_view value, std::size_t column) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto byte = static_cast<unsigned char>(value[i]);
        if (value[i] == '\n') {
            out.append("\n").append(column, ' ');
        } else if (value.substr(i).starts_with("\r\n")) {
            continue;
        } else if (is_c1_control(value, i)) {
            out.append("\xEF\xBF\xBD");
            ++i;
        } else if (is_direction_control(value, i)) {
            out.append("\xEF\xBF\xBD");
            i += 2;
        } else if ((byte < 0x20 && value[i] != '\t') || byte == 0x7F) {
            append_picture(out, byte);
        } else {
            out.push_back(value[i]);
        }
    }
}

bool is_space(char c) {
    return is_blank(c) || c == '\n' || c == '\r';
}

}  // namespace

std::string in_one_line(std::string_view value) {
    std::string spaced;
    for (const char c : value) {
        if (!is_space(c)) {
            spaced.push_back(c);
        } else if (!spaced.empty() && spaced.back() != ' ') {
            spaced.push_back(' ');
        }
    }
    if (spaced.ends_with(' ')) spaced.pop_back();
    std::string line;
    append_value(line, spaced, 0);
    return line;
}

Readable::Readable(std::string_view heading, std::size_t label_width)
    : heading_(heading), label_width_(label_width) {}

void Readable::field(std::string_view label, std::string_view value) {
    while (!value.empty() && is_space(value.back())) value.remove_suffix(1);
    fields_.append(kIndent, ' ')
        .append(label)
        .append(label_width_ - std::min(label.size(), label_width_ - 1), ' ');
    append_value(fields_, value, kIndent + label_width_);
    fields_.push_back('\n');
}

std::string Readable::text() const {
    return heading_ + "\n" + (fields_.empty() ? "  (empty)\n" : fields_);
}

}  // namespace vzconv
