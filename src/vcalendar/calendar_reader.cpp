#include "vcalendar/calendar_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <utility>

#include "result.h"
#include "vcalendar/calendar_fields.h"
#include "vcalendar/calendar_reader_dates.h"
#include "vcalendar/calendar_reader_fields.h"
#include "vcalendar/calendar_reader_rules.h"
#include "vcalendar/calendar_record.h"
#include "vcalendar/calendar_text.h"
#include "vcalendar/item_type.h"
#include "vcalendar/recurrence.h"
#include "vcalendar/recurrence_text.h"
#include "vcalendar/size_switches.h"
#include "vcalendar/time_zone_lines.h"
#include "versit/ascii.h"
#include "versit/value_reader.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcalendar {
namespace {

using versit::PropertyId;
using enum versit::DefaultCharset;

constexpr VersionRules kVersions[] = {
    // version, charset, escapes, VALARM, EXDATE of to-dos, ends of birthdays, DURATION
    {"1.0", System, false, false, true, false, false},
    {"2.0", Utf8, true, true, false, true, true},
};

// The first of these that an event has tells its type.
constexpr PropertyId kTypeProperties[] = {
    PropertyId::Categories,
    PropertyId::XEpocAgendaEntryType,
    PropertyId::XEpocAgendaType,
};

bool has_own_item_type(const EntryText& event) {
    return std::any_of(event.lines.begin(), event.lines.end(), [](const versit::IdentifiedLine& line) {
        return line.id == PropertyId::None &&
               versit::equals_ignoring_case(line.line.raw_name(), kItemTypeName);
    });
}

// The type that the properties of an event name, VZ_ITEM_OTHER for an unknown name; nothing without any.
std::optional<std::uint32_t> named_type(const EntryText& event, std::uint32_t api_version,
                                        EntryValues& values) {
    if (api_version >= VZ_INTERFACE_MARKS && has_own_item_type(event)) return VZ_ITEM_ANNIVERSARY;
    for (const PropertyId id : kTypeProperties) {
        if (const auto* line = event.first(id)) return item_type_of_name(values.text(*line));
    }
    return std::nullopt;
}

// Reads one calendar into a copy of its record, which is written back when all of it has been read.
class CalendarReader {
public:
    CalendarReader(const CalendarText& text, const VersionRules& rules, std::uint32_t api_version)
        : text_(text), rules_(rules), api_version_(api_version), values_(rules) {}

    void read(CalendarItem& item) {
        const SizeSwitches switches = size_switches(item.size, api_version_);
        const bool is_todo = has_todo();
        read_type(is_todo, switches, item);
        if (is_todo) {
            read_todo(switches, item);
        } else {
            read_event(switches, item);
        }
        builder_.hand_over(switches, item);
    }

private:
    // A to-do beside an event is what is read, while the type is that of the event.
    [[nodiscard]] bool has_todo() const {
        const std::string_view name = versit::component_name(versit::ComponentId::VTodo);
        return !text_.todo.lines.empty() || versit::equals_ignoring_case(text_.first_component, name);
    }

    void read_type(bool is_todo, const SizeSwitches& switches, CalendarItem& item) {
        if (text_.event.lines.empty()) {
            if (is_todo) item.itemType = VZ_ITEM_TODO;
            return;
        }
        const std::optional<std::uint32_t> type = named_type(text_.event, api_version_, values_);
        is_typed_ = type.value_or(VZ_ITEM_OTHER) != VZ_ITEM_OTHER;
        item.itemType = type.value_or(VZ_ITEM_APPOINTMENT);
        if (!switches.time_zone || item.itemType != VZ_ITEM_APPOINTMENT) return;
        if (auto zone = read_zone(text_.zone_lines)) builder_.set_zone(std::move(*zone));
    }

    void read_event(const SizeSwitches& switches, CalendarItem& item) {
        if (switches.exceptions) read_exceptions(text_.event, builder_);
        read_event_dates(text_.event, rules_, is_typed_, item);
        const bool has_no_end = item.end.year == 0 && item.start.year != 0;
        if (rules_.completes_birthdays && item.itemType == VZ_ITEM_BIRTHDAY && has_no_end) {
            item.end = item.start;
        }
        read_recurrence(text_.event, switches, item);
        read_event_fields(text_.event, values_, item.itemType, api_version_, builder_);
    }

    void read_todo(const SizeSwitches& switches, CalendarItem& item) {
        read_todo_dates(text_.todo, rules_, item);
        read_todo_fields(text_.todo, values_, item.itemType, api_version_, builder_);
        if (api_version_ >= VZ_INTERFACE_TODO_REPEATS) read_recurrence(text_.todo, switches, item);
        if (rules_.has_todo_exceptions && switches.exceptions) read_exceptions(text_.todo, builder_);
    }

    // The first RRULE alone: what several of them mean together is none that the record can hold.
    static void read_recurrence(const EntryText& entry, const SizeSwitches& switches, CalendarItem& item) {
        const versit::VersitProperty* line = entry.first(PropertyId::Rrule);
        if (line == nullptr) return;
        std::string storage;
        const auto rule = parse_recurrence(plain_value(*line, storage), item.start);
        if (rule) store_recurrence(*rule, switches, item);
    }

    const CalendarText& text_;
    const VersionRules& rules_;
    const std::uint32_t api_version_;
    EntryValues values_;
    bool is_typed_ = false;  // the event names its type, and the name is known
    CalendarBuilder builder_;
};

}  // namespace

const VersionRules* find_version_rules(std::string_view version) noexcept {
    const auto* row = std::find_if(std::begin(kVersions), std::end(kVersions),
                                   [version](const VersionRules& each) { return each.version == version; });
    return row == std::end(kVersions) ? nullptr : row;
}

void read_calendar(const versit::VersitObject& object, void* item, const ReaderContext& context) {
    const std::optional<CalendarText> text = split_calendar(object);
    if (!text) raise(VZ_ERR_INVALID_TEXT);
    const VersionRules* rules = find_version_rules(text->version);
    if (rules == nullptr) raise(VZ_ERR_INVALID_TEXT);

    std::uint32_t size = 0;
    std::memcpy(&size, item, sizeof size);
    const std::size_t length = record_length(size);
    CalendarItem record{};
    std::memcpy(&record, item, length);
    CalendarReader(*text, *rules, context.api_version).read(record);
    std::memcpy(item, &record, length);
}

}  // namespace vzapi::vcalendar
