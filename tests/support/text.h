// Building and looking at the interface's texts and records in tests.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "vzapi/vzapi.h"

namespace vzapi::test {

// A VersitData over the bytes of `text`, which must outlive it.
[[nodiscard]] inline VersitData data_of(std::string& text) {
    return {sizeof(VersitData), 0, static_cast<std::uint32_t>(text.size()), text.data()};
}

[[nodiscard]] inline VersitData data_of(std::u16string& text) {
    return {sizeof(VersitData), 0, static_cast<std::uint32_t>(text.size() * sizeof(char16_t)), text.data()};
}

[[nodiscard]] inline std::string bytes_of(const VersitData& data) {
    return {static_cast<const char*>(data.text), data.length};
}

// Text of a record; "(null)" tells an absent string from an empty one.
[[nodiscard]] inline std::u16string text_of(const char16_t* text) {
    return text == nullptr ? std::u16string(u"(null)") : std::u16string(text);
}

// `lines` joined with CR LF, one after the last too.
[[nodiscard]] inline std::string lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines) text.append(line).append("\r\n");
    return text;
}

// Owns a text that the library handed out.
class OwnedText {
public:
    OwnedText() = default;
    ~OwnedText() {
        if (data.size != 0) static_cast<void>(FreeVersitData(&data));
    }
    OwnedText(const OwnedText&) = delete;
    OwnedText& operator=(const OwnedText&) = delete;

    [[nodiscard]] std::string bytes() const { return bytes_of(data); }

    VersitData data{};
};

// Announces an interface version for the length of a scope.
class AnnouncedVersion {
public:
    explicit AnnouncedVersion(std::uint32_t version) { VZAPI_Initialize(version); }
    ~AnnouncedVersion() { VZAPI_Terminate(); }
    AnnouncedVersion(const AnnouncedVersion&) = delete;
    AnnouncedVersion& operator=(const AnnouncedVersion&) = delete;
};

}  // namespace vzapi::test
