// Random calendar entries, the same for one seed: of one size, for one trip, without what the rules of that
// trip lose.
#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "vcalendar/calendar_builder.h"
#include "vcalendar/calendar_losses.h"

namespace vzapi::test::calendar {

class CalendarGenerator {
public:
    CalendarGenerator(unsigned seed, std::uint32_t size, const Trip& trip)
        : random_(seed), size_(size), trip_(trip) {}

    [[nodiscard]] Calendar next(std::uint32_t type);

private:
    unsigned below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(random_); }
    bool one_in(unsigned count) { return below(count) == 0; }

    // Lets `add` add something to the entry, again and again while the trip loses it.
    using Loses = bool (*)(const Calendar& calendar, const Trip& trip);
    using Add = void (CalendarGenerator::*)(Calendar& calendar);
    void fill(Calendar& calendar, Loses loses, Add add);

    Time any_time();
    void add_times(Calendar& calendar);
    void add_alarm(Calendar& calendar);
    void add_repeat(Calendar& calendar);
    void add_exceptions(Calendar& calendar);
    void add_zone(Calendar& calendar);
    void add_fields(Calendar& calendar);
    Field field(std::uint32_t id, std::uint32_t type);
    std::uint32_t any_number() { return one_in(3) ? below(5) : static_cast<std::uint32_t>(random_()); }
    std::u16string pieces();

    std::mt19937 random_;
    const std::uint32_t size_;
    const Trip trip_;
};

}  // namespace vzapi::test::calendar
