#include "vzconv/readable.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

struct ValueRow {
    std::string_view value;
    std::string_view shown;
};

TEST(Readable, ValuesAreShownWithoutWhatATerminalObeys) {
    const ValueRow rows[] = {
        {"plain", "plain"},
        {"", ""},
        {"caf\xC3\xA9 \xE2\x9C\x93", "caf\xC3\xA9 \xE2\x9C\x93"},
        {"tab\there", "tab\there"},
        {"\x1B[31m", "\xE2\x90\x9B[31m"},
        {"\x7F", "\xE2\x90\xA1"},
        {"\xC2\x9B"
         "31m",
         "\xEF\xBF\xBD"
         "31m"},
        {"\xC2\xA0", "\xC2\xA0"},
        {"a\xE2\x80\xAE"
         "b",
         "a\xEF\xBF\xBD"
         "b"},
        {"\xE2\x81\xA6\xE2\x81\xA9", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"\xE2\x80\x8F\xE2\x80\xAF\xE2\x81\xAA\xE2\x80", "\xE2\x80\x8F\xE2\x80\xAF\xE2\x81\xAA\xE2\x80"},
        {"\xC2", "\xC2"},
        {"one\ntwo", "one\n            two"},
        {"one\r\ntwo", "one\n            two"},
        {"one\n\r\n \t", "one"},
        {"one\rtwo", "one\xE2\x90\x8Dtwo"},
    };
    for (const ValueRow& row : rows) {
        Readable readable("Heading");
        readable.field("Label", row.value);
        EXPECT_EQ(readable.text(), "Heading\n  Label     " + std::string(row.shown) + "\n");
    }
}

TEST(Readable, AnObjectWithoutFieldsSaysSo) {
    EXPECT_EQ(Readable("Heading").text(), "Heading\n  (empty)\n");
}

TEST(Readable, OneLineHasNoLineEndsAndNoControlCharacters) {
    EXPECT_EQ(in_one_line(" a \r\n\tb\x1B\n"), "a b\xE2\x90\x9B");
    EXPECT_EQ(in_one_line("\n"), "");
}

}  // namespace
}  // namespace vzconv
