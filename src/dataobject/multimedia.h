// Multimedia messages as data objects: between the bytes of a PDU and the caller's record.
#pragma once

#include <string_view>

#include "vzapi/odcapi.h"

namespace vzapi::dataobject {

// Fills the MultimediaItem at `record`. Raises VZ_ERR_BAD_VALUE for a record whose `size` is not 40, which is
// left as it is, and for bytes that do not decode; the record is zeroed behind `size` then.
void read_multimedia(std::string_view pdu, void* record);

// Gives `object`, which holds nothing, the PDU of the MultimediaItem at `record` in a new block. Raises
// VZ_ERR_BAD_VALUE for a record that cannot be encoded.
void write_multimedia(const void* record, DataObject& object);

// Raises VZ_ERR_BAD_VALUE unless the bytes decode to one header or part at least, and a message type or
// content type is among them.
void validate_multimedia(std::string_view pdu);

}  // namespace vzapi::dataobject
