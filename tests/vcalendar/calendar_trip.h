// Entries through the exported interface: written, and read again.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/text.h"
#include "vcalendar/calendar_builder.h"
#include "vcalendar/calendar_losses.h"

namespace vzapi::test::calendar {

// The text of an entry. REQUIRES: its interface version is announced.
[[nodiscard]] inline std::string text_of(const Calendar& calendar, const Trip& trip) {
    CalendarRecord record(calendar);
    OwnedText text;
    const std::uint32_t version = trip.is_version_2 ? VZ_PROFILE_20_CALENDAR_2 : 0;
    EXPECT_EQ(
        ConvertToVersit2(VZ_PROFILE_20, version, VZ_PROFILE_ON, VZ_TYPE_CALENDAR, record.item(), &text.data),
        VZ_OK);
    return text.bytes();
}

[[nodiscard]] inline Calendar read(std::string text, std::uint32_t size) {
    const VersitData in = data_of(text);
    CalendarItem item{};
    item.size = size;
    EXPECT_EQ(ConvertFromVersit(VZ_TYPE_CALENDAR, &in, &item), VZ_OK) << text;
    const Calendar calendar = calendar_of(&item);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CALENDAR, &item), VZ_OK);
    EXPECT_EQ(item.fields, nullptr);
    return calendar;
}

[[nodiscard]] inline Calendar there_and_back(const Calendar& calendar, const Trip& trip) {
    return read(text_of(calendar, trip), calendar.size);
}

}  // namespace vzapi::test::calendar
