// A calendar record for the library to write from, and all that it points to.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "vzapi/calendar.h"
#include "vzconv/calendar_parts.h"

namespace vzconv {

// Owns what the record points to. Each function that adds something throws Failure where the record, whose
// counts are bytes, can hold no more.
class CalendarRecord {
public:
    CalendarRecord();
    CalendarRecord(const CalendarRecord&) = delete;
    CalendarRecord& operator=(const CalendarRecord&) = delete;

    // Item type, times and alarm, for the caller to set; offsets of the time zone.
    CalendarItem& members() { return item_; }

    void set_repeat(const Repeat& repeat);

    void add_text(uint32_t id, std::u16string text);
    void add_number(uint32_t id, uint32_t number);
    void add_geo(std::u16string latitude, std::u16string longitude);
    void add_reference(const std::array<uint32_t, 3>& numbers);
    void add_exception(const CalendarTime& time);

    // Each marks the time zone as filled.
    void set_zone();
    void add_daylight_rule(const DaylightRule& rule);
    void set_standard_name(std::string name);
    void set_daylight_name(std::string name);

    // The record, of one of the sizes that there are; good until something is added.
    CalendarItem item(uint32_t size = VZ_CALENDAR_SIZE_TIME_ZONE);

private:
    CalendarField& add_field(uint32_t id);

    CalendarItem item_{};
    std::vector<CalendarField> fields_;
    std::vector<CalendarTime> exceptions_;
    std::vector<DaylightRule> rules_;
    std::string standard_name_;
    std::string daylight_name_;
    std::deque<std::u16string> texts_;
    std::deque<CalendarGeo> geos_;
    std::deque<CalendarReference> references_;
};

}  // namespace vzconv
