// The command line of the tool.
#pragma once

#include <string>
#include <vector>

#include "vzconv/commands.h"

namespace vzconv {

// The exit status of the program.
enum ExitStatus {
    kAllConverted = 0,
    kSomeFailed = 1,
    kUsage = 2,
};

// Runs the tool with these arguments (UTF-8, without the program's name) and returns its exit status.
int run(const std::vector<std::string>& arguments, Streams streams);

}  // namespace vzconv
