#include "vzconv/object_splitter.h"

#include <optional>

#include "vzconv/ascii.h"
#include "vzconv/marker.h"

namespace vzconv {
namespace {

// A component that is an object of its own when it stands outside of any other.
struct Component {
    std::string_view name;
    bool holds_objects;  // whether other such components may stand inside
};

constexpr std::string_view kMessage = "VMSG";

constexpr Component kComponents[] = {
    {"VBKM", false},
    {"VCARD", false},  // but for the card of an agent
    {"VCALENDAR", false},
    {kMessage, true},  // the cards of sender and recipients, and whatever its body quotes
};

const Component* component_of(std::string_view name) {
    for (const Component& component : kComponents) {
        if (equal_ignoring_case(component.name, name)) return &component;
    }
    return nullptr;
}

// NUL counts: devices pad their files with it.
bool is_blank_line(std::string_view line) {
    for (const char c : line) {
        if (!is_blank(c) && c != '\0') return false;
    }
    return true;
}

// Whether the value of `line` is the card of an agent: the property AGENT, with or without a group before it.
bool is_agent(std::string_view line) {
    const std::size_t name_end = line.find_first_of(":;");
    if (name_end == std::string_view::npos) return false;
    const std::string_view name = trimmed(line.substr(0, name_end));
    const std::size_t dot = name.rfind('.');
    return equal_ignoring_case(dot == std::string_view::npos ? name : name.substr(dot + 1), "AGENT");
}

// "AGENT:BEGIN:VCARD": the card of the agent begins on the same line.
bool begins_agent_card(std::string_view line) {
    if (!is_agent(line)) return false;
    const std::optional<Marker> marker = marker_of(line.substr(line.find(':') + 1));
    return marker && marker->begins && equal_ignoring_case(marker->name, "VCARD");
}

bool is_empty_agent(std::string_view line) {
    return is_agent(line) && trimmed(line).back() == ':';
}

bool is_body_marker(std::string_view line, bool begins) {
    const std::optional<Marker> marker = marker_inside(line);
    return marker && marker->begins == begins && equal_ignoring_case(marker->name, "VBODY");
}

// Where the body ends whose first line is the next of `lines`: at the last END:VBODY in front of the next
// body, as a message may quote one. Nothing when it has none.
std::optional<std::size_t> end_of_body(TextLines lines) {
    std::optional<std::size_t> end;
    for (TextLine line; lines.next(line) && !is_body_marker(line.text, true);) {
        if (is_body_marker(line.text, false)) end = line.begin;
    }
    return end;
}

// What the lines of an open object say about where it ends.
class OpenObject {
public:
    OpenObject(std::string_view name, const Component* component) : name_(name), component_(component) {}

    enum class Step { Inside, Last, Interrupted };

    // Whether `line` begins the text of a message, in which lines are text and nothing else.
    bool begins_body(std::string_view line) const {
        return component_ != nullptr && component_->name == kMessage && is_body_marker(line, true);
    }

    Step look_at(std::string_view line) {
        const std::optional<Marker> marker = marker_inside(line);
        if (!marker) {
            look_for_agent(line);
            return Step::Inside;
        }
        const bool agent_comes = agent_comes_;
        agent_comes_ = false;
        if (!marker->begins) return equal_ignoring_case(marker->name, name_) ? step_out() : Step::Inside;
        if (agent_comes && equal_ignoring_case(marker->name, "VCARD")) {
            ++depth_;
            return Step::Inside;
        }
        return is_interrupted_by(marker->name) ? Step::Interrupted : Step::Inside;
    }

private:
    void look_for_agent(std::string_view line) {
        if (component_ == nullptr || component_->name != "VCARD" || is_blank_line(line)) return;
        if (!is_blank(line.front()) && begins_agent_card(line)) ++depth_;
        agent_comes_ = !is_blank(line.front()) && is_empty_agent(line);
    }

    Step step_out() { return --depth_ == 0 ? Step::Last : Step::Inside; }

    bool is_interrupted_by(std::string_view name) const {
        const Component* other = component_of(name);
        if (other == nullptr) return false;
        return component_ == nullptr || other == component_ || !component_->holds_objects;
    }

    std::string_view name_;
    const Component* component_;
    int depth_ = 1;
    bool agent_comes_ = false;
};

}  // namespace

bool ObjectSplitter::next(Piece& piece) {
    while (next_line()) {
        if (is_blank_line(line_.text)) continue;
        const std::size_t blanks = line_.text.find_first_not_of(" \t");
        const std::size_t begin = line_.begin + blanks;
        const std::optional<Marker> marker = marker_of(line_.text);
        piece = {Piece::Form::Stray, {}, {}, line_.number, {}};
        if (marker && marker->begins) {
            const Component* component = component_of(marker->name);
            piece.form = component != nullptr ? Piece::Form::Object : Piece::Form::Unknown;
            piece.component = component != nullptr ? component->name : marker->name;
            rest_of_object(piece, begin);
        } else {
            rest_of_stray(piece, begin);
        }
        return true;
    }
    return false;
}

bool ObjectSplitter::next_line() {
    if (line_is_pending_) {
        line_is_pending_ = false;
        return true;
    }
    return lines_.next(line_);
}

void ObjectSplitter::skip_to(std::optional<std::size_t> place) {
    TextLines ahead = lines_;
    for (TextLine line; place && ahead.next(line) && line.begin < *place;) lines_ = ahead;
}

void ObjectSplitter::rest_of_object(Piece& piece, std::size_t begin) {
    const bool is_known = piece.form == Piece::Form::Object;
    if (!is_known) piece.reason = "no kind of object that vzconv knows";
    OpenObject object(piece.component, component_of(piece.component));
    while (next_line()) {
        const OpenObject::Step step = object.look_at(line_.text);
        if (object.begins_body(line_.text)) skip_to(end_of_body(lines_));
        if (step == OpenObject::Step::Inside) continue;
        std::size_t end = line_.begin;
        if (step == OpenObject::Step::Last) {
            end += line_.text.size() + line_.ending.size();
        } else {
            line_is_pending_ = true;
            if (is_known) {
                piece.form = Piece::Form::Unfinished;
                const std::string_view other = component_of(marker_of(line_.text)->name)->name;
                piece.reason = missing_end(piece.component, "the BEGIN:" + std::string(other) + " of line " +
                                                                std::to_string(line_.number));
            }
        }
        piece.text = text_.substr(begin, end - begin);
        return;
    }
    piece.text = text_.substr(begin);
    if (is_known) {
        piece.form = Piece::Form::Unfinished;
        piece.reason = missing_end(piece.component, "the end of the text");
    }
}

void ObjectSplitter::rest_of_stray(Piece& piece, std::size_t begin) {
    std::size_t end = line_.begin + line_.text.size();
    while (next_line()) {
        const std::optional<Marker> marker = marker_of(line_.text);
        if (marker && marker->begins) {
            line_is_pending_ = true;
            break;
        }
        if (!is_blank_line(line_.text)) end = line_.begin + line_.text.size();
    }
    piece.text = text_.substr(begin, end - begin);
}

}  // namespace vzconv
