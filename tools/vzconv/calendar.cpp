#include "vzconv/calendar.h"

#include "vzapi/calendar.h"
#include "vzconv/calendar_json.h"
#include "vzconv/calendar_show.h"
#include "vzconv/json_object.h"
#include "vzconv/library.h"

namespace vzconv {
namespace {

using Entry = ReadRecord<CalendarItem, kCalendarRecord>;

std::string show(std::string_view text, const Options& options) {
    return show_calendar(*Entry(text, options.door, options.calendar_record_size));
}

void to_json(std::string_view text, const Options& options, nlohmann::ordered_json& object) {
    put_calendar(*Entry(text, options.door, options.calendar_record_size), object);
}

std::string from_json(const JsonObject& object, const Options& options) {
    CalendarRecord record;
    take_calendar(object, record);
    const CalendarItem item = record.item(options.calendar_record_size);
    return write_record(kCalendarRecord, &item, options);
}

// A day without a time of day, an alarm without a kind and much else are said otherwise by to_json.
nlohmann::json plain_form(const nlohmann::json& fields) {
    CalendarRecord record;
    take_calendar(fields, record);
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_calendar(record.item(), object);
    return nlohmann::json(object);
}

}  // namespace

const Converter kCalendarConverter = {show, to_json, from_json, plain_form};

}  // namespace vzconv
