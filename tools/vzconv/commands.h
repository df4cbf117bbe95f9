// The commands of the tool. Each takes its files in turn, converts what it can, and reports the rest.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "vzconv/options.h"
#include "vzconv/report.h"

namespace vzconv {

struct Streams {
    std::istream& in;
    std::ostream& out;  // the result and nothing else
    std::ostream& err;
};

using FileNames = std::vector<std::string>;

// What the arguments of the program ask for.
struct Request {
    FileNames files;  // and folders, which stand for the files in them
    Options options;
    bool utf8 = false;   // messages are written as UTF-8 too
    std::string folder;  // that files are written into
};

using Command = void (*)(const Request& request, Streams streams, Report& report);

void show(const Request& request, Streams streams, Report& report);
// Messages only, sorted by date; anything else is left out with a warning.
void list(const Request& request, Streams streams, Report& report);

void json(const Request& request, Streams streams, Report& report);
void versit(const Request& request, Streams streams, Report& report);
void check(const Request& request, Streams streams, Report& report);

}  // namespace vzconv
