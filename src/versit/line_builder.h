// Content lines out of names, parameters and values, appended to one growing text.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "versit/names.h"

namespace vzapi::versit {

// How property() writes a UTF-16 value.
enum class ValueForm {
    Automatic,        // quoted-printable UTF-8 when needs_encoding() says so, else plain
    Plain,            // UTF-8 as it stands, never folded. A CR LF in the value ends the line and makes the
                      // rest a line of its own: for values that are known to hold none.
    QuotedPrintable,  // always quoted-printable UTF-8
};

// Every line ends in CR LF. Plain values are never folded: old devices put the blank of a fold into the text.
// Quoted-printable values get soft breaks so that no physical line is longer than 76 columns, the '=' of the
// break included; no escape is split, and no line after a break begins like a property line or with a blank
// (its first character is then written as an escape), so that our own parser and others join it again. Only
// where name and parameters alone leave no room is the first line longer.
class LineBuilder {
public:
    // `text` and CR LF: frame lines and other finished text. REQUIRES: no line break in it.
    void line(std::string_view text);

    // NAME`parameters`:`value`, where `parameters` is empty or begins with ';' (";HOME;PREF"). A value in
    // quoted-printable form has ";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8" put after the parameters.
    void property(std::string_view name, std::string_view parameters, std::u16string_view value,
                  ValueForm form = ValueForm::Automatic);
    void property(PropertyId id, std::string_view parameters, std::u16string_view value,
                  ValueForm form = ValueForm::Automatic) {
        property(property_name(id), parameters, value, form);
    }

    // The same for 8-bit text that is written as it stands.
    void property(std::string_view name, std::string_view parameters, std::string_view value);
    void property(PropertyId id, std::string_view parameters, std::string_view value) {
        property(property_name(id), parameters, value);
    }

    // NAME`parameters`: and `encoded`, quoted-printable text made by the caller (a compound value, say),
    // softly broken. `parameters` must name the encoding.
    void quoted_printable(std::string_view name, std::string_view parameters, std::string_view encoded);

    // NAME`parameters`: and the Base64 text of `bytes`, right after the colon, folded at 76 columns with CR
    // LF and one blank and, when it took more than one line, followed by an empty line. `parameters` must
    // name the encoding.
    void base64(std::string_view name, std::string_view parameters, std::span<const std::byte> bytes);

    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    [[nodiscard]] std::string take() noexcept { return std::move(text_); }

private:
    std::string text_;
};

}  // namespace vzapi::versit
