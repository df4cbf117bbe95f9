// Bodies as they come: parts, their names, transfer encodings, and what writers get wrong.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

std::string with_parts(const std::vector<std::string>& entries) {
    return retrieved(pdu_bytes("A3"), multipart(entries));
}

// The first part in the container, of the head and the data.
struct FirstPart {
    explicit FirstPart(std::string_view head, const std::string& data = "data")
        : message(with_parts({entry(pdu_bytes(head), data)})), part(message.part(1)) {}

    ReadMultimedia message;
    const MultimediaPart& part;
};

TEST(MultimediaBody, APartIsCalledByTheFirstOfItsNames) {
    struct Row {
        const char* head;
        const char* name;
    };
    const Row rows[] = {
        {"(83 85 'name' 00) AE (81 86 'file' 00) 8E 'place' 00 C0 22 '<id>' 00", "name"},
        {"(83 97 'name' 00)", "name"},
        {"(83 97 22 'a name' 00)", "a name"},
        {"(83 'Name' 00 'name' 00)", "name"},
        {"(83 85 00) AE (81 86 'file' 00) 8E 'place' 00", "file"},
        {"83 AE (81 86 'file' 00) 8E 'place' 00 C0 22 '<id>' 00", "file"},
        {"83 C5 (81 98 22 'file' 00) 8E 'place' 00", "file"},
        {"83 8E 'place' 00 C0 22 '<id>' 00", "place"},
        {"83 C0 22 '<id>' 00", "id"},
        {"83 8E 00 C0 22 '<id>' 00", "id"},
        {"83 AE 81", "Part_1.1"},
        {"83", "Part_1.1"},
        {"(83 85 'n' C3 A4 'me' 00)", "n\\u00E4me"},
    };
    for (const Row& row : rows) {
        const FirstPart first(row.head);
        EXPECT_EQ(shown(first.part.name), row.name) << row.head;
    }
}

TEST(MultimediaBody, PartsWithoutNamesAreNumberedInsideTheirContainers) {
    const std::string text = entry(pdu_bytes("83"), "text");
    const std::string inner = entry(pdu_bytes("A6"), multipart({text, text}));
    const ReadMultimedia read(
        with_parts({text, inner, text, inner, entry(pdu_bytes("83 8E 'x' 00"), ""), text}));
    std::string names;
    for (std::uint32_t i = 0; i < read.item().partCount; ++i) names += shown(read.part(i).name) + " ";
    EXPECT_EQ(names,
              "Part_0.1 Part_1.1 Part_1.2 Part_2.1 Part_2.2 Part_1.3 Part_1.4 Part_3.1 Part_3.2 x Part_1.6 ");
    EXPECT_EQ(shown(ReadMultimedia(retrieved(pdu_bytes("83"), "text")).part(0).name), "Part_1.1");
}

// The number of the part with the mark, from 1 in the container; 0: none.
std::uint32_t presentation_in(const std::string& content_type, const std::vector<std::string>& heads) {
    std::vector<std::string> entries;
    for (const std::string& head : heads) entries.push_back(entry(pdu_bytes(head), "data"));
    const ReadMultimedia read(retrieved(pdu_bytes(content_type), multipart(entries)));
    std::uint32_t found = 0;
    for (std::uint32_t i = 0; i < read.item().partCount; ++i) {
        if ((read.part(i).flags & VZ_MMS_PART_PRESENTATION) == 0) continue;
        EXPECT_EQ(found, 0U) << "one alone";
        found = i;
    }
    return found;
}

