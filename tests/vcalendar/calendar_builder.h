// Calendar entries in tests: a value that compares and prints, the record made of one, and the value a record
// holds.
//
//     const Calendar meeting{.type = VZ_ITEM_APPOINTMENT, .start = local(2010, 6, 1, 9, 30),
//                            .fields = {text(VZ_CALENDAR_SUMMARY, u"Tide tables")}};
//     CalendarRecord record(meeting);
//     ConvertToVersit(VZ_TYPE_CALENDAR, record.item(), &out);
//     ConvertFromVersit(VZ_TYPE_CALENDAR, &out, &item);
//     EXPECT_EQ(calendar_of(&item), meeting);
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "vzapi/vzapi.h"

namespace vzapi::test::calendar {

// Text of a record; none stands for a null pointer.
using Text = std::optional<std::u16string>;

struct Time {
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    std::int32_t zone1 = 0;
    std::int32_t zone2 = 0;
    bool operator==(const Time&) const = default;
};

inline constexpr Time kNoTime{};

[[nodiscard]] constexpr Time utc(unsigned year, unsigned month, unsigned day, unsigned hour = 0,
                                 unsigned minute = 0, unsigned second = 0) {
    return {static_cast<std::uint16_t>(year),
            static_cast<std::uint8_t>(month),
            static_cast<std::uint8_t>(day),
            static_cast<std::uint8_t>(hour),
            static_cast<std::uint8_t>(minute),
            static_cast<std::uint8_t>(second),
            0,
            0};
}

[[nodiscard]] constexpr Time with_zones(Time time, std::int32_t zone1, std::int32_t zone2) {
    time.zone1 = zone1;
    time.zone2 = zone2;
    return time;
}

[[nodiscard]] constexpr Time local(unsigned year, unsigned month, unsigned day, unsigned hour = 0,
                                   unsigned minute = 0, unsigned second = 0) {
    return with_zones(utc(year, month, day, hour, minute, second), VZ_ZONE_LOCAL, VZ_ZONE_LOCAL);
}

struct Geo {
    Text latitude;
    Text longitude;
    bool operator==(const Geo&) const = default;
};

using Reference = std::array<std::uint32_t, 3>;

using Value = std::variant<Text, std::uint32_t, Geo, Reference>;

struct Field {
    std::uint32_t id = 0;
    Value value{};
    bool operator==(const Field&) const = default;
};

[[nodiscard]] inline Field text(std::uint32_t id, Text value) {
    return {id, Value(std::move(value))};
}
[[nodiscard]] inline Field number(std::uint32_t id, std::uint32_t value) {
    return {id, value};
}
[[nodiscard]] inline Field geo(Text latitude, Text longitude) {
    return {VZ_CALENDAR_GEO, Geo{std::move(latitude), std::move(longitude)}};
}
[[nodiscard]] inline Field reference(std::uint32_t first, std::uint32_t second, std::uint32_t third) {
    return {VZ_CALENDAR_REFERENCE, Reference{first, second, third}};
}

struct Repeat {
    std::uint32_t frequency = VZ_REPEAT_NONE;
    std::uint32_t interval = 0;
    std::uint32_t days = 0;
    std::uint32_t position = VZ_POSITION_NONE;
    bool operator==(const Repeat&) const = default;
};

struct Daylight {
    std::uint32_t flag = VZ_DAYLIGHT_TRUE;
    Time begin{};
    Time end{};
    bool operator==(const Daylight&) const = default;
};

struct Zone {
    std::int32_t standard_offset = 0;
    std::int32_t daylight_offset = 0;
    std::vector<Daylight> rules{};
    std::optional<std::string> standard_name{};
    std::optional<std::string> daylight_name{};
    bool operator==(const Zone&) const = default;
};

struct Calendar {
    std::uint32_t size = VZ_CALENDAR_SIZE_TIME_ZONE;
    std::uint32_t type = VZ_ITEM_OTHER;
    Time start{};
    Time end{};
    std::uint32_t alarm_kind = VZ_ALARM_NONE;
    Time alarm{};
    Repeat repeat{};  // the 8-bit members
    std::optional<Repeat> wide_repeat{};
    Time until{};
    std::vector<Field> fields{};
    std::vector<Time> exceptions{};
    std::optional<Zone> zone{};
    bool operator==(const Calendar&) const = default;
};

// ---- The record.

[[nodiscard]] inline CalendarTime record_time(const Time& time) {
    return {0,           time.year,   time.month, time.day,   time.hour,
            time.minute, time.second, 0,          time.zone1, time.zone2};
}

// Owns the record of an entry. Nothing is released through the pointers in it.
class CalendarRecord {
public:
    explicit CalendarRecord(const Calendar& calendar) {
        whole.size = calendar.size;
        whole.itemType = calendar.type;
        whole.start = record_time(calendar.start);
        whole.end = record_time(calendar.end);
        whole.alarmKind = calendar.alarm_kind;
        whole.alarm = record_time(calendar.alarm);
        whole.repeatKind = static_cast<std::uint8_t>(calendar.repeat.frequency);
        whole.repeatInterval = static_cast<std::uint8_t>(calendar.repeat.interval);
        whole.repeatDays = static_cast<std::uint8_t>(calendar.repeat.days);
        whole.repeatPosition = static_cast<std::uint8_t>(calendar.repeat.position);
        whole.repeatUntil = record_time(calendar.until);
        fill_fields(calendar.fields);
        fill_exceptions(calendar.exceptions);
        if (calendar.wide_repeat) fill_wide_repeat(*calendar.wide_repeat);
        if (calendar.zone) fill_zone(*calendar.zone);
    }
    CalendarRecord(const CalendarRecord&) = delete;
    CalendarRecord& operator=(const CalendarRecord&) = delete;

