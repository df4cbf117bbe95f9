// The words of X-IRMC-STATUS, X-MESSAGE-TYPE and X-IRMC-BOX, and the codes that stand for them in a record.
#pragma once

#include <cstdint>
#include <string_view>

namespace vzapi::vmessage {

// The word of `code`; empty for 0 and for a code without a row.
[[nodiscard]] std::string_view status_name(std::uint32_t code) noexcept;
[[nodiscard]] std::string_view type_name(std::uint32_t code) noexcept;
[[nodiscard]] std::string_view folder_name(std::uint32_t code) noexcept;

// The code of the word that equals `name` exactly; 0 when there is none.
[[nodiscard]] std::uint32_t status_code(std::u16string_view name) noexcept;
[[nodiscard]] std::uint32_t type_code(std::u16string_view name) noexcept;
[[nodiscard]] std::uint32_t folder_code(std::u16string_view name) noexcept;

}  // namespace vzapi::vmessage
