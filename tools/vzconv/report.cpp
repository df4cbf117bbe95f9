#include "vzconv/report.h"

#include <ostream>

namespace vzconv {
namespace {

std::string line_of(const Place& place, std::string_view subject, std::string_view text) {
    std::string line = in_words(place) + ": ";
    if (!subject.empty()) line.append(subject).append(": ");
    return line.append(text).append("\n");
}

}  // namespace

std::string in_words(const Place& place) {
    return place.line == 0 ? place.file : place.file + ":" + std::to_string(place.line);
}

// Standard error has no buffer: a line goes out in one piece.
void Report::failure(const Place& place, std::string_view kind, std::string_view reason) {
    failed_ = true;
    err_ << line_of(place, kind, reason);
}

void Report::warning(const Place& place, std::string_view text) {
    err_ << line_of(place, "warning", text);
}

}  // namespace vzconv
