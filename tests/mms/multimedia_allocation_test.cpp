// Every allocation of a read and of a write gets its turn to fail; leaks show under the address sanitizer.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "mms/multimedia_builder.h"
#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"
#include "support/failing_allocations.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

std::size_t read_with_failures(std::string pdu) {
    const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(pdu.size()), pdu.data()};
    for (std::size_t nth = 1;; ++nth) {
        MultimediaItem item{};
        item.size = sizeof item;
        FailingAllocations failing(nth);
        const ResultCode code = ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &in, &item);
        failing.stop();
        if (failing.failed()) {
            EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY) << "allocation " << nth;
            MultimediaItem empty{};
            empty.size = sizeof empty;
            EXPECT_EQ(std::memcmp(&item, &empty, sizeof item), 0) << "allocation " << nth;
        }
        EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item), VZ_OK);
        if (failing.failed()) continue;
        EXPECT_EQ(code, VZ_OK);
        return nth - 1;
    }
}

std::size_t write_with_failures(const MultimediaItem& item) {
    for (std::size_t nth = 1;; ++nth) {
        DataObject out{sizeof out, 0, 0, nullptr};
        FailingAllocations failing(nth);
        const ResultCode code = ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, &item, &out);
        failing.stop();
        if (!failing.failed()) {
            EXPECT_EQ(code, VZ_OK);
            EXPECT_EQ(ODCAPI_FreeDataObject(&out), VZ_OK);
            return nth - 1;
        }
        EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY) << "allocation " << nth;
        EXPECT_EQ(out.text, nullptr);
        EXPECT_EQ(out.length, 0U);
    }
}

TEST(MultimediaAllocationFailure, Reading) {
    std::size_t failures = 0;
    for (const PduSample& sample : all_pdus()) failures += read_with_failures(sample.bytes);
    failures += read_with_failures(
        retrieved(pdu_bytes("A3"),
                  multipart({entry(pdu_bytes("83 'Content-Transfer-Encoding' 00 'base64' 00"), "VGhl")})));
    // Two arrays, and a string, a record or a block for most of their entries; and what the codec needs.
    EXPECT_GE(failures, FailingAllocations::sees_operator_new() ? 500U : 300U);
}

TEST(MultimediaAllocationFailure, Validating) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "no allocation here can be made to fail";
    std::string pdu = message_pdu();
    const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(pdu.size()), pdu.data()};
    std::size_t nth = 1;
    for (;; ++nth) {
        FailingAllocations failing(nth);
        const ResultCode code = ODCAPI_ValidateDataObject(VZ_OBJECT_MULTIMEDIA, &in);
        failing.stop();
        EXPECT_EQ(code, failing.failed() ? VZ_ERR_OUT_OF_MEMORY : VZ_OK) << "allocation " << nth;
        if (!failing.failed()) break;
    }
    EXPECT_GT(nth, 10U);
}

TEST(MultimediaAllocationFailure, Writing) {
    MultimediaBuilder builder(VZ_MMS_SEND_REQ, 0);
    builder.sendable();
    builder.part(u"image/jpeg", "picture");
    builder.last().name = builder.own(u"a name longer than any short string.jpg");
    builder.part(u"text/plain", "text");
    EXPECT_GE(write_with_failures(builder.item()), FailingAllocations::sees_operator_new() ? 40U : 1U);
}

}  // namespace
}  // namespace vzapi::test
