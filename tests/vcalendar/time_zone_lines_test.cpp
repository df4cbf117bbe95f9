#include "vcalendar/time_zone_lines.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "vcalendar/time_text.h"

namespace vzapi::vcalendar {
namespace {

using test::text_of;
using test::time_at;
using Lines = std::vector<std::string>;

struct OffsetRow {
    std::string text;
    std::string expected;
};

const OffsetRow kOffsets[] = {
    {"+01:00", "60"},
    {"-05", "-300"},
    {"+0530", "330"},
    {"-5", "-300"},
    {"+05:30", "330"},
    {"-0800", "-480"},
    {"05", "300"},
    {"0530", "330"},
    {"5:30", "330"},
    {"+0", "0"},
    {"-00:00", "0"},
    {"-00:30", "-30"},
    {"+12:45", "765"},
    {" -05 \t", "-300"},
    {"+23:59", "1439"},
    {"-2359", "-1439"},
    {"+24:00", "none"},
    {"-24", "none"},
    {"99", "none"},
    {"+01:60", "none"},
    {"+0160", "none"},
    {"+01:5", "none"},
    {"+01:", "none"},
    {"+:30", "none"},
    {"+530", "none"},
    {"+053000", "none"},
    {"+05:30:00", "none"},
    {"+001:00", "none"},
    {"", "none"},
    {"+", "none"},
    {"+-5", "none"},
    {"- 5", "none"},
    {"EST", "none"},
    {"+5h", "none"},
    {"+5.5", "none"},
    {std::string("+5\0", 3), "none"},
    {std::string(1U << 20, '1'), "none"},
    {"+" + std::string(1U << 20, '0') + "1:00", "none"},
    {std::string(1U << 20, ':'), "none"},
};

TEST(UtcOffset, EachTextIsItsMinutesOrNone) {
    for (const OffsetRow& row : kOffsets) {
        const std::optional<std::int32_t> minutes = parse_utc_offset(row.text);
        EXPECT_EQ(minutes ? std::to_string(*minutes) : "none", row.expected) << row.text.substr(0, 20);
    }
}

TEST(UtcOffset, EachComesBackFromItsText) {
    for (std::int32_t minutes = -1439; minutes <= 1439; ++minutes) {
        std::string text;
        append_utc_offset(minutes, text);
        EXPECT_EQ(text.size(), 6U);
        EXPECT_EQ(parse_utc_offset(text), minutes) << text;
    }
    std::string text;
    append_utc_offset(std::numeric_limits<std::int32_t>::min(), text);
    EXPECT_EQ(text, "-35791394:08");
}

std::optional<ZoneBlock> zone_of(const Lines& lines) {
    std::vector<versit::VersitProperty> properties;
    for (const std::string& line : lines) properties.emplace_back(line);
    return read_zone(properties);
}

// "standard daylight 'standard name' 'daylight name' flag:begin-end ...".
std::string show(const std::optional<ZoneBlock>& zone) {
    if (!zone) return "none";
    std::string text = std::to_string(zone->standard_offset) + " " + std::to_string(zone->daylight_offset) +
                       " '" + zone->standard_name + "' '" + zone->daylight_name + "'";
    for (const DaylightRule& rule : zone->rules) {
        text += " " + std::to_string(rule.flag) + ":" + text_of(rule.begin) + "-" + text_of(rule.end);
    }
    return text;
}

Lines lines_of(const ZoneBlock& zone) {
    versit::LineBuilder builder;
    append_zone_lines(zone, builder);
    Lines lines;
    std::string_view text = builder.text();
    while (!text.empty()) {
        const std::size_t end = text.find("\r\n");
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 2);
    }
    return lines;
}

struct ZoneRow {
    Lines lines;
    std::string expected;
};

const ZoneRow kZones[] = {
    {{"TZ:-05", "DAYLIGHT:TRUE;-04;19960407T025959;19961027T010000;EST;EDT"},
     "-300 -240 'EST' 'EDT' 1:19960407T025959-19961027T010000"},
    {{"DAYLIGHT:TRUE;-06;19960407T025959;19961027T010000;EST;EDT"},
     "0 -360 'EST' 'EDT' 1:19960407T025959-19961027T010000"},
    {{"DAYLIGHT:TRUE;+02;20030330T010000Z;20031026T010000Z;CET;CEST", "TZ:+01"},
     "60 120 'CET' 'CEST' 1:20030330T010000Z-20031026T010000Z"},
    {{"DAYLIGHT:TRUE;+0200;20030330T020000;20031026T030000;;"},
     "0 120 '' '' 1:20030330T020000-20031026T030000"},
    {{"DAYLIGHT:FALSE"}, "0 0 '' '' 0:none-none"},
    {{"DAYLIGHT: false "}, "0 0 '' '' 0:none-none"},
    {{"TZ:+05:30"}, "330 0 '' ''"},
    {{"tz:+05:30", "daylight:true;+06;20030330T020000"}, "330 360 '' '' 1:20030330T020000-none"},
    {{"TZ:+00"}, "0 0 '' ''"},
    // TRUE without either date is no rule; what else it says counts.
    {{"DAYLIGHT:TRUE;+02;;;CET;CEST"}, "0 120 'CET' 'CEST'"},
    {{"DAYLIGHT:TRUE"}, "0 0 '' ''"},
    {{"DAYLIGHT:TRUE;+02;soon;later;CET;CEST"}, "0 120 'CET' 'CEST'"},
    {{"DAYLIGHT:TRUE;+02;;20031026T030000;;"}, "0 120 '' '' 1:none-20031026T030000"},
    {{"DAYLIGHT:FALSE;+02;20030330T020000;;CET;CEST"}, "0 120 'CET' 'CEST' 0:20030330T020000-none"},
    // Several lines: a rule each, offset and names from the first that gives them.
    {{"TZ:+01", "DAYLIGHT:TRUE;;20020331T020000;20021027T030000;;CEST",
      "DAYLIGHT:TRUE;+02;20030330T020000;20031026T030000;CET;XX", "DAYLIGHT:TRUE;+03;;20041031T030000;YY;ZZ",
      "TZ:+09"},
     "60 120 'CET' 'CEST' 1:20020331T020000-20021027T030000 1:20030330T020000-20031026T030000 "
     "1:none-20041031T030000"},
    {{"TZ:what", "TZ:-3", "TZ:-4"}, "-180 0 '' ''"},
    {{"DAYLIGHT:FALSE", "DAYLIGHT:TRUE;+00;20030330T020000;;;", "DAYLIGHT:TRUE;+02;20040330T020000;;;"},
     "0 0 '' '' 0:none-none 1:20030330T020000-none 1:20040330T020000-none"},
    // Blanks around components; escapes and everything else in names stay theirs.
    {{"DAYLIGHT: TRUE ; +02 ; 20030330T020000 ; 20031026T030000 ;A\\;B\\\\C\\n; E Z "},
     "0 120 'A;B\\C\\n' ' E Z ' 1:20030330T020000-20031026T030000"},
    {{"DAYLIGHT:TRUE;+02;20030330T020000;20031026T030000;CET;CEST;more;and more"},
     "0 120 'CET' 'CEST' 1:20030330T020000-20031026T030000"},
    {{"DAYLIGHT:TRUE;+02;20030330T020000;20031026T030000;CET;CEST\\"},
     "0 120 'CET' 'CEST\\' 1:20030330T020000-20031026T030000"},
    {{"DAYLIGHT:TRUE;+02;;;\xD0\x97;\x93\x8C"}, "0 120 '\xD0\x97' '\x93\x8C'"},
    {{"DAYLIGHT;ENCODING=QUOTED-PRINTABLE:TRUE;=2B02;;;=D0=97;"}, "0 120 '\xD0\x97' ''"},
    // Nothing that can be read.
    {{}, "none"},
    {{"VERSION:1.0", "X-TZ:+01", "GEO:1;2"}, "none"},
    {{"TZ:", "TZ:EST", "DAYLIGHT:", "DAYLIGHT:MAYBE;+02;20030330T020000;20031026T030000;A;B", "DAYLIGHT:;"},
     "none"},
    {{"DAYLIGHT:TRUE FALSE"}, "none"},
};

TEST(ZoneLines, EachIsItsBlockOrNone) {
    for (const ZoneRow& row : kZones) {
        std::string shown;
        for (const std::string& line : row.lines) shown += line + "|";
        EXPECT_EQ(show(zone_of(row.lines)), row.expected) << shown;
    }
}

TEST(ZoneLines, NoMoreThan255RulesAreKept) {
    const Lines lines(300, "DAYLIGHT:TRUE;+02;20030330T020000;20031026T030000;CET;CEST");
    const std::optional<ZoneBlock> zone = zone_of(lines);
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->rules.size(), 255U);
}

