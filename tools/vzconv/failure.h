// Why an object, a line or a file could not be converted.
#pragma once

#include <stdexcept>
#include <string>

namespace vzconv {

// Thrown where a conversion ends; `what()` is the reason in plain words, without file, line or kind, which
// the command that catches it adds.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace vzconv
