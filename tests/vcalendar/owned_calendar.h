// A calendar record of one of its versions that is read from text, shown as lines, and released. It ends at a
// page without access: whatever touches a byte behind its `size` faults.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include "platform/utf8.h"
#include "support/guard_page.h"
#include "vcalendar/calendar_reader.h"
#include "vcalendar/calendar_record.h"
#include "versit/parser.h"
#include "vzapi/vzapi.h"

namespace vzapi::test {

inline constexpr std::uint32_t kCalendarSizes[] = {
    VZ_CALENDAR_SIZE_BASE,
    VZ_CALENDAR_SIZE_EXCEPTIONS,
    VZ_CALENDAR_SIZE_WIDE_REPEAT,
    VZ_CALENDAR_SIZE_TIME_ZONE,
};

// "2009-01-02 03:04:05", with "Z" behind it for UTC, with the zone words where they are no mark at all.
inline std::string show_time(const CalendarTime& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u", unsigned{time.year},
                  unsigned{time.month}, unsigned{time.day}, unsigned{time.hour}, unsigned{time.minute},
                  unsigned{time.second});
    std::string shown = text;
    if (time.zone1 == 0 && time.zone2 == 0) return shown + "Z";
    if (time.zone1 == VZ_ZONE_LOCAL && time.zone2 == VZ_ZONE_LOCAL) return shown;
    return shown + " zone " + std::to_string(time.zone1) + "/" + std::to_string(time.zone2);
}

inline std::string show_date_line(const char* name, const CalendarTime& time) {
    return time.year == 0 ? std::string() : name + show_time(time) + "\n";
}

inline std::string shown_text(const char16_t* text) {
    return text == nullptr ? std::string("(null)") : platform::utf16_to_utf8(text);
}

// "300 Summary", the id in hexadecimal; "302 =1970" where the value is a number.
inline std::string show_field(const CalendarField& field, std::uint32_t item_type) {
    char id[16];
    std::snprintf(id, sizeof id, "%X ", unsigned{field.fieldId});
    std::string shown = id;
    const bool is_year = field.fieldId == VZ_CALENDAR_BIRTH_YEAR &&
                         (item_type == VZ_ITEM_BIRTHDAY || item_type == VZ_ITEM_ANNIVERSARY);
    if (field.size != sizeof field || field.valueSize != VZ_CALENDAR_VALUE_SIZE) shown += "wrong size ";
    switch (field.fieldId) {
        case VZ_CALENDAR_CLASS:
        case VZ_CALENDAR_PRIORITY:
        case VZ_CALENDAR_STATUS:
            return shown + "=" + std::to_string(field.value.number);
        case VZ_CALENDAR_GEO: {
            const CalendarGeo& geo = *field.value.geo;
            if (geo.size != sizeof geo) shown += "wrong size ";
            return shown + shown_text(geo.latitude) + "|" + shown_text(geo.longitude);
        }
        case VZ_CALENDAR_REFERENCE: {
            const CalendarReference& reference = *field.value.reference;
            if (reference.size != sizeof reference) shown += "wrong size ";
            for (const std::uint32_t number : reference.numbers) shown += "=" + std::to_string(number);
            return shown;
        }
        default:
            return shown +
                   (is_year ? "=" + std::to_string(field.value.number) : shown_text(field.value.text));
    }
}

inline std::string show_repeat(const CalendarItem& item) {
    const auto numbers = [](unsigned kind, unsigned interval, unsigned days, unsigned position) {
        return std::to_string(kind) + "/" + std::to_string(interval) + "/" + std::to_string(days) + "/" +
               std::to_string(position) + "\n";
    };
    std::string shown;
    if (item.repeatKind != 0) {
        shown +=
            "repeat " + numbers(item.repeatKind, item.repeatInterval, item.repeatDays, item.repeatPosition);
    }
    if (item.repeatSize == VZ_REPEAT_BLOCK_SIZE) {
        shown +=
            "wide " + numbers(item.repeatKind2, item.repeatInterval2, item.repeatDays2, item.repeatPosition2);
    }
    return shown + show_date_line("until ", item.repeatUntil);
}

inline std::string show_zone(const CalendarItem& item) {
    if (item.zoneSize != VZ_ZONE_BLOCK_SIZE) return item.zoneSize == 0 ? "" : "wrong zone size\n";
    const auto name = [](const char* text) { return std::string(text == nullptr ? "(null)" : text); };
    std::string shown = "zone " + std::to_string(item.standardOffset) + " " +
                        std::to_string(item.daylightOffset) + " " + name(item.standardName) + " " +
                        name(item.daylightName) + "\n";
    for (std::uint8_t i = 0; i < item.daylightCount; ++i) {
        const DaylightRule& rule = item.daylightRules[i];
        shown += "rule " + std::to_string(rule.flag) + " " + show_time(rule.begin) + " " +
                 show_time(rule.end) + "\n";
    }
    return shown;
}

