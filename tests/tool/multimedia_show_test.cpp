#include <gtest/gtest.h>

#include <string>

#include "vzconv/json_lines.h"
#include "vzconv/multimedia.h"

namespace vzconv {
namespace {

// What is shown of the message that a line of JSON makes.
std::string shown(const std::string& fields) {
    const std::string pdu = kMultimediaConverter.from_json(object_of_line("{" + fields + "}"), {});
    return kMultimediaConverter.show(pdu, {});
}

constexpr const char* kHead =
    R"("type":"m-send-req","headers":[{"header":"X-Mms-Transaction-Id","text":"t"},)"
    R"({"header":"X-Mms-MMS-Version","value":"1.2"},{"header":"From","addressType":"insert"})";

TEST(MultimediaShow, WhoWhenAndWhatComeFirst) {
    const LibrarySession session;
    EXPECT_EQ(
        shown(std::string(kHead) +
              R"(,{"header":"X-Mms-Priority","value":"high"},{"header":"Subject","text":"A\u001b\u202eb"},)"
              R"({"header":"To","address":"+15555550100","addressType":"PLMN"},)"
              R"({"header":"Bcc","address":"b@example.com"},{"header":"To","address":"5550101"},)"
              R"({"header":"Date","date":"2001-03-04T10:20:30Z"},)"
              R"({"header":"X-Mms-Expiry","afterSeconds":259200},)"
              R"({"header":"X-Mms-Message-Size","number":4300}],)"
              R"("parts":[{"contentType":"text/plain","text":"one\r\ntwo","charset":"utf-8"}])"),
        "Multimedia message, sent\n"
        "  From             (the sender's own address)\n"
        "  To               +15555550100, 5550101\n"
        "  Bcc              b@example.com\n"
        "  Date             Sun 4 March 2001, 10:20:30 UTC\n"
        "  Subject          A\xE2\x90\x9B\xEF\xBF\xBD"
        "b\n"
        "  Priority         high\n"
        "  Expires          3 days after it arrives\n"
        "  Size             4.2 KB\n"
        "  Part 1           Part_1.1, text/plain, 8 bytes\n"
        "                   one\n"
        "                   two\n");
}

TEST(MultimediaShow, ThePresentationIsNamedAndNotPrinted) {
    const LibrarySession session;
    EXPECT_EQ(shown(std::string(kHead) +
                    R"(,{"header":"Cc","address":"5550101"}],"parts":[{"contentType":)"
                    R"("application/vnd.wap.multipart.related","parts":[)"
                    R"({"contentType":"application/smil","contentLocation":"s.smil","text":"<smil/>"},)"
                    R"({"contentType":"text/plain","contentLocation":"a\n  From  b.txt","text":"t"}]}])"),
              "Multimedia message, sent\n"
              "  From             (the sender's own address)\n"
              "  Cc               5550101\n"
              "  Presentation     s.smil, application/smil, 7 bytes\n"
              "  Part 2           a From b.txt, text/plain, 1 byte\n"
              "                   t\n");
}

TEST(MultimediaShow, ValuesThatCannotBeReadAndEmptyOnesAreSaidToBeSo) {
    const LibrarySession session;
    EXPECT_EQ(
        shown(std::string(kHead) + R"(,{"header":"Cc","address":"5550101"},{"header":"Subject","text":""},)"
                                   R"({"header":"X-Mms-Priority","kind":"raw","bytes":"fwA="}],)"
                                   R"("parts":[{"contentType":"text/plain","text":"t"}])"),
        "Multimedia message, sent\n"
        "  From             (the sender's own address)\n"
        "  Cc               5550101\n"
        "  Subject          (empty)\n"
        "  Priority         (unreadable, 2 bytes)\n"
        "  Part 1           Part_1.1, text/plain, 1 byte\n"
        "                   t\n");
}

TEST(MultimediaShow, ATextThatComesFirstIsNoPresentation) {
    const LibrarySession session;
    EXPECT_EQ(shown(std::string(kHead) +
                    R"(,{"header":"Cc","address":"5550101"}],"parts":[{"contentType":)"
                    R"("application/vnd.wap.multipart.related","parts":[)"
                    R"({"contentType":"text/plain","contentLocation":"t.txt","text":"seen"}]}])"),
              "Multimedia message, sent\n"
              "  From             (the sender's own address)\n"
              "  Cc               5550101\n"
              "  Part 1           t.txt, text/plain, 4 bytes\n"
              "                   seen\n");
}

}  // namespace
}  // namespace vzconv
