// The name of a contact as one text.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "vzapi/contact.h"

namespace vzconv {

// The ids of the parts of a name in the order in which it is said: here, and where the family comes first.
std::span<const uint32_t> name_parts();
std::span<const uint32_t> family_first_name_parts();

// The parts that the contact has, in that order.
std::string name_of_parts(const ContactItem& item, std::span<const uint32_t> parts, std::string_view between);

// The name as its owner wrote it, else what its parts make up; empty when it has none.
std::string name_of(const ContactItem& item);

}  // namespace vzconv
