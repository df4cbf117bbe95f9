// The headers of multimedia messages: what they and their values are called, in JSON and for a person.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vzconv/code_words.h"

namespace vzconv {

struct MultimediaHeaderWord {
    uint32_t number;                  // VZ_MMS_HEADER_...
    uint32_t kind;                    // of its value, as a rule: VZ_MMS_VALUE_...
    std::string_view name;            // in the standard and in JSON
    std::string_view label;           // for a person; empty: a matter of the phone and the network
    std::span<const CodeWord> codes;  // what its numbers stand for; empty: they are just numbers
};

// Null: a number, or a name, without meaning.
const MultimediaHeaderWord* multimedia_header_of(uint32_t number);
const MultimediaHeaderWord* multimedia_header_of(std::string_view name);

// The types of PDU, VZ_MMS_SEND_REQ and so on: "m-send-req".
std::span<const CodeWord> multimedia_type_words();

// What stands before a text or number of a header with marks.
std::span<const CodeWord> mark_words(uint32_t header);

// What a number of that header stands for: "yes", "retrieved", "1.2" of a version. Empty: it is just a
// number.
std::string value_word_of(uint32_t header, uint64_t number);
std::optional<uint64_t> value_of_word(uint32_t header, std::string_view word);

}  // namespace vzconv