    // A block of exactly as many bytes as the size says (112 where no version has that size), so that a look
    // behind them is seen. Holds until the next call.
    [[nodiscard]] void* item() {
        const bool is_known = whole.size == 128 || whole.size == 152 || whole.size == 192;
        const std::size_t length = is_known ? whole.size : std::size_t{VZ_CALENDAR_SIZE_BASE};
        bytes_ = std::make_unique<std::byte[]>(length);
        std::memcpy(bytes_.get(), &whole, length);
        return bytes_.get();
    }

    CalendarItem whole{};  // to be changed at will

private:
    void fill_fields(const std::vector<Field>& fields) {
        for (const Field& field : fields) {
            const CalendarValue value =
                std::visit([this](const auto& v) { return value_of(v); }, field.value);
            fields_.push_back({sizeof(CalendarField), 0, VZ_CALENDAR_VALUE_SIZE, field.id, value});
        }
        whole.fieldCount = static_cast<std::uint8_t>(fields_.size());
        whole.fields = fields_.empty() ? nullptr : fields_.data();
    }
    void fill_exceptions(const std::vector<Time>& times) {
        for (const Time& time : times) exceptions_.push_back(record_time(time));
        whole.exceptionCount = static_cast<std::uint8_t>(exceptions_.size());
        whole.exceptions = exceptions_.empty() ? nullptr : exceptions_.data();
    }
    void fill_wide_repeat(const Repeat& repeat) {
        whole.repeatSize = VZ_REPEAT_BLOCK_SIZE;
        whole.repeatKind2 = repeat.frequency;
        whole.repeatInterval2 = repeat.interval;
        whole.repeatDays2 = repeat.days;
        whole.repeatPosition2 = repeat.position;
    }
    void fill_zone(const Zone& zone) {
        whole.zoneSize = VZ_ZONE_BLOCK_SIZE;
        whole.standardOffset = zone.standard_offset;
        whole.daylightOffset = zone.daylight_offset;
        for (const Daylight& rule : zone.rules) {
            rules_.push_back({rule.flag, record_time(rule.begin), record_time(rule.end)});
        }
        whole.daylightCount = static_cast<std::uint8_t>(rules_.size());
        whole.daylightRules = rules_.empty() ? nullptr : rules_.data();
        if (zone.standard_name) whole.standardName = names_.emplace_back(*zone.standard_name).data();
        if (zone.daylight_name) whole.daylightName = names_.emplace_back(*zone.daylight_name).data();
    }

