// Whole PDUs through the interface: what is read, and that it is written as it was.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

TEST(MultimediaCodec, ANotificationAsAPersonWouldSpellIt) {
    const ReadMultimedia read(notification_pdu());
    ASSERT_EQ(read.result(), VZ_OK);
    EXPECT_EQ(shown(read.item()),
              "type 130 flags 1\n"
              "header 24 24/0 kind 3 t-7\n"
              "header 13 24/0 kind 1 18\n"
              "header 9 24/0 kind 5 56/1/0/0/0 name - text +15555550100 bytes -\n"
              "header 22 24/0 kind 4 56/0/0/106/0 name - text Caf\\u00E9 bytes -\n"
              "header 10 24/0 kind 1 128\n"
              "header 14 24/0 kind 1 32000\n"
              "header 8 24/0 kind 6 56/129/0/0/259200 name - text - bytes -\n"
              "header 3 24/0 kind 3 http://mms.example.net/a?id=7\n");
    EXPECT_EQ(written(read.item()), notification_pdu());
}

TEST(MultimediaCodec, AMessageWithPresentationAndText) {
    const ReadMultimedia read(message_pdu());
    ASSERT_EQ(read.result(), VZ_OK);
    EXPECT_EQ(shown(read.item()),
              "type 128 flags 1\n"
              "header 24 24/0 kind 3 t-8\n"
              "header 13 24/0 kind 1 16\n"
              "header 9 24/0 kind 5 56/4/0/0/0 name - text - bytes -\n"
              "header 23 24/0 kind 5 56/1/0/0/0 name - text +15555550101 bytes -\n"
              "header 6 24/0 kind 1 129\n"
              "part size 120 flags 1 in 0 application/vnd.wap.multipart.related charset 0"
              "; 24 type kind 3 application/smil; 24 start kind 3 <s>\n"
              "  name Part_0.1 id - location - disposition -\n"
              "  data -\n"
              "part size 120 flags 2 in 1 application/smil charset 0\n"
              "  name s.smil id s location s.smil disposition -\n"
              "  data 56:3C736D696C3E3C626F64793E3C7061723E3C74657874207372633D22742E747874222F3E3C2F7061723E"
              "3C2F626F64793E3C2F736D696C3E\n"
              "part size 120 flags 0 in 1 text/plain charset 106\n"
              "  name t.txt id - location t.txt disposition -\n"
              "  data 5:436166C3A9\n");
    EXPECT_EQ(written(read.item()), message_pdu());
}

TEST(MultimediaCodec, ADeliveryReport) {
    const ReadMultimedia read(delivery_report_pdu());
    ASSERT_EQ(read.result(), VZ_OK);
    EXPECT_EQ(shown(read.item()),
              "type 134 flags 1\n"
              "header 13 24/0 kind 1 16\n"
              "header 11 24/0 kind 3 m7@example.net\n"
              "header 23 24/0 kind 5 56/1/0/0/0 name - text +15555550101 bytes -\n"
              "header 5 24/0 kind 2 983701230\n"
              "header 21 24/0 kind 1 129\n");
    EXPECT_EQ(written(read.item()), delivery_report_pdu());
}

TEST(MultimediaCodec, EveryCanonicalPduComesBackByteForByte) {
    for (const PduSample& sample : all_pdus()) {
        const ReadMultimedia read(sample.bytes);
        ASSERT_EQ(read.result(), VZ_OK) << sample.name;
        EXPECT_EQ(read.item().flags, std::uint32_t{VZ_MMS_NO_PRESENTATION}) << sample.name;
        EXPECT_EQ(written(read.item()), sample.bytes) << sample.name << "\n" << shown(read.item());
    }
}

TEST(MultimediaCodec, EveryPduTypeIsReadAsSuch) {
    std::uint32_t type = VZ_MMS_SEND_REQ;
    for (const PduSample& sample : smallest_pdus()) {
        const ReadMultimedia read(sample.bytes);
        EXPECT_EQ(read.item().messageType, type++) << sample.name;
    }
    EXPECT_EQ(type, VZ_MMS_CANCEL_CONF + 1U);
}

