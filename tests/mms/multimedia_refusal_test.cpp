// Records that cannot be encoded, memory that cannot be read, and the checks of the arguments.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "mms/multimedia_builder.h"
#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"
#include "support/guard_page.h"
#include "support/pointer_to.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

void expect_refused(const MultimediaItem& item, const std::string& what) {
    DataObject out{sizeof out, 7, 99, pointer_to<void>(0x1234)};
    EXPECT_EQ(ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, &item, &out), VZ_ERR_BAD_VALUE) << what;
    EXPECT_EQ(out.length, 0U) << what;
    EXPECT_EQ(out.text, nullptr) << what;
    EXPECT_EQ(out.format, 7U) << what;
}

TEST(MultimediaRefusal, EveryHeaderThatTheTypeDemandsIsMissed) {
    for (const PduSample& sample : smallest_pdus()) {
        const ReadMultimedia read(sample.bytes);
        const std::vector<MultimediaHeader> headers(read.item().headers,
                                                    read.item().headers + read.item().headerCount);
        for (const MultimediaHeader& missing : headers) {
            std::vector<MultimediaHeader> others;
            std::copy_if(headers.begin(), headers.end(), std::back_inserter(others),
                         [&](const MultimediaHeader& each) { return each.number != missing.number; });
            // An answer to a deletion need not name what is deleted.
            if (read.item().messageType == VZ_MMS_DELETE_CONF &&
                missing.number == VZ_MMS_HEADER_CONTENT_LOCATION)
                continue;
            MultimediaItem item = read.item();
            item.headers = others.data();
            item.headerCount = static_cast<std::uint32_t>(others.size());
            expect_refused(item, sample.name + " without " + std::to_string(missing.number));
        }
        MultimediaItem item = read.item();
        if (item.partCount != 0) {
            item.partCount = 0;
            expect_refused(item, sample.name + " without a body");
        }
        item = read.item();
        for (const std::uint32_t type : {0U, 0x7FU, 0x100U}) {
            item.messageType = type;
            expect_refused(item, sample.name + " with the type " + std::to_string(type));
        }
    }
}

struct Refusal {
    const char* what;
    std::function<void(MultimediaBuilder&)> add;
};

const Refusal kRefusals[] = {
    {"no content type", [](MultimediaBuilder& b) { b.part(u"", "data"); }},
    {"a null content type",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "data");
         b.last().contentType = nullptr;
     }},
    {"a container that is none",
     [](MultimediaBuilder& b) { b.part(u"text/plain", "", b.part(u"text/plain", "")); }},
    {"a container that comes behind", [](MultimediaBuilder& b) { b.part(u"text/plain", "", 2); }},
    {"a part in itself", [](MultimediaBuilder& b) { b.container(u"multipart/mixed", 1); }},
    {"a container far away", [](MultimediaBuilder& b) { b.part(u"text/plain", "", 0xFFFFFFFF); }},
    {"a container with data",
     [](MultimediaBuilder& b) {
         b.part(u"multipart/mixed", "data");
         b.last().flags = VZ_MMS_PART_CONTAINER;
     }},
    {"a container of another type", [](MultimediaBuilder& b) { b.container(u"image/jpeg"); }},
    {"containers that are too deep",
     [](MultimediaBuilder& b) {
         std::uint32_t number = 0;
         for (int i = 0; i < 9; ++i) number = b.container(u"multipart/mixed", number);
     }},
    {"too many parts",
     [](MultimediaBuilder& b) {
         const std::uint32_t number = b.container(u"multipart/mixed");
         for (int i = 0; i < 4096; ++i) b.part(u"text/plain", "", number);
     }},
    {"as many as there may be, without their container",
     [](MultimediaBuilder& b) {
         for (int i = 0; i < 4096; ++i) b.part(u"text/plain", "");
     }},
    {"the size of a part",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.last().size = 119;
     }},
    {"the size of a header of a part",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         MultimediaHeader header = number_header(0x0B, 1);
         header.size = 0;
         b.part_header(header);
     }},
    {"a header of a part beyond the numbers",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.part_header(number_header(0x80, 1));
     }},
    {"a header of a part with the kind of another list",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         MultimediaValue value{};
         value.size = sizeof value;
         MultimediaHeader header = number_header(0x0B, 0);
         header.kind = VZ_MMS_VALUE_TIME;
         header.value.record = b.own(value);
         b.part_header(header);
     }},
    {"a parameter of a kind that it cannot have",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.parameter(u"name", VZ_MMS_VALUE_ENCODED_TEXT, 0);
     }},
    {"a parameter without a name",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.parameter(u"", u"x");
     }},
    {"a raw parameter with a name",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.raw_parameter(u"name", "\x85");
     }},
    {"a raw parameter beyond the numbers",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.raw_parameter(u"0x80", "\x85");
     }},
    {"a raw parameter that swallows what follows",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.raw_parameter(u"0x59", "\x05");
     }},
    {"a raw parameter with something behind it",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.raw_parameter(u"0x59", "\x85\x86");
     }},
    {"a raw parameter without bytes",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.raw_parameter(u"0x59", "");
     }},
    {"a raw parameter of a disposition with a name",
     [](MultimediaBuilder& b) {
         b.part(u"text/plain", "");
         b.last().disposition = b.own(u"inline");
         b.raw_parameter(u"name", "\x85");
         b.move_parameter_to_disposition();
     }},
    {"an unknown kind",
     [](MultimediaBuilder& b) {
         MultimediaValue value{};
         b.record(VZ_MMS_HEADER_SUBJECT, 15, value);
     }},
    {"another kind than the header has", [](MultimediaBuilder& b) { b.number(VZ_MMS_HEADER_SUBJECT, 1); }},
    {"an octet beyond octets", [](MultimediaBuilder& b) { b.number(VZ_MMS_HEADER_PRIORITY, 0x180); }},
    {"a header beyond the numbers", [](MultimediaBuilder& b) { b.number(0x80, 1); }},
    {"raw bytes that swallow what follows",
     [](MultimediaBuilder& b) {
         MultimediaValue value{};
         value.bytes = b.own_bytes("\x05");
         value.byteCount = 1;
         b.record(0x50, VZ_MMS_VALUE_RAW, value);
     }},
    {"no raw bytes",
     [](MultimediaBuilder& b) {
         MultimediaValue value{};
         b.record(0x50, VZ_MMS_VALUE_RAW, value);
     }},
};

