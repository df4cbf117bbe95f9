#include "vcard/contact_reader.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdint>
#include <optional>

#include "result.h"
#include "vcard/contact_date.h"
#include "vcard/contact_fields.h"
#include "vcard/contact_reader_photo.h"
#include "vcard/contact_reader_types.h"
#include "vcard/contact_record.h"
#include "vcard/parameter_words.h"
#include "versit/coded_value.h"
#include "versit/value_reader.h"

namespace vzapi::vcard {
namespace {

using versit::PropertyId;

constexpr std::size_t kMostComponents = 7;

// What a vCard version changes. Text that states no encoding has none, in both versions.
struct VersionRow {
    std::string_view version;
    bool escapes_text;  // also in values that are not compound
    versit::Escapes escapes;
    versit::Encoding default_encoding;  // of pictures
};

constexpr VersionRow kVersions[] = {
    {"2.1", false, versit::Escapes::Components, versit::Encoding::Base64},
    {"3.0", true, versit::Escapes::Text, versit::Encoding::Base64Default},
};

const VersionRow* find_version(std::string_view version) {
    const auto* row = std::find_if(std::begin(kVersions), std::end(kVersions),
                                   [version](const VersionRow& each) { return each.version == version; });
    return row == std::end(kVersions) ? nullptr : row;
}

// Properties that are read like another one, whose row in the table of fields they share.
struct AliasRow {
    PropertyId property;
    PropertyId read_as;
    bool only_without;  // the other one has no value anywhere in the card
};

constexpr AliasRow kAliases[] = {
    {PropertyId::Role, PropertyId::Title, true},    {PropertyId::Nickname, PropertyId::XEpocSecondName, true},
    {PropertyId::XClass, PropertyId::Class, false}, {PropertyId::XJabber, PropertyId::XImpp, false},
    {PropertyId::XSkype, PropertyId::XImpp, false}, {PropertyId::XFacebook, PropertyId::XImpp, false},
};

// How the lines of one property are read.
struct PropertyUse {
    const FieldRow* row = nullptr;  // its first one; null: the property is none of a contact
    std::array<std::uint32_t, kMostComponents> components{};  // field by component; 0: none
    std::size_t component_count = 0;
    PropertyId only_without = PropertyId::None;
};

class PropertyUses {
public:
    PropertyUses() {
        for (const FieldRow& row : contact_fields()) {
            if (row.property == PropertyId::None) continue;
            PropertyUse& use = at(row.property);
            if (use.row == nullptr) use.row = &row;
            if (row.kind != ValueKind::Component) continue;
            use.components[row.component] = row.id;
            use.component_count = std::max<std::size_t>(use.component_count, row.component + 1U);
        }
        for (const AliasRow& alias : kAliases) {
            at(alias.property) = at(alias.read_as);
            if (alias.only_without) at(alias.property).only_without = alias.read_as;
        }
    }

    [[nodiscard]] const PropertyUse& operator[](PropertyId id) const {
        return uses_[static_cast<std::size_t>(id)];
    }

private:
    [[nodiscard]] PropertyUse& at(PropertyId id) { return uses_[static_cast<std::size_t>(id)]; }

    std::array<PropertyUse, versit::kPropertyCount> uses_;
};

const PropertyUses& property_uses() {
    static const PropertyUses uses;
    return uses;
}

bool is_preferred(TypeWords words) {
    return (words & type_word::kPref) != 0;
}

// Reads the lines of one card. The four lists do not depend on each other: one walk fills them all.
class CardReader {
public:
    CardReader(const versit::RootComponent& card, const VersionRow& version)
        : card_(card), version_(version), uses_(property_uses()) {
        contact_.reserve(card.lines.size());
        for (const versit::IdentifiedLine& line : card.lines) {
            const bool has_value = line.id != PropertyId::None && !line.line.value().empty();
            if (has_value) seen_.set(static_cast<std::size_t>(line.id));
        }
    }

