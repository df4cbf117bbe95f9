// The literal accessors of a line: name, ID, value, encoding, decoded value; and the two tests that tell a
// line that begins a property from the continuation of a value. For bytes and, but for decoding, UTF-16
// units.
#pragma once

#include <string>
#include <vector>

#include "reference/text_reference.h"

namespace vzapi::reference {

// The property names in the order of their IDs: 90 for bytes, 74 for UTF-16 units.
template <class Unit>
const std::vector<Text<Unit>>& property_names();

// The text before the first ';' or ':' in capitals; empty when there is neither or it stands at position 0.
template <class Unit>
Text<Unit> property_name(const Text<Unit>& line);

// The index of the name in property_names(), -1 when absent.
template <class Unit>
int property_id(const Text<Unit>& line);

// The text after the first ':'; empty when the line has none or begins with it.
template <class Unit>
Text<Unit> property_value(const Text<Unit>& line);

// 0 to 3 for "7BIT", "8BIT", "QUOTED-PRINTABLE", "BASE64", the first of them that occurs anywhere in the
// line; else -1 when it holds "ENCODING", -2 when not.
template <class Unit>
int property_encoding(const Text<Unit>& line);

std::string decoded_value(const std::string& line, int default_encoding);

// The strict test: the name, a "group." of letters, digits and '-' taken off, is in the table or begins with
// "X-".
template <class Unit>
bool begins_known_property(const Text<Unit>& line);

// The loose test: [group.]name followed by ';' or ':', group and name of letters, digits and '-'.
template <class Unit>
bool has_property_form(const Text<Unit>& line);

}  // namespace vzapi::reference
