// The time zone of this machine.
#pragma once

#include <chrono>

namespace vzapi::platform {

// What the clock on the wall shows at the moment `utc`, by the rules of the machine's zone for that date
// (Linux: the C library's local time, honouring TZ). `utc` itself where the system has no answer.
[[nodiscard]] std::chrono::local_seconds to_local_time(std::chrono::sys_seconds utc) noexcept;

}  // namespace vzapi::platform
