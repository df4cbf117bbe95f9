// Rules of vCalendar 1.0: a frequency with its interval, a list of weekdays or numbers, a number of
// occurrences, an end date. "MP2 1+ SU #10".
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "vcalendar/calendar_time.h"
#include "vcalendar/recurrence_parts.h"
#include "vcalendar/recurrence_text.h"
#include "versit/ascii.h"

namespace vzapi::vcalendar {
namespace {

constexpr std::uint64_t kMonthsPerYear = 12;
constexpr std::uint64_t kDefaultCount = 2;  // of a rule that has neither a number of occurrences nor an end

// What the list of a rule holds.
enum class ListKind : std::uint8_t { None, Weekdays, Positions, MonthDays, Months };

struct FrequencyRow {
    std::string_view letters;
    std::uint32_t frequency;
    ListKind list;
};

// YD, days of the year, is not among them: no recurrence has those.
constexpr FrequencyRow kFrequencies[] = {
    // clang-format off
    {"MP", VZ_REPEAT_MONTHLY, ListKind::Positions},
    {"MD", VZ_REPEAT_MONTHLY, ListKind::MonthDays},
    {"YM", VZ_REPEAT_YEARLY,  ListKind::Months},
    {"D",  VZ_REPEAT_DAILY,   ListKind::None},
    {"W",  VZ_REPEAT_WEEKLY,  ListKind::Weekdays},
    // clang-format on
};

bool is_digit(char character) noexcept {
    return character >= '0' && character <= '9';
}

// A date begins with eight digits, or with four that are followed by '-' and one more.
bool begins_with_date(std::string_view text) noexcept {
    std::size_t digits = 0;
    while (digits < 8 && digits < text.size() && is_digit(text[digits])) ++digits;
    return digits == 8 || (digits == 4 && text.size() > 5 && text[4] == '-' && is_digit(text[5]));
}

// Takes the text apart from front to back. Every function takes something off the text, or fails.
class BasicRuleParser {
public:
    BasicRuleParser(std::string_view text, const CalendarTime& start) noexcept : rest_(text), start_(start) {}

    std::optional<Recurrence> parse() noexcept {
        if (!take_frequency()) return std::nullopt;
        for (skip_blanks(); !rest_.empty(); skip_blanks()) {
            if (!take_item()) return std::nullopt;
        }
        if (awaits_weekday_ || !fill_position()) return std::nullopt;
        if (!has_count_ && !has_end_) limits_.count = kDefaultCount;
        turn_twelve_months_into_a_year();
        return completed(rule_, limits_, start_);
    }

private:
    void skip_blanks() noexcept {
        while (!rest_.empty() && versit::is_blank(rest_.front())) rest_.remove_prefix(1);
    }

    bool take_frequency() noexcept {
        for (const FrequencyRow& row : kFrequencies) {
            if (!versit::starts_with_ignoring_case(rest_, row.letters)) continue;
            rest_.remove_prefix(row.letters.size());
            rule_.frequency = row.frequency;
            list_ = row.list;
            limits_.interval = take_number(rest_).value_or(1);
            return true;
        }
        return false;
    }

    bool take_item() noexcept {
        if (rest_.front() == '#') return take_count();
        if (begins_with_date(rest_)) return take_end();
        if (has_count_ || has_end_) return false;
        switch (list_) {
            case ListKind::None:
                return false;
            case ListKind::Weekdays:
                return take_weekday();
            case ListKind::Positions:
                return take_position_or_weekday();
            case ListKind::MonthDays:
                return take_month_day();
            case ListKind::Months:
                return take_month();
        }
        return false;
    }

    bool take_count() noexcept {
        rest_.remove_prefix(1);
        const std::optional<std::uint64_t> count = take_number(rest_);
        if (!count || has_count_) return false;
        has_count_ = true;
        limits_.count = *count;
        return true;
    }

    bool take_end() noexcept {
        const std::size_t length = std::min(rest_.find_first_of(" \t#"), rest_.size());
        const std::optional<CalendarTime> end = parse_end(rest_.substr(0, length));
        rest_.remove_prefix(length);
        if (!end || has_end_) return false;
        has_end_ = true;
        limits_.until = *end;
        return true;
    }

    bool take_weekday() noexcept {
        const std::optional<std::uint32_t> day = parse_weekday(rest_.substr(0, 2));
        if (!day) return false;
        rest_.remove_prefix(2);
        rule_.days |= *day;
        awaits_weekday_ = false;
        return true;
    }

    // A number of at most `greatest` with the sign behind it; '-' counts from the end.
    struct Number {
        std::uint32_t value;
        bool is_from_end;
    };

