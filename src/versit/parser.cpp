// Both parsers are one forward pass over a private copy of the text. A folded or softly broken value is
// closed up inside that copy: what is taken out between two physical lines only ever makes room, so the
// joined line never reaches text that is still to be read, and every finished line is a view into the copy.
#include "versit/parser.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "versit/ascii.h"
#include "versit/property_line.h"
#include "versit/unit_block.h"

namespace vzapi::versit {
namespace {

constexpr std::string_view kQuotedPrintable = "QUOTED-PRINTABLE";
constexpr std::string_view kBase64 = "BASE64";
constexpr std::string_view kBookmarkBegin = "BEGIN:VBKM";
constexpr std::string_view kBodyBegin = "BEGIN:VBODY";
constexpr std::string_view kBodyEnd = "END:VBODY";
constexpr char kEscape = 0x1B;  // at the end of a physical line it stands for a line feed inside the value

template <class Unit>
std::size_t find_unit(const Unit* text, std::size_t from, std::size_t size, char wanted) {
    if constexpr (sizeof(Unit) > 1) {
        // The standard library searches bytes by the block, but wider units one by one.
        while (size - from >= kBlockUnits<Unit> && !any_unit(equal_to(load_block(text + from), wanted))) {
            from += kBlockUnits<Unit>;
        }
    }
    const Unit* found = std::char_traits<Unit>::find(text + from, size - from, Unit(wanted));
    return found == nullptr ? size : static_cast<std::size_t>(found - text);
}

// True when the text is a bookmark's. The pair "BK" is rare in any other text, so whole blocks are tested for
// it at once, and the marker is compared only where it occurs.
template <class Unit>
bool is_bookmark_text(std::basic_string_view<Unit> text) {
    constexpr std::size_t kBlock = kBlockUnits<Unit>;
    constexpr std::size_t kPairAt = kBookmarkBegin.find("BK");
    const auto has_marker = [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = std::max(begin, kPairAt); i < end; ++i) {
            if (starts_with_ignoring_case(text.substr(i - kPairAt), kBookmarkBegin)) return true;
        }
        return false;
    };
    const auto has_pair = [&](std::size_t begin) {
        const auto first = load_block(text.data() + begin);
        const auto second = load_block(text.data() + begin + 1);
        return any_unit((equal_to(first, 'B') | equal_to(first, 'b')) &
                        (equal_to(second, 'K') | equal_to(second, 'k')));
    };
    if (text.size() <= kBlock) return has_marker(0, text.size());
    const std::size_t last = text.size() - kBlock - 1;  // the last block overlaps the one before
    for (std::size_t at = 0; at < last; at += kBlock) {
        if (has_pair(at) && has_marker(at, at + kBlock)) return true;
    }
    return has_pair(last) && has_marker(last, text.size());
}

// How a physical line ended in the text.
enum class LineEnd {
    Hard,   // CR LF: the line is complete
    Soft,   // a bare LF: a line break inside the value, kept as one LF
    Final,  // the text ended
};

struct PhysicalLine {
    std::size_t begin = 0;
    std::size_t end = 0;   // the line end not included
    std::size_t next = 0;  // where the next line begins
    LineEnd line_end = LineEnd::Final;
};

template <class Unit>
class LineParser {
public:
    using View = std::basic_string_view<Unit>;

    explicit LineParser(View text)
        : size_(std::min(text.find(Unit(0)), text.size())),
          text_(std::make_unique_for_overwrite<Unit[]>(size_)),
          bookmark_(is_bookmark_text(text.substr(0, size_))) {
        std::copy_n(text.data(), size_, text_.get());
        lines_.reserve(std::min(size_ / kUsualLine + 1, kUsualLines));
    }

    BasicVersitObject<Unit> parse() {
        std::size_t at = 0;
        while (at < size_) {
            const PhysicalLine line = physical_line(at);
            at = line.next;
            if (kWide && is_marker(line, kBodyBegin)) {
                take_line({line.begin, line.end, line.next, LineEnd::Final});
                at = take_body(line.next);
            } else {
                take_line(line);
            }
        }
        finish_line();
        return {std::move(text_), std::move(lines_), std::move(bodies_)};
    }

private:
    static constexpr bool kWide = sizeof(Unit) > 1;

