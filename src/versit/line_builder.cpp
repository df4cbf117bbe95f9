#include "versit/line_builder.h"

#include <algorithm>

#include "platform/utf8.h"
#include "versit/ascii.h"
#include "versit/base64.h"
#include "versit/property_line.h"
#include "versit/quoted_printable.h"

namespace vzapi::versit {
namespace {

constexpr std::size_t kWidth = 76;  // columns of a physical line, line end not counted (RFC 2045)
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kSoftBreak = "=\r\n";
constexpr std::string_view kFold = "\r\n ";
constexpr std::string_view kQuotedPrintableUtf8 = ";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8";

constexpr std::size_t kEscapeLength = 3;       // "=C3"
constexpr std::size_t kMostTrailingBytes = 3;  // of one character in UTF-8

// Room for `more` characters at once; what there is grows at least twofold, so that many small lines stay
// cheap.
void make_room(std::string& text, std::size_t more) {
    const std::size_t needed = text.size() + more;
    if (needed > text.capacity()) text.reserve(std::max(needed, 2 * text.capacity()));
}

// Columns left on a line of `column` columns.
std::size_t room_after(std::size_t column) {
    return column < kWidth ? kWidth - column : 0;
}

// True when the escape of a second or later byte of a UTF-8 character (80 to BF) stands at `at`.
bool is_trailing_byte(std::string_view encoded, std::size_t at) {
    if (encoded.size() - at < kEscapeLength || encoded[at] != '=') return false;
    const char high = to_upper(encoded[at + 1]);
    return high == '8' || high == '9' || high == 'A' || high == 'B';
}

// `at`, or the start of the escape that `at` stands within.
std::size_t before_escape(std::string_view encoded, std::size_t at) {
    if (at >= 1 && encoded[at - 1] == '=') return at - 1;
    if (at >= 2 && encoded[at - 2] == '=') return at - 2;
    return at;
}

// The last place up to `limit` for a soft break: outside the escapes and, in well-formed UTF-8, between two
// characters.
std::size_t break_place(std::string_view encoded, std::size_t limit) {
    const std::size_t place = before_escape(encoded, limit);
    std::size_t start = place;
    for (std::size_t i = 0; i < kMostTrailingBytes && is_trailing_byte(encoded, start); ++i) {
        if (start < kEscapeLength || encoded[start - kEscapeLength] != '=') return place;
        start -= kEscapeLength;
    }
    return is_trailing_byte(encoded, start) ? place : start;
}

// How much of `encoded` goes on a line with `room` columns, one of which a soft break takes.
std::size_t length_on_line(std::string_view encoded, std::size_t room) {
    if (encoded.size() <= room) return encoded.size();
    return room == 0 ? 0 : break_place(encoded, room - 1);
}

// The one name that UTF-16 text knows and 8-bit text does not, with a group in front or without.
bool begins_nickname(std::string_view line) {
    return starts_with_ignoring_case(line, "NICKNAME") || contains_ignoring_case(line, ".NICKNAME");
}

// True when a reader would not take `line` for the continuation of the line before it, or take a blank off.
bool needs_escape_in_front(std::string_view line) {
    return is_blank(line.front()) || begins_known_property(line) || begins_nickname(line);
}

void append_softly_broken(std::string_view encoded, std::size_t column, std::string& out) {
    for (;;) {
        const std::size_t length = length_on_line(encoded, room_after(column));
        out.append(encoded.substr(0, length));
        encoded.remove_prefix(length);
        if (encoded.empty()) return;
        out.append(kSoftBreak);
        column = 0;
        if (needs_escape_in_front(encoded.substr(0, length_on_line(encoded, kWidth)))) {
            append_escape(encoded.front(), out);
            encoded.remove_prefix(1);
            column = kEscapeLength;
        }
    }
}

// NAME`parameters`: at the end of `out`; returns its length.
std::size_t append_head(std::string_view name, std::string_view parameters, std::string& out) {
    out.append(name).append(parameters).push_back(':');
    return name.size() + parameters.size() + 1;
}

}  // namespace

void LineBuilder::line(std::string_view text) {
    text_.append(text).append(kLineEnd);
}

void LineBuilder::property(std::string_view name, std::string_view parameters, std::u16string_view value,
                           ValueForm form) {
    const bool encode =
        form == ValueForm::QuotedPrintable || (form == ValueForm::Automatic && needs_encoding(value));
    if (!encode) {
        append_head(name, parameters, text_);
        platform::append_utf8(value, text_);
        text_.append(kLineEnd);
        return;
    }
    std::string encoded;
    append_quoted_printable(value, encoded);
    std::string all_parameters(parameters);
    all_parameters.append(kQuotedPrintableUtf8);
    quoted_printable(name, all_parameters, encoded);
}

void LineBuilder::property(std::string_view name, std::string_view parameters, std::string_view value) {
    append_head(name, parameters, text_);
    text_.append(value).append(kLineEnd);
}

void LineBuilder::quoted_printable(std::string_view name, std::string_view parameters,
                                   std::string_view encoded) {
    // A full line holds at least 64 columns of the value; a break takes three characters, an escape in front
    // two.
    make_room(text_, name.size() + parameters.size() + encoded.size() + encoded.size() / 64 * 5 + 16);
    const std::size_t head = append_head(name, parameters, text_);
    append_softly_broken(encoded, head, text_);
    text_.append(kLineEnd);
}

void LineBuilder::base64(std::string_view name, std::string_view parameters,
                         std::span<const std::byte> bytes) {
    std::string encoded;
    append_base64(bytes, encoded);
    const std::size_t folds = encoded.size() / (kWidth - 1) + 2;
    make_room(text_, name.size() + parameters.size() + encoded.size() + folds * kFold.size());
    const std::size_t head = append_head(name, parameters, text_);
    std::string_view rest = encoded;
    const std::size_t first = std::min(rest.size(), room_after(head));
    text_.append(rest.substr(0, first));
    rest.remove_prefix(first);
    const bool folded = !rest.empty();
    while (!rest.empty()) {
        text_.append(kFold).append(rest.substr(0, kWidth - 1));
        rest.remove_prefix(std::min(rest.size(), kWidth - 1));
    }
    text_.append(kLineEnd);
    if (folded) text_.append(kLineEnd);
}

}  // namespace vzapi::versit
