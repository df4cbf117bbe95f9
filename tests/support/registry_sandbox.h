// A settings store of the test's own in the place of the machine's, for the length of a scope.
#pragma once

#include <string>

namespace vzapi::test {

enum class Store {
    Empty,     // works, and holds nothing
    Unusable,  // every access fails
};

class RegistrySandbox {
public:
    explicit RegistrySandbox(Store store = Store::Empty);
    ~RegistrySandbox();
    RegistrySandbox(const RegistrySandbox&) = delete;
    RegistrySandbox& operator=(const RegistrySandbox&) = delete;

private:
    struct Redirection;
    Redirection* redirection_;
};

}  // namespace vzapi::test
