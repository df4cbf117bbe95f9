// The header of a multimedia message: its fields, by the table of header_rows().
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "mms/mms_message.h"
#include "mms/wsp_encoding.h"

namespace vzapi::mms {

class CMMSHeader {
public:
    // Reads fields until the content type, with which the header ends, or the end of the bytes; and those
    // behind the content type of a multipart body where they can be no body. Fields that are not understood,
    // and texts with U+0000, are kept raw. A transaction id and a version are put in front of the others,
    // where encode() writes them; the first message type goes to `message.type`. Left out: shifts of the code
    // page, and NULs between fields. False when a field is cut off.
    [[nodiscard]] bool decode(CWSPEncoding& pdu, Message& message);

    // The fields of `message` in canonical order: type, transaction id, version, then the others as they
    // come. The content type of the body is left to the caller. False when the record cannot be encoded: no
    // type, or without what the type demands, or with a value of another kind than the header has or that its
    // form cannot hold. Raw bytes are written as they stand. Texts end at their first NUL, and unpaired
    // surrogates become U+FFFD where a charset has none.
    [[nodiscard]] bool encode(const Message& message, WspWriter& pdu);

    // After decode(): how many fields there were, the content type included, and which of the two were seen.
    [[nodiscard]] std::size_t count() const noexcept { return count_; }
    [[nodiscard]] bool has_message_type() const noexcept { return has_message_type_; }
    [[nodiscard]] const std::optional<ContentType>& content_type() const noexcept { return content_type_; }

private:
    [[nodiscard]] bool decode_fields(CWSPEncoding& pdu, std::uint32_t type, Message& message);
    [[nodiscard]] bool decode_field(CWSPEncoding& pdu, std::uint32_t type, Message& message);
    [[nodiscard]] bool decode_content_type(CWSPEncoding& pdu);
    void decode_behind_content_type(CWSPEncoding& pdu, std::uint32_t type, Message& message);

    std::size_t count_ = 0;
    bool has_message_type_ = false;
    std::optional<ContentType> content_type_;
};

}  // namespace vzapi::mms