    char16_t* pointer_to_text(const Text& text) { return text ? texts_.emplace_back(*text).data() : nullptr; }

    CalendarValue value_of(const Text& text) {
        CalendarValue value{};
        value.text = pointer_to_text(text);
        return value;
    }
    CalendarValue value_of(std::uint32_t number) {
        CalendarValue value{};
        value.number = number;
        return value;
    }
    CalendarValue value_of(const Geo& geo) {
        CalendarValue value{};
        value.geo = &geos_.emplace_back(CalendarGeo{
            sizeof(CalendarGeo), {}, pointer_to_text(geo.latitude), pointer_to_text(geo.longitude)});
        return value;
    }
    CalendarValue value_of(const Reference& numbers) {
        CalendarValue value{};
        value.reference = &references_.emplace_back(
            CalendarReference{sizeof(CalendarReference), {numbers[0], numbers[1], numbers[2]}});
        return value;
    }

    std::unique_ptr<std::byte[]> bytes_;
    std::vector<CalendarField> fields_;
    std::vector<CalendarTime> exceptions_;
    std::vector<DaylightRule> rules_;
    std::deque<std::u16string> texts_;
    std::deque<std::string> names_;
    std::deque<CalendarGeo> geos_;
    std::deque<CalendarReference> references_;
};

// ---- The value of a record, whose sizes are checked on the way.

[[nodiscard]] inline Time time_of(const CalendarTime& time) {
    EXPECT_EQ(time.reserved, 0U);
    return {time.year, time.month, time.day, time.hour, time.minute, time.second, time.zone1, time.zone2};
}

[[nodiscard]] inline Text text_at(const char16_t* text) {
    return text == nullptr ? Text() : Text(text);
}

[[nodiscard]] inline Value value_at(std::uint32_t type, const CalendarField& field) {
    const bool is_birth_year = type == VZ_ITEM_BIRTHDAY || type == VZ_ITEM_ANNIVERSARY;
    switch (field.fieldId) {
        case VZ_CALENDAR_GEO:
            EXPECT_EQ(field.value.geo->size, sizeof(CalendarGeo));
            return Geo{text_at(field.value.geo->latitude), text_at(field.value.geo->longitude)};
        case VZ_CALENDAR_REFERENCE: {
            EXPECT_EQ(field.value.reference->size, sizeof(CalendarReference));
            const auto& numbers = field.value.reference->numbers;
            return Reference{numbers[0], numbers[1], numbers[2]};
        }
        case VZ_CALENDAR_CLASS:
        case VZ_CALENDAR_PRIORITY:
        case VZ_CALENDAR_STATUS:
            return static_cast<std::uint32_t>(field.value.number);
        case VZ_CALENDAR_DESCRIPTION:
            if (is_birth_year) return static_cast<std::uint32_t>(field.value.number);
            [[fallthrough]];
        default:
            return text_at(field.value.text);
    }
}

[[nodiscard]] inline Zone zone_of(const CalendarItem& item) {
    Zone zone{item.standardOffset, item.daylightOffset, {}, {}, {}};
    for (std::size_t i = 0; i < item.daylightCount; ++i) {
        const DaylightRule& rule = item.daylightRules[i];
        zone.rules.push_back({rule.flag, time_of(rule.begin), time_of(rule.end)});
    }
    if (item.standardName != nullptr) zone.standard_name = item.standardName;
    if (item.daylightName != nullptr) zone.daylight_name = item.daylightName;
    return zone;
}

// What the record at `item` holds in as many bytes as its size says.
[[nodiscard]] inline Calendar calendar_of(const void* record) {
    CalendarItem item{};
    std::memcpy(&item, record, sizeof item.size);
    std::memcpy(&item, record, item.size);
    Calendar calendar;
    calendar.size = item.size;
    calendar.type = item.itemType;
    calendar.start = time_of(item.start);
    calendar.end = time_of(item.end);
    calendar.alarm_kind = item.alarmKind;
    calendar.alarm = time_of(item.alarm);
    calendar.repeat = {item.repeatKind, item.repeatInterval, item.repeatDays, item.repeatPosition};
    calendar.until = time_of(item.repeatUntil);
    for (std::size_t i = 0; i < item.fieldCount; ++i) {
        EXPECT_EQ(item.fields[i].size, sizeof(CalendarField));
        EXPECT_EQ(item.fields[i].valueSize, VZ_CALENDAR_VALUE_SIZE);
        calendar.fields.push_back({item.fields[i].fieldId, value_at(item.itemType, item.fields[i])});
    }
    for (std::size_t i = 0; i < item.exceptionCount; ++i) {
        calendar.exceptions.push_back(time_of(item.exceptions[i]));
    }
    if (item.repeatSize != 0) {
        EXPECT_EQ(item.repeatSize, VZ_REPEAT_BLOCK_SIZE);
        calendar.wide_repeat =
            Repeat{item.repeatKind2, item.repeatInterval2, item.repeatDays2, item.repeatPosition2};
    }
    if (item.zoneSize != 0) {
        EXPECT_EQ(item.zoneSize, VZ_ZONE_BLOCK_SIZE);
        calendar.zone = zone_of(item);
    }
    return calendar;
}

// ---- Printing: units outside printable ASCII as \uXXXX.

inline void print(const Text& text, std::ostream& out) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    if (!text) {
        out << "null";
        return;
    }
    out << '"';
    for (const char16_t unit : *text) {
        if (unit >= u' ' && unit <= u'~') {
            out << static_cast<char>(unit);
        } else {
            out << "\\u" << kDigits[unit >> 12] << kDigits[unit >> 8 & 15] << kDigits[unit >> 4 & 15]
                << kDigits[unit & 15];
        }
    }
    out << '"';
}

