// String values of the machine-wide settings store: the local-machine hive of the Windows registry; on Linux
// a folder a key and a file a value, UTF-8, below /etc/opt/corvanet or the folder that VZAPI_REGISTRY names.
// Keys are written with '\' between their parts; a trailing one does not matter.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vzapi::platform {

// Each returns false when it could not be done, and says no more: callers go on without.

[[nodiscard]] bool registry_create_key(std::u16string_view key) noexcept;
[[nodiscard]] bool registry_has_key(std::u16string_view key) noexcept;
[[nodiscard]] bool registry_write(std::u16string_view key, std::u16string_view name,
                                  std::u16string_view value) noexcept;
[[nodiscard]] bool registry_delete_value(std::u16string_view key, std::u16string_view name) noexcept;

// The value, its terminator taken off; nothing when key or value is not there.
[[nodiscard]] std::optional<std::u16string> registry_read(std::u16string_view key, std::u16string_view name);

}  // namespace vzapi::platform
