#include "mms/mms_header.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "mms/mms_charset.h"
#include "mms/mms_tables.h"
#include "mms/wire_bytes.h"
#include "support/guard_page.h"

namespace vzapi::mms {
namespace {

// A header block that was read; its views point into `octets`.
struct Decoded {
    explicit Decoded(Octets bytes) : octets(std::move(bytes)) {
        CWSPEncoding pdu{Bytes(octets)};
        is_good = header.decode(pdu, message);
        position = pdu.position();
    }
    explicit Decoded(const char* notation) : Decoded(wire(notation)) {}

    Octets octets;
    CMMSHeader header;
    Message message;
    bool is_good = false;
    std::size_t position = 0;
};

// The fields of an unknown message type, of which nothing is demanded.
constexpr std::uint32_t kFreeType = 0xA0;

std::optional<Octets> encoded_block(std::vector<Header> headers, std::uint32_t type = kFreeType) {
    Message message;
    message.type = type;
    message.headers = std::move(headers);
    WspWriter pdu;
    if (!CMMSHeader().encode(message, pdu)) return std::nullopt;
    return pdu.take();
}

std::string encoded_text_of(const Header& header, std::uint32_t type = kFreeType) {
    const std::optional<Octets> octets = encoded_block({header}, type);
    return octets ? shown(std::span(*octets).subspan(2)) : "refused";
}

struct FieldRow {
    const char* what;
    const char* octets;
    Value value;
    const char* written;  // null: the same octets
};

// Reads a field behind a message type, and writes it again.
void expect_field(const FieldRow& row, std::uint32_t type = kFreeType) {
    Octets octets = {std::byte{0x8C}, static_cast<std::byte>(type)};
    const Octets field = wire(row.octets);
    octets.insert(octets.end(), field.begin(), field.end());
    const Decoded decoded(octets);
    ASSERT_TRUE(decoded.is_good) << row.what;
    ASSERT_EQ(decoded.message.headers.size(), 1U) << row.what;
    const Header& header = decoded.message.headers[0];
    EXPECT_EQ(header.number, static_cast<std::uint32_t>(field[0]) & 0x7FU) << row.what;
    EXPECT_EQ(header.value, row.value) << row.what;
    const Octets written = wire(row.written != nullptr ? row.written : row.octets);
    EXPECT_EQ(encoded_text_of(header, type), shown(written)) << row.what;
}

const Octets kRaw00 = wire("00");
const Octets kRawText = wire("'abc' 00");
const Octets kRawOctet = wire("90");
const Octets kRawLength = wire("02 01 02");

// One canonical value, at least, of each field by its number.
const FieldRow kFields[] = {
    {"Bcc", "81 '+15555550100/TYPE=PLMN' 00", address(VZ_MMS_ADDRESS_PLMN, u"+15555550100"), nullptr},
    {"Cc", "82 'joe@example.com' 00", address(VZ_MMS_ADDRESS_PLAIN, u"joe@example.com"), nullptr},
    {"Content-Location", "83 'http://example.net/a' 00", text(u"http://example.net/a"), nullptr},
    {"counted Content-Location", "83 04 81 'ab' 00", counted(VZ_MMS_VALUE_COUNTED_TEXT, 1, text(u"ab")),
     nullptr},
    {"Date", "85 04 3A A2 16 EE", date(983701230), nullptr},
    {"Date 0", "85 01 00", date(0), nullptr},
    {"Date behind 2106", "85 05 01 00 00 00 00", date(0x100000000), nullptr},
    {"Delivery-Report", "86 80", number(VZ_MMS_YES), nullptr},
    {"Delivery-Time", "87 06 80 04 3A A2 16 EE", time(VZ_MMS_TIME_ABSOLUTE, 983701230), nullptr},
    {"Expiry", "88 05 81 03 03 F4 80", time(VZ_MMS_TIME_RELATIVE, 259200), nullptr},
    {"From", "89 18 80 '+15555550100/TYPE=PLMN' 00", address(VZ_MMS_ADDRESS_PLMN, u"+15555550100"), nullptr},
    {"From to insert", "89 01 81", address(VZ_MMS_ADDRESS_INSERT, u""), nullptr},
    {"From with a name", "89 0D 80 0B EA 'J' C3 B6 ' <a@b>' 00",
     address(VZ_MMS_ADDRESS_PLAIN, u"J\u00F6 <a@b>", 106), nullptr},
    {"Message-Class", "8A 80", number(VZ_MMS_CLASS_PERSONAL), nullptr},
    {"other Message-Class", "8A 'x-news' 00", text(u"x-news"), nullptr},
    {"Message-ID", "8B 'm7@example.net' 00", text(u"m7@example.net"), nullptr},
    {"second Message-Type", "8C 81", number(VZ_MMS_SEND_CONF), nullptr},
    {"Version", "8D 92", number(VZ_MMS_VERSION_1_2), nullptr},
    {"Version without minor", "8D 9F", number(0x1F), nullptr},
    {"Message-Size", "8E 02 7D 00", number(32000), nullptr},
    {"Message-Size 0", "8E 01 00", number(0), nullptr},
    {"Priority", "8F 82", number(VZ_MMS_PRIORITY_HIGH), nullptr},
    {"Read-Report", "90 81", number(VZ_MMS_NO), nullptr},
    {"Report-Allowed", "91 80", number(VZ_MMS_YES), nullptr},
    {"Response-Status", "92 E0", number(VZ_MMS_RESPONSE_PERMANENT_FAILURE), nullptr},
    {"counted Response-Status", "92 02 81 80",
     counted(VZ_MMS_VALUE_COUNTED_NUMBER, 1, number(VZ_MMS_RESPONSE_OK)), nullptr},
    {"Response-Text", "93 'ok' 00", encoded(0, u"ok"), nullptr},
    {"Response-Text with a charset", "93 04 EA 'ok' 00", encoded(106, u"ok"), nullptr},
    {"Sender-Visibility", "94 80", number(VZ_MMS_SENDER_HIDE), nullptr},
    {"Status", "95 81", number(VZ_MMS_STATUS_RETRIEVED), nullptr},
    {"Subject", "96 07 EA 'Caf' C3 A9 00", encoded(106, u"Caf\u00E9"), nullptr},
    {"Subject in ASCII", "96 'Hello \"you\"' 00", encoded(0, u"Hello \"you\""), nullptr},
    {"Subject in quotation marks", "96 '\"Hello\"' 00", encoded(0, u"\"Hello\""), nullptr},
    {"empty Subject", "96 00", encoded(0, u""), nullptr},
    {"Subject in UCS-2", "96 09 02 03 E8 00 'C' 4E 00 00 00", encoded(1000, u"C\u4E00"), nullptr},
    {"long Subject", "96 1F 1F EA 'abcdefghijklmnopqrstuvwxyz012' 00",
     encoded(106, u"abcdefghijklmnopqrstuvwxyz012"), nullptr},
    {"To", "97 '195.153.199.30/TYPE=IPv4' 00", address(VZ_MMS_ADDRESS_IPV4, u"195.153.199.30"), nullptr},
    {"Transaction-Id", "98 't-7' 00", text(u"t-7"), nullptr},
    {"Retrieve-Status", "99 E2", number(VZ_MMS_RETRIEVE_PERMANENT_MESSAGE_NOT_FOUND), nullptr},
    {"Retrieve-Text", "9A 'gone' 00", encoded(0, u"gone"), nullptr},
    {"Read-Status", "9B 80", number(VZ_MMS_READ_READ), nullptr},
    {"Reply-Charging", "9C 82", number(VZ_MMS_CHARGING_ACCEPTED), nullptr},
    {"Reply-Charging-Deadline", "9D 03 81 01 3C", time(VZ_MMS_TIME_RELATIVE, 60), nullptr},
    {"Reply-Charging-ID", "9E 'r1' 00", text(u"r1"), nullptr},
    {"Reply-Charging-Size", "9F 02 04 00", number(1024), nullptr},
    {"Previously-Sent-By", "A0 0D 81 '+1/TYPE=PLMN' 00 ",
     counted(VZ_MMS_VALUE_COUNTED_ADDRESS, 1, address(VZ_MMS_ADDRESS_PLMN, u"+1")),
     "A0 0E 81 '+1/TYPE=PLMN' 00"},
    {"Previously-Sent-Date", "A1 06 82 04 3A A2 16 EE",
     counted(VZ_MMS_VALUE_COUNTED_DATE, 2, date(983701230)), nullptr},
    {"Store", "A2 80", number(VZ_MMS_YES), nullptr},
    {"MM-State", "A3 82", number(VZ_MMS_STATE_NEW), nullptr},
    {"MM-Flags", "A4 04 80 'ab' 00", marked(VZ_MMS_VALUE_MARKED_TEXT, VZ_MMS_FLAGS_ADD, text(u"ab")),
     nullptr},
    {"MM-Flags with a charset", "A4 06 82 04 EA C3 A9 00",
     marked(VZ_MMS_VALUE_MARKED_TEXT, VZ_MMS_FLAGS_FILTER, encoded(106, u"\u00E9")),
     "A4 07 82 05 EA 7F C3 A9 00"},
    {"Store-Status", "A5 E4", number(VZ_MMS_STORE_STATUS_PERMANENT_MAILBOX_FULL), nullptr},
    {"Store-Status-Text", "A6 'full' 00", encoded(0, u"full"), nullptr},
    {"Stored", "A7 81", number(VZ_MMS_NO), nullptr},
    {"Attributes", "A8 96", number(0x96), nullptr},
    {"Totals", "A9 80", number(VZ_MMS_YES), nullptr},
    {"Mbox-Totals", "AA 02 80 85", marked(VZ_MMS_VALUE_MARKED_NUMBER, VZ_MMS_TOTAL_MESSAGES, number(5)),
     nullptr},
    {"Quotas", "AB 81", number(VZ_MMS_NO), nullptr},
    {"Mbox-Quotas", "AC 04 81 02 7D 00",
     marked(VZ_MMS_VALUE_MARKED_NUMBER, VZ_MMS_TOTAL_OCTETS, number(32000)), nullptr},
    {"Message-Count", "AD 85", number(5), nullptr},
    {"large Message-Count", "AD 01 80", number(128), nullptr},
    {"Content", "AE 'abc' 00", raw(kRawText), nullptr},
    {"Start", "AF 80", number(0), nullptr},
    {"Additional-headers", "B0 02 01 02", raw(kRawLength), nullptr},
    {"Distribution-Indicator", "B1 80", number(VZ_MMS_YES), nullptr},
    {"Element-Descriptor", "B2 02 01 02", raw(kRawLength), nullptr},
    {"Limit", "B3 8A", number(10), nullptr},
    {"Recommended-Retrieval-Mode", "B4 80", number(VZ_MMS_RETRIEVAL_MANUAL), nullptr},
    {"Recommended-Retrieval-Mode-Text", "B5 'later' 00", encoded(0, u"later"), nullptr},
    {"Status-Text", "B6 'fine' 00", encoded(0, u"fine"), nullptr},
    {"Applic-ID", "B7 'app' 00", text(u"app"), nullptr},
    {"Reply-Applic-ID", "B8 'app' 00", text(u"app"), nullptr},
    {"Aux-Applic-Info", "B9 7F C3 A9 00", text(u"\u00E9"), nullptr},
    {"Content-Class", "BA 83", number(VZ_MMS_CONTENT_VIDEO_BASIC), nullptr},
    {"DRM-Content", "BB 81", number(VZ_MMS_NO), nullptr},
    {"Adaptation-Allowed", "BC 80", number(VZ_MMS_YES), nullptr},
    {"Replace-ID", "BD 'm1' 00", text(u"m1"), nullptr},
    {"Cancel-ID", "BE 'm1' 00", text(u"m1"), nullptr},
    {"Cancel-Status", "BF 80", number(VZ_MMS_CANCEL_REQUEST_RECEIVED), nullptr},
};

TEST(HeaderFields, EachIsReadAndWritten) {
    for (const FieldRow& row : kFields) expect_field(row);
}

TEST(HeaderFields, NoneIsForgottenAbove) {
    for (const HeaderRow& row : header_rows()) {
        if (row.form == HeaderForm::ContentType) continue;
        const auto wanted = static_cast<std::byte>(row.number | 0x80U);
        EXPECT_TRUE(std::any_of(std::begin(kFields), std::end(kFields), [wanted](const FieldRow& each) {
            return wire(each.octets)[0] == wanted;
        })) << row.name;
    }
}

TEST(HeaderFields, EveryOctetOfACodeIsKept) {
    for (const HeaderRow& row : header_rows()) {
        const bool is_code = row.form == HeaderForm::Octet || row.form == HeaderForm::OctetOrText ||
                             row.form == HeaderForm::OctetOrCounted;
        if (!is_code) continue;
        for (std::uint32_t code = 0x80; code <= 0xFF; ++code) {
            const Octets octets = {std::byte{0x8C}, std::byte{0xA0},
                                   static_cast<std::byte>(row.number | 0x80U), static_cast<std::byte>(code)};
            const Decoded decoded(octets);
            ASSERT_TRUE(decoded.is_good);
            ASSERT_EQ(decoded.message.headers.size(), 1U);
            EXPECT_EQ(decoded.message.headers[0].value, number(code)) << row.name;
            EXPECT_EQ(encoded_block(decoded.message.headers), octets) << row.name;
        }
    }
}

const FieldRow kDeviations[] = {
    {"empty To before the next field", "97 00", address(VZ_MMS_ADDRESS_PLAIN, u""), nullptr},
    {"address type in lower case", "97 '+1/type=plmn' 00", address(VZ_MMS_ADDRESS_PLMN, u"+1"),
     "97 '+1/TYPE=PLMN' 00"},
    {"IPv6", "97 '::1/Type=ipv6' 00", address(VZ_MMS_ADDRESS_IPV6, u"::1"), "97 '::1/TYPE=IPv6' 00"},
    {"number without a type", "97 '+15555550100' 00", address(VZ_MMS_ADDRESS_PLAIN, u"+15555550100"),
     nullptr},
    {"short code", "97 '#112' 00", address(VZ_MMS_ADDRESS_PLAIN, u"#112"), nullptr},
    {"type of another kind", "97 'a/TYPE=X25' 00", address(VZ_MMS_ADDRESS_PLAIN, u"a/TYPE=X25"), nullptr},
    {"two types", "97 'a/TYPE=PLMN/TYPE=PLMN' 00", address(VZ_MMS_ADDRESS_PLMN, u"a/TYPE=PLMN"), nullptr},
    {"a type alone", "97 '/TYPE=PLMN' 00", address(VZ_MMS_ADDRESS_PLMN, u""), nullptr},
    {"several addresses", "97 'a@b, c@d' 00", address(VZ_MMS_ADDRESS_PLAIN, u"a@b, c@d"), nullptr},
    {"display name", "97 0D EA '\"J' C3 B6 '\" <a@b>' 00",
     address(VZ_MMS_ADDRESS_PLAIN, u"\"J\u00F6\" <a@b>", 106), nullptr},
    {"From as a text", "89 '+1/TYPE=PLMN' 00", address(VZ_MMS_ADDRESS_PLMN, u"+1"),
     "89 0E 80 '+1/TYPE=PLMN' 00"},
    {"From without its token", "89 0E EA '+1/TYPE=PLMN' 00", address(VZ_MMS_ADDRESS_PLMN, u"+1", 106),
     "89 10 80 0E EA '+1/TYPE=PLMN' 00"},
    {"From without its token and charset", "89 0D '+1/TYPE=PLMN' 00", address(VZ_MMS_ADDRESS_PLMN, u"+1"),
     "89 0E 80 '+1/TYPE=PLMN' 00"},
    {"From too short", "89 06 80 '+1/TYPE=PLMN' 00", address(VZ_MMS_ADDRESS_PLMN, u"+1"),
     "89 0E 80 '+1/TYPE=PLMN' 00"},
    {"From without its NUL in the length", "89 04 80 'a@b' 00", address(VZ_MMS_ADDRESS_PLAIN, u"a@b"),
     "89 05 80 'a@b' 00"},
    {"From too long", "89 07 80 'a@b' 00 8A 80", address(VZ_MMS_ADDRESS_PLAIN, u"a@b"), "89 05 80 'a@b' 00"},
    {"From without an address", "89 01 80", address(VZ_MMS_ADDRESS_PLAIN, u""), "89 02 80 00"},
    {"empty From", "89 00", address(VZ_MMS_ADDRESS_PLAIN, u""), "89 02 80 00"},
    {"Subject too short", "96 03 EA 'abc' 00", encoded(106, u"abc"), "96 05 EA 'abc' 00"},
    {"Subject too long", "96 07 EA 'abc' 00 8A 80", encoded(106, u"abc"), "96 05 EA 'abc' 00"},
    {"eight bits without quote", "96 C3 89 'cole' 00", encoded(106, u"\u00C9cole"),
     "96 09 EA 7F C3 89 'cole' 00"},
    {"Subject with an empty length", "96 1F 00", encoded(0, u""), "96 00"},
    {"short Expiry", "88 02 81 BC", time(VZ_MMS_TIME_RELATIVE, 60), "88 03 81 01 3C"},
    {"leading zeros", "88 06 81 04 00 00 00 3C", time(VZ_MMS_TIME_RELATIVE, 60), "88 03 81 01 3C"},
    {"short Message-Size", "8E 85", number(5), "8E 01 05"},
    {"short Date", "85 85", date(5), "85 01 05"},
    {"ISO-8859-1 in a text", "8B 'a' E9 00", text(u"a\u00E9"), "8B 'a' C3 A9 00"},
    {"quotation marks in a text", "8B '\"a\"' 00", text(u"\"a\""), nullptr},
    {"quote before ASCII", "8B 7F 'a' 00", text(u"a"), "8B 'a' 00"},
    {"length with non-minimal octets", "96 1F 80 05 EA 'abc' 00", encoded(106, u"abc"), "96 05 EA 'abc' 00"},
};

TEST(HeaderFields, DeviationsAreReadAndWrittenRight) {
    for (const FieldRow& row : kDeviations) expect_field(row);
}

// What does not fit the form of its field, or has no form.
const FieldRow kRawFields[] = {
    {"unknown field with a text", "C0 'abc' 00", raw(kRawText), nullptr},
    {"unknown field with an octet", "FF 90", raw(kRawOctet), nullptr},
    {"unknown field with a length", "C1 02 01 02", raw(kRawLength), nullptr},
    {"field number 0", "80 90", raw(kRawOctet), nullptr},
    {"text in place of a code", "86 'abc' 00", raw(kRawText), nullptr},
    {"nothing in place of a code", "95 00", raw(kRaw00), nullptr},
    {"length in place of a code", "95 02 01 02", raw(kRawLength), nullptr},
    {"text in place of the version", "8D 'abc' 00", raw(kRawText), nullptr},
    {"text in place of a date", "85 'abc' 00", raw(kRawText), nullptr},
    {"text in place of a size", "8E 'abc' 00", raw(kRawText), nullptr},
    {"integer without octets", "8E 00", raw(kRaw00), nullptr},
    {"length in place of a text", "8B 02 01 02", raw(kRawLength), nullptr},
    {"length in place of a class", "8A 02 01 02", raw(kRawLength), nullptr},
    {"octet in place of a time", "88 90", raw(kRawOctet), nullptr},
    {"time of another token", "88 02 01 02", raw(kRawLength), nullptr},
    {"octet in place of flags", "A4 90", raw(kRawOctet), nullptr},
    {"flags without a token", "A4 02 01 02", raw(kRawLength), nullptr},
    {"totals without a token", "AA 'abc' 00", raw(kRawText), nullptr},
    {"sender without a count", "A0 'abc' 00", raw(kRawText), nullptr},
    {"status with a text", "92 02 01 02", raw(kRawLength), nullptr},
    {"content location without a count", "83 02 20 00", Value{}, nullptr},
    {"text with a charset of nine octets", "96 0C 09 01 02 03 04 05 06 07 08 09 'a' 00", Value{}, nullptr},
    {"bytes behind a time", "88 03 81 85 85", Value{}, nullptr},
    {"large integer", "AD 09 01 00 00 00 00 00 00 00 00", Value{}, nullptr},
    {"text with U+0000", "96 0A 02 03 E8 00 'a' 00 00 00 'b' 00", Value{}, nullptr},
    {"count of more than 32 bits", "A1 08 05 01 00 00 00 00 81 81 ", Value{}, nullptr},
};

TEST(HeaderFields, WhatDoesNotFitIsKeptOctetForOctet) {
    for (const FieldRow& row : kRawFields) {
        FieldRow expected = row;
        const Octets field = wire(row.octets);
        const Octets value(field.begin() + 1, field.end());
        if (row.value.kind != VZ_MMS_VALUE_RAW) expected.value = raw(value);
        expect_field(expected);
    }
}

TEST(HeaderFields, ResponseTextsOfDeletionsAreCounted) {
    const FieldRow rows[] = {
        {"counted", "93 05 81 'abc' 00", counted(VZ_MMS_VALUE_COUNTED_TEXT, 1, encoded(0, u"abc")), nullptr},
        {"counted with a charset", "93 08 82 06 EA 'ab' C3 A9 00 ",
         counted(VZ_MMS_VALUE_COUNTED_TEXT, 2, encoded(106, u"ab\u00E9")), nullptr},
        {"not counted", "93 'abc' 00", encoded(0, u"abc"), nullptr},
        {"not counted, in UTF-8", "93 'a' C3 A9 00", encoded(106, u"a\u00E9"), nullptr},
        {"not counted, in ISO-8859-1", "93 'a' E9 00", encoded(4, u"a\u00E9"), nullptr},
        {"empty", "93 00", encoded(0, u""), nullptr},
    };
    for (const std::uint32_t type :
         {std::uint32_t{VZ_MMS_MBOX_DELETE_CONF}, std::uint32_t{VZ_MMS_DELETE_CONF}}) {
        for (const FieldRow& row : rows) {
            Octets octets = wire("8C 00 98 't' 00 8D 92 92 80");
            octets[1] = static_cast<std::byte>(type);
            const Octets field = wire(row.octets);
            octets.insert(octets.end(), field.begin(), field.end());
            const Decoded decoded(octets);
            ASSERT_TRUE(decoded.is_good);
            ASSERT_EQ(decoded.message.headers.size(), 4U) << row.what;
            EXPECT_EQ(decoded.message.headers[3].value, row.value) << row.what;
            EXPECT_EQ(encoded_block(decoded.message.headers, type), octets) << row.what;
        }
    }
}

TEST(HeaderFields, ResponseTextsBeforeTheTypeAreCountedToo) {
    const Decoded decoded("93 05 81 'abc' 00 98 't' 00 8D 92 92 80 8C 95");
    ASSERT_TRUE(decoded.is_good);
    EXPECT_EQ(decoded.message.type, std::uint32_t{VZ_MMS_DELETE_CONF});
    EXPECT_EQ(decoded.header.count(), 5U);
    EXPECT_EQ(decoded.message.headers[2].value, counted(VZ_MMS_VALUE_COUNTED_TEXT, 1, encoded(0, u"abc")));
}

TEST(HeaderFields, AMissingTextIsFollowedByTheNextField) {
    const Decoded decoded("8C 82 97 8A 80 96 8F 81 89 86 80 8B 8D 92");
    ASSERT_TRUE(decoded.is_good);
    const std::vector<Header> expected = {
        {VZ_MMS_HEADER_VERSION, number(VZ_MMS_VERSION_1_2)},
        {VZ_MMS_HEADER_TO, address(VZ_MMS_ADDRESS_PLAIN, u"")},
        {VZ_MMS_HEADER_MESSAGE_CLASS, number(VZ_MMS_CLASS_PERSONAL)},
        {VZ_MMS_HEADER_SUBJECT, encoded(0, u"")},
        {VZ_MMS_HEADER_PRIORITY, number(VZ_MMS_PRIORITY_NORMAL)},
        {VZ_MMS_HEADER_FROM, address(VZ_MMS_ADDRESS_PLAIN, u"")},
        {VZ_MMS_HEADER_DELIVERY_REPORT, number(VZ_MMS_YES)},
        {VZ_MMS_HEADER_MESSAGE_ID, text(u"")},
    };
    EXPECT_EQ(decoded.message.headers, expected);
}

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

// A value of each kind that is allowed for a mandatory header.
Header mandatory_header(std::uint32_t header_number) {
    for (const FieldRow& row : kFields) {
        if ((static_cast<std::uint32_t>(wire(row.octets)[0]) & 0x7FU) == header_number) {
            return {header_number, row.value};
        }
    }
    return {};
}

TEST(HeaderEncoding, EachTypeDemandsItsHeaders) {
    for (const PduRow& row : pdu_rows()) {
        std::vector<Header> all;
        for (const std::uint32_t each : row.mandatory) all.push_back(mandatory_header(each));
        if (row.needs_recipient) {
            EXPECT_FALSE(encoded_block(all, row.type)) << row.name;
        }
        if (row.needs_recipient) all.push_back(mandatory_header(VZ_MMS_HEADER_CC));
        EXPECT_TRUE(encoded_block(all, row.type)) << row.name;
        for (std::size_t missing = 0; missing < all.size(); ++missing) {
            std::vector<Header> fewer = all;
            fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(missing));
            EXPECT_FALSE(encoded_block(fewer, row.type)) << row.name << " without " << all[missing].number;
        }
    }
}

TEST(HeaderEncoding, AnyRecipientWillDo) {
    std::vector<Header> headers = {mandatory_header(VZ_MMS_HEADER_TRANSACTION_ID),
                                   mandatory_header(VZ_MMS_HEADER_VERSION),
                                   mandatory_header(VZ_MMS_HEADER_FROM)};
    for (const std::uint32_t each : {VZ_MMS_HEADER_TO, VZ_MMS_HEADER_CC, VZ_MMS_HEADER_BCC}) {
        std::vector<Header> with = headers;
        with.push_back(mandatory_header(each));
        EXPECT_TRUE(encoded_block(with, VZ_MMS_SEND_REQ)) << each;
    }
}

TEST(HeaderEncoding, TypesOutsideTheOctetAreRefused) {
    for (const std::uint32_t type : {0U, 1U, 0x7FU, 0x100U, 0x180U})
        EXPECT_FALSE(encoded_block({}, type)) << type;
    EXPECT_EQ(encoded_block({}, 0xFF), wire("8C FF"));
}

TEST(HeaderEncoding, WhatAFormCannotHoldIsRefused) {
    const Header rows[] = {
        {VZ_MMS_HEADER_STATUS, number(0x7F)},
        {VZ_MMS_HEADER_STATUS, number(0x100)},
        {VZ_MMS_HEADER_STATUS, text(u"a")},
        {VZ_MMS_HEADER_STATUS, Value{}},
        {VZ_MMS_HEADER_VERSION, number(0x80)},
        {VZ_MMS_HEADER_VERSION, text(u"1.0")},
        {VZ_MMS_HEADER_MESSAGE_CLASS, number(5)},
        {VZ_MMS_HEADER_MESSAGE_SIZE, date(5)},
        {VZ_MMS_HEADER_DATE, number(5)},
        {VZ_MMS_HEADER_MESSAGE_ID, encoded(0, u"a")},
        {VZ_MMS_HEADER_SUBJECT, text(u"a")},
        {VZ_MMS_HEADER_TO, encoded(0, u"a")},
        {VZ_MMS_HEADER_TO, address(VZ_MMS_ADDRESS_INSERT, u"")},
        {VZ_MMS_HEADER_TO, address(5, u"a")},
        {VZ_MMS_HEADER_FROM, address(5, u"a")},
        {VZ_MMS_HEADER_EXPIRY, time(0x82, 5)},
        {VZ_MMS_HEADER_EXPIRY, number(5)},
        {VZ_MMS_HEADER_MM_FLAGS, marked(VZ_MMS_VALUE_MARKED_TEXT, 0, text(u"a"))},
        {VZ_MMS_HEADER_MM_FLAGS, marked(VZ_MMS_VALUE_MARKED_TEXT, 0x100, text(u"a"))},
        {VZ_MMS_HEADER_MBOX_TOTALS, marked(VZ_MMS_VALUE_MARKED_TEXT, 0x80, text(u"a"))},
        {VZ_MMS_HEADER_RESPONSE_STATUS, counted(VZ_MMS_VALUE_COUNTED_NUMBER, 1, number(5))},
        {VZ_MMS_HEADER_RESPONSE_TEXT, counted(VZ_MMS_VALUE_COUNTED_TEXT, 1, encoded(0, u"a"))},
        {VZ_MMS_HEADER_PREVIOUSLY_SENT_BY,
         counted(VZ_MMS_VALUE_COUNTED_ADDRESS, 1, address(VZ_MMS_ADDRESS_INSERT, u""))},
        {VZ_MMS_HEADER_CONTENT_TYPE, raw(kRawOctet)},
        {VZ_MMS_HEADER_CONTENT, text(u"a")},
        {0x40, text(u"a")},
        {0x80, raw(kRawOctet)},
        {VZ_MMS_HEADER_APPLICATION, text(u"a")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"", u"a")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"\u00E9", u"a")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"\x1F", u"a")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"\x7F", u"a")},
    };
    for (const Header& row : rows) EXPECT_FALSE(encoded_block({row})) << testing::PrintToString(row);
}

