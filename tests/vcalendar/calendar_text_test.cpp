// The one walk that splits a calendar gives what the general walks give.
#include "vcalendar/calendar_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/text.h"
#include "versit/parser.h"

namespace vzapi::vcalendar {
namespace {

using test::lines;
using versit::ComponentId;
using versit::Nested;
using versit::VersitProperty;

// The texts of the lines, those that frame components left out when asked for.
std::vector<std::string> own_texts(std::span<const VersitProperty> lines) {
    std::vector<std::string> texts;
    for (const VersitProperty& line : lines) {
        const bool frames = line.id() == versit::PropertyId::Begin || line.id() == versit::PropertyId::End;
        if (!frames) texts.emplace_back(line.text());
    }
    return texts;
}

std::vector<std::string> all_texts(std::span<const VersitProperty> lines) {
    std::vector<std::string> texts;
    for (const VersitProperty& line : lines) texts.emplace_back(line.text());
    return texts;
}

std::vector<std::string> texts_of(const EntryText& entry) {
    std::vector<std::string> texts;
    for (const versit::IdentifiedLine& line : entry.lines) {
        EXPECT_EQ(line.id, line.line.id());
        texts.emplace_back(line.line.text());
    }
    return texts;
}

void expect_entry(const EntryText& entry, std::span<const VersitProperty> calendar, ComponentId component) {
    const std::string_view name = versit::component_name(component);
    EXPECT_EQ(texts_of(entry), own_texts(versit::component_lines(calendar, name, Nested::Exclude)));
    EXPECT_EQ(all_texts(entry.section), all_texts(versit::component_lines(calendar, name, Nested::Include)));
}

// Compares with the walks that look for one thing each.
void expect_same_as_single_walks(const std::string& text) {
    SCOPED_TRACE(text);
    const versit::VersitObject object = versit::parse(text);
    const auto root = versit::root_component(object, ComponentId::VCalendar);
    const std::optional<CalendarText> split = split_calendar(object);
    ASSERT_EQ(split.has_value(), root.has_value());
    if (!root) return;
    EXPECT_EQ(split->version, root->version);
    std::vector<std::string> zone_lines;
    for (const versit::IdentifiedLine& line : root->lines) {
        const bool is_zone = line.id == versit::PropertyId::Tz || line.id == versit::PropertyId::Daylight;
        if (is_zone) zone_lines.emplace_back(line.line.text());
    }
    EXPECT_EQ(all_texts(split->zone_lines), zone_lines);
    const auto calendar = versit::component_lines(object, ComponentId::VCalendar, Nested::Include);
    expect_entry(split->event, calendar, ComponentId::VEvent);
    expect_entry(split->todo, calendar, ComponentId::VTodo);
}

TEST(CalendarText, SplitsAnOrdinaryCalendar) {
    const versit::VersitObject object = versit::parse(
        lines({"BEGIN:VCALENDAR", "TZ:+01", "VERSION:1.0", "BEGIN: vtodo ", "SUMMARY:a", "BEGIN:VALARM",
               "TRIGGER:b", "END:VALARM", "DUE:c", "END:VTODO", "BEGIN:VEVENT", "TZ:+02", "END:VEVENT",
               "DAYLIGHT:FALSE", "VERSION:2.0", "END:VCALENDAR", "TZ:+03"}));
    const std::optional<CalendarText> calendar = split_calendar(object);
    ASSERT_TRUE(calendar);
    EXPECT_EQ(calendar->version, "1.0");
    EXPECT_EQ(calendar->first_component, "vtodo");
    EXPECT_EQ(all_texts(calendar->zone_lines), (std::vector<std::string>{"TZ:+01", "DAYLIGHT:FALSE"}));
    EXPECT_EQ(texts_of(calendar->todo), (std::vector<std::string>{"SUMMARY:a", "DUE:c"}));
    EXPECT_EQ(all_texts(calendar->todo.section),
              (std::vector<std::string>{"BEGIN: vtodo ", "SUMMARY:a", "BEGIN:VALARM", "TRIGGER:b",
                                        "END:VALARM", "DUE:c", "END:VTODO"}));
    EXPECT_EQ(texts_of(calendar->event), (std::vector<std::string>{"TZ:+02"}));
    EXPECT_EQ(calendar->event.first(versit::PropertyId::Tz)->value(), "+02");
    EXPECT_EQ(calendar->event.first(versit::PropertyId::Summary), nullptr);
}

TEST(CalendarText, GivesWhatTheSingleWalksGive) {
    const std::string texts[] = {
        "",
        lines({"SUMMARY:a"}),
        lines({"BEGIN:VCARD", "BEGIN:VCALENDAR", "VERSION:1.0", "END:VCALENDAR", "END:VCARD"}),
        lines({"SUMMARY:a", "END:VCALENDAR", "BEGIN:VCALENDAR", "VERSION:1.0"}),
        lines({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "BEGIN:VALARM", "END:VEVENT", "TZ:+01", "BEGIN:VTODO",
               "DUE:a"}),
        lines({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "SUMMARY:a", "END:VCALENDAR", "SUMMARY:b", "END:VEVENT"}),
        lines({"BEGIN:VCALENDAR", "BEGIN:VCALENDAR", "BEGIN:VEVENT", "SUMMARY:a", "END:VCALENDAR",
               "SUMMARY:b"}),
        lines({"BEGIN:VCALENDAR", "BEGIN:VTODO", "BEGIN:VEVENT", "SUMMARY:a", "END:VEVENT", "DUE:b",
               "END:VTODO"}),
    };
    for (const std::string& text : texts) expect_same_as_single_walks(text);
}

TEST(CalendarText, GivesWhatTheSingleWalksGiveForRandomNesting) {
    const std::string_view kLines[] = {
        "BEGIN:VCALENDAR", "END:VCALENDAR", "BEGIN:VEVENT", "END:VEVENT",  "BEGIN:VTODO", "END:VTODO",
        "BEGIN:VALARM",    "END:VALARM",    "BEGIN:VEVENT", "END:VTODO",   "VERSION:1.0", "VERSION:2.0",
        "TZ:+01",          "DAYLIGHT:TRUE", "SUMMARY:a",    "DTSTART:now", "BEGIN:",      "END:",
    };
    std::mt19937 random(1234);
    for (int round = 0; round < 3000; ++round) {
        std::string text = round % 8 == 0 ? "" : "BEGIN:VCALENDAR\r\n";
        for (std::size_t count = random() % 20; count > 0; --count) {
            text.append(kLines[random() % std::size(kLines)]).append("\r\n");
        }
        expect_same_as_single_walks(text);
        if (HasFailure()) return;
    }
}

TEST(PlainValue, UndoesTheTransferEncoding) {
    const auto plain = [](std::string_view line) {
        std::string storage = "left over";
        return std::string(plain_value(VersitProperty(line), storage));
    };
    EXPECT_EQ(plain("DUE:2009"), "2009");
    EXPECT_EQ(plain("DUE:=32009"), "=32009");
    EXPECT_EQ(plain("DUE;ENCODING=8BIT:2009"), "2009");
    EXPECT_EQ(plain("DUE;ENCODING=X-OWN:2009"), "2009");
    EXPECT_EQ(plain("DUE;ENCODING=QUOTED-PRINTABLE:=32009"), "2009");
    EXPECT_EQ(plain("DUE;QUOTED-PRINTABLE:"), "");
    EXPECT_EQ(plain("DUE;ENCODING=BASE64:MjAwOQ=="), "2009");
    EXPECT_EQ(plain("DUE"), "");
}

}  // namespace
}  // namespace vzapi::vcalendar
