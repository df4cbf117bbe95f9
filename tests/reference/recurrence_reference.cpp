#include "reference/recurrence_reference.h"

#include <algorithm>
#include <array>

#include "reference/text_reference.h"

namespace vzapi::reference {
namespace {

bool is_number(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

bool has_weekday(unsigned days, int weekday) {
    return (days >> weekday) % 2 == 1;
}

bool has_position(unsigned position, const Day& day) {
    return position == 5 ? rank_from_end_of_month(day) == 1
                         : rank_in_month(day) == static_cast<int>(position);
}

std::string without(std::string text, char character) {
    text.erase(std::remove(text.begin(), text.end(), character), text.end());
    return text;
}

// The text without its separators; nothing when they do not stand exactly there, or in part.
std::optional<std::string> without_separators(const std::string& text, char separator, std::size_t first,
                                              std::size_t second) {
    if (text.find(separator) == std::string::npos) return text;
    const std::string bare = without(text, separator);
    const bool fits = text.size() == bare.size() + 2 && text[first] == separator && text[second] == separator;
    return fits ? std::optional(bare) : std::nullopt;
}

std::optional<Date> date_of(const std::string& text) {
    const std::optional<std::string> bare = without_separators(text, '-', 4, 7);
    if (!bare || bare->size() != 8 || !is_number(*bare)) return std::nullopt;
    const Date date{std::stoi(bare->substr(0, 4)), std::stoi(bare->substr(4, 2)),
                    std::stoi(bare->substr(6, 2))};
    const bool is_one =
        date.year >= 1900 && date.month >= 1 && date.month <= 12 && date.day >= 1 && date.day <= 31;
    return is_one ? std::optional(date) : std::nullopt;
}

std::optional<int> second_of_day(const std::string& text) {
    const std::optional<std::string> bare = without_separators(text, ':', 2, 5);
    if (!bare || bare->size() != 6 || !is_number(*bare)) return std::nullopt;
    const int hour = std::stoi(bare->substr(0, 2));
    const int minute = std::stoi(bare->substr(2, 2));
    const int second = std::stoi(bare->substr(4, 2));
    if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return (hour * 60 + minute) * 60 + second;
}

}  // namespace

int month_number(const Date& date) {
    return date.year * 12 + date.month - 1;
}

int week_number(const Day& day, int first_weekday) {
    // Day 0 is a Monday; a whole week in front keeps the numbers positive.
    return (day.number + 7 - (first_weekday + 6) % 7) / 7;
}

int rank_in_month(const Day& day) {
    return (day.date.day - 1) / 7 + 1;
}

int rank_from_end_of_month(const Day& day) {
    return (day.month_length - day.date.day) / 7 + 1;
}

std::vector<Date> collect(const Window& window, const std::function<bool(const Day&)>& fits,
                          std::uint64_t count, const std::optional<Moment>& until) {
    std::vector<Date> dates;
    const std::vector<Day>& table = day_table();
    const Day* first = find_day(window.start.date);
    for (auto i = static_cast<std::size_t>(first->number); i < table.size(); ++i) {
        const Day& day = table[i];
        if (day.date > window.last || (count > 0 && dates.size() == count)) break;
        if (until && Moment{day.date, window.start.second_of_day} > *until) break;
        if (fits(day)) dates.push_back(day.date);
    }
    return dates;
}

std::vector<Date> expand_record(const RecordRule& rule, const Window& window) {
    constexpr int kMonday = 1;
    const Day& start = *find_day(window.start.date);
    const std::uint64_t interval = rule.interval == 0 ? 1 : rule.interval;
    const unsigned days = rule.days == 0 ? 1U << start.weekday : rule.days;
    const auto is_due = [&](int periods) { return static_cast<std::uint64_t>(periods) % interval == 0; };
    const auto is_its_day = [&](const Day& day) {
        if (rule.position == 0) return day.date.day == start.date.day;
        return has_weekday(days, day.weekday) && has_position(rule.position, day);
    };
    const auto fits = [&](const Day& day) {
        switch (rule.frequency) {
            case 1:
                return is_due(day.number - start.number);
            case 2:
                return is_due(week_number(day, kMonday) - week_number(start, kMonday)) &&
                       has_weekday(days, day.weekday);
            case 3:
                return is_due(month_number(day.date) - month_number(start.date)) && is_its_day(day);
            case 4:
                return is_due(day.date.year - start.date.year) && day.date.month == start.date.month &&
                       is_its_day(day);
            default:
                return false;
        }
    };
    return collect(window, fits, 0, rule.until);
}

std::optional<int> weekday_of_name(const std::string& name) {
    static const std::array<std::string, 7> kNames = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    const auto found = std::find(kNames.begin(), kNames.end(), name);
    if (found == kNames.end()) return std::nullopt;
    return static_cast<int>(found - kNames.begin());
}

std::optional<std::uint64_t> number_of(const std::string& text) {
    constexpr std::uint64_t kGreatest = 1'000'000'000'000'000'000;
    if (!is_number(text)) return std::nullopt;
    const std::size_t first = std::min(text.find_first_not_of('0'), text.size() - 1);
    return text.size() - first > 18 ? kGreatest : std::stoull(text.substr(first));
}

std::optional<Moment> moment_of(const std::string& text) {
    const std::size_t end_of_date = text.find('T');
    const std::optional<Date> date = date_of(text.substr(0, end_of_date));
    if (!date) return std::nullopt;
    if (end_of_date == std::string::npos) return Moment{*date, 24 * 60 * 60 - 1};
    std::string time = text.substr(end_of_date + 1);
    if (time.ends_with('Z')) time.pop_back();
    const std::optional<int> second = second_of_day(time);
    if (!second) return std::nullopt;
    return Moment{*date, *second};
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> pieces(1);
    for (const char character : text) {
        if (character == separator) {
            pieces.emplace_back();
        } else {
            pieces.back() += character;
        }
    }
    return pieces;
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string capitals(std::string text) {
    return upper_cased(std::move(text));
}

}  // namespace vzapi::reference
