// JSON lines: a text with one JSON object a line.
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "vzconv/json_object.h"

namespace vzconv {

// The JSON object in `line`. Throws Failure, naming the column (in bytes, from 1) where the line is no JSON,
// when it is no object, and when an object in it has two fields of one name, one of which would be lost.
JsonObject object_of_line(std::string_view line);

// `object` as one line, with its line end. Strings that are not UTF-8 cannot make the line invalid: what is
// ill-formed in them becomes U+FFFD.
std::string line_of_object(const nlohmann::ordered_json& object);

}  // namespace vzconv
