// The parts of a contact, named for code: lists, the members of a postal address, dates.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vzapi/contact.h"
#include "vzconv/contact_words.h"
#include "vzconv/unicode.h"

namespace vzconv {

// The entries of one list of `item`; a count that is negative as a signed number is no entry.
std::span<const ContactField> entries_of(const ContactItem& item, ContactList list);

struct AddressPart {
    char16_t* ContactAddress::*member;
    const char* key;
};

// The members of a postal address, in the order of ADR.
std::span<const AddressPart> address_parts();

// "1980-02-29", with "T12:30:00" behind it when the time is another than midnight.
std::string iso_date_of(const ContactDate& date);

// The date that such a text means; nothing when it is none.
std::optional<ContactDate> date_of_iso(std::string_view text);

// "29 February 1980", as a person writes it; without a year where it is 0, with the time where there is one.
std::string readable_date_of(const ContactDate& date);

}  // namespace vzconv
