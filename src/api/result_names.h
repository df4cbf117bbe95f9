// Names of results, in the order in which hosts number them; carried for tools that look for them in the
// binary.
#pragma once

#include <array>
#include <string_view>

namespace vzapi {

extern const std::array<std::u16string_view, 8> kResultNames;

}  // namespace vzapi
