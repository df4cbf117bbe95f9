#include "mms/mms_header.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "mms/header_block.h"
#include "mms/header_rows.h"
#include "mms/mms_charset.h"

namespace vzapi::mms {
namespace {

TEST(HeaderBlock, TheTimeOfAnInsertedAddressIsNotTakenForText) {
    // No NUL in the values, and a named header behind them.
    const Decoded decoded("8C A0 89 01 81 'X-A' 00 'b' 00 88 05 81 03 03 F4 81 'X-A' 00 'b' 00");
    ASSERT_TRUE(decoded.is_good);
    const std::vector<Header> expected = {
        {VZ_MMS_HEADER_FROM, address(VZ_MMS_ADDRESS_INSERT, u"")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"X-A", u"b")},
        {VZ_MMS_HEADER_EXPIRY, time(VZ_MMS_TIME_RELATIVE, 0x3F481)},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"X-A", u"b")},
    };
    EXPECT_EQ(decoded.message.headers, expected);
    EXPECT_EQ(encoded_block(decoded.message.headers), decoded.octets);
}

TEST(HeaderBlock, NamedHeadersStayBetweenTheOthers) {
    const Decoded decoded("8C A0 'X-One' 00 'a' 00 8A 80 'X-Two' 00 7F C3 A9 00 'X-One' 00 00");
    ASSERT_TRUE(decoded.is_good);
    const std::vector<Header> expected = {
        {VZ_MMS_HEADER_APPLICATION, named_text(u"X-One", u"a")},
        {VZ_MMS_HEADER_MESSAGE_CLASS, number(VZ_MMS_CLASS_PERSONAL)},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"X-Two", u"\u00E9")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"X-One", u"")},
    };
    EXPECT_EQ(decoded.message.headers, expected);
    EXPECT_EQ(decoded.header.count(), 5U);
    EXPECT_EQ(encoded_block(decoded.message.headers), decoded.octets);
}

TEST(HeaderBlock, LeadingFieldsComeFirstAndRepeatedOnesStay) {
    const Decoded decoded("96 'a' 00 8D 90 98 't' 00 97 'x@y' 00 8C 80 98 'u' 00 97 'z@y' 00 8D 91 8C 81");
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.message.type, std::uint32_t{VZ_MMS_SEND_REQ});
    EXPECT_EQ(decoded.header.count(), 9U);
    const std::vector<Header> expected = {
        {VZ_MMS_HEADER_TRANSACTION_ID, text(u"t")},
        {VZ_MMS_HEADER_VERSION, number(VZ_MMS_VERSION_1_0)},
        {VZ_MMS_HEADER_SUBJECT, encoded(0, u"a")},
        {VZ_MMS_HEADER_TO, address(VZ_MMS_ADDRESS_PLAIN, u"x@y")},
        {VZ_MMS_HEADER_TRANSACTION_ID, text(u"u")},
        {VZ_MMS_HEADER_TO, address(VZ_MMS_ADDRESS_PLAIN, u"z@y")},
        {VZ_MMS_HEADER_VERSION, number(VZ_MMS_VERSION_1_1)},
        {VZ_MMS_HEADER_MESSAGE_TYPE, number(VZ_MMS_SEND_CONF)},
    };
    EXPECT_EQ(decoded.message.headers, expected);
    EXPECT_EQ(encoded_block(decoded.message.headers),
              wire("8C A0 98 't' 00 8D 90 96 'a' 00 97 'x@y' 00 98 'u' 00 97 'z@y' 00 8D 91 8C 81"));
}

TEST(HeaderBlock, LeadingFieldsAreWrittenFirstFromAnyRecord) {
    EXPECT_EQ(encoded_block({{VZ_MMS_HEADER_SUBJECT, encoded(0, u"a")},
                             {VZ_MMS_HEADER_VERSION, number(VZ_MMS_VERSION_1_0)},
                             {VZ_MMS_HEADER_TRANSACTION_ID, text(u"t")}}),
              wire("8C A0 98 't' 00 8D 90 96 'a' 00"));
}

TEST(HeaderBlock, ShiftsOfTheCodePageAndStrayNulsAreLeftOut) {
    const Decoded decoded("8C A0 03 7F 82 8A 80 00 00 1F 8F 81");
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.header.count(), 3U);
    EXPECT_EQ(encoded_block(decoded.message.headers), wire("8C A0 8A 80 8F 81"));
}

TEST(HeaderBlock, EndsWithTheContentType) {
    const Decoded decoded("8C A0 8A 80 84 03 83 81 EA 8F 81");
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.position, 9U);
    EXPECT_EQ(decoded.header.count(), 3U);
    EXPECT_EQ(decoded.message.headers.size(), 1U);
    ASSERT_TRUE(decoded.header.content_type());
    EXPECT_EQ(narrow(decoded.header.content_type()->media), "text/plain");
    EXPECT_EQ(decoded.header.content_type()->charset, kUtf8);
}