TEST(HeaderEncoding, TextsEndAtTheirFirstNul) {
    const std::u16string_view text_with_nul(u"a\0b", 3);
    EXPECT_EQ(encoded_block({{VZ_MMS_HEADER_MESSAGE_ID, text(text_with_nul)},
                             {VZ_MMS_HEADER_SUBJECT, encoded(0, text_with_nul)},
                             {VZ_MMS_HEADER_TO, address(VZ_MMS_ADDRESS_PLMN, text_with_nul)}}),
              wire("8C A0 8B 'a' 00 96 'a' 00 97 'a/TYPE=PLMN' 00"));
}

// The headers of three whole messages.
constexpr const char* kNotification =
    "8C 82 98 't-7' 00 8D 92 89 18 80 '+15555550100/TYPE=PLMN' 00 96 07 EA 'Caf' C3 A9 00 8A 80 8E 02 7D 00 "
    "88 05 81 03 03 F4 80 83 'http://mms.example.net/a?id=7' 00";
constexpr const char* kSendRequest = "8C 80 98 't-8' 00 8D 90 89 01 81 97 '+15555550101/TYPE=PLMN' 00 86 81";
constexpr const char* kSendRequestType = "84 18 B3 89 'application/smil' 00 8A '<s>' 00";
constexpr const char* kDelivery =
    "8C 86 8D 90 8B 'm7@example.net' 00 97 '+15555550101/TYPE=PLMN' 00 85 04 3A A2 16 EE 95 81";

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

