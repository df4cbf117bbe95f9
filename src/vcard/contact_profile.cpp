#include "vcard/contact_profile.h"

#include "vzapi/vzapi.h"

namespace vzapi::vcard {
namespace {

using enum Effect;

constexpr std::uint32_t kNoLimit = UINT32_MAX;
constexpr std::uint32_t kAnyInterface = 0;

// One effect that a device family asks for, from one of its versions to another, both included, once the host
// announced `interface`. Effects of all rows that match come together.
struct ProfileRow {
    std::uint32_t family;
    std::uint32_t from;
    std::uint32_t to;
    std::uint32_t interface_version;
    Effect effect;
};

constexpr ProfileRow kProfiles[] = {
    // clang-format off
    {0x2000020, 300, 300,      kAnyInterface,      EmptyFieldLines},
    {0x2000020, 300, 300,      kAnyInterface,      PhotoWithoutType},
    {0x2000020, 323, kNoLimit, kAnyInterface,      PlainVoiceNumber},
    {0x2000020, 0,   kNoLimit, VZ_INTERFACE_MARKS, CategoriesLine},
    {0x2000010, 280, 280,      kAnyInterface,      EmptyFieldLines},
    {0x2000010, 260, 260,      kAnyInterface,      EmptyFieldLines},
    {0x2000010, 10,  10,       kAnyInterface,      NicknameAndRole},
    {0x2000010, 10,  10,       kAnyInterface,      MessagingByService},
    {0x2000010, 16,  16,       kAnyInterface,      NicknameAndRole},
    {0x2000010, 16,  16,       kAnyInterface,      MessagingByService},
    // clang-format on
};

bool matches(const ProfileRow& row, const WriterContext& context) {
    return row.family == context.option1 && row.from <= context.option2 && context.option2 <= row.to &&
           row.interface_version <= context.api_version;
}

}  // namespace

EffectSet profile_effects(const WriterContext& context) noexcept {
    EffectSet effects;
    if (context.option3 == 0) return effects;
    for (const ProfileRow& row : kProfiles) {
        if (matches(row, context)) effects.add(row.effect);
    }
    return effects;
}

}  // namespace vzapi::vcard
