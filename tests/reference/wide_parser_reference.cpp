#include "reference/wide_parser_reference.h"

#include <optional>

#include "reference/property_reference.h"
#include "reference/versit_parser_reference.h"

namespace vzapi::reference {
namespace {

// A line of the text as it stands: its text, and the CR LF or LF behind it (nothing behind the last one).
struct RawLine {
    std::u16string text;
    std::u16string end;
};

using RawLines = std::vector<RawLine>;

// Cut at CR LF or LF; behind a final line end there is no further line.
RawLines raw_lines(const std::u16string& text) {
    RawLines lines;
    RawLine line;
    for (const char16_t unit : text) {
        if (unit != u'\n') {
            line.text += unit;
            continue;
        }
        line.end = u"\n";
        if (ends_with(line.text, '\r')) {
            line.text.pop_back();
            line.end = u"\r\n";
        }
        lines.push_back(line);
        line = {};
    }
    if (!line.text.empty()) lines.push_back(line);
    return lines;
}

bool is_frame_line(const RawLine& line, const std::u16string& frame) {
    std::u16string text = line.text;
    while (ends_with(text, ' ') || ends_with(text, '\t')) text.pop_back();
    return upper_cased(text) == frame;
}

bool opens_body(const RawLine& line) {
    return is_frame_line(line, u"BEGIN:VBODY");
}
bool may_close_body(const RawLine& line) {
    return is_frame_line(line, u"END:VBODY");
}

// The line that closes the body whose first line would be `first`: the last END:VBODY before the next
// BEGIN:VBODY that has an END:VBODY between it and the opening; the end of the text when there is no
// END:VBODY.
std::size_t closing_line(const RawLines& lines, std::size_t first) {
    std::optional<std::size_t> last_end;
    for (std::size_t i = first; i < lines.size(); ++i) {
        if (opens_body(lines[i]) && last_end.has_value()) break;
        if (may_close_body(lines[i])) last_end = i;
    }
    return last_end.value_or(lines.size());
}

// Lines outside bodies as one text again. A bare LF before a line that begins a known property becomes CR LF.
std::u16string outside_text(const RawLines& lines, std::size_t first, std::size_t end) {
    std::u16string text;
    for (std::size_t i = first; i < end; ++i) {
        const bool begins_property = i + 1 < lines.size() && begins_known_property(lines[i + 1].text);
        const bool is_body_next = i + 1 == end && opens_body(lines[i]);
        text += lines[i].text;
        if (!is_body_next) text += begins_property ? u"\r\n" : lines[i].end;
    }
    return text;
}

// The index behind the BEGIN:VBODY line at or behind `first`, or the end of the text.
std::size_t outside_end(const RawLines& lines, std::size_t first) {
    for (std::size_t i = first; i < lines.size(); ++i) {
        if (opens_body(lines[i])) return i + 1;
    }
    return lines.size();
}

}  // namespace

WideParse parse_wide(const std::u16string& text) {
    const std::u16string visible = up_to_first_nul(text);
    const bool is_bookmark = is_bookmark_text(visible);
    const RawLines lines = raw_lines(visible);
    WideParse result;
    std::size_t next = 0;
    while (next < lines.size()) {
        const std::size_t first = outside_end(lines, next);
        for (const std::u16string& line : parse_passes(outside_text(lines, next, first), is_bookmark)) {
            result.lines.push_back(line);
        }
        if (!opens_body(lines[first - 1])) break;
        next = closing_line(lines, first);
        const std::size_t begin = result.lines.size();
        for (std::size_t i = first; i < next; ++i) result.lines.push_back(lines[i].text);
        result.bodies.emplace_back(begin, result.lines.size());
    }
    return result;
}

}  // namespace vzapi::reference
