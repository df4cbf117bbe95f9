#include "vzconv/message.h"

#include "vzconv/message_json.h"
#include "vzconv/message_show.h"
#include "vzconv/record_converter.h"

namespace vzconv {
namespace {

using Messages =
    RecordConverter<MessageItem, kMessageRecord, MessageRecord, show_message, put_message, take_message>;

}  // namespace

// A day without a time of day, an empty text and an empty list are said otherwise by to_json.
const Converter kMessageConverter = {Messages::show, Messages::to_json, Messages::from_json,
                                     Messages::plain_form};

}  // namespace vzconv
