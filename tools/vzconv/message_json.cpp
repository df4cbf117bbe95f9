#include "vzconv/message_json.h"

#include <utility>

#include "vzconv/failure.h"
#include "vzconv/json_fields.h"
#include "vzconv/message_time.h"
#include "vzconv/message_words.h"

namespace vzconv {
namespace {

void put_word(std::span<const CodeWord> words, uint32_t code, const char* key,
              nlohmann::ordered_json& object) {
    const std::string_view word = word_of(words, code);
    if (!word.empty()) object[key] = word;
}

MessageTime time_in(const nlohmann::json& value, const std::string& name) {
    if (!value.is_string()) refuse_type(name, "a string", value);
    const std::optional<MessageTime> time = message_time_of(value.get_ref<const std::string&>());
    if (!time) {
        throw Failure(name + " must be a time like 2009-03-05T14:07:09 or a day like 2009-03-05, not " +
                      value.dump());
    }
    return *time;
}

void take_addresses(JsonFields& fields, MessageRecord& record) {
    const nlohmann::json* addresses = fields.array("addresses");
    for (std::size_t i = 0; addresses != nullptr && i < addresses->size(); ++i) {
        record.add_number(
            record_text_of((*addresses)[i], fields.name_of("addresses[" + std::to_string(i) + "]")));
    }
}

}  // namespace

void put_message(const MessageItem& item, nlohmann::ordered_json& object) {
    put_word(message_type_words(), type_of(item), "type", object);
    put_word(message_status_words(), status_of(item), "status", object);
    if (is_set(item.timestamp)) object["time"] = iso_time_of(item.timestamp);
    std::vector<std::string> numbers = numbers_of(item);
    if (!numbers.empty()) object["addresses"] = std::move(numbers);
    std::string text = body_of(item);
    if (!text.empty()) object["text"] = std::move(text);
}

void take_message(const nlohmann::json& object, MessageRecord& record) {
    JsonFields fields(object);
    const nlohmann::json* type = fields.find("type");
    if (type != nullptr) record.set_type(code_in(message_type_words(), *type, fields.name_of("type")));
    const nlohmann::json* status = fields.find("status");
    if (status != nullptr)
        record.set_status(code_in(message_status_words(), *status, fields.name_of("status")));
    const nlohmann::json* time = fields.find("time");
    if (time != nullptr) record.set_time(time_in(*time, fields.name_of("time")));
    take_addresses(fields, record);
    std::optional<std::u16string> text = fields.text("text");
    if (text) record.set_text(std::move(*text));
    fields.expect_no_more();
}

}  // namespace vzconv
