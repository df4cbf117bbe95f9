// The parts of a message record, as they count when it is written.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "vzapi/message.h"

namespace vzconv {

uint32_t status_of(const MessageItem& item);
uint32_t type_of(const MessageItem& item);

// The numbers of its addresses, as UTF-8; an address without a number is an empty one.
std::vector<std::string> numbers_of(const MessageItem& item);

// Its text, as UTF-8.
std::string body_of(const MessageItem& item);

// A message record for the library to write from, which owns what the record points to.
class MessageRecord {
public:
    MessageRecord() = default;
    MessageRecord(const MessageRecord&) = delete;
    MessageRecord& operator=(const MessageRecord&) = delete;

    void set_status(uint32_t status) { status_ = status; }
    void set_type(uint32_t type) { type_ = type; }
    void set_time(const MessageTime& time) { time_ = time; }

    // Throws Failure when the text is longer than a record, whose length is 32 bits, can say.
    void set_text(std::u16string text);

    // Throws Failure when the record, whose count is a byte, can hold no more.
    void add_number(std::u16string number);

    // The record; good until something is set or added.
    MessageItem item();

private:
    uint32_t status_ = VZ_MESSAGE_STATUS_NONE;
    uint32_t type_ = VZ_MESSAGE_TYPE_NONE;
    MessageTime time_{};
    std::u16string text_;
    std::vector<std::u16string> numbers_;
    std::vector<MessageAddress> addresses_;
};

}  // namespace vzconv