TEST(MultimediaRefusal, RecordsThatDoNotHoldTogether) {
    for (const Refusal& row : kRefusals) {
        MultimediaBuilder builder(VZ_MMS_SEND_REQ);
        builder.sendable();
        row.add(builder);
        if (builder.item().partCount == 0) builder.part(u"text/plain", "text");
        expect_refused(builder.item(), row.what);
    }
}

TEST(MultimediaRefusal, EveryPointerIsTested) {
    const GuardPage page;
    const std::function<void(MultimediaItem&)> rows[] = {
        [&](MultimediaItem& item) { item.headers = page.unreadable_as<MultimediaHeader>(); },
        [&](MultimediaItem& item) { item.headers = nullptr; },
        [&](MultimediaItem& item) {
            // At the end of memory that can be read, as many as there are.
            const std::size_t size = item.headerCount * sizeof(MultimediaHeader);
            std::memcpy(page.last(size), item.headers, size);
            item.headers = page.last_as<MultimediaHeader>(size);
            item.headerCount = 0xFFFFFFFF;
        },
        [&](MultimediaItem& item) { item.parts = page.unreadable_as<MultimediaPart>(); },
        [&](MultimediaItem& item) { item.parts = page.last_as<MultimediaPart>(sizeof(MultimediaPart) - 1); },
        [&](MultimediaItem& item) { item.headers[0].value.text = page.unreadable_as<char16_t>(); },
        [&](MultimediaItem& item) { item.headers[2].value.record = page.unreadable_as<MultimediaValue>(); },
        [&](MultimediaItem& item) { item.headers[2].value.record = nullptr; },
        [&](MultimediaItem& item) { item.headers[3].value.record->text = page.unreadable_as<char16_t>(); },
        [&](MultimediaItem& item) { item.headers[3].value.record->size = 55; },
        [&](MultimediaItem& item) { item.parts[0].contentType = page.unreadable_as<char16_t>(); },
        [&](MultimediaItem& item) { item.parts[0].name = page.unreadable_as<char16_t>(); },
        [&](MultimediaItem& item) { item.parts[0].contentId = page.unreadable_as<char16_t>(); },
        [&](MultimediaItem& item) { item.parts[0].contentLocation = page.unreadable_as<char16_t>(); },
        [&](MultimediaItem& item) { item.parts[0].disposition = page.unreadable_as<char16_t>(); },
        [&](MultimediaItem& item) { item.parts[0].data = page.unreadable_as<std::uint8_t>(); },
        [&](MultimediaItem& item) { item.parts[0].data = nullptr; },
        [&](MultimediaItem& item) { item.parts[0].dataLength = 0xFFFFFFFF; },
        [&](MultimediaItem& item) { item.parts[0].parameters = page.unreadable_as<MultimediaParameter>(); },
        [&](MultimediaItem& item) { item.parts[0].parameters[0].name = page.unreadable_as<char16_t>(); },
        [&](MultimediaItem& item) {
            item.parts[0].parameters[0].value.text = page.unreadable_as<char16_t>();
        },
        [&](MultimediaItem& item) { item.parts[0].headers = page.unreadable_as<MultimediaHeader>(); },
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        MultimediaBuilder builder(VZ_MMS_SEND_REQ);
        builder.sendable().part(u"text/plain", "text");
        builder.parameter(u"name", u"x");
        builder.part_header(number_header(0x0C, 1));
        builder.last().disposition = builder.own(u"inline");
        MultimediaItem& item = builder.item();
        ASSERT_FALSE(written(item).empty());
        rows[i](item);
        expect_refused(item, "row " + std::to_string(i));
    }
}

