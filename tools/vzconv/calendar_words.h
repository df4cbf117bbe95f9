// What the parts of a calendar entry are called, in JSON and for a person.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "vzconv/code_words.h"

namespace vzconv {

// What the value of a field is.
enum class CalendarValueKind : uint8_t { Text, Class, Geo, BirthYear, Priority, Status, Reference };

// A field of the array `fields`.
struct CalendarWord {
    uint32_t id;  // VZ_CALENDAR_...; for a description the one that it has in every type of event
    CalendarValueKind kind;
    std::string_view key;    // in JSON
    std::string_view label;  // for a person
};

// All rows, in the order in which a person looks for them.
std::span<const CalendarWord> calendar_words();

// The row of a field in an entry of that type. Null: an id without meaning.
const CalendarWord* calendar_word_of(uint32_t id, uint32_t item_type);

// Null: no field has the key.
const CalendarWord* calendar_word_of(std::string_view key);

// The id of a row in an entry of that type: the usual one of a description is that of the birth year where
// there is one.
uint32_t id_of(const CalendarWord& word, uint32_t item_type);

// Whether entries of that type have a birth year.
bool has_birth_year(uint32_t item_type);

std::span<const CodeWord> item_type_words();  // VZ_ITEM_...
std::span<const CodeWord> alarm_words();      // VZ_ALARM_...; no alarm has no word
std::span<const CodeWord> status_words();     // VZ_TODO_...
std::span<const CodeWord> unit_words();       // VZ_REPEAT_...: "day" and so on
std::span<const CodeWord> day_words();        // VZ_DAY_... bits, Monday first
std::span<const CodeWord> position_words();   // VZ_POSITION_...; none has no word

// What a person calls an entry of that type: "Appointment".
std::string_view heading_of(uint32_t item_type);

}  // namespace vzconv
