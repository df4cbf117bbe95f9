// The alarm of an entry: AALARM and DALARM, VALARM in version 2.0, the empty AALARM, the Z.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vcalendar/written_calendar.h"

namespace vzapi::test::calendar {
namespace {

// The lines from the times on to the type.
std::vector<std::string> alarm_lines(const Calendar& calendar, const Target& target = kPlain) {
    std::vector<std::string> found;
    const std::string text = written(calendar, target);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        const std::string line = text.substr(at, end - at);
        at = end + 2;
        for (const char* name : {"AALARM:", "DALARM:", "BEGIN:VALARM", "TRIGGER:", "ACTION:", "END:VALARM"}) {
            if (line.starts_with(name)) found.push_back(line);
        }
    }
    return found;
}

using Lines = std::vector<std::string>;

const Time kStart = local(2009, 3, 15, 14, 30);
const Time kAlarm = local(2009, 3, 15, 14, 15);

Calendar with_alarm(std::uint32_t kind, const Time& alarm, const Time& start = kStart,
                    std::uint32_t type = VZ_ITEM_APPOINTMENT) {
    Calendar calendar;
    calendar.type = type;
    calendar.start = start;
    calendar.alarm_kind = kind;
    calendar.alarm = alarm;
    return calendar;
}

TEST(CalendarAlarm, OnlyADisplayAlarmHasTwoLines) {
    const std::string value = "20090315T141500;;0;";
    for (const std::uint32_t type : {1U, 4U, 7U, 8U}) {
        for (const std::uint32_t kind : {0U, 1U, 2U, 3U, 4U, UINT32_MAX}) {
            const Lines expected =
                kind == 2 ? Lines{"AALARM:" + value, "DALARM:" + value} : Lines{"AALARM:" + value};
            EXPECT_EQ(alarm_lines(with_alarm(kind, kAlarm, kStart, type)), expected) << kind;
        }
    }
}

TEST(CalendarAlarm, Version2HasABlockWhateverTheKind) {
    for (const std::uint32_t kind : {0U, 1U, 2U, 3U}) {
        EXPECT_EQ(alarm_lines(with_alarm(kind, kAlarm), kVersion2),
                  (Lines{"BEGIN:VALARM", "TRIGGER:-P0DT0H15M0S", "ACTION:AUDIO", "END:VALARM"}));
    }
}

TEST(CalendarAlarm, TheTriggerCountsFromTheStart) {
    struct Row {
        Time start;
        Time alarm;
        std::string trigger;
    };
    const Row rows[] = {
        {kStart, kStart, "P0DT0H0M0S"},
        {kStart, local(2009, 3, 14, 13, 29, 59), "-P1DT1H0M1S"},
        {kStart, local(2009, 3, 15, 14, 31), "P0DT0H1M0S"},
        {utc(2009, 3, 15, 14, 30), utc(2009, 3, 15, 14), "-P0DT0H30M0S"},
        {kNoTime, kAlarm, "20090315T141500"},
        {kNoTime, utc(2009, 3, 15, 14, 15), "20090315T141500Z"},
        {utc(2009, 13, 1), kAlarm, "20090315T141500"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(alarm_lines(with_alarm(3, row.alarm, row.start), kVersion2),
                  (Lines{"BEGIN:VALARM", "TRIGGER:" + row.trigger, "ACTION:AUDIO", "END:VALARM"}));
    }
}

TEST(CalendarAlarm, AToDoHasNoBlockInVersion2) {
    EXPECT_EQ(alarm_lines(with_alarm(2, kAlarm, kStart, VZ_ITEM_TODO), kVersion2),
              (Lines{"AALARM:20090315T141500;;0;", "DALARM:20090315T141500;;0;"}));
}

TEST(CalendarAlarm, AnAlarmInUtcHasAZInBothLines) {
    for (const std::uint32_t type : {1U, 7U}) {
        EXPECT_EQ(alarm_lines(with_alarm(2, utc(2009, 3, 15, 14, 15), kStart, type)),
                  (Lines{"AALARM:20090315T141500Z;;0;", "DALARM:20090315T141500Z;;0;"}));
        for (const Time& alarm : {with_zones(kAlarm, 0xFFFF, 0), with_zones(kAlarm, 0, 0xFFFF)}) {
            EXPECT_EQ(alarm_lines(with_alarm(3, alarm, kStart, type)), Lines{"AALARM:20090315T141500;;0;"});
        }
        EXPECT_EQ(alarm_lines(with_alarm(3, with_zones(kAlarm, 0xFFFFF, -1), kStart, type)),
                  Lines{"AALARM:20090315T141500Z;;0;"});
    }
}

TEST(CalendarAlarm, TheAlarmOfADayLongToDoFloatsFromInterface15On) {
    struct Row {
        std::uint32_t type;
        Time start;
        std::uint32_t api_version;
        bool has_z;
    };
    const Time midnight = local(2009, 3, 15);
    const Row rows[] = {
        {7, midnight, 12, true},
        {7, midnight, 14, true},
        {7, midnight, 15, false},
        {7, midnight, 16, false},
        {7, utc(2009, 3, 15), 16, false},
        {7, kNoTime, 16, false},  // its time of day is midnight too
        {7, local(2009, 3, 15, 1), 16, true},
        {7, local(2009, 3, 15, 0, 1), 16, true},
        {7, local(2009, 3, 15, 0, 0, 1), 16, true},
        {4, midnight, 16, true},
    };
    for (const Row& row : rows) {
        const Calendar item = with_alarm(2, utc(2009, 3, 14, 9), row.start, row.type);
        const std::string value = row.has_z ? "20090314T090000Z;;0;" : "20090314T090000;;0;";
        EXPECT_EQ(alarm_lines(item, at_interface(row.api_version)),
                  (Lines{"AALARM:" + value, "DALARM:" + value}))
            << row.type << ' ' << row.api_version;
    }
}

TEST(CalendarAlarm, AnEntryWithoutAlarmHasAnEmptyLineUnlessAZoneWordHasFiveFs) {
    struct Row {
        std::int32_t zone1;
        std::int32_t zone2;
        bool has_line;
    };
    constexpr Row kRows[] = {
        {0, 0, true},        {0xFFFF, 0xFFFF, true},    {0xFFFF, 0, true},
        {-1, -1, true},      {0xFFFFE, 0x100000, true}, {0xFFFFF, 0xFFFFF, false},
        {0xFFFFF, 0, false}, {0, 0xFFFFF, false},       {0xFFFF, 0xFFFFF, false},
    };
    for (const Row& row : kRows) {
        for (const Time& none : {kNoTime, utc(2009, 13, 1), utc(1899, 12, 31)}) {
            for (const std::uint32_t type : {0U, 1U, 7U}) {
                for (const Target& target : {kPlain, kVersion2, at_interface(12)}) {
                    const Calendar item = with_alarm(2, with_zones(none, row.zone1, row.zone2), kStart, type);
                    EXPECT_EQ(alarm_lines(item, target), row.has_line ? Lines{"AALARM:"} : Lines{})
                        << std::hex << row.zone1 << ' ' << row.zone2;
                }
            }
        }
    }
}

}  // namespace
}  // namespace vzapi::test::calendar
