// Finds the versit objects of a text: where each begins and ends, and which component it is.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "vzconv/text_lines.h"

namespace vzconv {

// A stretch of a text.
struct Piece {
    enum class Form {
        Object,      // from a BEGIN line to its END line, both included
        Unfinished,  // from a BEGIN line to where it became clear that its END is missing
        Unknown,     // an object of a component that is none of ours
        Stray,       // lines outside of any object that are not blank
    };
    Form form;
    std::string_view component;  // "VBKM" and so on; for Unknown as the text has it, for Stray empty
    std::string_view text;       // the stretch itself; for Stray from its first line that is not blank
    std::size_t line;            // of its first line, from 1
    std::string reason;          // for Unfinished and Unknown: what is wrong, in plain words
};

// Walks a text in one pass. The components that begin an object are VBKM, VCARD, VCALENDAR and VMSG, at the
// start of a line, in any case; other components inside them are part of the object. An object whose END is
// missing lasts until a BEGIN that cannot stand inside it, so that those behind it are found. In the text of
// a message, up to the END:VBODY that closes it, no line counts.
class ObjectSplitter {
public:
    explicit ObjectSplitter(std::string_view text) : text_(text), lines_(text) {}

    // Takes the next piece, in the order of the text; false when only blank lines are left.
    bool next(Piece& piece);

private:
    bool next_line();
    void skip_to(std::optional<std::size_t> place);  // goes on with the line that stands there
    void rest_of_object(Piece& piece, std::size_t begin);
    void rest_of_stray(Piece& piece, std::size_t begin);

    std::string_view text_;
    TextLines lines_;
    TextLine line_{};
    bool line_is_pending_ = false;  // line_ ended the piece before it and begins the next one
};

}  // namespace vzconv
