#include "vzconv/utc_offset.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace vzconv {
namespace {

constexpr int64_t kMinutesOfHour = 60;

// The number that the two characters at `at` are; -1 when they are none.
int number_at(std::string_view text, std::size_t at) {
    int number = 0;
    const char* begin = text.data() + at;
    const auto [stop, error] = std::from_chars(begin, begin + 2, number);
    return error == std::errc() && stop == begin + 2 ? number : -1;
}

}  // namespace

std::string utc_offset_of(int32_t minutes) {
    const long long distance = std::llabs(minutes);
    char text[32];
    std::snprintf(text, sizeof text, "%c%02lld:%02lld", minutes < 0 ? '-' : '+', distance / kMinutesOfHour,
                  distance % kMinutesOfHour);
    return text;
}

std::optional<int32_t> minutes_of_utc_offset(std::string_view text) {
    if (text.size() != 6 || (text[0] != '+' && text[0] != '-') || text[3] != ':') return std::nullopt;
    const int hours = number_at(text, 1);
    const int minutes = number_at(text, 4);
    if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59) return std::nullopt;
    const int distance = 60 * hours + minutes;
    return text[0] == '-' ? -distance : distance;
}

}  // namespace vzconv