    void read(ContactItem& item) {
        for (const versit::IdentifiedLine& line : card_.lines) {
            if (line.id != PropertyId::None) read_line(line.id, line.line);
        }
        contact_.hand_over(item);
    }

private:
    void read_line(PropertyId id, const versit::VersitProperty& line) {
        const PropertyUse& use = uses_[id];
        if (use.row == nullptr) return;
        const PropertyId other = use.only_without;
        if (other != PropertyId::None && seen_.test(static_cast<std::size_t>(other))) return;
        const TypeWords words = type_words(line.parameters());
        switch (id) {
            case PropertyId::Tel:
            case PropertyId::XSip:
            case PropertyId::XAssistantTel:
                return read_text(phone_field(id, words), words, line);
            case PropertyId::Email:
            case PropertyId::Url:
                return read_text(address_field(id, words), words, line);
            case PropertyId::Adr:
                return read_address(address_field(id, words), words, line);
            case PropertyId::Sound:
                return read_sound(use, words, line);
            default:
                return read_single(use, words, line);
        }
    }

    // Properties that are one field each, or one for each component.
    void read_single(const PropertyUse& use, TypeWords words, const versit::VersitProperty& line) {
        const std::uint32_t id = use.row->id;
        const bool preferred = is_preferred(words);
        switch (use.row->kind) {
            case ValueKind::Component:
                return read_components(use, words, line);
            case ValueKind::Date:
                if (const auto date = parse_contact_date(value(line)))
                    contact_.add_date(id, preferred, *date);
                return;
            case ValueKind::Photo:
                return read_photo(line, preferred, version_.default_encoding, contact_);
            case ValueKind::Messaging:
                if (const auto text = value(line); !text.empty()) {
                    contact_.add_messaging(messaging_kind(words), preferred, text);
                }
                return;
            case ValueKind::Class:
                // Written twice, as CLASS and X-CLASS.
                if (!contact_.has(id))
                    add_number(id, preferred, versit::find_code(versit::class_words(), value(line)));
                return;
            case ValueKind::Gender:
                return add_number(id, preferred, versit::find_code(gender_words(), value(line)));
            case ValueKind::Number:
                return add_number(id, preferred, versit::parse_number(value(line)));
            default:
                return read_text(id, words, line);
        }
    }

    void read_text(std::uint32_t id, TypeWords words, const versit::VersitProperty& line) {
        add_text(id, words, value(line));
    }

    void read_components(const PropertyUse& use, TypeWords words, const versit::VersitProperty& line) {
        const std::size_t count = values_.split(line, version_.escapes, use.component_count);
        for (std::size_t i = 0; i < count; ++i) add_text(use.components[i], words, values_.component(i));
    }

    void read_address(std::uint32_t id, TypeWords words, const versit::VersitProperty& line) {
        std::array<std::u16string_view, 7> components;
        values_.split(line, version_.escapes, components.size());
        bool is_empty = true;
        for (std::size_t i = 0; i < components.size(); ++i) {
            components[i] = values_.component(i);
            is_empty = is_empty && components[i].empty();
        }
        // "ADR;POSTAL:;;;;;;" tells a device that there is no such address.
        if (!is_empty) contact_.add_address(id, is_preferred(words), components);
    }

    // A SOUND that is no phonetic name is a recording.
    void read_sound(const PropertyUse& use, TypeWords words, const versit::VersitProperty& line) {
        if ((words & type_word::kIrmcName) != 0) {
            read_components(use, words, line);
        } else if ((words & type_word::kIrmcOrg) != 0) {
            read_text(VZ_CONTACT_PHONETIC_COMPANY, words, line);
        }
    }

    // An empty value is an absent one.
    void add_text(std::uint32_t id, TypeWords words, std::u16string_view text) {
        if (!text.empty()) contact_.add_text(id, is_preferred(words), text);
    }

    void add_number(std::uint32_t id, bool preferred, std::optional<std::uint32_t> number) {
        if (number) contact_.add_number(id, preferred, *number);
    }

    std::u16string_view value(const versit::VersitProperty& line) {
        return version_.escapes_text ? values_.text(line, version_.escapes) : values_.text(line);
    }

    const versit::RootComponent& card_;
    const VersionRow& version_;
    const PropertyUses& uses_;
    std::bitset<versit::kPropertyCount> seen_;  // properties with a value
    versit::ValueReader values_;
    ContactBuilder contact_;
};

}  // namespace

void read_contact(const versit::VersitObject& object, void* item, const ReaderContext& /*context*/) {
    const std::optional<versit::RootComponent> card =
        versit::root_component(object, versit::ComponentId::VCard);
    if (!card) raise(VZ_ERR_INVALID_TEXT);
    const VersionRow* version = find_version(card->version);
    if (version == nullptr) raise(VZ_ERR_INVALID_TEXT);
    CardReader(*card, *version).read(*static_cast<ContactItem*>(item));
}

}  // namespace vzapi::vcard
