#include "vzconv/calendar_json.h"
#include "vzconv/calendar_time.h"
#include "vzconv/calendar_words.h"
#include "vzconv/failure.h"
#include "vzconv/json_fields.h"
#include "vzconv/json_object.h"
#include "vzconv/utc_offset.h"

namespace vzconv {
namespace {

using nlohmann::json;

CalendarTime time_in(const json& value, const std::string& name, DayEdge edge = DayEdge::First) {
    if (!value.is_string()) refuse_type(name, "a string", value);
    const std::optional<CalendarTime> time = time_of_iso(value.get_ref<const std::string&>(), edge);
    if (!time) {
        throw Failure(
            name +
            " must be a time from 1900 on like 2009-03-10T14:00:00, with a Z behind it in UTC, or a day "
            "like 2009-03-10, not " +
            value.dump());
    }
    return *time;
}

void take_time(JsonFields& fields, const char* key, CalendarTime& time, DayEdge edge = DayEdge::First) {
    const json* value = fields.find(key);
    if (value != nullptr) time = time_in(*value, fields.name_of(key), edge);
}

const json& required(JsonFields& fields, const char* key) {
    const json* value = fields.find(key);
    if (value == nullptr) throw Failure("the key " + fields.name_of(key) + " is missing");
    return *value;
}

// A to-do has no start, and anything else is not due.
void take_start(JsonFields& fields, CalendarItem& item) {
    const bool is_todo = item.itemType == VZ_ITEM_TODO;
    const char* key = is_todo ? "due" : "start";
    const char* other = is_todo ? "start" : "due";
    if (fields.find(other) != nullptr) {
        throw Failure(fields.name_of(other) +
                      (is_todo ? R"( of a to-do is "due")" : R"( belongs to a to-do)"));
    }
    take_time(fields, key, item.start);
}

void take_alarm(const json& value, const std::string& name, CalendarItem& item) {
    JsonFields fields(object_in(value, name), inside(name));
    item.alarm = time_in(required(fields, "time"), fields.name_of("time"));
    const json* kind = fields.find("kind");
    item.alarmKind =
        kind == nullptr ? uint32_t{VZ_ALARM_AUDIO} : code_in(alarm_words(), *kind, fields.name_of("kind"));
    fields.expect_no_more();
}

uint32_t days_in(JsonFields& fields) {
    const json* array = fields.array("days");
    uint32_t days = 0;
    for (std::size_t i = 0; array != nullptr && i < array->size(); ++i) {
        days |= code_in(day_words(), (*array)[i], fields.name_of("days[" + std::to_string(i) + "]"));
    }
    return days;
}

// What a recurrence of its unit has no place for is refused.
void expect_all_counts(const Repeat& repeat, const JsonFields& fields) {
    if (repeat.position != VZ_POSITION_NONE && !has_position(repeat)) {
        throw Failure(fields.name_of("position") + R"( belongs to the units "month" and "year")");
    }
    if (repeat.days != 0 && !has_days(repeat)) {
        throw Failure(fields.name_of("days") +
                      R"( belong to the unit "week", and to "month" and "year" with a "position")");
    }
}

Repeat repeat_in(const json& value, const std::string& name) {
    JsonFields fields(object_in(value, name), inside(name));
    Repeat repeat;
    repeat.kind = code_in(unit_words(), required(fields, "unit"), fields.name_of("unit"));
    const json* every = fields.find("every");
    repeat.interval = every == nullptr ? 1 : number_in(*every, fields.name_of("every"));
    if (repeat.interval == 0) throw Failure(fields.name_of("every") + " must be 1 at least");
    repeat.days = days_in(fields);
    const json* position = fields.find("position");
    if (position != nullptr)
        repeat.position = code_in(position_words(), *position, fields.name_of("position"));
    take_time(fields, "until", repeat.until, DayEdge::Last);
    fields.expect_no_more();
    expect_all_counts(repeat, fields);
    return repeat;
}

// Puts the value of a field into a record.
class FieldTaker {
public:
    FieldTaker(uint32_t item_type, CalendarRecord& record) : item_type_(item_type), record_(record) {}

    void take(const CalendarWord& word, const json& value, const std::string& name) {
        switch (word.kind) {
            case CalendarValueKind::Class:
                return record_.add_number(word.id, code_in(class_words(), value, name));
            case CalendarValueKind::Status:
                return record_.add_number(word.id, value.is_number() ? number_in(value, name)
                                                                     : code_in(status_words(), value, name));
            case CalendarValueKind::Priority:
                return record_.add_number(word.id, number_in(value, name));
            case CalendarValueKind::BirthYear:
                return take_birth_year(word, value, name);
            case CalendarValueKind::Geo:
                return take_geo(value, name);
            case CalendarValueKind::Reference:
                return take_reference(value, name);
            case CalendarValueKind::Text:
                return record_.add_text(id_of(word, item_type_), record_text_of(value, name));
        }
    }

private:
    void take_birth_year(const CalendarWord& word, const json& value, const std::string& name) {
        if (!has_birth_year(item_type_)) throw Failure(name + " belongs to birthdays and anniversaries");
        record_.add_number(word.id, number_in(value, name));
    }

