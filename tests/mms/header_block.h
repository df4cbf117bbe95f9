// Header blocks in tests: read from octets, written from lists.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "mms/mms_header.h"
#include "mms/wire_bytes.h"

namespace vzapi::mms {

// A header block that was read; its views point into `octets`.
struct Decoded {
    explicit Decoded(Octets bytes) : octets(std::move(bytes)) {
        CWSPEncoding pdu{Bytes(octets)};
        is_good = header.decode(pdu, message);
        position = pdu.position();
    }
    explicit Decoded(const char* notation) : Decoded(wire(notation)) {}

    Octets octets;
    CMMSHeader header;
    Message message;
    bool is_good = false;
    std::size_t position = 0;
};

// The fields of an unknown message type, of which nothing is demanded.
inline constexpr std::uint32_t kFreeType = 0xA0;

[[nodiscard]] inline std::optional<Octets> encoded_block(std::vector<Header> headers,
                                                         std::uint32_t type = kFreeType) {
    Message message;
    message.type = type;
    message.headers = std::move(headers);
    WspWriter pdu;
    if (!CMMSHeader().encode(message, pdu)) return std::nullopt;
    return pdu.take();
}

}  // namespace vzapi::mms
