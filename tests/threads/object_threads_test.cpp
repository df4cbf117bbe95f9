// E-mail items, multimedia messages and text objects on several threads at once.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "dataobject/email_text.h"
#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

bool read_email(int thread, int round) {
    const std::string text(static_cast<std::size_t>(round % 40 + 1), static_cast<char>('a' + thread));
    const std::string document =
        "<?xml version='1.0' encoding='Shift_JIS'?><Email><read>false</read><created>2024-05-0" +
        std::to_string(thread + 1) + "</created><emailitem>" + text + "</emailitem></Email>";
    return email_of(document) ==
               "read=0 created=2024-05-0" + std::to_string(thread + 1) + "T00:00:00 text=" + text &&
           email_of(document.substr(0, document.size() - 1)) == "80100013";
}

bool convert_bookmark(int thread) {
    const std::string text =
        "BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE:" + std::to_string(thread) + "\r\nURL:\r\nEND:VBKM\r\n";
    const DataObject in = object_of(text);
    BookmarkItem item{};
    item.size = sizeof item;
    DataObject out{sizeof out, 0, 0, nullptr};
    bool is_right = ODCAPI_ValidateDataObject(VZ_OBJECT_BOOKMARK, &in) == VZ_OK &&
                    ODCAPI_ParseDataObject(VZ_OBJECT_BOOKMARK, &in, &item) == VZ_OK &&
                    ODCAPI_CreateDataObject(VZ_OBJECT_BOOKMARK, &item, &out) == VZ_OK;
    is_right = is_right && std::string(static_cast<const char*>(out.text), out.length) == text;
    return ODCAPI_FreeDataObject(&out) == VZ_OK &&
           ODCAPI_FreeParsedData(VZ_OBJECT_BOOKMARK, &item) == VZ_OK && is_right;
}

// A message with a presentation, and a part in a charset and a transfer encoding that differ with the thread.
bool convert_multimedia(int thread) {
    const std::string letter(1, static_cast<char>('a' + thread));
    const std::string pdu =
        retrieved(pdu_bytes("A3"),
                  multipart({entry(pdu_bytes(thread % 2 == 0 ? "(83 81 91)" : "(83 81 EA)"), letter),
                             entry(pdu_bytes("83 'Content-Transfer-Encoding' 00 'base64' 00"), "YWJj")}));
    const ReadMultimedia read(pdu);
    return read.result() == VZ_OK && read.item().partCount == 3 && read.data(1) == letter &&
           read.data(2) == "abc" && written(ReadMultimedia(message_pdu()).item()) == message_pdu();
}

TEST(ObjectThreads, ReadAndCreateIndependently) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 100;
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([thread, &wrong] {
            for (int round = 0; round < kRounds; ++round) {
                if (!read_email(thread, round) || !convert_bookmark(thread) || !convert_multimedia(thread))
                    ++wrong;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
