// An environment variable with another value for the length of a scope.
#pragma once

#include <optional>
#include <string>

namespace vzapi::test {

// The value of the variable; nothing when it is not set. On Windows an empty variable is none.
[[nodiscard]] std::optional<std::string> environment(const std::string& name);

class EnvironmentVariable {
public:
    // Sets the variable, or removes it when there is no value. The value it had comes back at the end of the
    // scope.
    EnvironmentVariable(std::string name, const std::optional<std::string>& value);
    ~EnvironmentVariable();
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    std::string name_;
    std::optional<std::string> before_;
};

}  // namespace vzapi::test
