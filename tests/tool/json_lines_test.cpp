#include "vzconv/json_lines.h"

#include <gtest/gtest.h>

#include "vzconv/failure.h"
#include "vzconv/json_fields.h"

namespace vzconv {
namespace {

std::string reason_for(std::string_view line) {
    try {
        object_of_line(line);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return "none";
}

struct ReasonRow {
    std::string_view line;
    std::string_view reason_begins;
};

TEST(JsonLines, ALineThatIsNoObjectIsRefusedWithItsReason) {
    const ReasonRow rows[] = {
        {"{}", "none"},
        {"  {\"a\":{\"a\":1}}\t", "none"},
        {"", "no JSON at column 1: "},
        {"{", "no JSON at column 2: "},
        {"{} {}", "no JSON at column 4: "},
        {"{\"a\":1e}", "no JSON at column 8: "},
        {"{\"a\":1e999}", "no JSON: "},
        {"{\"a\":\"\\ud83d\"}", "no JSON at column 13: "},
        {"{\"a\":\"\xFF\"}", "no JSON at column 7: "},
        {"[]", "must be a JSON object, not an array"},
        {"1", "must be a JSON object, not a number"},
        {"null", "must be a JSON object, not null"},
        {"{\"a\":1,\"a\":1}", "the key \"a\" stands there twice"},
        {"{\"b\":{\"a\":1,\"c\":2,\"a\":3}}", "the key \"a\" stands there twice"},
    };
    for (const ReasonRow& row : rows) {
        EXPECT_TRUE(std::string_view(reason_for(row.line)).starts_with(row.reason_begins))
            << row.line << ": " << reason_for(row.line);
    }
}

TEST(JsonLines, KeysStandInTheOrderOfTheLine) {
    const JsonObject object = object_of_line(R"({"b":{"x":1,"a":2},"a":[{"y":1}],"c":3})");
    EXPECT_EQ(object.keys, (std::vector<std::string>{"b", "a", "c"}));
    EXPECT_EQ(object.fields.size(), 3U);
    EXPECT_EQ(JsonObject(object.fields).keys, (std::vector<std::string>{"a", "b", "c"}));
}

TEST(JsonLines, DeepNestingIsNoTrouble) {
    const std::string deep = "{\"a\":" + std::string(200000, '[') + std::string(200000, ']') + "}";
    EXPECT_TRUE(object_of_line(deep).fields.contains("a"));
}

TEST(JsonLines, ALineIsAlwaysValidJson) {
    nlohmann::ordered_json object;
    object["z"] = "caf\xE9 \xED\xA0\x80";
    object["a"] = "line\nbreak \"quoted\" \\ \x01";
    const std::string line = line_of_object(object);
    EXPECT_EQ(line.find('\n'), line.size() - 1);
    const nlohmann::json again = nlohmann::json::parse(line);
    EXPECT_EQ(again["a"].get<std::string>(), object["a"].get<std::string>());
    EXPECT_EQ(again["z"].get<std::string>().substr(0, 6), "caf\xEF\xBF\xBD");
    EXPECT_LT(line.find("\"z\""), line.find("\"a\"")) << "keys keep their order";
}

struct FieldRow {
    const char* object;
    const char* reason;  // null: taken
};

TEST(JsonFields, WhatWouldBeLostIsRefused) {
    const FieldRow rows[] = {
        {R"({"title":"a"})", nullptr},
        {R"({})", nullptr},
        {R"({"title":""})", nullptr},
        {R"({"title":1})", "\"title\" must be a string, not a number"},
        {R"({"title":true})", "\"title\" must be a string, not a boolean"},
        {R"({"title":null})", "\"title\" must be a string, not null"},
        {R"({"title":[]})", "\"title\" must be a string, not an array"},
        {R"({"title":{}})", "\"title\" must be a string, not an object"},
        {R"({"title":"a\u0000b"})", "\"title\" holds a NUL character"},
        {R"({"title":"a","tit\nle":"b"})", "unknown key \"tit\\nle\""},
        {R"({"Title":"a"})", "unknown key \"Title\""},
    };
    for (const FieldRow& row : rows) {
        const nlohmann::json object = nlohmann::json::parse(row.object);
        std::string reason;
        try {
            JsonFields fields(object);
            fields.text("title");
            fields.expect_no_more();
        } catch (const Failure& failure) {
            reason = failure.what();
        }
        EXPECT_EQ(reason, row.reason == nullptr ? "" : row.reason) << row.object;
    }
}

TEST(JsonFields, TextBecomesUtf16) {
    const nlohmann::json object = {{"title", "\xC3\xA9\xF0\x9F\x98\x80"}};
    JsonFields fields(object);
    EXPECT_EQ(fields.text("title"), u"\xE9\xD83D\xDE00");
    EXPECT_EQ(fields.text("url"), std::nullopt);
}

}  // namespace
}  // namespace vzconv
