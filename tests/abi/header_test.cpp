// Walks the tables that the C tests make: layout of the records and value of the constants.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <set>
#include <string>

#include "abi/header_rows.h"

namespace {

TEST(HeadersAsC, EveryRecordAndMemberStandsWhereTheInterfacePutsIt) {
    std::size_t count = 0;
    const LayoutRow* rows = layout_rows(&count);
    std::set<std::string> names;
    for (std::size_t i = 0; i < count; ++i) {
        const LayoutRow& row = rows[i];
        EXPECT_EQ(row.offset, row.expectedOffset) << row.name;
        EXPECT_EQ(row.width, row.expectedWidth) << row.name;
        EXPECT_TRUE(names.insert(row.name).second) << row.name << " has two rows";
    }
    std::printf("%zu records and members\n", count);
    EXPECT_GT(count, 0U);
}

TEST(HeadersAsC, EveryConstantHasItsValue) {
    std::size_t count = 0;
    const ConstantRow* rows = constant_rows(&count);
    std::set<std::string> names;
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(rows[i].value, rows[i].expected) << rows[i].name;
        EXPECT_TRUE(names.insert(rows[i].name).second) << rows[i].name << " has two rows";
    }
    std::printf("%zu constants\n", count);
    EXPECT_GT(count, 0U);
}

}  // namespace
