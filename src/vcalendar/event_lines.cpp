// VEVENT: the lines of every entry that is no to-do.
#include "vcalendar/calendar_fields.h"
#include "vcalendar/calendar_writing.h"
#include "vcalendar/item_type.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcalendar {

using versit::PropertyId;

void write_event(CalendarWriting& writing) {
    const CalendarItem& item = writing.item();
    versit::LineBuilder& lines = writing.lines();
    lines.line("BEGIN:VEVENT");
    // Devices expect both lines, empty ones too.
    lines.property(PropertyId::Dtstart, {}, writing.date_text(item.start));
    lines.property(PropertyId::Dtend, {}, writing.date_text(item.end));
    write_event_alarm(writing);
    lines.property(PropertyId::XEpocAgendaEntryType, {}, name_of_item_type(item.itemType));
    if (item.itemType == VZ_ITEM_ANNIVERSARY && writing.api_version() >= VZ_INTERFACE_MARKS) {
        lines.property(kItemTypeName, {}, name_of_item_type(item.itemType));
    }
    write_event_fields(writing);
    write_recurrence(writing, writing.is_version_2() ? RuleForm::Rfc2445 : RuleForm::Basic);
    write_exceptions(writing);
    lines.line("END:VEVENT");
}

}  // namespace vzapi::vcalendar
