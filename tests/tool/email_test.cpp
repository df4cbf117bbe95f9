#include "vzconv/email.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "vzconv/email_document.h"
#include "vzconv/failure.h"
#include "vzconv/json_object.h"

namespace vzconv {
namespace {

constexpr const char* kDocument =
    "<a><Email><flagged>true</flagged><read>false</read><received>2009-03-05T14:07:09</received>"
    "<read>true</read><created>2009-03-04</created><emailitem>t</emailitem></Email></a>";

TEST(Email, JsonHasTheFieldsInTheOrderOfTheirWords) {
    const LibrarySession session;
    for (const Door door : {Door::Conversions, Door::Objects}) {
        nlohmann::ordered_json object = nlohmann::ordered_json::object();
        kEmailConverter.to_json(kDocument, {{}, VZ_CALENDAR_SIZE_TIME_ZONE, door}, object);
        EXPECT_EQ(object.dump(), R"({"read":[false,true],"flagged":true,"created":"2009-03-04T00:00:00",)"
                                 R"("received":"2009-03-05T14:07:09","text":"t"})");
    }
}

TEST(Email, ShowSaysWhatIsThere) {
    const LibrarySession session;
    EXPECT_EQ(kEmailConverter.show(kDocument, {}),
              "E-mail item\n"
              "  Read       no\n"
              "  Read       yes\n"
              "  Flagged    yes\n"
              "  Created    Wed 4 March 2009, 00:00\n"
              "  Received   Thu 5 March 2009, 14:07:09\n"
              "  Text       t\n");
    EXPECT_EQ(kEmailConverter.show("<Email/>", {}), "E-mail item\n  (empty)\n");
}

TEST(Email, WhatDoesNotDecodeAndWhatIsToBeWrittenIsRefused) {
    const LibrarySession session;
    const auto reason_of = [](const auto& action) -> std::string {
        try {
            action();
        } catch (const Failure& failure) {
            return failure.what();
        }
        return {};
    };
    EXPECT_EQ(reason_of([] { kEmailConverter.show("<Email>", {}); }),
              "the object does not decode (0x80100013)");
    EXPECT_EQ(reason_of([] { kEmailConverter.from_json(nlohmann::json::object(), {}); }),
              "e-mail items are read only: there is no versit text for them");
}

TEST(Email, ADocumentIsKnownByItsTag) {
    for (const char* text :
         {"<Email/>", " \r\n<?xml version=\"1.0\"?><a><Email ", "<Email>", "<Emails/><Email\n>"})
        EXPECT_TRUE(is_email_document(text)) << text;
    for (const char* text :
         {"", "<", "<Email", "Email>", "<Emails>", "<email>", "<xEmail>", "{\"a\":\"<Email>\"}"})
        EXPECT_FALSE(is_email_document(text)) << text;
}

}  // namespace
}  // namespace vzconv
