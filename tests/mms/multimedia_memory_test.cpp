// How much memory a PDU takes while it is read, whatever is in it.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "mms/mms_codec.h"
#include "mms/multimedia_record.h"
#include "mms/pdu_bytes.h"
#include "platform/heap.h"
#include "platform/ole_string.h"
#include "support/failing_allocations.h"
#include "support/memory_meter.h"

namespace vzapi::test {
namespace {

// What a heap keeps of its own beside each block.
constexpr std::size_t kBlockCost = 32;

std::size_t cost_of_block(const void* block) {
    return block == nullptr ? 0 : platform::heap_size(block) + kBlockCost;
}

std::size_t cost_of_text(const char16_t* text) {
    return text == nullptr ? 0 : (platform::ole_string_length(text) + 1) * sizeof(char16_t) + kBlockCost;
}

std::size_t cost_of_value(std::uint32_t kind, const MultimediaContent& content) {
    if (kind == VZ_MMS_VALUE_TEXT) return cost_of_text(content.text);
    if (kind < VZ_MMS_VALUE_ENCODED_TEXT) return 0;
    const MultimediaValue& value = *content.record;
    return cost_of_block(&value) + cost_of_text(value.name) + cost_of_text(value.text) +
           cost_of_block(value.bytes);
}

std::size_t cost_of_headers(const MultimediaHeader* headers, std::uint32_t count) {
    std::size_t cost = cost_of_block(headers);
    for (const MultimediaHeader& each : std::span(headers, count))
        cost += cost_of_value(each.kind, each.value);
    return cost;
}

std::size_t cost_of_parameters(const MultimediaParameter* parameters, std::uint32_t count) {
    std::size_t cost = cost_of_block(parameters);
    for (const MultimediaParameter& each : std::span(parameters, count))
        cost += cost_of_text(each.name) + cost_of_value(each.kind, each.value);
    return cost;
}

std::size_t cost_of_record(const MultimediaItem& item) {
    std::size_t cost = cost_of_headers(item.headers, item.headerCount) + cost_of_block(item.parts);
    for (const MultimediaPart& part : std::span(item.parts, item.partCount)) {
        for (const char16_t* const text :
             {part.contentType, part.name, part.contentId, part.contentLocation, part.disposition})
            cost += cost_of_text(text);
        cost += cost_of_parameters(part.parameters, part.parameterCount);
        cost += cost_of_parameters(part.dispositionParameters, part.dispositionParameterCount);
        cost += cost_of_headers(part.headers, part.headerCount) + cost_of_block(part.data);
    }
    return cost;
}

// What reading takes at most at one time: the message while it is made, and the record with it.
struct Reading {
    std::size_t peak = 0;
    bool is_read = false;
};

Reading measured_reading(const std::string& pdu) {
    Reading reading;
    MultimediaItem item{};
    item.size = sizeof item;
    {
        const MemoryMeter meter;
        mms::CMMSCodec2 codec;
        std::optional<mms::Message> message = codec.decode(std::as_bytes(std::span(pdu)));
        reading.is_read = message.has_value();
        if (message) mms::fill_record(*message, item);
        reading.peak = meter.peak();
    }
    reading.peak += cost_of_record(item);
    mms::release_record(&item);
    return reading;
}

std::string repeated(const std::string& bytes, std::size_t total) {
    std::string all;
    while (all.size() < total) all += bytes;
    return all;
}

std::string of_headers(std::string_view header, std::size_t size) {
    return pdu_bytes("8C 84 8D 92") + repeated(pdu_bytes(header), size);
}

std::string of_parts(std::string_view head, const std::string& data, std::size_t size) {
    const std::string one = entry(pdu_bytes(head), data);
    return retrieved(pdu_bytes("A3"), uintvar(size / one.size()) + repeated(one, size));
}

std::string in_type(const std::string& inside) {
    return retrieved('\x1F' + uintvar(inside.size() + 1) + '\x83' + inside, "text");
}

std::string encoded_part(const std::string& encoding, const std::string& data) {
    const std::string head = pdu_bytes("83 'Content-Transfer-Encoding' 00") + encoding + '\0';
    return retrieved(pdu_bytes("A3"), multipart({entry(head, data)}));
}

struct Shape {
    const char* what;
    std::function<std::string(std::size_t)> make;
    bool is_read;  // when it has half a megabyte
};

const Shape kShapes[] = {
    // Entries that are much smaller than what is kept of them.
    {"headers of two octets", [](std::size_t size) { return of_headers("86 80", size); }, false},
    {"addresses of one octet", [](std::size_t size) { return of_headers("97", size) + '\0'; }, false},
    {"addresses of two octets", [](std::size_t size) { return of_headers("97 00", size); }, false},
    {"raw headers", [](std::size_t size) { return of_headers("C0 80", size); }, false},
    {"application headers", [](std::size_t size) { return of_headers("'a' 00 00", size); }, false},
    {"short texts", [](std::size_t size) { return of_headers("8B 'a' 00", size); }, false},
    {"short subjects", [](std::size_t size) { return of_headers("96 03 EA 'a' 00", size); }, false},
    {"a part with headers",
     [](std::size_t size) {
         const std::string head = pdu_bytes("83") + repeated(pdu_bytes("8C 80"), size);
         return retrieved(pdu_bytes("A3"), multipart({entry(head, "")}));
     },
     false},
    {"parts with headers",
     [](std::size_t size) {
         const std::string one = entry(pdu_bytes("83") + repeated(pdu_bytes("8C 80"), 40), "");
         return retrieved(pdu_bytes("A3"), uintvar(size / one.size()) + repeated(one, size));
     },
     false},
    {"parameters", [](std::size_t size) { return in_type(repeated(pdu_bytes("90 00"), size)); }, false},
    {"raw parameters", [](std::size_t size) { return in_type(repeated(pdu_bytes("FF 80"), size)); }, false},
    {"named parameters", [](std::size_t size) { return in_type(repeated(pdu_bytes("'a' 00 00"), size)); },
     false},
    {"parameters in a text",
     [](std::size_t size) { return retrieved("text/plain" + repeated(";a", size) + '\0', "text"); }, false},
    {"parameters of a push header",
     [](std::size_t size) {
         const std::string type = pdu_bytes("BE") + repeated(pdu_bytes("90 00"), size);
         const std::string head = '\x1F' + uintvar(type.size()) + type;
         return pdu_bytes("01 06") + uintvar(head.size()) + head + notification_pdu();
     },
     true},
    // Parts, of which there is a largest number.
    {"parts of three octets", [](std::size_t size) { return of_parts("83", "", size); }, true},
    {"parts of a hundred octets", [](std::size_t size) { return of_parts("83", std::string(97, 'a'), size); },
     true},
    {"parts with a name", [](std::size_t size) { return of_parts("(83 85 'a' 00)", "a", size); }, true},
    {"containers",
     [](std::size_t size) {
         return of_parts("A3", multipart({entry(pdu_bytes("A3"), multipart({}))}), size);
     },
     true},
    {"containers in containers",
     [](std::size_t size) {
         std::string body = uintvar(size / 7) + repeated(entry(pdu_bytes("83"), "text"), size);
         for (int i = 0; i < 7; ++i) body = multipart({entry(pdu_bytes("A3"), body)});
         return retrieved(pdu_bytes("A3"), body);
     },
     true},
    // What usual messages are made of.
    {"telephone numbers", [](std::size_t size) { return of_headers("97 '+15555550100/TYPE=PLMN' 00", size); },
     true},
    {"one subject", [](std::size_t size) { return of_headers("96", 1) + repeated("subject ", size) + '\0'; },
     true},
    {"one subject in ISO-8859-2",
     [](std::size_t size) {
         return of_headers("96 1F", 1) + uintvar(size + 2) + '\x85' + std::string(size, '\xB1') + '\0';
     },
     true},
    {"one subject in UTF-16",
     [](std::size_t size) {
         return of_headers("96 1F", 1) + uintvar(size + 5) + pdu_bytes("02 03 F7") + std::string(size, 'a') +
                std::string(2, '\0');
     },
     true},
    {"one raw value", [](std::size_t size) { return of_headers("C0", 1) + repeated("raw ", size) + '\0'; },
     true},
    {"base64", [](std::size_t size) { return encoded_part("base64", repeated("VGhl", size)); }, true},
    {"quoted-printable",
     [](std::size_t size) { return encoded_part("quoted-printable", repeated("text", size)); }, true},
    {"one picture",
     [](std::size_t size) {
         return retrieved(pdu_bytes("A3"), multipart({entry(pdu_bytes("9E"), std::string(size, '\xFF'))}));
     },
     true},
};

// Four megabytes are what the entries and parts cost that a PDU of any size may have.
TEST(MultimediaMemory, IsBoundedByTheSizeOfThePdu) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "no allocation here can be counted";
    constexpr std::size_t kAlways = 4'000'000;
    constexpr std::size_t kMostTimes = 20;
    for (const Shape& shape : kShapes) {
        for (const std::size_t size : {std::size_t{1} << 13U, std::size_t{1} << 19U}) {
            const std::string pdu = shape.make(size);
            const Reading reading = measured_reading(pdu);
            EXPECT_LE(reading.peak, kAlways + kMostTimes * pdu.size()) << shape.what << ", " << pdu.size();
            if (size > kAlways / kMostTimes) {
                EXPECT_EQ(reading.is_read, shape.is_read) << shape.what;
            }
        }
    }
}

// A usual message is its data, once, and little else.
TEST(MultimediaMemory, APictureIsHeldOnce) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "no allocation here can be counted";
    const std::string text = entry(pdu_bytes("03 83 81 EA 8E 'a.txt' 00"), std::string(2000, 'a'));
    const std::string picture = entry(pdu_bytes("9E 8E 'p.jpg' 00"), std::string(100'000, '\xFF'));
    const std::string pdu = retrieved(pdu_bytes("A3"), multipart({picture, text, picture, text, picture}));
    const Reading reading = measured_reading(pdu);
    EXPECT_TRUE(reading.is_read);
    EXPECT_LE(reading.peak, pdu.size() + 10'000);
}

}  // namespace
}  // namespace vzapi::test
