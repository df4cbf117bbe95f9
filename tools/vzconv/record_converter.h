// What the converters of most kinds have in common: the library reads text into a record, and JSON fills one
// that the library writes text from.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "vzconv/json_object.h"
#include "vzconv/library.h"
#include "vzconv/options.h"

namespace vzconv {

// `Owner` owns what a record points to and gives the record as item(); `kShow`, `kPut` and `kTake` are how
// the kind is shown, put into JSON and taken from it.
template <class Item, RecordType kRecord, class Owner, auto kShow, auto kPut, auto kTake>
struct RecordConverter {
    using Read = ReadRecord<Item, kRecord>;

    static std::string show(std::string_view text, const Options& options) {
        return kShow(*Read(text, options.door));
    }

    static void to_json(std::string_view text, const Options& options, nlohmann::ordered_json& object) {
        kPut(*Read(text, options.door), object);
    }

    static std::string from_json(const JsonObject& object, const Options& options) {
        Owner record;
        kTake(object.fields, record);
        const Item item = record.item();
        return write_record(kRecord, &item, options);
    }

    // Several ways to say a thing in JSON are one in a record.
    static nlohmann::json plain_form(const nlohmann::json& fields) {
        Owner record;
        kTake(fields, record);
        nlohmann::ordered_json object = nlohmann::ordered_json::object();
        kPut(record.item(), object);
        return nlohmann::json(object);
    }
};

}  // namespace vzconv
