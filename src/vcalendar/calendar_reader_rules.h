// What the version of a calendar's text changes in its reading.
#pragma once

#include <cstddef>
#include <string_view>

#include "versit/compound_value.h"
#include "versit/property.h"
#include "versit/value_reader.h"

namespace vzapi::vcalendar {

struct VersionRules {
    std::string_view version;
    versit::DefaultCharset charset;  // of texts whose line names none
    bool escapes_text;               // "\n", "\,", "\;" and "\\" stand for something else (RFC 2445, 4.3.11)
    bool has_valarm;                 // alarms are components
    bool has_todo_exceptions;        // EXDATE of a to-do is read
    bool completes_birthdays;        // one without an end lasts its start day
    bool has_durations;              // an event may tell how long it lasts instead of its end
};

// The rules of `version`; null when it is none that can be read.
[[nodiscard]] const VersionRules* find_version_rules(std::string_view version) noexcept;

// The values of lines as the version has them; one object for a whole entry. Views live until the next call.
class EntryValues {
public:
    explicit EntryValues(const VersionRules& rules) : rules_(rules), values_(rules.charset) {}

    // The whole value.
    [[nodiscard]] std::u16string_view text(const versit::VersitProperty& line) {
        return rules_.escapes_text ? values_.text(line, versit::Escapes::Text) : values_.text(line);
    }

    // Splits the value at the first ';' that has no escape; false when there is none, and in a version
    // without escapes.
    [[nodiscard]] bool split_escaped(const versit::VersitProperty& line) {
        return rules_.escapes_text && values_.split(line, versit::Escapes::Text, 2) == 2;
    }

    // What the value split last has before (0) and behind (1) that ';'.
    [[nodiscard]] std::u16string_view part(std::size_t index) const noexcept {
        return values_.component(index);
    }

private:
    const VersionRules& rules_;
    versit::ValueReader values_;
};

}  // namespace vzapi::vcalendar
