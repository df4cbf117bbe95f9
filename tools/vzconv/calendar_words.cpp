#include "vzconv/calendar_words.h"

#include "vzapi/vzapi.h"

namespace vzconv {
namespace {

using enum CalendarValueKind;

constexpr CalendarWord kWords[] = {
    {VZ_CALENDAR_SUMMARY, Text, "title", "Title"},
    {VZ_CALENDAR_LOCATION, Text, "location", "Where"},
    {VZ_CALENDAR_STATUS, Status, "status", "Status"},
    {VZ_CALENDAR_PRIORITY, Priority, "priority", "Priority"},
    {VZ_CALENDAR_BIRTH_YEAR, BirthYear, "birthYear", "Born"},
    {VZ_CALENDAR_DESCRIPTION_ALONE, Text, "description", "Description"},
    {VZ_CALENDAR_CLASS, Class, "class", "Class"},
    {VZ_CALENDAR_GEO, Geo, "geo", "Position"},
    {VZ_CALENDAR_REFERENCE, Reference, "reference", "Reference"},
};

constexpr CodeWord kItemTypes[] = {
    {VZ_ITEM_OTHER, "other"},
    {VZ_ITEM_APPOINTMENT, "appointment"},
    {VZ_ITEM_CALL, "call"},
    {VZ_ITEM_BIRTHDAY, "birthday"},
    {VZ_ITEM_EVENT, "event"},
    {VZ_ITEM_REMINDER, "reminder"},
    {VZ_ITEM_NOTE, "note"},
    {VZ_ITEM_TODO, "to-do"},
    {VZ_ITEM_ANNIVERSARY, "anniversary"},
};

constexpr CodeWord kHeadings[] = {
    {VZ_ITEM_APPOINTMENT, "Appointment"},  //
    {VZ_ITEM_CALL, "Call"},
    {VZ_ITEM_BIRTHDAY, "Birthday"},
    {VZ_ITEM_EVENT, "Event"},
    {VZ_ITEM_REMINDER, "Reminder"},
    {VZ_ITEM_NOTE, "Note"},
    {VZ_ITEM_TODO, "To-do"},
    {VZ_ITEM_ANNIVERSARY, "Anniversary"},
};

constexpr CodeWord kAlarms[] = {
    {VZ_ALARM_DISPLAY, "display"},
    {VZ_ALARM_AUDIO, "sound"},
};

constexpr CodeWord kStatuses[] = {
    {VZ_TODO_NEEDS_ACTION, "needs action"},
    {VZ_TODO_COMPLETED, "completed"},
};

constexpr CodeWord kUnits[] = {
    {VZ_REPEAT_DAILY, "day"},
    {VZ_REPEAT_WEEKLY, "week"},
    {VZ_REPEAT_MONTHLY, "month"},
    {VZ_REPEAT_YEARLY, "year"},
};

constexpr CodeWord kDays[] = {
    {VZ_DAY_MONDAY, "monday"},        //
    {VZ_DAY_TUESDAY, "tuesday"},      //
    {VZ_DAY_WEDNESDAY, "wednesday"},  //
    {VZ_DAY_THURSDAY, "thursday"},    //
    {VZ_DAY_FRIDAY, "friday"},        //
    {VZ_DAY_SATURDAY, "saturday"},    //
    {VZ_DAY_SUNDAY, "sunday"},
};

constexpr CodeWord kPositions[] = {
    {VZ_POSITION_FIRST, "first"},    //
    {VZ_POSITION_SECOND, "second"},  //
    {VZ_POSITION_THIRD, "third"},    //
    {VZ_POSITION_FOURTH, "fourth"},  //
    {VZ_POSITION_LAST, "last"},
};

}  // namespace

std::span<const CalendarWord> calendar_words() {
    return kWords;
}

const CalendarWord* calendar_word_of(uint32_t id, uint32_t item_type) {
    if (id == VZ_CALENDAR_DESCRIPTION && !has_birth_year(item_type)) id = VZ_CALENDAR_DESCRIPTION_ALONE;
    for (const CalendarWord& row : kWords) {
        if (row.id == id) return &row;
    }
    return nullptr;
}

const CalendarWord* calendar_word_of(std::string_view key) {
    for (const CalendarWord& row : kWords) {
        if (row.key == key) return &row;
    }
    return nullptr;
}

uint32_t id_of(const CalendarWord& word, uint32_t item_type) {
    const bool is_description = word.id == VZ_CALENDAR_DESCRIPTION_ALONE;
    return is_description && !has_birth_year(item_type) ? uint32_t{VZ_CALENDAR_DESCRIPTION} : word.id;
}

bool has_birth_year(uint32_t item_type) {
    return item_type == VZ_ITEM_BIRTHDAY || item_type == VZ_ITEM_ANNIVERSARY;
}

std::span<const CodeWord> item_type_words() {
    return kItemTypes;
}

std::span<const CodeWord> alarm_words() {
    return kAlarms;
}

std::span<const CodeWord> status_words() {
    return kStatuses;
}

std::span<const CodeWord> unit_words() {
    return kUnits;
}

std::span<const CodeWord> day_words() {
    return kDays;
}

std::span<const CodeWord> position_words() {
    return kPositions;
}

std::string_view heading_of(uint32_t item_type) {
    const std::string_view heading = word_of(kHeadings, item_type);
    return heading.empty() ? "Calendar entry" : heading;
}

}  // namespace vzconv
