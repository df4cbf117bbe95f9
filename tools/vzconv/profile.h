// The profile of the receiving device, which some writers shape their text for.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vzconv {

// The three options of ConvertToVersit2; as it is made, none.
struct Profile {
    uint64_t family = 0;
    uint32_t version = 0;
    uint64_t counts = 0;

    bool is_none() const { return counts == 0; }
};

struct ProfileRow {
    std::string_view name;
    uint64_t family;
    uint32_t version;
    std::string_view effect;  // for --help
};

// The profiles that have a name.
std::span<const ProfileRow> profiles();

// The profile that `text` names: one of the names, or "FAMILY:VERSION" in decimal or, behind 0x, hexadecimal
// digits. Throws Failure when it is neither.
Profile profile_of(std::string_view text);

}  // namespace vzconv
