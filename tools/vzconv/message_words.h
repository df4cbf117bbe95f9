// What the codes of a message are called, in JSON and for a person.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "vzconv/code_words.h"

namespace vzconv {

// Which way a message goes, seen from the phone.
enum class Direction : uint8_t { Unknown, In, Out };

std::span<const CodeWord> message_status_words();  // VZ_MESSAGE_STATUS_...; none has no word
std::span<const CodeWord> message_type_words();    // VZ_MESSAGE_TYPE_...; none has no word

// The direction of messages of that type. Reports have that of the answer that they are.
Direction direction_of(uint32_t type);

// What a person calls a message of that type: "Message", "Delivery report".
std::string_view message_heading_of(uint32_t type);

}  // namespace vzconv
