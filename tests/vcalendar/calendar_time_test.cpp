#include "vcalendar/calendar_time.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "support/machine_zone.h"
#include "vcalendar/time_text.h"

namespace vzapi::vcalendar {
namespace {

using std::chrono::local_seconds;
using std::chrono::seconds;
using test::text_of;
using test::time_at;

// What a text is: its time and whether it was a bare date.
std::string reading_of(std::string_view text) {
    const std::optional<DateText> date = parse_date_text(text);
    if (!date) return "none";
    return text_of(date->time) + (date->is_bare_date ? " bare" : "");
}

struct TextRow {
    std::string text;
    std::string expected;
};

const TextRow kTexts[] = {
    {"20090315", "20090315T000000 bare"},
    {"2009-03-15", "20090315T000000 bare"},
    {"20090315T143000", "20090315T143000"},
    {"20090315T143000Z", "20090315T143000Z"},
    {"2009-03-15T14:30:00", "20090315T143000"},
    {"2009-03-15T14:30:00Z", "20090315T143000Z"},
    {"20090315T14:30:00Z", "20090315T143000Z"},
    {"2009-03-15T143000", "20090315T143000"},
    {"20090315t143000z", "20090315T143000Z"},
    {" \t20090315T143000Z \t", "20090315T143000Z"},
    {"20090101T000000", "20090101T000000"},
    {"20090101T000000Z", "20090101T000000Z"},
    // The edges.
    {"19000101T000000", "19000101T000000"},
    {"18991231T235959", "none"},
    {"99991231T235959Z", "99991231T235959Z"},
    {"00000101", "none"},
    {"21001230T000000Z", "21001230T000000Z"},
    {"20081231T235959", "20081231T235959"},
    {"20090015", "none"},
    {"20091315", "none"},
    {"20090300", "none"},
    {"20090332", "none"},
    {"20090315T240000", "none"},
    {"20090315T236000", "none"},
    {"20090315T235960", "none"},
    // Days are not held against the length of their month.
    {"20080229", "20080229T000000 bare"},
    {"20090229", "20090229T000000 bare"},
    {"20090231", "20090231T000000 bare"},
    // No dates.
    {"", "none"},
    {"Z", "none"},
    {"T", "none"},
    {"2009", "none"},
    {"200903", "none"},
    {"2009031", "none"},
    {"200903150", "none"},
    {"20090315Z", "none"},
    {"20090315T", "none"},
    {"20090315TZ", "none"},
    {"20090315T14", "none"},
    {"20090315T1430", "none"},
    {"20090315T14300", "none"},
    {"20090315T1430000", "none"},
    {"20090315T143000ZZ", "none"},
    {"20090315T143000+0100", "none"},
    {"20090315T143000.5", "none"},
    {"20090315 143000", "none"},
    {"2009-0315", "none"},
    {"200903-15", "none"},
    {"2009-3-15", "none"},
    {"2009/03/15", "none"},
    {"20090315T14:3000", "none"},
    {"20090315T1430:00", "none"},
    {"-20090315", "none"},
    {"+2009315", "none"},
    {"2009 315", "none"},
    {"20090315;", "none"},
    {"20090315T143000Z;20090316T143000Z", "none"},
    {std::string("20090315\0", 9), "none"},
    {std::string("2009\00015", 8), "none"},
    {"2009\xEF\xBC\x90"
     "315",
     "none"},
};

TEST(CalendarTimeText, EachTextIsItsTimeOrNone) {
    for (const TextRow& row : kTexts) EXPECT_EQ(reading_of(row.text), row.expected) << row.text;
}

TEST(CalendarTimeText, TheZoneWordsTellUtcFromLocal) {
    const CalendarTime local = time_at("20090315T143000");
    EXPECT_EQ(local.zone1, 0xFFFF);
    EXPECT_EQ(local.zone2, 0xFFFF);
    const CalendarTime utc = time_at("20090315T143000Z");
    EXPECT_EQ(utc.zone1, 0);
    EXPECT_EQ(utc.zone2, 0);
    EXPECT_EQ(time_at("20090315").zone1, 0xFFFF);
    EXPECT_EQ(utc.reserved, 0U);
    EXPECT_EQ(utc.padding, 0);
}

TEST(CalendarTimeText, NoPrefixOfATextIsReadBeyondItsEnd) {
    const std::string whole = "2009-03-15T14:30:00Z";
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const std::string prefix = whole.substr(0, size);
        const std::string expected = size == 10   ? "20090315T000000 bare"
                                     : size == 19 ? "20090315T143000"
                                                  : "none";
        EXPECT_EQ(reading_of(prefix), expected) << prefix;
    }
}

TEST(CalendarTimeText, HugeTextsAreNone) {
    constexpr std::size_t kSize = 1U << 20;
    for (const char unit : {'0', '9', '-', 'T', ':', ' ', '\0'}) {
        const std::string run(kSize, unit);
        EXPECT_EQ(reading_of(run), "none");
        const std::string expected = unit == ' ' ? "20090315T143000" : "none";
        EXPECT_EQ(reading_of("20090315T143000" + run), expected);
    }
    const std::string blanks(kSize, ' ');
    EXPECT_EQ(reading_of(blanks + "20090315" + blanks), "20090315T000000 bare");
}

TEST(CalendarTimeText, IsWrittenWithAZInUtcOnly) {
    CalendarTime time = time_at("20090315T143000");
    std::string text = "x";
    append_date_text(time, text);
    EXPECT_EQ(text, "x20090315T143000");
    append_zoned_date_text(time, text);
    EXPECT_EQ(text, "x20090315T14300020090315T143000");
    mark_utc(time);
    text.clear();
    append_zoned_date_text(time, text);
    append_date_text(time, text);
    EXPECT_EQ(text, "20090315T143000Z20090315T143000");
}

TEST(CalendarTimeLimits, AFiveDigitYearIsWrittenWholeAndNotReadBack) {
    CalendarTime time = time_at("20090315T010203");
    time.year = 65535;
    EXPECT_EQ(text_of(time), "655350315T010203");
    for (unsigned year = 10000; year <= 65535; ++year) {
        time.year = static_cast<std::uint16_t>(year);
        ASSERT_EQ(reading_of(text_of(time)), "none") << year;
    }
}

TEST(CalendarTimeLimits, OtherZoneWordsComeBackAsUtcOrLocal) {
    CalendarTime time = time_at("20090315T010203");
    time.zone1 = 60;
    EXPECT_EQ(time_at(text_of(time)).zone1, VZ_ZONE_LOCAL);
    time.zone2 = 60;
    EXPECT_EQ(time_at(text_of(time)).zone1, 0);
    EXPECT_EQ(time_at(text_of(time)).zone2, 0);
}

TEST(CalendarTime, IsUtcUnlessAZoneWordSaysLocal) {
    struct Row {
        std::int32_t zone1;
        std::int32_t zone2;
        bool utc;
    };
    constexpr Row kRows[] = {
        {0, 0, true},   {0xFFFF, 0xFFFF, false}, {0, 0xFFFF, false},     {0xFFFF, 0, false},
        {60, 60, true}, {-1, -1, true},          {0xFFFE, 0xFFFE, true}, {0xFFFFF, 0, true},
    };
    for (const Row& row : kRows) {
        CalendarTime time = time_at("20090315T143000Z");
        time.zone1 = row.zone1;
        time.zone2 = row.zone2;
        EXPECT_EQ(is_utc(time), row.utc) << row.zone1 << " " << row.zone2;
        mark_local(time);
        EXPECT_FALSE(is_utc(time));
        mark_utc(time);
        EXPECT_TRUE(is_utc(time));
    }
}

// Every value of every member: valid where the rule for that member alone says so.
TEST(CalendarTime, EachMemberHasItsRange) {
    const auto valid_with = [](auto member, unsigned value) {
        CalendarTime time = time_at("20090615T120000");
        time.*member = static_cast<std::remove_reference_t<decltype(time.*member)>>(value);
        return is_valid(time);
    };
    for (unsigned value = 0; value <= 0xFFFF; ++value) {
        EXPECT_EQ(valid_with(&CalendarTime::year, value), value >= 1900) << value;
    }
    for (unsigned value = 0; value <= 0xFF; ++value) {
        EXPECT_EQ(valid_with(&CalendarTime::month, value), value >= 1 && value <= 12) << value;
        EXPECT_EQ(valid_with(&CalendarTime::day, value), value >= 1 && value <= 31) << value;
        EXPECT_EQ(valid_with(&CalendarTime::hour, value), value < 24) << value;
        EXPECT_EQ(valid_with(&CalendarTime::minute, value), value < 60) << value;
        EXPECT_EQ(valid_with(&CalendarTime::second, value), value < 60) << value;
        EXPECT_TRUE(valid_with(&CalendarTime::padding, value)) << value;
    }
    EXPECT_FALSE(is_valid(CalendarTime{}));
}

// Counts days one by one, by the rule of the Gregorian calendar and nothing else.
TEST(CalendarClock, CountsEachDayFrom1900To2400) {
    CalendarTime zone{};
    std::int64_t day_number = -25567;  // 1 January 1900
    for (int year = 1900; year <= 2400; ++year) {
        const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        const int lengths[] = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= lengths[month - 1]; ++day, ++day_number) {
                CalendarTime time{};
                time.year = static_cast<std::uint16_t>(year);
                time.month = static_cast<std::uint8_t>(month);
                time.day = static_cast<std::uint8_t>(day);
                time.hour = 23;
                const local_seconds expected{seconds(day_number * 86400 + 23 * 3600)};
                ASSERT_EQ(clock_of(time).time_since_epoch().count(), expected.time_since_epoch().count());
                ASSERT_EQ(text_of(time_of(expected, zone)), text_of(time));
            }
        }
    }
}

