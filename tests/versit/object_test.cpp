// Operations on the whole parse result: root, components, selection.
#include "versit/object.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "versit/parser.h"

namespace vzapi::versit {
namespace {

using Texts = std::vector<std::string>;

Texts texts_of(const std::vector<VersitProperty>& lines) {
    Texts texts;
    for (const VersitProperty& line : lines) texts.emplace_back(line.text());
    return texts;
}

VersitObject object_of(const Texts& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return parse(text);
}

struct RootCase {
    Texts lines;
    std::string_view name;
    std::string_view version;
    std::string_view nested;
};

TEST(RootInfo, EachRowGivesNameVersionAndFirstNested) {
    const RootCase cases[] = {
        {{"BEGIN:VCARD", "VERSION:2.1", "END:VCARD"}, "VCARD", "2.1", ""},
        {{"begin: vcard\t", "version: 2.1"}, "vcard", " 2.1", ""},
        {{"BEGIN:VCALENDAR", "BEGIN:VTODO", "END:VTODO", "VERSION:1.0", "BEGIN:VEVENT"},
         "VCALENDAR",
         "1.0",
         "VTODO"},
        {{"BEGIN:VCALENDAR", "BEGIN:VEVENT", "VERSION:9", "END:VEVENT"}, "VCALENDAR", "", "VEVENT"},
        {{"BEGIN:VCARD", "VERSION:2.1", "VERSION:3.0"}, "VCARD", "2.1", ""},
        {{"BEGIN:VCARD", "END:VCARD", "VERSION:2.1", "BEGIN:VCARD"}, "VCARD", "", ""},
        {{"VERSION:2.1", "N:a", "BEGIN:VCARD", "VERSION:3.0"}, "VCARD", "3.0", ""},
        {{"END:VCARD", "BEGIN:VCARD", "VERSION:2.1"}, "VCARD", "2.1", ""},
        {{"N:a"}, "", "", ""},
    };
    for (const RootCase& row : cases) {
        const VersitObject object = object_of(row.lines);
        const RootInfo root = root_info(std::span(object.lines()));
        EXPECT_EQ(root.name, row.name) << testing::PrintToString(row.lines);
        EXPECT_EQ(root.version, row.version) << testing::PrintToString(row.lines);
        EXPECT_EQ(root.nested, row.nested) << testing::PrintToString(row.lines);
    }
}

const Texts kCalendar = {
    "BEGIN:VCALENDAR", "VERSION:2.0", "BEGIN:VEVENT", "SUMMARY:1",     "BEGIN:VALARM", "TRIGGER:a",
    "END:VALARM",      "DTSTART:1",   "END:VEVENT",   "BEGIN:VEVENT",  "SUMMARY:2",    "END:VEVENT",
    "BEGIN:VTODO",     "DUE:3",       "END:VTODO",    "END:VCALENDAR", "NOTE:after",
};

TEST(ComponentLines, AreThoseOfTheFirstComponentWithoutTheNestedOnes) {
    const VersitObject object = object_of(kCalendar);
    EXPECT_EQ(texts_of(component_lines(object, ComponentId::VEvent)),
              (Texts{"BEGIN:VEVENT", "SUMMARY:1", "DTSTART:1", "END:VEVENT"}));
    EXPECT_EQ(texts_of(component_lines(object, ComponentId::VTodo)),
              (Texts{"BEGIN:VTODO", "DUE:3", "END:VTODO"}));
    EXPECT_EQ(texts_of(component_lines(object, ComponentId::VCalendar)),
              (Texts{"BEGIN:VCALENDAR", "VERSION:2.0", "END:VCALENDAR"}));
    EXPECT_EQ(texts_of(component_lines(object, ComponentId::VBkm)), Texts{});
}

TEST(ComponentLines, IncludeNestedOnesWhenAskedFor) {
    const VersitObject object = object_of(kCalendar);
    const std::vector<VersitProperty> event = component_lines(object, ComponentId::VEvent, Nested::Include);
    EXPECT_EQ(texts_of(event), (Texts{"BEGIN:VEVENT", "SUMMARY:1", "BEGIN:VALARM", "TRIGGER:a", "END:VALARM",
                                      "DTSTART:1", "END:VEVENT"}));
    // A component inside another is looked for in the lines of that one.
    EXPECT_EQ(texts_of(component_lines(std::span(event), "VALARM", Nested::Exclude)),
              (Texts{"BEGIN:VALARM", "TRIGGER:a", "END:VALARM"}));
}

TEST(ComponentLines, NestedComponentsOfTheSameNameDoNotCloseTheOuterOne) {
    const VersitObject object =
        object_of({"BEGIN:VCARD", "N:1", "BEGIN:VCARD", "N:2", "END:VCARD", "TEL:1", "END:VCARD", "TEL:2"});
    EXPECT_EQ(texts_of(component_lines(object, ComponentId::VCard)),
              (Texts{"BEGIN:VCARD", "N:1", "TEL:1", "END:VCARD"}));
}

TEST(ComponentLines, AMissingEndReachesToTheEndAndAMissingNestedEndIsForgiven) {
    const VersitObject open = object_of({"BEGIN:VCARD", "N:1"});
    EXPECT_EQ(texts_of(component_lines(open, ComponentId::VCard)), (Texts{"BEGIN:VCARD", "N:1"}));
    const VersitObject nested_open =
        object_of({"BEGIN:VBKM", "URL:1", "BEGIN:ENV", "X:1", "END:VBKM", "URL:2"});
    EXPECT_EQ(texts_of(component_lines(nested_open, ComponentId::VBkm)),
              (Texts{"BEGIN:VBKM", "URL:1", "END:VBKM"}));
}

TEST(ComponentLines, NamesAreComparedWithoutRegardToCase) {
    const VersitObject object = object_of({"begin:vcard", "n:1", "end:vcard", "x:1"});
    EXPECT_EQ(texts_of(component_lines(object, ComponentId::VCard)),
              (Texts{"begin:vcard", "n:1", "end:vcard"}));
}

TEST(RootComponent, IsTheOneThatTheFirstBeginOpens) {
    const VersitObject card =
        object_of({"TEL:0", "begin: vcard", "TEL:1", "version:2.1", "VERSION:3.0", "END:VCARD"});
    const std::optional<RootComponent> root = root_component(card, ComponentId::VCard);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->version, "2.1");
    ASSERT_EQ(root->lines.size(), 3U);
    EXPECT_EQ(root->lines[0].id, PropertyId::Tel);
    EXPECT_EQ(root->lines[0].line.text(), "TEL:1");
    EXPECT_FALSE(root_component(card, ComponentId::VCalendar));
    const VersitObject without = object_of({"TEL:0", "END:VCARD"});
    EXPECT_FALSE(root_component(without, ComponentId::VCard));
    const VersitObject inside = object_of({"BEGIN:VCALENDAR", "BEGIN:VCARD", "END:VCARD", "END:VCALENDAR"});
    EXPECT_FALSE(root_component(inside, ComponentId::VCard));
}

TEST(RootComponent, HasTheLinesThatComponentLinesGivesBetweenItsFrame) {
    const Texts choices = {"BEGIN:VCARD", "END:VCARD", "BEGIN:A", "END:A", "END:", "TEL:1", "VERSION:2.1"};
    std::mt19937 random(42);
    for (int round = 0; round < 3000; ++round) {
        Texts lines = {"BEGIN:VCARD"};
        for (std::size_t i = random() % 10; i > 0; --i) lines.push_back(choices[random() % choices.size()]);
        const VersitObject object = object_of(lines);
        Texts expected = texts_of(component_lines(object, ComponentId::VCard));
        std::erase_if(expected, [](const std::string& line) {
            return line.starts_with("BEGIN:") || line.starts_with("END:");
        });
        Texts own;
        const std::optional<RootComponent> root = root_component(object, ComponentId::VCard);
        ASSERT_TRUE(root);
        for (const IdentifiedLine& line : root->lines) {
            EXPECT_EQ(line.id, line.line.id());
            own.emplace_back(line.line.text());
        }
        ASSERT_EQ(own, expected) << round;
    }
}

TEST(SelectLines, FollowTheOrderOfTheNamesThenOfTheText) {
    const VersitObject object =
        object_of({"X-B:1", "CATEGORIES:2", "x-a:3", "X-B:4", "CATEGORIES;X:5", "item.X-A:6", "OTHER:7"});
    constexpr std::string_view kNames[] = {"CATEGORIES", "X-A", "X-B", "MISSING"};
    EXPECT_EQ(texts_of(select_lines(std::span(object.lines()), std::span(kNames))),
              (Texts{"CATEGORIES:2", "CATEGORIES;X:5", "x-a:3", "X-B:1", "X-B:4"}));
}

TEST(VersitObject, LinesStayValidWhenItIsMoved) {
    VersitObject first = object_of({"NOTE:a short value", "TEL:1"});
    const VersitObject second = std::move(first);
    EXPECT_EQ(texts_of(second.lines()), (Texts{"NOTE:a short value", "TEL:1"}));
}

TEST(WideObject, HasTheSameOperations) {
    const WideVersitObject object =
        parse_wide(u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VENV\r\nTEL:1\r\nEND:VENV\r\nEND:VMSG\r\n");
    const WideRootInfo root = root_info(std::span(object.lines()));
    EXPECT_EQ(root.name, u"VMSG");
    EXPECT_EQ(root.version, u"1.1");
    EXPECT_EQ(root.nested, u"VENV");
    EXPECT_EQ(component_lines(std::span(object.lines()), "VENV", Nested::Exclude).size(), 3U);
}

}  // namespace
}  // namespace vzapi::versit
