#include "vzconv/email.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <span>

#include "vzapi/email.h"
#include "vzconv/failure.h"
#include "vzconv/message_time.h"
#include "vzconv/readable.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

using Email = ReadRecord<EmailItem, kEmailRecord>;
using Json = nlohmann::ordered_json;

// What an entry of the record is called.
struct EntryWord {
    uint32_t id;
    const char* key;    // in JSON
    const char* label;  // for a person
};

constexpr EntryWord kFlags[] = {
    {VZ_EMAIL_FLAG_READ, "read", "Read"},          {VZ_EMAIL_FLAG_FORWARDED, "forwarded", "Forwarded"},
    {VZ_EMAIL_FLAG_REPLIED, "replied", "Replied"}, {VZ_EMAIL_FLAG_DELETED, "deleted", "Deleted"},
    {VZ_EMAIL_FLAG_FLAGGED, "flagged", "Flagged"},
};

constexpr EntryWord kTimes[] = {
    {VZ_EMAIL_TIME_CREATED, "created", "Created"},
    {VZ_EMAIL_TIME_MODIFIED, "modified", "Modified"},
    {VZ_EMAIL_TIME_RECEIVED, "received", "Received"},
};

// Calls `take` with the word and the entry, in the order of the words: what a document says twice comes
// twice.
template <class Entry, class Take>
void for_each_entry(std::span<const EntryWord> words, std::span<const Entry> entries, Take take) {
    for (const EntryWord& word : words) {
        for (const Entry& entry : entries) {
            if (entry.id == word.id) take(word, entry);
        }
    }
}

std::span<const EmailFlagField> flags_of(const EmailItem& item) {
    return {item.flags, item.flagCount};
}

std::span<const EmailTimeField> times_of(const EmailItem& item) {
    return {item.times, item.timeCount};
}

std::string show(std::string_view text, const Options& options) {
    const Email email(text, options.door);
    constexpr std::size_t kLabelWidth = 11;
    Readable readable("E-mail item", kLabelWidth);
    for_each_entry(std::span(kFlags), flags_of(*email), [&](const EntryWord& word, const auto& flag) {
        readable.field(word.label, flag.value != 0 ? "yes" : "no");
    });
    for_each_entry(std::span(kTimes), times_of(*email), [&](const EntryWord& word, const auto& field) {
        readable.field(word.label, time_in_words(field.time));
    });
    if (email->itemText != nullptr) readable.field("Text", text_of(email->itemText));
    return readable.text();
}

// A second value makes an array of the field.
void add_value(const char* key, Json value, Json& object) {
    if (!object.contains(key)) {
        object[key] = std::move(value);
        return;
    }
    Json& field = object[key];
    if (!field.is_array()) field = Json::array({std::move(field)});
    field.push_back(std::move(value));
}

void to_json(std::string_view text, const Options& options, Json& object) {
    const Email email(text, options.door);
    for_each_entry(std::span(kFlags), flags_of(*email), [&](const EntryWord& word, const auto& flag) {
        add_value(word.key, flag.value != 0, object);
    });
    for_each_entry(std::span(kTimes), times_of(*email), [&](const EntryWord& word, const auto& field) {
        add_value(word.key, iso_time_of(field.time), object);
    });
    if (email->itemText != nullptr) object["text"] = text_of(email->itemText);
}

std::string from_json(const JsonObject&, const Options&) {
    throw Failure("e-mail items are read only: there is no versit text for them");
}

}  // namespace

const Converter kEmailConverter = {show, to_json, from_json, nullptr};

}  // namespace vzconv