// What is read, written and read again is the same, where it can be written at all.
void expect_stable(Bytes bytes) {
    Message message;
    CMMSHeader header;
    CWSPEncoding pdu(bytes);
    if (!header.decode(pdu, message)) return;
    ASSERT_LE(pdu.position(), bytes.size());
    EXPECT_LE(message.headers.size(), bytes.size());
    WspWriter writer;
    if (!CMMSHeader().encode(message, writer)) return;
    Message again;
    CMMSHeader second;
    CWSPEncoding written{Bytes(writer.bytes())};
    ASSERT_TRUE(second.decode(written, again)) << shown(bytes) << "\n" << shown(writer.bytes());
    EXPECT_EQ(again.type, message.type) << shown(bytes);
    EXPECT_EQ(again.headers, message.headers) << shown(bytes) << "\n" << shown(writer.bytes());
    EXPECT_TRUE(written.at_end()) << shown(bytes);
}

std::vector<Octets> samples() {
    std::vector<Octets> blocks = {wire(kNotification), wire(kSendRequest), wire(kDelivery)};
    Octets all = wire("8C A0");
    for (const FieldRow& row : kFields) {
        const Octets field = wire(row.octets);
        all.insert(all.end(), field.begin(), field.end());
    }
    blocks.push_back(all);
    Octets deletion = wire("8C 95 98 't' 00 8D 92 92 02 81 80 93 05 81 'abc' 00 'X-A' 00 'b' 00 96 00");
    blocks.push_back(deletion);
    Octets deviations = wire("8C A0");
    for (const FieldRow& row : kDeviations) {
        const Octets field = wire(row.octets);
        deviations.insert(deviations.end(), field.begin(), field.end());
    }
    for (const FieldRow& row : kRawFields) {
        const Octets field = wire(row.octets);
        deviations.insert(deviations.end(), field.begin(), field.end());
    }
    blocks.push_back(deviations);
    return blocks;
}

