// A multimedia message in JSON: "type" as "m-send-req", "headers" (see multimedia_header_json.h) in the order
// of the PDU, "parts".
//
// The body of the PDU is the only one of "parts"; a container has "parts" of its own. A text that is UTF-8
// stands as "text", any other data as "data", Base64; a text in another charset has both, and "text" is what
// "data" says. All comes back that the record has.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "vzapi/multimedia.h"
#include "vzconv/multimedia_record.h"

namespace vzconv {

void put_multimedia(const MultimediaItem& item, nlohmann::ordered_json& object);

// Fills `record`, which is as it was made, from `object`. A message with "addPresentation" gets one from the
// library when it has none. Throws Failure when anything in `object` is unknown, missing or of a wrong type.
void take_multimedia(const nlohmann::json& object, MultimediaRecord& record);

}  // namespace vzconv
