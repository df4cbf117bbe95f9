// Values of message lines as text. A value without a transfer encoding is UTF-16 as it stands; one that has
// an encoding stands for bytes of a charset, which is UTF-8 unless the line names another.
#pragma once

#include <string>
#include <string_view>

#include "versit/property.h"

namespace vzapi::vmessage {

// The value of `line`, still encoded, without the line feeds at its end: an empty line hangs there when the
// lines of a text end in bare line feeds.
[[nodiscard]] std::u16string_view value_of(const versit::WideVersitProperty& line) noexcept;

// That value, the encoding undone that the line names: quoted-printable or Base64.
[[nodiscard]] std::u16string decoded_value(const versit::WideVersitProperty& line);

// The text of quoted-printable `encoded`, in the charset that `line` names. Characters beyond ASCII, which
// have no place there, stay as they are.
[[nodiscard]] std::u16string decode_quoted_printable(std::u16string_view encoded,
                                                     const versit::WideVersitProperty& line);

}  // namespace vzapi::vmessage
