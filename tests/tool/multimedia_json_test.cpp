#include "vzconv/multimedia_json.h"

#include <gtest/gtest.h>

#include <string>

#include "vzconv/failure.h"
#include "vzconv/json_lines.h"
#include "vzconv/multimedia.h"
#include "vzconv/multimedia_parts.h"

namespace vzconv {
namespace {

// `text` as JSON that went through a record.
std::string through_record(const std::string& text) {
    MultimediaRecord record;
    take_multimedia(object_of_line(text).fields, record);
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_multimedia(record.item(), object);
    return object.dump();
}

std::string reason_of(const std::string& text) {
    try {
        through_record(text);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return {};
}

const char* const kHeaders[] = {
    R"({"header":"X-Mms-Delivery-Report","value":"no"})",
    R"({"header":"X-Mms-Delivery-Report","number":130})",
    R"({"header":"X-Mms-Message-Size","number":18446744073709551615})",
    R"({"header":"X-Mms-MMS-Version","value":"1.2"})",
    R"({"header":"X-Mms-Attributes","value":"Subject"})",
    R"({"header":"Date","date":"2001-03-04T10:20:30Z"})",
    R"({"header":"Date","date":253402300800})",
    R"({"header":"Message-ID","text":""})",
    R"({"header":"X-Mms-Message-Class","kind":"text","text":"com.example"})",
    R"({"header":"Subject","text":"a"})",
    R"({"header":"Subject","text":"ä","charset":"iso-8859-1"})",
    R"({"header":"Subject","text":"ä","charset":4711})",
    R"({"header":"Subject","kind":"none"})",
    R"({"header":"From","addressType":"insert"})",
    R"({"header":"To","address":"a@example.com"})",
    R"({"header":"To","address":"ä","charset":"utf-8","addressType":"PLMN"})",
    R"({"header":"X-Mms-Expiry","afterSeconds":60})",
    R"({"header":"X-Mms-Expiry","time":"2001-03-04T10:20:30Z"})",
    R"({"header":"X-Mms-Response-Status","kind":"counted number","count":3,"value":"ok"})",
    R"({"header":"X-Mms-Response-Text","kind":"counted text","count":3,"text":"a"})",
    R"({"header":"X-Mms-Content-Location","kind":"counted text","count":0,"text":"ä"})",
    R"({"header":"X-Mms-Previously-Sent-Date","count":1,"date":"2001-03-04T10:20:30Z"})",
    R"({"header":"X-Mms-Previously-Sent-By","count":1,"address":"5","addressType":"PLMN"})",
    R"({"header":"X-Mms-MM-Flags","mark":"filter","text":"family"})",
    R"({"header":"X-Mms-MM-Flags","mark":131,"text":"family"})",
    R"({"header":"X-Mms-Mbox-Totals","mark":"octets","number":7})",
    R"({"header":"X-Mms-Element-Descriptor","bytes":"AQI="})",
    R"({"header":"Subject","kind":"raw","bytes":""})",
    R"({"header":"0x5A","bytes":"AQI="})",
    R"({"header":"0x5A","kind":"number","number":7})",
    R"({"applicationHeader":"X-Name","text":"a"})",
};

TEST(MultimediaJson, EachHeaderComesBackFromARecord) {
    const LibrarySession session;
    for (const char* header : kHeaders) {
        const std::string text = R"({"type":"m-send-req","headers":[)" + std::string(header) + "]}";
        EXPECT_EQ(through_record(text), text);
    }
}

const char* const kParts[] = {
    R"({"contentType":"text/plain","text":""})",
    R"({"contentType":"text/plain","text":"a\u0000ä"})",
    R"({"contentType":"text/plain","charset":"iso-8859-1","data":"5A==","text":"ä"})",
    R"({"contentType":"text/plain","data":"5A==","text":"ä"})",
    R"({"contentType":"text/plain","charset":"iso-10646-ucs-2","data":"//7kAAAAYgA=","text":"ä\u0000b"})",
    R"({"contentType":"image/gif","data":"AQI="})",
    R"({"contentType":"image/gif","name":"n","contentId":"","contentLocation":"l","data":""})",
    R"({"contentType":"a/b","parameters":[{"name":"type","text":"t"},{"name":"q","number":7},{"name":"x"},)"
    R"({"name":"read-date","date":"2001-03-04T10:20:30Z"},{"name":"0x59","bytes":"AQ=="}],"data":""})",
    R"({"contentType":"a/b","disposition":"inline","dispositionParameters":[{"name":"filename","text":"f"}],)"
    R"("headers":[{"header":"Content-Length","number":7},{"header":"0x50","text":"a"},)"
    R"({"header":"Age","bytes":"AQ=="},{"applicationHeader":"X-A","text":"b"}],"data":""})",
    R"({"contentType":"c","name":"c","parts":[{"contentType":"d","parts":[]},)"
    R"({"contentType":"a/b","presentation":true,"truncated":true,"data":""}]})",
};

TEST(MultimediaJson, EachPartComesBackFromARecord) {
    const LibrarySession session;
    for (const char* part : kParts) {
        const std::string text = R"({"type":"m-send-req","parts":[)" + std::string(part) + "]}";
        EXPECT_EQ(through_record(text), text);
    }
    const std::string flags = R"({"type":"0xF0","truncated":true,"addPresentation":true})";
    EXPECT_EQ(through_record(flags), flags);
}

TEST(MultimediaJson, HalfASurrogatePairIsTheOneThingLost) {
    // A subject in UTF-16BE: 'a', the first half of a pair, 'b'.
    const LibrarySession session;
    const std::string pdu("\x8C\x85\x98t\0\x8D\x90\x96\x0B\x02\x03\xF5\0a\xD8\x3D\0b\0\0", 20);
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    kMultimediaConverter.to_json(pdu, {}, object);
    EXPECT_EQ(object["headers"][2]["text"],
              "a\xEF\xBF\xBD"
              "b");
}

TEST(MultimediaJson, WhatIsShortGetsItsPlainForm) {
    const LibrarySession session;
    EXPECT_EQ(through_record(R"({"type":"m-send-req","headers":[{"header":"Subject","text":"ä"},)"
                             R"({"header":"X-Mms-MMS-Version","value":"1.0"},)"
                             R"({"header":"X-Mms-Transaction-Id","text":"t"}],)"
                             R"("parts":[{"contentType":"text/plain"}]})"),
              R"({"type":"m-send-req","headers":[{"header":"X-Mms-Transaction-Id","text":"t"},)"
              R"({"header":"X-Mms-MMS-Version","value":"1.0"},)"
              R"({"header":"Subject","text":"ä","charset":"utf-8"}],)"
              R"("parts":[{"contentType":"text/plain","text":""}]})");
}

struct RefusalRow {
    const char* fields;
    const char* reason;
};

const RefusalRow kRefusals[] = {
    {R"("a":1)", R"(the key "type" is missing)"},
    {R"("type":"m-send-req","a":1)", R"(unknown key "a")"},
    {R"("type":7)", R"("type" must be a string, not a number)"},
    {R"("type":"m-send-req","headers":{})", R"("headers" must be an array, not an object)"},
    {R"("type":"m-send-req","headers":[7])", R"("headers[0]" must be an object, not a number)"},
    {R"("type":"m-send-req","headers":[{}])", R"(the key "headers[0].header" is missing)"},
    {R"("type":"m-send-req","headers":[{"header":"X"}])", R"(unknown header "X" in "headers[0].header")"},
    {R"("type":"m-send-req","headers":[{"header":"Subject"}])", R"(the key "headers[0].text" is missing)"},
    {R"("type":"m-send-req","headers":[{"header":"Subject","text":"a","number":7}])",
     R"(unknown key "headers[0].number")"},
    {R"("type":"m-send-req","headers":[{"header":"X-Mms-Priority","value":"urgent"}])",
     R"(unknown value "urgent" in "headers[0].value")"},
    {R"("type":"m-send-req","headers":[{"header":"X-Mms-Message-Size","number":-1}])",
     R"("headers[0].number" must be a whole number from 0 to 18446744073709551615, not -1)"},
    {R"("type":"m-send-req","headers":[{"header":"Date","date":"today"}])",
     R"("headers[0].date" must be a time like 2001-03-04T10:20:30Z, not "today")"},
    {R"("type":"m-send-req","headers":[{"header":"0x5A","bytes":"?"}])",
     R"("headers[0].bytes" is no Base64)"},
    {R"("type":"m-send-req","parts":[{}])", R"(the key "parts[0].contentType" is missing)"},
    {R"("type":"m-send-req","parts":[{"contentType":"a","data":"?"}])", R"("parts[0].data" is no Base64)"},
    {R"("type":"m-send-req","parts":[{"contentType":"a","parts":[],"data":""}])",
     R"(unknown key "parts[0].data")"},
    {R"("type":"m-send-req","parts":[{"contentType":"text/plain","data":"YQ==","text":"b"}])",
     R"("parts[0].text" is not what "data" says)"},
    {R"("type":"m-send-req","parts":[{"contentType":"text/plain","charset":"big5","text":"b"}])",
     R"("parts[0].text" is UTF-8; a text in another charset needs its bytes, as "data")"},
};

TEST(MultimediaJson, WhatIsUnknownMissingOrWrongIsRefusedByName) {
    const LibrarySession session;
    for (const RefusalRow& row : kRefusals)
        EXPECT_EQ(reason_of("{" + std::string(row.fields) + "}"), row.reason) << row.fields;
}

TEST(MultimediaJson, ContainersAreNotNestedWithoutEnd) {
    const LibrarySession session;
    constexpr int kDepth = 2000;
    std::string text;
    for (int i = 0; i < kDepth; ++i) text += R"({"contentType":"a","parts":[)";
    for (int i = 0; i < kDepth; ++i) text += "]}";
    EXPECT_NE(reason_of(R"({"type":"m-send-req","parts":[)" + text + "]}").find("is nested too deep"),
              std::string::npos);
}

TEST(MultimediaJson, AMessageThatTheLibraryCannotWriteIsRefused) {
    const LibrarySession session;
    EXPECT_THROW(kMultimediaConverter.from_json(object_of_line(R"({"type":"m-send-req"})"), {}), Failure);
}

TEST(MultimediaParts, TextsAreReadInTheirCharset) {
    const LibrarySession session;
    struct Row {
        std::string data;
        uint32_t charset;
        std::string text;
    };
    const Row rows[] = {
        {"", 4, ""},
        {"a\xE4", 4, "a\xC3\xA4"},
        {"\xE4", 0, "\xC3\xA4"},
        {"\xC3\xA4", 0, "\xC3\xA4"},
        {"\xC3\xA4", 3, "\xC3\xA4"},
        {"\xC3\xA4\xFF", 106, "\xC3\xA4\xEF\xBF\xBD"},
        {std::string("\0\xE4\0", 3), 4, std::string("\0\xC3\xA4\0", 4)},
        {"\x93\x8C", 17, "\xE6\x9D\xB1"},
        {std::string("\0a\x04\x10", 4), 1013, "a\xD0\x90"},
        {std::string("\xFF\xFE"
                     "a\0\0\0\x10\x04",
                     8),
         1000, std::string("a\0\xD0\x90", 4)},
        {std::string("\0\0\xFE\xFF\0\0\0a", 8), 1017, "a"},
        {std::string(100000, 'a') + "\xE4", 4, std::string(100000, 'a') + "\xC3\xA4"},
    };
    for (const Row& row : rows) EXPECT_EQ(text_in_charset(row.data, row.charset), row.text) << row.charset;
}

}  // namespace
}  // namespace vzconv
