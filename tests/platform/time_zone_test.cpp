#include "platform/time_zone.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/machine_zone.h"

namespace vzapi::platform {
namespace {

using std::chrono::hours;
using std::chrono::local_seconds;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year;

minutes offset_at(sys_seconds utc) {
    const seconds offset = to_local_time(utc).time_since_epoch() - utc.time_since_epoch();
    EXPECT_EQ(offset % minutes(1), seconds(0));
    return std::chrono::duration_cast<minutes>(offset);
}

// The moment at which the zone changes, and how it is ahead of UTC right before and from then on.
struct ChangeRow {
    sys_seconds change;
    minutes before;
    minutes after;
};

sys_seconds moment(int of_year, unsigned month, unsigned day, int hour, int minute = 0) {
    return sys_days(year(of_year) / static_cast<int>(month) / static_cast<int>(day)) + hours(hour) +
           minutes(minute);
}

void expect_changes(const std::string& zone, const std::vector<ChangeRow>& rows) {
    test::in_machine_zone(zone, [&] {
        for (const ChangeRow& row : rows) {
            const auto at = row.change.time_since_epoch().count();
            EXPECT_EQ(offset_at(row.change - seconds(1)).count(), row.before.count()) << zone << " " << at;
            EXPECT_EQ(offset_at(row.change).count(), row.after.count()) << zone << " " << at;
            EXPECT_EQ(offset_at(row.change - hours(48)).count(), row.before.count()) << zone << " " << at;
            EXPECT_EQ(offset_at(row.change + hours(48)).count(), row.after.count()) << zone << " " << at;
        }
    });
}

// A zone without changes: the same at each of these moments.
void expect_constant(const std::string& zone, minutes offset) {
    test::in_machine_zone(zone, [&] {
        for (int each = 2000; each <= 2100; each += 5) {
            for (unsigned month = 1; month <= 12; ++month) {
                EXPECT_EQ(offset_at(moment(each, month, 1, 0)).count(), offset.count())
                    << zone << " " << each;
            }
        }
    });
}

TEST(MachineZone, UtcIsUnchanged) {
    expect_constant("UTC", minutes(0));
}

TEST(MachineZone, IndiaIsFiveAndAHalfHoursAheadAllYear) {
    expect_constant("Asia/Kolkata", minutes(330));
}

TEST(MachineZone, BerlinChangesInMarchAndOctober) {
    expect_changes("Europe/Berlin", {
                                        {moment(2000, 3, 26, 1), minutes(60), minutes(120)},
                                        {moment(2009, 3, 29, 1), minutes(60), minutes(120)},
                                        {moment(2009, 10, 25, 1), minutes(120), minutes(60)},
                                        {moment(2026, 3, 29, 1), minutes(60), minutes(120)},
                                        {moment(2026, 10, 25, 1), minutes(120), minutes(60)},
                                        {moment(2037, 10, 25, 1), minutes(120), minutes(60)},
                                    });
}

// The rules changed in 2007: those of the year of the date count, not those of the year of the test.
TEST(MachineZone, NewYorkKeepsTheRulesOfEachYear) {
    expect_changes("America/New_York", {
                                           {moment(2006, 4, 2, 7), minutes(-300), minutes(-240)},
                                           {moment(2006, 10, 29, 6), minutes(-240), minutes(-300)},
                                           {moment(2007, 3, 11, 7), minutes(-300), minutes(-240)},
                                           {moment(2007, 11, 4, 6), minutes(-240), minutes(-300)},
                                           {moment(2026, 3, 8, 7), minutes(-300), minutes(-240)},
                                           {moment(2026, 11, 1, 6), minutes(-240), minutes(-300)},
                                       });
}

TEST(MachineZone, SydneyIsAheadOverTheNewYear) {
    expect_changes("Australia/Sydney", {
                                           {moment(2007, 3, 24, 16), minutes(660), minutes(600)},
                                           {moment(2007, 10, 27, 16), minutes(600), minutes(660)},
                                           {moment(2009, 4, 4, 16), minutes(660), minutes(600)},
                                           {moment(2009, 10, 3, 16), minutes(600), minutes(660)},
                                       });
    test::in_machine_zone("Australia/Sydney", [] {
        EXPECT_EQ(offset_at(moment(2009, 12, 31, 12, 59)).count(), 660);
        EXPECT_EQ(offset_at(moment(2009, 12, 31, 13)).count(), 660);
        EXPECT_EQ(offset_at(moment(2010, 1, 1, 0)).count(), 660);
    });
}

TEST(MachineZone, ChathamCountsInQuartersOfAnHour) {
    expect_changes("Pacific/Chatham", {
                                          {moment(2006, 3, 18, 14), minutes(825), minutes(765)},
                                          {moment(2006, 9, 30, 14), minutes(765), minutes(825)},
                                          {moment(2026, 4, 4, 14), minutes(825), minutes(765)},
                                          {moment(2026, 9, 26, 14), minutes(765), minutes(825)},
                                      });
}

TEST(MachineZone, EachZoneHoldsForItsBodyOnly) {
    const sys_seconds summer = moment(2009, 7, 1, 0);
    const minutes before = offset_at(summer);
    test::in_machine_zone("Asia/Kolkata", [&] { EXPECT_EQ(offset_at(summer).count(), 330); });
    test::in_machine_zone("America/New_York", [&] { EXPECT_EQ(offset_at(summer).count(), -240); });
    EXPECT_EQ(offset_at(summer).count(), before.count());
}

// What lies outside the system's calendar comes back as it is; nothing overflows.
TEST(MachineZone, MomentsFarAwayHaveAnAnswer) {
    test::in_machine_zone("UTC", [] {
        for (const auto count : {std::int64_t{-1} << 60, std::int64_t{1} << 60, std::int64_t{-1} << 40,
                                 std::int64_t{1} << 40, std::int64_t{0}}) {
            const sys_seconds utc{seconds(count)};
            EXPECT_EQ(to_local_time(utc).time_since_epoch().count(), count);
        }
        for (const int each : {1, 1600, 1601, 1602, 1899, 9999, 30826, 30827, 32767}) {
            const sys_seconds utc = sys_days(year(each) / 1 / 1);
            EXPECT_EQ(to_local_time(utc).time_since_epoch(), utc.time_since_epoch()) << each;
        }
    });
}

}  // namespace
}  // namespace vzapi::platform
