// The machine's time zone, another one for a part of a test.
#pragma once

#include <functional>
#include <string>

namespace vzapi::test {

// Runs `body` with the machine in `zone`, one of VZAPI_TEST_ZONES in support/CMakeLists.txt. REQUIRES: called
// within a test whose suite has "MachineZone" in its name.
//
// A Windows program cannot change its zone: under Wine it has the one that TZ names when its first process
// starts. There a body runs only where that is its zone, and ctest runs the suites of that name once for each
// of the zones.
void in_machine_zone(const std::string& zone, const std::function<void()>& body);

}  // namespace vzapi::test
