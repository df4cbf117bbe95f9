#include "vcalendar/alarm.h"

#include "vcalendar/calendar_time.h"
#include "vcalendar/duration.h"
#include "versit/ascii.h"

namespace vzapi::vcalendar {
namespace {

using versit::equals_ignoring_case;
using versit::PropertyId;
using versit::trim_blanks;
using versit::VersitProperty;

bool is_related_to_end(const VersitProperty& line) noexcept {
    return equals_ignoring_case(trim_blanks(line.parameter("RELATED").value_or("")), "END");
}

// Not valid when the line gives none.
CalendarTime trigger_time(const VersitProperty& line, const CalendarTime& start, const CalendarTime& end) {
    const std::string value = versit::decoded_value(line, versit::Encoding::None);
    if (const std::optional<DateText> date = parse_date_text(value)) return date->time;
    const std::optional<std::chrono::seconds> duration = parse_duration(value);
    const CalendarTime& base = is_related_to_end(line) ? end : start;
    if (!duration || !is_valid(base)) return {};
    return time_of(clock_of(base) + *duration, base).value_or(CalendarTime{});
}

// Walks over the lines of an entry and remembers what the VALARM that it is in says.
class ValarmWalk {
public:
    ValarmWalk(const CalendarTime& start, const CalendarTime& end) noexcept : start_(start), end_(end) {}

    // Returns true when the line ended a VALARM that has a time.
    bool ends_alarm(const VersitProperty& line) {
        const PropertyId id = line.id();
        if (id == PropertyId::Begin || id == PropertyId::End) return frame(id, trim_blanks(line.value()));
        if (!inside_ || nested_ > 0) return false;
        if (id == PropertyId::Trigger && !has_time()) {
            time_ = trigger_time(line, start_, end_);
        } else if (equals_ignoring_case(line.raw_name(), "ACTION")) {
            is_display_ = equals_ignoring_case(trim_blanks(line.value()), "DISPLAY");
        }
        return false;
    }

    [[nodiscard]] std::optional<Alarm> alarm() const noexcept {
        if (!has_time()) return std::nullopt;
        return Alarm{time_, is_display_ ? VZ_ALARM_DISPLAY : VZ_ALARM_AUDIO};
    }

private:
    [[nodiscard]] bool has_time() const noexcept { return is_valid(time_); }

    bool frame(PropertyId id, std::string_view component) {
        const bool begins = id == PropertyId::Begin;
        if (equals_ignoring_case(component, "VALARM")) {
            // A VALARM that is not closed ends where the next one begins.
            if (has_time()) return true;
            inside_ = begins;
            nested_ = 0;
            is_display_ = false;
        } else if (inside_ && begins) {
            ++nested_;
        } else if (nested_ > 0) {
            --nested_;
        }
        return false;
    }

    const CalendarTime& start_;
    const CalendarTime& end_;
    bool inside_ = false;
    std::size_t nested_ = 0;  // components open inside the VALARM
    CalendarTime time_{};     // not valid: none yet
    bool is_display_ = false;
};

}  // namespace

std::optional<CalendarTime> parse_alarm_value(std::string_view value) noexcept {
    const std::optional<DateText> date = parse_date_text(value.substr(0, value.find(';')));
    if (!date) return std::nullopt;
    return date->time;
}

std::optional<Alarm> read_valarm(std::span<const VersitProperty> entry_lines, const CalendarTime& start,
                                 const CalendarTime& end) {
    ValarmWalk walk(start, end);
    for (const VersitProperty& line : entry_lines) {
        if (walk.ends_alarm(line)) break;
    }
    return walk.alarm();
}

std::string trigger_value(const CalendarTime& alarm, const CalendarTime& start) {
    std::string value;
    if (!is_valid(start)) {
        append_zoned_date_text(alarm, value);
    } else if (is_utc(alarm) == is_utc(start)) {
        append_duration(clock_of(alarm) - clock_of(start), value);
    } else {
        append_duration(local_clock_of(alarm) - local_clock_of(start), value);
    }
    return value;
}

}  // namespace vzapi::vcalendar
