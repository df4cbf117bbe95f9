// The basic grammar of vCalendar 1.0, literally: blanks between all tokens.
#include <algorithm>
#include <set>

#include "reference/recurrence_reference.h"

namespace vzapi::reference {
namespace {

// Positions and the weekdays that have them; negative ones count from the end.
struct PositionGroup {
    std::set<int> positions;
    std::set<int> weekdays;
};

struct Rule {
    std::string letters;
    std::uint64_t interval = 1;
    std::vector<PositionGroup> groups;  // MP
    std::set<int> weekdays;             // W
    std::set<int> numbers;              // MD, YM, YD; negative ones count from the end
    std::optional<std::uint64_t> count;
    std::optional<Moment> end;
};

// A number from 1 to `greatest` with a sign behind it; without one it counts from the beginning.
std::optional<int> signed_number(std::string token, int greatest) {
    const bool is_negative = token.ends_with('-');
    if (is_negative || token.ends_with('+')) token.pop_back();
    const std::optional<std::uint64_t> number = number_of(token);
    if (!number || *number < 1 || *number > static_cast<std::uint64_t>(greatest)) return std::nullopt;
    return is_negative ? -static_cast<int>(*number) : static_cast<int>(*number);
}

bool add_to_groups(const std::string& token, std::vector<PositionGroup>& groups) {
    if (const std::optional<int> weekday = weekday_of_name(token)) {
        if (groups.empty()) return false;
        groups.back().weekdays.insert(*weekday);
        return true;
    }
    const std::optional<int> position = signed_number(token, 5);
    if (!position) return false;
    if (groups.empty() || !groups.back().weekdays.empty()) groups.emplace_back();
    groups.back().positions.insert(*position);
    return true;
}

bool add_number(const std::optional<int>& number, std::set<int>& numbers) {
    if (number) numbers.insert(*number);
    return number.has_value();
}

bool add_to_list(const std::string& token, Rule& rule) {
    if (rule.letters == "W") return add_number(weekday_of_name(token), rule.weekdays);
    if (rule.letters == "MP") return add_to_groups(token, rule.groups);
    if (rule.letters == "MD") return add_number(token == "LD" ? -1 : signed_number(token, 31), rule.numbers);
    if (token.ends_with('+') || token.ends_with('-')) return false;
    if (rule.letters == "YM") return add_number(signed_number(token, 12), rule.numbers);
    if (rule.letters == "YD") return add_number(signed_number(token, 366), rule.numbers);
    return false;
}

bool read_token(const std::string& token, Rule& rule) {
    if (token[0] == '#') {
        if (rule.count) return false;
        rule.count = number_of(token.substr(1));
        return rule.count.has_value();
    }
    if (token.size() >= 8) {
        if (rule.end) return false;
        rule.end = moment_of(token);
        return rule.end.has_value();
    }
    return !rule.count && !rule.end && add_to_list(token, rule);
}

std::vector<std::string> tokens_of(std::string text) {
    std::replace(text.begin(), text.end(), '\t', ' ');
    std::vector<std::string> tokens;
    for (const std::string& piece : split(capitals(text), ' ')) {
        if (!piece.empty()) tokens.push_back(piece);
    }
    return tokens;
}

std::optional<Rule> read_rule(const std::string& text) {
    std::string whole = trimmed(text);
    if (whole.ends_with('$')) whole.pop_back();
    const std::vector<std::string> tokens = tokens_of(whole);
    if (tokens.empty()) return std::nullopt;
    const std::size_t length = std::min(tokens[0].find_first_of("0123456789"), tokens[0].size());
    Rule rule;
    rule.letters = tokens[0].substr(0, length);
    if (!std::set<std::string>{"D", "W", "MP", "MD", "YM", "YD"}.contains(rule.letters)) return std::nullopt;
    if (length < tokens[0].size()) {
        const std::optional<std::uint64_t> interval = number_of(tokens[0].substr(length));
        if (!interval || *interval == 0) return std::nullopt;
        rule.interval = *interval;
    }
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        if (!read_token(tokens[i], rule)) return std::nullopt;
    }
    if (!rule.groups.empty() && rule.groups.back().weekdays.empty()) return std::nullopt;
    return rule;
}

// What the rule leaves open comes from the start.
void complete(Rule& rule, const Day& start) {
    if (rule.weekdays.empty()) rule.weekdays = {start.weekday};
    if (rule.groups.empty()) rule.groups = {{{rank_in_month(start)}, {start.weekday}}};
    if (rule.numbers.empty()) {
        rule.numbers = {rule.letters == "MD"   ? start.date.day
                        : rule.letters == "YM" ? start.date.month
                                               : start.day_of_year};
    }
    if (!rule.count && !rule.end) rule.count = 2;
}

bool is_in_groups(const std::vector<PositionGroup>& groups, const Day& day) {
    return std::any_of(groups.begin(), groups.end(), [&](const PositionGroup& group) {
        return group.weekdays.contains(day.weekday) &&
               (group.positions.contains(rank_in_month(day)) ||
                group.positions.contains(-rank_from_end_of_month(day)));
    });
}

bool fits(const Rule& rule, const Day& start, const Day& day) {
    constexpr int kMonday = 1;
    const auto is_due = [&](int periods) { return static_cast<std::uint64_t>(periods) % rule.interval == 0; };
    const int months = month_number(day.date) - month_number(start.date);
    const int years = day.date.year - start.date.year;
    if (rule.letters == "D") return is_due(day.number - start.number);
    if (rule.letters == "W") {
        return is_due(week_number(day, kMonday) - week_number(start, kMonday)) &&
               rule.weekdays.contains(day.weekday);
    }
    if (rule.letters == "MP") return is_due(months) && is_in_groups(rule.groups, day);
    if (rule.letters == "MD") {
        return is_due(months) && (rule.numbers.contains(day.date.day) ||
                                  rule.numbers.contains(day.date.day - day.month_length - 1));
    }
    if (rule.letters == "YM") {
        return is_due(years) && rule.numbers.contains(day.date.month) && day.date.day == start.date.day;
    }
    return is_due(years) && rule.numbers.contains(day.day_of_year);
}

}  // namespace

std::optional<std::vector<Date>> expand_basic_rule(const std::string& text, const Window& window) {
    const Day& start = *find_day(window.start.date);
    std::optional<Rule> rule = read_rule(text);
    if (!rule) return std::nullopt;
    complete(*rule, start);
    return collect(
        window, [&](const Day& day) { return fits(*rule, start, day); }, rule->count.value_or(0), rule->end);
}

}  // namespace vzapi::reference
