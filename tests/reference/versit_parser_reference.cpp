#include "reference/versit_parser_reference.h"

#include <cstddef>
#include <list>

#include "reference/property_reference.h"

namespace vzapi::reference {
namespace {

constexpr char kEscape = 0x1B;

template <class Unit>
struct PhysicalLine {
    Text<Unit> text;
    bool is_soft = false;          // ended in '=' before pass 3 took it off
    bool follows_bare_lf = false;  // begins with the blank that pass 1 put there
};

template <class Unit>
using PhysicalLines = std::vector<PhysicalLine<Unit>>;

template <class Unit>
bool is_bare_lf(const Text<Unit>& text, std::size_t i) {
    return text[i] == Unit('\n') && (i == 0 || text[i - 1] != Unit('\r'));
}

// For each LF of the text, in order, whether it is bare. No pass adds or removes a LF before the text is cut
// at them, so the entry says how the piece of the same number ends.
template <class Unit>
std::vector<bool> bare_line_feeds(const Text<Unit>& text) {
    std::vector<bool> bare;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == Unit('\n')) bare.push_back(is_bare_lf(text, i));
    }
    return bare;
}

template <class Unit>
Text<Unit> pass_1_mark_bare_line_feeds(const Text<Unit>& text) {
    Text<Unit> marked;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (is_bare_lf(text, i)) {
            marked += {Unit(kEscape), Unit('\n'), Unit(' ')};
        } else {
            marked += text[i];
        }
    }
    return marked;
}

template <class Unit>
Text<Unit> pass_2_line_ends(const Text<Unit>& text) {
    Text<Unit> result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool is_pair = text[i] == Unit('\r') && i + 1 < text.size() && text[i + 1] == Unit('\n');
        if (is_pair) ++i;
        result += text[i];
    }
    return result;
}

template <class Unit>
PhysicalLine<Unit> piece_before_lf(Text<Unit> piece, bool is_bookmark) {
    const bool is_soft = ends_with(piece, '=');
    if (!is_bookmark && is_soft && !contains(piece, "QUOTED-PRINTABLE")) piece.pop_back();
    return {piece, is_soft, false};
}

template <class Unit>
PhysicalLines<Unit> pass_3_split(const Text<Unit>& text, const std::vector<bool>& bare, bool is_bookmark) {
    PhysicalLines<Unit> lines;
    Text<Unit> piece;
    for (const Unit unit : text) {
        if (unit == Unit('\n')) {
            lines.push_back(piece_before_lf(piece, is_bookmark));
            piece.clear();
        } else {
            piece += unit;
        }
    }
    if (!piece.empty()) lines.push_back({piece, ends_with(piece, '='), false});
    for (std::size_t i = 1; i < lines.size(); ++i) lines[i].follows_bare_lf = bare[i - 1];
    while (!lines.empty() && lines.back().text.empty()) lines.pop_back();
    return lines;
}

template <class Unit>
bool is_property_line(const PhysicalLine<Unit>& line, bool loose_form_suffices) {
    if (line.follows_bare_lf) return false;
    return begins_known_property(line.text) || (loose_form_suffices && has_property_form(line.text));
}

template <class Unit>
PhysicalLines<Unit> pass_4_mark_soft_breaks(PhysicalLines<Unit> lines, bool is_bookmark) {
    if (is_bookmark) return lines;
    bool is_run = false;
    bool is_predecessor_soft = false;
    for (PhysicalLine<Unit>& line : lines) {
        if (is_property_line(line, !is_run || !is_predecessor_soft)) {
            is_run = line.is_soft && contains_in_any_case(line.text, "QUOTED-PRINTABLE");
        } else if (is_run && !line.follows_bare_lf) {
            line.text.insert(line.text.begin(), Unit(' '));
        }
        is_predecessor_soft = line.is_soft;
    }
    return lines;
}

template <class Unit>
bool is_leading_blank(Unit unit) {
    return unit == Unit(' ') || unit == Unit('\t') || unit == Unit('\n');
}

