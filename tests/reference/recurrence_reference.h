// The dates of a recurrence, found by asking of one day after the other whether it is one of them: for the
// rule of a record, for a rule of vCalendar 1.0 ("Recurrence Rule Grammar") and for an RRULE (RFC 2445,
// section 4.3.10). All times are on one clock: a Z in a text is not looked at.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "reference/day_table.h"

namespace vzapi::reference {

struct Moment {
    Date date;
    int second_of_day = 0;

    friend auto operator<=>(const Moment&, const Moment&) = default;
};

// The dates looked for: from that of the start, which exists, to `last`; both between 1900 and 2499.
struct Window {
    Moment start;
    Date last;
};

// Frequency 1 to 4: daily, weekly, monthly, yearly. Bit 0 of `days` is Sunday; none: the weekday of the
// start. Position 1 to 4, 5 for the last; 0: the day of the month of the start.
struct RecordRule {
    int frequency = 0;
    std::uint64_t interval = 1;
    unsigned days = 0;
    unsigned position = 0;
    std::optional<Moment> until;
};

std::vector<Date> expand_record(const RecordRule& rule, const Window& window);

// Nothing for a text outside the basic grammar. The grammar in full, YD, fifth weekdays and all.
std::optional<std::vector<Date>> expand_basic_rule(const std::string& text, const Window& window);

// Nothing for a text that is no RRULE, for a frequency below a day, and for BYWEEKNO, BYHOUR and the like.
std::optional<std::vector<Date>> expand_rrule(const std::string& text, const Window& window);

// What the three have in common, for their own use.

// The days of the window for which `fits` holds, of these the first `count` (0: all), of these the ones not
// behind `until`.
std::vector<Date> collect(const Window& window, const std::function<bool(const Day&)>& fits,
                          std::uint64_t count, const std::optional<Moment>& until);

// Which month of all, which week of all when weeks begin on `first_weekday`.
int month_number(const Date& date);
int week_number(const Day& day, int first_weekday);

// The first Monday of a month is its Monday 1; its last one is Monday 1 from the end.
int rank_in_month(const Day& day);
int rank_from_end_of_month(const Day& day);

// SU to SA in capitals as 0 to 6.
std::optional<int> weekday_of_name(const std::string& name);

// Digits only; what is beyond 10^18 is that.
std::optional<std::uint64_t> number_of(const std::string& text);

// YYYYMMDD, also with '-'; alone the end of that day. THHMMSS and Z may follow. The day need not exist.
std::optional<Moment> moment_of(const std::string& text);

// The pieces between the separators, empty ones included.
std::vector<std::string> split(const std::string& text, char separator);
std::string trimmed(const std::string& text);
std::string capitals(std::string text);

}  // namespace vzapi::reference
