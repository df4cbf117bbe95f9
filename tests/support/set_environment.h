// What the system does for support/environment.h.
#pragma once

#include <optional>
#include <string>

namespace vzapi::test {

// Sets the variable, or removes it when there is no value.
void set_environment(const std::string& name, const std::optional<std::string>& value);

}  // namespace vzapi::test
