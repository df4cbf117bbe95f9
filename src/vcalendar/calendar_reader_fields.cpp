#include "vcalendar/calendar_reader_fields.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "vcalendar/calendar_fields.h"
#include "versit/ascii.h"
#include "versit/coded_value.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcalendar {
namespace {

using versit::parse_number;
using versit::PropertyId;
using versit::VersitProperty;

// Spellings of a status beside that of status_words(), which is the written one.
constexpr versit::WordRow kOtherStatusWords[] = {
    {VZ_TODO_NEEDS_ACTION, "NEEDS-ACTION"},
    {VZ_TODO_NEEDS_ACTION, "NEEDS_ACTION"},
};

// The first row of a property; null when it is none of an entry.
const FieldRow* find_row(PropertyId property) {
    const std::span<const FieldRow> rows = calendar_fields();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [property](const FieldRow& each) { return each.property == property; });
    return row == rows.end() ? nullptr : &*row;
}

std::optional<std::uint32_t> parse_class(std::u16string_view text) {
    return versit::find_code(versit::class_words(), text);
}

std::optional<std::uint32_t> parse_status(std::u16string_view text) {
    if (const auto code = versit::find_code(status_words(), text)) return code;
    if (const auto code = versit::find_code(kOtherStatusWords, text)) return code;
    return parse_number(text);
}

// Three numbers joined with ';'.
std::optional<std::array<std::uint32_t, 3>> parse_reference(std::u16string_view text) {
    std::array<std::uint32_t, 3> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const bool is_last = i + 1 == numbers.size();
        const std::size_t end = is_last ? text.size() : text.find(u';');
        if (end == std::u16string_view::npos) return std::nullopt;
        const std::optional<std::uint32_t> number = parse_number(text.substr(0, end));
        if (!number) return std::nullopt;
        numbers[i] = *number;
        if (!is_last) text.remove_prefix(end + 1);
    }
    return numbers;
}

// Whether a DESCRIPTION that is a number tells the year of birth.
bool describes_birth_year(std::uint32_t item_type, std::uint32_t api_version) {
    if (item_type == VZ_ITEM_BIRTHDAY) return api_version >= VZ_INTERFACE_CHECKED_SIZES;
    return item_type == VZ_ITEM_ANNIVERSARY && api_version >= VZ_INTERFACE_MARKS;
}

class FieldReader {
public:
    FieldReader(EntryValues& values, std::uint32_t item_type, std::uint32_t api_version,
                CalendarBuilder& builder)
        : values_(values),
          has_birth_year_(has_birth_year(item_type)),
          describes_birth_year_(describes_birth_year(item_type, api_version)),
          builder_(builder) {}

    void read_line(const versit::IdentifiedLine& line) {
        if (line.id == PropertyId::None) {
            const bool is_reference = versit::equals_ignoring_case(line.line.raw_name(), kReferenceName);
            if (is_reference) read_reference(line.line);
        } else if (const FieldRow* row = find_row(line.id)) {
            read_field(*row, line.line);
        } else if (line.id == PropertyId::XBirthyear && has_birth_year_) {
            add_number(VZ_CALENDAR_BIRTH_YEAR, parse_number(values_.text(line.line)));
        }
    }

    void read_todo_line(const versit::IdentifiedLine& line) {
        if (line.id == PropertyId::XClass) {
            if (!other_class_) other_class_ = parse_class(values_.text(line.line));
        } else if (line.id == PropertyId::Status || has_place_beside_status()) {
            read_line(line);
        }
    }

    // Behind the last line of a to-do: its class under the other name, and the status that each one has.
    void finish_todo() {
        const bool has_class = builder_.has(VZ_CALENDAR_CLASS);
        if (!has_class && has_place_beside_status()) add_number(VZ_CALENDAR_CLASS, other_class_);
        if (!builder_.has(VZ_CALENDAR_STATUS)) builder_.add_number(VZ_CALENDAR_STATUS, VZ_TODO_NEEDS_ACTION);
    }

private:
    // The last place of a to-do is kept for its status.
    [[nodiscard]] bool has_place_beside_status() const {
        return builder_.field_places() > 1 || builder_.has(VZ_CALENDAR_STATUS);
    }

    void read_field(const FieldRow& row, const VersitProperty& line) {
        switch (row.kind) {
            case FieldKind::Class:
                return add_number(row.id, parse_class(values_.text(line)));
            case FieldKind::Priority:
                return add_number(row.id, parse_number(values_.text(line)));
            case FieldKind::Status:
                return add_number(row.id, parse_status(values_.text(line)));
            case FieldKind::Geo:
                return read_geo(line);
            case FieldKind::Reference:
                return read_reference(line);
            case FieldKind::Text:
                if (row.id == VZ_CALENDAR_DESCRIPTION) return read_description(values_.text(line));
                return add_text(row.id, values_.text(line));
        }
    }

    // 0x302 is a number to birthdays and anniversaries: a text is never put there.
    void read_description(std::u16string_view text) {
        if (!has_birth_year_) return add_text(VZ_CALENDAR_DESCRIPTION, text);
        const auto year = describes_birth_year_ ? parse_number(text) : std::nullopt;
        if (year) return builder_.add_number(VZ_CALENDAR_BIRTH_YEAR, *year);
        add_text(VZ_CALENDAR_DESCRIPTION_ALONE, text);
    }

    // Latitude and longitude, also with ',' between them. Where texts have escapes, a ';' that has one
    // separates nothing, but for a value that has no other.
    void read_geo(const VersitProperty& line) {
        if (values_.split_escaped(line)) return builder_.add_geo(values_.part(0), values_.part(1));
        const std::u16string_view text = values_.text(line);
        std::size_t separator = text.find(u';');
        if (separator == std::u16string_view::npos) separator = text.find(u',');
        if (separator == std::u16string_view::npos) return;
        builder_.add_geo(text.substr(0, separator), text.substr(separator + 1));
    }

    void read_reference(const VersitProperty& line) {
        if (const auto numbers = parse_reference(values_.text(line))) builder_.add_reference(*numbers);
    }

    // An empty value is an absent one.
    void add_text(std::uint32_t id, std::u16string_view text) {
        if (!text.empty()) builder_.add_text(id, text);
    }

    void add_number(std::uint32_t id, std::optional<std::uint32_t> number) {
        if (number) builder_.add_number(id, *number);
    }

    EntryValues& values_;
    const bool has_birth_year_;
    const bool describes_birth_year_;
    CalendarBuilder& builder_;
    std::optional<std::uint32_t> other_class_;  // of X-CLASS
};

}  // namespace

void read_event_fields(const EntryText& entry, EntryValues& values, std::uint32_t item_type,
                       std::uint32_t api_version, CalendarBuilder& builder) {
    FieldReader reader(values, item_type, api_version, builder);
    for (const versit::IdentifiedLine& line : entry.lines) reader.read_line(line);
}

void read_todo_fields(const EntryText& entry, EntryValues& values, std::uint32_t item_type,
                      std::uint32_t api_version, CalendarBuilder& builder) {
    FieldReader reader(values, item_type, api_version, builder);
    for (const versit::IdentifiedLine& line : entry.lines) reader.read_todo_line(line);
    reader.finish_todo();
}

}  // namespace vzapi::vcalendar