TEST(HostileHeaders, EveryPrefixEndsAtTheEnd) {
    const test::GuardPage page;
    for (const Octets& block : samples()) {
        for (std::size_t size = 0; size <= block.size(); ++size) {
            std::byte* begin = page.last(size);
            if (size != 0) std::memcpy(begin, block.data(), size);
            expect_stable({begin, size});
        }
    }
}

// All values of an octet of a short block; of a longer one those that mean something.
std::vector<std::byte> corruptions(std::size_t block_size) {
    constexpr std::size_t kShortBlock = 100;
    if (block_size > kShortBlock)
        return wire("00 01 02 1E 1F 20 22 41 7F 80 81 82 84 89 8C 97 A0 C0 C3 EA FF");
    std::vector<std::byte> all;
    for (unsigned value = 0; value < 0x100; ++value) all.push_back(static_cast<std::byte>(value));
    return all;
}

TEST(HostileHeaders, EveryCorruptedOctetIsSurvivedAndWhatWasReadIsStable) {
    const test::GuardPage page;
    for (const Octets& block : samples()) {
        std::byte* begin = page.last(block.size());
        std::memcpy(begin, block.data(), block.size());
        for (std::size_t at = 0; at < block.size(); ++at) {
            for (const std::byte value : corruptions(block.size())) {
                begin[at] = value;
                expect_stable({begin, block.size()});
            }
            begin[at] = block[at];
        }
    }
}

