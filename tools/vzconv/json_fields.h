// The fields of a JSON object on their way into a record.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <span>
#include <string>

#include "vzconv/code_words.h"

namespace vzconv {

// Takes the fields out of one object, and sees to it that none is left behind. Each function that takes one
// gives nothing when the object does not have it, and throws Failure, naming it, when its value is of another
// type.
class JsonFields {
public:
    // REQUIRES: `object` is a JSON object and outlives this. `place` is where it stands in the line, such as
    // "phones[0]."; empty for the line's own object.
    explicit JsonFields(const nlohmann::json& object, std::string place = {})
        : object_(object), place_(std::move(place)) {}

    // The field whatever it is; null when there is none.
    const nlohmann::json* find(const char* key);

    // Whether the object has the field.
    bool has(const char* key) const { return object_.contains(key); }

    // A string as UTF-16 text for a record. Throws Failure also when it holds a NUL, where a record's string
    // would end.
    std::optional<std::u16string> text(const char* key);

    // A string as it is.
    std::optional<std::string> word(const char* key);

    // True or false; false when there is none.
    bool flag(const char* key);

    const nlohmann::json* array(const char* key);

    // "place.key" in quotation marks, for messages.
    std::string name_of(const std::string& key) const;

    // Throws Failure when the object has a field that was not asked for.
    void expect_no_more() const;

private:
    const nlohmann::json& object_;
    std::string place_;
    std::set<std::string> asked_;
};

// `value` as UTF-16 text for a record; `name` is for messages.
std::u16string record_text_of(const nlohmann::json& value, const std::string& name);

// The code of a word; throws Failure, with the words that there are, when `value` is none of them.
uint32_t code_in(std::span<const CodeWord> words, const nlohmann::json& value, const std::string& name);

// A whole number from 0 to 4294967295, and one of up to 64 bits.
uint32_t number_in(const nlohmann::json& value, const std::string& name);
uint64_t long_number_in(const nlohmann::json& value, const std::string& name);

const nlohmann::json& object_in(const nlohmann::json& value, const std::string& name);

// The place, for JsonFields, of what stands inside `name`, which is in quotation marks.
std::string inside(const std::string& name);

// "NAME must be WANTED, not a number" and the like.
[[noreturn]] void refuse_type(const std::string& name, const char* wanted, const nlohmann::json& value);

// "a number" and the like, for messages.
std::string type_in_words(const nlohmann::json& value);

}  // namespace vzconv
