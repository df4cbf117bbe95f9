#include "vcalendar/alarm.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/machine_zone.h"
#include "vcalendar/time_text.h"

namespace vzapi::vcalendar {
namespace {

using test::text_of;
using test::time_at;
using Lines = std::vector<std::string>;

// "audio 20090315T143000", "display ...", or "none".
std::string alarm_in(const Lines& lines, std::string_view start, std::string_view end) {
    std::vector<versit::VersitProperty> properties;
    for (const std::string& line : lines) properties.emplace_back(line);
    const std::optional<Alarm> alarm = read_valarm(properties, time_at(start), time_at(end));
    if (!alarm) return "none";
    return (alarm->kind == VZ_ALARM_DISPLAY ? "display " : "audio ") + text_of(alarm->time);
}

struct ValueRow {
    std::string value;
    std::string expected;
};

TEST(AlarmValue, IsItsFirstComponent) {
    const ValueRow rows[] = {
        {"20090315T143000;;0;", "20090315T143000"},
        {"20090315T143000Z;PT5M;2;Taxes", "20090315T143000Z"},
        {"20090315T143000", "20090315T143000"},
        {"19960415T235959; ; ; file:///mmedia/taps.wav", "19960415T235959"},
        {" 2009-03-15T14:30:00Z ;", "20090315T143000Z"},
        {"20090315", "20090315T000000"},
        {"", "none"},
        {";20090315T143000", "none"},
        {"-PT15M", "none"},
        {"20090315T250000;;0;", "none"},
        {"20090315T143000,", "none"},
        {std::string(1U << 20, ';'), "none"},
        {"20090315T143000;" + std::string(1U << 20, ';'), "20090315T143000"},
    };
    for (const ValueRow& row : rows) EXPECT_EQ(text_of(parse_alarm_value(row.value)), row.expected);
}

struct TriggerRow {
    std::string trigger;
    std::string expected;
};

// Start 20090315T143000, end 20090316T000000Z.
const TriggerRow kTriggers[] = {
    {"TRIGGER:-PT15M", "audio 20090315T141500"},
    {"TRIGGER:-P15M", "audio 20090315T141500"},
    {"TRIGGER:-P0DT0H15M0S", "audio 20090315T141500"},
    {"TRIGGER:PT0S", "audio 20090315T143000"},
    {"TRIGGER:P0DT0H0M0S", "audio 20090315T143000"},
    {"TRIGGER:+PT1H", "audio 20090315T153000"},
    {"TRIGGER:-P1W", "audio 20090308T143000"},
    {"TRIGGER:-P1DT2H3M4S", "audio 20090314T122656"},
    {"TRIGGER:-P15D", "audio 20090228T143000"},
    {"trigger:-pt15m", "audio 20090315T141500"},
    {"TRIGGER;VALUE=DURATION:-PT15M", "audio 20090315T141500"},
    {"TRIGGER;RELATED=START:-PT15M", "audio 20090315T141500"},
    {"TRIGGER;RELATED=END:-PT15M", "audio 20090315T234500Z"},
    {"TRIGGER;VALUE=DURATION;related=end:PT1M", "audio 20090316T000100Z"},
    {"TRIGGER; RELATED = End :-PT15M", "audio 20090315T234500Z"},
    {"TRIGGER;RELATED=ENDING:-PT15M", "audio 20090315T141500"},
    {"TRIGGER;VALUE=DATE-TIME:20090315T120000Z", "audio 20090315T120000Z"},
    {"TRIGGER:20090315T120000", "audio 20090315T120000"},
    {"TRIGGER;RELATED=END:20090315T120000", "audio 20090315T120000"},
    {"TRIGGER:", "none"},
    {"TRIGGER:soon", "none"},
    {"TRIGGER:-15M", "none"},
    {"TRIGGER:20091315T120000Z", "none"},
    {"TRIGGER:-P40000D", "none"},
    {"TRIGGER:P3650000D", "none"},
    {"TRIGGER:P99999999999999999999D", "none"},
};

TEST(Valarm, EachTriggerIsItsTimeOrNone) {
    for (const TriggerRow& row : kTriggers) {
        const Lines lines = {"BEGIN:VEVENT", "BEGIN:VALARM", row.trigger,
                             "ACTION:AUDIO", "END:VALARM",   "END:VEVENT"};
        EXPECT_EQ(alarm_in(lines, "20090315T143000", "20090316T000000Z"), row.expected) << row.trigger;
    }
}

TEST(Valarm, ADurationNeedsTheTimeThatItCountsFrom) {
    const Lines from_start = {"BEGIN:VALARM", "TRIGGER:-PT15M", "END:VALARM"};
    EXPECT_EQ(alarm_in(from_start, "none", "20090315T143000"), "none");
    EXPECT_EQ(alarm_in(from_start, "20090315T143000", "none"), "audio 20090315T141500");
    const Lines from_end = {"BEGIN:VALARM", "TRIGGER;RELATED=END:-PT15M", "END:VALARM"};
    EXPECT_EQ(alarm_in(from_end, "20090315T143000", "none"), "none");
    const Lines absolute = {"BEGIN:VALARM", "TRIGGER:20090315T120000Z", "END:VALARM"};
    EXPECT_EQ(alarm_in(absolute, "none", "none"), "audio 20090315T120000Z");
}

struct BlockRow {
    Lines lines;
    std::string expected;
};

const BlockRow kBlocks[] = {
    {{}, "none"},
    {{"TRIGGER:-PT15M", "ACTION:DISPLAY"}, "none"},
    {{"BEGIN:VALARM", "ACTION:DISPLAY", "END:VALARM"}, "none"},
    {{"BEGIN:VALARM", "ACTION:DISPLAY", "TRIGGER:PT0S", "END:VALARM"}, "display 20090315T143000"},
    {{"BEGIN:VALARM", "TRIGGER:PT0S", "ACTION:display", "END:VALARM"}, "display 20090315T143000"},
    {{"BEGIN:VALARM", "TRIGGER:PT0S", "ACTION: DISPLAY ", "END:VALARM"}, "display 20090315T143000"},
    {{"begin:valarm", "trigger:PT0S", "action:display", "end:valarm"}, "display 20090315T143000"},
    {{"BEGIN: VALARM ", "TRIGGER:PT0S", "ACTION:EMAIL", "END:VALARM"}, "audio 20090315T143000"},
    {{"BEGIN:VALARM", "TRIGGER:PT0S", "END:VALARM"}, "audio 20090315T143000"},
    // Without its END it ends with the entry, or where the next one begins.
    {{"BEGIN:VALARM", "TRIGGER:PT0S", "ACTION:DISPLAY"}, "display 20090315T143000"},
    {{"BEGIN:VALARM", "TRIGGER:PT0S", "BEGIN:VALARM", "ACTION:DISPLAY", "END:VALARM"},
     "audio 20090315T143000"},
    // The first one with a time.
    {{"BEGIN:VALARM", "TRIGGER:PT1M", "END:VALARM", "BEGIN:VALARM", "TRIGGER:PT2M", "ACTION:DISPLAY",
      "END:VALARM"},
     "audio 20090315T143100"},
    {{"BEGIN:VALARM", "TRIGGER:soon", "ACTION:DISPLAY", "END:VALARM", "BEGIN:VALARM", "TRIGGER:PT2M",
      "END:VALARM"},
     "audio 20090315T143200"},
    {{"BEGIN:VALARM", "TRIGGER:soon", "TRIGGER:PT3M", "TRIGGER:PT4M", "END:VALARM"}, "audio 20090315T143300"},
    // Lines of other components are not its own.
    {{"BEGIN:VALARM", "BEGIN:X-MORE", "TRIGGER:PT1M", "ACTION:DISPLAY", "END:X-MORE", "TRIGGER:PT2M",
      "END:VALARM"},
     "audio 20090315T143200"},
    {{"BEGIN:VALARM", "BEGIN:X-MORE", "TRIGGER:PT1M", "END:VALARM", "BEGIN:VALARM", "TRIGGER:PT2M",
      "END:VALARM"},
     "audio 20090315T143200"},
    {{"BEGIN:X-MORE", "TRIGGER:PT1M", "END:X-MORE"}, "none"},
    {{"END:VALARM", "TRIGGER:PT1M", "END:VALARM"}, "none"},
    {{"BEGIN:VALARM", "END:VALARM", "TRIGGER:PT1M"}, "none"},
};

TEST(Valarm, TheFirstWithATimeCounts) {
    for (const BlockRow& row : kBlocks) {
        std::string shown;
        for (const std::string& line : row.lines) shown += line + "|";
        EXPECT_EQ(alarm_in(row.lines, "20090315T143000", "none"), row.expected) << shown;
    }
}

TEST(Valarm, ManyHostileLinesAreNoAlarm) {
    Lines lines;
    for (int i = 0; i < 10000; ++i) {
        lines.insert(lines.end(),
                     {"BEGIN:VALARM", "BEGIN:VALARM", "BEGIN:X", "END:Y", "END:Z", "TRIGGER:", "ACTION"});
    }
    lines.push_back("TRIGGER:P" + std::string(1U << 20, '9'));
    EXPECT_EQ(alarm_in(lines, "20090315T143000", "none"), "none");
}

struct WrittenRow {
    std::string alarm;
    std::string start;
    std::string expected;
};

TEST(Trigger, IsTheTimeFromStartToAlarm) {
    const WrittenRow rows[] = {
        {"20090315T141500", "20090315T143000", "-P0DT0H15M0S"},
        {"20090315T143000", "20090315T143000", "P0DT0H0M0S"},
        {"20090315T143000Z", "20090315T143000Z", "P0DT0H0M0S"},
        {"20090315T144501", "20090315T143000", "P0DT0H15M1S"},
        {"20090314T143000Z", "20090315T143000Z", "-P1DT0H0M0S"},
        {"20090228T130000", "20090301T143000", "-P1DT1H30M0S"},
        {"20080228T130000", "20080301T143000", "-P2DT1H30M0S"},
        {"19000101T000000", "99991231T235959", "-P2958463DT23H59M59S"},
        {"20090315T141500", "none", "20090315T141500"},
        {"20090315T141500Z", "none", "20090315T141500Z"},
    };
    for (const WrittenRow& row : rows) {
        EXPECT_EQ(trigger_value(time_at(row.alarm), time_at(row.start)), row.expected);
    }
}

TEST(TriggerInMachineZone, OneOfTwoInUtcCountsAsTheClockOfTheMachineShowsIt) {
    vzapi::test::in_machine_zone("America/New_York", [] {
        EXPECT_EQ(trigger_value(time_at("20090715T161500Z"), time_at("20090715T123000")), "-P0DT0H15M0S");
        EXPECT_EQ(trigger_value(time_at("20090115T171500Z"), time_at("20090115T123000")), "-P0DT0H15M0S");
        EXPECT_EQ(trigger_value(time_at("20090715T121500"), time_at("20090715T163000Z")), "-P0DT0H15M0S");
    });
    vzapi::test::in_machine_zone("America/New_York", [] {
        // Both in UTC: the hour that the clock of the machine skips between them is none that passes.
        EXPECT_EQ(trigger_value(time_at("20090308T060000Z"), time_at("20090308T080000Z")), "-P0DT2H0M0S");
        EXPECT_EQ(trigger_value(time_at("20090308T010000"), time_at("20090308T040000")), "-P0DT3H0M0S");
    });
    vzapi::test::in_machine_zone("Asia/Kolkata", [] {
        EXPECT_EQ(trigger_value(time_at("20090315T184500Z"), time_at("20090316T003000")), "-P0DT0H15M0S");
        EXPECT_EQ(trigger_value(time_at("20090315T184500Z"), time_at("20090315T190000Z")), "-P0DT0H15M0S");
    });
}

TEST(Trigger, RandomAlarmsComeBack) {
    std::mt19937_64 random(466);
    std::uniform_int_distribution<std::int64_t> counts(
        clock_of(time_at("19000101")).time_since_epoch().count(),
        clock_of(time_at("99991231")).time_since_epoch().count());
    for (int round = 0; round < 5000; ++round) {
        CalendarTime zone{};
        if (round % 2 == 0) mark_local(zone);
        const auto any_time = [&] {
            return time_of(std::chrono::local_seconds(std::chrono::seconds(counts(random))), zone).value();
        };
        const CalendarTime start = any_time();
        const CalendarTime alarm = any_time();
        const Lines lines = {"BEGIN:VALARM", "TRIGGER:" + trigger_value(alarm, start), "END:VALARM"};
        ASSERT_EQ(alarm_in(lines, text_of(start), "none"), "audio " + text_of(alarm));
    }
}

}  // namespace
}  // namespace vzapi::vcalendar