TEST(HeaderBlock, FieldsBehindTheTypeOfAMultipartBodyAreFields) {
    const Decoded decoded("8C A0 84 A3 8F 81 96 'a' 00 01 03 01 83 8E 00 'x'");
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.position, 9U);
    EXPECT_EQ(decoded.header.count(), 4U);
    EXPECT_EQ(encoded_block(decoded.message.headers), wire("8C A0 8F 81 96 'a' 00"));
}

TEST(HeaderBlock, ABodyOfManyPartsIsNoField) {
    Octets octets = wire("8C A0 84 A3 81 00");
    for (int i = 0; i < 128; ++i) {
        const Octets entry = wire("01 01 83 'x'");
        octets.insert(octets.end(), entry.begin(), entry.end());
    }
    const Decoded decoded(octets);
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.position, 4U);
    EXPECT_TRUE(decoded.message.headers.empty());
}

TEST(HeaderBlock, AFieldThatIsCutOffIsRefused) {
    for (const char* octets :
         {"8C", "8C 80 98", "8C 80 98 't'", "8C 80 89 05 80 'a'", "8C 80 88 05 81 03", "8C 80 84",
          "8C 80 84 05 83", "8C 80 'X-A' 00 'a'", "8C 80 'X-A' 00", "8C 80 'X-A'", "8C 80 7F", "8C 80 C0",
          "8C 80 96 1F 83", "8C 80 85 04 01 02 03", "8C 80 97", "8C 80 84 00", "8C 80 84 01 00",
          "8C 80 97 C3 A9"}) {
        EXPECT_FALSE(Decoded(octets).is_good) << octets;
    }
}

TEST(HeaderBlock, NothingIsAHeaderWithoutFields) {
    const Decoded decoded("");
    EXPECT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.header.count(), 0U);
    EXPECT_FALSE(decoded.header.has_message_type());
    EXPECT_EQ(decoded.message.type, std::uint32_t{VZ_MMS_TYPE_NONE});
}

TEST(HeaderBlock, AMessageTypeThatIsNoCodeStaysInTheList) {
    const Decoded decoded("8C 'm-send-req' 00 8C 80");
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.message.type, std::uint32_t{VZ_MMS_SEND_REQ});
    ASSERT_EQ(decoded.message.headers.size(), 1U);
    EXPECT_EQ(decoded.message.headers[0].value.kind, std::uint32_t{VZ_MMS_VALUE_RAW});
}

TEST(WorkedExamples, NotificationComesBackOctetForOctet) {
    const Decoded decoded(kNotification);
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.octets.size(), 88U);
    EXPECT_EQ(decoded.message.type, std::uint32_t{VZ_MMS_NOTIFICATION_IND});
    const std::vector<Header> expected = {
        {VZ_MMS_HEADER_TRANSACTION_ID, text(u"t-7")},
        {VZ_MMS_HEADER_VERSION, number(VZ_MMS_VERSION_1_2)},
        {VZ_MMS_HEADER_FROM, address(VZ_MMS_ADDRESS_PLMN, u"+15555550100")},
        {VZ_MMS_HEADER_SUBJECT, encoded(106, u"Caf\u00E9")},
        {VZ_MMS_HEADER_MESSAGE_CLASS, number(VZ_MMS_CLASS_PERSONAL)},
        {VZ_MMS_HEADER_MESSAGE_SIZE, number(32000)},
        {VZ_MMS_HEADER_EXPIRY, time(VZ_MMS_TIME_RELATIVE, 259200)},
        {VZ_MMS_HEADER_CONTENT_LOCATION, text(u"http://mms.example.net/a?id=7")},
    };
    EXPECT_EQ(decoded.message.headers, expected);
    EXPECT_EQ(encoded_block(expected, VZ_MMS_NOTIFICATION_IND), decoded.octets);
}

TEST(WorkedExamples, SendRequestComesBackOctetForOctet) {
    const Octets fields = wire(kSendRequest);
    const Octets type = wire(kSendRequestType);
    Octets octets = fields;
    octets.insert(octets.end(), type.begin(), type.end());
    const Decoded decoded(octets);
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.position, 0x40U);
    EXPECT_EQ(decoded.header.count(), 7U);
    EXPECT_EQ(encoded_block(decoded.message.headers, VZ_MMS_SEND_REQ), fields);
    ASSERT_TRUE(decoded.header.content_type());
    WspWriter writer;
    writer.octet(0x84);
    writer.content_type(*decoded.header.content_type());
    EXPECT_EQ(writer.bytes(), type);
}

TEST(WorkedExamples, DeliveryReportComesBackOctetForOctet) {
    const Decoded decoded(kDelivery);
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.octets.size(), 52U);
    EXPECT_EQ(decoded.message.headers.size(), 5U);
    EXPECT_EQ(encoded_block(decoded.message.headers, VZ_MMS_DELIVERY_IND), decoded.octets);
}

}  // namespace
}  // namespace vzapi::mms
