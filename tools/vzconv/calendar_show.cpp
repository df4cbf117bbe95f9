#include "vzconv/calendar_show.h"

#include <chrono>

#include "vzconv/calendar_parts.h"
#include "vzconv/calendar_time.h"
#include "vzconv/calendar_words.h"
#include "vzconv/readable.h"
#include "vzconv/recurrence_words.h"
#include "vzconv/unicode.h"
#include "vzconv/utc_offset.h"

namespace vzconv {
namespace {

namespace chrono = std::chrono;

constexpr std::size_t kLabelWidth = 13;

bool is_birthday(const CalendarItem& item) {
    return has_birth_year(item.itemType);
}

// The last day of an entry of whole days: an end at midnight is that of the day before.
CalendarTime last_day_of(const CalendarItem& item) {
    if (!is_set(item.end)) return item.start;
    const chrono::local_seconds start = moment_of(item.start);
    const chrono::local_seconds end = moment_of(item.end);
    if (end <= start || !is_midnight(item.end)) return item.end;
    return time_at(end - chrono::days(1), item.end);
}

// "Tue 10 March 2009, all day", "Tue 10 March 2009 to Thu 12 March 2009, all day".
std::string days_in_words(const CalendarItem& item) {
    const CalendarTime last = last_day_of(item);
    const std::string mark(utc_mark_of(item.start));
    const std::string first_day = day_in_words(item.start);
    if (!is_same_day(item.start, last)) return first_day + " to " + day_in_words(last) + ", all day" + mark;
    return is_birthday(item) ? first_day + mark : first_day + ", all day" + mark;
}

// "Tue 10 March 2009, 14:00 to 15:30".
std::string span_in_words(const CalendarTime& start, const CalendarTime& end) {
    if (!is_set(start)) return "until " + time_in_words(end);
    if (!is_set(end)) return time_in_words(start);
    const bool is_same_clock = is_utc(start) == is_utc(end);
    if (is_same_clock && moment_of(start) == moment_of(end)) return time_in_words(start);
    if (!is_same_clock) return time_in_words(start) + " to " + time_in_words(end);
    const std::string first = day_in_words(start) + ", " + clock_in_words(start);
    if (!is_same_day(start, end)) return first + " to " + time_in_words(end);
    return first + " to " + clock_in_words(end) + std::string(utc_mark_of(end));
}

void show_times(const CalendarItem& item, Readable& readable) {
    if (item.itemType == VZ_ITEM_TODO) {
        const std::string mark(utc_mark_of(item.start));
        if (is_day_long(item)) readable.field("Due", day_in_words(item.start) + mark);
        if (is_set(item.start) && !is_day_long(item)) readable.field("Due", time_in_words(item.start));
        if (is_set(item.end)) readable.field("End", time_in_words(item.end));
    } else if (is_day_long(item)) {
        readable.field("When", days_in_words(item));
    } else if (is_set(item.start) || is_set(item.end)) {
        readable.field("When", span_in_words(item.start, item.end));
    }
}

void show_repeat(const CalendarItem& item, Readable& readable) {
    const Repeat repeat = repeat_of(item);
    const std::string except = exceptions_in_words(exceptions_of(item), item.start);
    if (recurs(repeat)) {
        const std::string words = recurrence_in_words(repeat, item.start);
        readable.field("Repeats", except.empty() ? words : words + "; except " + except);
    } else if (!except.empty()) {
        readable.field("Except", except);
    }
}

std::string counted(int64_t number, const char* unit) {
    return std::to_string(number) + " " + unit + (number == 1 ? "" : "s");
}

// "1 hour 30 minutes"; nothing for a duration that takes more than two units.
std::string duration_in_words(chrono::seconds duration) {
    struct Unit {
        int64_t seconds;
        const char* name;
    };
    constexpr Unit kUnits[] = {
        {604800, "week"}, {86400, "day"}, {3600, "hour"}, {60, "minute"}, {1, "second"}};
    constexpr int kMostUnits = 2;
    std::string words;
    int64_t rest = duration.count();
    int units = 0;
    for (const Unit& unit : kUnits) {
        const int64_t number = rest / unit.seconds;
        rest %= unit.seconds;
        if (number == 0) continue;
        words += (words.empty() ? "" : " ") + counted(number, unit.name);
        ++units;
    }
    return units <= kMostUnits ? words : std::string();
}

// How long before the start, or due time, of the entry the alarm is; nothing where its own date says more.
std::string distance_in_words(const CalendarItem& item) {
    constexpr chrono::seconds kLongest = chrono::days(28);
    if (!is_set(item.start) || is_day_long(item) || is_utc(item.start) != is_utc(item.alarm)) return {};
    const bool is_todo = item.itemType == VZ_ITEM_TODO;
    const chrono::seconds after = moment_of(item.alarm) - moment_of(item.start);
    if (after == chrono::seconds(0)) return is_todo ? "when it is due" : "at the start";
    if (chrono::abs(after) > kLongest) return {};
    const std::string duration = duration_in_words(chrono::abs(after));
    if (duration.empty()) return {};
    if (after < chrono::seconds(0)) return duration + " before";
    return duration + (is_todo ? " after it is due" : " after the start");
}

void show_alarm(const CalendarItem& item, Readable& readable) {
    if (!is_set(item.alarm)) return;
    const std::string distance = distance_in_words(item);
    const std::string_view kind = item.alarmKind == VZ_ALARM_DISPLAY ? ", display" : ", sound";
    readable.field("Alarm", (distance.empty() ? time_in_words(item.alarm) : distance) + std::string(kind));
}

std::string code_in_words(std::span<const CodeWord> words, uint32_t code) {
    const std::string_view word = word_of(words, code);
    return word.empty() ? "unknown (" + std::to_string(code) + ")" : std::string(word);
}

// The value of a field; empty when it says nothing.
std::string value_in_words(const CalendarWord& word, const CalendarField& field) {
    const auto number = static_cast<uint32_t>(field.value.number);
    switch (word.kind) {
        case CalendarValueKind::Class:
            return code_in_words(class_words(), number);
        case CalendarValueKind::Status:
            return code_in_words(status_words(), number);
        case CalendarValueKind::Priority:
            return number == 0 ? "" : std::to_string(number) + (number == 1 ? " (highest)" : "");
        case CalendarValueKind::BirthYear:
            return number == 0 ? "" : std::to_string(number);
        default:
            break;
    }
    if (field.value.text == nullptr) return {};
    if (word.kind == CalendarValueKind::Geo) {
        const CalendarGeo& geo = *field.value.geo;
        return "latitude " + text_of(geo.latitude) + ", longitude " + text_of(geo.longitude);
    }
    if (word.kind == CalendarValueKind::Reference) {
        const uint32_t* numbers = field.value.reference->numbers;
        return std::to_string(numbers[0]) + ", " + std::to_string(numbers[1]) + ", " +
               std::to_string(numbers[2]);
    }
    return text_of(field.value.text);
}

void show_fields(const CalendarItem& item, const CalendarWord& word, Readable& readable) {
    for (const CalendarField& field : fields_of(item)) {
        if (calendar_word_of(field.fieldId, item.itemType) != &word) continue;
        const std::string value = value_in_words(word, field);
        if (!value.empty()) readable.field(word.label, value);
    }
}

// "UTC+01:00 (CET)".
std::string zone_in_words(int32_t offset, const char* name) {
    std::string words = "UTC" + utc_offset_of(offset);
    if (name != nullptr && *name != '\0') words += " (" + utf8_from_utf16(utf16_from_utf8(name)) + ")";
    return words;
}

// When daylight-saving time begins and ends; nothing where neither is said.
std::string rule_in_words(const DaylightRule& rule) {
    std::string words;
    if (is_set(rule.begin)) words += "\nfrom " + time_in_words(rule.begin);
    if (is_set(rule.end)) words += (words.empty() ? "\nuntil " : " to ") + time_in_words(rule.end);
    return words;
}

void show_zone(const CalendarItem& item, Readable& readable) {
    if (!has_zone(item)) return;
    const std::span<const DaylightRule> rules = daylight_rules_of(item);
    std::string words = zone_in_words(item.standardOffset, item.standardName);
    if (has_daylight(item)) {
        words += ", daylight-saving time " + zone_in_words(item.daylightOffset, item.daylightName);
    } else if (!rules.empty()) {
        words += ", no daylight-saving time";
    }
    for (const DaylightRule& rule : rules) words += rule_in_words(rule);
    readable.field("Time zone", words);
}

}  // namespace

std::string show_calendar(const CalendarItem& item) {
    Readable readable(heading_of(item.itemType), kLabelWidth);
    const std::span<const CalendarWord> words = calendar_words();
    show_fields(item, words.front(), readable);
    show_times(item, readable);
    show_repeat(item, readable);
    show_alarm(item, readable);
    for (const CalendarWord& word : words.subspan(1)) show_fields(item, word, readable);
    show_zone(item, readable);
    return readable.text();
}

}  // namespace vzconv
