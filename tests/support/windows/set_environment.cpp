#include "support/set_environment.h"

#include <cstdlib>  // _putenv_s

namespace vzapi::test {

void set_environment(const std::string& name, const std::optional<std::string>& value) {
    _putenv_s(name.c_str(), value ? value->c_str() : "");
}

}  // namespace vzapi::test
