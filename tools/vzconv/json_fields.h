// The fields of a JSON object on their way into a record.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>

namespace vzconv {

// Takes the fields out of one object, and sees to it that none is left behind.
class JsonFields {
public:
    // REQUIRES: `object` is a JSON object and outlives this.
    explicit JsonFields(const nlohmann::json& object) : object_(object) {}

    // The value of a field as UTF-16 text for a record; nothing when the object does not have it. Throws
    // Failure when it is no string, or holds a NUL, where a record's string would end.
    std::optional<std::u16string> text(const char* key);

    // Throws Failure when the object has a field that was not asked for.
    void expect_no_more() const;

private:
    const nlohmann::json& object_;
    std::set<std::string> asked_;
};

// "a number" and the like, for messages.
std::string type_in_words(const nlohmann::json& value);

}  // namespace vzconv