// What is written of a record that could be read decodes to an equal one.
void expect_stable(const std::string& pdu, const std::string& what) {
    const ReadMultimedia read(pdu);
    ASSERT_TRUE(read.result() == VZ_OK || read.result() == VZ_ERR_BAD_VALUE) << what << " " << read.result();
    if (read.result() != VZ_OK) {
        EXPECT_EQ(shown(read.item()), "type 0 flags 0\n") << what;
        return;
    }
    ResultCode result = VZ_OK;
    const std::string again = written(read.item(), result);
    if (result == VZ_ERR_BAD_VALUE) return;
    ASSERT_EQ(result, VZ_OK) << what;
    const ReadMultimedia reread(again);
    ASSERT_EQ(reread.result(), VZ_OK) << what;
    EXPECT_EQ(shown(reread.item()), shown_as_whole(read.item())) << what;
    EXPECT_EQ(written(reread.item()), again) << what;
}

TEST(MultimediaCodec, EveryBeginningOfAPduIsRefusedOrReadInPart) {
    for (const PduSample& sample : all_pdus()) {
        for (std::size_t length = 0; length <= sample.bytes.size(); ++length) {
            expect_stable(sample.bytes.substr(0, length), sample.name + " cut to " + std::to_string(length));
            if (HasFatalFailure()) return;
        }
    }
}

TEST(MultimediaCodec, EveryChangeOfOneByteIsSurvived) {
    for (const std::string& pdu : {notification_pdu(), message_pdu(), delivery_report_pdu()}) {
        for (std::size_t at = 0; at < pdu.size(); ++at) {
            for (unsigned value = 0; value < 256; ++value) {
                std::string changed = pdu;
                changed[at] = static_cast<char>(value);
                expect_stable(changed, "byte " + std::to_string(at) + " is " + std::to_string(value));
                if (HasFailure()) return;
            }
        }
    }
}

TEST(MultimediaCodec, WhatIsNoPduIsRefused) {
    const PduSample rows[] = {
        {"nothing", ""},
        {"one octet", pdu_bytes("8C")},
        {"an unfinished text", pdu_bytes("8C 80 98 't-8'")},
        {"a length beyond the end", pdu_bytes("8C 80 89 1F 82 00 80 'a' 00")},
        {"a length of more than 32 bits", pdu_bytes("8C 80 89 1F 9F FF FF FF 7F 80")},
        {"text", "BEGIN:VCARD\r\nEND:VCARD\r\n"},
        {"application headers alone", pdu_bytes("'X-A' 00 'b' 00")},
        {"neither message type nor content type", pdu_bytes("98 't-8' 00 8D 90")},
        {"a content type that is cut off", pdu_bytes("8C 80 84 18 B3")},
    };
    for (const PduSample& row : rows) {
        const ReadMultimedia read(row.bytes);
        EXPECT_EQ(read.result(), VZ_ERR_BAD_VALUE) << row.name;
        EXPECT_EQ(shown(read.item()), "type 0 flags 0\n") << row.name;
        std::string bytes = row.bytes;
        const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(bytes.size()), bytes.data()};
        EXPECT_EQ(ODCAPI_ValidateDataObject(VZ_OBJECT_MULTIMEDIA, &in), VZ_ERR_BAD_VALUE) << row.name;
    }
}

TEST(MultimediaCodec, AMessageTypeOrAContentTypeMakesAPduValid) {
    for (const char* const spelling : {"8C 80", "84 83 'text'", "8D 90 84 83"}) {
        std::string bytes = pdu_bytes(spelling);
        const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(bytes.size()), bytes.data()};
        EXPECT_EQ(ODCAPI_ValidateDataObject(VZ_OBJECT_MULTIMEDIA, &in), VZ_OK) << spelling;
        EXPECT_EQ(ReadMultimedia(bytes).result(), VZ_OK) << spelling;
    }
}

TEST(MultimediaCodec, APushHeaderBeforeThePduIsPassedOver) {
    for (const char* const push :
         {"01 06 01 BE", "C8 06 04 BE AF 84 B4", "01 06 22 'application/vnd.wap.mms-message' 00 AF 84"}) {
        const ReadMultimedia read(pdu_bytes(push) + notification_pdu());
        ASSERT_EQ(read.result(), VZ_OK) << push;
        EXPECT_EQ(shown(read.item()), shown(ReadMultimedia(notification_pdu()).item())) << push;
    }
}

}  // namespace
}  // namespace vzapi::test
