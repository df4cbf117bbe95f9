// What the fields of a contact are called, in JSON and for a person: one row an id.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "vzconv/code_words.h"

namespace vzconv {

// The list of a ContactItem that an entry stands in.
enum class ContactList : uint8_t { General, Phones, Addresses, Extended };

// What an entry's value is.
enum class ContactValueKind : uint8_t { Text, Date, Photo, Address, Messaging, Class, Gender, Number };

struct ContactWord {
    uint32_t id;  // VZ_CONTACT_...
    ContactList list;
    ContactValueKind kind;
    // The object in JSON that holds the field: fields that stand on one line belong together. Empty: none.
    std::string_view group;
    // In JSON: the key of a field in the lists `general` and `extended`, the "type" of an entry in the other
    // two.
    std::string_view word;
    std::string_view label;  // for a person
};

// All rows, those of a list in the order of their keys in JSON, those of a group one behind the other.
std::span<const ContactWord> contact_words();

// Null: an id without meaning.
const ContactWord* contact_word_of(uint32_t id);

// The row of an entry's "type". Null: no field of that list has the word.
const ContactWord* contact_word_of(ContactList list, std::string_view word);

std::span<const CodeWord> gender_words();
std::span<const CodeWord> messaging_words();  // the kind 0, none, has no word

}  // namespace vzconv