TEST(HostileHeaders, RandomFieldsAreStable) {
    std::mt19937 random(5);
    const Octets likely =
        wire("00 01 02 03 04 05 06 7F 80 81 83 88 89 8C 93 96 97 A0 A4 AA EA 03 E8 'a/' C3 A9 95");
    for (int round = 0; round < 60000; ++round) {
        Octets octets = wire("8C A0");
        if (random() % 4 == 0) octets[1] = std::byte{0x95};
        const std::size_t size = random() % 24;
        for (std::size_t i = 0; i < size; ++i) {
            octets.push_back(random() % 4 == 0 ? static_cast<std::byte>(random())
                                               : likely[random() % likely.size()]);
        }
        expect_stable(octets);
    }
}

// Writes a random value of the kinds that a form has.
Value random_value(HeaderForm form, std::mt19937_64& random) {
    const auto characters = [&random] {
        std::u16string text(random() % 6, u'\0');
        for (char16_t& unit : text) unit = static_cast<char16_t>(1 + random() % 0xD7FF);
        return text;
    };
    const std::uint64_t any = random() >> random() % 64;
    const auto count = static_cast<std::uint32_t>(random() >> (32 + random() % 32));
    const std::uint64_t code = 0x80 + random() % 0x80;
    const auto charset = random() % 2 == 0 ? std::uint32_t{106} : std::uint32_t{1000};
    const auto type = static_cast<std::uint32_t>(random() % 4);
    switch (form) {
        case HeaderForm::Octet:
        case HeaderForm::OctetOrText:
            return number(code);
        case HeaderForm::Version:
            return number(random() % 0x80);
        case HeaderForm::Integer:
        case HeaderForm::LongInteger:
            return number(any);
        case HeaderForm::Date:
            return date(any);
        case HeaderForm::Text:
        case HeaderForm::TextOrCounted:
            return text(characters());
        case HeaderForm::EncodedText:
        case HeaderForm::EncodedOrCounted:
            return encoded(charset, characters());
        case HeaderForm::Address:
        case HeaderForm::From:
            return address(type, characters(), charset);
        case HeaderForm::Time:
            return time(0x80 + static_cast<std::uint32_t>(random() % 2), any);
        case HeaderForm::MarkedText:
            return marked(VZ_MMS_VALUE_MARKED_TEXT, static_cast<std::uint32_t>(code),
                          encoded(charset, characters()));
        case HeaderForm::MarkedNumber:
            return marked(VZ_MMS_VALUE_MARKED_NUMBER, static_cast<std::uint32_t>(code), number(any));
        case HeaderForm::CountedAddress:
            return counted(VZ_MMS_VALUE_COUNTED_ADDRESS, count, address(type, characters(), charset));
        case HeaderForm::CountedDate:
            return counted(VZ_MMS_VALUE_COUNTED_DATE, count, date(any));
        case HeaderForm::OctetOrCounted:
            return counted(VZ_MMS_VALUE_COUNTED_NUMBER, count, number(code));
        case HeaderForm::ContentType:
        case HeaderForm::Raw:
            break;
    }
    return raw(kRawText);
}

