// A message for a person to read.
#pragma once

#include <string>

#include "vzapi/message.h"

namespace vzconv {

std::string show_message(const MessageItem& item);

// Its addresses in one line; nothing when it has none.
std::string addresses_in_words(const MessageItem& item);

}  // namespace vzconv