TEST(MultimediaRefusal, RecordsAndTextsAtOddAddressesAreWritten) {
    MultimediaBuilder builder(VZ_MMS_SEND_REQ);
    builder.sendable().part(u"text/plain", "text");
    const MultimediaItem& item = builder.item();
    const std::string expected = written(item);
    GuardPage page;
    std::byte* const odd = page.last(sizeof item + sizeof(MultimediaPart) + 64) - 1;
    MultimediaItem copy = item;
    std::memcpy(odd, item.parts, sizeof(MultimediaPart));
    copy.parts = static_cast<MultimediaPart*>(static_cast<void*>(odd));
    std::byte* const record = page.last(sizeof copy);
    std::memcpy(record, &copy, sizeof copy);
    DataObject out{sizeof out, 0, 0, nullptr};
    ASSERT_EQ(ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, record, &out), VZ_OK);
    EXPECT_EQ(std::string(static_cast<const char*>(out.text), out.length), expected);
    EXPECT_EQ(out.format, 2U);
    EXPECT_EQ(ODCAPI_FreeDataObject(&out), VZ_OK);
}

TEST(MultimediaArguments, PointersComeBeforeSizes) {
    const GuardPage page;
    std::string pdu = notification_pdu();
    DataObject object{sizeof object, 0, static_cast<std::uint32_t>(pdu.size()), pdu.data()};
    MultimediaItem item{};
    item.size = sizeof item;
    constexpr std::uint32_t kKind = VZ_OBJECT_MULTIMEDIA;
    EXPECT_EQ(ODCAPI_ParseDataObject(kKind, nullptr, &item), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_ParseDataObject(kKind, &object, nullptr), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_ParseDataObject(kKind, &object, page.last(sizeof item - 1)), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_ParseDataObject(kKind, page.unreadable_as<DataObject>(), &item), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_CreateDataObject(kKind, nullptr, &object), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_CreateDataObject(kKind, &item, nullptr), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_FreeParsedData(kKind, nullptr), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_FreeParsedData(kKind, page.last(sizeof item - 1)), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_ValidateDataObject(kKind, nullptr), VZ_ERR_POINTER);
    DataObject unreadable{sizeof unreadable, 0, 10, page.unreadable()};
    EXPECT_EQ(ODCAPI_ParseDataObject(kKind, &unreadable, &item), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_ValidateDataObject(kKind, &unreadable), VZ_ERR_POINTER);
    DataObject other{23, 0, object.length, object.text};
    EXPECT_EQ(ODCAPI_ParseDataObject(kKind, &other, &item), VZ_ERR_BAD_VALUE);
    EXPECT_EQ(ODCAPI_CreateDataObject(kKind, &item, &other), VZ_ERR_BAD_VALUE);
    EXPECT_EQ(ODCAPI_ValidateDataObject(kKind, &other), VZ_OK) << "its size is not looked at";
}

TEST(MultimediaArguments, ARecordOfAnotherSizeIsRefusedUntouched) {
    std::string pdu = notification_pdu();
    const DataObject object{sizeof object, 0, static_cast<std::uint32_t>(pdu.size()), pdu.data()};
    for (const std::uint32_t size : {0U, 39U, 41U, 0xFFFFFFFFU}) {
        MultimediaItem item;
        std::memset(&item, 0xA5, sizeof item);
        item.size = size;
        const MultimediaItem before = item;
        EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &object, &item), VZ_ERR_BAD_VALUE);
        EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item), VZ_ERR_BAD_VALUE);
        EXPECT_EQ(std::memcmp(&item, &before, sizeof item), 0);
        expect_refused(item, "size " + std::to_string(size));
    }
}

TEST(MultimediaArguments, TheRecordIsClearedBeforeBytesThatDoNotDecode) {
    std::string text = "no PDU";
    const DataObject object{sizeof object, 0, static_cast<std::uint32_t>(text.size()), text.data()};
    MultimediaItem item;
    std::memset(&item, 0xA5, sizeof item);
    item.size = sizeof item;
    EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &object, &item), VZ_ERR_BAD_VALUE);
    MultimediaItem empty{};
    empty.size = sizeof empty;
    EXPECT_EQ(std::memcmp(&item, &empty, sizeof item), 0);
    EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item), VZ_OK);
}

}  // namespace
}  // namespace vzapi::test
