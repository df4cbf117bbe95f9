// The fixed tables of the binary encoding (OMA MMS Encapsulation 1.3, section 7; WAP-230-WSP, appendix A).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vzapi::mms {

// How the value of a header is written.
enum class HeaderForm : std::uint8_t {
    Octet,             // one octet, 0x80 and more
    OctetOrText,       // the same, or a token text
    Version,           // short integer: major and minor number
    Integer,           // short or long integer
    LongInteger,       // written as a long integer, read as either
    Date,              // long integer
    Text,              // text string
    EncodedText,       // encoded string
    Address,           // encoded string with an address
    From,              // length, token, address
    Time,              // length, token, date or seconds
    MarkedText,        // length, token, encoded string
    MarkedNumber,      // length, token, integer
    CountedAddress,    // length, integer, address
    CountedDate,       // length, integer, date
    OctetOrCounted,    // octet; length, integer, octet
    EncodedOrCounted,  // encoded string; length, integer, encoded string
    TextOrCounted,     // text string; length, integer, text string
    ContentType,       // content type, with which the header ends
    Raw,               // kept as it stands
};

struct HeaderRow {
    std::uint32_t number;  // VZ_MMS_HEADER_
    HeaderForm form;
    std::string_view name;  // "X-Mms-Transaction-Id"
};

// One row a number, from 1 to 0x3F, in that order.
[[nodiscard]] std::span<const HeaderRow> header_rows() noexcept;
[[nodiscard]] const HeaderRow* find_header(std::uint32_t number) noexcept;

// Media types by their WSP number.
[[nodiscard]] std::string_view media_of_code(std::uint32_t code) noexcept;  // empty: none
[[nodiscard]] std::optional<std::uint32_t> code_of_media(std::u16string_view media) noexcept;

// How the value of a parameter is written.
enum class ParameterForm : std::uint8_t {
    Q,
    Charset,
    Version,
    Integer,
    Type,
    Text,
    FieldName,
    ShortInteger,
    Date,
    Seconds,
    None
};

struct ParameterRow {
    std::uint32_t number;
    ParameterForm form;
    bool is_written;  // several numbers may have one name; this is the one to write
    std::string_view name;
};

[[nodiscard]] std::span<const ParameterRow> parameter_rows() noexcept;  // in the order of the numbers
[[nodiscard]] const ParameterRow* find_parameter(std::uint32_t number) noexcept;
[[nodiscard]] const ParameterRow* find_parameter(
    std::u16string_view name) noexcept;  // the one that is written

// What a PDU type demands.
struct PduRow {
    std::uint32_t type;
    bool needs_recipient;  // one of To, Cc and Bcc
    bool has_body;
    std::string_view name;                     // "m-send-req"
    std::span<const std::uint32_t> mandatory;  // header numbers
};

[[nodiscard]] std::span<const PduRow> pdu_rows() noexcept;  // in the order of the types
[[nodiscard]] const PduRow* find_pdu(std::uint32_t type) noexcept;

}  // namespace vzapi::mms
