// What each field of a contact is in a vCard: one row an id. Reader, writer and release are driven by the
// same rows.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "versit/coded_value.h"
#include "versit/names.h"

namespace vzapi::vcard {

// The four lists of a ContactItem.
enum class ContactList : std::uint8_t { General, Phones, Addresses, Extended };

// What an entry's value points at, and how it stands in a line.
enum class ValueKind : std::uint8_t {
    Component,      // text, one component of a compound value: see `component`
    Text,           // text, the whole value
    MultilineText,  // the same, and the two characters "\n" or "\N" stand for a line break
    Marker,         // text, never a line: marks the equal values of its list as preferred
    Date,           // ContactDate
    Photo,          // ContactPhoto
    Address,        // ContactAddress
    Messaging,      // nested ContactField
    Class,          // number, a word of the class table
    Gender,         // number, a word of the gender table
    Number,         // number, decimal
};

struct FieldRow {
    std::uint32_t id;
    versit::PropertyId property;  // None for markers
    std::string_view parameters;  // as written between name and value: empty, or beginning with ';'
    ContactList list;
    ValueKind kind;
    std::uint8_t component = 0;  // position inside the compound value, from 0
};

// All rows, in the order of the ids.
[[nodiscard]] std::span<const FieldRow> contact_fields() noexcept;

// The row of `id`; null when the id has no meaning.
[[nodiscard]] const FieldRow* find_contact_field(std::uint32_t id) noexcept;

// True when the value of such an entry is a pointer to text.
[[nodiscard]] constexpr bool is_text(ValueKind kind) noexcept {
    return kind <= ValueKind::Marker;
}

// Both in the order of the codes, which begin at 1.

// male, female, undefined: written in lower case.
[[nodiscard]] std::span<const versit::WordRow> gender_words() noexcept;

// PERSONAL, BUSINESS, HOME, WORK, MOBILE.
[[nodiscard]] std::span<const versit::WordRow> messaging_words() noexcept;

}  // namespace vzapi::vcard
