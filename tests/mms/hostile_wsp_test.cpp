// Values that are cut off, corrupted or made at random.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <random>
#include <string>

#include "mms/wire_bytes.h"
#include "mms/wsp_encoding.h"
#include "mms/wsp_rows.h"
#include "support/guard_page.h"

namespace vzapi::mms {
namespace {

// Runs every read over the bytes, which end at a page that cannot be read.
void read_everything(Bytes bytes) {
    const auto run = [bytes](auto read) {
        CWSPEncoding reader(bytes);
        const auto result = read(reader);
        EXPECT_LE(reader.position(), bytes.size());
        if (!result) {
            EXPECT_EQ(reader.position(), 0U);
        }
    };
    run([](CWSPEncoding& reader) { return reader.octet(); });
    run([](CWSPEncoding& reader) { return reader.uintvar(); });
    run([](CWSPEncoding& reader) { return reader.short_integer(); });
    run([](CWSPEncoding& reader) { return reader.long_integer(); });
    run([](CWSPEncoding& reader) { return reader.small_integer(); });
    run([](CWSPEncoding& reader) { return reader.value_length(); });
    run([](CWSPEncoding& reader) { return reader.measured(); });
    run([](CWSPEncoding& reader) { return reader.text_string(); });
    run([](CWSPEncoding& reader) { return reader.text(); });
    run([](CWSPEncoding& reader) { return reader.encoded_text(); });
    run([](CWSPEncoding& reader) { return reader.content_type(); });
    run([](CWSPEncoding& reader) { return reader.disposition(); });
    run([](CWSPEncoding& reader) { return reader.skip_value(); });
}

// A content type that was read, written and read again, is the same; so are the others.
void expect_stable(Bytes bytes) {
    CWSPEncoding reader(bytes);
    if (const auto type = reader.content_type()) {
        WspWriter writer;
        writer.content_type(*type);
        EXPECT_EQ(CWSPEncoding(Bytes(writer.bytes())).content_type(), type) << shown(bytes);
    }
    CWSPEncoding other(bytes);
    if (const auto disposition = other.disposition()) {
        WspWriter writer;
        writer.disposition(*disposition);
        EXPECT_EQ(CWSPEncoding(Bytes(writer.bytes())).disposition(), disposition) << shown(bytes);
    }
    CWSPEncoding third(bytes);
    const auto text = third.encoded_text();
    if (text && text->text.find(u'\0') == std::u16string::npos) {
        WspWriter writer;
        writer.encoded_text(text->charset, text->text);
        const auto again = CWSPEncoding(Bytes(writer.bytes())).encoded_text();
        ASSERT_TRUE(again) << shown(bytes);
        EXPECT_EQ(again->text, text->text) << shown(bytes);
        EXPECT_EQ(again->charset, text->charset) << shown(bytes);
    }
}

TEST(WspReader, NeverReadsBehindTheEnd) {
    const test::GuardPage page;
    const auto expect_all = [&page](const Octets& octets) {
        std::byte* begin = page.last(octets.size());
        if (!octets.empty()) std::memcpy(begin, octets.data(), octets.size());
        read_everything({begin, octets.size()});
        expect_stable({begin, octets.size()});
    };
    const auto expect_prefixes = [&expect_all](const Octets& octets) {
        for (std::size_t size = 0; size <= octets.size(); ++size) {
            expect_all(Octets(octets.begin(), octets.begin() + static_cast<std::ptrdiff_t>(size)));
        }
    };
    for (const EncodedRow& row : encoded_texts()) expect_prefixes(wire(row.octets));
    for (const TypeRow& row : content_types()) expect_prefixes(wire(row.octets));
    for (const TypeRow& row : content_types_with_parameters()) expect_prefixes(wire(row.octets));
    for (const DispositionRow& row : dispositions()) expect_prefixes(wire(row.octets));
}

TEST(WspReader, EveryCorruptedOctetIsSurvivedAndWhatWasReadIsStable) {
    const test::GuardPage page;
    for (const TypeRow& row : content_types()) {
        const Octets octets = wire(row.octets);
        for (std::size_t at = 0; at < octets.size(); ++at) {
            for (unsigned value = 0; value < 0x100; ++value) {
                std::byte* begin = page.last(octets.size());
                std::memcpy(begin, octets.data(), octets.size());
                begin[at] = static_cast<std::byte>(value);
                expect_stable({begin, octets.size()});
            }
        }
    }
}

TEST(WspReader, RandomValuesAreStable) {
    std::mt19937 random(3);
    // Octets that mean something, more often than others.
    const Octets likely = wire("00 01 02 03 04 05 1F 7F 80 81 82 83 85 89 8A EA 03 E8 F7 '\";=ax0' C3 A9");
    for (int round = 0; round < 60000; ++round) {
        Octets octets(random() % 16);
        for (std::byte& octet : octets) {
            octet = random() % 4 == 0 ? static_cast<std::byte>(random()) : likely[random() % likely.size()];
        }
        if (!octets.empty() && random() % 2 == 0) octets[0] = static_cast<std::byte>(octets.size() - 1);
        expect_stable(octets);
    }
}

}  // namespace
}  // namespace vzapi::mms
