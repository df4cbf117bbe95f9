#include "vzconv/calendar.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

#include "vzapi/vzapi.h"
#include "vzconv/calendar_json.h"
#include "vzconv/calendar_time.h"
#include "vzconv/failure.h"
#include "vzconv/json_object.h"
#include "vzconv/library.h"

namespace vzconv {
namespace {

constexpr uint32_t kSizes[] = {VZ_CALENDAR_SIZE_BASE, VZ_CALENDAR_SIZE_EXCEPTIONS,
                               VZ_CALENDAR_SIZE_WIDE_REPEAT, VZ_CALENDAR_SIZE_TIME_ZONE};

// What the library writes for a record, without any of the tool's code.
std::string direct_text(const CalendarItem& item, const Profile& profile) {
    VersitData data{};
    EXPECT_EQ(
        ConvertToVersit2(profile.family, profile.version, profile.counts, VZ_TYPE_CALENDAR, &item, &data),
        VZ_OK);
    std::string text(static_cast<const char*>(data.text), data.length);
    EXPECT_EQ(FreeVersitData(&data), VZ_OK);
    return text;
}

// The JSON of a record as a line and back, which keeps the order of its keys.
JsonObject object_of(const CalendarItem& item) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_calendar(item, object);
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items()) keys.push_back(key);
    return {nlohmann::json::parse(object.dump()), std::move(keys)};
}

CalendarTime time_of(const char* text) {
    return time_of_iso(text, DayEdge::First).value();
}

// Every field, from the last to the first, so that no order is taken for granted.
void fill_with_everything(uint32_t item_type, CalendarRecord& record) {
    CalendarItem& item = record.members();
    item.itemType = item_type;
    item.start = time_of("2009-03-10T14:00:00");
    item.end = time_of("2009-03-11T15:30:59Z");
    item.alarm = time_of("2009-03-10T13:45:00");
    item.alarmKind = VZ_ALARM_DISPLAY;
    item.standardOffset = -210;
    item.daylightOffset = 60;
    record.set_repeat({VZ_REPEAT_MONTHLY, 300, VZ_DAY_SUNDAY | VZ_DAY_TUESDAY, VZ_POSITION_LAST,
                       time_of("2010-06-30T12:00:00Z")});
    record.add_exception(time_of("2009-04-07"));
    record.add_exception(time_of("2009-04-08T14:00:00Z"));
    if (item_type != VZ_ITEM_TODO) record.add_reference({1, 0, 4294967295});
    if (item_type == VZ_ITEM_TODO) record.add_number(VZ_CALENDAR_STATUS, 9);
    if (item_type == VZ_ITEM_TODO) record.add_number(VZ_CALENDAR_PRIORITY, 4294967295);
    const bool has_year = item_type == VZ_ITEM_BIRTHDAY || item_type == VZ_ITEM_ANNIVERSARY;
    if (has_year) record.add_number(VZ_CALENDAR_BIRTH_YEAR, 1980);
    record.add_text(has_year ? VZ_CALENDAR_DESCRIPTION_ALONE : VZ_CALENDAR_DESCRIPTION,
                    u"One\r\n=Tw\u00F6; \xD83D\xDE00");
    record.add_text(VZ_CALENDAR_LOCATION, u"");
    record.add_text(VZ_CALENDAR_SUMMARY, u"A");
    record.add_text(VZ_CALENDAR_SUMMARY, u"B");
    record.add_geo(u"48.13", u"-11.57");
    record.add_number(VZ_CALENDAR_CLASS, VZ_CLASS_NONE);
    record.add_daylight_rule(
        {VZ_DAYLIGHT_TRUE, time_of("2009-03-29T02:00:00"), time_of("2009-10-25T03:00:00Z")});
    record.add_daylight_rule({VZ_DAYLIGHT_FALSE, {}, {}});
    record.set_standard_name("S");
    record.set_daylight_name("D");
}

TEST(Calendar, JsonCarriesAllThatAnyProfileWritesFromAnyRecord) {
    const LibrarySession session;
    for (uint32_t type = VZ_ITEM_OTHER; type <= VZ_ITEM_ANNIVERSARY; ++type) {
        CalendarRecord everything;
        fill_with_everything(type, everything);
        CalendarRecord nothing;
        nothing.members().itemType = type;
        for (CalendarRecord* record : {&everything, &nothing}) {
            for (const uint32_t size : kSizes) {
                for (const ProfileRow& row : profiles()) {
                    const Options options = {profile_of(row.name), size};
                    const CalendarItem item = record->item(size);
                    EXPECT_EQ(kCalendarConverter.from_json(object_of(item), options),
                              direct_text(item, options.profile))
                        << type << " " << size << " " << row.name;
                }
            }
        }
    }
}

TEST(Calendar, TextToJsonToTextIsTextToRecordToText) {
    const LibrarySession session;
    const std::string text =
        "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nTZ:+01\r\nBEGIN:VEVENT\r\nDESCRIPTION:d\r\nCLASS:PUBLIC\r\n"
        "SUMMARY:s\r\nGEO:1;2\r\nLOCATION:l\r\nDTSTART:20090310T140000\r\nRRULE:W1 "
        "#0\r\nDALARM:20090310T130000Z\r\n"
        "X-VZAPI-CAL-REFERENCE:3;2;1\r\nEXDATE:20090317T140000\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
    for (const uint32_t size : kSizes) {
        const ReadRecord<CalendarItem, kCalendarRecord> entry(text, Door::Conversions, size);
        for (const ProfileRow& row : profiles()) {
            const Options options = {profile_of(row.name), size};
            EXPECT_EQ(kCalendarConverter.from_json(object_of(*entry), options),
                      direct_text(*entry, options.profile))
                << size << " " << row.name;
        }
    }
}

