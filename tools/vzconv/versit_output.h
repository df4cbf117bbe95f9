// Versit text, or a multimedia message, on its way out.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>

#include "vzconv/kind.h"

namespace vzconv {

// Thrown when an output takes no more: the disk is full, or whoever read it has gone.
class OutputLost : public std::runtime_error {
public:
    OutputLost() : std::runtime_error("standard output cannot be written") {}
};

// Writes `text` as it stands. Throws OutputLost.
void put(std::ostream& out, std::string_view text);

// The result of one run, which is one file for whoever gets it. Messages are UTF-16LE behind a byte order
// mark, as phones have them, all else is 8-bit text; the two cannot stand in one file. With `utf8` messages
// are 8-bit text too. A multimedia message is a file of its own.
class VersitOutput {
public:
    VersitOutput(std::ostream& out, bool utf8) : out_(out), utf8_(utf8) {}

    // Writes the text of an object of that kind, which is 8-bit text or binary. Throws Failure when it cannot
    // stand with what was written before it.
    void put_object(const Kind& kind, std::string_view text);

private:
    enum class State { Empty, EightBit, Utf16, Binary };

    std::ostream& out_;
    bool utf8_;
    State state_ = State::Empty;
};

}  // namespace vzconv