TEST(ZoneLines, HugeValuesAreReadInOneGo) {
    constexpr std::size_t kSize = 1U << 20;
    for (const char unit : {';', '\\', '9', ' ', 'T', '\0'}) {
        EXPECT_EQ(show(zone_of({"TZ:" + std::string(kSize, unit), "DAYLIGHT:" + std::string(kSize, unit)})),
                  "none");
        EXPECT_TRUE(zone_of({"DAYLIGHT:TRUE;" + std::string(kSize, unit)}));
    }
    const std::optional<ZoneBlock> zone = zone_of({"DAYLIGHT:TRUE;;;;" + std::string(kSize, 'x')});
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->standard_name.size(), kSize);
}

DaylightRule rule(std::uint32_t flag, std::string_view begin, std::string_view end) {
    DaylightRule rule{};
    rule.flag = flag;
    rule.begin = time_at(begin);
    rule.end = time_at(end);
    return rule;
}

struct WrittenRow {
    ZoneBlock zone;
    Lines expected;
};

TEST(ZoneLines, AreOneForEachRuleAndTz) {
    const DaylightRule summer = rule(1, "19960407T025959", "19961027T010000");
    const WrittenRow rows[] = {
        {{}, {}},
        {{-300, -240, {summer}, "EST", "EDT"},
         {"DAYLIGHT:TRUE;-04:00;19960407T025959;19961027T010000;EST;EDT", "TZ:-05:00"}},
        {{60, 120, {rule(1, "20030330T010000Z", "none"), rule(7, "none", "20041031T010000Z")}, "", ""},
         {"DAYLIGHT:TRUE;+02:00;20030330T010000Z;;;", "DAYLIGHT:TRUE;+02:00;;20041031T010000Z;;",
          "TZ:+01:00"}},
        {{330, 0, {}, "", ""}, {"TZ:+05:30"}},
        {{0, 120, {}, "", ""}, {"DAYLIGHT:TRUE;+02:00;;;;", "TZ:+00:00"}},
        {{0, 0, {}, "CET", ""}, {"DAYLIGHT:TRUE;+00:00;;;CET;", "TZ:+00:00"}},
        {{0, 0, {rule(0, "none", "none")}, "", ""}, {"DAYLIGHT:FALSE", "TZ:+00:00"}},
        {{60, 120, {rule(0, "none", "none")}, "CET", "CEST"},
         {"DAYLIGHT:FALSE;+02:00;;;CET;CEST", "TZ:+01:00"}},
        {{60, 0, {rule(0, "20030330T010000Z", "none")}, "", ""},
         {"DAYLIGHT:FALSE;+00:00;20030330T010000Z;;;", "TZ:+01:00"}},
        {{60, 120, {}, "A;B\\C", "D\r\nEND:VCALENDAR"}, {"DAYLIGHT:TRUE;+02:00;;;A\\;B\\\\C;D", "TZ:+01:00"}},
        {{60, 120, {}, std::string("A\0B", 3), "C\nD"}, {"DAYLIGHT:TRUE;+02:00;;;A;C", "TZ:+01:00"}},
        {{1440, -1440, {summer}, "", ""}, {"DAYLIGHT:TRUE;;19960407T025959;19961027T010000;;"}},
        {{std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(), {}, "A", ""},
         {"DAYLIGHT:TRUE;;;;A;"}},
    };
    for (const WrittenRow& row : rows) EXPECT_EQ(lines_of(row.zone), row.expected) << show(row.zone);
}

