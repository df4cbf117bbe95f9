// Which field a line becomes, by its property and the words of its parameters.
#pragma once

#include <cstdint>

#include "vcard/parameter_words.h"
#include "versit/names.h"

namespace vzapi::vcard {

// TEL, X-SIP and X-ASSISTANT-TEL. A SIP address is one of the phones or of the addresses list.
[[nodiscard]] std::uint32_t phone_field(versit::PropertyId property, TypeWords words) noexcept;

// ADR, EMAIL and URL.
[[nodiscard]] std::uint32_t address_field(versit::PropertyId property, TypeWords words) noexcept;

// The kind of a messaging address: the first of PERSONAL, BUSINESS, HOME, WORK, MOBILE, else
// VZ_MESSAGING_NONE.
[[nodiscard]] std::uint32_t messaging_kind(TypeWords words) noexcept;

}  // namespace vzapi::vcard