    // Room for as many lines is made at once, as far as the text can have them.
    static constexpr std::size_t kUsualLine = 16;
    static constexpr std::size_t kUsualLines = 24;

    [[nodiscard]] View view(std::size_t begin, std::size_t end) const {
        return {text_.get() + begin, end - begin};
    }
    [[nodiscard]] Unit unit(std::size_t at) const { return text_[at]; }

    [[nodiscard]] PhysicalLine physical_line(std::size_t begin) const {
        const std::size_t feed = find_unit(text_.get(), begin, size_, '\n');
        if (feed == size_) return {begin, size_, size_, LineEnd::Final};
        if (feed > begin && unit(feed - 1) == Unit('\r')) return {begin, feed - 1, feed + 1, LineEnd::Hard};
        const bool hard = kWide && begins_known_property(plain_line(feed + 1));
        return {begin, feed, feed + 1, hard ? LineEnd::Hard : LineEnd::Soft};
    }

    // The text from `begin` to the next line end of either kind.
    [[nodiscard]] View plain_line(std::size_t begin) const {
        std::size_t end = find_unit(text_.get(), begin, size_, '\n');
        if (end < size_ && end > begin && unit(end - 1) == Unit('\r')) --end;
        return view(begin, end);
    }

    // Takes the next physical line into the list: as the head of a new logical line or onto the one that is
    // open.
    void take_line(PhysicalLine line) {
        const bool after_soft_end = after_soft_end_;
        after_soft_end_ = line.line_end == LineEnd::Soft;
        const bool soft_break = ends_with_equals(line) && line.line_end != LineEnd::Soft;
        if (soft_break && line.line_end == LineEnd::Hard && !bookmark_ && !names_quoted_printable(line)) {
            --line.end;
        }
        const bool continues_value =
            after_soft_end || (!bookmark_ && continues_soft_break(view(line.begin, line.end), soft_break));
        if (after_soft_end) previous_soft_break_ = soft_break;
        restore_line_feed(line);
        if (continues_value || is_folded(line)) {
            append_continuation(line, continues_value);
        } else {
            begin_line(line);
        }
    }

    [[nodiscard]] bool ends_with_equals(const PhysicalLine& line) const {
        return line.end > line.begin && unit(line.end - 1) == Unit('=');
    }

    // As written, not in any other case: only such a head line keeps its '='.
    [[nodiscard]] bool names_quoted_printable(const PhysicalLine& line) const {
        const View text = view(line.begin, line.end);
        return std::search(text.begin(), text.end(), kQuotedPrintable.begin(), kQuotedPrintable.end()) !=
               text.end();
    }

    // Follows the run of lines that a quoted-printable property with a soft line break opens, and tells
    // whether `line` is part of the value rather than a property of its own.
    bool continues_soft_break(View line, bool soft_break) {
        bool continues = false;
        if (in_soft_break_run_) {
            const bool property =
                begins_known_property(line) || (!previous_soft_break_ && has_property_form(line));
            continues = !property;
        }
        if (!continues) {
            in_soft_break_run_ = soft_break && contains_ignoring_case(line, kQuotedPrintable) &&
                                 (begins_known_property(line) || has_property_form(line));
        }
        previous_soft_break_ = soft_break;
        return continues;
    }

    // Makes the LF of a bare line feed, or the escape that stands for one, the last unit of the line.
    void restore_line_feed(PhysicalLine& line) {
        if (line.line_end == LineEnd::Soft) {
            ++line.end;
        } else if (line.end > line.begin && unit(line.end - 1) == Unit(kEscape)) {
            text_[line.end - 1] = Unit('\n');
        }
    }

    [[nodiscard]] static bool is_fold_unit(Unit unit) { return is_blank(unit) || unit == Unit('\n'); }

    [[nodiscard]] bool is_folded(const PhysicalLine& line) const {
        return line.begin == line.end || is_fold_unit(unit(line.begin));
    }

    // The end of `line` without the '=' of a soft line break, where the line itself names quoted-printable.
    [[nodiscard]] std::size_t end_without_soft_break(const PhysicalLine& line) const {
        const bool soft =
            ends_with_equals(line) && contains_ignoring_case(view(line.begin, line.end), kQuotedPrintable);
        return soft ? line.end - 1 : line.end;
    }

