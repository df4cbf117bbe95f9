#include "vzconv/message.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

#include "vzconv/failure.h"
#include "vzconv/json_object.h"
#include "vzconv/message_json.h"
#include "vzconv/message_show.h"
#include "vzconv/message_time.h"
#include "vzconv/message_words.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

// What the library writes for a record, without any of the tool's code but the change to UTF-8.
std::string direct_text(const MessageItem& item, const Profile& profile) {
    VersitData data{};
    EXPECT_EQ(
        ConvertToVersit2(profile.family, profile.version, profile.counts, VZ_TYPE_MESSAGE, &item, &data),
        VZ_OK);
    const std::u16string units(static_cast<const char16_t*>(data.text), data.length / sizeof(char16_t));
    EXPECT_EQ(FreeVersitData(&data), VZ_OK);
    return utf8_from_utf16(units);
}

nlohmann::json json_of(const MessageItem& item) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_message(item, object);
    return nlohmann::json::parse(object.dump());
}

void fill(uint32_t type, uint32_t status, std::size_t numbers, MessageRecord& record) {
    record.set_type(type);
    record.set_status(status);
    if (status % 2 != 0) record.set_time(message_time_of("2009-03-05T14:07:09").value());
    for (std::size_t i = 0; i < numbers; ++i)
        record.add_number(std::u16string(u"+1555555010") + u"0123456789"[i % 10]);
    if (status != 0) record.set_text(u"Gr\u00FC\u00DFe \xD83D\xDE00\r\nEND:VBODY\r\n");
}

TEST(Message, JsonCarriesAllThatAnyProfileWrites) {
    const LibrarySession session;
    for (uint32_t type = VZ_MESSAGE_TYPE_NONE; type <= VZ_MESSAGE_TYPE_SMS_COMMAND; ++type) {
        for (uint32_t status = VZ_MESSAGE_STATUS_NONE; status <= VZ_MESSAGE_STATUS_SENDING; ++status) {
            for (const std::size_t numbers : {0U, 1U, 3U, 255U}) {
                MessageRecord record;
                fill(type, status, numbers, record);
                const MessageItem item = record.item();
                for (const ProfileRow& row : profiles()) {
                    const Options options = {profile_of(row.name)};
                    EXPECT_EQ(kMessageConverter.from_json(json_of(item), options),
                              direct_text(item, options.profile))
                        << type << " " << status << " " << numbers << " " << row.name;
                }
            }
        }
    }
}

TEST(Message, TextToJsonToTextKeepsEveryByteInBothFormsAndThroughBothFamilies) {
    const LibrarySession session;
    for (const char* profile : {"none", "10-messengers-and-sms"}) {
        MessageRecord record;
        fill(VZ_MESSAGE_TYPE_DELIVER, VZ_MESSAGE_STATUS_READ, 3, record);
        const std::string text = direct_text(record.item(), profile_of(profile));
        for (const Door door : {Door::Conversions, Door::Objects}) {
            nlohmann::ordered_json object = nlohmann::ordered_json::object();
            kMessageConverter.to_json(text, {{}, VZ_CALENDAR_SIZE_TIME_ZONE, door}, object);
            EXPECT_EQ(kMessageConverter.from_json(nlohmann::json(object), {profile_of(profile)}), text)
                << profile;
        }
    }
}

TEST(Message, OtherWaysToSayTheSameHaveOnePlainForm) {
    const std::pair<const char*, const char*> rows[] = {
        {R"({"text":"","addresses":[]})", "{}"},
        {R"({"time":"2009-03-05"})", R"({"time":"2009-03-05T00:00:00"})"},
        {R"({"type":"submit","status":"sent","text":"a","addresses":[""]})",
         R"({"addresses":[""],"status":"sent","text":"a","type":"submit"})"},
    };
    for (const auto& [json, plain] : rows)
        EXPECT_EQ(kMessageConverter.plain_form(nlohmann::json::parse(json)).dump(), plain);
}

TEST(Message, MoreAddressesThanARecordCanHoldAreRefused) {
    nlohmann::json object;
    object["addresses"] = nlohmann::json::array_t(256, "1");
    MessageRecord record;
    EXPECT_THROW(take_message(object, record), Failure);
    object["addresses"].erase(0);
    MessageRecord fitting;
    take_message(object, fitting);
    EXPECT_EQ(fitting.item().addressCount, 255);
}

struct ShowRow {
    uint32_t type;
    const char* lines;
};

TEST(Message, ShowSaysWhichWayAMessageGoes) {
    const ShowRow rows[] = {
        {VZ_MESSAGE_TYPE_NONE, "Message\n  Number    1\n  Text      (none)\n"},
        {VZ_MESSAGE_TYPE_DELIVER, "Message\n  From      1\n  Folder    in\n  Text      (none)\n"},
        {VZ_MESSAGE_TYPE_DELIVER_REPORT,
         "Deliver report\n  To        1\n  Folder    out\n  Text      (none)\n"},
        {VZ_MESSAGE_TYPE_SUBMIT, "Message\n  To        1\n  Folder    out\n  Text      (none)\n"},
        {VZ_MESSAGE_TYPE_SUBMIT_REPORT, "Submit report\n  From      1\n  Folder    in\n  Text      (none)\n"},
        {VZ_MESSAGE_TYPE_STATUS_REPORT, "Status report\n  From      1\n  Folder    in\n  Text      (none)\n"},
        {VZ_MESSAGE_TYPE_SMS_COMMAND, "Command\n  To        1\n  Folder    out\n  Text      (none)\n"},
        {15, "Message\n  Number    1\n  Text      (none)\n"},
    };
    for (const ShowRow& row : rows) {
        MessageRecord record;
        record.set_type(row.type);
        record.add_number(u"1");
        EXPECT_EQ(show_message(record.item()), row.lines);
    }
}

TEST(Message, ShowGivesEveryPart) {
    MessageRecord record;
    fill(VZ_MESSAGE_TYPE_DELIVER, VZ_MESSAGE_STATUS_READ, 2, record);
    record.add_number(u"");
    EXPECT_EQ(show_message(record.item()),
              "Message\n"
              "  From      +15555550100, +15555550101, no number\n"
              "  Date      Thu 5 March 2009, 14:07:09\n"
              "  Folder    in\n"
              "  State     read\n"
              "  Text      Gr\xC3\xBC\xC3\x9F"
              "e \xF0\x9F\x98\x80\n"
              "            END:VBODY\n");
}

}  // namespace
}  // namespace vzconv
