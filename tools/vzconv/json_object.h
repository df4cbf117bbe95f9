// A JSON object that knows the order of its keys.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace vzconv {

// Lines of some texts stand in the order of the keys that they come from.
struct JsonObject {
    // The keys in the order of the alphabet.
    // REQUIRES: `object` is a JSON object.
    JsonObject(nlohmann::json object) : fields(std::move(object)) {
        for (const auto& [key, value] : fields.items()) keys.push_back(key);
    }

    JsonObject(nlohmann::json object, std::vector<std::string> keys_in_order)
        : fields(std::move(object)), keys(std::move(keys_in_order)) {}

    nlohmann::json fields;
    std::vector<std::string> keys;
};

}  // namespace vzconv
