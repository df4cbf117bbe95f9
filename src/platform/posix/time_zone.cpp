#include "platform/time_zone.h"

#include <ctime>

namespace vzapi::platform {

std::chrono::local_seconds to_local_time(std::chrono::sys_seconds utc) noexcept {
    // localtime_r() need not look at TZ again once it has.
    tzset();
    const std::time_t moment = utc.time_since_epoch().count();
    std::tm local{};
    const bool known = localtime_r(&moment, &local) != nullptr;
    const std::chrono::seconds offset(known ? local.tm_gmtoff : 0);
    return std::chrono::local_seconds(utc.time_since_epoch() + offset);
}

}  // namespace vzapi::platform
