// The calendar record: its versions in memory, building one while it is read, and releasing it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "call_context.h"
#include "platform/heap.h"
#include "vcalendar/size_switches.h"
#include "vcalendar/time_zone_lines.h"
#include "vzapi/calendar.h"

namespace vzapi::vcalendar {

// How many bytes a record has that says `size`: a size that no version of the record has is taken for the
// smallest one, whatever the number.
[[nodiscard]] constexpr std::size_t record_length(std::uint32_t size) noexcept {
    switch (size) {
        case VZ_CALENDAR_SIZE_EXCEPTIONS:
        case VZ_CALENDAR_SIZE_WIDE_REPEAT:
        case VZ_CALENDAR_SIZE_TIME_ZONE:
            return size;
        default:
            return VZ_CALENDAR_SIZE_BASE;
    }
}

// Collects what hangs on a CalendarItem and owns it until hand_over(): the fields, the excluded dates, the
// time zone. All of it is blocks of the process heap. Every add_ raises VZ_ERR_OUT_OF_MEMORY, or throws
// std::bad_alloc, when there is no memory and then leaves the builder as it was. The counts of a record are
// bytes: what comes behind the 255th is dropped.
class CalendarBuilder {
public:
    void add_text(std::uint32_t id, std::u16string_view text);
    void add_number(std::uint32_t id, std::uint32_t number);
    void add_geo(std::u16string_view latitude, std::u16string_view longitude);
    void add_reference(const std::array<std::uint32_t, 3>& numbers);
    void add_exception(const CalendarTime& time);
    void set_zone(ZoneBlock zone) noexcept;

    // True when an entry of that id was added.
    [[nodiscard]] bool has(std::uint32_t id) const noexcept;

    // How many more entries have a place.
    [[nodiscard]] std::size_t field_places() const noexcept;

    // True when one more entry, or excluded date, would be dropped.
    [[nodiscard]] bool fields_are_full() const noexcept;
    [[nodiscard]] bool exceptions_are_full() const noexcept;

    // Gives everything to `item`, whose members for it are set fresh; those of blocks that it does not have
    // are not touched. Raises VZ_ERR_OUT_OF_MEMORY and keeps everything when a block cannot be allocated.
    void hand_over(const SizeSwitches& switches, CalendarItem& item);

private:
    void make_room(std::size_t blocks);
    void add(std::uint32_t id, CalendarValue value) noexcept;

    std::vector<CalendarField> fields_;
    std::vector<platform::HeapPointer<void>> blocks_;  // what the values of `fields_` point at
    std::vector<CalendarTime> exceptions_;
    ZoneBlock zone_;
    bool has_zone_ = false;
};

// Releases everything that a read put into the record at `item` and sets all but `size` to zero, over
// record_length() bytes. What is no live block of the process heap is left alone, with all that hangs on it.
// Raises VZ_ERR_POINTER for a record that cannot be read.
void release_calendar(void* item, const ReleaseContext& context);

}  // namespace vzapi::vcalendar
