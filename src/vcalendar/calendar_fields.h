// What each entry of the array `fields` is in a vCalendar: one row an id.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "versit/coded_value.h"
#include "versit/names.h"

namespace vzapi::vcalendar {

enum class FieldKind : std::uint8_t {
    Class,      // number, a word of the class table
    Geo,        // CalendarGeo
    Text,       // text
    Priority,   // number, decimal
    Status,     // number, a word of the status table or decimal
    Reference,  // CalendarReference, in a line of its own name, kReferenceName
};

struct FieldRow {
    std::uint32_t id;
    versit::PropertyId property;  // None for the reference
    FieldKind kind;
    bool in_todo;  // whether a to-do is written with it
};

inline constexpr std::string_view kReferenceName = "X-VZAPI-CAL-REFERENCE";
inline constexpr std::string_view kItemTypeName = "X-VZAPI-ITEM-TYPE";

// All rows, in the order of the ids. The birth year of birthdays and anniversaries has the id of a text and
// is no row of its own.
[[nodiscard]] std::span<const FieldRow> calendar_fields() noexcept;

// The row of `id`; null when the id has no meaning.
[[nodiscard]] const FieldRow* find_calendar_field(std::uint32_t id) noexcept;

// True when 0x302 is the birth year of an item of that type.
[[nodiscard]] bool has_birth_year(std::uint32_t item_type) noexcept;

// NEEDS ACTION, COMPLETED, in the order of the codes, which begin at 1.
[[nodiscard]] std::span<const versit::WordRow> status_words() noexcept;

}  // namespace vzapi::vcalendar
