// Dates of contacts: BDAY and X-ANNIVERSARY.
#pragma once

#include <optional>
#include <string_view>

#include "vzapi/contact.h"

namespace vzapi::vcard {

// YYYYMMDD or YYYY-MM-DD, with or without a time behind a 'T' (THHMMSS or THH:MM:SS, the seconds and what
// comes after them may be missing; ISO 8601), blanks around it allowed. Nothing for any other text and for a
// day that no calendar has; a time that is none is taken for midnight.
[[nodiscard]] std::optional<ContactDate> parse_contact_date(std::u16string_view text) noexcept;

}  // namespace vzapi::vcard
