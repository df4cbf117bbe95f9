#include "vcalendar/occurrences.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/machine_zone.h"
#include "vcalendar/calendar_time.h"
#include "vcalendar/recurrence_support.h"

namespace vzapi::test {
namespace {

using vcalendar::end_after;
using vcalendar::nth_occurrence;
using vcalendar::Recurrence;

constexpr std::uint32_t kHuge = UINT32_MAX;

std::string in_text(const std::optional<CalendarTime>& time) {
    if (!time) return "none";
    std::string text;
    vcalendar::append_zoned_date_text(*time, text);
    return text;
}

struct Row {
    const char* start;
    Recurrence rule;
    std::uint64_t number;
    const char* time;
};

const Row kRows[] = {
    // clang-format off
    {"20090310T143000",  {VZ_REPEAT_DAILY, 1, 0, 0, {}}, 1, "20090310T143000"},
    {"20090310T143000Z", {VZ_REPEAT_DAILY, 1, 0, 0, {}}, 2, "20090311T143000Z"},
    {"20090310T143000",  {VZ_REPEAT_DAILY, 0, 0, 0, {}}, 2, "20090311T143000"},
    {"20090310T143000",  {VZ_REPEAT_DAILY, 5, 0x7F, 5, {}}, 3, "20090320T143000"},
    {"19000101T000000",  {VZ_REPEAT_DAILY, 1, 0, 0, {}}, 2958464, "99991231T000000"},
    {"19000101T000000",  {VZ_REPEAT_DAILY, 1, 0, 0, {}}, 2958465, "none"},
    {"19000101T000000",  {VZ_REPEAT_DAILY, 2958463, 0, 0, {}}, 2, "99991231T000000"},
    {"19000101T000000",  {VZ_REPEAT_DAILY, 2958464, 0, 0, {}}, 2, "none"},
    // 10 March 2009 is a Tuesday.
    {"20090310T143000",  {VZ_REPEAT_WEEKLY, 1, 0, 0, {}}, 2, "20090317T143000"},
    {"20090310T143000",  {VZ_REPEAT_WEEKLY, 2, VZ_DAY_MONDAY, 0, {}}, 1, "20090323T143000"},
    {"20090310T143000",  {VZ_REPEAT_WEEKLY, 2, VZ_DAY_SUNDAY, 0, {}}, 1, "20090315T143000"},
    {"20090310T143000",  {VZ_REPEAT_WEEKLY, 2, VZ_DAY_SUNDAY | VZ_DAY_MONDAY, 0, {}}, 2, "20090323T143000"},
    {"20090310T143000",  {VZ_REPEAT_WEEKLY, 1, 0x7F, 0, {}}, 8, "20090317T143000"},
    {"99991225T000000",  {VZ_REPEAT_WEEKLY, 1, VZ_DAY_FRIDAY, 0, {}}, 1, "99991231T000000"},
    {"99991225T000000",  {VZ_REPEAT_WEEKLY, 1, VZ_DAY_FRIDAY, 0, {}}, 2, "none"},
    {"99991225T000000",  {VZ_REPEAT_WEEKLY, 1, VZ_DAY_SATURDAY, 0, {}}, 2, "none"},
    {"20090331T143000",  {VZ_REPEAT_MONTHLY, 1, 0, 0, {}}, 2, "20090531T143000"},
    {"20090310T143000",  {VZ_REPEAT_MONTHLY, 1, VZ_DAY_MONDAY, VZ_POSITION_SECOND, {}}, 1, "20090413T143000"},
    {"20090310T143000",  {VZ_REPEAT_MONTHLY, 1, 0, VZ_POSITION_SECOND, {}}, 2, "20090414T143000"},
    {"20090310T143000",  {VZ_REPEAT_MONTHLY, 1, VZ_DAY_SUNDAY, VZ_POSITION_LAST, {}}, 2, "20090426T143000"},
    {"20090310T143000",  {VZ_REPEAT_MONTHLY, 1, VZ_DAY_SUNDAY, 6, {}}, 2, "20090410T143000"},
    {"20080229T143000",  {VZ_REPEAT_YEARLY, 1, 0, 0, {}}, 2, "20120229T143000"},
    {"20000229T143000",  {VZ_REPEAT_YEARLY, 100, 0, 0, {}}, 2, "24000229T143000"},
    {"20090310T143000",  {VZ_REPEAT_YEARLY, 1, VZ_DAY_SUNDAY, VZ_POSITION_LAST, {}}, 2, "20100328T143000"},
    {"20090310T143000",  {VZ_REPEAT_YEARLY, 1, 0, 0, {}}, 7991, "99990310T143000"},
    {"20090310T143000",  {VZ_REPEAT_YEARLY, 1, 0, 0, {}}, 7992, "none"},
    {"20090310T143000",  {VZ_REPEAT_MONTHLY, 1, 0, 0, {}}, 95890, "99991210T143000"},
    {"20090310T143000",  {VZ_REPEAT_MONTHLY, 1, 0, 0, {}}, 95891, "none"},
    // clang-format on
};

TEST(Occurrences, AreCountedFromTheStart) {
    for (const Row& row : kRows) {
        EXPECT_EQ(in_text(nth_occurrence(row.rule, time_of_text(row.start), row.number)), row.time)
            << row.start << ", " << in_words(row.rule) << ", " << row.number;
    }
}

TEST(Occurrences, HugeIntervalsAndNumbersEndInFrontOfTheYear10000) {
    const CalendarTime start = time_of_text("20090310T143000");
    for (std::uint32_t frequency = VZ_REPEAT_DAILY; frequency <= VZ_REPEAT_YEARLY; ++frequency) {
        for (const std::uint32_t position : {0U, 2U, 5U}) {
            const Recurrence rare = {frequency, kHuge, 0, position, {}};
            const Recurrence often = {frequency, 1, 0x7F, position, {}};
            EXPECT_EQ(in_text(nth_occurrence(rare, start, 2)), "none") << in_words(rare);
            for (const std::uint64_t number : {UINT64_MAX, UINT64_MAX - 1, UINT64_MAX / 7 + 1}) {
                EXPECT_EQ(in_text(nth_occurrence(rare, start, number)), "none") << in_words(rare);
                EXPECT_EQ(in_text(nth_occurrence(often, start, number)), "none") << in_words(often);
            }
        }
    }
}

TEST(Occurrences, ThereIsNoneFromTheYear10000On) {
    CalendarTime start = time_of_text("99991231T143000");
    const Recurrence daily = {VZ_REPEAT_DAILY, 1, 0, 0, {}};
    EXPECT_EQ(in_text(nth_occurrence(daily, start, 1)), "99991231T143000");
    for (const unsigned year : {10000U, 32768U, 65535U}) {
        start.year = static_cast<std::uint16_t>(year);
        for (std::uint32_t frequency = VZ_REPEAT_DAILY; frequency <= VZ_REPEAT_YEARLY; ++frequency) {
            EXPECT_EQ(in_text(nth_occurrence({frequency, 1, 0, 0, {}}, start, 1)), "none") << year;
        }
    }
}

TEST(Occurrences, ADayThatDoesNotExistIsNeitherGivenNorCounted) {
    CalendarTime start = time_of_text("20090228T143000");
    start.day = 30;
    EXPECT_EQ(in_text(nth_occurrence({VZ_REPEAT_YEARLY, 1, 0, 0, {}}, start, 1)), "none");
    EXPECT_EQ(in_text(nth_occurrence({VZ_REPEAT_MONTHLY, 12, 0, 0, {}}, start, 1)), "none");
    EXPECT_EQ(in_text(nth_occurrence({VZ_REPEAT_MONTHLY, 1, 0, 0, {}}, start, 1)), "20090330T143000");
    start.month = 4;
    start.day = 31;
    EXPECT_EQ(in_text(nth_occurrence({VZ_REPEAT_MONTHLY, 1, 0, 0, {}}, start, 1)), "20090531T143000");
    EXPECT_EQ(in_text(nth_occurrence({VZ_REPEAT_DAILY, 1, 0, 0, {}}, start, 1)), "20090501T143000");
}

struct EndRow {
    const char* until;  // "" for none
    std::uint64_t number;
    const char* expected;
};

TEST(Occurrences, ARuleEndsWithItsNthOrEarlier) {
    const CalendarTime start = time_of_text("20090310T143000");
    const EndRow rows[] = {
        {"", 1, "20090310T143000"},
        {"", 3, "20090312T143000"},
        {"", UINT64_MAX, "does not end"},
        {"20090312T142959", 3, "20090312T142959"},
        {"20090312T143000", 3, "20090312T143000"},
        {"20090312T143001", 3, "20090312T143000"},
        {"20090101T000000", 3, "20090101T000000"},
        {"20090312T143001", UINT64_MAX, "20090312T143001"},
    };
    for (const EndRow& row : rows) {
        Recurrence rule = {VZ_REPEAT_DAILY, 1, 0, 0, {}};
        if (*row.until != '\0') rule.until = time_of_text(row.until);
        end_after(rule, start, row.number);
        const std::string end = rule.until.year == 0 ? "does not end" : in_text(rule.until);
        EXPECT_EQ(end, row.expected) << row.until << ", " << row.number;
    }
}

constexpr const char* kZones[] = {"UTC", "Europe/Berlin", "America/New_York", "Asia/Kolkata"};

CalendarTime seconds_after(const CalendarTime& time, int seconds) {
    const auto clock = vcalendar::clock_of(time) + std::chrono::seconds(seconds);
    return vcalendar::time_of(clock, time).value_or(CalendarTime{});
}

// The first occurrence, at the start itself, and an end in the other kind of time.
CalendarTime end_of(const CalendarTime& start, const CalendarTime& until) {
    Recurrence rule = {VZ_REPEAT_DAILY, 1, 0, 0, until};
    end_after(rule, start, 1);
    return rule.until;
}

void compare_times_of_different_kinds() {
    const CalendarTime utc = time_of_text("20090615T203000Z");
    const CalendarTime local = vcalendar::to_local(utc);
    for (const int seconds : {0, 1}) {
        EXPECT_EQ(in_text(end_of(seconds_after(local, seconds), utc)), in_text(utc));
        EXPECT_EQ(in_text(end_of(utc, seconds_after(local, -seconds))),
                  in_text(seconds_after(local, -seconds)));
    }
    EXPECT_EQ(in_text(end_of(seconds_after(local, -1), utc)), in_text(seconds_after(local, -1)));
    EXPECT_EQ(in_text(end_of(utc, seconds_after(local, 1))), in_text(utc));
}

TEST(OccurrencesInMachineZone, TimesOfDifferentKindsAreComparedOnTheClockOfThisMachine) {
    for (const char* zone : kZones) in_machine_zone(zone, compare_times_of_different_kinds);
}

// Half past two in summer time comes before two in winter time.
TEST(OccurrencesInMachineZone, TimesInUtcAreNotComparedOnTheClockOfThisMachine) {
    in_machine_zone("Europe/Berlin", [] {
        EXPECT_EQ(in_text(end_of(time_of_text("20081026T003000Z"), time_of_text("20081026T010000Z"))),
                  "20081026T003000Z");
    });
}

}  // namespace
}  // namespace vzapi::test
