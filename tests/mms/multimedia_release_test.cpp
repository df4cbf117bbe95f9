// The release of records that are not what a read made.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "mms/multimedia_builder.h"
#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"
#include "support/guard_page.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

MultimediaItem parsed(std::string pdu) {
    MultimediaItem item{};
    item.size = sizeof item;
    const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(pdu.size()), pdu.data()};
    EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &in, &item), VZ_OK);
    return item;
}

void expect_released(MultimediaItem& item) {
    ASSERT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item), VZ_OK);
    MultimediaItem empty{};
    empty.size = sizeof empty;
    EXPECT_EQ(std::memcmp(&item, &empty, sizeof item), 0);
    EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item), VZ_OK) << "twice";
}

TEST(MultimediaRelease, EveryPduIsReleasedWhole) {
    for (const PduSample& sample : all_pdus()) {
        MultimediaItem item = parsed(sample.bytes);
        expect_released(item);
    }
}

TEST(MultimediaRelease, WhatReferencesItselfIsReleasedOnce) {
    MultimediaItem item = parsed(message_pdu());
    MultimediaPart& part = item.parts[1];
    // The blocks that lose their place here are the test's to release, through the places of others.
    const MultimediaPart before = part;
    item.parts[0].data = reinterpret_cast<std::uint8_t*>(before.data);
    part.data = reinterpret_cast<std::uint8_t*>(item.parts);
    part.headers = item.headers;
    part.headerCount = item.headerCount;
    part.parameters = item.parts[0].parameters;
    part.parameterCount = item.parts[0].parameterCount;
    item.parts[2].dispositionParameters = item.parts[0].parameters;
    item.parts[2].dispositionParameterCount = 0xFFFFFFFF;
    item.headers[2].value.record->bytes = reinterpret_cast<std::uint8_t*>(item.headers);
    expect_released(item);
}

TEST(MultimediaRelease, CountsDoNotCount) {
    MultimediaItem item = parsed(message_pdu());
    item.headerCount = 0xFFFFFFFF;
    item.partCount = 0xFFFFFFFF;
    item.parts[0].parameterCount = 0xFFFFFFFF;
    item.parts[1].headerCount = 0xFFFFFFFF;
    expect_released(item);
}

TEST(MultimediaRelease, UnknownKindsAndNullsHoldNothing) {
    MultimediaItem item = parsed(message_pdu());
    MultimediaHeader& header = item.headers[1];
    ASSERT_EQ(header.kind, std::uint32_t{VZ_MMS_VALUE_NUMBER});
    header.kind = 99;
    header.value.number = 0x123;
    expect_released(item);
}

TEST(MultimediaRelease, BlocksOfSomebodyElseAreLeftAlone) {
    MultimediaBuilder builder(VZ_MMS_SEND_REQ);
    builder.sendable().part(u"text/plain", "text");
    builder.parameter(u"name", u"x");
    MultimediaItem& item = builder.item();
    const MultimediaItem before = item;
    EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item), VZ_OK);
    EXPECT_EQ(item.parts, nullptr);
    EXPECT_NE(shown(before).find("data 4:74657874"), std::string::npos);
}

TEST(MultimediaRelease, WhatCannotBeReadIsLeftAlone) {
    const GuardPage page;
    MultimediaItem item = parsed(message_pdu());
    item.parts[1].flags = 0;
    item.headers[1].kind = VZ_MMS_VALUE_RAW;
    item.headers[1].value.record = page.unreadable_as<MultimediaValue>();
    item.parts[2].headers = page.unreadable_as<MultimediaHeader>();
    item.parts[2].headerCount = 5;
    item.parts[2].disposition = page.unreadable_as<char16_t>();
    expect_released(item);
}

}  // namespace
}  // namespace vzapi::test
