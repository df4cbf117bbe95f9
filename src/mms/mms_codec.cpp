#include "mms/mms_codec.h"

#include <algorithm>
#include <utility>

#include "mms/mms_header.h"
#include "mms/mms_tables.h"
#include "mms/presentation.h"
#include "mms/wsp_encoding.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

constexpr std::uint8_t kPush = 0x06;  // type of a PDU of the push protocol (WAP-230-WSP, section 8.2.4)

// What is behind a push header, if one stands in front: transaction id, type, length of the headers, and the
// headers, which begin with a content type.
Bytes without_push_header(Bytes pdu) {
    CWSPEncoding push(pdu);
    static_cast<void>(push.octet());
    if (push.octet() != kPush) return pdu;
    const std::optional<std::uint32_t> length = push.uintvar();
    const std::optional<Bytes> headers = length ? push.bytes(*length) : std::nullopt;
    if (!headers) return pdu;
    EntryLimit limit(headers->size());
    const std::optional<ContentType> type = CWSPEncoding(*headers, &limit).content_type();
    const bool is_message = type && versit::equals_ignoring_case(std::u16string_view(type->media),
                                                                 "APPLICATION/VND.WAP.MMS-MESSAGE");
    return is_message ? *push.bytes(push.left()) : pdu;
}

std::size_t entries_of(const ContentType& type) {
    return type.parameters.size() + (type.charset == 0 ? 0 : 1);
}

// What EntryLimit counts.
std::size_t entries_of(const Message& message) {
    std::size_t count = message.headers.size();
    for (const Part& part : message.parts) {
        count += part.headers.size() + entries_of(part.type);
        if (part.disposition) count += part.disposition->parameters.size();
    }
    return count;
}

bool needs_body(std::uint32_t type) {
    const PduRow* row = find_pdu(type);
    return row != nullptr && row->has_body;
}

}  // namespace

std::optional<Message> CMMSCodec2::decode(Bytes pdu) {
    *this = {};
    pdu = without_push_header(pdu);
    EntryLimit limit(pdu.size());
    CWSPEncoding reader(pdu, &limit);
    Message message;
    message.flags = VZ_MMS_NO_PRESENTATION;
    CMMSHeader header;
    if (!header.decode(reader, message)) return std::nullopt;
    has_message_type_ = header.has_message_type();
    has_content_type_ = header.content_type().has_value();
    if (!has_message_type_ && !has_content_type_) return std::nullopt;
    if (has_content_type_) {
        CMultipartContainer::decode(*header.content_type(), *reader.bytes(reader.left()), limit, message);
        name_parts(message.parts);
    }
    if (limit.is_exceeded()) return std::nullopt;
    count_ = header.count() + message.parts.size();
    return message;
}

std::optional<EncodedPdu> CMMSCodec2::encode(Message& message) {
    if (!CMultipartContainer::can_encode(message.parts)) return std::nullopt;
    complete_body(message);
    std::vector<Part>& parts = message.parts;
    if (!CMultipartContainer::can_encode(parts)) return std::nullopt;  // it may be one container deeper now
    if (parts.empty() && needs_body(message.type)) return std::nullopt;
    keep_names(parts);
    WspWriter head;
    CMMSHeader header;
    if (!header.encode(message, head)) return std::nullopt;
    if (!parts.empty()) {
        head.octet(VZ_MMS_HEADER_CONTENT_TYPE | 0x80);
        head.content_type(parts.front().type);
    }
    EncodedPdu pdu(head.take(), EncodedBody(parts));
    if (entries_of(message) > EntryLimit::of(pdu.size())) return std::nullopt;  // nobody could read it
    return pdu;
}

void EncodedPdu::copy_to(std::byte* out) const {
    out = std::copy(head_.begin(), head_.end(), out);
    body_.copy_to(out);
}

}  // namespace vzapi::mms
