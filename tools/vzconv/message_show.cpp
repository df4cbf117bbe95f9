#include "vzconv/message_show.h"

#include "vzconv/message_parts.h"
#include "vzconv/message_time.h"
#include "vzconv/message_words.h"
#include "vzconv/readable.h"

namespace vzconv {
namespace {

// How a direction is said.
struct DirectionRow {
    Direction direction;
    const char* address_label;
    const char* folder;  // null: the message does not say which
};

constexpr DirectionRow kDirections[] = {
    {Direction::Unknown, "Number", nullptr},
    {Direction::In, "From", "in"},
    {Direction::Out, "To", "out"},
};

const DirectionRow& row_of(Direction direction) {
    return kDirections[static_cast<std::size_t>(direction)];
}

}  // namespace

std::string addresses_in_words(const MessageItem& item) {
    std::string words;
    for (const std::string& number : numbers_of(item)) {
        words += (words.empty() ? "" : ", ") + (number.empty() ? "no number" : number);
    }
    return words;
}

std::string show_message(const MessageItem& item) {
    const DirectionRow& direction = row_of(direction_of(type_of(item)));
    Readable readable(message_heading_of(type_of(item)));
    const std::string addresses = addresses_in_words(item);
    if (!addresses.empty()) readable.field(direction.address_label, addresses);
    if (is_set(item.timestamp)) readable.field("Date", time_in_words(item.timestamp));
    if (direction.folder != nullptr) readable.field("Folder", direction.folder);
    const std::string_view status = word_of(message_status_words(), status_of(item));
    if (!status.empty()) readable.field("State", status);
    const std::string text = body_of(item);
    readable.field("Text", text.empty() ? "(none)" : text);
    return readable.text();
}

}  // namespace vzconv