    void take_geo(const json& value, const std::string& name) {
        JsonFields fields(object_in(value, name), inside(name));
        std::u16string latitude = record_text_of(required(fields, "latitude"), fields.name_of("latitude"));
        std::u16string longitude = record_text_of(required(fields, "longitude"), fields.name_of("longitude"));
        fields.expect_no_more();
        record_.add_geo(std::move(latitude), std::move(longitude));
    }

    void take_reference(const json& value, const std::string& name) {
        std::array<uint32_t, 3> numbers{};
        if (!value.is_array()) refuse_type(name, "an array", value);
        if (value.size() != numbers.size())
            throw Failure(name + " must be three numbers, not " + value.dump());
        for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = number_in(value[i], name);
        record_.add_reference(numbers);
    }

    uint32_t item_type_;
    CalendarRecord& record_;
};

// Whether `value` is several values of one field.
bool is_several(const CalendarWord& word, const json& value) {
    if (word.kind != CalendarValueKind::Reference) return value.is_array();
    return value.is_array() && (value.empty() || value.front().is_array());
}

// The texts and numbers, in the order of their keys.
void take_fields(const JsonObject& object, JsonFields& fields, CalendarRecord& record) {
    FieldTaker taker(record.members().itemType, record);
    for (const std::string& key : object.keys) {
        const CalendarWord* word = calendar_word_of(key);
        if (word == nullptr) continue;
        const json& value = *fields.find(key.c_str());
        if (!is_several(*word, value)) {
            taker.take(*word, value, fields.name_of(key));
            continue;
        }
        for (std::size_t i = 0; i < value.size(); ++i) {
            taker.take(*word, value[i], fields.name_of(key + "[" + std::to_string(i) + "]"));
        }
    }
}

int32_t offset_in(JsonFields& fields, const char* key) {
    const json* value = fields.find(key);
    if (value == nullptr) return 0;
    if (!value->is_string()) refuse_type(fields.name_of(key), "a string", *value);
    const std::optional<int32_t> minutes = minutes_of_utc_offset(value->get_ref<const std::string&>());
    if (!minutes) throw Failure(fields.name_of(key) + " must be an offset like +01:00, not " + value->dump());
    return *minutes;
}

std::optional<std::string> zone_name_in(JsonFields& fields, const char* key) {
    std::optional<std::string> name = fields.word(key);
    if (name && name->find('\0') != std::string::npos)
        throw Failure(fields.name_of(key) + " holds a NUL character");
    return name;
}

DaylightRule daylight_rule_in(const json& value, const std::string& name) {
    JsonFields fields(object_in(value, name), inside(name));
    DaylightRule rule{};
    rule.flag = !fields.has("observed") || fields.flag("observed") ? VZ_DAYLIGHT_TRUE : VZ_DAYLIGHT_FALSE;
    take_time(fields, "begin", rule.begin);
    take_time(fields, "end", rule.end);
    fields.expect_no_more();
    return rule;
}

void take_zone(const json& value, const std::string& name, CalendarRecord& record) {
    JsonFields fields(object_in(value, name), inside(name));
    record.set_zone();
    record.members().standardOffset = offset_in(fields, "standard");
    record.members().daylightOffset = offset_in(fields, "daylight");
    if (auto standard = zone_name_in(fields, "standardName")) record.set_standard_name(std::move(*standard));
    if (auto daylight = zone_name_in(fields, "daylightName")) record.set_daylight_name(std::move(*daylight));
    const json* rules = fields.array("daylightRules");
    for (std::size_t i = 0; rules != nullptr && i < rules->size(); ++i) {
        const std::string place = fields.name_of("daylightRules[" + std::to_string(i) + "]");
        record.add_daylight_rule(daylight_rule_in((*rules)[i], place));
    }
    fields.expect_no_more();
}

}  // namespace

void take_calendar(const JsonObject& object, CalendarRecord& record) {
    JsonFields fields(object.fields);
    CalendarItem& item = record.members();
    const json* type = fields.find("type");
    if (type != nullptr) item.itemType = code_in(item_type_words(), *type, fields.name_of("type"));
    take_start(fields, item);
    take_time(fields, "end", item.end);
    const json* alarm = fields.find("alarm");
    if (alarm != nullptr) take_alarm(*alarm, fields.name_of("alarm"), item);
    const json* recurrence = fields.find("recurrence");
    if (recurrence != nullptr) record.set_repeat(repeat_in(*recurrence, fields.name_of("recurrence")));
    const json* exceptions = fields.array("exceptions");
    for (std::size_t i = 0; exceptions != nullptr && i < exceptions->size(); ++i) {
        record.add_exception(
            time_in((*exceptions)[i], fields.name_of("exceptions[" + std::to_string(i) + "]")));
    }
    take_fields(object, fields, record);
    const json* zone = fields.find("timeZone");
    if (zone != nullptr) take_zone(*zone, fields.name_of("timeZone"), record);
    fields.expect_no_more();
}

}  // namespace vzconv
