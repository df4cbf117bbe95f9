#include "vcard/contact_reader_types.h"

#include <algorithm>
#include <span>

#include "vzapi/contact.h"

namespace vzapi::vcard {
namespace {

using namespace type_word;
using versit::PropertyId;

constexpr TypeWords kAny = ~TypeWords{0};

// A rule matches when all of `all` are there, and nothing beside them but what `beside` allows. The first one
// that matches counts.
struct Rule {
    TypeWords all;
    TypeWords beside;
    std::uint32_t field;
};

// PAGER, MODEM, CAR, FAX, VIDEO, VOIP and CELL come before VOICE, HOME before WORK. PREF makes a field of its
// own only where it stands alone or with VOICE; elsewhere it only marks the number.
constexpr Rule kTelRules[] = {
    // clang-format off
    {kPager,         kAny,   VZ_CONTACT_PHONE_PAGER},
    {kModem,         kAny,   VZ_CONTACT_PHONE_MODEM},
    {kCar,           kAny,   VZ_CONTACT_PHONE_CAR},
    {kFax | kHome,   kAny,   VZ_CONTACT_PHONE_FAX_HOME},
    {kFax | kWork,   kAny,   VZ_CONTACT_PHONE_FAX_WORK},
    {kFax,           kAny,   VZ_CONTACT_PHONE_FAX},
    {kVideo | kHome, kAny,   VZ_CONTACT_PHONE_VIDEO_HOME},
    {kVideo | kWork, kAny,   VZ_CONTACT_PHONE_VIDEO_WORK},
    {kVideo,         kAny,   VZ_CONTACT_PHONE_VIDEO},
    {kVoip | kHome,  kAny,   VZ_CONTACT_PHONE_VOIP_HOME},
    {kVoip | kWork,  kAny,   VZ_CONTACT_PHONE_VOIP_WORK},
    {kVoip,          kAny,   VZ_CONTACT_PHONE_VOIP},
    {kCell | kHome,  kAny,   VZ_CONTACT_PHONE_MOBILE_HOME},
    {kCell | kWork,  kAny,   VZ_CONTACT_PHONE_MOBILE_WORK},
    {kCell,          kAny,   VZ_CONTACT_PHONE_MOBILE},
    {kHome,          kAny,   VZ_CONTACT_PHONE_HOME},
    {kWork,          kAny,   VZ_CONTACT_PHONE_WORK},
    {kPref,          kVoice, VZ_CONTACT_PHONE_PREFERRED},
    {0,              kAny,   VZ_CONTACT_PHONE},
    // clang-format on
};

constexpr Rule kSipRules[] = {
    {kVoip | kHome, kAny, VZ_CONTACT_PHONE_VOIP_HOME},
    {kVoip | kWork, kAny, VZ_CONTACT_PHONE_VOIP_WORK},
    {kVoip, kAny, VZ_CONTACT_PHONE_VOIP},
    {kPoc, kAny, VZ_CONTACT_PUSH_TO_TALK},
    {kSwis, kAny, VZ_CONTACT_VIDEO_SHARING},
    {0, kAny, VZ_CONTACT_SIP},
};

constexpr Rule kAssistantRules[] = {{0, kAny, VZ_CONTACT_PHONE_ASSISTANT}};

constexpr Rule kAdrRules[] = {
    {kHome, kAny, VZ_CONTACT_ADDRESS_HOME},
    {kWork, kAny, VZ_CONTACT_ADDRESS_WORK},
    {0, kAny, VZ_CONTACT_ADDRESS},
};

constexpr Rule kEmailRules[] = {
    {kHome, kAny, VZ_CONTACT_EMAIL_HOME},
    {kWork, kAny, VZ_CONTACT_EMAIL_WORK},
    {0, kAny, VZ_CONTACT_EMAIL},
};

constexpr Rule kUrlRules[] = {
    {kHome, kAny, VZ_CONTACT_WEB_HOME},
    {kWork, kAny, VZ_CONTACT_WEB_WORK},
    {0, kAny, VZ_CONTACT_WEB},
};

constexpr Rule kMessagingRules[] = {
    {kPersonal, kAny, VZ_MESSAGING_PERSONAL}, {kBusiness, kAny, VZ_MESSAGING_BUSINESS},
    {kHome, kAny, VZ_MESSAGING_HOME},         {kWork, kAny, VZ_MESSAGING_WORK},
    {kMobile, kAny, VZ_MESSAGING_MOBILE},     {0, kAny, VZ_MESSAGING_NONE},
};

// Every table ends with a rule that always matches.
std::uint32_t first_match(std::span<const Rule> rules, TypeWords words) noexcept {
    return std::find_if(rules.begin(), rules.end(),
                        [words](const Rule& rule) {
                            return (words & rule.all) == rule.all && (words & ~(rule.all | rule.beside)) == 0;
                        })
        ->field;
}

}  // namespace

std::uint32_t phone_field(PropertyId property, TypeWords words) noexcept {
    if (property == PropertyId::XAssistantTel) return first_match(kAssistantRules, words);
    return property == PropertyId::XSip ? first_match(kSipRules, words) : first_match(kTelRules, words);
}

std::uint32_t address_field(PropertyId property, TypeWords words) noexcept {
    if (property == PropertyId::Adr) return first_match(kAdrRules, words);
    return property == PropertyId::Email ? first_match(kEmailRules, words) : first_match(kUrlRules, words);
}

std::uint32_t messaging_kind(TypeWords words) noexcept {
    return first_match(kMessagingRules, words);
}

}  // namespace vzapi::vcard
