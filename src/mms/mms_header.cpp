#include "mms/mms_header.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "mms/header_value.h"
#include "mms/mms_charset.h"
#include "mms/mms_tables.h"
#include "platform/utf8.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

constexpr std::uint8_t kFieldBit = 0x80;
constexpr std::uint8_t kShift = 0x7F;  // the number of a code page follows
constexpr std::uint8_t kFirstNameOctet = 0x20;
constexpr std::uint32_t kMostField = 0x7F;

// In the order in which they are written.
constexpr std::uint32_t kLeading[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION};
constexpr std::uint32_t kRecipients[] = {VZ_MMS_HEADER_TO, VZ_MMS_HEADER_CC, VZ_MMS_HEADER_BCC};

HeaderForm form_of(std::uint32_t number) {
    const HeaderRow* row = find_header(number);
    return row == nullptr ? HeaderForm::Raw : row->form;
}

bool has_header(const std::vector<Header>& headers, std::uint32_t number) {
    return std::any_of(headers.begin(), headers.end(),
                       [number](const Header& each) { return each.number == number; });
}

// Brings the first of each leading header to the front.
void put_leading_first(std::vector<Header>& headers) {
    auto front = headers.begin();
    for (const std::uint32_t number : kLeading) {
        const auto found = std::find_if(front, headers.end(),
                                        [number](const Header& each) { return each.number == number; });
        if (found == headers.end()) continue;
        std::rotate(front, found, found + 1);
        ++front;
    }
}

// A name and a value, both text.
std::optional<Header> read_application_header(CWSPEncoding& pdu) {
    const std::optional<std::string_view> name = pdu.text_string();
    if (!name) return std::nullopt;
    const std::optional<std::string_view> text = pdu.text_string();
    if (!text) return std::nullopt;
    Header header;
    header.number = VZ_MMS_HEADER_APPLICATION;
    header.value.kind = VZ_MMS_VALUE_NAMED_TEXT;
    header.value.name = decode_text(kNoCharset, *name);
    header.value.text = decode_text(kNoCharset, *text);
    return header;
}

// A name that begins in any other way would be read as something else.
bool write_application_header(const Value& value, WspWriter& pdu) {
    if (value.name.empty() || value.name[0] < kFirstNameOctet || value.name[0] >= kShift) return false;
    pdu.text_string(platform::utf16_to_utf8(value.name));
    pdu.text_string(platform::utf16_to_utf8(value.text));
    return true;
}

bool write_header(const Header& header, std::uint32_t pdu_type, WspWriter& pdu) {
    const bool is_raw = header.value.kind == VZ_MMS_VALUE_RAW;
    if (header.number == VZ_MMS_HEADER_APPLICATION && !is_raw) {
        return header.value.kind == VZ_MMS_VALUE_NAMED_TEXT && write_application_header(header.value, pdu);
    }
    if (header.number > kMostField || form_of(header.number) == HeaderForm::ContentType) return false;
    pdu.octet(static_cast<std::uint8_t>(header.number | kFieldBit));
    return write_header_value(form_of(header.number), pdu_type, header.value, pdu);
}

bool is_multipart(std::u16string_view media) {
    return versit::starts_with_ignoring_case(media, "MULTIPART/") ||
           versit::starts_with_ignoring_case(media, "APPLICATION/VND.WAP.MULTIPART.");
}

// True when the bytes are a number of entries, and as many entries with lengths that hold.
bool is_multipart_body(CWSPEncoding body) {
    constexpr std::uint32_t kLeastEntry = 3;  // two lengths and a content type
    std::optional<std::uint32_t> entries = body.uintvar();
    if (!entries || *entries > body.left() / kLeastEntry) return false;
    for (; *entries != 0; --*entries) {
        const std::optional<std::uint32_t> head = body.uintvar();
        const std::optional<std::uint32_t> data = body.uintvar();
        if (!head || !data || !body.bytes(*head) || !body.bytes(*data)) return false;
    }
    return true;
}

// What the type demands of the headers.
bool is_complete(const Message& message) {
    const PduRow* row = find_pdu(message.type);
    if (row == nullptr) return true;
    const auto is_there = [&message](std::uint32_t number) { return has_header(message.headers, number); };
    return std::all_of(row->mandatory.begin(), row->mandatory.end(), is_there) &&
           (!row->needs_recipient || std::any_of(std::begin(kRecipients), std::end(kRecipients), is_there));
}

}  // namespace