TEST(CalendarClock, DaysBehindTheEndOfTheirMonthCountOn) {
    const TextRow rows[] = {
        {"20090229T120000", "20090301T120000"},   {"20090231T000000", "20090303T000000"},
        {"20080230T000000", "20080301T000000"},   {"20090431T235959", "20090501T235959"},
        {"20091131T000000Z", "20091201T000000Z"}, {"20091231T000000", "20091231T000000"},
    };
    for (const TextRow& row : rows) {
        const CalendarTime time = time_at(row.text);
        EXPECT_EQ(text_of(time_of(clock_of(time), time)), row.expected);
    }
}

TEST(CalendarClock, YearsUpToTheLastOfTheRecordCount) {
    CalendarTime time = time_at("20000229T010203");
    const seconds first = clock_of(time).time_since_epoch();
    for (int cycle = 1; 2000 + cycle * 400 <= 65535; ++cycle) {
        time.year = static_cast<std::uint16_t>(2000 + cycle * 400);
        EXPECT_EQ((clock_of(time).time_since_epoch() - first).count(), cycle * 146097LL * 86400);
    }
}

TEST(CalendarClock, OnlyYears1900To9999AreTimes) {
    const CalendarTime zone = time_at("20090101T000000Z");
    const local_seconds first = clock_of(time_at("19000101T000000"));
    const local_seconds last = clock_of(time_at("99991231T235959"));
    EXPECT_EQ(text_of(time_of(first, zone)), "19000101T000000Z");
    EXPECT_EQ(text_of(time_of(last, zone)), "99991231T235959Z");
    EXPECT_EQ(text_of(time_of(first - seconds(1), zone)), "none");
    EXPECT_EQ(text_of(time_of(last + seconds(1), zone)), "none");
    EXPECT_EQ(text_of(time_of(local_seconds::min(), zone)), "none");
    EXPECT_EQ(text_of(time_of(local_seconds::max(), zone)), "none");
}

