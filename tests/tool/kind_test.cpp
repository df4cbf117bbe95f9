#include "vzconv/kind.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace vzconv {
namespace {

TEST(Kind, EachRecordHasOneRow) {
    std::set<std::pair<uint32_t, uint32_t>> records;
    std::set<std::string_view> names;
    for (const Kind& kind : kinds()) {
        EXPECT_TRUE(records.insert({kind.record.type, kind.record.object}).second) << kind.name;
        EXPECT_TRUE(names.insert(kind.name).second) << kind.name;
        EXPECT_EQ(kind_of_name(kind.name), &kind);
        const std::string text = "BEGIN:" + std::string(kind.component) + "\n" +
                                 (kind.sign.empty() ? "" : std::string(kind.sign) + ":1\n") + "END\n";
        EXPECT_EQ(kind_of_object(kind.component, text), &kind) << kind.name;
    }
    EXPECT_EQ(records, (std::set<std::pair<uint32_t, uint32_t>>{
                           {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 0}, {0, 5}, {0, 6}}));
    EXPECT_EQ(kind_of_name("Bookmark"), nullptr);
    EXPECT_EQ(kind_of_object("VNOTE", ""), nullptr);
}

struct SignRow {
    const char* text;
    const char* name;
};

TEST(Kind, AGroupIsACardWithItsProperty) {
    const SignRow rows[] = {
        {"BEGIN:VCARD\r\nX-CNTGRP:1;2\r\nEND:VCARD\r\n", "group"},
        {"BEGIN:VCARD\nx-cntgrp;CHARSET=UTF-8:1\nEND:VCARD\n", "group"},
        {"BEGIN:VCARD\rX-CNTGRP :1\rEND:VCARD\r", "group"},
        {"BEGIN:VCARD\r\nX-CNTGRP2:1\r\nEND:VCARD\r\n", "contact"},
        {"BEGIN:VCARD\r\nNOTE:X-CNTGRP:1\r\nEND:VCARD\r\n", "contact"},
        {"BEGIN:VCARD\r\nNOTE:a\r\n X-CNTGRP:1\r\nEND:VCARD\r\n", "contact"},
    };
    for (const SignRow& row : rows) EXPECT_EQ(kind_of_object("VCARD", row.text)->name, row.name) << row.text;
}

}  // namespace
}  // namespace vzconv
