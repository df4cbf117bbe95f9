#include "vzconv/message.h"

#include "vzconv/message_json.h"
#include "vzconv/message_show.h"

namespace vzconv {
namespace {

using Message = ReadRecord<MessageItem, kMessageRecord>;

std::string show(std::string_view text, const Options& options) {
    return show_message(*Message(text, options.door));
}

void to_json(std::string_view text, const Options& options, nlohmann::ordered_json& object) {
    put_message(*Message(text, options.door), object);
}

std::string from_json(const JsonObject& object, const Options& options) {
    MessageRecord record;
    take_message(object.fields, record);
    const MessageItem item = record.item();
    return write_record(kMessageRecord, &item, options);
}

// A day without a time of day, an empty text and an empty list are said otherwise by to_json.
nlohmann::json plain_form(const nlohmann::json& fields) {
    MessageRecord record;
    take_message(fields, record);
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_message(record.item(), object);
    return nlohmann::json(object);
}

}  // namespace

const Converter kMessageConverter = {show, to_json, from_json, plain_form};

}  // namespace vzconv
