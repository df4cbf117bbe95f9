// How many headers and parameters a message may have.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "mms/multimedia_builder.h"
#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

std::string repeated(const std::string& bytes, std::size_t times) {
    std::string all;
    while (times-- != 0) all += bytes;
    return all;
}

ResultCode result_of_reading(const std::string& pdu) {
    const ResultCode result = ReadMultimedia(pdu).result();
    std::string bytes = pdu;
    const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(bytes.size()), bytes.data()};
    EXPECT_EQ(ODCAPI_ValidateDataObject(VZ_OBJECT_MULTIMEDIA, &in), result);
    return result;
}

// Whether the message of so many entries, which has `size` bytes, may have them.
bool may_have(std::size_t entries, std::size_t size) {
    return entries <= 4096 + size / 16;
}

struct Shape {
    const char* what;
    std::size_t others;  // entries beside those that are counted
    std::function<std::string(std::size_t)> make;
};

const Shape kShapes[] = {
    {"headers", 1, [](std::size_t count) { return pdu_bytes("8C 80 8D 92") + repeated("\x86\x80", count); }},
    {"headers that are read twice", 2,
     [](std::size_t count) { return pdu_bytes("8C 95 8D 92 98 't' 00") + repeated("\x86\x80", count); }},
    {"headers behind the content type", 1,
     [](std::size_t count) {
         return pdu_bytes("8C 80 8D 92 84 A3") + repeated("\x86\x80", count) + multipart({});
     }},
    {"application headers", 1,
     [](std::size_t count) { return pdu_bytes("8C 80 8D 92") + repeated(pdu_bytes("'a' 00 00"), count); }},
    {"headers of parts", 2,
     [](std::size_t count) {
         const std::string half = pdu_bytes("83") + repeated("\x8C\x80", count / 2);
         return retrieved(pdu_bytes("A3"), multipart({entry(half, "text"),
                                                      entry(half + repeated("\x8C\x80", count % 2), "")}));
     }},
    {"parameters", 2,
     [](std::size_t count) {
         const std::string type = '\x83' + repeated(std::string("\x90\0", 2), count);
         return retrieved('\x1F' + uintvar(type.size()) + type, "text");
     }},
    {"parameters of a disposition", 2,
     [](std::size_t count) {
         const std::string value = '\x81' + repeated(std::string("\x90\0", 2), count);
         return retrieved(pdu_bytes("A3"),
                          multipart({entry(pdu_bytes("83 AE 1F") + uintvar(value.size()) + value, "text")}));
     }},
    {"parameters in a text", 2,
     [](std::size_t count) { return retrieved("text/plain" + repeated(";a", count) + '\0', "text"); }},
    {"headers and parameters", 3,
     [](std::size_t count) {
         return pdu_bytes("8C 84 8D 92 85 01 00") + repeated("\x86\x80", count) +
                pdu_bytes("84 03 83 81 EA") + "text";
     }},
};

TEST(MultimediaLimit, EntriesThatAreTooManyAreRefused) {
    for (const Shape& shape : kShapes) {
        std::size_t count = 4000;
        while (may_have(count + shape.others, shape.make(count).size())) ++count;
        EXPECT_EQ(result_of_reading(shape.make(count)), VZ_ERR_BAD_VALUE) << shape.what << ", " << count;
        const std::string most = shape.make(count - 1);
        ASSERT_EQ(result_of_reading(most), VZ_OK) << shape.what << ", " << count - 1;
    }
}

TEST(MultimediaLimit, WhatIsLongEnoughIsNeverTooMuch) {
    const std::string recipients = repeated(pdu_bytes("97 '+15555550100/TYPE=PLMN' 00"), 50'000);
    const ReadMultimedia read(notification_pdu() + recipients);
    ASSERT_EQ(read.result(), VZ_OK);
    EXPECT_EQ(read.item().headerCount, 50'008U);
    EXPECT_EQ(written(read.item()), notification_pdu() + recipients);
}

TEST(MultimediaLimit, WhatCouldNotBeReadIsNotWritten) {
    MultimediaBuilder builder(VZ_MMS_SEND_REQ);
    builder.sendable();
    builder.part(u"text/plain", "");
    const std::size_t before = written(builder.item()).size();
    std::size_t count = builder.item().headerCount;
    std::size_t size = before;
    for (; may_have(count, size); ++count, size += 2)
        builder.number(VZ_MMS_HEADER_PRIORITY, VZ_MMS_PRIORITY_LOW);
    ResultCode result = VZ_OK;
    MultimediaItem& item = builder.item();
    EXPECT_TRUE(written(item, result).empty());
    EXPECT_EQ(result, VZ_ERR_BAD_VALUE);
    --item.headerCount;
    const std::string pdu = written(item, result);
    ASSERT_EQ(result, VZ_OK);
    EXPECT_EQ(ReadMultimedia(pdu).item().headerCount, count - 1);
}

}  // namespace
}  // namespace vzapi::test
