// Takes out of a text what no versit line may carry.
#pragma once

#include <string>
#include <string_view>

namespace vzapi::versit {

// `text` without control characters (below U+0020, and U+007F) other than TAB, CR and LF.
[[nodiscard]] std::u16string clean_text(std::u16string_view text);

// The same, copied to `storage` only when something has to go, which is rare.
[[nodiscard]] std::u16string_view clean_text(std::u16string_view text, std::u16string& storage);

}  // namespace vzapi::versit
