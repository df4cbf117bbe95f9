// VTODO: the lines of a to-do.
#include "vcalendar/calendar_writing.h"
#include "vcalendar/item_type.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcalendar {
namespace {

using versit::PropertyId;

void write_date(CalendarWriting& writing, PropertyId property, const CalendarTime& time) {
    const std::string_view text = writing.date_text(time);
    if (!text.empty()) writing.lines().property(property, {}, text);
}

}  // namespace

void write_todo(CalendarWriting& writing) {
    const CalendarItem& item = writing.item();
    versit::LineBuilder& lines = writing.lines();
    lines.line("BEGIN:VTODO");
    write_date(writing, PropertyId::Due, item.start);
    write_date(writing, PropertyId::Dtend, item.end);
    write_todo_alarm(writing);
    lines.property(PropertyId::XEpocAgendaEntryType, {}, name_of_item_type(item.itemType));
    write_todo_fields(writing);
    if (writing.api_version() >= VZ_INTERFACE_TODO_REPEATS) {
        write_recurrence(writing, RuleForm::Basic);  // whatever the version of the text
        write_exceptions(writing);
    }
    lines.line("END:VTODO");
}

}  // namespace vzapi::vcalendar
