// Text for a person: a heading and a line for each field that is there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vzconv {

// `value`, which is UTF-8, in one line: runs of blanks and line ends are one blank, none at its ends, and
// control characters are shown as Readable shows them.
std::string in_one_line(std::string_view value);

// Builds the text of one object. Further lines of a value stand below its first one. Control characters,
// which would reach the terminal of whoever looks at a file, are shown as their Unicode pictures; those that
// turn the direction of the text behind them, so that "gpj.exe" looks like "exe.jpg", as U+FFFD.
class Readable {
public:
    // Values begin `label_width` columns behind the labels' beginning; a longer label pushes its own to the
    // right.
    explicit Readable(std::string_view heading, std::size_t label_width = 10);

    // `value` is UTF-8; what is blank at its end is left out.
    void field(std::string_view label, std::string_view value);

    std::string text() const;

private:
    std::string heading_;
    std::string fields_;
    std::size_t label_width_;
};

}  // namespace vzconv
