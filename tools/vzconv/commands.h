// The commands of the tool. Each takes its files in turn, converts what it can, and reports the rest.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

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
using Command = void (*)(const FileNames& files, Streams streams, Report& report);

void show(const FileNames& files, Streams streams, Report& report);
void json(const FileNames& files, Streams streams, Report& report);
void versit(const FileNames& files, Streams streams, Report& report);
void check(const FileNames& files, Streams streams, Report& report);

}  // namespace vzconv
