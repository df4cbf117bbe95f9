#include "vzconv/line_ends.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "vzconv/ascii.h"

namespace vzconv {
namespace {

// The object taken apart: BEGIN line, what is between, END line; the line ends of the first two apart.
struct Frame {
    std::string_view first, first_end, middle, middle_end, last;
};

std::size_t ending_size_at(std::string_view text, std::size_t at) {
    return text.substr(at).starts_with("\r\n") ? 2 : 1;
}

// `object` runs from its BEGIN line to its END line, which are two lines at least.
Frame frame_of(std::string_view object) {
    std::size_t end = object.size();
    while (end > 0 && (object[end - 1] == '\r' || object[end - 1] == '\n')) --end;
    const std::size_t last_begin = object.find_last_of("\r\n", end - 1) + 1;
    const std::size_t first_size = object.find_first_of("\r\n");
    const std::size_t ending = ending_size_at(object, first_size);
    Frame frame{};
    frame.first = object.substr(0, first_size);
    frame.first_end = object.substr(first_size, ending);
    frame.last = object.substr(last_begin, end - last_begin);
    const std::size_t middle_begin = first_size + ending;
    frame.middle = object.substr(middle_begin, last_begin - middle_begin);
    frame.middle_end = frame.first_end;
    if (!frame.middle.empty()) {
        frame.middle_end = frame.middle.substr(frame.middle.size() - 1);
        if (frame.middle.ends_with("\r\n")) frame.middle_end = "\r\n";
    }
    return frame;
}

// Whether the character at `at` is a bare line end of the kind `bare`.
bool is_bare(std::string_view text, std::size_t at, char bare) {
    if (text[at] != bare) return false;
    if (bare == '\n') return at == 0 || text[at - 1] != '\r';
    return at + 1 == text.size() || text[at + 1] != '\n';
}

void append_with_line_ends(std::string& out, std::string_view text, char bare) {
    std::size_t copied = 0;
    for (std::size_t at = text.find(bare); at != std::string_view::npos; at = text.find(bare, at + 1)) {
        if (!is_bare(text, at, bare)) continue;
        out.append(text, copied, at - copied).append("\r\n");
        copied = at + 1;
    }
    out.append(text, copied);
}

void append_without_blanks(std::string& out, std::string_view marker) {
    std::copy_if(marker.begin(), marker.end(), std::back_inserter(out), [](char c) { return !is_blank(c); });
    out.append("\r\n");
}

bool has_blanks(std::string_view line) {
    return line.find_first_of(" \t") != std::string_view::npos;
}

}  // namespace

std::string_view with_library_line_ends(std::string_view object, std::string& storage) {
    const Frame frame = frame_of(object);
    const auto either_is = [&](std::string_view end) {
        return frame.first_end == end || frame.middle_end == end;
    };
    const char bare = either_is("\n") ? '\n' : either_is("\r") ? '\r' : '\0';
    if (bare == '\0' && !has_blanks(frame.first) && !has_blanks(frame.last)) return object;
    const auto ends = bare == '\0' ? 0 : std::count(frame.middle.begin(), frame.middle.end(), bare);
    storage.clear();
    storage.reserve(object.size() + static_cast<std::size_t>(ends) + 4);
    append_without_blanks(storage, frame.first);
    if (bare == '\0') {
        storage.append(frame.middle);
    } else {
        append_with_line_ends(storage, frame.middle, bare);
    }
    append_without_blanks(storage, frame.last);
    return storage;
}

}  // namespace vzconv
