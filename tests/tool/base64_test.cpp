#include "vzconv/base64.h"

#include <gtest/gtest.h>

#include <numeric>

namespace vzconv {
namespace {

std::vector<uint8_t> bytes_of(std::string_view text) {
    return {text.begin(), text.end()};
}

struct Base64Row {
    std::string_view bytes;
    std::string_view text;
};

// The vectors of RFC 4648, section 10.
constexpr Base64Row kRows[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
};

TEST(Base64, BytesBecomeTextAndComeBack) {
    for (const Base64Row& row : kRows) {
        EXPECT_EQ(base64_of(bytes_of(row.bytes)), row.text);
        EXPECT_EQ(bytes_of_base64(row.text), bytes_of(row.bytes)) << row.text;
    }
}

TEST(Base64, EveryByteComesBack) {
    std::vector<uint8_t> bytes(256);
    std::iota(bytes.begin(), bytes.end(), uint8_t{0});
    EXPECT_EQ(bytes_of_base64(base64_of(bytes)), bytes);
}

TEST(Base64, WhatIsNotWrittenIsNotRead) {
    for (const std::string_view text :
         {"Z", "Zg", "Zg=", "Zh==", "Zm9=", "====", "Zg==Zg==", "Zm9v\n", "Zm 9", "Zm-_", "Z===", "=Zg="}) {
        EXPECT_FALSE(bytes_of_base64(text)) << text;
    }
}

}  // namespace
}  // namespace vzconv
