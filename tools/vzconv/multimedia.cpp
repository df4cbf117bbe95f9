#include "vzconv/multimedia.h"

#include <algorithm>

#include "vzconv/failure.h"
#include "vzconv/multimedia_json.h"
#include "vzconv/multimedia_parts.h"
#include "vzconv/multimedia_show.h"
#include "vzconv/record_converter.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

using Messages = RecordConverter<MultimediaItem, kMultimediaRecord, MultimediaRecord, show_multimedia,
                                 put_multimedia, take_multimedia>;

// Whether the library has nothing to complete: a name for each part, a container around several.
bool is_complete(const nlohmann::json& parts) {
    return std::all_of(parts.begin(), parts.end(), [](const nlohmann::json& part) {
        const auto inner = part.find("parts");
        return part.contains("name") && (inner == part.end() || is_complete(*inner));
    });
}

// Parts that the library completes are said otherwise by to_json.
nlohmann::json plain_form(const nlohmann::json& fields) {
    nlohmann::json plain = Messages::plain_form(fields);
    const auto parts = plain.find("parts");
    const bool is_as_read = parts != plain.end() && parts->size() == 1 && is_complete(*parts);
    if (plain.contains("addPresentation") || !is_as_read) plain.erase("parts");
    plain.erase("addPresentation");
    return plain;
}

void check(std::string_view text, const Options& options) {
    const Messages::Read message(text, options.door);
    if ((message->flags & VZ_MMS_TRUNCATED) != 0) throw Failure("cut off: parts or their data are missing");
}

std::vector<EmbeddedFile> files(std::string_view text, const Options& options) {
    const Messages::Read message(text, options.door);
    std::vector<EmbeddedFile> files;
    for (const MultimediaPart& part : parts_of(*message)) {
        if (is_container(part)) continue;
        files.push_back({text_of(part.name), text_of(part.contentType), std::string(data_of(part))});
    }
    return files;
}

}  // namespace

const Converter kMultimediaConverter = {
    Messages::show, Messages::to_json, Messages::from_json, plain_form, check, files};

}  // namespace vzconv
