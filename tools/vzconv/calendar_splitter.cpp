#include "vzconv/calendar_splitter.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "vzconv/ascii.h"
#include "vzconv/marker.h"
#include "vzconv/text_lines.h"

namespace vzconv {
namespace {

constexpr std::string_view kCalendar = "VCALENDAR";

// A component of a calendar that is an entry. One may not stand in another.
struct EntryComponent {
    std::string_view name;
    bool is_known;  // whether the library converts it
};

constexpr EntryComponent kEntryComponents[] = {
    {"VEVENT", true},
    {"VTODO", true},
    {"VJOURNAL", false},
    {"VFREEBUSY", false},
};

const EntryComponent* entry_component_of(std::string_view name) {
    for (const EntryComponent& component : kEntryComponents) {
        if (equal_ignoring_case(component.name, name)) return &component;
    }
    return nullptr;
}

// The properties of a calendar that the library looks at.
constexpr std::string_view kHeadProperties[] = {"VERSION", "TZ", "DAYLIGHT"};

// More than the 255 rules of daylight-saving time that a record can hold.
constexpr std::size_t kLongestHead = 0x8000;

bool is_head_property(std::string_view line) {
    const std::string_view name = trimmed(line.substr(0, line.find_first_of(":;")));
    return std::any_of(std::begin(kHeadProperties), std::end(kHeadProperties),
                       [name](std::string_view property) { return equal_ignoring_case(property, name); });
}

struct Entry {
    const EntryComponent* component;
    std::size_t line;   // from 1, in the calendar
    std::size_t begin;  // in the text of the calendar
    std::size_t end;
    bool is_cut;  // the text breaks off before its END
};

// A calendar taken apart in one pass over its lines.
class Calendar {
public:
    explicit Calendar(const Piece& piece) : text_(piece.text), first_line_(piece.line) {
        TextLines lines(text_);
        TextLine line;
        lines.next(line);
        first_ = whole(line);
        head_ = first_;
        while (lines.next(line)) look_at(line);
    }

    const std::vector<Entry>& entries() const { return entries_; }

    // The entry as a calendar of its own.
    std::string text_of(const Entry& entry) const {
        std::string text = head_;
        text.append(text_, entry.begin, entry.end - entry.begin);
        if (!text.ends_with('\n') && !text.ends_with('\r')) text.append(ending());
        return text.append("END:").append(kCalendar).append(ending());
    }

    std::size_t file_line_of(const Entry& entry) const { return first_line_ + entry.line - 1; }

private:
    std::string_view whole(const TextLine& line) const {
        return text_.substr(line.begin, line.text.size() + line.ending.size());
    }

    std::string_view ending() const { return first_.substr(first_.find_last_not_of("\r\n") + 1); }

    void look_at(const TextLine& line) {
        const std::optional<Marker> marker = marker_inside(line.text);
        if (!marker) return look_at_property(line);
        in_head_property_ = false;
        if (marker->begins) return look_at_begin(*marker, line);
        if (is_open_ && equal_ignoring_case(marker->name, entries_.back().component->name)) {
            close(line.begin + whole(line).size());
        } else if (equal_ignoring_case(marker->name, kCalendar)) {
            close(line.begin);
        } else if (equal_ignoring_case(marker->name, other_)) {
            other_ = {};
        }
    }

    void look_at_begin(const Marker& marker, const TextLine& line) {
        const EntryComponent* component = entry_component_of(marker.name);
        if (component != nullptr) {
            close(line.begin);
            entries_.push_back({component, line.number, line.begin, text_.size(), true});
            is_open_ = true;
            other_ = {};
        } else if (!is_open_ && other_.empty()) {
            other_ = marker.name;
        }
    }

    // A line that begins with a blank continues the one before it.
    void look_at_property(const TextLine& line) {
        if (is_open_ || !other_.empty()) return;
        if (line.text.empty() || !is_blank(line.text.front()))
            in_head_property_ = is_head_property(line.text);
        if (in_head_property_ && head_.size() + whole(line).size() <= kLongestHead) head_.append(whole(line));
    }

    // Closes the entry that is open, if any, whether it has its END or not.
    void close(std::size_t end) {
        if (!is_open_) return;
        entries_.back().end = end;
        entries_.back().is_cut = false;
        is_open_ = false;
    }

    std::string_view text_;
    std::size_t first_line_;
    std::string_view first_;  // the BEGIN line
    std::string head_;
    std::vector<Entry> entries_;
    bool is_open_ = false;    // the last of the entries
    std::string_view other_;  // the name of the open component that is no entry; empty when there is none
    bool in_head_property_ = false;  // the line before is one of the head
};

// Whether there is nothing in the calendar to be handed on beside it.
bool is_plain(const Piece& piece, const std::vector<Entry>& entries) {
    if (entries.size() != 1) return entries.empty();
    const Entry& only = entries.front();
    return piece.form == Piece::Form::Object ? only.component->is_known : only.is_cut;
}

}  // namespace

void for_each_entry(const Piece& piece, const std::function<void(const Piece& entry)>& handle) {
    if (piece.component != kCalendar) return handle(piece);
    const Calendar calendar(piece);
    if (is_plain(piece, calendar.entries())) return handle(piece);
    if (piece.form == Piece::Form::Unfinished) handle(piece);
    for (const Entry& entry : calendar.entries()) {
        const std::size_t line = calendar.file_line_of(entry);
        const std::string_view name = entry.component->name;
        if (!entry.component->is_known) {
            handle({Piece::Form::Unknown, name, {}, line, "no kind of entry that vzconv knows"});
        } else if (entry.is_cut) {
            handle(
                {Piece::Form::Unfinished, kCalendar, {}, line, missing_end(name, "its calendar breaks off")});
        } else {
            const std::string text = calendar.text_of(entry);
            handle({Piece::Form::Object, kCalendar, text, line, {}});
        }
    }
}

}  // namespace vzconv