    std::optional<Number> take_signed(std::uint32_t greatest) noexcept {
        const std::optional<std::uint64_t> number = take_number(rest_);
        if (!number || *number == 0 || *number > greatest) return std::nullopt;
        const bool has_sign = !rest_.empty() && (rest_.front() == '+' || rest_.front() == '-');
        const bool is_from_end = has_sign && rest_.front() == '-';
        if (has_sign) rest_.remove_prefix(1);
        return Number{static_cast<std::uint32_t>(*number), is_from_end};
    }

    // Weekdays stand behind the positions that they have. A recurrence has one position, of all its weekdays.
    bool take_position_or_weekday() noexcept {
        if (!is_digit(rest_.front())) return rule_.position != VZ_POSITION_NONE && take_weekday();
        const std::optional<Number> number = take_signed(5);
        if (!number || (number->is_from_end ? number->value != 1 : number->value > VZ_POSITION_FOURTH)) {
            return false;
        }
        const std::uint32_t position = number->is_from_end ? std::uint32_t{VZ_POSITION_LAST} : number->value;
        if (rule_.position != VZ_POSITION_NONE && rule_.position != position) return false;
        rule_.position = position;
        awaits_weekday_ = true;
        return true;
    }

    // The only day that a recurrence by months has is that of its start; LD, the last one, it has not.
    bool take_month_day() noexcept {
        const std::optional<Number> day = take_signed(31);
        return day && !day->is_from_end && is_valid(start_) && day->value == start_.day;
    }

    bool take_month() noexcept {
        const std::optional<std::uint64_t> month = take_number(rest_);
        return month && is_valid(start_) && *month == start_.month;
    }

    // A rule by position without a list has those of its start, counted from the beginning of the month.
    bool fill_position() noexcept {
        if (list_ != ListKind::Positions || rule_.position != VZ_POSITION_NONE) return true;
        if (!is_valid(start_)) return false;
        rule_.position = (start_.day - 1U) / 7 + 1;
        return rule_.position <= VZ_POSITION_FOURTH;
    }

    void turn_twelve_months_into_a_year() noexcept {
        if (rule_.frequency != VZ_REPEAT_MONTHLY || limits_.interval % kMonthsPerYear != 0) return;
        rule_.frequency = VZ_REPEAT_YEARLY;
        limits_.interval /= kMonthsPerYear;
    }

    std::string_view rest_;
    const CalendarTime& start_;
    Recurrence rule_;
    Limits limits_;
    ListKind list_ = ListKind::None;
    bool awaits_weekday_ = false;
    bool has_count_ = false;
    bool has_end_ = false;
};

// "MP2": the letters of a frequency with an interval.
void append_frequency(std::string_view letters, std::uint64_t interval, std::string& text) {
    text += letters;
    append_number(interval, text);
}

void append_by_position(const Recurrence& rule, const CalendarTime& start, std::string& text) {
    const std::uint64_t months = rule.frequency == VZ_REPEAT_YEARLY ? kMonthsPerYear : 1;
    const bool is_last = position_of(rule) == VZ_POSITION_LAST;
    append_frequency("MP", interval_of(rule) * months, text);
    text += ' ';
    append_number(is_last ? 1 : position_of(rule), text);
    text += is_last ? "- " : "+ ";
    append_weekdays(days_of(rule, start), ' ', text);
}

void append_body(const Recurrence& rule, const CalendarTime& start, std::string& text) {
    if (rule.frequency == VZ_REPEAT_DAILY) {
        append_frequency("D", interval_of(rule), text);
    } else if (rule.frequency == VZ_REPEAT_WEEKLY) {
        append_frequency("W", interval_of(rule), text);
        text += ' ';
        append_weekdays(days_of(rule, start), ' ', text);
    } else if (position_of(rule) != VZ_POSITION_NONE) {
        append_by_position(rule, start, text);
    } else {
        const bool is_monthly = rule.frequency == VZ_REPEAT_MONTHLY;
        append_frequency(is_monthly ? "MD" : "YM", interval_of(rule), text);
        text += ' ';
        append_number(is_monthly ? start.day : start.month, text);
    }
}

}  // namespace

std::optional<Recurrence> parse_basic_rule(std::string_view text, const CalendarTime& start) {
    // A '$' at the end is the end marker of the extended grammar, and says nothing new there.
    text = versit::trim_blanks(text);
    if (text.ends_with('$')) text.remove_suffix(1);
    return BasicRuleParser(text, start).parse();
}

void append_basic_rule(const Recurrence& rule, const CalendarTime& start, std::string& text) {
    if (!recurs(rule) || (!is_complete(rule) && !is_valid(start))) return;
    append_body(rule, start, text);
    text += ' ';
    if (has_end(rule)) {
        append_zoned_date_text(rule.until, text);
    } else {
        text += "#0";
    }
}

}  // namespace vzapi::vcalendar
