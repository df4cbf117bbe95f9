// A message in JSON: "type" and "status" as words, "time" in ISO 8601, "addresses" as an array of numbers,
// "text" with the line ends that it has in the record, CR LF.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "vzconv/message_parts.h"

namespace vzconv {

// Adds what counts of `item`. An empty text and a code without a word are absent.
void put_message(const MessageItem& item, nlohmann::ordered_json& object);

// Fills `record`, which is as it was made, from `object`. Throws Failure when anything in `object` is unknown
// or of a wrong type.
void take_message(const nlohmann::json& object, MessageRecord& record);

}  // namespace vzconv
