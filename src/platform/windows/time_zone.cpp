#include "platform/time_zone.h"

#include <windows.h>

namespace vzapi::platform {
namespace {

using std::chrono::local_seconds;
using std::chrono::sys_seconds;

SYSTEMTIME to_system_time(sys_seconds moment) noexcept {
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time_of_day(moment - day);
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    time.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    time.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    time.wHour = static_cast<WORD>(time_of_day.hours().count());
    time.wMinute = static_cast<WORD>(time_of_day.minutes().count());
    time.wSecond = static_cast<WORD>(time_of_day.seconds().count());
    return time;
}

local_seconds from_system_time(const SYSTEMTIME& time) noexcept {
    const std::chrono::local_days day(std::chrono::year(time.wYear) / time.wMonth / time.wDay);
    return day + std::chrono::hours(time.wHour) + std::chrono::minutes(time.wMinute) +
           std::chrono::seconds(time.wSecond);
}

// The system's own calendar goes from 1601 to 30827.
bool has_system_time(sys_seconds moment) noexcept {
    using std::chrono::sys_days;
    using std::chrono::year;
    return moment >= sys_days(year(1601) / 1 / 2) && moment < sys_days(year(30827) / 1 / 1);
}

}  // namespace

local_seconds to_local_time(sys_seconds utc) noexcept {
    const local_seconds unchanged(utc.time_since_epoch());
    if (!has_system_time(utc)) return unchanged;
    const SYSTEMTIME moment = to_system_time(utc);
    DYNAMIC_TIME_ZONE_INFORMATION machine_zone{};
    TIME_ZONE_INFORMATION zone_of_year{};
    SYSTEMTIME local{};
    if (GetDynamicTimeZoneInformation(&machine_zone) == TIME_ZONE_ID_INVALID ||
        !GetTimeZoneInformationForYear(moment.wYear, &machine_zone, &zone_of_year) ||
        !SystemTimeToTzSpecificLocalTime(&zone_of_year, &moment, &local)) {
        return unchanged;
    }
    return from_system_time(local);
}

}  // namespace vzapi::platform
