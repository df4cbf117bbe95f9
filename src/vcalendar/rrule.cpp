// RRULE of RFC 2445, section 4.3.10: "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,WE".
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "vcalendar/calendar_time.h"
#include "vcalendar/recurrence_parts.h"
#include "vcalendar/recurrence_text.h"
#include "versit/ascii.h"

namespace vzapi::vcalendar {
namespace {

constexpr unsigned kWeekLength = 7;

// The end that is written for a rule without one.
constexpr std::string_view kNoEnd = "21001230T000000Z";

struct FrequencyRow {
    std::uint32_t frequency;
    std::string_view word;
};

// In the order of the codes.
constexpr FrequencyRow kFrequencies[] = {
    {VZ_REPEAT_DAILY, "DAILY"},
    {VZ_REPEAT_WEEKLY, "WEEKLY"},
    {VZ_REPEAT_MONTHLY, "MONTHLY"},
    {VZ_REPEAT_YEARLY, "YEARLY"},
};

using Value = std::optional<std::string_view>;

// The parts of a rule as they stand in the text.
struct Parts {
    Value frequency;
    Value until;
    Value count;
    Value interval;
    Value by_day;
    Value by_month_day;
    Value by_month;
    Value by_set_position;
    Value week_start;
};

struct PartRow {
    std::string_view name;
    Value Parts::*value;
};

// All other parts say what a recurrence cannot.
constexpr PartRow kParts[] = {
    {"FREQ", &Parts::frequency},   {"UNTIL", &Parts::until},
    {"COUNT", &Parts::count},      {"INTERVAL", &Parts::interval},
    {"BYDAY", &Parts::by_day},     {"BYMONTHDAY", &Parts::by_month_day},
    {"BYMONTH", &Parts::by_month}, {"BYSETPOS", &Parts::by_set_position},
    {"WKST", &Parts::week_start},
};

// Takes what stands before the next `separator` off the front of `text`, without the blanks around it.
std::string_view take_until(char separator, std::string_view& text) noexcept {
    const std::size_t length = text.find(separator);
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(length == std::string_view::npos ? text.size() : length + 1);
    return versit::trim_blanks(taken);
}

// False for a part of another name, one without '=', and one that was there before.
bool set_part(std::string_view part, Parts& parts) noexcept {
    const std::size_t equals_sign = part.find('=');
    if (equals_sign == std::string_view::npos) return false;
    const std::string_view name = versit::trim_blanks(part.substr(0, equals_sign));
    for (const PartRow& row : kParts) {
        if (!versit::equals_ignoring_case(name, row.name)) continue;
        Value& value = parts.*row.value;
        if (value) return false;
        value = versit::trim_blanks(part.substr(equals_sign + 1));
        return true;
    }
    return false;
}

// A ';' too many is no part.
std::optional<Parts> split(std::string_view text) noexcept {
    Parts parts;
    while (!text.empty()) {
        const std::string_view part = take_until(';', text);
        if (!part.empty() && !set_part(part, parts)) return std::nullopt;
    }
    return parts;
}

std::optional<std::uint64_t> parse_number(std::string_view text) noexcept {
    const std::optional<std::uint64_t> number = take_number(text);
    return text.empty() ? number : std::nullopt;
}

// A number that may have a sign; '-' counts from the end.
struct Ordinal {
    std::uint64_t value;
    bool is_from_end;
};

std::optional<Ordinal> take_ordinal(std::string_view& text) noexcept {
    const bool is_from_end = text.starts_with('-');
    if (is_from_end || text.starts_with('+')) text.remove_prefix(1);
    const std::optional<std::uint64_t> number = take_number(text);
    if (!number || *number == 0) return std::nullopt;
    return Ordinal{*number, is_from_end};
}

// The position that 1 to 4 and -1 are; none for the others, which a recurrence has not.
std::uint32_t position_of_ordinal(const Ordinal& ordinal) noexcept {
    if (ordinal.is_from_end) return ordinal.value == 1 ? VZ_POSITION_LAST : VZ_POSITION_NONE;
    return ordinal.value <= VZ_POSITION_FOURTH ? static_cast<std::uint32_t>(ordinal.value)
                                               : std::uint32_t{VZ_POSITION_NONE};
}

// Calls `take_item` with each item of a list until it returns false; true when it never did.
template <class TakeItem>
bool for_each_item(std::string_view list, TakeItem take_item) noexcept {
    for (bool is_more = true; is_more;) {
        is_more = list.find(',') != std::string_view::npos;
        if (!take_item(take_until(',', list))) return false;
    }
    return true;
}

// BYDAY. All weekdays have the same position, or none has.
struct Weekdays {
    std::uint32_t days = 0;
    std::uint32_t position = VZ_POSITION_NONE;
};

bool add_weekday(std::string_view item, Weekdays& weekdays) noexcept {
    std::uint32_t position = VZ_POSITION_NONE;
    if (item.size() > 2) {
        const std::optional<Ordinal> ordinal = take_ordinal(item);
        if (!ordinal) return false;
        position = position_of_ordinal(*ordinal);
        if (position == VZ_POSITION_NONE) return false;
    }
    const std::optional<std::uint32_t> day = parse_weekday(item);
    if (!day || (weekdays.days != 0 && weekdays.position != position)) return false;
    weekdays.position = position;
    weekdays.days |= *day;
    return true;
}

std::optional<Weekdays> parse_weekdays(std::string_view list) noexcept {
    Weekdays weekdays;
    if (!for_each_item(list, [&](std::string_view item) { return add_weekday(item, weekdays); })) {
        return std::nullopt;
    }
    return weekdays;
}

// BYMONTHDAY: bit n for the nth day of the month, in the second word counted from its end.
struct MonthDays {
    std::uint32_t from_begin = 0;
    std::uint32_t from_end = 0;

