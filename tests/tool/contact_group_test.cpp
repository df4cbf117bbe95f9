#include "vzconv/contact_group.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "vzapi/vzapi.h"
#include "vzconv/failure.h"
#include "vzconv/json_object.h"
#include "vzconv/library.h"

namespace vzconv {
namespace {

std::string group_text(const std::string& name, const std::string& members) {
    return "BEGIN:VCARD\r\nVERSION:2.1\r\nFN" + name + "\r\nX-CNTGRP:" + members + "\r\nEND:VCARD\r\n";
}

std::string json_of(const std::string& text) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    kContactGroupConverter.to_json(text, {}, object);
    return object.dump();
}

struct GroupRow {
    const char* json;
    std::string text;
};

const GroupRow kRows[] = {
    {R"({"name":"Family","members":["12","7"]})", group_text(":Family", "12;7")},
    {R"({"name":"Family","members":["340282366920938463463374607431768211455","0"]})",
     group_text(":Family", "340282366920938463463374607431768211455;0")},
    {R"({"name":"é","members":[]})", group_text(";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9", "")},
    {R"({"members":[]})", group_text(":", "")},
};

TEST(ContactGroup, JsonThereAndBack) {
    const LibrarySession session;
    for (const GroupRow& row : kRows) {
        EXPECT_EQ(kContactGroupConverter.from_json(nlohmann::json::parse(row.json), {}), row.text);
        EXPECT_EQ(json_of(row.text), row.json);
    }
    EXPECT_EQ(kContactGroupConverter.from_json(nlohmann::json::object(), {}), group_text(":", ""));
}

TEST(ContactGroup, MembersWithoutANumberAreCounted) {
    const LibrarySession session;
    const std::string text = group_text(":Family", "1;two;3");
    EXPECT_EQ(json_of(text), R"({"name":"Family","members":["1","3"],"membersNotRead":1})");
    EXPECT_EQ(kContactGroupConverter.show(text, {}),
              "Contact group\n  Name      Family\n  Members   1, 3\n  Not read  1 without a number\n");
    EXPECT_EQ(kContactGroupConverter.show(group_text(":Family", ""), {}),
              "Contact group\n  Name      Family\n  Members   none\n");
}

struct RefusalRow {
    const char* json;
    const char* reason;
};

TEST(ContactGroup, WhatIsUnknownOrOfAWrongTypeIsRefusedByItsName) {
    const RefusalRow rows[] = {
        {R"({"title":"a"})", R"(unknown key "title")"},
        {R"({"name":1})", R"("name" must be a string, not a number)"},
        {R"({"members":"1"})", R"("members" must be an array, not a string)"},
        {R"({"members":["1",2]})", R"("members[1]" must be a string of digits, not a number)"},
        {R"({"members":["x"]})", R"("members[0]" must be a number of up to 128 bits in digits, not "x")"},
        {R"({"membersNotRead":-1})", R"("membersNotRead" must be a whole number, not a number)"},
    };
    for (const RefusalRow& row : rows) {
        try {
            kContactGroupConverter.from_json(nlohmann::json::parse(row.json), {});
            ADD_FAILURE() << "taken: " << row.json;
        } catch (const Failure& failure) {
            EXPECT_STREQ(failure.what(), row.reason) << row.json;
        }
    }
}

TEST(ContactGroup, AnEmptyNameIsNone) {
    const LibrarySession session;
    EXPECT_EQ(kContactGroupConverter.from_json(nlohmann::json::parse(R"({"name":""})"), {}),
              group_text(":", ""));
    EXPECT_EQ(kContactGroupConverter.plain_form(nlohmann::json::parse(R"({"name":""})")).dump(), "{}");
}

TEST(ContactGroup, LeadingZerosAreNoLoss) {
    EXPECT_EQ(
        kContactGroupConverter.plain_form(nlohmann::json::parse(R"({"members":["007"],"name":"a"})")).dump(),
        R"({"members":["7"],"name":"a"})");
}

}  // namespace
}  // namespace vzconv
