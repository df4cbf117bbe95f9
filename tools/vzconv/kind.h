// The kinds of object that the tool knows, one row each.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vzconv/embedded_file.h"
#include "vzconv/library.h"
#include "vzconv/options.h"

namespace vzconv {

struct JsonObject;

// How objects of one kind are converted. `text` is one object as the library takes it, but 8-bit text (or
// bytes, see TextForm) for every kind. Each throws Failure.
struct Converter {
    // For a person.
    std::string (*show)(std::string_view text, const Options& options);
    // Adds its fields, named in words, to `object`; an absent one is missing.
    void (*to_json)(std::string_view text, const Options& options, nlohmann::ordered_json& object);
    // The text for the object's fields, in the form for the device of the profile; "kind" is taken away.
    // Every field counts or is refused.
    std::string (*from_json)(const JsonObject& object, const Options& options);
    // The fields as to_json would say them. Null: there is one way only.
    nlohmann::json (*plain_form)(const nlohmann::json& fields) = nullptr;
    // Throws Failure for what is wrong with an object that can be read all the same. Null: nothing.
    void (*check)(std::string_view text, const Options& options) = nullptr;
    // What in it is a file of its own. Null: nothing.
    std::vector<EmbeddedFile> (*files)(std::string_view text, const Options& options) = nullptr;
};

// What the text of an object is made of.
enum class TextForm : uint8_t {
    CodePage,  // bytes: a line without CHARSET is in the system's code page
    Utf16,     // units; UTF-8 where a file has it as bytes
    Xml,       // bytes in a charset that the document itself names
    Binary,    // no text: bytes
};

struct Kind {
    RecordType record;
    TextForm form;
    std::string_view name;       // in JSON and in messages
    std::string_view plural;     // in messages
    std::string_view component;  // what its text begins and ends with
    std::string_view sign;  // the property that tells it from the other kind with this component, or empty
    const Converter* converter;
};

std::span<const Kind> kinds();

// The kind of an object with this component; `text` decides where two kinds share one. Null: not ours.
const Kind* kind_of_object(std::string_view component, std::string_view text);

const Kind* kind_of_name(std::string_view name);

}  // namespace vzconv
