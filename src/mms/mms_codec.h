// Multimedia messages: PDU to message and back (OMA MMS Encapsulation 1.0 to 1.3).
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "mms/mms_message.h"
#include "mms/multipart.h"

namespace vzapi::mms {

// A PDU that is still in pieces: the data of parts are copied once, to where the PDU is wanted.
class EncodedPdu {
public:
    EncodedPdu(std::vector<std::byte> head, EncodedBody body)
        : head_(std::move(head)), body_(std::move(body)) {}

    [[nodiscard]] std::size_t size() const noexcept { return head_.size() + body_.size(); }
    // Writes size() bytes.
    void copy_to(std::byte* out) const;

private:
    std::vector<std::byte> head_;
    EncodedBody body_;
};

class CMMSCodec2 {
public:
    // The message of a PDU, a push header before it left out; its bytes are views into `pdu`. Nothing for
    // bytes that are none, or have more headers and parameters than EntryLimit allows. Costs time and memory
    // in proportion to the size of `pdu`.
    [[nodiscard]] std::optional<Message> decode(Bytes pdu);

    // The PDU of a message in canonical form; nothing when it cannot be encoded. The message gets what its
    // body lacks, and must stay as long as the PDU.
    [[nodiscard]] std::optional<EncodedPdu> encode(Message& message);

    // After decode(): headers and parts, and what was seen.
    [[nodiscard]] std::size_t count() const noexcept { return count_; }
    [[nodiscard]] bool has_message_type() const noexcept { return has_message_type_; }
    [[nodiscard]] bool has_content_type() const noexcept { return has_content_type_; }

private:
    std::size_t count_ = 0;
    bool has_message_type_ = false;
    bool has_content_type_ = false;
};

}  // namespace vzapi::mms
