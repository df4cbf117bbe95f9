#include "vzconv/json_fields.h"

#include "vzconv/failure.h"
#include "vzconv/unicode.h"

namespace vzconv {

std::optional<std::u16string> JsonFields::text(const char* key) {
    asked_.insert(key);
    const auto field = object_.find(key);
    if (field == object_.end()) return std::nullopt;
    const std::string name = "\"" + std::string(key) + "\"";
    if (!field->is_string()) throw Failure(name + " must be a string, not " + type_in_words(*field));
    const auto& value = field->get_ref<const std::string&>();
    if (value.find('\0') != std::string::npos) throw Failure(name + " holds a NUL character");
    return utf16_from_utf8(value);
}

void JsonFields::expect_no_more() const {
    for (const auto& [key, value] : object_.items()) {
        if (!asked_.contains(key)) throw Failure("unknown key " + nlohmann::json(key).dump());
    }
}

std::string type_in_words(const nlohmann::json& value) {
    if (value.is_null()) return "null";
    return (value.is_object() || value.is_array() ? "an " : "a ") + std::string(value.type_name());
}

}  // namespace vzconv
