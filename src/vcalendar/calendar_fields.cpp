#include "vcalendar/calendar_fields.h"

#include <algorithm>

#include "vzapi/calendar.h"

namespace vzapi::vcalendar {
namespace {

using enum FieldKind;
using versit::PropertyId;
using versit::WordRow;

constexpr FieldRow kFields[] = {
    // clang-format off
    {VZ_CALENDAR_CLASS,             PropertyId::Class,       Class,     true},
    {VZ_CALENDAR_GEO,               PropertyId::Geo,         Geo,       true},
    {VZ_CALENDAR_SUMMARY,           PropertyId::Summary,     Text,      true},
    {VZ_CALENDAR_LOCATION,          PropertyId::Location,    Text,      false},
    {VZ_CALENDAR_DESCRIPTION,       PropertyId::Description, Text,      true},
    {VZ_CALENDAR_PRIORITY,          PropertyId::Priority,    Priority,  true},
    {VZ_CALENDAR_STATUS,            PropertyId::Status,      Status,    true},
    {VZ_CALENDAR_DESCRIPTION_ALONE, PropertyId::Description, Text,      false},
    {VZ_CALENDAR_REFERENCE,         PropertyId::None,        Reference, false},
    // clang-format on
};

constexpr WordRow kStatusWords[] = {{VZ_TODO_NEEDS_ACTION, "NEEDS ACTION"}, {VZ_TODO_COMPLETED, "COMPLETED"}};

}  // namespace

std::span<const FieldRow> calendar_fields() noexcept {
    return kFields;
}

const FieldRow* find_calendar_field(std::uint32_t id) noexcept {
    const auto* row = std::find_if(std::begin(kFields), std::end(kFields),
                                   [id](const FieldRow& each) { return each.id == id; });
    return row == std::end(kFields) ? nullptr : row;
}

bool has_birth_year(std::uint32_t item_type) noexcept {
    return item_type == VZ_ITEM_BIRTHDAY || item_type == VZ_ITEM_ANNIVERSARY;
}

std::span<const WordRow> status_words() noexcept {
    return kStatusWords;
}

}  // namespace vzapi::vcalendar