    void begin_line(const PhysicalLine& line) {
        finish_line();
        open_ = true;
        head_base64_known_ = false;
        line_begin_ = line.begin;
        line_end_ = end_without_soft_break(line);
        head_end_ = line_end_;
    }

    // `marked`: the line is known as a continuation without a blank of its own in front.
    void append_continuation(const PhysicalLine& line, bool marked) {
        if (!open_) return;
        const std::size_t end = end_without_soft_break(line);
        std::size_t begin = line.begin;
        if (!marked && begin < end) ++begin;
        if (begin < end && is_fold_unit(unit(begin)) && mentions_base64(line)) {
            while (begin < end && is_fold_unit(unit(begin))) ++begin;
        }
        if (line_end_ != begin) std::copy(text_.get() + begin, text_.get() + end, text_.get() + line_end_);
        line_end_ += end - begin;
    }

    // Asked only where it matters, and for the head once: data of any size may hang on one head.
    [[nodiscard]] bool mentions_base64(const PhysicalLine& line) {
        if (!head_base64_known_) {
            head_base64_known_ = true;
            head_base64_ = contains_ignoring_case(view(line_begin_, head_end_), kBase64);
        }
        return head_base64_ || contains_ignoring_case(view(line.begin, line.end), kBase64);
    }

    void finish_line() {
        if (!open_) return;
        open_ = false;
        const BasicVersitProperty<Unit> line(view(line_begin_, line_end_));
        const bool keep = line.has_colon() || (bookmark_ && line.text().find(Unit('=')) != View::npos);
        if (keep) lines_.push_back(line);
    }

    [[nodiscard]] bool is_marker(const PhysicalLine& line, std::string_view marker) const {
        return is_marker_text(view(line.begin, line.end), marker);
    }

    [[nodiscard]] static bool is_marker_text(View text, std::string_view marker) {
        while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
        return equals_ignoring_case(text, marker);
    }

    // Takes the lines of a body as they stand. Returns where its closing END:VBODY begins: the last one
    // before the next body; a BEGIN:VBODY that no END:VBODY comes before is text.
    std::size_t take_body(std::size_t begin) {
        finish_line();
        const std::size_t first_line = lines_.size();
        std::size_t closing_line = 0;
        std::size_t closing_at = size_;
        bool closed = false;
        for (std::size_t at = begin; at < size_;) {
            const View text = plain_line(at);
            if (is_marker_text(text, kBodyEnd)) {
                closed = true;
                closing_line = lines_.size();
                closing_at = at;
            } else if (closed && is_marker_text(text, kBodyBegin)) {
                break;
            }
            lines_.emplace_back(text);
            at = std::min(find_unit(text_.get(), at + text.size(), size_, '\n') + 1, size_);
        }
        if (closed) lines_.resize(closing_line);
        bodies_.push_back({first_line, lines_.size()});
        after_soft_end_ = false;
        in_soft_break_run_ = false;
        previous_soft_break_ = false;
        return closing_at;
    }

    std::size_t size_;
    std::unique_ptr<Unit[]> text_;
    bool bookmark_;

    std::vector<BasicVersitProperty<Unit>> lines_;
    std::vector<LineRange> bodies_;

    // The logical line being joined: text_[line_begin_, line_end_); its first physical line ended at
    // head_end_.
    bool open_ = false;
    std::size_t line_begin_ = 0;
    std::size_t line_end_ = 0;
    std::size_t head_end_ = 0;
    bool head_base64_known_ = false;
    bool head_base64_ = false;

    bool after_soft_end_ = false;       // the line before ended at a bare LF
    bool in_soft_break_run_ = false;    // a quoted-printable property with a soft line break is open
    bool previous_soft_break_ = false;  // the line before ended in '=', taken off since or not
};

}  // namespace

VersitObject parse(std::string_view text) {
    return LineParser<char>(text).parse();
}

WideVersitObject parse_wide(std::u16string_view text) {
    return LineParser<char16_t>(text).parse();
}

}  // namespace vzapi::versit
