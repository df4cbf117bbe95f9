// The commands of the tool. Each takes its files in turn, converts what it can, and reports the rest.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

#include "vzconv/profile.h"
#include "vzconv/report.h"

namespace vzconv {

struct Streams {
    std::istream& in;
    std::ostream& out;  // the result and nothing else
    std::ostream& err;
};

// Thrown when standard output takes no more: the disk is full, or whoever read it has gone.
class OutputLost : public std::runtime_error {
public:
    OutputLost() : std::runtime_error("standard output cannot be written") {}
};

using FileNames = std::vector<std::string>;

// What the arguments of the program ask for.
struct Request {
    FileNames files;
    Profile profile;  // looked at by versit
};

using Command = void (*)(const Request& request, Streams streams, Report& report);

void show(const Request& request, Streams streams, Report& report);
void json(const Request& request, Streams streams, Report& report);
void versit(const Request& request, Streams streams, Report& report);
void check(const Request& request, Streams streams, Report& report);

}  // namespace vzconv
