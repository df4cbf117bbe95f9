// Headers that are cut off, corrupted, made at random, or endless.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <random>
#include <vector>

#include "mms/header_block.h"
#include "mms/header_rows.h"
#include "mms/mms_tables.h"
#include "support/guard_page.h"

namespace vzapi::mms {
namespace {

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
    for (const FieldRow& row : canonical_fields()) {
        const Octets field = wire(row.octets);
        all.insert(all.end(), field.begin(), field.end());
    }
    blocks.push_back(all);
    Octets deletion = wire("8C 95 98 't' 00 8D 92 92 02 81 80 93 05 81 'abc' 00 'X-A' 00 'b' 00 96 00");
    blocks.push_back(deletion);
    Octets deviations = wire("8C A0");
    for (const FieldRow& row : deviating_fields()) {
        const Octets field = wire(row.octets);
        deviations.insert(deviations.end(), field.begin(), field.end());
    }
    for (const FieldRow& row : raw_fields()) {
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

const Octets kRawText = wire("'abc' 00");

// A random value of the kinds that a form has.
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
