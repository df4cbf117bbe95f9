// Each field of a header by its form.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "mms/header_block.h"
#include "mms/header_rows.h"
#include "mms/mms_tables.h"

namespace vzapi::mms {
namespace {

std::string encoded_text_of(const Header& header, std::uint32_t type = kFreeType) {
    const std::optional<Octets> octets = encoded_block({header}, type);
    return octets ? shown(std::span(*octets).subspan(2)) : "refused";
}

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

TEST(HeaderFields, EachIsReadAndWritten) {
    for (const FieldRow& row : canonical_fields()) expect_field(row);
}

TEST(HeaderFields, NoneIsForgottenAbove) {
    for (const HeaderRow& row : header_rows()) {
        if (row.form == HeaderForm::ContentType) continue;
        const auto wanted = static_cast<std::byte>(row.number | 0x80U);
        EXPECT_TRUE(std::any_of(canonical_fields().begin(), canonical_fields().end(),
                                [wanted](const FieldRow& each) { return wire(each.octets)[0] == wanted; }))
            << row.name;
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

// The tokens before a time are the two that there are; those before other values may be more one day.
TEST(HeaderFields, EveryTokenOfAValueIsKept) {
    for (const HeaderRow& row : header_rows()) {
        const bool is_time = row.form == HeaderForm::Time;
        if (!is_time && row.form != HeaderForm::MarkedNumber && row.form != HeaderForm::MarkedText) continue;
        const Octets rest = wire(row.form == HeaderForm::MarkedText ? "'ab' 00" : "02 0E 10");
        const std::uint32_t last = is_time ? 0x81 : 0xFF;
        for (std::uint32_t token = 0x80; token <= last; ++token) {
            Octets octets = {std::byte{0x8C}, std::byte{0xA0}, static_cast<std::byte>(row.number | 0x80U),
                             static_cast<std::byte>(rest.size() + 1), static_cast<std::byte>(token)};
            octets.insert(octets.end(), rest.begin(), rest.end());
            const Decoded decoded(octets);
            ASSERT_TRUE(decoded.is_good);
            ASSERT_EQ(decoded.message.headers.size(), 1U);
            EXPECT_EQ(decoded.message.headers[0].value.token, token) << row.name;
            EXPECT_NE(decoded.message.headers[0].value.kind, std::uint32_t{VZ_MMS_VALUE_RAW}) << row.name;
            EXPECT_EQ(encoded_block(decoded.message.headers), octets) << row.name;
        }
    }
}

TEST(HeaderFields, DeviationsAreReadAndWrittenRight) {
    for (const FieldRow& row : deviating_fields()) expect_field(row);
}

TEST(HeaderFields, WhatDoesNotFitIsKeptOctetForOctet) {
    for (const FieldRow& row : raw_fields()) {
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

}  // namespace
}  // namespace vzapi::mms
