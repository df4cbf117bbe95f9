// The names of the item types: CATEGORIES, X-EPOCAGENDAENTRYTYPE and X-EPOC-AGENDA-TYPE.
#pragma once

#include <cstdint>
#include <string_view>

namespace vzapi::vcalendar {

// The VZ_ITEM_ code of a name, compared without regard to the case of ASCII letters; VZ_ITEM_OTHER for any
// other name and for none.
[[nodiscard]] std::uint32_t item_type_of_name(std::u16string_view name) noexcept;

// The name that an item type is written with; empty for VZ_ITEM_OTHER, VZ_ITEM_NOTE and unknown codes.
[[nodiscard]] std::string_view name_of_item_type(std::uint32_t type) noexcept;

}  // namespace vzapi::vcalendar
