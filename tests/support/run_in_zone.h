// What the system does for support/machine_zone.h.
#pragma once

#include <functional>
#include <string>

namespace vzapi::test {

// Runs `body` in `zone` where that can be.
void run_in_zone(const std::string& zone, const std::function<void()>& body);

}  // namespace vzapi::test