    friend bool operator==(const MonthDays&, const MonthDays&) = default;
};

bool add_month_day(std::string_view item, MonthDays& days) noexcept {
    const std::optional<Ordinal> day = take_ordinal(item);
    if (!day || day->value > 31 || !item.empty()) return false;
    (day->is_from_end ? days.from_end : days.from_begin) |= 1U << day->value;
    return true;
}

std::optional<MonthDays> parse_month_days(std::string_view list) noexcept {
    MonthDays days;
    if (!for_each_item(list, [&](std::string_view item) { return add_month_day(item, days); })) {
        return std::nullopt;
    }
    return days;
}

// The days of the week of a month that holds exactly one of each weekday: the first to fourth, or the last.
// REQUIRES: `position` is one.
MonthDays week_of_month(std::uint32_t position) noexcept {
    constexpr std::uint32_t kFirstWeek = 0xFE;  // bits 1 to 7
    if (position == VZ_POSITION_LAST) return {0, kFirstWeek};
    return {kFirstWeek << ((position - 1) * kWeekLength), 0};
}

std::uint32_t position_of_week(const MonthDays& days) noexcept {
    for (std::uint32_t position = VZ_POSITION_FIRST; position <= VZ_POSITION_LAST; ++position) {
        if (days == week_of_month(position)) return position;
    }
    return VZ_POSITION_NONE;
}

// The position of the one weekday in its month; none for several weekdays and for other positions.
std::uint32_t position_in_set(std::string_view set_position, std::uint32_t days) noexcept {
    const bool is_one_day = (days & (days - 1)) == 0;
    const std::optional<Ordinal> ordinal = take_ordinal(set_position);
    if (!is_one_day || !ordinal || !set_position.empty()) return VZ_POSITION_NONE;
    return position_of_ordinal(*ordinal);
}

// Weekdays of a month: 2TU, or TU with BYMONTHDAY=8,...,14, or TU with BYSETPOS=2.
bool read_weekdays_of_month(const Parts& parts, Recurrence& rule) noexcept {
    const std::optional<Weekdays> weekdays = parse_weekdays(*parts.by_day);
    if (!weekdays) return false;
    rule.days = weekdays->days;
    rule.position = weekdays->position;
    if (!parts.by_month_day && !parts.by_set_position) return rule.position != VZ_POSITION_NONE;
    if (rule.position != VZ_POSITION_NONE || (parts.by_month_day && parts.by_set_position)) return false;
    if (parts.by_set_position) {
        rule.position = position_in_set(*parts.by_set_position, rule.days);
    } else if (const std::optional<MonthDays> days = parse_month_days(*parts.by_month_day)) {
        rule.position = position_of_week(*days);
    }
    return rule.position != VZ_POSITION_NONE;
}

// The only day of the month that a recurrence has without weekdays is that of its start.
bool read_days_of_month(const Parts& parts, const CalendarTime& start, Recurrence& rule) noexcept {
    if (parts.by_day) return read_weekdays_of_month(parts, rule);
    if (parts.by_set_position) return false;
    if (!parts.by_month_day) return true;
    return is_valid(start) && parse_month_days(*parts.by_month_day) == MonthDays{1U << start.day, 0};
}

bool read_monthly(const Parts& parts, const CalendarTime& start, Recurrence& rule) noexcept {
    return !parts.by_month && read_days_of_month(parts, start, rule);
}

// Without BYMONTH the others would count in the year, or mean every month.
bool read_yearly(const Parts& parts, const CalendarTime& start, Recurrence& rule) noexcept {
    if (!parts.by_month) return !parts.by_day && !parts.by_month_day && !parts.by_set_position;
    const auto is_month_of_start = [&](std::string_view item) { return parse_number(item) == start.month; };
    return is_valid(start) && for_each_item(*parts.by_month, is_month_of_start) &&
           read_days_of_month(parts, start, rule);
}

bool read_weekdays_alone(const Parts& parts, Recurrence& rule) noexcept {
    if (parts.by_month || parts.by_month_day || parts.by_set_position) return false;
    if (!parts.by_day) return true;
    const std::optional<Weekdays> weekdays = parse_weekdays(*parts.by_day);
    if (!weekdays || weekdays->position != VZ_POSITION_NONE) return false;
    rule.days = weekdays->days;
    return true;
}

// Certain weekdays of every day are those of every week.
bool read_daily(const Parts& parts, std::uint64_t interval, Recurrence& rule) noexcept {
    if (!read_weekdays_alone(parts, rule)) return false;
    if (!parts.by_day) return true;
    rule.frequency = VZ_REPEAT_WEEKLY;
    return interval == 1;
}

// The days of a week that begins on `week_start`, from that of `start` on.
std::uint32_t days_left_of_week(std::uint32_t week_start, std::uint32_t day_of_start) noexcept {
    std::uint32_t days = 0;
    std::uint32_t day = day_of_start;
    do {
        days |= day;
        day = day == VZ_DAY_SATURDAY ? std::uint32_t{VZ_DAY_SUNDAY} : day << 1;
    } while (day != week_start);
    return days;
}

// True when the rule gives the same days with weeks that begin on `week_start` as with those that begin on
// Monday: each day stands in the week of the start either with both or with neither.
bool is_as_from_monday(const Recurrence& rule, std::uint64_t interval, std::uint32_t week_start,
                       const CalendarTime& start) noexcept {
    if (interval == 1 || week_start == VZ_DAY_MONDAY || !has_days(rule)) return true;
    if (!is_valid(start)) return false;
    const std::uint32_t day_of_start = weekday_of(start);
    const std::uint32_t left = days_left_of_week(week_start, day_of_start);
    const std::uint32_t left_from_monday = days_left_of_week(VZ_DAY_MONDAY, day_of_start);
    return ((left ^ left_from_monday) & rule.days) == 0;
}

bool read_weekly(const Parts& parts, std::uint64_t interval, std::uint32_t week_start,
                 const CalendarTime& start, Recurrence& rule) noexcept {
    return read_weekdays_alone(parts, rule) && is_as_from_monday(rule, interval, week_start, start);
}

// What FREQ and the BY parts say.
std::optional<Recurrence> read_rule(const Parts& parts, std::uint64_t interval,
                                    const CalendarTime& start) noexcept {
    const std::optional<std::uint32_t> week_start = parse_weekday(parts.week_start.value_or("MO"));
    if (!parts.frequency || !week_start) return std::nullopt;
    Recurrence rule;
    for (const FrequencyRow& row : kFrequencies) {
        if (versit::equals_ignoring_case(*parts.frequency, row.word)) rule.frequency = row.frequency;
    }
    bool is_read = false;
    switch (rule.frequency) {
        case VZ_REPEAT_DAILY:
            is_read = read_daily(parts, interval, rule);
            break;
        case VZ_REPEAT_WEEKLY:
            is_read = read_weekly(parts, interval, *week_start, start, rule);
            break;
        case VZ_REPEAT_MONTHLY:
            is_read = read_monthly(parts, start, rule);
            break;
        case VZ_REPEAT_YEARLY:
            is_read = read_yearly(parts, start, rule);
            break;
        default:
            break;
    }
    if (!is_read) return std::nullopt;
    return rule;
}

// INTERVAL, COUNT and UNTIL; nothing when one of them cannot be read.
std::optional<Limits> read_limits(const Parts& parts) noexcept {
    Limits limits;
    if (parts.interval) {
        const std::optional<std::uint64_t> interval = parse_number(*parts.interval);
        if (!interval) return std::nullopt;
        limits.interval = *interval;
    }
    if (parts.count) {
        const std::optional<std::uint64_t> count = parse_number(*parts.count);
        if (!count || *count == 0) return std::nullopt;
        limits.count = *count;
    }
    if (parts.until && !versit::equals_ignoring_case(*parts.until, kNoEnd)) {
        const std::optional<CalendarTime> until = parse_end(*parts.until);
        if (!until) return std::nullopt;
        limits.until = *until;
    }
    return limits;
}

// The days of the month among which each weekday has its position once: "8,9,10,11,12,13,14".
void append_week_of_month(std::uint32_t position, std::string& text) {
    if (position == VZ_POSITION_LAST) {
        text += "-7,-6,-5,-4,-3,-2,-1";
        return;
    }
    const std::uint32_t first = (position - 1) * kWeekLength + 1;
    append_number(first, text);
    for (std::uint32_t day = first + 1; day < first + kWeekLength; ++day) {
        text += ',';
        append_number(day, text);
    }
}

void append_days_of_month(const Recurrence& rule, const CalendarTime& start, std::string& text) {
    const std::uint32_t position = position_of(rule);
    text += ";BYMONTHDAY=";
    if (position == VZ_POSITION_NONE) {
        append_number(start.day, text);
        return;
    }
    append_week_of_month(position, text);
    text += ";BYDAY=";
    append_weekdays(days_of(rule, start), ',', text);
}

// BYDAY repeats the position with each weekday: "2MO,2TU".
void append_days_of_year(const Recurrence& rule, const CalendarTime& start, std::string& text) {
    const std::uint32_t position = position_of(rule);
    if (position == VZ_POSITION_NONE) return;
    const std::string ordinal = position == VZ_POSITION_LAST ? "-1" : std::to_string(position);
    std::string days;
    append_weekdays(days_of(rule, start), ',', days);
    text += ";BYMONTH=";
    append_number(start.month, text);
    text += ";BYDAY=";
    text += ordinal;
    for (const char character : days) {
        text += character;
        if (character == ',') text += ordinal;
    }
}

bool can_be_written(const Recurrence& rule, const CalendarTime& start) noexcept {
    if (!recurs(rule)) return false;
    const bool needs_start =
        rule.frequency == VZ_REPEAT_YEARLY ? position_of(rule) != VZ_POSITION_NONE : !is_complete(rule);
    return !needs_start || is_valid(start);
}

}  // namespace

std::optional<Recurrence> parse_rrule(std::string_view text, const CalendarTime& start) {
    const std::optional<Parts> parts = split(text);
    if (!parts) return std::nullopt;
    const std::optional<Limits> limits = read_limits(*parts);
    if (!limits) return std::nullopt;
    const std::optional<Recurrence> rule = read_rule(*parts, limits->interval, start);
    if (!rule) return std::nullopt;
    return completed(*rule, *limits, start);
}

void append_rrule(const Recurrence& rule, const CalendarTime& start, std::string& text) {
    if (!can_be_written(rule, start)) return;
    text += "FREQ=";
    text += kFrequencies[rule.frequency - VZ_REPEAT_DAILY].word;
    text += ";UNTIL=";
    if (has_end(rule)) {
        append_zoned_date_text(rule.until, text);
    } else {
        text += kNoEnd;
    }
    if (interval_of(rule) != 1) {
        text += ";INTERVAL=";
        append_number(rule.interval, text);
    }
    switch (rule.frequency) {
        case VZ_REPEAT_WEEKLY:
            text += ";WKST=MO;BYDAY=";
            append_weekdays(days_of(rule, start), ',', text);
            break;
        case VZ_REPEAT_MONTHLY:
            append_days_of_month(rule, start, text);
            break;
        case VZ_REPEAT_YEARLY:
            append_days_of_year(rule, start, text);
            break;
        default:
            break;
    }
}

}  // namespace vzapi::vcalendar
