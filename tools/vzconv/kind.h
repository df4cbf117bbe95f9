// The kinds of object that the tool knows, one row each.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>

#include "vzconv/profile.h"

namespace vzconv {

// How objects of one kind are converted. `text` is one object as the library takes it, but 8-bit text for
// every kind. Each throws Failure.
struct Converter {
    // For a person.
    std::string (*show)(std::string_view text);
    // Adds its fields, named in words, to `object`; an absent one is missing.
    void (*to_json)(std::string_view text, nlohmann::ordered_json& object);
    // The text for the object's fields, in the form for the device of that profile; "kind" is taken away. Every
    // field counts or is refused.
    std::string (*from_json)(const nlohmann::json& fields, const Profile& profile);
    // The fields as to_json would say them. Null: there is one way only.
    nlohmann::json (*plain_form)(const nlohmann::json& fields);
};

struct Kind {
    uint32_t type;               // VZ_TYPE_...
    bool is_code_page_text;      // whether a line without CHARSET is in the system's code page
    std::string_view name;       // in JSON and in messages
    std::string_view plural;     // in messages
    std::string_view component;  // what its text begins and ends with
    std::string_view sign;  // the property that tells it from the other kind with this component, or empty
    const Converter* converter;  // null: the library does not convert this kind
};

std::span<const Kind> kinds();

// The kind of an object with this component; `text` decides where two kinds share one. Null: not ours.
const Kind* kind_of_object(std::string_view component, std::string_view text);

const Kind* kind_of_name(std::string_view name);

// The converter of `kind`; throws Failure when there is none.
const Converter& converter_of(const Kind& kind);

}  // namespace vzconv
