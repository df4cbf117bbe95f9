#include "vzconv/charset_marks.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "vzconv/ascii.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kMark = ";CHARSET=UTF-8";

bool is_beyond_ascii(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

bool contains_ignoring_case(std::string_view text, std::string_view upper_word) {
    return std::search(text.begin(), text.end(), upper_word.begin(), upper_word.end(),
                       [](char a, char b) { return upper(a) == b; }) != text.end();
}

// A property with all its physical lines.
struct PropertyLine {
    std::size_t begin;       // where it stands in the object
    std::string_view head;   // name and parameters; empty when there is no value
    std::string_view value;  // behind the colon, with its line ends
    bool is_quoted;          // quoted-printable
};

// Walks the properties of an object. A line that begins with a blank, or is empty, continues the one above;
// so does any line behind a soft line break of a quoted-printable value.
class PropertyLines {
public:
    explicit PropertyLines(std::string_view object) : object_(object) {}

    bool next(PropertyLine& line) {
        if (at_ == object_.size()) return false;
        const std::size_t begin = at_;
        bool in_head = true;
        bool is_quoted = false;
        std::string_view last;
        do {
            last = take();
            const std::size_t colon = last.find(':');
            if (in_head && is_quoted_printable(last.substr(0, colon))) is_quoted = true;
            in_head = in_head && colon == std::string_view::npos;
        } while (at_ < object_.size() && (continues() || (is_quoted && last.ends_with('='))));
        const std::string_view text = object_.substr(begin, at_ - begin);
        const std::size_t colon = text.find(':');
        line = {begin, {}, {}, is_quoted};
        if (colon != std::string_view::npos) {
            line.head = text.substr(0, colon);
            line.value = text.substr(colon + 1);
        }
        return true;
    }

private:
    static bool is_quoted_printable(std::string_view head) {
        return contains_ignoring_case(head, "QUOTED-PRINTABLE");
    }

    // The next physical line without its line end.
    std::string_view take() {
        const std::size_t begin = at_;
        const std::size_t end = std::min(object_.find(kLineEnd, begin), object_.size());
        at_ = std::min(end + kLineEnd.size(), object_.size());
        return object_.substr(begin, end - begin);
    }

    bool continues() const {
        const char first = object_[at_];
        return is_blank(first) || first == '\n' || object_.substr(at_).starts_with(kLineEnd);
    }

    std::string_view object_;
    std::size_t at_ = 0;
};

bool names_charset(std::string_view head) {
    std::string unfolded;
    for (std::size_t i = 0; i < head.size(); ++i) {
        if (head.substr(i).starts_with(kLineEnd)) {
            i += kLineEnd.size();
        } else {
            unfolded.push_back(upper(head[i]));
        }
    }
    for (std::size_t at = unfolded.find(';'); at != std::string::npos; at = unfolded.find(';', at + 1)) {
        const std::string_view parameter = std::string_view(unfolded).substr(at + 1);
        const std::size_t name_end = parameter.find_first_of("=;");
        if (trimmed(parameter.substr(0, name_end)) == "CHARSET") return true;
    }
    return false;
}

int hexadecimal_digit(char c) {
    const char letter = upper(c);
    if (letter >= '0' && letter <= '9') return letter - '0';
    return letter >= 'A' && letter <= 'F' ? letter - 'A' + 10 : -1;
}

// Appends the bytes of the line that are the text of its value: line ends and folds, which may stand between
// the bytes of one character, are none of it, and escapes are undone.
void append_value(std::string& bytes, const PropertyLine& line) {
    const std::string_view value = line.value;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const std::string_view rest = value.substr(i);
        if (line.is_quoted && rest.starts_with("=\r\n")) {
            i += 2;
        } else if (rest.starts_with(kLineEnd)) {
            const bool is_fold = rest.size() > 2 && is_blank(rest[2]);
            i += is_fold ? 2 : 1;
        } else if (line.is_quoted && rest.size() > 2 && rest[0] == '=' && hexadecimal_digit(rest[1]) >= 0 &&
                   hexadecimal_digit(rest[2]) >= 0) {
            bytes.push_back(static_cast<char>(hexadecimal_digit(rest[1]) << 4 | hexadecimal_digit(rest[2])));
            i += 2;
        } else {
            bytes.push_back(value[i]);
        }
    }
}

// Bytes above 127 in the value, or escapes of such: what may need a charset.
bool may_need_charset(const PropertyLine& line) {
    if (line.head.empty()) return false;
    return line.is_quoted || std::any_of(line.value.begin(), line.value.end(), is_beyond_ascii);
}

// Where in `object` a mark belongs, in ascending order; none when it must stay as it is.
std::vector<std::size_t> places_for_marks(std::string_view object, TextCharset charset) {
    std::vector<std::size_t> places;
    PropertyLines lines(object);
    std::string bytes;
    for (PropertyLine line; lines.next(line);) {
        if (!may_need_charset(line) || names_charset(line.head)) continue;
        bytes.clear();
        append_value(bytes, line);
        if (std::none_of(bytes.begin(), bytes.end(), is_beyond_ascii)) continue;
        if (charset == TextCharset::Unknown && !is_utf8(bytes)) return {};
        places.push_back(line.begin + line.head.size());
    }
    return places;
}

}  // namespace

std::string_view with_charset_marks(std::string_view object, TextCharset charset, std::string& storage) {
    const std::vector<std::size_t> places = places_for_marks(object, charset);
    if (places.empty()) return object;
    std::string marked;
    marked.reserve(object.size() + places.size() * kMark.size());
    std::size_t copied = 0;
    for (const std::size_t place : places) {
        marked.append(object, copied, place - copied).append(kMark);
        copied = place;
    }
    marked.append(object, copied);
    storage = std::move(marked);
    return storage;
}

}  // namespace vzconv
