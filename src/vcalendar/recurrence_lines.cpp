// How an entry recurs: RRULE and EXDATE.
#include "vcalendar/calendar_time.h"
#include "vcalendar/calendar_writing.h"
#include "vcalendar/recurrence.h"
#include "vcalendar/recurrence_text.h"

namespace vzapi::vcalendar {

using versit::PropertyId;

void write_recurrence(CalendarWriting& writing, RuleForm form) {
    const Recurrence rule = load_recurrence(writing.item(), writing.switches());
    const CalendarTime& start = writing.item().start;
    std::string value;
    if (form == RuleForm::Rfc2445) {
        append_rrule(rule, start, value);
    } else {
        append_basic_rule(rule, start, value);
    }
    if (!value.empty()) writing.lines().property(PropertyId::Rrule, {}, std::string_view(value));
}

void write_exceptions(CalendarWriting& writing) {
    const CalendarItem& item = writing.item();
    if (!writing.switches().exceptions) return;
    bool has_exceptions = false;
    std::string value;
    for (std::size_t i = 0; i < item.exceptionCount; ++i) {
        CalendarTime time;
        if (!writing.memory().load_entry(item.exceptions, i, time)) continue;
        has_exceptions = true;
        if (!is_valid(time)) continue;
        if (!value.empty()) value.push_back(';');
        append_zoned_date_text(time, value);
    }
    if (has_exceptions) writing.lines().property(PropertyId::Exdate, {}, std::string_view(value));
}

}  // namespace vzapi::vcalendar
