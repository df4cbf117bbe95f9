// Receiving devices that want a contact written their own way.
#pragma once

#include <cstdint>

#include "call_context.h"

namespace vzapi::vcard {

// What a profile changes; several may come together.
enum class Effect : std::uint8_t {
    EmptyFieldLines = 1,  // fields that the contact does not have are written empty, so that they are cleared
    PhotoWithoutType = 2,     // no TYPE in the head of PHOTO
    PlainVoiceNumber = 4,     // the general voice number is TEL without a type
    NicknameAndRole = 8,      // NICKNAME and X-NICKNAME beside X-EPOCSECONDNAME, ROLE beside TITLE
    MessagingByService = 16,  // X-JABBER, X-SKYPE and X-FACEBOOK in the place of X-IMPP
    CategoriesLine = 32,      // an empty X-CATEGORIES ends the extended fields
};

class EffectSet {
public:
    constexpr void add(Effect effect) noexcept { bits_ |= static_cast<unsigned>(effect); }
    [[nodiscard]] constexpr bool has(Effect effect) const noexcept {
        return (bits_ & static_cast<unsigned>(effect)) != 0;
    }

private:
    unsigned bits_ = 0;
};

// What the profile in `context` changes: nothing when its third number is 0 or the table does not know it.
[[nodiscard]] EffectSet profile_effects(const WriterContext& context) noexcept;

}  // namespace vzapi::vcard
