#include "vzconv/contact_words.h"

#include <array>

#include "vzapi/vzapi.h"

namespace vzconv {
namespace {

using enum ContactList;
using enum ContactValueKind;

constexpr ContactWord kWords[] = {
    // clang-format off
    {VZ_CONTACT_FAMILY_NAME,          General,   Text,      "name",         "family",            "Family name"},
    {VZ_CONTACT_GIVEN_NAME,           General,   Text,      "name",         "given",             "Given name"},
    {VZ_CONTACT_ADDITIONAL_NAME,      General,   Text,      "name",         "additional",        "Additional name"},
    {VZ_CONTACT_NAME_PREFIX,          General,   Text,      "name",         "prefix",            "Prefix"},
    {VZ_CONTACT_NAME_SUFFIX,          General,   Text,      "name",         "suffix",            "Suffix"},
    {VZ_CONTACT_NAME_EXTRA,           General,   Text,      "name",         "extra",             "Further name"},
    {VZ_CONTACT_FORMATTED_NAME,       General,   Text,      "",             "formattedName",     "Name"},
    {VZ_CONTACT_SECOND_NAME,          General,   Text,      "",             "secondName",        "Second name"},
    {VZ_CONTACT_PHONETIC_FAMILY_NAME, General,   Text,      "phonetic",     "family",            "Family name, spoken"},
    {VZ_CONTACT_PHONETIC_GIVEN_NAME,  General,   Text,      "phonetic",     "given",             "Given name, spoken"},
    {VZ_CONTACT_COMPANY,              General,   Text,      "organization", "company",           "Company"},
    {VZ_CONTACT_DEPARTMENT,           General,   Text,      "organization", "department",        "Department"},
    {VZ_CONTACT_PHONETIC_COMPANY,     General,   Text,      "",             "phoneticCompany",   "Company, spoken"},
    {VZ_CONTACT_JOB_TITLE,            General,   Text,      "",             "title",             "Title"},
    {VZ_CONTACT_BIRTHDAY,             General,   Date,      "",             "birthday",          "Birthday"},
    {VZ_CONTACT_ANNIVERSARY,          General,   Date,      "",             "anniversary",       "Anniversary"},
    {VZ_CONTACT_SPOUSE,               General,   Text,      "",             "spouse",            "Spouse"},
    {VZ_CONTACT_CHILDREN,             General,   Text,      "",             "children",          "Children"},
    {VZ_CONTACT_ASSISTANT,            General,   Text,      "",             "assistant",         "Assistant"},
    {VZ_CONTACT_PHOTO,                General,   Photo,     "",             "photo",             "Photo"},
    {VZ_CONTACT_PHONE,                Phones,    Text,      "",             "voice",             "Phone"},
    {VZ_CONTACT_PHONE_HOME,           Phones,    Text,      "",             "home",              "Phone, home"},
    {VZ_CONTACT_PHONE_WORK,           Phones,    Text,      "",             "work",              "Phone, work"},
    {VZ_CONTACT_PHONE_PREFERRED,      Phones,    Text,      "",             "preferred",         "Preferred phone"},
    {VZ_CONTACT_PHONE_CAR,            Phones,    Text,      "",             "car",               "Car phone"},
    {VZ_CONTACT_PHONE_MODEM,          Phones,    Text,      "",             "modem",             "Modem"},
    {VZ_CONTACT_PHONE_PAGER,          Phones,    Text,      "",             "pager",             "Pager"},
    {VZ_CONTACT_PHONE_MOBILE,         Phones,    Text,      "",             "mobile",            "Mobile"},
    {VZ_CONTACT_PHONE_MOBILE_HOME,    Phones,    Text,      "",             "mobile home",       "Mobile, home"},
    {VZ_CONTACT_PHONE_MOBILE_WORK,    Phones,    Text,      "",             "mobile work",       "Mobile, work"},
    {VZ_CONTACT_PHONE_FAX,            Phones,    Text,      "",             "fax",               "Fax"},
    {VZ_CONTACT_PHONE_FAX_HOME,       Phones,    Text,      "",             "fax home",          "Fax, home"},
    {VZ_CONTACT_PHONE_FAX_WORK,       Phones,    Text,      "",             "fax work",          "Fax, work"},
    {VZ_CONTACT_PHONE_VIDEO,          Phones,    Text,      "",             "video",             "Video"},
    {VZ_CONTACT_PHONE_VIDEO_HOME,     Phones,    Text,      "",             "video home",        "Video, home"},
    {VZ_CONTACT_PHONE_VIDEO_WORK,     Phones,    Text,      "",             "video work",        "Video, work"},
    {VZ_CONTACT_PHONE_VOIP,           Phones,    Text,      "",             "VoIP",              "VoIP"},
    {VZ_CONTACT_PHONE_VOIP_HOME,      Phones,    Text,      "",             "VoIP home",         "VoIP, home"},
    {VZ_CONTACT_PHONE_VOIP_WORK,      Phones,    Text,      "",             "VoIP work",         "VoIP, work"},
    {VZ_CONTACT_PHONE_ASSISTANT,      Phones,    Text,      "",             "assistant",         "Phone, assistant"},
    {VZ_CONTACT_PHONE_MARK,           Phones,    Text,      "",             "preferred mark",    "Prefers number"},
    {VZ_CONTACT_ADDRESS,              Addresses, Address,   "",             "postal",            "Address"},
    {VZ_CONTACT_ADDRESS_WORK,         Addresses, Address,   "",             "postal work",       "Address, work"},
    {VZ_CONTACT_ADDRESS_HOME,         Addresses, Address,   "",             "postal home",       "Address, home"},
    {VZ_CONTACT_EMAIL,                Addresses, Text,      "",             "email",             "E-mail"},
    {VZ_CONTACT_EMAIL_HOME,           Addresses, Text,      "",             "email home",        "E-mail, home"},
    {VZ_CONTACT_EMAIL_WORK,           Addresses, Text,      "",             "email work",        "E-mail, work"},
    {VZ_CONTACT_WEB,                  Addresses, Text,      "",             "web",               "Web"},
    {VZ_CONTACT_WEB_HOME,             Addresses, Text,      "",             "web home",          "Web, home"},
    {VZ_CONTACT_WEB_WORK,             Addresses, Text,      "",             "web work",          "Web, work"},
    {VZ_CONTACT_PUSH_TO_TALK,         Addresses, Text,      "",             "push to talk",      "Push to talk"},
    {VZ_CONTACT_VIDEO_SHARING,        Addresses, Text,      "",             "video sharing",     "Video sharing"},
    {VZ_CONTACT_SIP,                  Addresses, Text,      "",             "SIP",               "SIP"},
    {VZ_CONTACT_ADDRESS_MARK,         Addresses, Text,      "",             "preferred mark",    "Prefers address"},
    {VZ_CONTACT_CLASS,                Extended,  Class,     "",             "class",             "Class"},
    {VZ_CONTACT_GENDER,               Extended,  Gender,    "",             "gender",            "Gender"},
    {VZ_CONTACT_NOTE,                 Extended,  Text,      "",             "note",              "Note"},
    {VZ_CONTACT_DTMF,                 Extended,  Text,      "",             "dtmf",              "DTMF sequence"},
    {VZ_CONTACT_WIRELESS_VILLAGE_ID,  Extended,  Text,      "",             "wirelessVillageId", "Wireless Village"},
    {VZ_CONTACT_MESSAGING,            Extended,  Messaging, "",             "messaging",         "Messaging"},
    {VZ_CONTACT_UID,                  Extended,  Text,      "",             "uid",               "Identifier"},
    {VZ_CONTACT_GEO,                  Extended,  Text,      "",             "geo",               "Position"},
    {VZ_CONTACT_FAVORITE,             Extended,  Number,    "",             "favorite",          "Favourite"},
    {VZ_CONTACT_SELF,                 Extended,  Number,    "",             "self",              "Own card"},
    // clang-format on
};

constexpr uint32_t kLastId = VZ_CONTACT_GENDER;
constexpr uint8_t kNoRow = 255;
static_assert(std::size(kWords) < kNoRow);

constexpr auto make_index() {
    std::array<uint8_t, kLastId + 1> index{};
    for (uint8_t& row : index) row = kNoRow;
    for (std::size_t i = 0; i < std::size(kWords); ++i) index[kWords[i].id] = static_cast<uint8_t>(i);
    return index;
}
constexpr auto kIndex = make_index();

constexpr CodeWord kGenderWords[] = {
    {VZ_GENDER_MALE, "male"},
    {VZ_GENDER_FEMALE, "female"},
    {VZ_GENDER_UNDEFINED, "undefined"},
};

constexpr CodeWord kMessagingWords[] = {
    {VZ_MESSAGING_PERSONAL, "personal"},  //
    {VZ_MESSAGING_BUSINESS, "business"},  //
    {VZ_MESSAGING_HOME, "home"},          //
    {VZ_MESSAGING_WORK, "work"},          //
    {VZ_MESSAGING_MOBILE, "mobile"},
};

}  // namespace

std::span<const ContactWord> contact_words() {
    return kWords;
}

const ContactWord* contact_word_of(uint32_t id) {
    return id <= kLastId && kIndex[id] != kNoRow ? &kWords[kIndex[id]] : nullptr;
}

const ContactWord* contact_word_of(ContactList list, std::string_view word) {
    for (const ContactWord& row : kWords) {
        if (row.list == list && row.word == word) return &row;
    }
    return nullptr;
}

std::span<const CodeWord> gender_words() {
    return kGenderWords;
}

std::span<const CodeWord> messaging_words() {
    return kMessagingWords;
}

}  // namespace vzconv
