// The entries of the array `fields`.
#include <array>

#include "vcalendar/calendar_fields.h"
#include "vcalendar/calendar_writing.h"

namespace vzapi::vcalendar {
namespace {

using versit::PropertyId;

std::uint32_t number_of(const CalendarField& field) noexcept {
    return static_cast<std::uint32_t>(field.value.number);
}

void write_class(CalendarWriting& writing, const CalendarField& field) {
    const std::string_view word = versit::find_word(versit::class_words(), number_of(field));
    if (!word.empty()) writing.lines().property(PropertyId::Class, {}, word);
}

void write_geo(CalendarWriting& writing, const CalendarField& field) {
    CalendarGeo geo;
    if (!writing.memory().load(field.value.geo, geo) || geo.size != sizeof geo) return;
    std::u16string value;
    writing.append_text(writing.memory().text(geo.latitude), value);
    value.push_back(u';');
    writing.append_text(writing.memory().text(geo.longitude), value);
    writing.lines().property(PropertyId::Geo, {}, value);
}

void write_reference(CalendarWriting& writing, const CalendarField& field) {
    CalendarReference reference;
    if (!writing.memory().load(field.value.reference, reference)) return;
    if (reference.size != sizeof reference) return;
    const auto& [first, second, third] = reference.numbers;
    std::string line(kReferenceName);
    line.append(":").append(std::to_string(first));
    line.append(";").append(std::to_string(second));
    line.append(";").append(std::to_string(third));
    writing.lines().line(line);
}

void write_text(CalendarWriting& writing, PropertyId property, const CalendarField& field) {
    const std::u16string_view text = writing.memory().text(field.value.text);
    if (text.data() != nullptr) writing.text_line(property, text);
}

void write_status(CalendarWriting& writing, const CalendarField& field) {
    const std::uint32_t status = number_of(field);
    const std::string_view word = versit::find_word(status_words(), status);
    if (!word.empty()) {
        writing.lines().property(PropertyId::Status, {}, word);
    } else if (status != 0) {
        writing.number_line(PropertyId::Status, status);
    }
}

void write_priority(CalendarWriting& writing, const CalendarField& field) {
    if (const std::uint32_t priority = number_of(field); priority != 0) {
        writing.number_line(PropertyId::Priority, priority);
    }
}

// A field whose line is the same in events and to-dos.
void write_common(CalendarWriting& writing, const FieldRow& row, const CalendarField& field) {
    switch (row.kind) {
        case FieldKind::Class:
            return write_class(writing, field);
        case FieldKind::Geo:
            return write_geo(writing, field);
        case FieldKind::Reference:
            return write_reference(writing, field);
        default:
            return write_text(writing, row.property, field);
    }
}

void write_todo_field(CalendarWriting& writing, const FieldRow& row, const CalendarField& field) {
    switch (row.kind) {
        case FieldKind::Priority:
            return write_priority(writing, field);
        case FieldKind::Status:
            return write_status(writing, field);
        default:
            return write_common(writing, row, field);
    }
}

// The birth years of one entry: one that is not known is that of the entry before it.
class BirthYears {
public:
    void write(CalendarWriting& writing, const CalendarField& field) {
        if (const std::uint32_t year = number_of(field); year != 0) last_ = year;
        writing.number_line(PropertyId::XBirthyear, last_);
    }

private:
    std::uint32_t last_ = 0;
};

// Calls `visit` with each field that can be read.
template <class Visit>
void for_each_field(CalendarWriting& writing, Visit visit) {
    const CalendarItem& item = writing.item();
    for (std::size_t i = 0; i < item.fieldCount; ++i) {
        CalendarField field;
        if (writing.memory().load_entry(item.fields, i, field)) visit(field);
    }
}

// Items of these types carry a SUMMARY as soon as they carry anything.
bool needs_summary(const CalendarItem& item) noexcept {
    return item.fieldCount != 0 && (item.itemType == VZ_ITEM_APPOINTMENT ||
                                    item.itemType == VZ_ITEM_BIRTHDAY || item.itemType == VZ_ITEM_EVENT);
}

}  // namespace

void write_event_fields(CalendarWriting& writing) {
    const CalendarItem& item = writing.item();
    BirthYears birth_years;
    bool has_summary = false;
    for_each_field(writing, [&](const CalendarField& field) {
        has_summary = has_summary || field.fieldId == VZ_CALENDAR_SUMMARY;
        const FieldRow* row = find_calendar_field(field.fieldId);
        if (row == nullptr) return;
        if (row->id == VZ_CALENDAR_BIRTH_YEAR && has_birth_year(item.itemType)) {
            birth_years.write(writing, field);
        } else if (row->kind != FieldKind::Priority && row->kind != FieldKind::Status) {
            // Those two have a line in to-dos alone. Readers give them to events as well, as numbers that a
            // text may hold: they must never be taken for pointers.
            write_common(writing, *row, field);
        }
    });
    if (!has_summary && needs_summary(item)) {
        writing.lines().property(PropertyId::Summary, {}, std::string_view());
    }
}

void write_todo_fields(CalendarWriting& writing) {
    for_each_field(writing, [&](const CalendarField& field) {
        const FieldRow* row = find_calendar_field(field.fieldId);
        if (row != nullptr && row->in_todo) write_todo_field(writing, *row, field);
    });
}

}  // namespace vzapi::vcalendar
