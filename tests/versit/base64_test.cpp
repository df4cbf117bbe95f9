#include "versit/base64.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "support/guard_page.h"

namespace vzapi::versit {
namespace {

std::string encode(std::string_view bytes) {
    std::string out;
    append_base64(std::as_bytes(std::span(bytes)), out);
    return out;
}

std::string random_bytes(std::mt19937& random, std::size_t size) {
    std::string bytes(size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

struct Row {
    std::string_view bytes;
    std::string_view text;
};

// The test vectors of RFC 4648, section 10, and the ends of the alphabet.
constexpr Row kRows[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
    {"\xFB\xFF\xBF", "+/+/"},
    {"\xFF\xFF\xFF", "////"},
    {"\xFF", "/w=="},
    {"\xFF\xFF", "//8="},
};

TEST(Base64, EncodesAndDecodes) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(encode(row.bytes), row.text);
        EXPECT_EQ(decode_base64(row.text), row.bytes);
        std::vector<std::byte> room(decoded_base64_room(row.text));
        const std::size_t size = decode_base64(row.text, room.data());
        EXPECT_EQ(std::string_view(reinterpret_cast<const char*>(room.data()), size), row.bytes);
    }
    EXPECT_EQ(encode(std::string_view("\0\0\0", 3)), "AAAA");
}

TEST(Base64, AppendsToWhatIsThere) {
    std::string out = "PHOTO:";
    append_base64(std::as_bytes(std::span("foob", 4)), out);
    append_base64({}, out);
    append_base64(std::as_bytes(std::span("f", 1)), out);
    EXPECT_EQ(out, "PHOTO:Zm9vYg==Zg==");
}

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Six bits after the other, by the definition.
std::string encode_bit_by_bit(std::string_view bytes) {
    std::string text;
    for (std::size_t bit = 0; bit < bytes.size() * 8; bit += 6) {
        unsigned value = 0;
        for (std::size_t i = bit; i < bit + 6; ++i) {
            const unsigned byte = i / 8 < bytes.size() ? static_cast<unsigned char>(bytes[i / 8]) : 0;
            value = value * 2 + (byte >> (7 - i % 8) & 1);
        }
        text += kAlphabet[value];
    }
    while (text.size() % 4 != 0) text += '=';
    return text;
}

TEST(Base64, EveryLengthGoesThereAndBack) {
    std::mt19937 random(64);
    for (std::size_t size = 0; size < 400; ++size) {
        const std::string bytes = random_bytes(random, size);
        const std::string text = encode(bytes);
        ASSERT_EQ(text, encode_bit_by_bit(bytes)) << size;
        ASSERT_EQ(decode_base64(text), bytes) << size;
    }
}

TEST(Base64, EveryPairOfBytesGoesThereAndBack) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second)};
            const std::string text = encode(bytes);
            ASSERT_EQ(text, encode_bit_by_bit(bytes));
            ASSERT_EQ(decode_base64(text), bytes);
        }
    }
}

constexpr Row kDecodedOnly[] = {
    // Padding is not asked for.
    {"f", "Zg"},
    {"f", "Zg="},
    {"fo", "Zm8"},
    {"foob", "Zm9vYg"},
    {"foob", "Zm9vYg="},
    // White space is skipped wherever it stands.
    {"foobar", " \t\r\nZm9v\r\n YmFy\r\n"},
    {"foobar", "Z m 9 v Y m F y"},
    {"foob", "Zm9v Y g = ="},
    {"", " \t\r\n"},
    // A '=' ends the data.
    {"f", "Zg==Zm9v"},
    {"foo", "Zm9v=YmFy"},
    {"", "=Zm9v"},
    // So does any other character.
    {"foo", "Zm9v-YmFy"},
    {"foo", "Zm9vY;mFy"},
    {"foob", "Zm9vYm_y"},
    {"foob", "Zm9vYm\x80y"},
    {"", "*"},
    // Bits short of a byte are dropped, whatever they are.
    {"", "Z"},
    {"foo", "Zm9vY"},
    {"f", "Zh=="},
    {"fo", "Zm9="},
};

TEST(Base64, DecodesWhatDevicesWrite) {
    for (const Row& row : kDecodedOnly) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(decode_base64(row.text), row.bytes);
    }
    EXPECT_EQ(decode_base64(std::string_view("Zm9v\0YmFy", 9)), "foo");
}

TEST(Base64, EveryByteIsDataSkippedOrTheEnd) {
    for (int i = 0; i < 256; ++i) {
        const char byte = static_cast<char>(i);
        const std::string text = std::string("AAA") + byte + "AAAAAAAA";
        const bool data = kAlphabet.find(byte) != std::string_view::npos;
        const bool skipped = byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
        const std::size_t expected = data ? 9 : skipped ? 8 : 2;
        EXPECT_EQ(decode_base64(text).size(), expected) << i;
    }
}

TEST(Base64, WhiteSpaceAtEveryPlaceChangesNothing) {
    std::mt19937 random(65);
    for (std::size_t size = 0; size < 24; ++size) {
        const std::string bytes = random_bytes(random, size);
        const std::string text = encode(bytes);
        for (std::size_t at = 0; at <= text.size(); ++at) {
            for (const std::string_view blank : {" ", "\r\n ", "\t\t\t\t\t"}) {
                std::string folded = text;
                folded.insert(at, blank);
                ASSERT_EQ(decode_base64(folded), bytes) << folded;
            }
        }
    }
}

TEST(Base64, DecodesEveryPrefixWithoutReadingBehindIt) {
    const std::string bytes = "The quick brown fox";
    const std::string text = encode(bytes);
    const test::GuardPage page;
    for (std::size_t size = 0; size <= text.size(); ++size) {
        char* last = page.last_as<char>(size);
        if (size > 0) std::memcpy(last, text.data(), size);
        const std::size_t digits = std::min(size, text.find('='));
        EXPECT_EQ(decode_base64({last, size}), bytes.substr(0, digits * 6 / 8)) << size;
    }
}

TEST(Base64, EncodesWithoutReadingBehindTheBytes) {
    const test::GuardPage page;
    for (std::size_t size = 0; size < 10; ++size) {
        const std::string text = [&] {
            std::string out;
            append_base64({page.last(size), size}, out);
            return out;
        }();
        EXPECT_EQ(text, encode_bit_by_bit(std::string(size, '\0'))) << size;
    }
}

}  // namespace
}  // namespace vzapi::versit