TEST(CalendarClock, TheZoneWordsAreThoseOfTheOtherTime) {
    CalendarTime zone{};
    zone.zone1 = 60;
    zone.zone2 = -7;
    const std::optional<CalendarTime> time = time_of(clock_of(time_at("20090315T143000")), zone);
    ASSERT_TRUE(time);
    EXPECT_EQ(time->zone1, 60);
    EXPECT_EQ(time->zone2, -7);
    EXPECT_EQ(time->reserved, 0U);
}

TEST(CalendarTimeRoundTrip, RandomMomentsComeBackFromTheirText) {
    std::mt19937_64 random(20090315);
    const std::int64_t first = clock_of(time_at("19000101")).time_since_epoch().count();
    const std::int64_t last = clock_of(time_at("99991231T235959")).time_since_epoch().count();
    std::uniform_int_distribution<std::int64_t> counts(first, last);
    for (int round = 0; round < 20000; ++round) {
        const local_seconds clock{seconds(counts(random))};
        CalendarTime zone{};
        if (round % 2 == 0) mark_local(zone);
        const std::optional<CalendarTime> time = time_of(clock, zone);
        ASSERT_TRUE(time);
        const std::string text = text_of(*time);
        const CalendarTime back = time_at(text);
        ASSERT_EQ(text_of(back), text);
        ASSERT_EQ(clock_of(back).time_since_epoch().count(), clock.time_since_epoch().count());
        ASSERT_EQ(is_utc(back), round % 2 != 0);
    }
}

