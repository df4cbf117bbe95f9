#include <algorithm>
#include <utility>

#include "vzconv/base64.h"
#include "vzconv/failure.h"
#include "vzconv/multimedia_header_json.h"
#include "vzconv/multimedia_header_words.h"
#include "vzconv/multimedia_words.h"
#include "vzconv/unicode.h"
#include "vzconv/utc_time.h"

namespace vzconv {
namespace {

using nlohmann::json;

constexpr uint32_t kUtf8 = 106;  // MIBenum

const json& required(JsonFields& fields, const char* key) {
    const json* value = fields.find(key);
    if (value == nullptr) throw Failure("the key " + fields.name_of(key) + " is missing");
    return *value;
}

bool is_ascii(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

// A word, or a number that has none.
uint32_t code_or_number_in(std::span<const CodeWord> words, const json& value, const std::string& name) {
    return value.is_number() ? number_in(value, name) : code_in(words, value, name);
}

uint64_t time_in(JsonFields& fields, const char* key) {
    const json& value = required(fields, key);
    if (value.is_number()) return long_number_in(value, fields.name_of(key));
    if (!value.is_string()) refuse_type(fields.name_of(key), "a string", value);
    const auto seconds = seconds_of_iso_utc(value.get_ref<const std::string&>());
    if (!seconds) {
        throw Failure(fields.name_of(key) + " must be a time like 2001-03-04T10:20:30Z, not " + value.dump());
    }
    return *seconds;
}

uint64_t number_of(uint32_t header, JsonFields& fields) {
    const json* word = fields.find("value");
    if (word == nullptr) return long_number_in(required(fields, "number"), fields.name_of("number"));
    if (!word->is_string()) refuse_type(fields.name_of("value"), "a string", *word);
    const auto number = value_of_word(header, word->get_ref<const std::string&>());
    if (!number) throw Failure("unknown value " + word->dump() + " in " + fields.name_of("value"));
    return *number;
}

// A number that has a name, or stands as "0x5A".
std::optional<uint32_t> number_of_name(std::span<const CodeWord> words, const std::string& name) {
    const std::optional<uint32_t> number = code_of(words, name);
    return number ? number : number_of_hex(name);
}

std::string header_name_in(JsonFields& fields) {
    const std::optional<std::string> name = fields.word("header");
    if (!name) throw Failure("the key " + fields.name_of("header") + " is missing");
    return *name;
}

// Makes values of one object.
class ValueTaker {
public:
    ValueTaker(JsonFields& fields, MultimediaRecord& record) : fields_(fields), record_(record) {
        value_.size = sizeof value_;
    }

    MultimediaContent named_text() {
        value_.name = text("applicationHeader");
        value_.text = text("text");
        return content_of(value_);
    }

    // What stands in the object tells the kind.
    MultimediaContent plain_value(uint32_t& kind) {
        kind = VZ_MMS_VALUE_NONE;
        if (fields_.has("number")) kind = VZ_MMS_VALUE_NUMBER;
        if (fields_.has("date")) kind = VZ_MMS_VALUE_DATE;
        if (fields_.has("text")) kind = VZ_MMS_VALUE_TEXT;
        if (fields_.has("bytes")) kind = VZ_MMS_VALUE_RAW;
        return value(kind, 0);
    }

    MultimediaContent value(uint32_t kind, uint32_t header) {
        MultimediaContent content{};
        switch (kind) {
            case VZ_MMS_VALUE_NONE:
                return content;
            case VZ_MMS_VALUE_NUMBER:
                content.number = number_of(header, fields_);
                return content;
            case VZ_MMS_VALUE_DATE:
                content.number = time_in(fields_, "date");
                return content;
            case VZ_MMS_VALUE_TEXT:
                content.text = text("text");
                return content;
            default:
                take_front(kind, header);
                take_value(kind, header);
                return content_of(value_);
        }
    }

private:
    MultimediaContent content_of(const MultimediaValue& value) {
        MultimediaContent content{};
        content.record = record_.value(value);
        return content;
    }

    char16_t* text(const char* key) {
        return record_.text(record_text_of(required(fields_, key), fields_.name_of(key)));
    }

    void take_front(uint32_t kind, uint32_t header) {
        if (kind >= VZ_MMS_VALUE_COUNTED_NUMBER && kind <= VZ_MMS_VALUE_COUNTED_ADDRESS)
            value_.count = number_in(required(fields_, "count"), fields_.name_of("count"));
        if (kind == VZ_MMS_VALUE_MARKED_TEXT || kind == VZ_MMS_VALUE_MARKED_NUMBER) {
            value_.token =
                code_or_number_in(mark_words(header), required(fields_, "mark"), fields_.name_of("mark"));
        }
    }

    void take_value(uint32_t kind, uint32_t header) {
        switch (kind) {
            case VZ_MMS_VALUE_ENCODED_TEXT:
            case VZ_MMS_VALUE_COUNTED_TEXT:
            case VZ_MMS_VALUE_MARKED_TEXT:
                return take_text("text", header);
            case VZ_MMS_VALUE_ADDRESS:
            case VZ_MMS_VALUE_COUNTED_ADDRESS:
                return take_address(header);
            case VZ_MMS_VALUE_TIME:
                return take_time();
            case VZ_MMS_VALUE_COUNTED_NUMBER:
            case VZ_MMS_VALUE_MARKED_NUMBER:
                value_.number = number_of(header, fields_);
                return;
            case VZ_MMS_VALUE_COUNTED_DATE:
                value_.number = time_in(fields_, "date");
                return;
            default:
                take_bytes();
        }
    }

    // A text of a header that is an address of the network stands there without a charset.
    void take_text(const char* key, uint32_t header) {
        const MultimediaHeaderWord* word = multimedia_header_of(header);
        const bool has_charset = word == nullptr || word->kind != VZ_MMS_VALUE_TEXT;
        std::u16string text = record_text_of(required(fields_, key), fields_.name_of(key));
        value_.charset = charset_in(fields_);
        if (value_.charset == 0 && has_charset && !is_ascii(text)) value_.charset = kUtf8;
        value_.text = record_.text(std::move(text));
    }

    void take_address(uint32_t header) {
        const json* type = fields_.find("addressType");
        if (type != nullptr)
            value_.token = code_or_number_in(address_type_words(), *type, fields_.name_of("addressType"));
        if (value_.token != VZ_MMS_ADDRESS_INSERT) take_text("address", header);
    }

    void take_time() {
        const bool is_relative = fields_.has("afterSeconds");
        value_.token = is_relative ? VZ_MMS_TIME_RELATIVE : VZ_MMS_TIME_ABSOLUTE;
        value_.number =
            is_relative ? long_number_in(required(fields_, "afterSeconds"), fields_.name_of("afterSeconds"))
                        : time_in(fields_, "time");
    }

    void take_bytes() {
        const json& text = required(fields_, "bytes");
        if (!text.is_string()) refuse_type(fields_.name_of("bytes"), "a string", text);
        auto bytes = bytes_of_base64(text.get_ref<const std::string&>());
        if (!bytes) throw Failure(fields_.name_of("bytes") + " is no Base64");
        value_.byteCount = static_cast<uint32_t>(bytes->size());
        value_.bytes = record_.bytes(std::move(*bytes));
    }

    JsonFields& fields_;
    MultimediaRecord& record_;
    MultimediaValue value_{};
};

MultimediaHeader named_header_in(JsonFields& fields, MultimediaRecord& record) {
    MultimediaHeader header{sizeof header, VZ_MMS_VALUE_NAMED_TEXT, VZ_MMS_HEADER_APPLICATION, 0, {}};
    header.value = ValueTaker(fields, record).named_text();
    fields.expect_no_more();
    return header;
}

}  // namespace

uint32_t charset_in(JsonFields& fields) {
    const json* charset = fields.find("charset");
    if (charset == nullptr) return 0;
    return code_or_number_in(charset_words(), *charset, fields.name_of("charset"));
}

MultimediaHeader header_in(JsonFields& fields, MultimediaRecord& record) {
    if (fields.has("applicationHeader")) return named_header_in(fields, record);
    const std::string name = header_name_in(fields);
    const MultimediaHeaderWord* word = multimedia_header_of(name);
    const std::optional<uint32_t> number = word != nullptr ? word->number : number_of_hex(name);
    if (!number) throw Failure("unknown header " + json(name).dump() + " in " + fields.name_of("header"));
    MultimediaHeader header{sizeof header, VZ_MMS_VALUE_RAW, *number, 0, {}};
    if (word != nullptr) header.kind = word->kind;
    const json* kind = fields.find("kind");
    if (kind != nullptr) header.kind = code_in(value_kind_words(), *kind, fields.name_of("kind"));
    header.value = ValueTaker(fields, record).value(header.kind, header.number);
    fields.expect_no_more();
    return header;
}

MultimediaHeader part_header_in(JsonFields& fields, MultimediaRecord& record) {
    if (fields.has("applicationHeader")) return named_header_in(fields, record);
    const std::string name = header_name_in(fields);
    const std::optional<uint32_t> number = number_of_name(part_header_words(), name);
    if (!number) throw Failure("unknown header " + json(name).dump() + " in " + fields.name_of("header"));
    MultimediaHeader header{sizeof header, VZ_MMS_VALUE_NONE, *number, 0, {}};
    header.value = ValueTaker(fields, record).plain_value(header.kind);
    fields.expect_no_more();
    return header;
}

MultimediaParameter parameter_in(JsonFields& fields, MultimediaRecord& record) {
    std::optional<std::u16string> name = fields.text("name");
    if (!name) throw Failure("the key " + fields.name_of("name") + " is missing");
    MultimediaParameter parameter{sizeof parameter, VZ_MMS_VALUE_NONE, record.text(std::move(*name)), {}};
    parameter.value = ValueTaker(fields, record).plain_value(parameter.kind);
    fields.expect_no_more();
    return parameter;
}

}  // namespace vzconv
