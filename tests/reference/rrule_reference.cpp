// RRULE of RFC 2445, literally: the days of each period that every part lets through, then BYSETPOS.
#include <algorithm>
#include <map>
#include <set>

#include "reference/recurrence_reference.h"

namespace vzapi::reference {
namespace {

struct ByDay {
    int ordinal;  // 0: every one
    int weekday;
};

struct Rule {
    std::string frequency;
    std::uint64_t interval = 1;
    std::uint64_t count = 0;
    std::optional<Moment> until;
    std::vector<ByDay> by_day;
    std::set<int> by_month_day;
    std::set<int> by_month;
    std::set<int> by_year_day;
    std::set<int> by_set_position;
    int week_start = 1;
};

std::optional<int> signed_number(const std::string& text, int greatest) {
    const bool has_sign = text.starts_with('-') || text.starts_with('+');
    const std::optional<std::uint64_t> number = number_of(text.substr(has_sign ? 1 : 0));
    if (!number || *number < 1 || *number > static_cast<std::uint64_t>(greatest)) return std::nullopt;
    return text.starts_with('-') ? -static_cast<int>(*number) : static_cast<int>(*number);
}

bool read_numbers(const std::string& value, int greatest, std::set<int>& numbers) {
    for (const std::string& item : split(value, ',')) {
        const std::optional<int> number = signed_number(trimmed(item), greatest);
        if (!number) return false;
        numbers.insert(*number);
    }
    return true;
}

bool read_by_day(const std::string& value, std::vector<ByDay>& by_day) {
    for (const std::string& untrimmed : split(value, ',')) {
        const std::string item = trimmed(untrimmed);
        if (item.size() < 2) return false;
        const std::optional<int> weekday = weekday_of_name(item.substr(item.size() - 2));
        const std::string before = item.substr(0, item.size() - 2);
        const std::optional<int> ordinal = before.empty() ? 0 : signed_number(before, 53);
        if (!weekday || !ordinal) return false;
        by_day.push_back({*ordinal, *weekday});
    }
    return true;
}

bool read_positive(const std::string& value, std::uint64_t& number) {
    number = number_of(value).value_or(0);
    return number > 0;
}

bool read_part(const std::string& name, const std::string& value, Rule& rule) {
    if (name == "FREQ") {
        rule.frequency = value;
        return std::set<std::string>{"DAILY", "WEEKLY", "MONTHLY", "YEARLY"}.contains(value);
    }
    if (name == "INTERVAL") return read_positive(value, rule.interval);
    if (name == "COUNT") return read_positive(value, rule.count);
    if (name == "UNTIL") return (rule.until = moment_of(value)).has_value();
    if (name == "BYDAY") return read_by_day(value, rule.by_day);
    if (name == "BYMONTHDAY") return read_numbers(value, 31, rule.by_month_day);
    if (name == "BYMONTH") {
        return read_numbers(value, 12, rule.by_month) && value.find_first_of("+-") == std::string::npos;
    }
    if (name == "BYYEARDAY") return read_numbers(value, 366, rule.by_year_day);
    if (name == "BYSETPOS") return read_numbers(value, 366, rule.by_set_position);
    if (name == "WKST") {
        const std::optional<int> weekday = weekday_of_name(value);
        rule.week_start = weekday.value_or(1);
        return weekday.has_value();
    }
    return false;
}

bool has_ordinals(const Rule& rule) {
    return std::any_of(rule.by_day.begin(), rule.by_day.end(),
                       [](const ByDay& each) { return each.ordinal != 0; });
}

// Parts that the frequency does not have.
bool is_sound(const Rule& rule) {
    if (rule.frequency.empty()) return false;
    if (!rule.by_set_position.empty() && rule.by_day.empty() && rule.by_month_day.empty() &&
        rule.by_month.empty() && rule.by_year_day.empty()) {
        return false;
    }
    if (rule.frequency == "YEARLY") return true;
    if (!rule.by_year_day.empty()) return false;
    if (rule.frequency == "MONTHLY") return true;
    return !has_ordinals(rule) && (rule.frequency == "DAILY" || rule.by_month_day.empty());
}

std::optional<Rule> read_rule(const std::string& text) {
    Rule rule;
    std::set<std::string> names;
    for (const std::string& untrimmed : split(capitals(text), ';')) {
        const std::string part = trimmed(untrimmed);
        if (part.empty()) continue;
        const std::size_t equals_sign = part.find('=');
        if (equals_sign == std::string::npos) return std::nullopt;
        const std::string name = trimmed(part.substr(0, equals_sign));
        if (!names.insert(name).second) return std::nullopt;
        if (!read_part(name, trimmed(part.substr(equals_sign + 1)), rule)) return std::nullopt;
    }
    return is_sound(rule) ? std::optional(rule) : std::nullopt;
}

int period_of(const Rule& rule, const Day& day) {
    if (rule.frequency == "DAILY") return day.number;
    if (rule.frequency == "WEEKLY") return week_number(day, rule.week_start);
    return rule.frequency == "MONTHLY" ? month_number(day.date) : day.date.year;
}

// The ordinal counts in the month for monthly rules and for yearly ones with BYMONTH, else in the year.
bool has_ordinal(const Rule& rule, const Day& day, int ordinal) {
    if (ordinal == 0) return true;
    const bool is_of_year = rule.frequency == "YEARLY" && rule.by_month.empty();
    const int from_begin = is_of_year ? (day.day_of_year - 1) / 7 + 1 : rank_in_month(day);
    const int from_end =
        is_of_year ? (day.year_length - day.day_of_year) / 7 + 1 : rank_from_end_of_month(day);
    return ordinal == from_begin || ordinal == -from_end;
}

bool passes_by_day(const Rule& rule, const Day& day) {
    return rule.by_day.empty() || std::any_of(rule.by_day.begin(), rule.by_day.end(), [&](const ByDay& each) {
               return each.weekday == day.weekday && has_ordinal(rule, day, each.ordinal);
           });
}

// `position` counts from 1, `from_end` the same day from the end.
bool passes(const std::set<int>& numbers, int position, int from_end) {
    return numbers.empty() || numbers.contains(position) || numbers.contains(-from_end);
}

// What no part says comes from the start.
bool passes_start(const Rule& rule, const Day& start, const Day& day) {
    const bool has_days = !rule.by_day.empty() || !rule.by_month_day.empty() || !rule.by_year_day.empty();
    if (rule.frequency == "DAILY" || has_days) return true;
    if (rule.frequency == "WEEKLY") return day.weekday == start.weekday;
    if (day.date.day != start.date.day) return false;
    return rule.frequency == "MONTHLY" || !rule.by_month.empty() || day.date.month == start.date.month;
}

bool passes_parts(const Rule& rule, const Day& start, const Day& day) {
    return passes(rule.by_month, day.date.month, 0) &&
           passes(rule.by_month_day, day.date.day, day.month_length - day.date.day + 1) &&
           passes(rule.by_year_day, day.day_of_year, day.year_length - day.day_of_year + 1) &&
           passes_by_day(rule, day) && passes_start(rule, start, day);
}

// By period, those of the start's period in front of the start included: BYSETPOS counts them.
std::map<int, std::vector<const Day*>> days_by_period(const Rule& rule, const Window& window) {
    const Day& start = *find_day(window.start.date);
    const int first_period = period_of(rule, start);
    std::map<int, std::vector<const Day*>> periods;
    const std::vector<Day>& table = day_table();
    constexpr int kLongestPeriod = 366;
    for (int i = std::max(start.number - kLongestPeriod, 0); i < static_cast<int>(table.size()); ++i) {
        const Day& day = table[static_cast<std::size_t>(i)];
        const int period = period_of(rule, day);
        if (day.date.year > window.last.year + 1) break;
        if (period < first_period) continue;
        if (static_cast<std::uint64_t>(period - first_period) % rule.interval != 0) continue;
        if (passes_parts(rule, start, day)) periods[period].push_back(&day);
    }
    return periods;
}

std::set<int> numbers_of_chosen_days(const Rule& rule, const Window& window) {
    std::set<int> chosen;
    for (const auto& [period, days] : days_by_period(rule, window)) {
        const int count = static_cast<int>(days.size());
        for (int i = 0; i < count; ++i) {
            if (passes(rule.by_set_position, i + 1, count - i)) {
                chosen.insert(days[static_cast<std::size_t>(i)]->number);
            }
        }
    }
    return chosen;
}

}  // namespace

std::optional<std::vector<Date>> expand_rrule(const std::string& text, const Window& window) {
    const std::optional<Rule> rule = read_rule(text);
    if (!rule) return std::nullopt;
    const std::set<int> chosen = numbers_of_chosen_days(*rule, window);
    return collect(
        window, [&](const Day& day) { return chosen.contains(day.number); }, rule->count, rule->until);
}

}  // namespace vzapi::reference
