#include "vzconv/calendar_show.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "vzconv/calendar_json.h"
#include "vzconv/json_object.h"

namespace vzconv {
namespace {

std::string shown(const std::string& json) {
    CalendarRecord record;
    take_calendar(nlohmann::json::parse(json), record);
    return show_calendar(record.item());
}

TEST(CalendarShow, AnEntryReadsFromTheTitleToTheTimeZone) {
    EXPECT_EQ(
        shown(
            R"({"type":"appointment","start":"2009-03-10T14:00:00","end":"2009-03-10T15:30:00","title":"T",)"
            R"("alarm":{"time":"2009-03-10T13:45:00","kind":"sound"},"location":"L","description":"D\nE\n\n",)"
            R"("recurrence":{"unit":"week","every":2,"until":"2010-06-30"},"exceptions":["2009-04-07"],)"
            R"("class":"private","geo":{"latitude":"1","longitude":"2"},"reference":[1,2,3],"priority":1,)"
            R"("status":"completed","timeZone":{"standard":"+01:00","standardName":"CET","daylight":"+02:00",)"
            R"("daylightRules":[{"begin":"2009-03-29T02:00:00","end":"2009-10-25T03:00:00"},{"end":"2010-10-31"},{}]}})"),
        "Appointment\n"
        "  Title        T\n"
        "  When         Tue 10 March 2009, 14:00 to 15:30\n"
        "  Repeats      every second Tuesday until 30 June 2010; except 7 April 2009\n"
        "  Alarm        15 minutes before, sound\n"
        "  Where        L\n"
        "  Status       completed\n"
        "  Priority     1 (highest)\n"
        "  Description  D\n"
        "               E\n"
        "  Class        private\n"
        "  Position     latitude 1, longitude 2\n"
        "  Reference    1, 2, 3\n"
        "  Time zone    UTC+01:00 (CET), daylight-saving time UTC+02:00\n"
        "               from Sun 29 March 2009, 02:00 to Sun 25 October 2009, 03:00\n"
        "               until Sun 31 October 2010, 00:00\n");
    EXPECT_EQ(shown("{}"), "Calendar entry\n  (empty)\n");
    EXPECT_EQ(shown(R"({"type":"birthday","start":"1980-02-29","birthYear":1980})"),
              "Birthday\n  When         Fri 29 February 1980\n  Born         1980\n");
    EXPECT_EQ(shown(R"({"timeZone":{"standard":"-05:30","daylightRules":[{"observed":false}]}})"),
              "Calendar entry\n  Time zone    UTC-05:30, no daylight-saving time\n");
}

struct WhenRow {
    const char* json;
    const char* when;
};

void expect_lines(const char* type, const char* label, std::initializer_list<WhenRow> rows) {
    for (const WhenRow& row : rows) {
        const std::string text = shown(R"({"type":")" + std::string(type) + R"(",)" + row.json + "}");
        std::string line = "  " + std::string(label);
        line.resize(15, ' ');
        EXPECT_NE(text.find(line + row.when + "\n"), std::string::npos) << row.json << "\n" << text;
    }
}

TEST(CalendarShow, TimesReadTheWayTheyAreSaid) {
    expect_lines(
        "appointment", "When",
        {
            {R"("start":"2009-03-10T14:00:00")", "Tue 10 March 2009, 14:00"},
            {R"("start":"2009-03-10T14:00:30Z")", "Tue 10 March 2009, 14:00:30 UTC"},
            {R"("end":"2009-03-10T14:00:00")", "until Tue 10 March 2009, 14:00"},
            {R"("start":"2009-03-10T14:00:00","end":"2009-03-10T14:00:00")", "Tue 10 March 2009, 14:00"},
            {R"("start":"2009-03-10T14:00:00Z","end":"2009-03-10T15:00:00Z")",
             "Tue 10 March 2009, 14:00 to 15:00 UTC"},
            {R"("start":"2009-03-10T14:00:00","end":"2009-03-11T02:00:00")",
             "Tue 10 March 2009, 14:00 to Wed 11 March 2009, 02:00"},
            {R"("start":"2009-03-10T14:00:00","end":"2009-03-10T14:00:00Z")",
             "Tue 10 March 2009, 14:00 to Tue 10 March 2009, 14:00 UTC"},
            {R"("start":"2009-03-10","end":"2009-03-11")", "Tue 10 March 2009, all day"},
            {R"("start":"2009-03-10","end":"2009-03-10")", "Tue 10 March 2009, 00:00"},
            {R"("start":"2009-03-10T00:00:00Z","end":"2009-03-11T00:00:00Z")",
             "Tue 10 March 2009, 00:00 to Wed 11 March 2009, 00:00 UTC"},
            {R"("start":"2009-02-31T14:00:00")", "31 February 2009, 14:00"},
        });
    expect_lines(
        "event", "When",
        {
            {R"("start":"2009-03-10")", "Tue 10 March 2009, all day"},
            {R"("start":"2009-03-10T00:00:00Z")", "Tue 10 March 2009, all day UTC"},
            {R"("start":"2009-03-10","end":"2009-03-10")", "Tue 10 March 2009, all day"},
            {R"("start":"2009-03-10","end":"2009-03-10T23:59:00")", "Tue 10 March 2009, all day"},
            {R"("start":"2009-03-10","end":"2009-03-10T23:59:59")", "Tue 10 March 2009, all day"},
            {R"("start":"2009-02-27","end":"2009-03-02")",
             "Fri 27 February 2009 to Sun 1 March 2009, all day"},
            {R"("start":"2009-03-10","end":"2009-03-10T12:00:00")", "Tue 10 March 2009, 00:00 to 12:00"},
            {R"("start":"2009-03-10","end":"2009-03-09")",
             "Tue 10 March 2009, 00:00 to Mon 9 March 2009, 00:00"},
            {R"("start":"2009-03-10T00:00:01")", "Tue 10 March 2009, 00:00:01"},
        });
    expect_lines("to-do", "Due",
                 {
                     {R"("due":"2009-03-10")", "Tue 10 March 2009"},
                     {R"("due":"2009-03-10T18:00:00Z")", "Tue 10 March 2009, 18:00 UTC"},
                 });
    expect_lines("to-do", "End", {{R"("end":"2009-03-10")", "Tue 10 March 2009, 00:00"}});
}

TEST(CalendarShow, AnAlarmReadsByItsDistanceOrByItsDate) {
    const std::string start = R"("start":"2009-03-10T14:00:00","alarm":)";
    const auto alarm = [&start](const char* time) { return start + R"({"time":")" + time + R"("})"; };
    const std::pair<std::string, const char*> rows[] = {
        {alarm("2009-03-10T14:00:00"), "at the start, sound"},
        {alarm("2009-03-10T13:59:59"), "1 second before, sound"},
        {alarm("2009-03-10T13:45:00"), "15 minutes before, sound"},
        {alarm("2009-03-10T12:30:00"), "1 hour 30 minutes before, sound"},
        {alarm("2009-03-09T14:00:00"), "1 day before, sound"},
        {alarm("2009-03-02T13:00:00"), "Mon 2 March 2009, 13:00, sound"},
        {alarm("2009-02-24T14:00:00"), "2 weeks before, sound"},
        {alarm("2009-02-10T14:00:00"), "4 weeks before, sound"},
        {alarm("2009-02-09T14:00:00"), "Mon 9 February 2009, 14:00, sound"},
        {alarm("2009-03-10T14:01:00"), "1 minute after the start, sound"},
        {alarm("2009-03-10T13:45:00Z"), "Tue 10 March 2009, 13:45 UTC, sound"},
    };
    for (const auto& [json, words] : rows) expect_lines("call", "Alarm", {{json.c_str(), words}});
    expect_lines(
        "call", "Alarm",
        {{R"("alarm":{"time":"2009-03-10","kind":"display"})", "Tue 10 March 2009, 00:00, display"}});
    expect_lines("event", "Alarm",
                 {{R"("start":"2009-03-10","alarm":{"time":"2009-03-09T18:00:00"})",
                   "Mon 9 March 2009, 18:00, sound"}});
    expect_lines(
        "to-do", "Alarm",
        {{R"("due":"2009-03-10T18:00:00","alarm":{"time":"2009-03-10T18:00:00"})", "when it is due, sound"},
         {R"("due":"2009-03-10T18:00:00","alarm":{"time":"2009-03-10T19:00:00"})",
          "1 hour after it is due, sound"}});
}

TEST(CalendarShow, ATextOfControlsReachesNoTerminal) {
    EXPECT_EQ(shown(R"({"title":"\u001b[31m","timeZone":{"standardName":"\u001b"}})"),
              "Calendar entry\n  Title        \xE2\x90\x9B[31m\n  Time zone    UTC+00:00 (\xE2\x90\x9B)\n");
}

}  // namespace
}  // namespace vzconv
