#include "support/environment.h"

#include <cstdlib>
#include <utility>

#include "support/set_environment.h"

namespace vzapi::test {

std::optional<std::string> environment(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    if (value == nullptr) return std::nullopt;
    return value;
}

EnvironmentVariable::EnvironmentVariable(std::string name, const std::optional<std::string>& value)
    : name_(std::move(name)), before_(environment(name_)) {
    set_environment(name_, value);
}

EnvironmentVariable::~EnvironmentVariable() {
    set_environment(name_, before_);
}

}  // namespace vzapi::test
