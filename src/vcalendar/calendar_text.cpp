#include "vcalendar/calendar_text.h"

#include <algorithm>
#include <cstddef>

#include "versit/ascii.h"
#include "versit/base64.h"
#include "versit/open_component.h"
#include "versit/quoted_printable.h"

namespace vzapi::vcalendar {
namespace {

using versit::ComponentId;
using versit::PropertyId;
using versit::VersitProperty;

bool begins(const VersitProperty& line, PropertyId id, std::string_view component) {
    return id == PropertyId::Begin &&
           versit::equals_ignoring_case(versit::trim_blanks(line.value()), component);
}

// Collects the first component of one kind. Each kind is followed on its own, so that an entry inside another
// one is found as well.
class EntryCollector {
public:
    EntryCollector(ComponentId component, EntryText& text)
        : name_(versit::component_name(component)), open_(name_), text_(text) {}

    void see(const VersitProperty& line, PropertyId id) {
        if (open_.closed()) return;
        if (begin_ == nullptr) {
            if (begins(line, id, name_)) start(line);
        } else {
            open_.see(line, id);
            const bool is_own = open_.nested() == 0 && id != PropertyId::Begin && id != PropertyId::End;
            if (is_own) text_.lines.push_back({id, line});
        }
        if (begin_ != nullptr) {
            text_.section = {begin_, static_cast<std::size_t>(&line - begin_) + 1};
        }
    }

private:
    void start(const VersitProperty& begin) {
        constexpr std::size_t kOrdinaryLines = 16;
        begin_ = &begin;
        text_.lines.reserve(kOrdinaryLines);
    }

    std::string_view name_;
    versit::OpenComponent open_;
    EntryText& text_;
    const VersitProperty* begin_ = nullptr;
};

// Reads the lines of the calendar itself.
void see_own_line(const VersitProperty& line, PropertyId id, bool& has_version, CalendarText& calendar) {
    if (id == PropertyId::Version && !has_version) {
        calendar.version = line.value();
        has_version = true;
    } else if (id == PropertyId::Tz || id == PropertyId::Daylight) {
        calendar.zone_lines.push_back(line);
    }
}

}  // namespace

const VersitProperty* EntryText::first(PropertyId id) const noexcept {
    const auto found = std::find_if(lines.begin(), lines.end(),
                                    [id](const versit::IdentifiedLine& each) { return each.id == id; });
    return found == lines.end() ? nullptr : &found->line;
}

std::optional<CalendarText> split_calendar(const versit::VersitObject& object) {
    const std::vector<VersitProperty>& lines = object.lines();
    const auto begin = std::find_if(lines.begin(), lines.end(), [](const VersitProperty& line) {
        return line.id() == PropertyId::Begin;
    });
    const std::string_view name = versit::component_name(ComponentId::VCalendar);
    if (begin == lines.end() || !begins(*begin, PropertyId::Begin, name)) return std::nullopt;

    CalendarText calendar;
    EntryCollector event(ComponentId::VEvent, calendar.event);
    EntryCollector todo(ComponentId::VTodo, calendar.todo);
    versit::OpenComponent open(name);
    bool has_version = false;
    bool has_component = false;
    for (auto line = begin + 1; line != lines.end() && !open.closed(); ++line) {
        const PropertyId id = line->id();
        if (id == PropertyId::Begin && !has_component) {
            calendar.first_component = versit::trim_blanks(line->value());
            has_component = true;
        }
        open.see(*line, id);
        event.see(*line, id);
        todo.see(*line, id);
        if (open.nested() == 0) see_own_line(*line, id, has_version, calendar);
    }
    return calendar;
}

std::string_view plain_value(const VersitProperty& line, std::string& storage) {
    switch (line.encoding()) {
        case versit::Encoding::QuotedPrintable:
            versit::decode_quoted_printable(line.value(), storage);
            return storage;
        case versit::Encoding::Base64:
            storage = versit::decode_base64(line.value());
            return storage;
        default:
            return line.value();
    }
}

}  // namespace vzapi::vcalendar
