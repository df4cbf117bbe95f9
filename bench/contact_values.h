// The values that a contact record holds, whatever list and sub-record they hang on.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "vzapi/contact.h"

namespace vzapi::bench {

struct ContactValues {
    std::vector<std::u16string_view> texts;
    std::vector<std::span<const std::uint8_t>> photos;
};

// Adds the values of `item`, which must stay as it is as long as they are used.
void add_values(const ContactItem& item, ContactValues& values);

}  // namespace vzapi::bench