inline std::ostream& operator<<(std::ostream& out, const Time& time) {
    return out << time.year << '-' << +time.month << '-' << +time.day << ' ' << +time.hour << ':'
               << +time.minute << ':' << +time.second << " zones " << time.zone1 << ", " << time.zone2;
}

inline std::ostream& operator<<(std::ostream& out, const Repeat& repeat) {
    return out << "kind " << repeat.frequency << " interval " << repeat.interval << " days " << repeat.days
               << " position " << repeat.position;
}

inline std::ostream& operator<<(std::ostream& out, const Field& field) {
    out << std::hex << field.id << std::dec << ": ";
    if (const auto* text = std::get_if<Text>(&field.value)) print(*text, out);
    if (const auto* number = std::get_if<std::uint32_t>(&field.value)) out << *number;
    if (const auto* geo = std::get_if<Geo>(&field.value)) {
        print(geo->latitude, out);
        print(geo->longitude, out << "; ");
    }
    if (const auto* numbers = std::get_if<Reference>(&field.value)) {
        for (const std::uint32_t number : *numbers) out << number << ' ';
    }
    return out;
}

inline std::ostream& operator<<(std::ostream& out, const Zone& zone) {
    out << zone.standard_offset << " / " << zone.daylight_offset << ' '
        << zone.standard_name.value_or("(null)") << " / " << zone.daylight_name.value_or("(null)");
    for (const Daylight& rule : zone.rules) {
        out << "\n    rule " << rule.flag << ": " << rule.begin << " to " << rule.end;
    }
    return out;
}

inline std::ostream& operator<<(std::ostream& out, const Calendar& calendar) {
    out << "size " << calendar.size << " type " << calendar.type << "\n  start " << calendar.start
        << "\n  end " << calendar.end << "\n  alarm " << calendar.alarm_kind << ": " << calendar.alarm
        << "\n  repeat " << calendar.repeat << "\n  until " << calendar.until;
    if (calendar.wide_repeat) out << "\n  wide " << *calendar.wide_repeat;
    for (const Field& field : calendar.fields) out << "\n  " << field;
    for (const Time& time : calendar.exceptions) out << "\n  except " << time;
    if (calendar.zone) out << "\n  zone " << *calendar.zone;
    return out;
}

}  // namespace vzapi::test::calendar
