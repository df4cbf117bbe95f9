#include "vmessage/message_reader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/heap.h"
#include "platform/ole_string.h"
#include "result.h"
#include "vmessage/decoded_value.h"
#include "vmessage/message_body.h"
#include "vmessage/message_codes.h"
#include "vmessage/message_parts.h"
#include "vmessage/message_record.h"
#include "vmessage/message_time.h"
#include "vzapi/message.h"

namespace vzapi::vmessage {
namespace {

bool is_known_version(std::u16string_view version) {
    return version == u"1.1" || version == u"1.0";
}

// X-MESSAGE-TYPE tells the type, whatever its value; else X-IRMC-BOX does. Without either, what names
// somebody has come in.
std::uint32_t type_of(const MessageParts& parts) {
    if (parts.type) return type_code(*parts.type);
    const bool has_come_in = parts.box ? folder_code(*parts.box) == VZ_FOLDER_INBOX : !parts.numbers.empty();
    return has_come_in ? VZ_MESSAGE_TYPE_DELIVER : VZ_MESSAGE_TYPE_SUBMIT;
}

std::uint32_t flags_of(const MessageParts& parts) {
    const std::uint32_t status = status_code(parts.status.value_or(std::u16string_view{}));
    return VZ_MESSAGE_MARKS | status << VZ_MESSAGE_STATUS_SHIFT | type_of(parts) << VZ_MESSAGE_TYPE_SHIFT;
}

// The header's time; that of the body where the header tells none.
MessageTime time_of(const MessageParts& parts, const MessageBody& body) {
    const std::optional<MessageTime> time = parts.time ? parse_header_time(*parts.time) : std::nullopt;
    return time && time->year != 0 ? *time : body.time;
}

// An encoded NUL ends a number, as it does in a record.
char16_t* number_of(const versit::WideVersitProperty& line) {
    const std::u16string number = decoded_value(line);
    char16_t* string =
        platform::ole_string_allocate(std::u16string_view(number).substr(0, number.find(u'\0')));
    if (string == nullptr) raise(VZ_ERR_OUT_OF_MEMORY);
    return string;
}

Addresses addresses_of(const std::vector<versit::WideVersitProperty>& numbers) {
    if (numbers.empty()) return {};
    Addresses addresses(
        static_cast<MessageAddress*>(platform::heap_allocate(numbers.size() * sizeof(MessageAddress))));
    if (!addresses) raise(VZ_ERR_OUT_OF_MEMORY);
    MessageAddress* address = addresses.get();
    for (const versit::WideVersitProperty& line : numbers) {
        address->number = number_of(line);
        ++address;
    }
    return addresses;
}

}  // namespace

void read(const versit::WideVersitObject& object, void* item, const ReaderContext& /*context*/) {
    auto& message = *static_cast<MessageItem*>(item);
    message.size = sizeof(MessageItem);
    const std::optional<MessageParts> parts = message_parts(object);
    if (!parts || !is_known_version(parts->version) || !parts->body) raise(VZ_ERR_INVALID_TEXT);

    MessageBody body = read_body(
        std::span(object.lines()).subspan(parts->body->begin, parts->body->end - parts->body->begin));
    Addresses addresses = addresses_of(parts->numbers);
    message.flags = flags_of(*parts);
    message.timestamp = time_of(*parts, body);
    message.textLength = body.length;
    message.text = body.text.release();
    message.addressCount = static_cast<std::uint8_t>(parts->numbers.size());
    message.addresses = addresses.release();
}

}  // namespace vzapi::vmessage
