// The writing of one calendar entry: what its sections share, and the sections.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "call_context.h"
#include "platform/caller_memory.h"
#include "vcalendar/size_switches.h"
#include "versit/line_builder.h"
#include "vzapi/calendar.h"

namespace vzapi::vcalendar {

class CalendarWriting {
public:
    // Copies the record at `item`, as many bytes as its `size` says; those of a size that no version has end
    // behind `fields`. Raises VZ_ERR_POINTER when it cannot be read.
    CalendarWriting(const void* item, const WriterContext& context);

    [[nodiscard]] platform::CallerMemory& memory() noexcept { return memory_; }
    [[nodiscard]] versit::LineBuilder& lines() noexcept { return lines_; }
    [[nodiscard]] const CalendarItem& item() const noexcept { return item_; }  // what it has not is zero
    [[nodiscard]] const SizeSwitches& switches() const noexcept { return switches_; }
    [[nodiscard]] bool is_version_2() const noexcept { return is_version_2_; }
    [[nodiscard]] std::uint32_t api_version() const noexcept { return api_version_; }

    // The date text of `time`, a Z behind one in UTC; empty when it is not valid. Holds until the next call.
    [[nodiscard]] std::string_view date_text(const CalendarTime& time);

    // Appends `text` as it stands in a value: in version 2.0 with its '\', ';' and ',' escaped (RFC 2445,
    // section 4.3.11).
    void append_text(std::u16string_view text, std::u16string& value) const;

    // A text without the control characters that no line may carry, in quoted-printable form when it needs to
    // be.
    void text_line(versit::PropertyId property, std::u16string_view text);

    // A number in decimal.
    void number_line(versit::PropertyId property, std::uint32_t number);

private:
    platform::CallerMemory memory_;
    versit::LineBuilder lines_;
    const std::uint32_t api_version_;
    const bool is_version_2_;
    const CalendarItem item_;
    const SizeSwitches switches_;
    std::string date_;      // scratch of date_text()
    std::u16string clean_;  // scratch of text_line()
    std::u16string value_;  // the same
};

// The components, from BEGIN to END.
void write_event(CalendarWriting& writing);
void write_todo(CalendarWriting& writing);

// The alarm: AALARM and DALARM, of an event in version 2.0 VALARM.
void write_event_alarm(CalendarWriting& writing);
void write_todo_alarm(CalendarWriting& writing);

// RRULE in one of its two forms, and EXDATE.
enum class RuleForm { Basic, Rfc2445 };
void write_recurrence(CalendarWriting& writing, RuleForm form);
void write_exceptions(CalendarWriting& writing);

// The entries of the array `fields`, in its order.
void write_event_fields(CalendarWriting& writing);
void write_todo_fields(CalendarWriting& writing);

}  // namespace vzapi::vcalendar
