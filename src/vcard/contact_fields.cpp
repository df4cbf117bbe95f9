#include "vcard/contact_fields.h"

#include <array>

#include "vzapi/contact.h"

namespace vzapi::vcard {
namespace {

using enum ContactList;
using enum ValueKind;
using versit::PropertyId;
using versit::WordRow;

constexpr FieldRow kFields[] = {
    // clang-format off
    {VZ_CONTACT_FAMILY_NAME,          PropertyId::N,               "",                General,   Component, 0},
    {VZ_CONTACT_GIVEN_NAME,           PropertyId::N,               "",                General,   Component, 1},
    {VZ_CONTACT_ADDITIONAL_NAME,      PropertyId::N,               "",                General,   Component, 2},
    {VZ_CONTACT_NAME_PREFIX,          PropertyId::N,               "",                General,   Component, 3},
    {VZ_CONTACT_NAME_SUFFIX,          PropertyId::N,               "",                General,   Component, 4},
    {VZ_CONTACT_NAME_EXTRA,           PropertyId::N,               "",                General,   Component, 5},
    {VZ_CONTACT_COMPANY,              PropertyId::Org,             "",                General,   Component, 0},
    {VZ_CONTACT_JOB_TITLE,            PropertyId::Title,           "",                General,   MultilineText},
    {VZ_CONTACT_BIRTHDAY,             PropertyId::Bday,            "",                General,   Date},
    {VZ_CONTACT_PHOTO,                PropertyId::Photo,           "",                General,   Photo},
    {VZ_CONTACT_SECOND_NAME,          PropertyId::XEpocSecondName, "",                General,   MultilineText},
    {VZ_CONTACT_FORMATTED_NAME,       PropertyId::Fn,              "",                General,   MultilineText},
    {VZ_CONTACT_PHONETIC_FAMILY_NAME, PropertyId::Sound,           ";X-IRMC-N",       General,   Component, 0},
    {VZ_CONTACT_PHONETIC_GIVEN_NAME,  PropertyId::Sound,           ";X-IRMC-N",       General,   Component, 1},
    {VZ_CONTACT_PHONETIC_COMPANY,     PropertyId::Sound,           ";X-IRMC-ORG",     General,   Text},
    {VZ_CONTACT_SPOUSE,               PropertyId::XSpouse,         "",                General,   MultilineText},
    {VZ_CONTACT_CHILDREN,             PropertyId::XChildren,       "",                General,   MultilineText},
    {VZ_CONTACT_ASSISTANT,            PropertyId::XAssistant,      "",                General,   MultilineText},
    {VZ_CONTACT_ANNIVERSARY,          PropertyId::XAnniversary,    "",                General,   Date},
    {VZ_CONTACT_DEPARTMENT,           PropertyId::Org,             "",                General,   Component, 1},
    {VZ_CONTACT_PHONE,                PropertyId::Tel,             ";VOICE",          Phones,    Text},
    {VZ_CONTACT_PHONE_HOME,           PropertyId::Tel,             ";HOME",           Phones,    Text},
    {VZ_CONTACT_PHONE_WORK,           PropertyId::Tel,             ";WORK",           Phones,    Text},
    {VZ_CONTACT_PHONE_PREFERRED,      PropertyId::Tel,             ";PREF",           Phones,    Text},
    {VZ_CONTACT_PHONE_CAR,            PropertyId::Tel,             ";CAR",            Phones,    Text},
    {VZ_CONTACT_PHONE_MODEM,          PropertyId::Tel,             ";MODEM",          Phones,    Text},
    {VZ_CONTACT_PHONE_PAGER,          PropertyId::Tel,             ";PAGER",          Phones,    Text},
    {VZ_CONTACT_PHONE_MOBILE,         PropertyId::Tel,             ";CELL",           Phones,    Text},
    {VZ_CONTACT_PHONE_MOBILE_HOME,    PropertyId::Tel,             ";CELL;HOME",      Phones,    Text},
    {VZ_CONTACT_PHONE_MOBILE_WORK,    PropertyId::Tel,             ";CELL;WORK",      Phones,    Text},
    {VZ_CONTACT_PHONE_FAX,            PropertyId::Tel,             ";FAX",            Phones,    Text},
    {VZ_CONTACT_PHONE_FAX_HOME,       PropertyId::Tel,             ";FAX;HOME",       Phones,    Text},
    {VZ_CONTACT_PHONE_FAX_WORK,       PropertyId::Tel,             ";FAX;WORK",       Phones,    Text},
    {VZ_CONTACT_PHONE_VIDEO,          PropertyId::Tel,             ";VIDEO",          Phones,    Text},
    {VZ_CONTACT_PHONE_VIDEO_HOME,     PropertyId::Tel,             ";VIDEO;HOME",     Phones,    Text},
    {VZ_CONTACT_PHONE_VIDEO_WORK,     PropertyId::Tel,             ";VIDEO;WORK",     Phones,    Text},
    {VZ_CONTACT_PHONE_VOIP,           PropertyId::XSip,            ";VOIP",           Phones,    Text},
    {VZ_CONTACT_PHONE_VOIP_HOME,      PropertyId::XSip,            ";VOIP;HOME",      Phones,    Text},
    {VZ_CONTACT_PHONE_VOIP_WORK,      PropertyId::XSip,            ";VOIP;WORK",      Phones,    Text},
    {VZ_CONTACT_PHONE_ASSISTANT,      PropertyId::XAssistantTel,   "",                Phones,    Text},
    {VZ_CONTACT_PHONE_MARK,           PropertyId::None,            "",                Phones,    Marker},
    {VZ_CONTACT_ADDRESS,              PropertyId::Adr,             ";POSTAL",         Addresses, Address},
    {VZ_CONTACT_ADDRESS_WORK,         PropertyId::Adr,             ";WORK",           Addresses, Address},
    {VZ_CONTACT_ADDRESS_HOME,         PropertyId::Adr,             ";HOME",           Addresses, Address},
    {VZ_CONTACT_EMAIL,                PropertyId::Email,           "",                Addresses, Text},
    {VZ_CONTACT_EMAIL_HOME,           PropertyId::Email,           ";INTERNET;HOME",  Addresses, Text},
    {VZ_CONTACT_EMAIL_WORK,           PropertyId::Email,           ";INTERNET;WORK",  Addresses, Text},
    {VZ_CONTACT_WEB,                  PropertyId::Url,             "",                Addresses, Text},
    {VZ_CONTACT_WEB_HOME,             PropertyId::Url,             ";HOME",           Addresses, Text},
    {VZ_CONTACT_WEB_WORK,             PropertyId::Url,             ";WORK",           Addresses, Text},
    {VZ_CONTACT_PUSH_TO_TALK,         PropertyId::XSip,            ";POC",            Addresses, Text},
    {VZ_CONTACT_VIDEO_SHARING,        PropertyId::XSip,            ";SWIS",           Addresses, Text},
    {VZ_CONTACT_SIP,                  PropertyId::XSip,            "",                Addresses, Text},
    {VZ_CONTACT_ADDRESS_MARK,         PropertyId::None,            "",                Addresses, Marker},
    {VZ_CONTACT_NOTE,                 PropertyId::Note,            "",                Extended,  MultilineText},
    {VZ_CONTACT_DTMF,                 PropertyId::XDtmf,           "",                Extended,  Text},
    {VZ_CONTACT_UID,                  PropertyId::Uid,             "",                Extended,  Text},
    {VZ_CONTACT_WIRELESS_VILLAGE_ID,  PropertyId::XWvId,           "",                Extended,  Text},
    {VZ_CONTACT_CLASS,                PropertyId::Class,           "",                Extended,  Class},
    {VZ_CONTACT_GEO,                  PropertyId::Geo,             "",                Extended,  Text},
    {VZ_CONTACT_MESSAGING,            PropertyId::XImpp,           "",                Extended,  Messaging},
    {VZ_CONTACT_FAVORITE,             PropertyId::XFavorite,       "",                Extended,  Number},
    {VZ_CONTACT_SELF,                 PropertyId::XSelf,           "",                Extended,  Number},
    {VZ_CONTACT_GENDER,               PropertyId::XGender,         "",                Extended,  Gender},
    // clang-format on
};

constexpr std::uint32_t kLastId = VZ_CONTACT_GENDER;
constexpr std::uint8_t kNoRow = 255;

constexpr bool ids_ascend() {
    for (std::size_t i = 1; i < std::size(kFields); ++i) {
        if (kFields[i - 1].id >= kFields[i].id) return false;
    }
    return kFields[std::size(kFields) - 1].id == kLastId && std::size(kFields) < kNoRow;
}
static_assert(ids_ascend());

constexpr auto make_index() {
    std::array<std::uint8_t, kLastId + 1> index{};
    for (std::uint8_t& row : index) row = kNoRow;
    for (std::size_t i = 0; i < std::size(kFields); ++i) index[kFields[i].id] = static_cast<std::uint8_t>(i);
    return index;
}
constexpr auto kIndex = make_index();

constexpr WordRow kGenderWords[] = {
    {VZ_GENDER_MALE, "male"},
    {VZ_GENDER_FEMALE, "female"},
    {VZ_GENDER_UNDEFINED, "undefined"},
};

constexpr WordRow kMessagingWords[] = {
    {VZ_MESSAGING_PERSONAL, "PERSONAL"},  //
    {VZ_MESSAGING_BUSINESS, "BUSINESS"},  //
    {VZ_MESSAGING_HOME, "HOME"},          //
    {VZ_MESSAGING_WORK, "WORK"},          //
    {VZ_MESSAGING_MOBILE, "MOBILE"},
};

}  // namespace

std::span<const FieldRow> contact_fields() noexcept {
    return kFields;
}

const FieldRow* find_contact_field(std::uint32_t id) noexcept {
    return id <= kLastId && kIndex[id] != kNoRow ? &kFields[kIndex[id]] : nullptr;
}

std::span<const WordRow> gender_words() noexcept {
    return kGenderWords;
}

std::span<const WordRow> messaging_words() noexcept {
    return kMessagingWords;
}

}  // namespace vzapi::vcard