template <class Unit>
bool is_head_line(const Text<Unit>& line) {
    return !line.empty() && !is_leading_blank(line.front());
}

template <class Unit>
bool mentions_base64(const Text<Unit>& line) {
    return contains_in_any_case(line, "B") && contains_in_any_case(line, "BASE64");
}

// The head line that the continuation line `index` belongs to; empty when there is none.
template <class Unit>
Text<Unit> head_line_of(const std::vector<Text<Unit>>& lines, std::size_t index) {
    while (index > 0) {
        --index;
        if (is_head_line(lines[index])) return lines[index];
    }
    return {};
}

template <class Unit>
Text<Unit> without_soft_break(Text<Unit> line) {
    if (contains_in_any_case(line, "QUOTED-PRINTABLE") && ends_with(line, '=')) line.pop_back();
    return line;
}

template <class Unit>
Text<Unit> without_leading_blank(Text<Unit> line, bool is_base64) {
    if (!is_base64) return line.substr(line.empty() ? 0 : 1);
    while (!line.empty() && is_leading_blank(line.front())) line.erase(line.begin());
    return line;
}

template <class Unit>
std::vector<Text<Unit>> with_line_feeds_for_escapes(const PhysicalLines<Unit>& physical_lines) {
    std::vector<Text<Unit>> lines;
    for (const PhysicalLine<Unit>& physical_line : physical_lines) {
        Text<Unit> line = physical_line.text;
        if (ends_with(line, kEscape)) line.back() = Unit('\n');
        lines.push_back(line);
    }
    return lines;
}

// What is left in the accumulator at the end, continuation lines without a head line, is dropped.
template <class Unit>
std::list<Text<Unit>> pass_5_unfold(const PhysicalLines<Unit>& physical_lines) {
    const std::vector<Text<Unit>> lines = with_line_feeds_for_escapes(physical_lines);
    std::list<Text<Unit>> result;
    Text<Unit> accumulator;
    for (std::size_t i = lines.size(); i-- > 0;) {
        const Text<Unit> line = without_soft_break(lines[i]);
        if (is_head_line(lines[i])) {
            result.push_front(line + accumulator);
            accumulator.clear();
        } else {
            const bool is_base64 = mentions_base64(lines[i]) || mentions_base64(head_line_of(lines, i));
            accumulator.insert(0, without_leading_blank(line, is_base64));
        }
    }
    return result;
}

template <class Unit>
std::list<Text<Unit>> pass_6_clean_up(std::list<Text<Unit>> lines, bool is_bookmark) {
    lines.remove_if([is_bookmark](const Text<Unit>& line) {
        return !contains(line, ":") && !(is_bookmark && contains(line, "="));
    });
    return lines;
}

}  // namespace

template <class Unit>
bool is_bookmark_text(const Text<Unit>& text) {
    return contains_in_any_case(text, "BEGIN:VBKM");
}

template <class Unit>
std::vector<Text<Unit>> parse_passes(const Text<Unit>& text, bool is_bookmark) {
    const Text<Unit> marked = pass_1_mark_bare_line_feeds(text);
    const Text<Unit> ended = pass_2_line_ends(marked);
    const PhysicalLines<Unit> pieces = pass_3_split(ended, bare_line_feeds(text), is_bookmark);
    const PhysicalLines<Unit> lines = pass_4_mark_soft_breaks(pieces, is_bookmark);
    const std::list<Text<Unit>> result = pass_6_clean_up(pass_5_unfold(lines), is_bookmark);
    return {result.begin(), result.end()};
}

std::vector<std::string> parse(const std::string& text) {
    const std::string visible = up_to_first_nul(text);
    return parse_passes(visible, is_bookmark_text(visible));
}

template bool is_bookmark_text(const std::string&);
template bool is_bookmark_text(const std::u16string&);
template std::vector<std::string> parse_passes(const std::string&, bool);
template std::vector<std::u16string> parse_passes(const std::u16string&, bool);

}  // namespace vzapi::reference