bool CMMSHeader::decode(CWSPEncoding& pdu, Message& message) {
    if (!decode_fields(pdu, VZ_MMS_TYPE_NONE, message)) return false;
    if (counts_response_texts(message.type)) {
        // Response texts that stood before the type were taken for what they are in other PDUs.
        pdu.start_again();
        if (!decode_fields(pdu, message.type, message)) return false;
        if (!counts_response_texts(message.type)) return false;
    }
    put_leading_first(message.headers);
    return true;
}

bool CMMSHeader::decode_fields(CWSPEncoding& pdu, std::uint32_t type, Message& message) {
    count_ = 0;
    has_message_type_ = false;
    content_type_.reset();
    message.type = VZ_MMS_TYPE_NONE;
    message.headers.clear();
    while (!pdu.at_end() && !content_type_) {
        if (!decode_field(pdu, type, message)) return false;
    }
    decode_behind_content_type(pdu, type, message);
    return true;
}

bool CMMSHeader::decode_field(CWSPEncoding& pdu, std::uint32_t type, Message& message) {
    const std::uint8_t first = *pdu.peek();
    if (first < kFirstNameOctet) return pdu.octet().has_value();
    if (first == kShift) return pdu.bytes(2).has_value();
    if (first < kFieldBit) {
        std::optional<Header> header = read_application_header(pdu);
        if (!header || !pdu.take_entry()) return false;
        append(message.headers, *std::move(header));
        ++count_;
        return true;
    }
    static_cast<void>(pdu.octet());
    Header header;
    header.number = first & kMostField;
    if (form_of(header.number) == HeaderForm::ContentType) return decode_content_type(pdu);
    const std::uint32_t known_type = type != VZ_MMS_TYPE_NONE ? type : message.type;
    std::optional<Value> value = read_header_value(form_of(header.number), known_type, pdu);
    if (!value) return false;
    ++count_;
    if (header.number == VZ_MMS_HEADER_MESSAGE_TYPE && !has_message_type_ &&
        value->kind == VZ_MMS_VALUE_NUMBER) {
        has_message_type_ = true;
        message.type = static_cast<std::uint32_t>(value->number);
        return true;
    }
    if (!pdu.take_entry()) return false;
    header.value = *std::move(value);
    append(message.headers, std::move(header));
    return true;
}

bool CMMSHeader::decode_content_type(CWSPEncoding& pdu) {
    content_type_ = pdu.content_type();
    if (content_type_) ++count_;
    return content_type_.has_value();
}

// Fields begin with 0x80 and more: as the number of entries that is 128 at least.
void CMMSHeader::decode_behind_content_type(CWSPEncoding& pdu, std::uint32_t type, Message& message) {
    if (!content_type_ || !is_multipart(content_type_->media)) return;
    const auto is_field = [&pdu] {
        const std::optional<std::uint8_t> first = pdu.peek();
        if (!first || *first < kFieldBit) return false;
        const HeaderRow* row = find_header(*first & kMostField);
        return row != nullptr && row->form != HeaderForm::ContentType;
    };
    if (!is_field() || is_multipart_body(CWSPEncoding(pdu.rest()))) return;
    while (is_field()) {
        const std::size_t before = pdu.position();
        if (decode_field(pdu, type, message)) continue;
        pdu.return_to(before);
        return;
    }
}

bool CMMSHeader::encode(const Message& message, WspWriter& pdu) {
    const std::uint32_t type = message.type;
    if (type < kFieldBit || type > (kFieldBit | kMostField) || !is_complete(message)) return false;
    pdu.octet(VZ_MMS_HEADER_MESSAGE_TYPE | kFieldBit);
    pdu.octet(static_cast<std::uint8_t>(type));
    std::vector<const Header*> written;
    for (const std::uint32_t number : kLeading) {
        const auto found = std::find_if(message.headers.begin(), message.headers.end(),
                                        [number](const Header& each) { return each.number == number; });
        if (found == message.headers.end()) continue;
        if (!write_header(*found, type, pdu)) return false;
        written.push_back(&*found);
    }
    for (const Header& header : message.headers) {
        if (std::find(written.begin(), written.end(), &header) != written.end()) continue;
        if (!write_header(header, type, pdu)) return false;
    }
    return true;
}

}  // namespace vzapi::mms
