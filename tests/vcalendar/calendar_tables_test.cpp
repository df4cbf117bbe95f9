// The tables that reader and writer share, and the recurrence members of the record.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "vcalendar/calendar_fields.h"
#include "vcalendar/item_type.h"
#include "vcalendar/recurrence.h"
#include "vcalendar/size_switches.h"

namespace vzapi::vcalendar {
namespace {

using versit::PropertyId;

// ---- Size switches.

TEST(SizeSwitches, FollowSizeAndInterfaceVersion) {
    struct SizeCase {
        std::uint32_t size;
        bool narrow_days, exceptions, wide_repeat, has_zone_block;
    };
    const SizeCase cases[] = {
        {0, false, false, false, false},
        {24, false, false, false, false},
        {111, false, false, false, false},
        {112, false, false, false, false},
        {113, false, false, false, false},
        {128, true, true, false, false},
        {129, false, false, false, false},
        {151, false, false, false, false},
        {152, false, true, true, false},
        {191, false, false, false, false},
        {192, false, true, true, true},
        {193, false, false, false, false},
        {0xFFFFFFFFU, false, false, false, false},
    };
    for (const SizeCase& row : cases) {
        for (std::uint32_t api_version = 0; api_version <= 20; ++api_version) {
            const SizeSwitches switches = size_switches(row.size, api_version);
            EXPECT_EQ(switches.narrow_days, row.narrow_days) << row.size;
            EXPECT_EQ(switches.exceptions, row.exceptions) << row.size;
            EXPECT_EQ(switches.wide_repeat, row.wide_repeat) << row.size;
            EXPECT_EQ(switches.time_zone, row.has_zone_block && api_version >= 16)
                << row.size << " " << api_version;
        }
    }
}

// ---- Item types.

TEST(ItemType, OfEachName) {
    struct NameCase {
        std::u16string_view name;
        std::uint32_t type;
    };
    const NameCase cases[] = {
        {u"MEETING", 1},
        {u"APPOINTMENT", 1},
        {u"CALL", 2},
        {u"PHONE CALL", 2},
        {u"BIRTHDAY", 3},
        {u"ANNIVERSARY", 3},
        {u"SPECIAL OCCASION", 3},
        {u"MEMO", 4},
        {u"EVENT", 4},
        {u"MISCELLANEOUS", 4},
        {u"REMINDER", 5},
        {u"NOTE", 6},
        {u"TODO", 7},
        {u"meeting", 1},
        {u"Phone Call", 2},
        {u"special OCCASION", 3},
        {u"", 0},
        {u"BUSINESS", 0},
        {u" MEETING", 0},
        {u"MEETING ", 0},
        {u"PHONE  CALL", 0},
        {u"PHONE", 0},
        {u"CALLS", 0},
        {u"B\u0130RTHDAY", 0},
        {u"\uFF2D\uFF25\uFF2D\uFF2F", 0},
    };
    for (const NameCase& row : cases) EXPECT_EQ(item_type_of_name(row.name), row.type);
}

TEST(ItemType, NameOfEachCode) {
    const std::string_view names[] = {
        "", "APPOINTMENT", "CALL", "ANNIVERSARY", "EVENT", "REMINDER", "", "TODO", "ANNIVERSARY", "", ""};
    for (std::uint32_t type = 0; type < std::size(names); ++type) {
        EXPECT_EQ(name_of_item_type(type), names[type]) << type;
    }
    EXPECT_EQ(name_of_item_type(0xFFFFFFFFU), "");
}

TEST(ItemType, WrittenNamesReadBackButForThoseThatShareOne) {
    for (std::uint32_t type = 0; type <= 8; ++type) {
        const std::string_view name = name_of_item_type(type);
        const std::uint32_t expected = type == 8 ? 3 : type == 6 ? 0 : type;
        EXPECT_EQ(item_type_of_name(std::u16string(name.begin(), name.end())), expected) << type;
    }
}

// ---- Fields.

TEST(CalendarFields, EachRow) {
    struct Row {
        std::uint32_t id;
        PropertyId property;
        FieldKind kind;
        bool in_todo;
    };
    const Row rows[] = {
        {0x204, PropertyId::Class, FieldKind::Class, true},
        {0x205, PropertyId::Geo, FieldKind::Geo, true},
        {0x300, PropertyId::Summary, FieldKind::Text, true},
        {0x301, PropertyId::Location, FieldKind::Text, false},
        {0x302, PropertyId::Description, FieldKind::Text, true},
        {0x303, PropertyId::Priority, FieldKind::Priority, true},
        {0x304, PropertyId::Status, FieldKind::Status, true},
        {0x305, PropertyId::Description, FieldKind::Text, false},
        {0x306, PropertyId::None, FieldKind::Reference, false},
    };
    ASSERT_EQ(calendar_fields().size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const FieldRow& row = calendar_fields()[i];
        EXPECT_EQ(row.id, rows[i].id);
        EXPECT_EQ(row.property, rows[i].property) << row.id;
        EXPECT_EQ(row.kind, rows[i].kind) << row.id;
        EXPECT_EQ(row.in_todo, rows[i].in_todo) << row.id;
        EXPECT_EQ(find_calendar_field(row.id), &row);
    }
    for (const std::uint32_t id : {0U, 0x203U, 0x206U, 0x2FFU, 0x307U, 0xFFFFFFFFU}) {
        EXPECT_EQ(find_calendar_field(id), nullptr) << id;
    }
}

TEST(CalendarFields, BirthYearsAreThoseOfTypes3And8) {
    for (std::uint32_t type = 0; type < 20; ++type)
        EXPECT_EQ(has_birth_year(type), type == 3 || type == 8) << type;
}

TEST(CalendarFields, StatusesInTheOrderOfTheirCodes) {
    const std::string_view statuses[] = {"NEEDS ACTION", "COMPLETED"};
    ASSERT_EQ(status_words().size(), std::size(statuses));
    for (std::uint32_t i = 0; i < 2; ++i) {
        EXPECT_EQ(status_words()[i].code, i + 1);
        EXPECT_EQ(status_words()[i].word, statuses[i]);
    }
}

// ---- Recurrence members.

CalendarItem item_with(std::uint32_t repeat_size) {
    CalendarItem item;
    std::memset(&item, 0, sizeof item);
    item.repeatKind = 1;
    item.repeatInterval = 2;
    item.repeatDays = 3;
    item.repeatPosition = 0xF4;
    item.repeatUntil.year = 2009;
    item.repeatSize = repeat_size;
    item.repeatKind2 = 0x101;
    item.repeatInterval2 = 0x102;
    item.repeatDays2 = 0x103;
    item.repeatPosition2 = 0x104;
    return item;
}

std::string show(const Recurrence& rule) {
    return std::to_string(rule.frequency) + "/" + std::to_string(rule.interval) + "/" +
           std::to_string(rule.days) + "/" + std::to_string(rule.position) + "/" +
           std::to_string(rule.until.year);
}

TEST(RecurrenceMembers, AreLoadedAsTheSizeTells) {
    struct LoadCase {
        std::uint32_t size, repeat_size;
        const char* expected;
    };
    const LoadCase cases[] = {
        {112, 20, "1/2/0/0/2009"},         {128, 20, "1/2/3/4/2009"}, {152, 20, "257/258/259/260/2009"},
        {192, 20, "257/258/259/260/2009"}, {152, 0, "1/2/0/0/2009"},  {192, 19, "1/2/0/0/2009"},
        {192, 40, "1/2/0/0/2009"},         {0, 20, "1/2/0/0/2009"},   {160, 20, "1/2/0/0/2009"},
    };
    for (const LoadCase& row : cases) {
        for (std::uint32_t api_version = 12; api_version <= 16; ++api_version) {
            EXPECT_EQ(show(load_recurrence(item_with(row.repeat_size), size_switches(row.size, api_version))),
                      row.expected)
                << row.size << " " << row.repeat_size;
        }
    }
}

TEST(RecurrenceMembers, AreStoredClampedAndInFull) {
    Recurrence rule{3, 1000, 0x7F, 5, {}};
    rule.until.year = 2010;
    for (const std::uint32_t size : {112U, 128U, 152U, 192U, 0U}) {
        CalendarItem item;
        std::memset(&item, 0, sizeof item);
        store_recurrence(rule, size_switches(size, 16), item);
        EXPECT_EQ(item.repeatKind, 3);
        EXPECT_EQ(item.repeatInterval, 255);
        EXPECT_EQ(item.repeatDays, 0x7F);
        EXPECT_EQ(item.repeatPosition, 5);
        EXPECT_EQ(item.repeatUntil.year, 2010);
        const bool is_wide = size >= 152;
        EXPECT_EQ(item.repeatSize, is_wide ? 20U : 0U) << size;
        EXPECT_EQ(item.repeatKind2, is_wide ? 3U : 0U);
        EXPECT_EQ(item.repeatInterval2, is_wide ? 1000U : 0U);
        EXPECT_EQ(item.repeatDays2, is_wide ? 0x7FU : 0U);
        EXPECT_EQ(item.repeatPosition2, is_wide ? 5U : 0U);
    }
}

}  // namespace
}  // namespace vzapi::vcalendar
