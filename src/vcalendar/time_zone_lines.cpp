#include "vcalendar/time_zone_lines.h"

#include <array>
#include <cstddef>
#include <utility>

#include "vcalendar/calendar_time.h"
#include "versit/ascii.h"

namespace vzapi::vcalendar {
namespace {

using versit::equals_ignoring_case;
using versit::PropertyId;
using versit::trim_blanks;
using versit::VersitProperty;

constexpr unsigned kMinutesOfHour = 60;
constexpr std::int32_t kMinutesOfDay = 24 * 60;
constexpr std::size_t kMostRules = 255;

// The components of a DAYLIGHT value.
enum Component : std::size_t { kFlag, kOffset, kBegin, kEnd, kStandardName, kDaylightName, kComponents };
using Components = std::array<std::string, kComponents>;

// Splits at each ';'; "\;" and "\\" are ';' and '\' inside a component. What comes behind the last component
// is dropped.
Components split(std::string_view value) {
    Components components;
    std::size_t component = kFlag;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == ';') {
            if (++component == kComponents) break;
            continue;
        }
        const bool escapes =
            value[i] == '\\' && i + 1 < value.size() && (value[i + 1] == ';' || value[i + 1] == '\\');
        if (escapes) ++i;
        components[component] += value[i];
    }
    return components;
}

// One or two digits, all of `text`.
std::optional<unsigned> parse_digits(std::string_view text) noexcept {
    if (text.empty() || text.size() > 2) return std::nullopt;
    unsigned number = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') return std::nullopt;
        number = number * 10 + static_cast<unsigned>(digit - '0');
    }
    return number;
}

bool is_offset(std::int32_t minutes) noexcept {
    return minutes > -kMinutesOfDay && minutes < kMinutesOfDay;
}

CalendarTime date_or_none(std::string_view text) noexcept {
    const std::optional<DateText> date = parse_date_text(text);
    return date ? date->time : CalendarTime{};
}

void keep_first(std::string& kept, std::string& text) noexcept {
    if (kept.empty()) kept.swap(text);
}

// What the lines have told so far.
class ZoneReading {
public:
    void read(const VersitProperty& line) {
        const PropertyId id = line.id();
        if (id != PropertyId::Tz && id != PropertyId::Daylight) return;
        const std::string value = versit::decoded_value(line, versit::Encoding::None);
        if (id == PropertyId::Tz) {
            has_line_ |= keep_offset(value, has_standard_, zone_.standard_offset);
        } else {
            read_daylight(split(value));
        }
    }

    std::optional<ZoneBlock> take() {
        if (!has_line_) return std::nullopt;
        return std::move(zone_);
    }

private:
    static bool keep_offset(std::string_view text, bool& known, std::int32_t& offset) noexcept {
        const std::optional<std::int32_t> read = parse_utc_offset(text);
        if (!read) return false;
        if (!known) offset = *read;
        known = true;
        return true;
    }

    void read_daylight(Components components) {
        const std::string_view flag = trim_blanks<char>(components[kFlag]);
        const bool is_true = equals_ignoring_case(flag, "TRUE");
        if (!is_true && !equals_ignoring_case(flag, "FALSE")) return;
        has_line_ = true;
        keep_offset(components[kOffset], has_daylight_, zone_.daylight_offset);
        keep_first(zone_.standard_name, components[kStandardName]);
        keep_first(zone_.daylight_name, components[kDaylightName]);

        DaylightRule rule{};
        rule.flag = is_true ? VZ_DAYLIGHT_TRUE : VZ_DAYLIGHT_FALSE;
        rule.begin = date_or_none(components[kBegin]);
        rule.end = date_or_none(components[kEnd]);
        const bool says_something = !is_true || is_valid(rule.begin) || is_valid(rule.end);
        if (says_something && zone_.rules.size() < kMostRules) zone_.rules.push_back(rule);
    }

    ZoneBlock zone_;
    bool has_line_ = false;
    bool has_standard_ = false;
    bool has_daylight_ = false;
};

