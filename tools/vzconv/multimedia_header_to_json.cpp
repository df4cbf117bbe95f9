#include "vzconv/base64.h"
#include "vzconv/multimedia_header_json.h"
#include "vzconv/multimedia_header_words.h"
#include "vzconv/multimedia_words.h"
#include "vzconv/unicode.h"
#include "vzconv/utc_time.h"

namespace vzconv {
namespace {

using Json = nlohmann::ordered_json;

Json json_of_time(uint64_t seconds) {
    if (const auto text = iso_utc_of(seconds)) return *text;
    return seconds;
}

Json json_of_number(std::string_view word, uint32_t number) {
    return word.empty() ? Json(number) : Json(word);
}

void put_number(uint32_t header, uint64_t number, Json& object) {
    const std::string word = value_word_of(header, number);
    if (word.empty()) {
        object["number"] = number;
    } else {
        object["value"] = word;
    }
}

// A text or an address.
void put_text(const char* key, const MultimediaValue& record, Json& object) {
    if (record.text != nullptr) object[key] = text_of(record.text);
    if (record.charset != 0) object["charset"] = json_of_charset(record.charset);
}

void put_address(const MultimediaValue& record, Json& object) {
    put_text("address", record, object);
    if (record.token == VZ_MMS_ADDRESS_PLAIN) return;
    object["addressType"] = json_of_number(word_of(address_type_words(), record.token), record.token);
}

void put_time(const MultimediaValue& record, Json& object) {
    if (record.token == VZ_MMS_TIME_RELATIVE) {
        object["afterSeconds"] = record.number;
    } else {
        object["time"] = json_of_time(record.number);
    }
}

std::string base64_of_bytes(const MultimediaValue& record) {
    return base64_of({record.bytes, record.bytes == nullptr ? 0 : record.byteCount});
}

void put_record(uint32_t kind, uint32_t header, const MultimediaValue& record, Json& object) {
    switch (kind) {
        case VZ_MMS_VALUE_ENCODED_TEXT:
        case VZ_MMS_VALUE_COUNTED_TEXT:
        case VZ_MMS_VALUE_MARKED_TEXT:
            return put_text("text", record, object);
        case VZ_MMS_VALUE_ADDRESS:
        case VZ_MMS_VALUE_COUNTED_ADDRESS:
            return put_address(record, object);
        case VZ_MMS_VALUE_TIME:
            return put_time(record, object);
        case VZ_MMS_VALUE_COUNTED_NUMBER:
        case VZ_MMS_VALUE_MARKED_NUMBER:
            return put_number(header, record.number, object);
        case VZ_MMS_VALUE_COUNTED_DATE:
            object["date"] = json_of_time(record.number);
            return;
        default:
            object["bytes"] = base64_of_bytes(record);
    }
}

// What comes in front of the value.
void put_front(uint32_t kind, uint32_t header, const MultimediaValue& record, Json& object) {
    if (kind >= VZ_MMS_VALUE_COUNTED_NUMBER && kind <= VZ_MMS_VALUE_COUNTED_ADDRESS)
        object["count"] = record.count;
    if (kind == VZ_MMS_VALUE_MARKED_TEXT || kind == VZ_MMS_VALUE_MARKED_NUMBER)
        object["mark"] = json_of_number(word_of(mark_words(header), record.token), record.token);
}

// The kinds that parameters and headers of parts have; false for any other.
bool put_plain_value(uint32_t kind, const MultimediaContent& value, Json& object) {
    switch (kind) {
        case VZ_MMS_VALUE_NONE:
            return true;
        case VZ_MMS_VALUE_NUMBER:
            object["number"] = value.number;
            return true;
        case VZ_MMS_VALUE_DATE:
            object["date"] = json_of_time(value.number);
            return true;
        case VZ_MMS_VALUE_TEXT:
            object["text"] = text_of(value.text);
            return true;
        case VZ_MMS_VALUE_RAW:
            object["bytes"] = base64_of_bytes(*value.record);
            return true;
        default:
            return false;
    }
}

Json named_text_json(const MultimediaValue& record) {
    return {{"applicationHeader", text_of(record.name)}, {"text", text_of(record.text)}};
}

}  // namespace

Json json_of_charset(uint32_t charset) {
    return json_of_number(word_of(charset_words(), charset), charset);
}

Json json_of_header(const MultimediaHeader& header) {
    if (header.kind == VZ_MMS_VALUE_NAMED_TEXT) return named_text_json(*header.value.record);
    const MultimediaHeaderWord* word = multimedia_header_of(header.number);
    Json object = {{"header", word == nullptr ? hex_of(header.number) : std::string(word->name)}};
    const uint32_t usual_kind = word == nullptr ? uint32_t{VZ_MMS_VALUE_RAW} : word->kind;
    if (header.kind != usual_kind) object["kind"] = word_of(value_kind_words(), header.kind);
    if (header.kind == VZ_MMS_VALUE_NUMBER) {
        put_number(header.number, header.value.number, object);
    } else if (!put_plain_value(header.kind, header.value, object)) {
        put_front(header.kind, header.number, *header.value.record, object);
        put_record(header.kind, header.number, *header.value.record, object);
    }
    return object;
}

Json json_of_part_header(const MultimediaHeader& header) {
    if (header.kind == VZ_MMS_VALUE_NAMED_TEXT) return named_text_json(*header.value.record);
    const std::string_view word = word_of(part_header_words(), header.number);
    Json object = {{"header", word.empty() ? hex_of(header.number) : std::string(word)}};
    put_plain_value(header.kind, header.value, object);
    return object;
}

Json json_of_parameter(const MultimediaParameter& parameter) {
    Json object = {{"name", text_of(parameter.name)}};
    put_plain_value(parameter.kind, parameter.value, object);
    return object;
}

}  // namespace vzconv
