#include "vzconv/size_words.h"

#include <gtest/gtest.h>

#include <limits>

namespace vzconv {
namespace {

struct SizeRow {
    uint64_t bytes;
    const char* words;
};

TEST(SizeWords, ASizeHasTwoDigitsOrMore) {
    const SizeRow rows[] = {
        {0, "0 bytes"},
        {1, "1 byte"},
        {1023, "1023 bytes"},
        {1024, "1 KB"},
        {1025, "1 KB"},
        {4300, "4.2 KB"},
        {10188, "9.9 KB"},
        {10189, "10 KB"},
        {12 * 1024, "12 KB"},
        {1048575, "1024 KB"},
        {1048576, "1 MB"},
        {1572864, "1.5 MB"},
        {15728640, "15 MB"},
        {0xFFFFFFFF, "4096 MB"},
        {std::numeric_limits<uint64_t>::max(), "17592186044416 MB"},
    };
    for (const SizeRow& row : rows) EXPECT_EQ(size_in_words(row.bytes), row.words) << row.bytes;
}

}  // namespace
}  // namespace vzconv
