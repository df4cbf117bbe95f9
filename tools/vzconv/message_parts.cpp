#include "vzconv/message_parts.h"

#include <limits>
#include <utility>

#include "vzconv/failure.h"
#include "vzconv/unicode.h"

namespace vzconv {

uint32_t status_of(const MessageItem& item) {
    return (item.flags & VZ_MESSAGE_STATUS_MASK) >> VZ_MESSAGE_STATUS_SHIFT;
}

uint32_t type_of(const MessageItem& item) {
    return (item.flags & VZ_MESSAGE_TYPE_MASK) >> VZ_MESSAGE_TYPE_SHIFT;
}

std::vector<std::string> numbers_of(const MessageItem& item) {
    std::vector<std::string> numbers;
    for (std::size_t i = 0; i < item.addressCount; ++i) numbers.push_back(text_of(item.addresses[i].number));
    return numbers;
}

std::string body_of(const MessageItem& item) {
    if (item.text == nullptr) return {};
    return utf8_from_utf16({item.text, item.textLength / sizeof(char16_t)});
}

void MessageRecord::set_text(std::u16string text) {
    if (text.size() > std::numeric_limits<uint32_t>::max() / sizeof(char16_t))
        throw Failure("longer than a message can be (4 GB)");
    text_ = std::move(text);
}

void MessageRecord::add_number(std::u16string number) {
    if (numbers_.size() == std::numeric_limits<uint8_t>::max())
        throw Failure("more addresses than a message can have (255)");
    numbers_.push_back(std::move(number));
}

MessageItem MessageRecord::item() {
    addresses_.clear();
    for (std::u16string& number : numbers_) addresses_.push_back({0, number.data()});
    MessageItem item{};
    item.size = sizeof item;
    item.flags = status_ << VZ_MESSAGE_STATUS_SHIFT | type_ << VZ_MESSAGE_TYPE_SHIFT;
    item.textLength = static_cast<uint32_t>(text_.size() * sizeof(char16_t));
    item.text = text_.data();
    item.addressCount = static_cast<uint8_t>(addresses_.size());
    item.addresses = addresses_.data();
    item.timestamp = time_;
    return item;
}

}  // namespace vzconv
