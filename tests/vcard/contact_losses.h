// What becomes of a contact that is written and read again: the same, but for what the rules of vCard text
// lose. Each such loss is a predicate here; docs/limits.md lists them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vcard/contact_builder.h"

namespace vzapi::test {

// One property value, made of several components or of one.
struct PropertyValue {
    std::u16string text;  // the components joined as in a line, before any encoding
    bool is_encoded;      // written as quoted-printable
};

[[nodiscard]] PropertyValue property_value(const Entry& entry);  // REQUIRES: the entry's value is a Text
[[nodiscard]] PropertyValue compound_value(const std::vector<std::u16string_view>& components);

// ---- Losses of a value, whatever the property.

[[nodiscard]] bool makes_a_bookmark(std::u16string_view text);
[[nodiscard]] bool holds_an_unpaired_surrogate(std::u16string_view text);
[[nodiscard]] bool is_left_encoded(const PropertyValue& value);
[[nodiscard]] bool ends_in_an_equals_sign(const PropertyValue& value);
[[nodiscard]] bool ends_in_an_escape_character(const PropertyValue& value);
[[nodiscard]] bool is_decoded_by_mistake(const PropertyValue& value);
[[nodiscard]] bool is_lost(const PropertyValue& value);  // any of these

// ---- Losses of an entry.

// The two characters "\n" in a field of several lines come back as the line break that they stand for.
[[nodiscard]] bool holds_line_break_letters(const Entry& entry);
// TEL;VOICE;PREF is the preferred number (35), and so is TEL;PREF.
[[nodiscard]] bool turns_into_the_preferred_number(const Entry& entry);
// Only the day of a date is written, and only years of four digits.
[[nodiscard]] bool is_no_plain_day(const Entry& entry);
// An image type that no device knows is written as JPEG, and so is none.
[[nodiscard]] bool loses_its_image_type(const Entry& entry);
// A word is written for a class or gender: other numbers have none.
[[nodiscard]] bool has_no_word(const Entry& entry);
// An empty text is no entry when it is read, nor is an address of empty components.
[[nodiscard]] bool is_empty(const Entry& entry);
[[nodiscard]] bool is_lost(const Entry& entry);  // any of these, or of its value

// ---- The whole contact.

// True when after_the_trip() tells what comes back: no entry is lost, and no entry of which a card has one is
// there twice.
[[nodiscard]] bool comes_back(const Contact& contact);

// What comes back, from interface version 14 on: marks have become the flags of the equal values, and the
// lists `general` and `extended` stand in the order of the ids, without flags.
[[nodiscard]] Contact after_the_trip(const Contact& contact);

// `general` and `extended` in the order of the ids: the writer has an order of its own.
[[nodiscard]] Contact in_order(Contact contact);

}  // namespace vzapi::test
