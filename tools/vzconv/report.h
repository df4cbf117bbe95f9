// What the person at the terminal is told beside the result: on standard error, a line each.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace vzconv {

// Where something stands.
struct Place {
    std::string file;
    std::size_t line = 0;  // from 1; 0 is the file as a whole
};

// "FILE:LINE", or "FILE" for a whole file.
std::string in_words(const Place& place);

class Report {
public:
    explicit Report(std::ostream& err) : err_(err) {}

    // "FILE:LINE: kind: reason"; without a kind where it is not known.
    void failure(const Place& place, std::string_view kind, std::string_view reason);

    // "FILE:LINE: warning: text". A warning is no failure.
    void warning(const Place& place, std::string_view text);

    // For failures that the result itself tells.
    void count_failure() { failed_ = true; }

    bool has_failures() const { return failed_; }

private:
    std::ostream& err_;
    bool failed_ = false;
};

}  // namespace vzconv
