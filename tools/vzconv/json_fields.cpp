#include "vzconv/json_fields.h"

#include "vzconv/failure.h"
#include "vzconv/unicode.h"

namespace vzconv {

const nlohmann::json* JsonFields::find(const char* key) {
    asked_.insert(key);
    const auto field = object_.find(key);
    return field == object_.end() ? nullptr : &*field;
}

std::optional<std::u16string> JsonFields::text(const char* key) {
    const nlohmann::json* field = find(key);
    if (field == nullptr) return std::nullopt;
    return record_text_of(*field, name_of(key));
}

std::optional<std::string> JsonFields::word(const char* key) {
    const nlohmann::json* field = find(key);
    if (field == nullptr) return std::nullopt;
    if (!field->is_string()) refuse_type(name_of(key), "a string", *field);
    return field->get<std::string>();
}

bool JsonFields::flag(const char* key) {
    const nlohmann::json* field = find(key);
    if (field == nullptr) return false;
    if (!field->is_boolean()) refuse_type(name_of(key), "true or false", *field);
    return field->get<bool>();
}

const nlohmann::json* JsonFields::array(const char* key) {
    const nlohmann::json* field = find(key);
    if (field != nullptr && !field->is_array()) refuse_type(name_of(key), "an array", *field);
    return field;
}

const nlohmann::json* JsonFields::object(const char* key) {
    const nlohmann::json* field = find(key);
    if (field != nullptr && !field->is_object()) refuse_type(name_of(key), "an object", *field);
    return field;
}

std::string JsonFields::name_of(const std::string& key) const {
    return nlohmann::json(place_ + key).dump();
}

void JsonFields::expect_no_more() const {
    for (const auto& [key, value] : object_.items()) {
        if (!asked_.contains(key)) throw Failure("unknown key " + name_of(key));
    }
}

std::u16string record_text_of(const nlohmann::json& value, const std::string& name) {
    if (!value.is_string()) refuse_type(name, "a string", value);
    const auto& text = value.get_ref<const std::string&>();
    if (text.find('\0') != std::string::npos) throw Failure(name + " holds a NUL character");
    return utf16_from_utf8(text);
}

void refuse_type(const std::string& name, const char* wanted, const nlohmann::json& value) {
    throw Failure(name + " must be " + wanted + ", not " + type_in_words(value));
}

std::string type_in_words(const nlohmann::json& value) {
    if (value.is_null()) return "null";
    return (value.is_object() || value.is_array() ? "an " : "a ") + std::string(value.type_name());
}

}  // namespace vzconv
