// The physical lines of a text: each ends at a CR LF, a bare LF or a bare CR, whichever its writer used.
#pragma once

#include <cstddef>
#include <string_view>

namespace vzconv {

struct TextLine {
    std::string_view text;    // without its line end
    std::string_view ending;  // "\r\n", "\n", "\r", or empty behind the last line
    std::size_t begin;        // where the line stands in the text
    std::size_t number;       // from 1
};

// Walks the lines of a text in one pass.
class TextLines {
public:
    explicit TextLines(std::string_view text) : text_(text) {}

    // Takes the next line; false behind the last one. A line end at the end of the text begins no further
    // line.
    bool next(TextLine& line);

private:
    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t number_ = 0;
    // The next CR and LF at or behind at_. They are looked for again only when passed: a text that has only
    // one of the two would otherwise be searched to its end at every line.
    std::size_t next_cr_ = 0;
    std::size_t next_lf_ = 0;
    bool started_ = false;
};

}  // namespace vzconv
