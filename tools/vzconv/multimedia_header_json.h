// Headers and parameters of a multimedia message in JSON.
//
// A header of the PDU is an object with its name in the standard, {"header":"Subject","text":"..."}, one of
// an application {"applicationHeader":"X-Name","text":"..."}; a number that has no name stands as "0x5A".
// Keys for the value, by its kind:
//
//   number                "value", a word such as "yes" or "1.2"; "number" where it has none
//   date                  "date", ISO 8601 in UTC; a number of seconds behind the year 9999
//   text, named text      "text"
//   encoded text          "text", "charset"
//   address               "address", "addressType", "charset"
//   time                  "time" as a date, or "afterSeconds"
//   counted ...           the same and "count"
//   marked ...            the same and "mark"
//   raw                   "bytes", Base64
//
// "kind" says the kind where it is not the usual one of the header. "charset" is a name or a MIBenum; absent
// it is none in ASCII, else UTF-8. Parameters, {"name":"start","text":"..."}, and headers of parts have
// "number", "date", "text", "bytes" or none of them.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "vzapi/multimedia.h"
#include "vzconv/json_fields.h"
#include "vzconv/multimedia_record.h"

namespace vzconv {

nlohmann::ordered_json json_of_header(const MultimediaHeader& header);
nlohmann::ordered_json json_of_part_header(const MultimediaHeader& header);
nlohmann::ordered_json json_of_parameter(const MultimediaParameter& parameter);

// The name of a charset, or its number.
nlohmann::ordered_json json_of_charset(uint32_t charset);

// Each makes of `fields`, which are asked for nothing more then, what `record` owns. Throws Failure when
// anything is unknown, missing or of a wrong type.
MultimediaHeader header_in(JsonFields& fields, MultimediaRecord& record);
MultimediaHeader part_header_in(JsonFields& fields, MultimediaRecord& record);
MultimediaParameter parameter_in(JsonFields& fields, MultimediaRecord& record);

// 0 when there is none.
uint32_t charset_in(JsonFields& fields);

}  // namespace vzconv
