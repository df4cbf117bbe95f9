#include "versit/names.h"

#include <array>
#include <cstdint>

#include "versit/ascii.h"

namespace vzapi::versit {
namespace {

template <class Id>
struct NameRow {
    Id id;
    std::string_view name;
};

// One row a property, in the order of the IDs; the index is the ID.
constexpr std::array<NameRow<PropertyId>, kPropertyCount> kProperties{{
    {PropertyId::Begin, "BEGIN"},
    {PropertyId::End, "END"},
    {PropertyId::Adr, "ADR"},
    {PropertyId::Org, "ORG"},
    {PropertyId::N, "N"},
    {PropertyId::Agent, "AGENT"},
    {PropertyId::Logo, "LOGO"},
    {PropertyId::Photo, "PHOTO"},
    {PropertyId::Label, "LABEL"},
    {PropertyId::Fn, "FN"},
    {PropertyId::Title, "TITLE"},
    {PropertyId::Sound, "SOUND"},
    {PropertyId::Version, "VERSION"},
    {PropertyId::Tel, "TEL"},
    {PropertyId::Email, "EMAIL"},
    {PropertyId::Tz, "TZ"},
    {PropertyId::Geo, "GEO"},
    {PropertyId::Note, "NOTE"},
    {PropertyId::Url, "URL"},
    {PropertyId::Bday, "BDAY"},
    {PropertyId::Role, "ROLE"},
    {PropertyId::Rev, "REV"},
    {PropertyId::Uid, "UID"},
    {PropertyId::Key, "KEY"},
    {PropertyId::Mailer, "MAILER"},
    {PropertyId::Categories, "CATEGORIES"},
    {PropertyId::Class, "CLASS"},
    {PropertyId::Nickname, "X-NICKNAME"},
    {PropertyId::Prodid, "PRODID"},
    {PropertyId::SortString, "SORT-STRING"},
    {PropertyId::Daylight, "DAYLIGHT"},
    {PropertyId::Aalarm, "AALARM"},
    {PropertyId::Dalarm, "DALARM"},
    {PropertyId::Exdate, "EXDATE"},
    {PropertyId::Malarm, "MALARM"},
    {PropertyId::Palarm, "PALARM"},
    {PropertyId::Rdate, "RDATE"},
    {PropertyId::Resources, "RESOURCES"},
    {PropertyId::Status, "STATUS"},
    {PropertyId::Attach, "ATTACH"},
    {PropertyId::Attendee, "ATTENDEE"},
    {PropertyId::Dcreated, "DCREATED"},
    {PropertyId::Completed, "COMPLETED"},
    {PropertyId::Description, "DESCRIPTION"},
    {PropertyId::Due, "DUE"},
    {PropertyId::Dtend, "DTEND"},
    {PropertyId::Exrule, "EXRULE"},
    {PropertyId::LastModified, "LAST-MODIFIED"},
    {PropertyId::Location, "LOCATION"},
    {PropertyId::Rnum, "RNUM"},
    {PropertyId::Priority, "PRIORITY"},
    {PropertyId::RelatedTo, "RELATED-TO"},
    {PropertyId::Rrule, "RRULE"},
    {PropertyId::Sequence, "SEQUENCE"},
    {PropertyId::Dtstart, "DTSTART"},
    {PropertyId::Summary, "SUMMARY"},
    {PropertyId::Transp, "TRANSP"},
    {PropertyId::XIrmcStatus, "X-IRMC-STATUS"},
    {PropertyId::XIrmcBox, "X-IRMC-BOX"},
    {PropertyId::XIrmcUrl, "X-IRMC-URL"},
    {PropertyId::XDtmf, "X-DTMF"},
    {PropertyId::XPtt, "X-PTT"},
    {PropertyId::XItemdata, "X-ITEMDATA"},
    {PropertyId::XMessageType, "X-MESSAGE-TYPE"},
    {PropertyId::Date, "DATE"},
    {PropertyId::XEpocAgendaEntryType, "X-EPOCAGENDAENTRYTYPE"},
    {PropertyId::XNrdDt, "X-NRD-DT"},
    {PropertyId::XSip, "X-SIP"},
    {PropertyId::XEpocSecondName, "X-EPOCSECONDNAME"},
    {PropertyId::XWvId, "X-WV-ID"},
    {PropertyId::XIrmcN, "X-IRMC-N"},
    {PropertyId::XIrmcOrg, "X-IRMC-ORG"},
    {PropertyId::XEpocAgendaType, "X-EPOC-AGENDA-TYPE"},
    {PropertyId::Trigger, "TRIGGER"},
    {PropertyId::XSpouse, "X-SPOUSE"},
    {PropertyId::XChildren, "X-CHILDREN"},
    {PropertyId::XAssistant, "X-ASSISTANT"},
    {PropertyId::XAnniversary, "X-ANNIVERSARY"},
    {PropertyId::XAssistantTel, "X-ASSISTANT-TEL"},
    {PropertyId::XClass, "X-CLASS"},
    {PropertyId::XBirthyear, "X-BIRTHYEAR"},
    {PropertyId::XCntgrp, "X-CNTGRP"},
    {PropertyId::XCategories, "X-CATEGORIES"},
    {PropertyId::XImpp, "X-IMPP"},
    {PropertyId::XFavorite, "X-FAVORITE"},
    {PropertyId::XSelf, "X-SELF"},
    {PropertyId::XJabber, "X-JABBER"},
    {PropertyId::XSkype, "X-SKYPE"},
    {PropertyId::XFacebook, "X-FACEBOOK"},
    {PropertyId::XGender, "X-GENDER"},
}};

// The one name in which the UTF-16 table differs.
constexpr std::u16string_view kWideNickname = u"NICKNAME";

constexpr std::array<NameRow<Encoding>, kEncodingCount> kEncodings{{
    {Encoding::SevenBit, "7BIT"},
    {Encoding::EightBit, "8BIT"},
    {Encoding::QuotedPrintable, "QUOTED-PRINTABLE"},
    {Encoding::Base64, "BASE64"},
}};

constexpr std::array<NameRow<ComponentId>, kComponentCount> kComponents{{
    {ComponentId::VCard, "VCARD"},
    {ComponentId::VCalendar, "VCALENDAR"},
    {ComponentId::VEvent, "VEVENT"},
    {ComponentId::VTodo, "VTODO"},
    {ComponentId::VMsg, "VMSG"},
    {ComponentId::VEnv, "VENV"},
    {ComponentId::VBody, "VBODY"},
    {ComponentId::VBkm, "VBKM"},
    {ComponentId::VAlarm, "VALARM"},
}};

constexpr std::array<std::u16string_view, kWideComponentCount> kWideComponents{
    u"VCALENDAR",  //
    u"VTODO",      //
    u"VMSG",       //
    u"VENV",       //
    u"VBOOKMARK",  //
    u"VALARM",
};

template <class Table>
constexpr bool index_is_id(const Table& table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (static_cast<std::size_t>(table[i].id) != i) return false;
    }
    return true;
}
static_assert(index_is_id(kProperties) && index_is_id(kEncodings) && index_is_id(kComponents));

constexpr std::size_t longest_name() {
    std::size_t longest = 0;
    for (const auto& row : kProperties) longest = row.name.size() > longest ? row.name.size() : longest;
    return longest;
}
constexpr std::size_t kLongestName = longest_name();

// FNV-1a over the capitals of a name. Units above 255 only ever miss: the names compared are ASCII.
template <class Unit>
constexpr std::uint32_t hash_name(std::basic_string_view<Unit> name) {
    std::uint32_t hash = 2166136261U;
    for (const Unit unit : name) hash = (hash ^ static_cast<std::uint8_t>(to_upper(unit))) * 16777619U;
    return hash;
}

// Open addressing: a slot holds an ID, or kEmpty. At most a third full, so that a miss ends after a step or
// two.
constexpr std::size_t kSlots = 256;
constexpr std::uint8_t kEmpty = 255;

constexpr std::size_t slot_of(std::uint32_t hash) {
    return (hash ^ (hash >> 16)) % kSlots;
}

constexpr std::array<std::uint8_t, kSlots> make_index() {
    std::array<std::uint8_t, kSlots> index{};
    for (auto& slot : index) slot = kEmpty;
    for (std::size_t id = 0; id < kProperties.size(); ++id) {
        std::size_t slot = slot_of(hash_name(kProperties[id].name));
        while (index[slot] != kEmpty) slot = (slot + 1) % kSlots;
        index[slot] = static_cast<std::uint8_t>(id);
    }
    return index;
}
constexpr std::array<std::uint8_t, kSlots> kIndex = make_index();

template <class Unit>
int find_in_index(std::basic_string_view<Unit> name) noexcept {
    if (name.empty() || name.size() > kLongestName) return -1;
    for (std::size_t slot = slot_of(hash_name(name)); kIndex[slot] != kEmpty; slot = (slot + 1) % kSlots) {
        if (equals_ignoring_case(name, kProperties[kIndex[slot]].name)) return kIndex[slot];
    }
    return -1;
}

// The UTF-16 names as text of their own, widened at compile time.
struct WideNames {
    std::array<std::array<char16_t, kLongestName>, kWidePropertyCount> units{};
};

constexpr WideNames widen_names() {
    WideNames wide;
    for (std::size_t id = 0; id < kWidePropertyCount; ++id) {
        for (std::size_t i = 0; i < kProperties[id].name.size(); ++i) {
            wide.units[id][i] = static_cast<char16_t>(kProperties[id].name[i]);
        }
    }
    return wide;
}
constexpr WideNames kWideNames = widen_names();

}  // namespace

