#include "versit/property_line.h"

#include <gtest/gtest.h>

#include <string>

namespace vzapi::versit {
namespace {

struct LineRow {
    std::string_view line;
    bool known;  // begins_known_property
    bool form;   // has_property_form
};

constexpr LineRow kLines[] = {
    // Names of the table, with and without parameters, in any case.
    {"TEL:+123", true, true},
    {"TEL;HOME:+123", true, true},
    {"TEL;", true, true},
    {"tel:", true, true},
    {"End:vcard", true, true},
    {"LAST-MODIFIED:20200101T000000", true, true},
    // A name that only resembles one of the table.
    {"TELL:+123", false, true},
    {"TE:", false, true},
    {"NICKNAME:Bo", false, true},
    {"TEL :+123", false, false},
    {" TEL:+123", false, false},
    {"\tTEL:+123", false, false},
    // Extension names need not be in the table.
    {"X-A:", true, true},
    {"x-anything;a:b", true, true},
    {"X-:", true, true},
    {"X-", false, false},
    {"X-A", false, false},
    {"XA:", false, true},
    {"X", false, false},
    // The name of an extension reaches to the first ';' or ':', whatever stands in it.
    {"X-see note: this", true, false},
    {"X-=41;", true, false},
    // A group does not count as part of the name.
    {"item1.TEL:+123", true, true},
    {"a-1.X-A:", true, true},
    {"item1.FOO:", false, true},
    {".TEL:+123", false, false},
    {"item 1.TEL:+123", false, false},
    {"a.b.TEL:+123", false, false},
    {"item1.:", false, false},
    {"item1.", false, false},
    // Without ';' and ':' nothing begins; in front of everything they begin nothing either.
    {"", false, false},
    {"TEL", false, false},
    {":", false, false},
    {";", false, false},
    {":TEL:", false, false},
    {";TEL:", false, false},
    {"=54EL:+123", false, false},
    {"http://example.com", false, true},
    {"see 12:30", false, false},
    {"12:30", false, true},
};

TEST(PropertyLine, TellsLinesThatBeginAProperty) {
    for (const LineRow& row : kLines) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(begins_known_property(row.line), row.known);
        EXPECT_EQ(has_property_form(row.line), row.form);
    }
}

TEST(PropertyLine, TellsTheSameOfUtf16Lines) {
    for (const LineRow& row : kLines) {
        const std::u16string wide(row.line.begin(), row.line.end());
        const bool nickname = row.line == "NICKNAME:Bo";  // in the UTF-16 table only
        SCOPED_TRACE(row.line);
        EXPECT_EQ(begins_known_property(std::u16string_view(wide)), row.known || nickname);
        EXPECT_EQ(has_property_form(std::u16string_view(wide)), row.form);
    }
}

TEST(PropertyLine, LettersOutsideAsciiAreNoNameCharacters) {
    EXPECT_FALSE(has_property_form(std::u16string_view(u"T\u00C9L:1")));
    EXPECT_FALSE(has_property_form(std::u16string_view(u"\u0154EL:1")));
    EXPECT_FALSE(has_property_form(std::string_view("T\xC3\x89L:1")));
    EXPECT_FALSE(begins_known_property(std::u16string_view(u"\u0154EL:1")));
}

}  // namespace
}  // namespace vzapi::versit