TEST(HeaderProperty, WhatIsWrittenIsReadEqual) {
    std::mt19937_64 random(20261121);
    for (int round = 0; round < 300; ++round) {
        std::vector<Header> headers;
        for (const HeaderRow& row : header_rows()) {
            if (row.form == HeaderForm::ContentType || random() % 3 == 0) continue;
            headers.push_back({row.number, random_value(row.form, random)});
        }
        std::stable_sort(headers.begin(), headers.end(), [](const Header& one, const Header& other) {
            const auto rank = [](const Header& each) {
                if (each.number == VZ_MMS_HEADER_TRANSACTION_ID) return 0;
                return each.number == VZ_MMS_HEADER_VERSION ? 1 : 2;
            };
            return rank(one) < rank(other);
        });
        const std::optional<Octets> octets = encoded_block(headers);
        ASSERT_TRUE(octets);
        const Decoded decoded(*octets);
        ASSERT_TRUE(decoded.is_good) << shown(*octets);
        EXPECT_EQ(decoded.message.headers, headers) << shown(*octets);
        EXPECT_EQ(encoded_block(decoded.message.headers), octets);
    }
}

// Each shape many times over; what is read grows no faster than what is there.
TEST(HostileHeaders, ManyFieldsCostTheirNumber) {
    const char* shapes[] = {
        "96 01 EA", "96 03 EA 'a' 'b'",     "97",         "89 01 81", "C0 80", "'a' 00 00", "00",
        "7F 01",    "96 1F 80 80 80 80 00", "88 02 81 81"};
    for (const char* shape : shapes) {
        const Octets one = wire(shape);
        Octets octets = wire("8C A0");
        for (int i = 0; i < 40000; ++i) octets.insert(octets.end(), one.begin(), one.end());
        octets.push_back(std::byte{0x8A});
        octets.push_back(std::byte{0x80});
        const Decoded decoded(octets);
        ASSERT_TRUE(decoded.is_good) << shape;
        EXPECT_EQ(decoded.position, octets.size()) << shape;
        EXPECT_LE(decoded.message.headers.size(), 40001U) << shape;
    }
}

}  // namespace
}  // namespace vzapi::mms