TEST(MultimediaBody, TheRootOfARelatedContainerIsThePresentation) {
    const std::string smil = "'application/smil' 00";
    const std::string by_id = "83 C0 22 '<r>' 00";
    EXPECT_EQ(presentation_in("(B3 8A '<r>' 00)", {smil, "83", by_id}), 3U);
    EXPECT_EQ(presentation_in("(B3 99 22 '<r>' 00)", {smil, by_id}), 2U) << "quoted";
    EXPECT_EQ(presentation_in("(B3 8A 'r' 00)", {smil, by_id}), 2U) << "without brackets";
    EXPECT_EQ(presentation_in("(B3 8A '<r>' 00)", {smil, "83 C0 'r' 00"}), 2U) << "an id without brackets";
    EXPECT_EQ(presentation_in("(B3 8A '<r>' 00)", {smil, "83 C0 22 '<r>' 22 00"}), 2U) << "a closing quote";
    EXPECT_EQ(presentation_in("(B3 8A '<R>' 00)", {"83", smil, by_id}), 2U) << "no match: by the type";
    EXPECT_EQ(presentation_in("B3", {"83", smil, smil}), 2U);
    EXPECT_EQ(presentation_in("B3", {"83", "'Application/SMIL' 00"}), 2U);
    EXPECT_EQ(presentation_in("B3", {"9E", "83"}), 1U) << "else the first";
    EXPECT_EQ(presentation_in("'multipart/related' 00", {"9E", smil}), 2U);
    EXPECT_EQ(presentation_in("A3", {smil, "83"}), 0U) << "mixed has none";
    EXPECT_EQ(presentation_in("(A6 8A '<r>' 00)", {smil, by_id}), 0U);
    EXPECT_EQ(presentation_in("B3", {}), 0U);
}

TEST(MultimediaBody, IdsLoseQuotesAndBrackets) {
    for (const char* const head : {"83 C0 22 '<id>' 00", "83 C0 '<id>' 00", "83 C0 'id' 00",
                                   "83 C0 22 'id' 00", "83 C0 22 '<id>' 22 00", "83 C0 (EA '<id>' 00)",
                                   "83 'Content-ID' 00 '<id>' 00", "83 'content-id' 00 22 '<id>' 22 00"}) {
        EXPECT_EQ(shown(FirstPart(head).part.contentId), "id") << head;
    }
}

TEST(MultimediaBody, TransferEncodingsAreUndone) {
    struct Row {
        const char* head;
        const char* data;
        const char* expected;
    };
    const Row rows[] = {
        {"83 'Content-Transfer-Encoding' 00 'base64' 00", "VGhl\r\nIGVuZA==\r\n", "The end"},
        {"83 'content-transfer-encoding' 00 ' BASE64 ' 00", "VGhlIGVuZA", "The end"},
        {"83 C8 'base64' 00", "VGhlIGVuZA==", "The end"},
        {"83 'Content-Transfer-Encoding' 00 'quoted-printable' 00",
         "a=3Db=\r\n=c3=A9 =  \r\n\t=", "a=b\xC3\xA9 \t"},
        {"83 'Content-Transfer-Encoding' 00 'base64' 00", "", ""},
    };
    for (const Row& row : rows) {
        const FirstPart first(row.head, row.data);
        EXPECT_EQ(first.message.data(1), row.expected) << row.head;
        EXPECT_EQ(first.part.headerCount, 0U) << row.head;
    }
}

TEST(MultimediaBody, DataThatAreNotEncodedStayAsTheyAre) {
    struct Row {
        const char* head;
        const char* data;
    };
    const Row rows[] = {
        {"83 'Content-Transfer-Encoding' 00 '7bit' 00", "a=3D"},
        {"83 'Content-Transfer-Encoding' 00 'base64' 00", "\xFF\xD8\xFF"},
        {"83 'Content-Transfer-Encoding' 00 'base64' 00", "VGhl=VGhl"},
        {"83 'Content-Transfer-Encoding' 00 'quoted-printable' 00", "a=zz"},
        {"83 'Content-Transfer-Encoding' 00 'quoted-printable' 00", "a=3"},
        {"83 'Content-Transfer-Encoding' 00 'quoted-printable' 00", "\xC3\xA9"},
    };
    for (const Row& row : rows) {
        const FirstPart first(row.head, row.data);
        EXPECT_EQ(first.message.data(1), row.data) << row.head;
        EXPECT_EQ(first.part.headerCount, 1U) << row.data;
        const ReadMultimedia again(written(first.message.item()));
        EXPECT_EQ(shown(again.item()), shown(first.message.item())) << row.head;
    }
}

