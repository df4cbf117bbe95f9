#include <vector>

#include "vzconv/base64.h"
#include "vzconv/contact_json.h"
#include "vzconv/contact_parts.h"
#include "vzconv/failure.h"
#include "vzconv/json_fields.h"

namespace vzconv {
namespace {

using nlohmann::json;

std::string in_quotes(std::string_view word) {
    return json(word).dump();
}

ContactValue number_value(uint32_t number) {
    ContactValue value{};
    value.number = number;
    return value;
}

// Puts the values of a JSON object into a record.
class ContactTaker {
public:
    explicit ContactTaker(ContactRecord& record) : record_(record) {}

    void take(const json& object) {
        JsonFields fields(object);
        std::string_view last_group;
        for (const ContactWord& word : contact_words()) {
            if (word.list == ContactList::Phones || word.list == ContactList::Addresses) continue;
            if (word.group.empty()) {
                take_values(word, fields);
            } else if (word.group != last_group) {
                take_groups(word.group, fields);
            }
            last_group = word.group;
        }
        take_entries(ContactList::Phones, "phones", "number", fields);
        take_entries(ContactList::Addresses, "addresses", "address", fields);
        fields.expect_no_more();
    }

private:
    // Calls `take_one` with the value of `key`, or with each of them where it is an array, and its name.
    template <class TakeOne>
    static void for_each_value(std::string_view key, JsonFields& fields, const TakeOne& take_one) {
        const std::string name(key);
        const json* field = fields.find(name.c_str());
        if (field == nullptr) return;
        if (!field->is_array()) return take_one(*field, fields.name_of(name));
        for (std::size_t i = 0; i < field->size(); ++i) {
            take_one((*field)[i], fields.name_of(name + "[" + std::to_string(i) + "]"));
        }
    }

    void take_values(const ContactWord& word, JsonFields& fields) {
        for_each_value(word.word, fields, [&](const json& value, const std::string& name) {
            record_.add(word, false, value_in(word, value, name));
        });
    }

    void take_groups(std::string_view group, JsonFields& fields) {
        for_each_value(group, fields, [&](const json& value, const std::string& name) {
            JsonFields parts(object_in(value, name), inside(name));
            for (const ContactWord& word : contact_words()) {
                if (word.group != group) continue;
                const json* part = parts.find(std::string(word.word).c_str());
                if (part == nullptr) continue;
                record_.add(word, false, value_in(word, *part, parts.name_of(std::string(word.word))));
            }
            parts.expect_no_more();
        });
    }

    ContactValue value_in(const ContactWord& word, const json& value, const std::string& name) {
        switch (word.kind) {
            case ContactValueKind::Class:
                return number_value(code_in(class_words(), value, name));
            case ContactValueKind::Gender:
                return number_value(code_in(gender_words(), value, name));
            case ContactValueKind::Number:
                return number_value(number_in(value, name));
            case ContactValueKind::Date:
                return date_in(value, name);
            case ContactValueKind::Photo:
                return photo_in(object_in(value, name), inside(name));
            case ContactValueKind::Messaging:
                return messaging_in(object_in(value, name), inside(name));
            default:
                return record_.text(record_text_of(value, name));
        }
    }

    ContactValue date_in(const json& value, const std::string& name) {
        if (!value.is_string()) refuse_type(name, "a string", value);
        const std::optional<ContactDate> date = date_of_iso(value.get_ref<const std::string&>());
        if (!date) {
            throw Failure(name + " must be a date like 1980-02-29 or 1980-02-29T12:30:00, not " +
                          value.dump());
        }
        return record_.date(*date);
    }

    ContactValue photo_in(const json& value, const std::string& place) {
        JsonFields fields(value, place);
        std::optional<std::u16string> type = fields.text("type");
        const std::optional<std::string> data = fields.word("data");
        const json* size = fields.find("size");
        fields.expect_no_more();
        if (!data) throw Failure("the key " + fields.name_of("data") + " is missing");
        std::optional<std::vector<uint8_t>> bytes = bytes_of_base64(*data);
        if (!bytes) throw Failure(fields.name_of("data") + " is no Base64");
        if (size != nullptr && *size != json(bytes->size())) {
            throw Failure(fields.name_of("size") + " is " + size->dump() + ", but \"data\" has " +
                          std::to_string(bytes->size()) + " bytes");
        }
        return record_.photo(std::move(type), std::move(*bytes));
    }

    ContactValue messaging_in(const json& value, const std::string& place) {
        JsonFields fields(value, place);
        const json* type = fields.find("type");
        uint32_t kind = VZ_MESSAGING_NONE;
        if (type != nullptr) kind = code_in(messaging_words(), *type, fields.name_of("type"));
        const bool preferred = fields.flag("preferred");
        std::optional<std::u16string> address = fields.text("address");
        fields.expect_no_more();
        if (!address) throw Failure("the key " + fields.name_of("address") + " is missing");
        return record_.messaging(preferred, kind, std::move(*address));
    }

    void take_entries(ContactList list, const char* list_key, const char* key, JsonFields& fields) {
        const json* array = fields.array(list_key);
        if (array == nullptr) return;
        for (std::size_t i = 0; i < array->size(); ++i) {
            const std::string place = std::string(list_key) + "[" + std::to_string(i) + "]";
            const json& object = object_in((*array)[i], in_quotes(place));
            JsonFields entry(object, place + ".");
            take_entry(list, key, entry);
            entry.expect_no_more();
        }
    }

    void take_entry(ContactList list, const char* key, JsonFields& entry) {
        const std::optional<std::string> type = entry.word("type");
        if (!type) throw Failure("the key " + entry.name_of("type") + " is missing");
        const ContactWord* word = contact_word_of(list, *type);
        if (word == nullptr)
            throw Failure("unknown type " + in_quotes(*type) + " in " + entry.name_of("type"));
        const bool preferred = entry.flag("preferred");
        if (word->kind == ContactValueKind::Address) {
            record_.add(*word, preferred, address_in(entry));
            return;
        }
        std::optional<std::u16string> text = entry.text(key);
        if (!text) throw Failure("the key " + entry.name_of(key) + " is missing");
        record_.add(*word, preferred, record_.text(std::move(*text)));
    }

    ContactValue address_in(JsonFields& entry) {
        std::vector<std::u16string> parts;
        for (const AddressPart& part : address_parts()) {
            parts.push_back(entry.text(part.key).value_or(std::u16string()));
        }
        return record_.address(std::move(parts));
    }

    ContactRecord& record_;
};

}  // namespace

void take_contact(const nlohmann::json& object, ContactRecord& record) {
    ContactTaker(record).take(object);
}

}  // namespace vzconv
