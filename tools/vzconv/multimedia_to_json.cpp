#include <cstddef>
#include <vector>

#include "vzconv/base64.h"
#include "vzconv/multimedia_header_json.h"
#include "vzconv/multimedia_header_words.h"
#include "vzconv/multimedia_json.h"
#include "vzconv/multimedia_parts.h"
#include "vzconv/multimedia_words.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

using Json = nlohmann::ordered_json;

template <class Entry>
void put_list(const char* key, std::span<const Entry> entries, Json (*json_of)(const Entry&), Json& object) {
    if (entries.empty()) return;
    Json& list = object[key] = Json::array();
    for (const Entry& entry : entries) list.push_back(json_of(entry));
}

void put_text(const char* key, const char16_t* text, Json& object) {
    if (text != nullptr) object[key] = text_of(text);
}

void put_data(const MultimediaPart& part, Json& object) {
    const std::string_view data = data_of(part);
    const bool is_text = is_text_type(text_of(part.contentType));
    if (is_text && is_plain_utf8(data, part.charset)) {
        object["text"] = std::string(data);
        return;
    }
    object["data"] = base64_of({part.data, data.size()});
    if (is_text) object["text"] = text_in_charset(data, part.charset);
}

Json json_of_part(const MultimediaPart& part) {
    Json object = {{"contentType", text_of(part.contentType)}};
    if (part.charset != 0) object["charset"] = json_of_charset(part.charset);
    put_list("parameters", parameters_of(part), json_of_parameter, object);
    put_text("name", part.name, object);
    put_text("contentId", part.contentId, object);
    put_text("contentLocation", part.contentLocation, object);
    put_text("disposition", part.disposition, object);
    put_list("dispositionParameters", disposition_parameters_of(part), json_of_parameter, object);
    put_list("headers", headers_of(part), json_of_part_header, object);
    if ((part.flags & VZ_MMS_PART_PRESENTATION) != 0) object["presentation"] = true;
    if ((part.flags & VZ_MMS_PART_TRUNCATED) != 0) object["truncated"] = true;
    if (!is_container(part)) put_data(part, object);
    return object;
}

// The parts in each container; those in none at 0.
using Contents = std::vector<std::vector<std::size_t>>;

Contents contents_of(std::span<const MultimediaPart> parts) {
    Contents contents(parts.size() + 1);
    for (std::size_t i = 0; i < parts.size(); ++i) contents[parts[i].container].push_back(i);
    return contents;
}

Json json_of_parts(std::span<const MultimediaPart> parts, const Contents& contents, std::size_t container) {
    Json list = Json::array();
    for (const std::size_t i : contents[container]) {
        Json object = json_of_part(parts[i]);
        if (is_container(parts[i])) object["parts"] = json_of_parts(parts, contents, i + 1);
        list.push_back(std::move(object));
    }
    return list;
}

}  // namespace

void put_multimedia(const MultimediaItem& item, Json& object) {
    if (item.messageType != VZ_MMS_TYPE_NONE) {
        const std::string_view type = word_of(multimedia_type_words(), item.messageType);
        object["type"] = type.empty() ? hex_of(item.messageType) : std::string(type);
    }
    put_list("headers", headers_of(item), json_of_header, object);
    const std::span<const MultimediaPart> parts = parts_of(item);
    if (!parts.empty()) object["parts"] = json_of_parts(parts, contents_of(parts), 0);
    if ((item.flags & VZ_MMS_TRUNCATED) != 0) object["truncated"] = true;
    if ((item.flags & VZ_MMS_NO_PRESENTATION) == 0) object["addPresentation"] = true;
}

}  // namespace vzconv
