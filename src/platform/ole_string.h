// OLE strings: UTF-16 text with its byte length in the four bytes before the first unit and a zero unit after
// the last. The strings inside caller records are of this kind; the caller gives them back to the library.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

namespace vzapi::platform {

// A new string holding a copy of `text`; null when there is no memory. Units of value 0 are kept.
[[nodiscard]] char16_t* ole_string_allocate(std::u16string_view text) noexcept;

// Number of units, the terminating zero not counted; 0 for null.
[[nodiscard]] std::size_t ole_string_length(const char16_t* text) noexcept;

// Releases `text`; null is left alone, and on Linux so is an address that is no live OLE string.
void ole_string_free(char16_t* text) noexcept;

// Owns one string until a caller's record takes it over with release().
class OleString {
public:
    OleString() = default;
    explicit OleString(char16_t* text) noexcept : text_(text) {}
    OleString(OleString&& other) noexcept : text_(other.release()) {}
    OleString& operator=(OleString&& other) noexcept {
        if (this != &other) {
            ole_string_free(text_);
            text_ = other.release();
        }
        return *this;
    }
    OleString(const OleString&) = delete;
    OleString& operator=(const OleString&) = delete;
    ~OleString() { ole_string_free(text_); }

    [[nodiscard]] const char16_t* get() const noexcept { return text_; }
    [[nodiscard]] char16_t* release() noexcept { return std::exchange(text_, nullptr); }
    [[nodiscard]] std::u16string_view view() const noexcept { return {text_, ole_string_length(text_)}; }
    explicit operator bool() const noexcept { return text_ != nullptr; }

private:
    char16_t* text_ = nullptr;
};

}  // namespace vzapi::platform
