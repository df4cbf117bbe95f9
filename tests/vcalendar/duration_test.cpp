#include "vcalendar/duration.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace vzapi::vcalendar {
namespace {

using std::chrono::seconds;

std::string seconds_of(std::string_view text) {
    const std::optional<seconds> duration = parse_duration(text);
    return duration ? std::to_string(duration->count()) : "none";
}

std::string written(std::int64_t count) {
    std::string text;
    append_duration(seconds(count), text);
    return text;
}

struct DurationRow {
    std::string text;
    std::string expected;
};

const DurationRow kTexts[] = {
    {"PT15M", "900"},
    {"-PT15M", "-900"},
    {"+PT15M", "900"},
    {"P7W", "4233600"},
    {"P15DT5H0M20S", "1314020"},
    {"PT0S", "0"},
    {"-PT0M", "0"},
    {"P1D", "86400"},
    {"P0DT0H0M0S", "0"},
    {"-P0DT0H15M0S", "-900"},
    {"PT1H20S", "3620"},
    {"P1W2DT3H4M5S", "788645"},
    {"pt1h30m", "5400"},
    {" -PT1H \t", "-3600"},
    {"P1DT", "86400"},
    {"PT90M", "5400"},
    {"P000000000000000000000000000000001D", "86400"},
    // The 'T' forgotten in front of minutes.
    {"-P15M", "-900"},
    {"P15M", "900"},
    {"P1DT15M", "87300"},
    // The longest.
    {"P3652425D", "315569520000"},
    {"-PT315569520000S", "-315569520000"},
    {"PT315569520001S", "none"},
    {"P3652425DT1S", "none"},
    {"P9223372036854775807S", "none"},
    {"PT9223372036854775807S", "none"},
    {"P9223372036854775808W", "none"},
    {"PT18446744073709551616S", "none"},
    {"PT99999999999999999999999999H", "none"},
    // No durations.
    {"", "none"},
    {"P", "none"},
    {"PT", "none"},
    {"-P", "none"},
    {"+-PT1H", "none"},
    {"--PT1H", "none"},
    {"- PT1H", "none"},
    {"15M", "none"},
    {"T15M", "none"},
    {"P15", "none"},
    {"PT15", "none"},
    {"PTM", "none"},
    {"P1H", "none"},
    {"P1S", "none"},
    {"PT1D", "none"},
    {"PT1W", "none"},
    {"P1DT1HT1M", "none"},
    {"P15MT5S", "none"},
    {"PT1M1H", "none"},
    {"PT1M1M", "none"},
    {"P1D1W", "none"},
    {"P1Y", "none"},
    {"PT1.5H", "none"},
    {"PT-15M", "none"},
    {"PT 15M", "none"},
    {"PT15M;", "none"},
    {"PT15MX", "none"},
    {"20090315T143000Z", "none"},
    {std::string("PT15M\0", 6), "none"},
};

TEST(Duration, EachTextIsItsSecondsOrNone) {
    for (const DurationRow& row : kTexts) EXPECT_EQ(seconds_of(row.text), row.expected) << row.text;
}

TEST(Duration, IsWrittenWithAllFourNumbers) {
    EXPECT_EQ(written(0), "P0DT0H0M0S");
    EXPECT_EQ(written(-900), "-P0DT0H15M0S");
    EXPECT_EQ(written(900), "P0DT0H15M0S");
    EXPECT_EQ(written(-1), "-P0DT0H0M1S");
    EXPECT_EQ(written(86399), "P0DT23H59M59S");
    EXPECT_EQ(written(86400), "P1DT0H0M0S");
    EXPECT_EQ(written(-788645), "-P9DT3H4M5S");
    EXPECT_EQ(written(std::numeric_limits<std::int64_t>::max()), "P106751991167300DT15H30M7S");
    EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()), "-P106751991167300DT15H30M8S");
}

TEST(Duration, HugeTextsAreReadInOneGo) {
    constexpr std::size_t kSize = 1U << 20;
    for (const char unit : {'0', '9', 'P', 'T', 'M', '-', '\0'}) {
        EXPECT_EQ(seconds_of(std::string(kSize, unit)), "none");
        EXPECT_EQ(seconds_of("PT" + std::string(kSize, unit)), "none");
    }
    EXPECT_EQ(seconds_of("PT" + std::string(kSize, '9') + "S"), "none");
    EXPECT_EQ(seconds_of("PT" + std::string(kSize, '0') + "9S"), "9");
    std::string parts = "PT";
    while (parts.size() < kSize) parts += "1M";
    EXPECT_EQ(seconds_of(parts), "none");
}

TEST(Duration, ComesBackFromItsText) {
    constexpr std::int64_t kMost = 315569520000;
    std::mt19937_64 random(4336);
    for (int round = 0; round < 20000; ++round) {
        const std::int64_t bound = round % 2 == 0 ? kMost : 100000;
        const std::int64_t count = std::uniform_int_distribution<std::int64_t>(-bound, bound)(random);
        ASSERT_EQ(seconds_of(written(count)), std::to_string(count));
    }
    EXPECT_EQ(seconds_of(written(kMost)), std::to_string(kMost));
    EXPECT_EQ(seconds_of(written(kMost + 1)), "none");
}

TEST(Duration, NoPrefixIsReadBeyondItsEnd) {
    const std::string whole = "-P1W2DT3H4M5S";
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const std::string prefix = whole.substr(0, size);
        const char last = prefix.empty() ? ' ' : prefix.back();
        const bool complete = size > 2 && (last < '0' || last > '9');
        EXPECT_EQ(parse_duration(prefix).has_value(), complete) << prefix;
    }
}

}  // namespace
}  // namespace vzapi::vcalendar
