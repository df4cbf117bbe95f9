#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "vzconv/calendar_json.h"
#include "vzconv/calendar_time.h"
#include "vzconv/calendar_words.h"
#include "vzconv/unicode.h"
#include "vzconv/utc_offset.h"

namespace vzconv {
namespace {

using Json = nlohmann::ordered_json;

void put_time(const CalendarTime& time, const char* key, Json& object) {
    if (is_set(time)) object[key] = iso_time_of(time);
}

void put_word(std::span<const CodeWord> words, uint32_t code, const char* key, Json& object) {
    const std::string_view word = word_of(words, code);
    if (!word.empty()) object[key] = word;
}

Json json_of(std::span<const CalendarTime> times) {
    Json array = Json::array();
    for (const CalendarTime& time : times) {
        if (is_set(time)) array.push_back(iso_time_of(time));
    }
    return array;
}

void put_alarm(const CalendarItem& item, Json& object) {
    if (!is_set(item.alarm)) return;
    Json& alarm = object["alarm"] = Json::object();
    put_time(item.alarm, "time", alarm);
    alarm["kind"] =
        word_of(alarm_words(), item.alarmKind == VZ_ALARM_DISPLAY ? VZ_ALARM_DISPLAY : VZ_ALARM_AUDIO);
}

Json day_words_of(uint32_t days) {
    Json words = Json::array();
    for (const CodeWord& day : day_words()) {
        if ((days & day.code) != 0) words.push_back(day.word);
    }
    return words;
}

// Days of the week are always said, so that what is written says the same.
void put_repeat(const Repeat& repeat, const CalendarTime& start, Json& object) {
    if (!recurs(repeat)) return;
    Json& recurrence = object["recurrence"] = Json::object();
    recurrence["every"] = std::max(repeat.interval, 1U);
    put_word(unit_words(), repeat.kind, "unit", recurrence);
    const uint32_t days = has_days(repeat) ? days_of(repeat, start) : 0;
    if (days != 0) recurrence["days"] = day_words_of(days);
    if (has_position(repeat)) put_word(position_words(), repeat.position, "position", recurrence);
    put_time(repeat.until, "until", recurrence);
}

Json geo_json_of(const CalendarGeo& geo) {
    return {{"latitude", text_of(geo.latitude)}, {"longitude", text_of(geo.longitude)}};
}

// The value of a field; null when it says nothing.
Json json_of(const CalendarWord& word, const CalendarField& field) {
    const auto number = static_cast<uint32_t>(field.value.number);
    switch (word.kind) {
        case CalendarValueKind::Class: {
            const std::string_view name = word_of(class_words(), number);
            return name.empty() ? Json() : Json(name);
        }
        case CalendarValueKind::Status: {
            const std::string_view name = word_of(status_words(), number);
            if (!name.empty()) return name;
            return number == 0 ? Json() : Json(number);
        }
        case CalendarValueKind::Priority:
            return number == 0 ? Json() : Json(number);
        case CalendarValueKind::BirthYear:
            return number;
        default:
            break;
    }
    if (field.value.text == nullptr) return {};
    if (word.kind == CalendarValueKind::Geo) return geo_json_of(*field.value.geo);
    if (word.kind == CalendarValueKind::Reference) return field.value.reference->numbers;
    return text_of(field.value.text);
}

// A key stands where the first of its values does.
void put_fields(const CalendarItem& item, Json& object) {
    std::vector<std::pair<const CalendarWord*, Json::array_t>> values;
    for (const CalendarField& field : fields_of(item)) {
        const CalendarWord* word = calendar_word_of(field.fieldId, item.itemType);
        if (word == nullptr) continue;
        Json value = json_of(*word, field);
        if (value.is_null()) continue;
        auto known =
            std::find_if(values.begin(), values.end(), [word](const auto& row) { return row.first == word; });
        if (known == values.end()) known = values.insert(values.end(), {word, {}});
        known->second.push_back(std::move(value));
    }
    for (auto& [word, list] : values) {
        // A single reference is an array already.
        Json& value = object[std::string(word->key)];
        value = list.size() == 1 ? std::move(list.front()) : Json(std::move(list));
    }
}

// Names are bytes of any charset; what is no UTF-8 in them becomes U+FFFD.
void put_name(const char* name, const char* key, Json& object) {
    if (name != nullptr && *name != '\0') object[key] = utf8_from_utf16(utf16_from_utf8(name));
}

void put_zone(const CalendarItem& item, Json& object) {
    if (!has_zone(item)) return;
    Json& zone = object["timeZone"] = Json::object();
    zone["standard"] = utc_offset_of(item.standardOffset);
    put_name(item.standardName, "standardName", zone);
    const std::span<const DaylightRule> rules = daylight_rules_of(item);
    if (item.daylightOffset != 0 || has_daylight(item)) zone["daylight"] = utc_offset_of(item.daylightOffset);
    put_name(item.daylightName, "daylightName", zone);
    for (const DaylightRule& rule : rules) {
        Json entry = {{"observed", rule.flag == VZ_DAYLIGHT_TRUE}};
        put_time(rule.begin, "begin", entry);
        put_time(rule.end, "end", entry);
        zone["daylightRules"].push_back(std::move(entry));
    }
}

}  // namespace

void put_calendar(const CalendarItem& item, nlohmann::ordered_json& object) {
    put_word(item_type_words(), item.itemType, "type", object);
    put_time(item.start, item.itemType == VZ_ITEM_TODO ? "due" : "start", object);
    put_time(item.end, "end", object);
    put_alarm(item, object);
    put_repeat(repeat_of(item), item.start, object);
    Json exceptions = json_of(exceptions_of(item));
    if (!exceptions.empty()) object["exceptions"] = std::move(exceptions);
    put_fields(item, object);
    put_zone(item, object);
}

}  // namespace vzconv