TEST(MultimediaBody, AnEncodedContainerIsReadToo) {
    const ReadMultimedia read(
        with_parts({entry(pdu_bytes("A3 'Content-Transfer-Encoding' 00 'base64' 00"), "AQEEg3RleHQ=")}));
    ASSERT_EQ(read.item().partCount, 3U);
    EXPECT_EQ(read.data(2), "text");
    EXPECT_EQ(shown(ReadMultimedia(written(read.item())).item()), shown(read.item()));
}

TEST(MultimediaBody, HeadsThatBreakTheRulesAreReadAsFarAsTheyGo) {
    struct Row {
        const char* what;
        const char* head;
        const char* expected;  // what is shown of the part
    };
    const Row rows[] = {
        {"no head", "",
         "application/octet-stream charset 0\n  name Part_1.1 id - location - disposition -\n"},
        {"no content type", "00 8E 'x' 00",
         "application/octet-stream charset 0\n  name x id - location x disposition -\n"},
        {"a media type as text", "'TEXT/Plain' 00",
         "text/plain charset 0\n  name Part_1.1 id - location - disposition -\n"},
        {"with a parameter", "'text/plain;charset=utf-8' 00",
         "text/plain charset 106\n  name Part_1.1 id - location - disposition -\n"},
        {"a location with a charset", "83 8E (EA 'a' C3 A9 00)",
         "text/plain charset 0\n  name a\\u00E9 id - location a\\u00E9 disposition -\n"},
        {"a location with a path", "83 8E 'file:///a/b.txt' 00",
         "text/plain charset 0\n  name file:///a/b.txt id - location file:///a/b.txt disposition -\n"},
        {"a quote before ASCII", "83 8E 7F 'x' 00",
         "text/plain charset 0\n  name x id - location x disposition -\n"},
        {"a location by its name", "83 'Content-Location' 00 'x' 00",
         "text/plain charset 0\n  name x id - location x disposition -\n"},
        {"two locations", "83 8E 'x' 00 8E 'y' 00",
         "text/plain charset 0\n  name x id - location x disposition -\n  header 14 24/0 kind 3 y\n"},
        {"a disposition without length", "83 AE 81 8E 'x' 00",
         "text/plain charset 0\n  name x id - location x disposition attachment\n"},
        {"a disposition as text", "83 C5 'inline' 00",
         "text/plain charset 0\n  name Part_1.1 id - location - disposition inline\n"},
        {"a length beyond the head", "83 C5 1E 81 8E 'x' 00",
         "text/plain charset 0\n  name Part_1.1 id - location - disposition -\n"},
        {"a text without end", "83 8E 'x'",
         "text/plain charset 0\n  name Part_1.1 id - location - disposition -\n"},
        {"a NUL too many", "83 8E 'x' 00 00 C0 22 '<i>' 00",
         "text/plain charset 0\n  name x id i location x disposition -\n"},
        {"a shift to another page", "83 8E 'x' 00 7F 02 80 'y' 00",
         "text/plain charset 0\n  name x id - location x disposition -\n"},
        {"other values", "83 8B 'gzip' 00 8C 99 8D 02 01 00 'X-A' 00 'b' 00 8D 00",
         "text/plain charset 0\n  name Part_1.1 id - location - disposition -\n"
         "  header 11 24/0 kind 3 gzip\n  header 12 24/0 kind 1 25\n"
         "  header 13 24/0 kind 14 56/0/0/0/0 name - text - bytes 3:020100\n"
         "  header 0 24/0 kind 13 56/0/0/0/0 name X-A text b bytes -\n  header 13 24/0 kind 3 \n"},
    };
    for (const Row& row : rows) {
        const FirstPart first(row.head);
        const std::string all = shown(first.message.item());
        EXPECT_TRUE(
            all.ends_with("part size 120 flags 0 in 1 " + std::string(row.expected) + "  data 4:64617461\n"))
            << row.what << "\n"
            << all;
        EXPECT_EQ(shown(ReadMultimedia(written(first.message.item())).item()), all) << row.what;
    }
}

