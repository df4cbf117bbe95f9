// What content types and dispositions are made of: media types, kinds and parameters (WAP-230-WSP, section
// 8.4.2).
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "mms/mms_message.h"
#include "mms/wsp_encoding.h"

namespace vzapi::mms {

// A media type by number or name, with the parameters that a name may have behind ';' as in MIME.
[[nodiscard]] std::optional<ContentType> read_media(CWSPEncoding& bytes);

// A kind by number or name, the same way.
[[nodiscard]] std::optional<Disposition> read_disposition_kind(CWSPEncoding& bytes);

// Adds all parameters up to the end of the bytes, or to what can be none; the charset goes to its own member.
void read_parameters(CWSPEncoding& bytes, std::vector<Parameter>& parameters);
void read_parameters(CWSPEncoding& bytes, ContentType& type);

// Raw octets are one value, and stand behind the number that their parameter is named by: anywhere else they would
// be read as something else, or make something else of what follows.
[[nodiscard]] bool can_write(const Parameter& parameter);

// False for a media type that needs a length before it, whether parameters follow or not.
[[nodiscard]] bool write_media(std::u16string_view media, WspWriter& bytes);
void write_disposition_kind(std::u16string_view kind, WspWriter& bytes);
void write_charset(std::uint32_t charset, WspWriter& bytes);  // nothing for none
// REQUIRES: can_write() of each.
void write_parameters(const std::vector<Parameter>& parameters, WspWriter& bytes);

}  // namespace vzapi::mms