std::string_view property_name(PropertyId id) noexcept {
    return kProperties[static_cast<std::size_t>(id)].name;
}

std::u16string_view wide_property_name(PropertyId id) noexcept {
    if (id == PropertyId::Nickname) return kWideNickname;
    const auto index = static_cast<std::size_t>(id);
    return {kWideNames.units[index].data(), kProperties[index].name.size()};
}

PropertyId find_property(std::string_view name) noexcept {
    return static_cast<PropertyId>(find_in_index(name));
}

PropertyId find_property(std::u16string_view name) noexcept {
    if (equals_ignoring_case(name, "NICKNAME")) return PropertyId::Nickname;
    const int id = find_in_index(name);
    const bool known = id >= 0 && id < static_cast<int>(kWidePropertyCount) &&
                       static_cast<PropertyId>(id) != PropertyId::Nickname;
    return known ? static_cast<PropertyId>(id) : PropertyId::None;
}

std::string_view encoding_name(Encoding encoding) noexcept {
    return kEncodings[static_cast<std::size_t>(encoding)].name;
}

std::string_view component_name(ComponentId id) noexcept {
    return kComponents[static_cast<std::size_t>(id)].name;
}

std::u16string_view wide_component_name(WideComponentId id) noexcept {
    return kWideComponents[static_cast<std::size_t>(id)];
}

}  // namespace vzapi::versit
