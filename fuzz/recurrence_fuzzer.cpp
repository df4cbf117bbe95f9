// A recurrence: the first line is the start of the entry, or no date; what follows is the rule. Whatever is
// read means the dates of its text, comes back from both forms, and its occurrences are counted to an end.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_check.h"
#include "reference/recurrence_reference.h"
#include "vcalendar/calendar_time.h"
#include "vcalendar/occurrences.h"
#include "vcalendar/recurrence_text.h"

namespace vzapi::fuzz {
namespace {

using vcalendar::Recurrence;

std::string in_words(const Recurrence& rule) {
    std::string words = "frequency " + std::to_string(rule.frequency);
    words += " interval " + std::to_string(rule.interval) + " days " + std::to_string(rule.days);
    words += " position " + std::to_string(rule.position) + " until ";
    if (vcalendar::is_valid(rule.until)) vcalendar::append_zoned_date_text(rule.until, words);
    return words;
}

bool is_no_end(const CalendarTime& time) {
    std::string text;
    if (vcalendar::is_valid(time)) vcalendar::append_zoned_date_text(time, text);
    return text == "21001230T000000Z";
}

void check_way_back(const Recurrence& rule, const CalendarTime& start, const std::string& shown) {
    std::string text;
    vcalendar::append_rrule(rule, start, text);
    std::optional<Recurrence> again = vcalendar::parse_rrule(text, start);
    Recurrence expected = rule;
    if (is_no_end(expected.until)) expected.until = {};
    check(text.empty() || (again && in_words(*again) == in_words(expected)), shown + "\nis " + text);
    text.clear();
    vcalendar::append_basic_rule(rule, start, text);
    again = vcalendar::parse_basic_rule(text, start);
    expected = rule;
    if (expected.frequency == VZ_REPEAT_MONTHLY && expected.interval % 12 == 0) {
        expected.frequency = VZ_REPEAT_YEARLY;
        expected.interval /= 12;
    }
    check(text.empty() || (again && in_words(*again) == in_words(expected)), shown + "\nis " + text);
    check(!text.empty() || !vcalendar::is_valid(start), "is written where there is a start: " + shown);
}

void check_occurrences(const Recurrence& rule, const CalendarTime& start, const std::string& shown) {
    const auto first = vcalendar::nth_occurrence(rule, start, 1);
    check(!first || vcalendar::clock_of(*first) >= vcalendar::clock_of(start), "none is before: " + shown);
    check(!vcalendar::nth_occurrence(rule, start, UINT64_MAX), "there is an end: " + shown);
}

reference::Moment moment_of(const CalendarTime& time) {
    return {{time.year, time.month, time.day}, (time.hour * 60 + time.minute) * 60 + time.second};
}

// The oracle knows one kind of time only, and separates all tokens of vCalendar 1.0 with blanks.
void check_dates(const Recurrence& rule, const CalendarTime& start, const std::string& text,
                 const std::string& shown) {
    constexpr int kYears = 9;
    const reference::Window window = {moment_of(start), {start.year + kYears, 12, 31}};
    const bool has_end = vcalendar::is_valid(rule.until);
    if (start.year > 2100 || reference::find_day(window.start.date) == nullptr) return;
    if (has_end && vcalendar::is_utc(rule.until) != vcalendar::is_utc(start)) return;
    reference::RecordRule same;
    same.frequency = static_cast<int>(rule.frequency);
    same.interval = rule.interval;
    same.days = rule.days;
    same.position = rule.position;
    if (has_end) same.until = moment_of(rule.until);
    const bool is_rrule = reference::capitals(text).find("FREQ") != std::string::npos;
    const auto dates =
        is_rrule ? reference::expand_rrule(text, window) : reference::expand_basic_rule(text, window);
    check(dates || !is_rrule, "is no RRULE: " + shown);
    if (!dates) return;
    const std::string actual = reference::shown(reference::expand_record(same, window));
    check(actual == reference::shown(*dates),
          shown + "\nhas " + reference::shown(*dates) + "\nnot " + actual);
}

}  // namespace
}  // namespace vzapi::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi;
    if (size > fuzz::kLongestInput) return 0;
    const std::string input(data, data + size);
    const std::size_t line_end = input.find('\n');
    if (line_end == std::string::npos) return 0;  // without a rule
    const auto date = vcalendar::parse_date_text(std::string_view(input).substr(0, line_end));
    const CalendarTime start = date ? date->time : CalendarTime{};
    const std::string text = input.substr(line_end + 1);
    const std::optional<vcalendar::Recurrence> rule = vcalendar::parse_recurrence(text, start);
    if (!rule) return 0;
    const std::string shown = input + "\n" + fuzz::in_words(*rule);
    fuzz::check(vcalendar::recurs(*rule) && rule->interval != 0, "recurs: " + shown);
    fuzz::check_way_back(*rule, start, shown);
    if (!date) return 0;
    fuzz::check_occurrences(*rule, start, shown);
    fuzz::check_dates(*rule, start, text, shown);
    return 0;
}
