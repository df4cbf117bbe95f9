#include "vzconv/json_lines.h"

#include <set>
#include <utility>
#include <vector>

#include "vzconv/failure.h"
#include "vzconv/json_fields.h"

namespace vzconv {
namespace {

// Refuses a second field of the same name while the parser goes through the line.
class FieldNames {
public:
    void look_at(nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
        using Event = nlohmann::json::parse_event_t;
        if (event == Event::object_start) open_.emplace_back();
        if (event == Event::object_end) open_.pop_back();
        if (event != Event::key) return;
        const auto& key = parsed.get_ref<const std::string&>();
        if (!open_.back().insert(key).second)
            throw Failure("the key " + parsed.dump() + " stands there twice");
        if (open_.size() == 1) keys_.push_back(key);
    }

    // Those of the outermost object, in the order of the line.
    std::vector<std::string> keys() && { return std::move(keys_); }

private:
    std::vector<std::string> keys_;
    std::vector<std::set<std::string>> open_;
};

// The parser's message behind "[...] parse error at line 1, column 5: ", without what it read last: that may
// be long and no UTF-8, and the column tells it too.
std::string detail_of(const nlohmann::json::parse_error& error) {
    std::string message = error.what();
    const std::size_t column = message.find("column ");
    const std::size_t colon = message.find(": ", column == std::string::npos ? 0 : column);
    if (colon == std::string::npos) return message;
    return message.substr(colon + 2, message.find("; last read: ") - colon - 2);
}

}  // namespace

JsonObject object_of_line(std::string_view line) {
    nlohmann::json object;
    FieldNames names;
    try {
        object =
            nlohmann::json::parse(line.begin(), line.end(),
                                  [&names](int, nlohmann::json::parse_event_t event, nlohmann::json& parsed) {
                                      names.look_at(event, parsed);
                                      return true;
                                  });
    } catch (const nlohmann::json::parse_error& error) {
        throw Failure("no JSON at column " + std::to_string(error.byte) + ": " + detail_of(error));
    } catch (const nlohmann::json::exception& error) {
        throw Failure(std::string("no JSON: ") + error.what());
    }
    if (!object.is_object()) throw Failure("must be a JSON object, not " + type_in_words(object));
    return {std::move(object), std::move(names).keys()};
}

std::string line_of_object(const nlohmann::ordered_json& object) {
    return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace vzconv
