#include <map>
#include <nlohmann/json.hpp>
#include <vector>

#include "vzconv/base64.h"
#include "vzconv/contact_json.h"
#include "vzconv/contact_parts.h"

namespace vzconv {
namespace {

using Json = nlohmann::ordered_json;

uint32_t number_of(const ContactField& entry) {
    return static_cast<uint32_t>(entry.value.number);
}

Json json_of(const ContactPhoto& photo) {
    Json object = Json::object();
    if (photo.imageType != nullptr) object["type"] = text_of(photo.imageType);
    object["size"] = photo.dataLength;
    object["data"] = base64_of({photo.data, photo.data == nullptr ? 0 : photo.dataLength});
    return object;
}

Json messaging_json_of(const ContactField& inner) {
    Json object = Json::object();
    const std::string_view kind = word_of(messaging_words(), inner.form);
    if (!kind.empty()) object["type"] = kind;
    object["address"] = text_of(inner.value.text);
    if (inner.preferred == 1) object["preferred"] = true;
    return object;
}

// The word of a code; null, as for any value that is not there, when no line says the code.
Json code_json_of(std::span<const CodeWord> words, uint32_t code) {
    const std::string_view word = word_of(words, code);
    return word.empty() ? Json() : Json(word);
}

// The value of an entry of the lists `general` and `extended`; null when there is none.
Json json_of(const ContactWord& word, const ContactField& entry) {
    switch (word.kind) {
        case ContactValueKind::Class:
            return code_json_of(class_words(), number_of(entry));
        case ContactValueKind::Gender:
            return code_json_of(gender_words(), number_of(entry));
        case ContactValueKind::Number:
            return number_of(entry);
        default:
            break;
    }
    if (entry.value.text == nullptr) return {};
    switch (word.kind) {
        case ContactValueKind::Date:
            return iso_date_of(*entry.value.date);
        case ContactValueKind::Photo:
            return json_of(*entry.value.photo);
        case ContactValueKind::Messaging:
            return messaging_json_of(*entry.value.messaging);
        default:
            return text_of(entry.value.text);
    }
}

// The values of one key: one as it is, several as an array.
class JsonValues {
public:
    void add(Json value) { values_.push_back(std::move(value)); }

    // Puts `value` as `key` into the last object, and into a new one when the last has that key.
    void add_part(std::string_view key, Json value) {
        const std::string name(key);
        if (values_.empty() || values_.back().contains(name)) values_.push_back(Json::object());
        values_.back()[name] = std::move(value);
    }

    Json take(bool always_array) {
        if (values_.size() == 1 && !always_array) return std::move(values_.front());
        return Json(std::move(values_));
    }

private:
    Json::array_t values_;
};

// The fields of the list `general` or `extended`.
void put_fields(std::span<const ContactField> entries, Json& object) {
    std::map<std::string_view, JsonValues> values;
    for (const ContactField& entry : entries) {
        const ContactWord* word = contact_word_of(entry.fieldId);
        if (word == nullptr) continue;
        Json value = json_of(*word, entry);
        if (value.is_null()) continue;
        if (word->group.empty()) {
            values[word->word].add(std::move(value));
        } else {
            values[word->group].add_part(word->word, std::move(value));
        }
    }
    for (const ContactWord& word : contact_words()) {
        const auto found = values.find(word.group.empty() ? word.word : word.group);
        if (found == values.end() || word.list == ContactList::Phones || word.list == ContactList::Addresses)
            continue;
        object[std::string(found->first)] = found->second.take(word.kind == ContactValueKind::Messaging);
        values.erase(found);
    }
}

void put_address(const ContactAddress& address, Json& entry) {
    for (const AddressPart& part : address_parts()) {
        const char16_t* text = address.*part.member;
        if (text != nullptr && *text != 0) entry[part.key] = text_of(text);
    }
}

// The entries of the lists `phones` and `addresses`; `key` is that of a text.
void put_entries(std::span<const ContactField> entries, const char* list_key, const char* key, Json& object) {
    Json array = Json::array();
    for (const ContactField& field : entries) {
        const ContactWord* word = contact_word_of(field.fieldId);
        if (word == nullptr || field.value.text == nullptr) continue;
        Json entry = {{"type", word->word}};
        if (word->kind == ContactValueKind::Address) {
            put_address(*field.value.address, entry);
        } else {
            entry[key] = text_of(field.value.text);
        }
        if (field.preferred == 1) entry["preferred"] = true;
        array.push_back(std::move(entry));
    }
    if (!array.empty()) object[list_key] = std::move(array);
}

}  // namespace

void put_contact(const ContactItem& item, nlohmann::ordered_json& object) {
    put_fields(entries_of(item, ContactList::General), object);
    put_entries(entries_of(item, ContactList::Phones), "phones", "number", object);
    put_entries(entries_of(item, ContactList::Addresses), "addresses", "address", object);
    put_fields(entries_of(item, ContactList::Extended), object);
}

}  // namespace vzconv
