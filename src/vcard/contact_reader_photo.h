// Pictures of contacts: PHOTO.
#pragma once

#include "vcard/contact_record.h"
#include "versit/names.h"
#include "versit/property.h"

namespace vzapi::vcard {

// Adds the picture of `line`. Its parameters alone tell the encoding, so that no picture is taken for another
// one whose data spell the name of an encoding; where they tell none it is `default_encoding`. A reference
// (VALUE=URL) and a picture without bytes add nothing.
void read_photo(const versit::VersitProperty& line, bool preferred, versit::Encoding default_encoding,
                ContactBuilder& contact);

}  // namespace vzapi::vcard
