#include "vzconv/contact_show.h"

#include "vzconv/contact_name.h"
#include "vzconv/contact_parts.h"
#include "vzconv/readable.h"
#include "vzconv/size_words.h"

namespace vzconv {
namespace {

constexpr std::size_t kLabelWidth = 21;

// The fields in the order in which a person looks for them; phones and addresses stand between the two.
constexpr uint32_t kFirst[] = {
    VZ_CONTACT_SECOND_NAME, VZ_CONTACT_PHONETIC_FAMILY_NAME, VZ_CONTACT_PHONETIC_GIVEN_NAME,
    VZ_CONTACT_COMPANY,     VZ_CONTACT_PHONETIC_COMPANY,     VZ_CONTACT_DEPARTMENT,
    VZ_CONTACT_JOB_TITLE,
};
constexpr uint32_t kLast[] = {
    VZ_CONTACT_MESSAGING, VZ_CONTACT_WIRELESS_VILLAGE_ID,
    VZ_CONTACT_BIRTHDAY,  VZ_CONTACT_ANNIVERSARY,
    VZ_CONTACT_SPOUSE,    VZ_CONTACT_CHILDREN,
    VZ_CONTACT_ASSISTANT, VZ_CONTACT_GENDER,
    VZ_CONTACT_NOTE,      VZ_CONTACT_PHOTO,
    VZ_CONTACT_GEO,       VZ_CONTACT_DTMF,
    VZ_CONTACT_FAVORITE,  VZ_CONTACT_SELF,
    VZ_CONTACT_CLASS,     VZ_CONTACT_UID,
};

std::string with_mark(const std::string& text, bool preferred) {
    return preferred ? text + " (preferred)" : text;
}

std::string joined(const std::string& a, std::string_view between, const std::string& b) {
    return a.empty() || b.empty() ? a + b : a + std::string(between) + b;
}

std::string photo_in_words(const ContactPhoto& photo) {
    const std::string type = text_of(photo.imageType);
    return (type.empty() ? "picture" : type) + ", " + size_in_words(photo.dataLength);
}

bool is_number(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// As on an envelope: a line each, the postal code before the city.
std::string address_in_lines(const ContactAddress& address) {
    const std::string box = text_of(address.poBox);
    const std::string city = joined(text_of(address.postalCode), " ", text_of(address.city));
    std::string lines;
    for (const std::string& line :
         {is_number(box) ? "PO box " + box : box, text_of(address.extendedAddress), text_of(address.street),
          city, text_of(address.region), text_of(address.country)}) {
        lines = joined(lines, "\n", line);
    }
    return lines;
}

std::string flag_in_words(uint32_t number) {
    return number == 0 ? "no" : number == 1 ? "yes" : std::to_string(number);
}

std::string code_in_words(std::span<const CodeWord> words, uint32_t code) {
    const std::string_view word = word_of(words, code);
    return word.empty() ? "unknown (" + std::to_string(code) + ")" : std::string(word);
}

std::string value_in_words(const ContactWord& word, const ContactField& entry) {
    const auto number = static_cast<uint32_t>(entry.value.number);
    switch (word.kind) {
        case ContactValueKind::Class:
            return code_in_words(class_words(), number);
        case ContactValueKind::Gender:
            return code_in_words(gender_words(), number);
        case ContactValueKind::Number:
            return flag_in_words(number);
        default:
            break;
    }
    if (entry.value.text == nullptr) return {};
    switch (word.kind) {
        case ContactValueKind::Date:
            return readable_date_of(*entry.value.date);
        case ContactValueKind::Photo:
            return photo_in_words(*entry.value.photo);
        case ContactValueKind::Address:
            return address_in_lines(*entry.value.address);
        default:
            return text_of(entry.value.text);
    }
}

void show_messaging(const ContactWord& word, const ContactField& entry, Readable& readable) {
    const ContactField* inner = entry.value.messaging;
    if (inner == nullptr) return;
    const std::string kind(word_of(messaging_words(), inner->form));
    readable.field(joined(std::string(word.label), ", ", kind),
                   with_mark(text_of(inner->value.text), inner->preferred == 1));
}

void show_entry(const ContactWord& word, const ContactField& entry, Readable& readable) {
    if (word.kind == ContactValueKind::Messaging) {
        show_messaging(word, entry, readable);
    } else if (word.kind == ContactValueKind::Address) {
        const std::string mark = entry.preferred == 1 ? "(preferred)" : "";
        readable.field(word.label, joined(value_in_words(word, entry), "\n", mark));
    } else {
        readable.field(word.label, with_mark(value_in_words(word, entry), entry.preferred == 1));
    }
}

void show_list(const ContactItem& item, ContactList list, Readable& readable) {
    for (const ContactField& entry : entries_of(item, list)) {
        const ContactWord* word = contact_word_of(entry.fieldId);
        if (word != nullptr) show_entry(*word, entry, readable);
    }
}

void show_fields(const ContactItem& item, std::span<const uint32_t> ids, Readable& readable) {
    for (const uint32_t id : ids) {
        const ContactWord* word = contact_word_of(id);
        for (const ContactField& entry : entries_of(item, word->list)) {
            if (entry.fieldId == id) show_entry(*word, entry, readable);
        }
    }
}

// The parts one by one.
void show_parts_of_name(const ContactItem& item, Readable& readable) {
    for (const uint32_t id : family_first_name_parts()) {
        for (const ContactField& entry : entries_of(item, ContactList::General)) {
            const std::string part = entry.fieldId == id ? text_of(entry.value.text) : std::string();
            if (!part.empty()) readable.field(contact_word_of(id)->label, part);
        }
    }
}

// The name as its owner wrote it; the parts are named where they do not make up the same.
void show_name(const ContactItem& item, Readable& readable) {
    const std::string parts = name_of_parts(item, name_parts(), " ");
    const std::string family_first = name_of_parts(item, family_first_name_parts(), " ");
    const std::string without_blanks = name_of_parts(item, family_first_name_parts(), "");
    bool has_same = false;
    bool has_name = false;
    for (const ContactField& entry : entries_of(item, ContactList::General)) {
        if (entry.fieldId != VZ_CONTACT_FORMATTED_NAME) continue;
        const std::string name = text_of(entry.value.text);
        readable.field("Name", name);
        has_name = true;
        has_same = has_same || name == parts || name == family_first || name == without_blanks;
    }
    if (!has_name && !parts.empty()) readable.field("Name", parts);
    if (has_name && !has_same) show_parts_of_name(item, readable);
}

}  // namespace

std::string show_contact(const ContactItem& item) {
    Readable readable("Contact", kLabelWidth);
    show_name(item, readable);
    show_fields(item, kFirst, readable);
    show_list(item, ContactList::Phones, readable);
    show_list(item, ContactList::Addresses, readable);
    show_fields(item, kLast, readable);
    return readable.text();
}

}  // namespace vzconv
