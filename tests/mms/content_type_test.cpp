// Encoded texts, content types and dispositions: each form is read, and written in its canonical one.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "mms/mms_tables.h"
#include "mms/wire_bytes.h"
#include "mms/wsp_encoding.h"
#include "mms/wsp_reading.h"
#include "mms/wsp_rows.h"

namespace vzapi::mms {
namespace {

TEST(EncodedText, EachFormIsReadAndWritten) {
    for (const EncodedRow& row : encoded_texts()) {
        const Octets octets = wire(row.octets);
        std::size_t taken = 0;
        const auto text = read_all(
            octets, [](CWSPEncoding& reader) { return reader.encoded_text(); }, taken);
        ASSERT_TRUE(text) << row.what;
        EXPECT_EQ(taken, octets.size()) << row.what;
        EXPECT_EQ(text->charset, row.charset) << row.what;
        EXPECT_EQ(text->text, row.text) << row.what;
        WspWriter writer;
        writer.encoded_text(text->charset, text->text);
        EXPECT_EQ(shown(writer.bytes()), shown(wire(row.written != nullptr ? row.written : row.octets)))
            << row.what;
        CWSPEncoding again{Bytes(writer.bytes())};
        const auto second = again.encoded_text();
        ASSERT_TRUE(second) << row.what;
        EXPECT_EQ(second->charset, row.charset) << row.what;
        EXPECT_EQ(second->text, row.text) << row.what;
    }
}

TEST(EncodedText, EmbeddedNulsOfSixteenBitTextStay) {
    const Octets octets = wire("0B 02 03 E8 00 'A' 00 00 00 'B' 00 00");
    CWSPEncoding reader{Bytes(octets)};
    const auto text = reader.encoded_text();
    ASSERT_TRUE(text);
    EXPECT_EQ(text->text, std::u16string(u"A\0B", 3));
}

TEST(EncodedText, IsRefusedWhenCutOffOrWithoutCharset) {
    for (const char* octets : {"", "'abc'", "05 EA 'ab' 00", "1F", "1F 05 EA", "03 1F 'a' 00", "03 00 'a' 00",
                               "0A 08 01 00 00 00 00 00 00 00 00"}) {
        std::size_t taken = 0;
        const auto text = read_all(
            wire(octets), [](CWSPEncoding& reader) { return reader.encoded_text(); }, taken);
        EXPECT_FALSE(text) << octets;
    }
}

TEST(EncodedText, IsWrittenUpToItsFirstNul) {
    for (const std::uint32_t charset : {0U, 106U, 1000U}) {
        WspWriter one;
        one.encoded_text(charset, std::u16string_view(u"A\0B", 3));
        WspWriter other;
        other.encoded_text(charset, u"A");
        EXPECT_EQ(shown(one.bytes()), shown(other.bytes()));
    }
}

void expect_type(const TypeRow& row) {
    const Octets octets = wire(row.octets);
    CWSPEncoding reader{Bytes(octets)};
    const auto type = reader.content_type();
    ASSERT_TRUE(type) << row.what;
    EXPECT_EQ(type->media, row.media) << row.what << ": " << narrow(type->media);
    EXPECT_EQ(type->charset, row.charset) << row.what;
    EXPECT_EQ(type->parameters, row.parameters) << row.what;
    WspWriter writer;
    writer.content_type(*type);
    EXPECT_EQ(shown(writer.bytes()), shown(wire(row.written != nullptr ? row.written : row.octets)))
        << row.what;
    CWSPEncoding again{Bytes(writer.bytes())};
    EXPECT_EQ(again.content_type(), type) << row.what;
    EXPECT_TRUE(again.at_end()) << row.what;
}

TEST(ContentTypes, EachFormIsReadAndWritten) {
    for (const TypeRow& row : content_types()) expect_type(row);
}

TEST(ContentTypes, EachParameterIsReadAndWritten) {
    for (const TypeRow& row : content_types_with_parameters()) expect_type(row);
}

TEST(ContentTypes, EachNumberHasItsName) {
    for (std::uint32_t code = 0; code < 0x80; ++code) {
        Octets octets{static_cast<std::byte>(code | 0x80U)};
        CWSPEncoding reader{Bytes(octets)};
        const auto type = reader.content_type();
        ASSERT_TRUE(type);
        const std::string_view media = media_of_code(code);
        if (!media.empty()) {
            EXPECT_EQ(narrow(type->media), media);
        }
        WspWriter writer;
        writer.content_type(*type);
        EXPECT_EQ(writer.bytes(), octets) << code;
    }
}

TEST(ContentTypes, WhatIsNoneIsRefused) {
    for (const char* octets : {"", "00", "'text/plain'", "05 83 81 EA", "1F", "01 00", "01 'a'", "7F 00",
                               "';a=b' 00", "06 05 01 00 00 00 00", "1F 81"}) {
        std::size_t taken = 0;
        EXPECT_FALSE(read_all(
            wire(octets), [](CWSPEncoding& reader) { return reader.content_type(); }, taken))
            << octets;
    }
}

TEST(Dispositions, EachFormIsReadAndWritten) {
    for (const DispositionRow& row : dispositions()) {
        const Octets octets = wire(row.octets);
        CWSPEncoding reader{Bytes(octets)};
        const auto disposition = reader.disposition();
        ASSERT_TRUE(disposition) << row.what;
        EXPECT_TRUE(reader.at_end() || octets.size() == 4) << row.what;
        EXPECT_EQ(narrow(disposition->kind), narrow(row.kind)) << row.what;
        EXPECT_EQ(disposition->parameters, row.parameters) << row.what;
        WspWriter writer;
        writer.disposition(*disposition);
        EXPECT_EQ(shown(writer.bytes()), shown(wire(row.written != nullptr ? row.written : row.octets)))
            << row.what;
        CWSPEncoding again{Bytes(writer.bytes())};
        EXPECT_EQ(again.disposition(), disposition) << row.what;
    }
}

TEST(Dispositions, WhatIsNoneIsRefused) {
    for (const char* octets : {"", "00", "'attachment'", "03 81", "01 00", "1F", "7F 00"}) {
        std::size_t taken = 0;
        EXPECT_FALSE(read_all(
            wire(octets), [](CWSPEncoding& reader) { return reader.disposition(); }, taken))
            << octets;
    }
}

}  // namespace
}  // namespace vzapi::mms
