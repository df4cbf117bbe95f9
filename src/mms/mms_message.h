// A multimedia message as the codec sees it: what stands in a PDU, and nothing derived from it. Bytes are
// views into the PDU that was decoded, or into the caller's record that is to be encoded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "vzapi/multimedia.h"

namespace vzapi::mms {

using Bytes = std::span<const std::byte>;

// Appends to a list that may get long: one that has become so has room for a quarter more than it holds, not
// for twice as much.
template <class Entry>
void append(std::vector<Entry>& list, std::type_identity_t<Entry>&& entry) {
    constexpr std::size_t kLong = 16;
    if (list.size() == list.capacity() && list.size() >= kLong) list.reserve(list.size() / 4 * 5);
    list.push_back(std::move(entry));
}

// The value of a header or a parameter. The kind tells which members count, as in vzapi/multimedia.h.
struct Value {
    std::uint32_t kind = VZ_MMS_VALUE_NONE;
    std::uint32_t token = 0;
    std::uint32_t count = 0;
    std::uint32_t charset = 0;
    std::uint64_t number = 0;
    std::u16string name;
    std::u16string text;
    Bytes bytes;
};

struct Header {
    std::uint32_t number = 0;  // VZ_MMS_HEADER_, or that of a WSP header
    Value value;
};

struct Parameter {
    std::u16string name;
    Value value;
};

struct ContentType {
    std::u16string media;  // "image/jpeg"; empty: none
    std::uint32_t charset = 0;
    std::vector<Parameter> parameters;
};

struct Disposition {
    std::u16string kind;
    std::vector<Parameter> parameters;
};

struct Part {
    std::uint32_t flags = 0;      // VZ_MMS_PART_
    std::uint32_t container = 0;  // number, from 1, of the enclosing part
    ContentType type;
    std::optional<std::u16string> content_id;  // without quotes and angle brackets
    std::optional<std::u16string> content_location;
    std::optional<Disposition> disposition;
    std::vector<Header> headers;  // all others
    std::u16string name;          // see MultimediaPart
    Bytes data;
    std::vector<std::byte> decoded;  // what `data` is a view into, once a transfer encoding was undone
};

struct Message {
    std::uint32_t type = VZ_MMS_TYPE_NONE;
    std::uint32_t flags = 0;  // VZ_MMS_NO_PRESENTATION, VZ_MMS_TRUNCATED
    std::vector<Header> headers;
    std::vector<Part> parts;  // a container stands before its parts, and those in their order
};

}  // namespace vzapi::mms
