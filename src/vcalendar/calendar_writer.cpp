#include "vcalendar/calendar_writer.h"

#include "vcalendar/calendar_writing.h"
#include "vcalendar/time_zone_lines.h"

namespace vzapi::vcalendar {
namespace {

ZoneBlock zone_block(CalendarWriting& writing) {
    const CalendarItem& item = writing.item();
    platform::CallerMemory& memory = writing.memory();
    ZoneBlock zone;
    zone.standard_offset = item.standardOffset;
    zone.daylight_offset = item.daylightOffset;
    zone.standard_name = memory.narrow_text(item.standardName);
    zone.daylight_name = memory.narrow_text(item.daylightName);
    for (std::size_t i = 0; i < item.daylightCount; ++i) {
        DaylightRule rule;
        if (memory.load_entry(item.daylightRules, i, rule)) zone.rules.push_back(rule);
    }
    return zone;
}

void write_zone(CalendarWriting& writing) {
    if (!writing.switches().time_zone || writing.item().zoneSize != VZ_ZONE_BLOCK_SIZE) return;
    append_zone_lines(zone_block(writing), writing.lines());
}

}  // namespace

std::string write_calendar(const void* item, const WriterContext& context) {
    CalendarWriting writing(item, context);
    writing.lines().line("BEGIN:VCALENDAR");
    writing.lines().line(writing.is_version_2() ? "VERSION:2.0" : "VERSION:1.0");
    write_zone(writing);
    if (writing.item().itemType == VZ_ITEM_TODO) {
        write_todo(writing);
    } else {
        write_event(writing);
    }
    writing.lines().line("END:VCALENDAR");
    return writing.lines().take();
}

}  // namespace vzapi::vcalendar
