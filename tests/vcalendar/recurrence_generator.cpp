#include "vcalendar/recurrence_generator.h"

#include <array>
#include <string_view>

#include "reference/day_table.h"
#include "vcalendar/calendar_time.h"

namespace vzapi::test {
namespace {

constexpr std::array<std::string_view, 7> kWeekdays = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

std::string joined(const std::string& list, char separator, const std::string& item) {
    return list.empty() ? item : list + separator + item;
}

}  // namespace

CalendarTime RecurrenceGenerator::start() {
    constexpr std::uint32_t kDaysBefore1980 = 29219;
    const reference::Date date = reference::day_table()[kDaysBefore1980 + below(50 * 365)].date;
    CalendarTime time{};
    time.year = static_cast<std::uint16_t>(date.year);
    time.month = static_cast<std::uint8_t>(date.month);
    time.day = static_cast<std::uint8_t>(date.day);
    time.hour = static_cast<std::uint8_t>(below(24));
    time.minute = static_cast<std::uint8_t>(below(60));
    time.second = static_cast<std::uint8_t>(below(60));
    chance(2) ? vcalendar::mark_utc(time) : vcalendar::mark_local(time);
    return time;
}

CalendarTime RecurrenceGenerator::end(const CalendarTime& start) {
    CalendarTime time = start;
    time.year = static_cast<std::uint16_t>(time.year + below(12));
    time.month = static_cast<std::uint8_t>(below(12) + 1);
    time.day = static_cast<std::uint8_t>(below(28) + 1);
    if (chance(2)) time.hour = static_cast<std::uint8_t>(below(24));
    return time;
}

std::uint32_t RecurrenceGenerator::interval() {
    if (chance(4)) return 1;
    if (chance(3)) return static_cast<std::uint32_t>(engine_()) >> below(32);
    return below(256);
}

vcalendar::Recurrence RecurrenceGenerator::record(const CalendarTime& start) {
    vcalendar::Recurrence rule = narrow_record(start);
    rule.interval = interval();
    return rule;
}

vcalendar::Recurrence RecurrenceGenerator::narrow_record(const CalendarTime& start) {
    vcalendar::Recurrence rule;
    rule.frequency = below(4) + 1;
    rule.interval = chance(2) ? below(4) : below(256);
    rule.days = chance(4) ? 0 : below(chance(8) ? 1024 : 128);
    rule.position = chance(3) ? 0 : below(chance(8) ? 16 : 6);
    if (chance(2)) rule.until = end(start);
    return rule;
}

std::string RecurrenceGenerator::weekday() {
    return std::string(kWeekdays[below(7)]);
}

std::string RecurrenceGenerator::small_interval() {
    if (chance(5)) return std::to_string(12 * (below(3) + 1));
    return std::to_string(chance(2) ? 1 : below(8) + 1);
}

std::string RecurrenceGenerator::number_list(std::uint32_t usual, std::uint32_t greatest, char separator) {
    std::string list;
    do {
        list = joined(list, separator, std::to_string(chance(8) ? below(greatest) + 1 : usual));
    } while (chance(5));
    return list;
}

std::string RecurrenceGenerator::list_of_basic_rule(const std::string& letters, const CalendarTime& start) {
    if (letters == "D" || chance(5)) return "";
    if (letters == "MD") return " " + number_list(start.day, 31, ' ') + (chance(12) ? " LD" : "");
    if (letters == "YM") return " " + number_list(start.month, 12, ' ');
    if (letters == "YD") return " " + number_list(60, 366, ' ');
    const bool has_positions = letters == "MP";
    std::string list;
    do {
        const bool is_from_end = chance(3);
        const std::uint32_t position = is_from_end && !chance(6) ? 1 : below(5) + 1;
        if (has_positions) list += " " + std::to_string(position) + (is_from_end ? "-" : "+");
        do list += " " + weekday();
        while (chance(2));
    } while (chance(8));
    return list;
}

std::string RecurrenceGenerator::basic_rule(const CalendarTime& start) {
    constexpr std::array<std::string_view, 12> kLetters = {"D",  "W",  "W",  "MP", "MP", "MP",
                                                           "MD", "MD", "MD", "YM", "YM", "YD"};
    const std::string letters(kLetters[below(kLetters.size())]);
    std::string text = letters + small_interval() + list_of_basic_rule(letters, start);
    if (chance(2)) text += " #" + std::to_string(below(chance(2) ? 3 : 40));
    if (chance(3)) {
        text += ' ';
        vcalendar::append_zoned_date_text(end(start), text);
    }
    return text;
}

std::string RecurrenceGenerator::by_days(const std::string& frequency) {
    const bool has_ordinals = (frequency == "MONTHLY" || frequency == "YEARLY") && chance(2);
    const std::int32_t ordinal = chance(3) ? -1 : static_cast<std::int32_t>(below(5)) + 1;
    std::string list;
    do {
        const std::int32_t its_own = chance(10) ? -2 : ordinal;
        list = joined(list, ',', (has_ordinals ? std::to_string(its_own) : "") + weekday());
    } while (chance(2));
    return ";BYDAY=" + list;
}

std::string RecurrenceGenerator::by_month_days(const CalendarTime& start) {
    if (chance(2)) return ";BYMONTHDAY=" + number_list(start.day, 31, ',');
    const bool is_last = chance(3);
    const std::int32_t first = is_last ? -7 : static_cast<std::int32_t>(below(5)) * 7 + 1;
    std::string list;
    for (std::int32_t day = first; day < first + (chance(12) ? 6 : 7) && day < 32; ++day) {
        list = joined(list, ',', std::to_string(day));
    }
    return ";BYMONTHDAY=" + list;
}

std::string RecurrenceGenerator::rrule(const CalendarTime& start) {
    constexpr std::array<std::string_view, 4> kFrequencies = {"DAILY", "WEEKLY", "MONTHLY", "YEARLY"};
    const std::string frequency(kFrequencies[below(4)]);
    const bool is_by_month = frequency == "MONTHLY" || frequency == "YEARLY";
    std::string text = "FREQ=" + frequency;
    if (chance(2)) text += ";INTERVAL=" + small_interval();
    if (chance(3)) text += ";COUNT=" + std::to_string(below(40) + 1);
    if (frequency == "YEARLY" ? !chance(4) : chance(12)) {
        text += ";BYMONTH=" + number_list(start.month, 12, ',');
    }
    if (is_by_month ? chance(2) : chance(20)) text += by_month_days(start);
    if (frequency == "DAILY" ? chance(4) : chance(2)) text += by_days(frequency);
    if (is_by_month && chance(4)) text += ";BYSETPOS=" + std::to_string(chance(3) ? -1 : int(below(5)) + 1);
    if (chance(3)) text += ";WKST=" + weekday();
    if (text.find("COUNT") == std::string::npos && chance(3)) {
        text += ";UNTIL=";
        vcalendar::append_zoned_date_text(end(start), text);
    }
    return text;
}

}  // namespace vzapi::test
