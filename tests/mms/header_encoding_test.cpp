// What of a record can be written as a header, and what cannot.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "mms/header_block.h"
#include "mms/header_rows.h"
#include "mms/mms_tables.h"

namespace vzapi::mms {
namespace {

// A value of each kind that is allowed for a mandatory header.
Header mandatory_header(std::uint32_t header_number) {
    for (const FieldRow& row : canonical_fields()) {
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
    const Octets octet = wire("90");
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
        {VZ_MMS_HEADER_CONTENT_TYPE, raw(octet)},
        {VZ_MMS_HEADER_CONTENT, text(u"a")},
        {0x40, text(u"a")},
        {0x80, raw(octet)},
        {VZ_MMS_HEADER_APPLICATION, text(u"a")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"", u"a")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"\u00E9", u"a")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"\x1F", u"a")},
        {VZ_MMS_HEADER_APPLICATION, named_text(u"\x7F", u"a")},
    };
    for (const Header& row : rows) EXPECT_FALSE(encoded_block({row})) << testing::PrintToString(row);
}

// They have no place for a charset, so that it is guessed from the bytes.
TEST(HeaderEncoding, CountedTextsComeBackWhateverTheirBytesLookLike) {
    for (const char16_t* text : {u"a", u"\u00E9", u"\u00C3\u00A9", u"\u00C3\u00A9\u00E9", u"\u0416"}) {
        for (const std::uint32_t charset : {0U, 4U, 106U}) {
            const auto octets = encoded_block({mandatory_header(VZ_MMS_HEADER_TRANSACTION_ID),
                                               mandatory_header(VZ_MMS_HEADER_VERSION),
                                               mandatory_header(VZ_MMS_HEADER_RESPONSE_STATUS),
                                               {VZ_MMS_HEADER_RESPONSE_TEXT, encoded(charset, text)}},
                                              VZ_MMS_DELETE_CONF);
            ASSERT_TRUE(octets);
            const Decoded decoded(*octets);
            ASSERT_TRUE(decoded.is_good);
            EXPECT_EQ(decoded.message.headers.back().value.text, text) << charset;
        }
    }
}

TEST(HeaderEncoding, TextsEndAtTheirFirstNul) {
    const std::u16string_view text_with_nul(u"a\0b", 3);
    EXPECT_EQ(encoded_block({{VZ_MMS_HEADER_MESSAGE_ID, text(text_with_nul)},
                             {VZ_MMS_HEADER_SUBJECT, encoded(0, text_with_nul)},
                             {VZ_MMS_HEADER_TO, address(VZ_MMS_ADDRESS_PLMN, text_with_nul)}}),
              wire("8C A0 8B 'a' 00 96 'a' 00 97 'a/TYPE=PLMN' 00"));
}

}  // namespace
}  // namespace vzapi::mms
