#include "vcalendar/occurrences.h"

#include <algorithm>
#include <bit>
#include <chrono>

#include "vcalendar/calendar_time.h"
#include "vcalendar/recurrence_parts.h"

namespace vzapi::vcalendar {
namespace {

using std::chrono::days;
using std::chrono::local_days;

constexpr local_days kLastDay{std::chrono::year(9999) / std::chrono::December / 31};
constexpr unsigned kWeekLength = 7;

std::uint64_t days_left(local_days first) noexcept {
    return static_cast<std::uint64_t>((kLastDay - first).count());
}

local_days days_behind(local_days day, std::uint64_t count) noexcept {
    return day + days(static_cast<days::rep>(count));
}

std::optional<local_days> nth_by_day(std::uint64_t interval, local_days first,
                                     std::uint64_t number) noexcept {
    if (number - 1 > days_left(first) / interval) return std::nullopt;
    return days_behind(first, (number - 1) * interval);
}

// Which day of a week that begins on Monday: 0 to 6.
unsigned place_in_week(local_days day) noexcept {
    return std::chrono::weekday(day).iso_encoding() - 1;
}

// The VZ_DAY_ bits as bits of a week that begins on Monday.
unsigned monday_first(std::uint32_t weekdays) noexcept {
    return (weekdays >> 1) | ((weekdays & VZ_DAY_SUNDAY) << (kWeekLength - 1));
}

// Where the `index`th (from 0) of the bits stands. REQUIRES: there are more than `index`.
unsigned nth_bit(unsigned bits, unsigned index) noexcept {
    for (; index > 0; --index) bits &= bits - 1;
    return static_cast<unsigned>(std::countr_zero(bits));
}

// The first week gives the days that are left of it, every further one all of them.
std::optional<local_days> nth_by_week(std::uint64_t interval, std::uint32_t weekdays, local_days first,
                                      std::uint64_t number) noexcept {
    const unsigned place = place_in_week(first);
    const local_days monday = first - days(place);
    const unsigned week = monday_first(weekdays);
    const unsigned first_week = week >> place << place;
    const auto in_first_week = static_cast<unsigned>(std::popcount(first_week));
    if (number <= in_first_week) return monday + days(nth_bit(first_week, static_cast<unsigned>(number) - 1));

    const auto in_a_week = static_cast<unsigned>(std::popcount(week));
    const std::uint64_t rest = number - in_first_week - 1;
    const std::uint64_t weeks = rest / in_a_week + 1;
    if (weeks > days_left(monday) / kWeekLength / interval) return std::nullopt;
    const auto index = static_cast<unsigned>(rest % in_a_week);
    return days_behind(monday, weeks * interval * kWeekLength + nth_bit(week, index));
}

// A row of days of one month; none when it ends before it begins.
struct DayRange {
    unsigned first;
    unsigned last;
};

// The days of a month that a rule by months looks at: the one day, or the week of the position.
DayRange candidates(std::uint32_t position, unsigned day_of_month, unsigned month_length) noexcept {
    if (position == VZ_POSITION_NONE) return {day_of_month, std::min(day_of_month, month_length)};
    if (position == VZ_POSITION_LAST) return {month_length - kWeekLength + 1, month_length};
    return {(position - 1) * kWeekLength + 1, position * kWeekLength};
}

struct MonthRule {
    std::uint64_t step;      // months
    std::uint32_t position;  // none: the day of the month, whatever its weekday
    std::uint32_t weekdays;
    unsigned day_of_month;
};

// Takes the occurrences in one month off `number`; the day of the one that makes it 0.
std::optional<local_days> count_month(const MonthRule& rule, std::chrono::year_month month, local_days first,
                                      std::uint64_t& number) noexcept {
    const auto month_length = static_cast<unsigned>((month / std::chrono::last).day());
    const DayRange range = candidates(rule.position, rule.day_of_month, month_length);
    for (unsigned day = range.first; day <= range.last; ++day) {
        const local_days date{month / std::chrono::day(day)};
        if (date < first || ((rule.weekdays >> std::chrono::weekday(date).c_encoding()) & 1) == 0) continue;
        if (--number == 0) return date;
    }
    return std::nullopt;
}

std::optional<local_days> nth_by_month(const MonthRule& rule, const CalendarTime& start, local_days first,
                                       std::uint64_t number) noexcept {
    constexpr std::uint64_t kMonths = 12;
    constexpr std::uint64_t kBehindLastMonth = 10'000 * kMonths;
    for (std::uint64_t index = start.year * kMonths + start.month - 1; index < kBehindLastMonth;
         index += rule.step) {
        const std::chrono::year_month month(std::chrono::year(static_cast<int>(index / kMonths)),
                                            std::chrono::month(static_cast<unsigned>(index % kMonths) + 1));
        if (const auto date = count_month(rule, month, first, number)) return date;
    }
    return std::nullopt;
}

std::optional<local_days> nth_day(const Recurrence& rule, const CalendarTime& start, local_days first,
                                  std::uint64_t number) noexcept {
    const std::uint64_t interval = interval_of(rule);
    if (rule.frequency == VZ_REPEAT_DAILY) return nth_by_day(interval, first, number);
    if (rule.frequency == VZ_REPEAT_WEEKLY) return nth_by_week(interval, days_of(rule, start), first, number);
    const std::uint32_t position = position_of(rule);
    const std::uint32_t weekdays = position == VZ_POSITION_NONE ? kAllDays : days_of(rule, start);
    const std::uint64_t step = rule.frequency == VZ_REPEAT_YEARLY ? interval * 12 : interval;
    return nth_by_month({step, position, weekdays, start.day}, start, first, number);
}

// Whether `time` comes before `other`: on their own clock when both have the same, else on that of this
// machine.
bool is_before(const CalendarTime& time, const CalendarTime& other) noexcept {
    if (is_utc(time) == is_utc(other)) return clock_of(time) < clock_of(other);
    return local_clock_of(time) < local_clock_of(other);
}

}  // namespace

std::optional<CalendarTime> nth_occurrence(const Recurrence& rule, const CalendarTime& start,
                                           std::uint64_t number) noexcept {
    const std::chrono::local_seconds clock = clock_of(start);
    const local_days first = std::chrono::floor<days>(clock);
    if (first > kLastDay) return std::nullopt;
    const std::optional<local_days> day = nth_day(rule, start, first, number);
    if (!day) return std::nullopt;
    return time_of(*day + (clock - first), start);
}

void end_after(Recurrence& rule, const CalendarTime& start, std::uint64_t number) noexcept {
    const std::optional<CalendarTime> last = nth_occurrence(rule, start, number);
    if (!last) return;
    if (has_end(rule) && !is_before(*last, rule.until)) return;
    rule.until = *last;
}

}  // namespace vzapi::vcalendar
