#include "vzconv/calendar_record.h"

#include <algorithm>
#include <limits>

#include "vzconv/failure.h"

namespace vzconv {
namespace {

constexpr std::size_t kMostEntries = std::numeric_limits<uint8_t>::max();

// What a member of eight bits can say of a number.
uint8_t clamped(uint32_t number) {
    return static_cast<uint8_t>(std::min(number, uint32_t{std::numeric_limits<uint8_t>::max()}));
}

template <class Entry>
void add_to(std::vector<Entry>& entries, const Entry& entry, const char* plural) {
    if (entries.size() == kMostEntries) {
        throw Failure("more " + std::string(plural) + " than a calendar entry can have (" +
                      std::to_string(kMostEntries) + ")");
    }
    entries.push_back(entry);
}

}  // namespace

CalendarRecord::CalendarRecord() {
    item_.alarmKind = VZ_ALARM_NONE;
}

void CalendarRecord::set_repeat(const Repeat& repeat) {
    item_.repeatKind = clamped(repeat.kind);
    item_.repeatInterval = clamped(repeat.interval);
    item_.repeatDays = clamped(repeat.days);
    item_.repeatPosition = clamped(repeat.position);
    item_.repeatUntil = repeat.until;
    item_.repeatSize = VZ_REPEAT_BLOCK_SIZE;
    item_.repeatKind2 = repeat.kind;
    item_.repeatInterval2 = repeat.interval;
    item_.repeatDays2 = repeat.days;
    item_.repeatPosition2 = repeat.position;
}

CalendarField& CalendarRecord::add_field(uint32_t id) {
    add_to(fields_, {sizeof(CalendarField), 0, VZ_CALENDAR_VALUE_SIZE, id, {}}, "texts and numbers");
    return fields_.back();
}

void CalendarRecord::add_text(uint32_t id, std::u16string text) {
    add_field(id).value.text = texts_.emplace_back(std::move(text)).data();
}

void CalendarRecord::add_number(uint32_t id, uint32_t number) {
    add_field(id).value.number = number;
}

void CalendarRecord::add_geo(std::u16string latitude, std::u16string longitude) {
    CalendarGeo geo{};
    geo.size = sizeof geo;
    geo.latitude = texts_.emplace_back(std::move(latitude)).data();
    geo.longitude = texts_.emplace_back(std::move(longitude)).data();
    add_field(VZ_CALENDAR_GEO).value.geo = &geos_.emplace_back(geo);
}

void CalendarRecord::add_reference(const std::array<uint32_t, 3>& numbers) {
    CalendarReference reference{};
    reference.size = sizeof reference;
    std::copy(numbers.begin(), numbers.end(), reference.numbers);
    add_field(VZ_CALENDAR_REFERENCE).value.reference = &references_.emplace_back(reference);
}

void CalendarRecord::add_exception(const CalendarTime& time) {
    add_to(exceptions_, time, "exceptions");
}

void CalendarRecord::set_zone() {
    item_.zoneSize = VZ_ZONE_BLOCK_SIZE;
}

void CalendarRecord::add_daylight_rule(const DaylightRule& rule) {
    set_zone();
    add_to(rules_, rule, "rules of daylight-saving time");
}

void CalendarRecord::set_standard_name(std::string name) {
    set_zone();
    standard_name_ = std::move(name);
    item_.standardName = standard_name_.data();
}

void CalendarRecord::set_daylight_name(std::string name) {
    set_zone();
    daylight_name_ = std::move(name);
    item_.daylightName = daylight_name_.data();
}

CalendarItem CalendarRecord::item(uint32_t size) {
    CalendarItem item = item_;
    item.size = size;
    item.fieldCount = static_cast<uint8_t>(fields_.size());
    item.fields = fields_.data();
    item.exceptionCount = static_cast<uint8_t>(exceptions_.size());
    item.exceptions = exceptions_.data();
    item.daylightCount = static_cast<uint8_t>(rules_.size());
    item.daylightRules = rules_.data();
    return item;
}

}  // namespace vzconv
