// Compares what a parser gives with what an oracle gives, and says in words where they part.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "reference/text_reference.h"

namespace vzapi::reference {

// `text` as a C string literal that a test can take over.
std::string literal_of(const std::string& text);
std::string literal_of(const std::u16string& text);

// Empty when both lists are equal, else the first line that differs and both lists in full.
template <class Unit>
std::string line_difference(const std::vector<Text<Unit>>& expected, const std::vector<Text<Unit>>& actual);

// Index of a body's first line, index behind its last one.
using BodyRanges = std::vector<std::pair<std::size_t, std::size_t>>;

// Empty when both are equal, else both in full.
std::string body_difference(const BodyRanges& expected, const BodyRanges& actual);

}  // namespace vzapi::reference