struct LossRow {
    ZoneBlock zone;
    std::string comes_back;
};

TEST(ZoneLimits, EachLossAsListed) {
    const LossRow rows[] = {
        {{}, "none"},
        {{60, 1440, {}, "A", ""}, "60 0 'A' ''"},
        {{-1440, 120, {}, "", ""}, "0 120 '' ''"},
        {{60, 120, {}, "A\nB", "C\r\nD"}, "60 120 'A' 'C'"},
        {{60, 120, {rule(1, "none", "none")}, "", ""}, "60 120 '' ''"},
        {{60, 120, {rule(9, "20030330T020000", "none")}, "", ""}, "60 120 '' '' 1:20030330T020000-none"},
    };
    for (const LossRow& row : rows) EXPECT_EQ(show(zone_of(lines_of(row.zone))), row.comes_back);
}

TEST(ZoneLines, RandomBlocksComeBack) {
    std::mt19937 random(1996);
    const auto below = [&random](int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); };
    const std::string dates[] = {"none", "19960407T025959", "20030330T010000Z", "99991231T235959"};
    const std::string names[] = {"", "CET", "A;B", "\\", "\\;\\\\", " x ", "\xE6\x97\xA5"};
    for (int round = 0; round < 5000; ++round) {
        ZoneBlock zone;
        if (below(4) > 0) zone.standard_offset = below(2879) - 1439;
        if (below(4) > 0) zone.daylight_offset = below(2879) - 1439;
        zone.standard_name = names[below(7)];
        zone.daylight_name = names[below(7)];
        for (int count = below(4); count > 0; --count) {
            const DaylightRule any =
                rule(static_cast<std::uint32_t>(below(2)), dates[below(4)], dates[below(4)]);
            // The one rule that no line tells.
            if (any.flag == 0 || is_valid(any.begin) || is_valid(any.end)) zone.rules.push_back(any);
        }
        const Lines lines = lines_of(zone);
        if (zone.empty()) {
            EXPECT_EQ(lines, Lines{});
        } else {
            ASSERT_EQ(show(zone_of(lines)), show(zone)) << lines.front();
        }
    }
}

}  // namespace
}  // namespace vzapi::vcalendar
