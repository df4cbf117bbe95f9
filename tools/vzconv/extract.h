// The command that takes files out of objects.
#pragma once

#include "vzconv/commands.h"

namespace vzconv {

// Writes the parts of multimedia messages and the photos of contacts into the request's folder, and prints a
// line for each. Objects of other kinds have no files in them.
void extract(const Request& request, Streams streams, Report& report);

}  // namespace vzconv
