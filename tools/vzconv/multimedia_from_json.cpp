#include <utility>

#include "vzconv/base64.h"
#include "vzconv/failure.h"
#include "vzconv/json_fields.h"
#include "vzconv/multimedia_header_json.h"
#include "vzconv/multimedia_header_words.h"
#include "vzconv/multimedia_json.h"
#include "vzconv/multimedia_parts.h"
#include "vzconv/multimedia_words.h"

namespace vzconv {
namespace {

using nlohmann::json;

// Deeper than the library goes, so that it has the last word, but no deeper than our own stack.
constexpr int kMostNesting = 16;

uint32_t type_in(JsonFields& fields) {
    const std::optional<std::string> word = fields.word("type");
    if (!word) throw Failure("the key " + fields.name_of("type") + " is missing");
    if (const std::optional<uint32_t> number = number_of_hex(*word)) return *number;
    return code_in(multimedia_type_words(), *word, fields.name_of("type"));
}

// Calls `take` with the fields of each object in the array `key`.
template <class Take>
void for_each_object_in(const char* key, JsonFields& fields, Take take) {
    const json* array = fields.array(key);
    for (std::size_t i = 0; array != nullptr && i < array->size(); ++i) {
        const std::string name = fields.name_of(std::string(key) + "[" + std::to_string(i) + "]");
        JsonFields entry(object_in((*array)[i], name), inside(name));
        take(entry);
    }
}

std::string_view characters(const std::vector<uint8_t>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// The bytes of a part that is no container. Its text alone is enough where it is UTF-8.
std::vector<uint8_t> data_in(JsonFields& fields, uint32_t charset) {
    const std::optional<std::string> text = fields.word("text");
    const std::optional<std::string> base64 = fields.word("data");
    if (!base64) {
        if (!text) return {};
        if (!is_plain_utf8(*text, charset)) {
            throw Failure(fields.name_of("text") +
                          " is UTF-8; a text in another charset needs its bytes, as \"data\"");
        }
        return {text->begin(), text->end()};
    }
    std::optional<std::vector<uint8_t>> bytes = bytes_of_base64(*base64);
    if (!bytes) throw Failure(fields.name_of("data") + " is no Base64");
    if (text && *text != text_in_charset(characters(*bytes), charset)) {
        throw Failure(fields.name_of("text") + " is not what \"data\" says");
    }
    return *std::move(bytes);
}

// Fills a record from the parts of one object.
class PartTaker {
public:
    explicit PartTaker(MultimediaRecord& record) : record_(record) {}

    void take_parts(JsonFields& fields, uint32_t container, int nesting) {
        for_each_object_in("parts", fields, [&](JsonFields& part) {
            if (nesting == kMostNesting) throw Failure(part.name_of("parts") + " is nested too deep");
            take_part(part, container, nesting);
            part.expect_no_more();
        });
    }

private:
    void take_part(JsonFields& fields, uint32_t container, int nesting) {
        MultimediaPart part{};
        part.size = sizeof part;
        part.container = container;
        part.contentType = text("contentType", fields);
        if (part.contentType == nullptr)
            throw Failure("the key " + fields.name_of("contentType") + " is missing");
        part.charset = charset_in(fields);
        part.name = text("name", fields);
        part.contentId = text("contentId", fields);
        part.contentLocation = text("contentLocation", fields);
        part.disposition = text("disposition", fields);
        if (fields.flag("presentation")) part.flags |= VZ_MMS_PART_PRESENTATION;
        if (fields.flag("truncated")) part.flags |= VZ_MMS_PART_TRUNCATED;
        MultimediaPartLists lists = lists_in(fields);
        if (fields.array("parts") != nullptr) {
            part.flags |= VZ_MMS_PART_CONTAINER;
            take_parts(fields, record_.add_part(part, std::move(lists)), nesting + 1);
            return;
        }
        std::vector<uint8_t> data = data_in(fields, part.charset);
        part.dataLength = static_cast<uint32_t>(data.size());
        part.data = record_.bytes(std::move(data));
        record_.add_part(part, std::move(lists));
    }

    char16_t* text(const char* key, JsonFields& fields) {
        std::optional<std::u16string> text = fields.text(key);
        return text ? record_.text(std::move(*text)) : nullptr;
    }

    MultimediaPartLists lists_in(JsonFields& fields) {
        MultimediaPartLists lists;
        for_each_object_in("parameters", fields, [&](JsonFields& parameter) {
            lists.parameters.push_back(parameter_in(parameter, record_));
        });
        for_each_object_in("dispositionParameters", fields, [&](JsonFields& parameter) {
            lists.disposition_parameters.push_back(parameter_in(parameter, record_));
        });
        for_each_object_in("headers", fields, [&](JsonFields& header) {
            lists.headers.push_back(part_header_in(header, record_));
        });
        return lists;
    }

    MultimediaRecord& record_;
};

}  // namespace

void take_multimedia(const json& object, MultimediaRecord& record) {
    JsonFields fields(object);
    record.set_type(type_in(fields));
    for_each_object_in("headers", fields,
                       [&](JsonFields& header) { record.add_header(header_in(header, record)); });
    PartTaker(record).take_parts(fields, VZ_MMS_PART_IN_NONE, 0);
    record.set_flag(VZ_MMS_TRUNCATED, fields.flag("truncated"));
    record.set_flag(VZ_MMS_NO_PRESENTATION, !fields.flag("addPresentation"));
    fields.expect_no_more();
}

}  // namespace vzconv
