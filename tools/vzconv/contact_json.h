// A contact in JSON.
//
// Fields of the lists `general` and `extended` are keys; one that the contact has more than once is an array.
// Those that stand on one line are together in an object: "name", "phonetic", "organization"; a contact with
// several of such a line has an array of objects. "phones" and "addresses" are arrays of entries, each with
// its "type". So all comes back that can make a difference to a card: which list an entry stands in, its place
// among the entries of the lists `phones` and `addresses`, and among those of its own line or field.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "vzconv/contact_record.h"

namespace vzconv {

void put_contact(const ContactItem& item, nlohmann::ordered_json& object);

// Adds the entries that `object` names to `record`, which holds none yet. Throws Failure when anything in
// `object` is unknown or of a wrong type.
void take_contact(const nlohmann::json& object, ContactRecord& record);

}  // namespace vzconv
