#include "vcalendar/item_type.h"

#include "versit/ascii.h"
#include "vzapi/calendar.h"

namespace vzapi::vcalendar {
namespace {

struct NameRow {
    std::uint32_t type;
    std::string_view name;
    bool is_written;
};

// In the order of the codes.
constexpr NameRow kNames[] = {
    // clang-format off
    {VZ_ITEM_APPOINTMENT, "MEETING",          false},
    {VZ_ITEM_APPOINTMENT, "APPOINTMENT",      true},
    {VZ_ITEM_CALL,        "CALL",             true},
    {VZ_ITEM_CALL,        "PHONE CALL",       false},
    {VZ_ITEM_BIRTHDAY,    "BIRTHDAY",         false},
    {VZ_ITEM_BIRTHDAY,    "ANNIVERSARY",      true},
    {VZ_ITEM_BIRTHDAY,    "SPECIAL OCCASION", false},
    {VZ_ITEM_EVENT,       "MEMO",             false},
    {VZ_ITEM_EVENT,       "EVENT",            true},
    {VZ_ITEM_EVENT,       "MISCELLANEOUS",    false},
    {VZ_ITEM_REMINDER,    "REMINDER",         true},
    {VZ_ITEM_NOTE,        "NOTE",             false},
    {VZ_ITEM_TODO,        "TODO",             true},
    {VZ_ITEM_ANNIVERSARY, "ANNIVERSARY",      true},
    // clang-format on
};

}  // namespace

std::uint32_t item_type_of_name(std::u16string_view name) noexcept {
    for (const NameRow& row : kNames) {
        if (versit::equals_ignoring_case(name, row.name)) return row.type;
    }
    return VZ_ITEM_OTHER;
}

std::string_view name_of_item_type(std::uint32_t type) noexcept {
    for (const NameRow& row : kNames) {
        if (row.type == type && row.is_written) return row.name;
    }
    return {};
}

}  // namespace vzapi::vcalendar