struct LocalRow {
    std::string zone;
    std::string utc;
    std::string local;
};

const LocalRow kLocalTimes[] = {
    {"UTC", "20090701T120000Z", "20090701T120000"},
    {"Europe/Berlin", "20090101T120000Z", "20090101T130000"},
    {"Europe/Berlin", "20090701T120000Z", "20090701T140000"},
    {"Europe/Berlin", "20090329T005959Z", "20090329T015959"},
    {"Europe/Berlin", "20090329T010000Z", "20090329T030000"},
    {"Europe/Berlin", "20091025T005959Z", "20091025T025959"},
    {"Europe/Berlin", "20091025T010000Z", "20091025T020000"},
    {"Europe/Berlin", "20091231T230000Z", "20100101T000000"},
    {"America/New_York", "20090315T043000Z", "20090315T003000"},
    {"America/New_York", "20060315T043000Z", "20060314T233000"},
    {"America/New_York", "20090101T000000Z", "20081231T190000"},
    {"America/New_York", "20080301T030000Z", "20080229T220000"},
    {"Asia/Kolkata", "20090315T183000Z", "20090316T000000"},
    {"Australia/Sydney", "20090101T120000Z", "20090101T230000"},
    {"Australia/Sydney", "20090701T140000Z", "20090702T000000"},
    {"Pacific/Chatham", "20090101T120000Z", "20090102T014500"},
    {"Pacific/Chatham", "20090701T120000Z", "20090702T004500"},
    // A day behind the end of its month is one of the next month.
    {"Asia/Kolkata", "20090229T000000Z", "20090301T053000"},
    // What no year of a text can say stays in UTC.
    {"Asia/Kolkata", "99991231T235959Z", "99991231T235959Z"},
};

TEST(CalendarTimeInMachineZone, UtcBecomesWhatTheClockOfTheMachineShows) {
    for (const LocalRow& row : kLocalTimes) {
        vzapi::test::in_machine_zone(
            row.zone, [&row] { EXPECT_EQ(text_of(to_local(time_at(row.utc))), row.local) << row.utc; });
    }
}

TEST(CalendarTimeInMachineZone, TheClockOfALocalTimeIsItsOwn) {
    vzapi::test::in_machine_zone("Europe/Berlin", [] {
        const CalendarTime local = time_at("20090701T140000");
        EXPECT_EQ(text_of(to_local(local)), "20090701T140000");
        EXPECT_EQ(local_clock_of(local), clock_of(local));
        EXPECT_EQ(local_clock_of(time_at("20090701T120000Z")), clock_of(local));
        CalendarTime half_marked = time_at("20090701T140000Z");
        half_marked.zone2 = VZ_ZONE_LOCAL;
        EXPECT_EQ(to_local(half_marked).zone1, 0);
        EXPECT_EQ(local_clock_of(half_marked), clock_of(local));
        EXPECT_EQ(text_of(to_local(CalendarTime{})), "none");
        CalendarTime far = time_at("20090701T120000Z");
        far.year = 65535;
        EXPECT_EQ(text_of(to_local(far)), "655350701T120000Z");
    });
}

}  // namespace
}  // namespace vzapi::vcalendar