TEST(Calendar, TheSizeOfTheRecordSaysWhatIsRead) {
    const LibrarySession session;
    const std::string text =
        "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nTZ:+01\r\nBEGIN:VEVENT\r\nCATEGORIES:MEETING\r\nDTSTART:"
        "20090310T140000\r\n"
        "RRULE:W300 MO #0\r\nEXDATE:20090317T140000\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
    const std::string start = R"({"type":"appointment","start":"2009-03-10T14:00:00",)";
    const std::string exceptions = R"(,"exceptions":["2009-03-17T14:00:00"])";
    const std::pair<uint32_t, std::string> rows[] = {
        {112, start + R"("recurrence":{"every":255,"unit":"week","days":["tuesday"]}})"},
        {128, start + R"("recurrence":{"every":255,"unit":"week","days":["monday"]})" + exceptions + "}"},
        {152, start + R"("recurrence":{"every":300,"unit":"week","days":["monday"]})" + exceptions + "}"},
        {192, start + R"("recurrence":{"every":300,"unit":"week","days":["monday"]})" + exceptions +
                  R"(,"timeZone":{"standard":"+01:00"}})"},
    };
    for (const auto& [size, json] : rows) {
        nlohmann::ordered_json object = nlohmann::ordered_json::object();
        kCalendarConverter.to_json(text, {{}, size}, object);
        EXPECT_EQ(object.dump(), json) << size;
    }
}

TEST(Calendar, MoreThanARecordCanHoldIsRefused) {
    const auto reason_for = [](const char* key, const nlohmann::json& value, std::size_t count) {
        nlohmann::json object;
        nlohmann::json& list =
            std::string_view(key) == "daylightRules" ? object["timeZone"][key] : object[key];
        list = nlohmann::json::array_t(count, value);
        CalendarRecord record;
        try {
            take_calendar(object, record);
        } catch (const Failure& failure) {
            return std::string(failure.what());
        }
        const CalendarItem item = record.item();
        return std::to_string(item.fieldCount + item.exceptionCount + item.daylightCount);
    };
    const nlohmann::json rule = {{"observed", false}};
    EXPECT_EQ(reason_for("title", "a", 255), "255");
    EXPECT_EQ(reason_for("title", "a", 256), "more texts and numbers than a calendar entry can have (255)");
    EXPECT_EQ(reason_for("exceptions", "2009-03-10", 255), "255");
    EXPECT_EQ(reason_for("exceptions", "2009-03-10", 256),
              "more exceptions than a calendar entry can have (255)");
    EXPECT_EQ(reason_for("daylightRules", rule, 255), "255");
    EXPECT_EQ(reason_for("daylightRules", rule, 256),
              "more rules of daylight-saving time than a calendar entry can have (255)");
}

TEST(Calendar, OtherWaysToSayTheSameHaveOnePlainForm) {
    const std::pair<const char*, const char*> rows[] = {
        {"{}", R"({"type":"other"})"},
        {R"({"start":"2009-03-10","recurrence":{"unit":"week","until":"2010-06-30"}})",
         R"({"recurrence":{"days":["tuesday"],"every":1,"unit":"week","until":"2010-06-30T23:59:59"},)"
         R"("start":"2009-03-10T00:00:00","type":"other"})"},
        {R"({"recurrence":{"unit":"week","days":["sunday","monday","sunday"]}})",
         R"({"recurrence":{"days":["monday","sunday"],"every":1,"unit":"week"},"type":"other"})"},
        {R"({"alarm":{"time":"2009-03-10"}})",
         R"({"alarm":{"kind":"sound","time":"2009-03-10T00:00:00"},"type":"other"})"},
        {R"({"type":"to-do","status":1,"priority":0,"title":["a"],"exceptions":[],"reference":[]})",
         R"({"status":"needs action","title":"a","type":"to-do"})"},
        {R"({"timeZone":{},"reference":[[1,2,3]]})",
         R"({"reference":[1,2,3],"timeZone":{"standard":"+00:00"},"type":"other"})"},
        {R"({"timeZone":{"daylightName":"D","daylightRules":[{}]}})",
         R"({"timeZone":{"daylight":"+00:00","daylightName":"D","daylightRules":[{"observed":true}],)"
         R"("standard":"+00:00"},"type":"other"})"},
    };
    for (const auto& [json, plain] : rows) {
        EXPECT_EQ(kCalendarConverter.plain_form(nlohmann::json::parse(json)).dump(), plain);
    }
}

TEST(Calendar, NamesOfZonesInAnyCharsetAreValidJson) {
    CalendarRecord record;
    record.set_standard_name("Z\xFCrich");
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_calendar(record.item(), object);
    EXPECT_EQ(object["timeZone"]["standardName"], "Z\xEF\xBF\xBDrich");
}

}  // namespace
}  // namespace vzconv