// One line a fact; what is zero is not shown, nor the kind of an alarm that is not there.
inline std::string show(const CalendarItem& item) {
    std::string shown = "type " + std::to_string(item.itemType) + "\n";
    shown += show_date_line("start ", item.start) + show_date_line("end ", item.end);
    if (item.alarmKind != VZ_ALARM_NONE || item.alarm.year != 0) {
        shown += "alarm " + std::to_string(item.alarmKind) + " " + show_time(item.alarm) + "\n";
    }
    shown += show_repeat(item);
    for (std::uint8_t i = 0; i < item.exceptionCount; ++i) {
        shown += "except " + show_time(item.exceptions[i]) + "\n";
    }
    for (std::uint8_t i = 0; i < item.fieldCount; ++i) {
        shown += show_field(item.fields[i], item.itemType) + "\n";
    }
    return shown + show_zone(item);
}

// The lines of an event, or of a to-do, in their calendar; `body` without the last line end. `calendar` are
// lines before it, each with its line end.
inline std::string calendar_with(std::string_view component, std::string_view body, std::string_view version,
                                 std::string_view calendar = {}) {
    std::string text = "BEGIN:VCALENDAR\r\nVERSION:" + std::string(version) + "\r\n" + std::string(calendar);
    text += "BEGIN:" + std::string(component) + "\r\n";
    if (!body.empty()) text += std::string(body) + "\r\n";
    return text + "END:" + std::string(component) + "\r\nEND:VCALENDAR\r\n";
}

inline std::string event(std::string_view body, std::string_view version = "1.0") {
    return calendar_with("VEVENT", body, version);
}

inline std::string todo(std::string_view body, std::string_view version = "1.0") {
    return calendar_with("VTODO", body, version);
}

class OwnedCalendar {
public:
    explicit OwnedCalendar(std::uint32_t size = VZ_CALENDAR_SIZE_TIME_ZONE,
                           std::uint32_t api_version = VZ_INTERFACE_VERSION)
        : api_version_(api_version), length_(vcalendar::record_length(size)) {
        std::memcpy(memory(), &size, sizeof size);
    }
    ~OwnedCalendar() { vcalendar::release_calendar(memory(), {api_version_}); }
    OwnedCalendar(const OwnedCalendar&) = delete;
    OwnedCalendar& operator=(const OwnedCalendar&) = delete;

    // Reads `text`; the code that was raised, or VZ_OK.
    ResultCode read(std::string_view text) { return read(versit::parse(text)); }
    ResultCode read(const versit::VersitObject& object) {
        try {
            vcalendar::read_calendar(object, memory(), {api_version_});
        } catch (ResultCode code) {
            return code;
        } catch (const std::bad_alloc&) {
            return VZ_ERR_OUT_OF_MEMORY;
        }
        return VZ_OK;
    }

    // The record, `length()` bytes.
    [[nodiscard]] std::byte* memory() const { return page_.last(length_); }
    [[nodiscard]] std::size_t length() const { return length_; }

    // A copy of it; what it does not have is zero. Its pointers stay the record's.
    [[nodiscard]] CalendarItem item() const {
        CalendarItem copy;
        std::memset(&copy, 0, sizeof copy);
        std::memcpy(&copy, memory(), length_);
        return copy;
    }

private:
    const std::uint32_t api_version_;
    const std::size_t length_;
    const GuardPage page_;
};

// What a whole text is read to.
inline std::string read_text(std::string_view text, std::uint32_t size = VZ_CALENDAR_SIZE_TIME_ZONE,
                             std::uint32_t api_version = VZ_INTERFACE_VERSION) {
    OwnedCalendar calendar(size, api_version);
    const ResultCode code = calendar.read(text);
    return code == VZ_OK ? show(calendar.item()) : "result " + std::to_string(code);
}

// What the lines of one event are read to.
inline std::string read_event(std::string_view body, std::string_view version = "1.0",
                              std::uint32_t api_version = VZ_INTERFACE_VERSION) {
    return read_text(event(body, version), VZ_CALENDAR_SIZE_TIME_ZONE, api_version);
}

inline std::string read_todo(std::string_view body, std::string_view version = "1.0",
                             std::uint32_t api_version = VZ_INTERFACE_VERSION) {
    return read_text(todo(body, version), VZ_CALENDAR_SIZE_TIME_ZONE, api_version);
}

}  // namespace vzapi::test
