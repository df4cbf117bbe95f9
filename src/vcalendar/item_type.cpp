#include "vcalendar/item_type.h"

#include "versit/ascii.h"
#include "vzapi/calendar.h"

namespace vzapi::vcalendar {
namespace {

struct NameRow {
    std::uint32_t type;
    bool is_written;
    std::string_view name;
};

// In the order of the codes.
constexpr NameRow kNames[] = {
    // clang-format off
    {VZ_ITEM_APPOINTMENT, false, "MEETING"},
    {VZ_ITEM_APPOINTMENT, true,  "APPOINTMENT"},
    {VZ_ITEM_CALL,        true,  "CALL"},
    {VZ_ITEM_CALL,        false, "PHONE CALL"},
    {VZ_ITEM_BIRTHDAY,    false, "BIRTHDAY"},
    {VZ_ITEM_BIRTHDAY,    true,  "ANNIVERSARY"},
    {VZ_ITEM_BIRTHDAY,    false, "SPECIAL OCCASION"},
    {VZ_ITEM_EVENT,       false, "MEMO"},
    {VZ_ITEM_EVENT,       true,  "EVENT"},
    {VZ_ITEM_EVENT,       false, "MISCELLANEOUS"},
    {VZ_ITEM_REMINDER,    true,  "REMINDER"},
    {VZ_ITEM_NOTE,        false, "NOTE"},
    {VZ_ITEM_TODO,        true,  "TODO"},
    {VZ_ITEM_ANNIVERSARY, true,  "ANNIVERSARY"},
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
