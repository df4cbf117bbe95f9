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

uint32_t code_in(std::span<const CodeWord> words, const nlohmann::json& value, const std::string& name) {
    if (!value.is_string()) refuse_type(name, "a string", value);
    const std::optional<uint32_t> code = code_of(words, value.get_ref<const std::string&>());
    if (code) return *code;
    std::string line;
    for (const CodeWord& row : words) line += (line.empty() ? "" : ", ") + std::string(row.word);
    throw Failure(name + " must be one of " + line + ", not " + value.dump());
}

uint32_t number_in(const nlohmann::json& value, const std::string& name) {
    constexpr uint64_t kLargest = 0xFFFFFFFF;
    if (!value.is_number()) refuse_type(name, "a number", value);
    if (!value.is_number_unsigned() || value.get<uint64_t>() > kLargest) {
        throw Failure(name + " must be a whole number from 0 to 4294967295, not " + value.dump());
    }
    return static_cast<uint32_t>(value.get<uint64_t>());
}

uint64_t long_number_in(const nlohmann::json& value, const std::string& name) {
    if (!value.is_number()) refuse_type(name, "a number", value);
    if (!value.is_number_unsigned()) {
        throw Failure(name + " must be a whole number from 0 to 18446744073709551615, not " + value.dump());
    }
    return value.get<uint64_t>();
}

const nlohmann::json& object_in(const nlohmann::json& value, const std::string& name) {
    if (!value.is_object()) refuse_type(name, "an object", value);
    return value;
}

std::string inside(const std::string& name) {
    return nlohmann::json::parse(name).get<std::string>() + ".";
}

void refuse_type(const std::string& name, const char* wanted, const nlohmann::json& value) {
    throw Failure(name + " must be " + wanted + ", not " + type_in_words(value));
}

std::string type_in_words(const nlohmann::json& value) {
    if (value.is_null()) return "null";
    return (value.is_object() || value.is_array() ? "an " : "a ") + std::string(value.type_name());
}

}  // namespace vzconv