void append_date(const CalendarTime& time, std::string& value) {
    value += ';';
    if (is_valid(time)) append_zoned_date_text(time, value);
}

// A line break or a NUL would end the line.
void append_name(std::string_view name, std::string& value) {
    value += ';';
    for (const char byte : name) {
        if (byte == '\r' || byte == '\n' || byte == '\0') break;
        if (byte == ';' || byte == '\\') value += '\\';
        value += byte;
    }
}

bool says_daylight(const ZoneBlock& zone) noexcept {
    return zone.daylight_offset != 0 || !zone.standard_name.empty() || !zone.daylight_name.empty();
}

std::string daylight_value(const ZoneBlock& zone, const DaylightRule& rule) {
    const bool has_date = is_valid(rule.begin) || is_valid(rule.end);
    if (rule.flag == VZ_DAYLIGHT_FALSE && !has_date && !says_daylight(zone)) return "FALSE";
    std::string value = rule.flag == VZ_DAYLIGHT_FALSE ? "FALSE;" : "TRUE;";
    if (is_offset(zone.daylight_offset)) append_utc_offset(zone.daylight_offset, value);
    append_date(rule.begin, value);
    append_date(rule.end, value);
    append_name(zone.standard_name, value);
    append_name(zone.daylight_name, value);
    return value;
}

}  // namespace

std::optional<std::int32_t> parse_utc_offset(std::string_view text) noexcept {
    text = trim_blanks(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);

    std::string_view minute_text = "00";
    const std::size_t colon = text.find(':');
    if (colon != text.npos || text.size() == 4) {
        minute_text = colon != text.npos ? text.substr(colon + 1) : text.substr(2);
        text = text.substr(0, colon != text.npos ? colon : 2);
    }
    const std::optional<unsigned> hours = parse_digits(text);
    const std::optional<unsigned> minutes = parse_digits(minute_text);
    if (!hours || !minutes || minute_text.size() != 2 || *minutes >= kMinutesOfHour) return std::nullopt;
    const auto offset = static_cast<std::int32_t>(*hours * kMinutesOfHour + *minutes);
    if (!is_offset(offset)) return std::nullopt;
    return negative ? -offset : offset;
}

void append_utc_offset(std::int32_t minutes, std::string& text) {
    const auto two_digits = [&text](std::uint32_t number) {
        if (number < 10) text += '0';
        text += std::to_string(number);
    };
    // Unsigned: the lowest number has no positive twin.
    const auto bits = static_cast<std::uint32_t>(minutes);
    const std::uint32_t magnitude = minutes < 0 ? 0 - bits : bits;
    text += minutes < 0 ? '-' : '+';
    two_digits(magnitude / kMinutesOfHour);
    text += ':';
    two_digits(magnitude % kMinutesOfHour);
}

bool ZoneBlock::empty() const noexcept {
    return standard_offset == 0 && rules.empty() && !says_daylight(*this);
}

std::optional<ZoneBlock> read_zone(std::span<const VersitProperty> calendar_lines) {
    ZoneReading reading;
    for (const VersitProperty& line : calendar_lines) reading.read(line);
    return reading.take();
}

void append_zone_lines(const ZoneBlock& zone, versit::LineBuilder& lines) {
    if (zone.empty()) return;
    // Without a rule there is still the offset and the names to tell.
    DaylightRule dateless{};
    dateless.flag = VZ_DAYLIGHT_TRUE;
    if (zone.rules.empty() && says_daylight(zone)) {
        lines.property(PropertyId::Daylight, "", daylight_value(zone, dateless));
    }
    for (const DaylightRule& rule : zone.rules) {
        lines.property(PropertyId::Daylight, "", daylight_value(zone, rule));
    }
    if (!is_offset(zone.standard_offset)) return;
    std::string offset;
    append_utc_offset(zone.standard_offset, offset);
    lines.property(PropertyId::Tz, "", std::string_view(offset));
}

}  // namespace vzapi::vcalendar