TEST(MultimediaBody, WhatIsCutOffIsKeptAsFarAsItIsComplete) {
    const std::string text = entry(pdu_bytes("83"), "text");
    struct Row {
        const char* what;
        std::string body;
        std::uint32_t parts;
        const char* flags;  // of each part
    };
    const Row rows[] = {
        {"no body", "", 1, "5 "},
        {"more entries promised than there are", uintvar(9) + text + text, 3, "5 0 0 "},
        {"four thousand million entries", pdu_bytes("8F FF FF FF 7F") + text, 2, "5 0 "},
        {"data cut off", uintvar(2) + pdu_bytes("01 09 83") + "text", 2, "5 4 "},
        {"data gone", uintvar(1) + pdu_bytes("01 09 83"), 2, "5 4 "},
        {"a head cut off", uintvar(1) + pdu_bytes("09 01 83"), 1, "5 "},
        {"lengths cut off", uintvar(1) + pdu_bytes("09"), 1, "5 "},
        {"a length of more than 32 bits", uintvar(1) + pdu_bytes("01 FF FF FF FF 7F 83"), 1, "5 "},
        {"lengths that are not the shortest", pdu_bytes("80 01 80 01 80 04 83") + "text", 2, "1 0 "},
        {"bytes behind the last entry", uintvar(1) + text + "more", 2, "1 0 "},
    };
    for (const Row& row : rows) {
        const ReadMultimedia read(retrieved(pdu_bytes("A3"), row.body));
        ASSERT_EQ(read.result(), VZ_OK) << row.what;
        ASSERT_EQ(read.item().partCount, row.parts) << row.what;
        std::string flags;
        for (std::uint32_t i = 0; i < row.parts; ++i) flags += std::to_string(read.part(i).flags) + " ";
        EXPECT_EQ(flags, row.flags) << row.what;
        const bool is_whole = std::string(row.flags).starts_with("1");
        EXPECT_EQ((read.item().flags & VZ_MMS_TRUNCATED) == 0, is_whole) << row.what;
    }
}

TEST(MultimediaBody, ContainersDeeperThanTheLimitArePartsWithData) {
    std::string body = multipart({});
    for (int i = 0; i < 20; ++i) body = multipart({entry(pdu_bytes("A3"), body)});
    const ReadMultimedia read(retrieved(pdu_bytes("A3"), body));
    ASSERT_EQ(read.item().partCount, 9U);
    EXPECT_EQ(read.part(7).flags, std::uint32_t{VZ_MMS_PART_CONTAINER});
    EXPECT_EQ(read.part(8).flags, 0U);
    EXPECT_EQ(read.part(8).container, 8U);
    EXPECT_GT(read.part(8).dataLength, 0U);
    EXPECT_EQ(written(read.item()), retrieved(pdu_bytes("A3"), body));
}

TEST(MultimediaBody, PartsBeyondTheLimitAreLeftOut) {
    std::string body = uintvar(100000);
    for (int i = 0; i < 100000; ++i) body += pdu_bytes("01 00 83");
    const ReadMultimedia read(retrieved(pdu_bytes("A3"), body));
    ASSERT_EQ(read.result(), VZ_OK);
    EXPECT_EQ(read.item().partCount, 4096U);
    EXPECT_EQ(read.item().flags, std::uint32_t{VZ_MMS_NO_PRESENTATION | VZ_MMS_TRUNCATED});
    EXPECT_EQ(shown(ReadMultimedia(written(read.item())).item()), shown_as_whole(read.item()));
}

}  // namespace
}  // namespace vzapi::test
