// The text that a caller passes in a VersitData, checked for readability.
#pragma once

#include <string>
#include <string_view>

#include "vzapi/base.h"

namespace vzapi {

// The `length` bytes of `data`; raises `unreadable` when they cannot be read: null with a length counts as
// such, null without one is an empty text. The view is the caller's memory.
[[nodiscard]] std::string_view narrow_text(const VersitData& data, ResultCode unreadable);

// The same as `length` / 2 UTF-16 units. Text at an odd address is copied into `storage` first.
[[nodiscard]] std::u16string_view wide_text(const VersitData& data, ResultCode unreadable,
                                            std::u16string& storage);

}  // namespace vzapi
