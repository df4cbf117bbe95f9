#include "vzconv/profile.h"

#include <charconv>
#include <limits>
#include <optional>
#include <string>

#include "vzapi/vzapi.h"
#include "vzconv/ascii.h"
#include "vzconv/failure.h"

namespace vzconv {
namespace {

constexpr ProfileRow kProfiles[] = {
    {"none", VZ_PROFILE_NONE, 0, "the plain form"},
    {"10-messengers", VZ_PROFILE_10, VZ_PROFILE_10_MESSENGERS,
     "X-JABBER, X-SKYPE, X-FACEBOOK for X-IMPP; nicknames, role"},
    {"10-messengers-and-sms", VZ_PROFILE_10, VZ_PROFILE_10_MESSENGERS_AND_SMS,
     "the same; messages in their extended form"},
    {"10-empty-fields", VZ_PROFILE_10, VZ_PROFILE_10_EMPTY_FIELDS,
     "a line without value for each absent field"},
    {"10-empty-fields-revision", VZ_PROFILE_10, VZ_PROFILE_10_EMPTY_FIELDS_REVISION, "the same"},
    {"20-empty-fields", VZ_PROFILE_20, VZ_PROFILE_20_EMPTY_FIELDS,
     "a line without value for each absent field; untyped photos"},
    {"20-calendar-2", VZ_PROFILE_20, VZ_PROFILE_20_CALENDAR_2, "calendar entries as version 2.0"},
    {"20-plain-voice", VZ_PROFILE_20, VZ_PROFILE_20_PLAIN_VOICE,
     "the same; the general voice number without a type"},
};

// The number that all of `text` is; nothing when it is none, or too large.
std::optional<uint64_t> number_of(std::string_view text, uint64_t largest) {
    const bool is_hexadecimal = starts_ignoring_case(text, "0x");
    if (is_hexadecimal) text.remove_prefix(2);
    uint64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, is_hexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end || number > largest) return std::nullopt;
    return number;
}

}  // namespace

std::span<const ProfileRow> profiles() {
    return kProfiles;
}

Profile profile_of(std::string_view text) {
    for (const ProfileRow& row : kProfiles) {
        if (!equal_ignoring_case(row.name, text)) continue;
        return row.family == VZ_PROFILE_NONE ? Profile{} : Profile{row.family, row.version, VZ_PROFILE_ON};
    }
    const std::size_t colon = text.find(':');
    if (colon != std::string_view::npos) {
        const auto family = number_of(text.substr(0, colon), std::numeric_limits<uint64_t>::max());
        const auto version = number_of(text.substr(colon + 1), std::numeric_limits<uint32_t>::max());
        if (family && version) return {*family, static_cast<uint32_t>(*version), VZ_PROFILE_ON};
    }
    throw Failure("there is no profile \"" + std::string(text) + "\"");
}

}  // namespace vzconv
