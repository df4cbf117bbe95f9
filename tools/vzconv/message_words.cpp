#include "vzconv/message_words.h"

#include "vzapi/message.h"

namespace vzconv {
namespace {

constexpr CodeWord kStatuses[] = {
    {VZ_MESSAGE_STATUS_UNSENT, "unsent"},
    {VZ_MESSAGE_STATUS_SENT, "sent"},
    {VZ_MESSAGE_STATUS_FAILED, "failed"},
    {VZ_MESSAGE_STATUS_UNREAD, "unread"},
    {VZ_MESSAGE_STATUS_READ, "read"},
    {VZ_MESSAGE_STATUS_DRAFT, "draft"},
    {VZ_MESSAGE_STATUS_PENDING, "pending"},
    {VZ_MESSAGE_STATUS_CANCELLED, "cancelled"},
    {VZ_MESSAGE_STATUS_DELIVERED, "delivered"},
    {VZ_MESSAGE_STATUS_RECEIVING, "receiving"},
    {VZ_MESSAGE_STATUS_TEMP_FAIL, "temporarily failed"},
    {VZ_MESSAGE_STATUS_SENDING, "sending"},
};

constexpr CodeWord kTypes[] = {
    {VZ_MESSAGE_TYPE_DELIVER, "deliver"},
    {VZ_MESSAGE_TYPE_DELIVER_REPORT, "deliver report"},
    {VZ_MESSAGE_TYPE_SUBMIT, "submit"},
    {VZ_MESSAGE_TYPE_SUBMIT_REPORT, "submit report"},
    {VZ_MESSAGE_TYPE_STATUS_REPORT, "status report"},
    {VZ_MESSAGE_TYPE_SMS_COMMAND, "command"},
};

struct TypeRow {
    uint32_t type;
    Direction direction;
    std::string_view heading;
};

// The directions are those of GSM 03.40, where the centre delivers and the phone submits.
constexpr TypeRow kTypeRows[] = {
    {VZ_MESSAGE_TYPE_NONE, Direction::Unknown, "Message"},
    {VZ_MESSAGE_TYPE_DELIVER, Direction::In, "Message"},
    {VZ_MESSAGE_TYPE_DELIVER_REPORT, Direction::Out, "Deliver report"},
    {VZ_MESSAGE_TYPE_SUBMIT, Direction::Out, "Message"},
    {VZ_MESSAGE_TYPE_SUBMIT_REPORT, Direction::In, "Submit report"},
    {VZ_MESSAGE_TYPE_STATUS_REPORT, Direction::In, "Status report"},
    {VZ_MESSAGE_TYPE_SMS_COMMAND, Direction::Out, "Command"},
};

// A code without a row is like none.
const TypeRow& row_of(uint32_t type) {
    for (const TypeRow& row : kTypeRows) {
        if (row.type == type) return row;
    }
    return kTypeRows[0];
}

}  // namespace

std::span<const CodeWord> message_status_words() {
    return kStatuses;
}

std::span<const CodeWord> message_type_words() {
    return kTypes;
}

Direction direction_of(uint32_t type) {
    return row_of(type).direction;
}

std::string_view message_heading_of(uint32_t type) {
    return row_of(type).heading;
}

}  // namespace vzconv
