// Messages as values, the records that hold them, and the way through the interface.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "support/text.h"
#include "vzapi/vzapi.h"

namespace vzapi::test {

struct Time {
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    friend bool operator==(const Time&, const Time&) = default;
};

using WideText = std::optional<std::u16string>;

struct Message {
    std::uint32_t status = 0;
    std::uint32_t type = 0;
    std::vector<WideText> numbers;
    WideText text;
    Time time;
    friend bool operator==(const Message&, const Message&) = default;
};

inline void PrintTo(const Message& message, std::ostream* out) {
    const Time& time = message.time;
    *out << "status " << message.status << ", type " << message.type << ", time " << time.year << "-"
         << int{time.month} << "-" << int{time.day} << " " << int{time.hour} << ":" << int{time.minute} << ":"
         << int{time.second} << ", numbers " << testing::PrintToString(message.numbers) << ", text "
         << testing::PrintToString(message.text);
}

inline MessageTime record_time(const Time& time) {
    MessageTime result{};
    result.year = time.year;
    result.month = time.month;
    result.day = time.day;
    result.hour = time.hour;
    result.minute = time.minute;
    result.second = time.second;
    return result;
}

inline Time time_of(const MessageTime& time) {
    return {time.year, time.month, time.day, time.hour, time.minute, time.second};
}

// A record as a host sets it up, in memory of its own.
class MessageRecord {
public:
    explicit MessageRecord(Message message) : message_(std::move(message)) {
        for (WideText& number : message_.numbers) {
            addresses.push_back({0, number ? number->data() : nullptr});
        }
        item.size = sizeof item;
        item.flags = message_.status << VZ_MESSAGE_STATUS_SHIFT | message_.type << VZ_MESSAGE_TYPE_SHIFT;
        if (message_.text) {
            item.text = message_.text->data();
            item.textLength = static_cast<std::uint32_t>(message_.text->size() * sizeof(char16_t));
        }
        item.addressCount = static_cast<std::uint8_t>(addresses.size());
        item.addresses = addresses.data();
        item.timestamp = record_time(message_.time);
    }
    MessageRecord(const MessageRecord&) = delete;
    MessageRecord& operator=(const MessageRecord&) = delete;

    std::vector<MessageAddress> addresses;
    MessageItem item{};

private:
    Message message_;
};

// What a record holds that was read. The flags beside status and type are always the same, and a text is
// always there.
inline Message message_of(const MessageItem& item) {
    EXPECT_EQ(item.size, 64U);
    EXPECT_EQ(item.flags & ~0xFF00U, 0x11U);
    EXPECT_EQ(item.textLength % sizeof(char16_t), 0U);
    Message message;
    message.status = (item.flags & VZ_MESSAGE_STATUS_MASK) >> VZ_MESSAGE_STATUS_SHIFT;
    message.type = (item.flags & VZ_MESSAGE_TYPE_MASK) >> VZ_MESSAGE_TYPE_SHIFT;
    for (std::size_t i = 0; i < item.addressCount; ++i) {
        const char16_t* number = item.addresses[i].number;
        message.numbers.push_back(number == nullptr ? WideText() : WideText(number));
        EXPECT_EQ(item.addresses[i].reserved, 0U);
    }
    if (item.text != nullptr) message.text.emplace(item.text, item.textLength / sizeof(char16_t));
    message.time = time_of(item.timestamp);
    MessageTime time = record_time(message.time);
    EXPECT_EQ(std::memcmp(&time, &item.timestamp, sizeof time), 0);
    return message;
}

enum class Form : bool { Plain, Extended };

inline constexpr Form kForms[] = {Form::Plain, Form::Extended};

inline ResultCode write_message(const MessageItem& item, Form form, VersitData& out) {
    if (form == Form::Plain) return ConvertToVersit(VZ_TYPE_MESSAGE, &item, &out);
    return ConvertToVersit2(VZ_PROFILE_10, VZ_PROFILE_10_MESSENGERS_AND_SMS, VZ_PROFILE_OFF, VZ_TYPE_MESSAGE,
                            &item, &out);
}

// The units of a text that the library handed out, which may stand anywhere.
inline std::u16string units_of(const VersitData& data) {
    std::u16string text(data.length / sizeof(char16_t), u'\0');
    if (!text.empty()) std::memcpy(text.data(), data.text, text.size() * sizeof(char16_t));
    return text;
}

inline std::u16string written(const MessageItem& item, Form form = Form::Plain) {
    OwnedText out;
    EXPECT_EQ(write_message(item, form, out.data), VZ_OK);
    EXPECT_EQ(out.data.size, 24U);
    EXPECT_EQ(out.data.format, 1U);
    EXPECT_EQ(out.data.length % 2, 0U);
    return units_of(out.data);
}

inline std::u16string written(const Message& message, Form form = Form::Plain) {
    return written(MessageRecord(message).item, form);
}

// A record that is read from text and gives back what it owns.
struct OwnedMessage {
    OwnedMessage() { item.size = sizeof item; }
    ~OwnedMessage() {
        item.size = sizeof item;
        static_cast<void>(FreeConverterData(VZ_TYPE_MESSAGE, &item));
    }
    OwnedMessage(const OwnedMessage&) = delete;
    OwnedMessage& operator=(const OwnedMessage&) = delete;

    ResultCode read(std::u16string text) {
        const VersitData in = data_of(text);
        return ConvertFromVersit(VZ_TYPE_MESSAGE, &in, &item);
    }

    MessageItem item{};
};

inline Message read_message(const std::u16string& text) {
    OwnedMessage message;
    EXPECT_EQ(message.read(text), VZ_OK) << testing::PrintToString(text);
    return message_of(message.item);
}

inline ResultCode read_result(const std::u16string& text) {
    OwnedMessage message;
    return message.read(text);
}

inline Message there_and_back(const Message& message, Form form) {
    return read_message(written(message, form));
}

// `lines` joined with CR LF, one after the last too.
inline std::u16string wide_lines(std::initializer_list<std::u16string_view> lines) {
    std::u16string text;
    for (const std::u16string_view line : lines) text.append(line).append(u"\r\n");
    return text;
}

}  // namespace vzapi::test
