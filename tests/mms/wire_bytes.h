// Octets of the binary encoding in tests: written by hand, shown, compared.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "mms/mms_message.h"

namespace vzapi::mms {

using Octets = std::vector<std::byte>;

// Octets in hexadecimal digits, and texts in '...': "97 'a@b' 00".
[[nodiscard]] inline Octets wire(std::string_view notation) {
    Octets octets;
    for (std::size_t at = 0; at < notation.size();) {
        if (notation[at] == '\'') {
            const std::size_t end = notation.find('\'', at + 1);
            for (const char each : notation.substr(at + 1, end - at - 1)) {
                octets.push_back(static_cast<std::byte>(each));
            }
            at = end + 1;
        } else if (notation[at] == ' ') {
            ++at;
        } else {
            octets.push_back(
                static_cast<std::byte>(std::stoul(std::string(notation.substr(at, 2)), nullptr, 16)));
            at += 2;
        }
    }
    return octets;
}

[[nodiscard]] inline std::string shown(std::span<const std::byte> octets) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const std::byte octet : octets) {
        const auto value = static_cast<std::uint8_t>(octet);
        if (!text.empty()) text += ' ';
        text += kDigits[value >> 4U];
        text += kDigits[value & 0xFU];
    }
    return text;
}

[[nodiscard]] inline std::string_view characters_of(std::span<const std::byte> octets) {
    return {reinterpret_cast<const char*>(octets.data()), octets.size()};
}

[[nodiscard]] inline std::string narrow(std::u16string_view text) {
    std::string shown;
    for (const char16_t unit : text) {
        if (unit < 0x80) {
            shown += static_cast<char>(unit);
        } else {
            shown += "<" + std::to_string(static_cast<unsigned>(unit)) + ">";
        }
    }
    return shown;
}

inline bool operator==(const Value& one, const Value& other) {
    return one.kind == other.kind && one.token == other.token && one.count == other.count &&
           one.charset == other.charset && one.number == other.number && one.name == other.name &&
           one.text == other.text &&
           std::equal(one.bytes.begin(), one.bytes.end(), other.bytes.begin(), other.bytes.end());
}

inline bool operator==(const Header& one, const Header& other) {
    return one.number == other.number && one.value == other.value;
}

inline bool operator==(const Parameter& one, const Parameter& other) {
    return one.name == other.name && one.value == other.value;
}

inline bool operator==(const ContentType& one, const ContentType& other) {
    return one.media == other.media && one.charset == other.charset && one.parameters == other.parameters;
}

inline bool operator==(const Disposition& one, const Disposition& other) {
    return one.kind == other.kind && one.parameters == other.parameters;
}

[[nodiscard]] inline std::string described(const Value& value) {
    return "kind " + std::to_string(value.kind) + " token " + std::to_string(value.token) + " count " +
           std::to_string(value.count) + " charset " + std::to_string(value.charset) + " number " +
           std::to_string(value.number) + " name '" + narrow(value.name) + "' text '" + narrow(value.text) +
           "' bytes " + shown(value.bytes);
}

inline void PrintTo(const Value& value, std::ostream* out) {
    *out << described(value);
}

inline void PrintTo(const Header& header, std::ostream* out) {
    *out << "header " << header.number << ": " << described(header.value);
}

inline void PrintTo(const Parameter& parameter, std::ostream* out) {
    *out << narrow(parameter.name) << "=" << described(parameter.value);
}

// Values of each kind.
[[nodiscard]] inline Value number(std::uint64_t number) {
    Value value;
    value.kind = VZ_MMS_VALUE_NUMBER;
    value.number = number;
    return value;
}

[[nodiscard]] inline Value date(std::uint64_t seconds) {
    Value value = number(seconds);
    value.kind = VZ_MMS_VALUE_DATE;
    return value;
}

[[nodiscard]] inline Value text(std::u16string_view text) {
    Value value;
    value.kind = VZ_MMS_VALUE_TEXT;
    value.text = text;
    return value;
}

[[nodiscard]] inline Value encoded(std::uint32_t charset, std::u16string_view characters) {
    Value value = text(characters);
    value.kind = VZ_MMS_VALUE_ENCODED_TEXT;
    value.charset = charset;
    return value;
}

[[nodiscard]] inline Value address(std::uint32_t token, std::u16string_view characters,
                                   std::uint32_t charset = 0) {
    Value value = encoded(charset, characters);
    value.kind = VZ_MMS_VALUE_ADDRESS;
    value.token = token;
    return value;
}

[[nodiscard]] inline Value time(std::uint32_t token, std::uint64_t seconds) {
    Value value = number(seconds);
    value.kind = VZ_MMS_VALUE_TIME;
    value.token = token;
    return value;
}

[[nodiscard]] inline Value counted(std::uint32_t kind, std::uint32_t count, Value value) {
    value.kind = kind;
    value.count = count;
    return value;
}

[[nodiscard]] inline Value marked(std::uint32_t kind, std::uint32_t token, Value value) {
    value.kind = kind;
    value.token = token;
    return value;
}

[[nodiscard]] inline Value named_text(std::u16string_view name, std::u16string_view characters) {
    Value value = text(characters);
    value.kind = VZ_MMS_VALUE_NAMED_TEXT;
    value.name = name;
    return value;
}

// A view into `octets`.
[[nodiscard]] inline Value raw(const Octets& octets) {
    Value value;
    value.kind = VZ_MMS_VALUE_RAW;
    value.bytes = octets;
    return value;
}

}  // namespace vzapi::mms
