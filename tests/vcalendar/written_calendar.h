// Writing a calendar entry of the test's own, and the texts to expect.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "call_context.h"
#include "support/text.h"
#include "vcalendar/calendar_builder.h"
#include "vcalendar/calendar_writer.h"

namespace vzapi::test::calendar {

// The receiving device and the interface version.
struct Target {
    std::uint32_t family = VZ_PROFILE_NONE;
    std::uint32_t version = 0;
    std::uint64_t third = VZ_PROFILE_OFF;
    std::uint32_t api_version = VZ_INTERFACE_VERSION;
};

inline constexpr Target kPlain{};
inline constexpr Target kVersion2{VZ_PROFILE_20, VZ_PROFILE_20_CALENDAR_2, VZ_PROFILE_ON,
                                  VZ_INTERFACE_VERSION};

[[nodiscard]] constexpr Target at_interface(std::uint32_t api_version, Target target = kPlain) {
    target.api_version = api_version;
    return target;
}

[[nodiscard]] inline std::string written(const void* item, const Target& target = kPlain) {
    return vcalendar::write_calendar(item, {target.api_version, target.family, target.version, target.third});
}

[[nodiscard]] inline std::string written(CalendarRecord& record, const Target& target = kPlain) {
    return written(record.item(), target);
}

[[nodiscard]] inline std::string written(const Calendar& calendar, const Target& target = kPlain) {
    CalendarRecord record(calendar);
    return written(record, target);
}

// The whole text around the lines of a component.
[[nodiscard]] inline std::string event_text(std::initializer_list<std::string_view> inside,
                                            std::string_view version = "1.0") {
    return lines({"BEGIN:VCALENDAR"}) + "VERSION:" + std::string(version) + "\r\n" + lines({"BEGIN:VEVENT"}) +
           lines(inside) + lines({"END:VEVENT", "END:VCALENDAR"});
}

[[nodiscard]] inline std::string todo_text(std::initializer_list<std::string_view> inside,
                                           std::string_view version = "1.0") {
    return lines({"BEGIN:VCALENDAR"}) + "VERSION:" + std::string(version) + "\r\n" + lines({"BEGIN:VTODO"}) +
           lines(inside) + lines({"END:VTODO", "END:VCALENDAR"});
}

// The text of a call (item type 2) without times, and its lines behind those of the frame.
[[nodiscard]] inline std::string call_text(std::initializer_list<std::string_view> rest,
                                           std::string_view version = "1.0") {
    return lines({"BEGIN:VCALENDAR"}) + "VERSION:" + std::string(version) + "\r\n" +
           lines({"BEGIN:VEVENT", "DTSTART:", "DTEND:", "AALARM:", "X-EPOCAGENDAENTRYTYPE:CALL"}) +
           lines(rest) + lines({"END:VEVENT", "END:VCALENDAR"});
}

// The same for a to-do.
[[nodiscard]] inline std::string bare_todo_text(std::initializer_list<std::string_view> rest,
                                                std::string_view version = "1.0") {
    return lines({"BEGIN:VCALENDAR"}) + "VERSION:" + std::string(version) + "\r\n" +
           lines({"BEGIN:VTODO", "AALARM:", "X-EPOCAGENDAENTRYTYPE:TODO"}) + lines(rest) +
           lines({"END:VTODO", "END:VCALENDAR"});
}

[[nodiscard]] inline bool holds_line(const std::string& text, const std::string& line) {
    return text.find("\r\n" + line + "\r\n") != text.npos;
}

[[nodiscard]] inline bool holds_name(const std::string& text, const std::string& name) {
    return text.find("\r\n" + name + ":") != text.npos;
}

}  // namespace vzapi::test::calendar
