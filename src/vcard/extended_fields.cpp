// The lines of the list `extended`.
#include <algorithm>
#include <string>

#include "vcard/entries_by_line.h"

namespace vzapi::vcard {
namespace {

using versit::PropertyId;

constexpr LineRow kLines[] = {
    {{VZ_CONTACT_CLASS}},
    {{VZ_CONTACT_GENDER}},
    {{VZ_CONTACT_NOTE}},
    {{VZ_CONTACT_DTMF}},
    {{VZ_CONTACT_WIRELESS_VILLAGE_ID}},
    {{VZ_CONTACT_MESSAGING}},
    {{VZ_CONTACT_UID}},
    {{VZ_CONTACT_GEO}},
    {{VZ_CONTACT_FAVORITE}},
    {{VZ_CONTACT_SELF}},
};

constexpr LineOrder kOrder(VZ_CONTACT_NOTE, kLines);

std::uint32_t number_of(const ContactField& entry) {
    return static_cast<std::uint32_t>(entry.value.number);
}

void write_class(ContactWriting& writing, const ListedEntry& entry) {
    const std::string_view word = versit::find_word(versit::class_words(), number_of(entry.field));
    if (word.empty()) return;
    writing.lines().property(PropertyId::Class, {}, word);
    writing.lines().property(PropertyId::XClass, {}, word);
}

void write_gender(ContactWriting& writing, const ListedEntry& entry) {
    const std::string_view word = versit::find_word(gender_words(), number_of(entry.field));
    if (!word.empty()) writing.lines().property(entry.row->property, {}, word);
}

void write_number(ContactWriting& writing, const ListedEntry& entry) {
    writing.lines().property(entry.row->property, {}, std::to_string(number_of(entry.field)));
}

// The name of a messaging line and what follows it, by a part of the address. The first row that matches
// holds; the last one matches every address.
struct ServiceRow {
    std::u16string_view part;
    PropertyId property;
    std::string_view parameters;
};

constexpr ServiceRow kServices[] = {
    // clang-format off
    {u"jabber:",        PropertyId::XJabber,   ""},
    {u"nordachat:",     PropertyId::XJabber,   ""},
    {u"google-talk:",   PropertyId::XJabber,   ""},
    {u"Zuv:",           PropertyId::XJabber,   ";nordachat"},
    {u"Google:",        PropertyId::XJabber,   ";google-talk"},
    {u"skype:",         PropertyId::XSkype,    ""},
    {u"Skype:",         PropertyId::XSkype,    ""},
    {u"facebook-chat:", PropertyId::XFacebook, ""},
    {u"Facebook:",      PropertyId::XFacebook, ";facebook-chat"},
    {u"",               PropertyId::XJabber,   ""},
    // clang-format on
};

const ServiceRow& service_of(std::u16string_view address) {
    return *std::find_if(std::begin(kServices), std::end(kServices),
                         [address](const ServiceRow& row) { return address.find(row.part) != address.npos; });
}

void write_messaging(ContactWriting& writing, const ListedEntry& entry) {
    ContactField nested;
    if (!writing.memory().load(entry.field.value.messaging, nested)) return;
    const std::u16string_view address = writing.memory().text(nested.value.text);
    if (address.data() == nullptr) return;

    PropertyId property = entry.row->property;
    std::string parameters;
    if (writing.has(Effect::MessagingByService)) {
        const ServiceRow& service = service_of(address);
        property = service.property;
        parameters = service.parameters;
    }
    const std::string_view kind = versit::find_word(messaging_words(), nested.form);
    if (!kind.empty()) parameters.append(";TYPE=").append(kind);
    writing.text_line(versit::property_name(property),
                      writing.with_preference(parameters, nested.preferred == 1), address);
}

void write_entry(ContactWriting& writing, const ListedEntry& entry) {
    switch (entry.row->kind) {
        case ValueKind::Class:
            return write_class(writing, entry);
        case ValueKind::Gender:
            return write_gender(writing, entry);
        case ValueKind::Number:
            return write_number(writing, entry);
        case ValueKind::Messaging:
            return write_messaging(writing, entry);
        case ValueKind::MultilineText:
            return writing.multiline_text_line(versit::property_name(entry.row->property), {}, entry.text);
        default:
            return writing.text_line(versit::property_name(entry.row->property), {}, entry.text);
    }
}

}  // namespace

void write_extended(ContactWriting& writing, const ContactItem& contact) {
    const EntriesByLine entries(writing, contact.extended, contact.extendedCount, kOrder);
    for (std::size_t line = 0; line < std::size(kLines); ++line) {
        for (const ListedEntry* entry = entries.first(line); entry != nullptr; entry = entries.next(*entry)) {
            write_entry(writing, *entry);
        }
    }
    if (writing.has(Effect::CategoriesLine))
        writing.lines().property(PropertyId::XCategories, {}, std::string_view{});
}

}  // namespace vzapi::vcard
