// The entries of the array `fields`: each id, and how its value stands in the line.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/pointer_to.h"
#include "vcalendar/written_calendar.h"

namespace vzapi::test::calendar {
namespace {

struct FieldCase {
    const char* what;
    std::vector<Field> fields;
    std::vector<std::string_view> expected;
};

// The lines behind the type.
std::string rest(const std::string& text) {
    const std::size_t type = text.find("\r\nX-EPOCAGENDAENTRYTYPE:");
    const std::size_t begin = text.find("\r\n", type + 2) + 2;
    return text.substr(begin, text.find("END:V", begin) - begin);
}

std::string joined(const std::vector<std::string_view>& expected) {
    std::string text;
    for (const std::string_view line : expected) text += lines({line});
    return text;
}

void expect_all(std::uint32_t type, const std::vector<FieldCase>& cases, const Target& target = kPlain) {
    for (const FieldCase& row : cases) {
        Calendar item;
        item.type = type;
        item.fields = row.fields;
        EXPECT_EQ(rest(written(item, target)), joined(row.expected)) << row.what;
    }
}

#define QP ";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:"

TEST(CalendarFields, OfAnEvent) {
    expect_all(
        VZ_ITEM_CALL,
        {
            {"none", {}, {}},
            {"class 1", {number(0x204, 1)}, {"CLASS:PRIVATE"}},
            {"class 2", {number(0x204, 2)}, {"CLASS:PUBLIC"}},
            {"class 3", {number(0x204, 3)}, {"CLASS:NONE"}},
            {"class 0", {number(0x204, 0)}, {}},
            {"class 4", {number(0x204, 4)}, {}},
            {"place", {geo(u"47.5", u"19.05")}, {"GEO:47.5;19.05"}},
            {"a place of half the texts", {geo(u"47.5", {})}, {"GEO:47.5;"}},
            {"a place of the other half", {geo({}, u"19.05")}, {"GEO:;19.05"}},
            {"a place that needs encoding", {geo(u"47\u00B0", u"19")}, {"GEO" QP "47=C2=B0;19"}},
            {"reference", {reference(1, 0, 4294967295)}, {"X-VZAPI-CAL-REFERENCE:1;0;4294967295"}},
            {"summary", {text(0x300, u"Tide tables")}, {"SUMMARY:Tide tables"}},
            {"location", {text(0x301, u"Pier 7")}, {"LOCATION:Pier 7"}},
            {"description", {text(0x302, u"Blue")}, {"DESCRIPTION:Blue"}},
            {"description alone", {text(0x305, u"Blue")}, {"DESCRIPTION:Blue"}},
            {"priority and status, which only a to-do has", {number(0x303, 1), number(0x304, 2)}, {}},
            {"the same, pointing at texts", {text(0x303, u"high"), text(0x304, u"TENTATIVE")}, {}},
            {"no such field", {text(0x206, u"a"), text(0, u"a"), text(0x2FF, u"a"), text(0x307, u"a")}, {}},
            {"an empty text", {text(0x301, u"")}, {"LOCATION:"}},
            {"a null text", {text(0x301, {})}, {}},
            {"the order of the list, each as often as it is there",
             {text(0x305, u"1"), text(0x300, u"2"), number(0x204, 1), text(0x300, u"3")},
             {"DESCRIPTION:1", "SUMMARY:2", "CLASS:PRIVATE", "SUMMARY:3"}},
            {"a text that needs encoding",
             {text(0x300, u"Caf\u00E9\r\nBar=1")},
             {"SUMMARY" QP "Caf=C3=A9=0D=0ABar=3D1"}},
            {"a plain text with signs", {text(0x300, u"a\\b;c,d=e:f\t")}, {"SUMMARY:a\\b;c,d=e:f\t"}},
            {"control characters go",
             {text(0x300,
                   u"\x01"
                   u"Din\x02ner\x1F\x7F")},
             {"SUMMARY:Dinner"}},
            {"but for a text of nothing else", {text(0x300, u"\x01\x7F")}, {"SUMMARY:\x01\x7F"}},
        });
}

TEST(CalendarFields, OfAToDo) {
    expect_all(VZ_ITEM_TODO,
               {
                   {"none", {}, {}},
                   {"class", {number(0x204, 3)}, {"CLASS:NONE"}},
                   {"class without a word", {number(0x204, 4)}, {}},
                   {"place", {geo(u"47.5", u"19.05")}, {"GEO:47.5;19.05"}},
                   {"reference", {reference(1, 2, 3)}, {}},
                   {"summary", {text(0x300, u"Paint")}, {"SUMMARY:Paint"}},
                   {"location", {text(0x301, u"Pier 7")}, {}},
                   {"description", {text(0x302, u"Blue")}, {"DESCRIPTION:Blue"}},
                   {"description alone", {text(0x305, u"Blue")}, {}},
                   {"priority", {number(0x303, 1)}, {"PRIORITY:1"}},
                   {"the highest priority", {number(0x303, 4294967295)}, {"PRIORITY:4294967295"}},
                   {"no priority", {number(0x303, 0)}, {}},
                   {"status 1", {number(0x304, 1)}, {"STATUS:NEEDS ACTION"}},
                   {"status 2", {number(0x304, 2)}, {"STATUS:COMPLETED"}},
                   {"status 3", {number(0x304, 3)}, {"STATUS:3"}},
                   {"the highest status", {number(0x304, 4294967295)}, {"STATUS:4294967295"}},
                   {"no status", {number(0x304, 0)}, {}},
                   {"no such field", {text(0x206, u"a"), text(0, u"a"), text(0x307, u"a")}, {}},
                   {"a text that needs encoding", {text(0x302, u"\u00E9")}, {"DESCRIPTION" QP "=C3=A9"}},
                   {"control characters go", {text(0x302, u"B\x01lue")}, {"DESCRIPTION:Blue"}},
                   {"the order of the list",
                    {number(0x304, 2), text(0x302, u"b"), number(0x303, 5), text(0x300, u"a")},
                    {"STATUS:COMPLETED", "DESCRIPTION:b", "PRIORITY:5", "SUMMARY:a"}},
               });
}

TEST(CalendarFields, OnlyTheLowHalfOfANumberCounts) {
    Calendar todo;
    todo.type = VZ_ITEM_TODO;
    todo.fields = {number(0x204, 0), number(0x303, 0), number(0x304, 0)};
    CalendarRecord record(todo);
    for (CalendarField* field = record.whole.fields; field != record.whole.fields + 3; ++field) {
        field->value.number = 0xFFFFFFFF00000002;
    }
    EXPECT_EQ(written(record), bare_todo_text({"CLASS:PUBLIC", "PRIORITY:2", "STATUS:COMPLETED"}));
}

TEST(CalendarFields, TextsOfVersion2AreEscaped) {
    const std::vector<FieldCase> cases = {
        {"summary", {text(0x300, u"a\\b;c,d:e")}, {"SUMMARY:a\\\\b\\;c\\,d:e"}},
        {"description", {text(0x302, u";")}, {"DESCRIPTION:\\;"}},
        {"the letters of a line break", {text(0x300, u"C:\\new")}, {"SUMMARY:C:\\\\new"}},
        {"a line break is encoded", {text(0x300, u"a\n,")}, {"SUMMARY" QP "a=0A\\,"}},
        {"soft breaks count the escapes",
         {text(0x300, u"\u00E9" + std::u16string(20, u','))},
         {"SUMMARY" QP "=C3=A9\\,\\,\\,\\,\\,\\,\\,\\,\\,\\,\\=\r\n,\\,\\,\\,\\,\\,\\,\\,\\,\\,"}},
        {"the texts of a place", {geo(u"1,5", u";2")}, {"GEO:1\\,5;\\;2"}},
    };
    expect_all(VZ_ITEM_TODO, cases, kVersion2);
    expect_all(VZ_ITEM_CALL, cases, kVersion2);
    expect_all(VZ_ITEM_CALL, {{"location", {text(0x301, u"a,b")}, {"LOCATION:a\\,b"}}}, kVersion2);
    expect_all(VZ_ITEM_CALL, {{"reference", {reference(1, 2, 3)}, {"X-VZAPI-CAL-REFERENCE:1;2;3"}}},
               kVersion2);
}

TEST(CalendarFields, BirthYears) {
    for (const std::uint32_t type : {3U, 8U}) {
        for (const std::uint32_t api_version : {12U, 13U, 14U, 16U}) {
            Calendar item;
            item.type = type;
            item.fields = {text(0x300, u"Ann"),  number(0x302, 0), number(0x302, 1984), number(0x302, 0),
                           number(0x302, 12345), number(0x302, 0), text(0x305, u"text")};
            const std::string found = written(item, at_interface(api_version));
            EXPECT_NE(
                found.find("\r\nSUMMARY:Ann\r\nX-BIRTHYEAR:0\r\nX-BIRTHYEAR:1984\r\nX-BIRTHYEAR:1984\r\n"
                           "X-BIRTHYEAR:12345\r\nX-BIRTHYEAR:12345\r\nDESCRIPTION:text\r\nEND"),
                found.npos)
                << found;
            // The year of one call is gone in the next.
            item.fields = {text(0x300, u"Ann"), number(0x302, 0)};
            EXPECT_TRUE(holds_line(written(item, at_interface(api_version)), "X-BIRTHYEAR:0"));
        }
    }
}

TEST(CalendarFields, OfOtherTypes0x302IsATextWhateverItsNumber) {
    for (const std::uint32_t type : {0U, 1U, 2U, 4U, 5U, 6U, 7U, 9U}) {
        Calendar item;
        item.type = type;
        item.fields = {text(0x300, u"a"), number(0x302, 1984), text(0x302, u"1984")};
        EXPECT_EQ(rest(written(item)), "SUMMARY:a\r\nDESCRIPTION:1984\r\n") << type;
    }
}

TEST(CalendarFields, AnEmptySummaryIsAddedToEntriesThatHaveFieldsButNone) {
    struct Row {
        const char* what;
        std::vector<Field> fields;
        bool is_added;
    };
    const Row rows[] = {
        {"no field", {}, false},
        {"another field", {text(0x301, u"Pier 7")}, true},
        {"a field without a line", {number(0x204, 9)}, true},
        {"a field that is none", {text(0x777, u"a")}, true},
        {"a summary", {text(0x300, u"a")}, false},
        {"a summary among others", {text(0x301, u"a"), text(0x300, u"b"), text(0x305, u"c")}, false},
        {"a summary without a text, and so without a line", {text(0x300, {})}, false},
    };
    for (const Row& row : rows) {
        for (const std::uint32_t type : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U}) {
            Calendar item;
            item.type = type;
            item.fields = row.fields;
            for (const Target& target : {kPlain, kVersion2}) {
                const bool has_type = type == 1 || type == 3 || type == 4;
                const std::string found = written(item, target);
                EXPECT_EQ(holds_line(found, "SUMMARY:"), row.is_added && has_type) << row.what << ' ' << type;
            }
        }
    }
    Calendar item;
    item.type = VZ_ITEM_APPOINTMENT;
    item.fields = {text(0x301, u"Pier 7"), number(0x204, 2)};
    EXPECT_EQ(rest(written(item)), "LOCATION:Pier 7\r\nCLASS:PUBLIC\r\nSUMMARY:\r\n");
}

TEST(CalendarFields, TheSizesOfEntriesAreNotLookedAtThoseOfSubRecordsAre) {
    Calendar item;
    item.type = VZ_ITEM_CALL;
    item.fields = {text(0x301, u"Pier 7"), geo(u"1", u"2"), reference(1, 2, 3)};
    const std::string all = call_text({"LOCATION:Pier 7", "GEO:1;2", "X-VZAPI-CAL-REFERENCE:1;2;3"});
    {
        CalendarRecord record(item);
        for (CalendarField* field = record.whole.fields; field != record.whole.fields + 3; ++field) {
            field->size = 0;
            field->reserved = 77;
            field->valueSize = 0;
        }
        EXPECT_EQ(written(record), all);
    }
    for (const std::uint32_t size : {0U, 16U, 31U, 33U}) {
        CalendarRecord record(item);
        record.whole.fields[1].value.geo->size = size;
        EXPECT_EQ(written(record), call_text({"LOCATION:Pier 7", "X-VZAPI-CAL-REFERENCE:1;2;3"})) << size;
    }
    for (const std::uint32_t size : {0U, 15U, 17U, 32U}) {
        CalendarRecord record(item);
        record.whole.fields[2].value.reference->size = size;
        EXPECT_EQ(written(record), call_text({"LOCATION:Pier 7", "GEO:1;2"})) << size;
    }
}

TEST(CalendarFields, AllFieldsThatACountCanTell) {
    Calendar item;
    item.type = VZ_ITEM_CALL;
    item.fields.assign(255, text(0x301, u"a"));
    EXPECT_EQ(rest(written(item)).size(), 255 * std::string_view("LOCATION:a\r\n").size());
}

}  // namespace
}  // namespace vzapi::test::calendar
