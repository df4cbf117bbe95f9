// Offsets from UTC: "+01:00".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vzconv {

std::string utc_offset_of(int32_t minutes);

// Minutes east of UTC; nothing for any other text and from 24 hours on.
std::optional<int32_t> minutes_of_utc_offset(std::string_view text);

}  // namespace vzconv
