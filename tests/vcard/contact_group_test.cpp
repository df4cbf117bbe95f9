// Contact groups: ContactGroupItem to vCard text and back, and the release of what reading allocated.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/guard_page.h"
#include "support/text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

using Id = std::array<std::uint8_t, 16>;

constexpr Id kZero{};
constexpr Id kLargest{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                      0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

constexpr Id id_of(std::uint64_t low, std::uint64_t high = 0) {
    Id id{};
    for (std::size_t i = 0; i < 8; ++i) {
        id[i] = static_cast<std::uint8_t>(low >> (8 * i));
        id[8 + i] = static_cast<std::uint8_t>(high >> (8 * i));
    }
    return id;
}

struct NumberRow {
    std::string_view decimal;
    Id id;
};

constexpr NumberRow kNumbers[] = {
    {"0", kZero},
    {"1", id_of(1)},
    {"9", id_of(9)},
    {"10", id_of(10)},
    {"255", id_of(255)},
    {"256", id_of(256)},
    {"999999999", id_of(999'999'999)},
    {"1000000000", id_of(1'000'000'000)},
    {"4294967295", id_of(UINT32_MAX)},
    {"4294967296", id_of(UINT64_C(1) << 32)},
    {"18446744073709551615", id_of(UINT64_MAX)},
    {"18446744073709551616", id_of(0, 1)},
    {"79228162514264337593543950336", id_of(0, UINT64_C(1) << 32)},
    {"100000000000000000000000000000000000000", id_of(0x098A224000000000, 0x4B3B4CA85A86C47A)},
    {"170141183460469231731687303715884105728", id_of(0, UINT64_C(1) << 63)},
    {"340282366920938463463374607431768211455", kLargest},
};

// A member as a host sets it up.
ContactGroupMember member_of(const Id& id, std::uint8_t* block = nullptr) {
    ContactGroupMember member{};
    member.size = sizeof member;
    member.idLength = 16;
    member.idBlock = block;
    std::copy(id.begin(), id.end(), member.id);
    return member;
}

Id id_in(const ContactGroupMember& member) {
    Id id{};
    std::copy(std::begin(member.id), std::end(member.id), id.begin());
    return id;
}

ContactGroupItem group_of(std::u16string& name, std::vector<ContactGroupMember>& members) {
    return {sizeof(ContactGroupItem), name.data(), static_cast<std::uint32_t>(members.size()),
            members.data()};
}

std::string group_text(std::string_view name_line, std::string_view members) {
    return lines({"BEGIN:VCARD", "VERSION:2.1", name_line, "X-CNTGRP:" + std::string(members), "END:VCARD"});
}

// What the writer makes of `group`, into an output of the size that it demands.
std::string written(const ContactGroupItem& group) {
    OwnedText out;
    out.data.size = sizeof out.data;
    EXPECT_EQ(ConvertToVersit(VZ_TYPE_CONTACT_GROUP, &group, &out.data), VZ_OK);
    EXPECT_EQ(out.data.size, 24U);
    EXPECT_EQ(out.data.format, 1U);
    return out.bytes();
}

std::string written_members(const ContactGroupItem& group) {
    const std::string text = written(group);
    const std::size_t begin = text.find("X-CNTGRP:") + 9;
    return text.substr(begin, text.find("\r\n", begin) - begin);
}

// A record that gives back what it owns.
struct OwnedGroup {
    OwnedGroup() { item.size = sizeof item; }
    ~OwnedGroup() {
        item.size = sizeof item;
        static_cast<void>(FreeConverterData(VZ_TYPE_CONTACT_GROUP, &item));
    }
    OwnedGroup(const OwnedGroup&) = delete;
    OwnedGroup& operator=(const OwnedGroup&) = delete;

    ResultCode read(std::string text) {
        const VersitData in = data_of(text);
        return ConvertFromVersit(VZ_TYPE_CONTACT_GROUP, &in, &item);
    }

    ContactGroupItem item{};
};

// ---- Writing.

struct NameRow {
    const char16_t* name;
    std::string line;
};

TEST(ContactGroupWriting, TheNameIsWrittenAsItNeeds) {
    const NameRow rows[] = {
        {nullptr, "FN:"},
        {u"", "FN:"},
        {u"Friends", "FN:Friends"},
        {u"a;b,c\\d:e", "FN:a;b,c\\d:e"},
        {u"\u00C9quipe", "FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=89quipe"},
        {u"\u53CB\u9054 \U0001F600",
         "FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=E5=8F=8B=E9=81=94 =F0=9F=98=80"},
        {u"two\r\nlines", "FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:two=0D=0Alines"},
    };
    for (const NameRow& row : rows) {
        const ContactGroupItem group{sizeof group, const_cast<char16_t*>(row.name), 0, nullptr};
        EXPECT_EQ(written(group), group_text(row.line, ""));
    }
}

TEST(ContactGroupWriting, MembersAreDecimalNumbersInTheirOrder) {
    std::u16string name = u"Family";
    std::vector<ContactGroupMember> members{member_of(id_of(42)), member_of(kLargest), member_of(id_of(7))};
    EXPECT_EQ(written(group_of(name, members)),
              group_text("FN:Family", "42;340282366920938463463374607431768211455;7"));
}

TEST(ContactGroupWriting, EachNumberOf128Bits) {
    for (const NumberRow& row : kNumbers) {
        std::u16string name;
        Id block = row.id;  // serves the number whose `id` is all zero
        std::vector<ContactGroupMember> members{member_of(row.id, block.data())};
        EXPECT_EQ(written_members(group_of(name, members)), row.decimal);
    }
}

TEST(ContactGroupWriting, AnIdOfAllZeroBitsStandsForTheBlock) {
    const GuardPage page;
    std::u16string name;
    Id block = id_of(4711);
    std::vector<ContactGroupMember> members{
        member_of(kZero, block.data()),
        member_of(id_of(5), block.data()),  // an id of its own: the block is not looked at
        member_of(kZero, nullptr),
        member_of(kZero, page.unreadable_as<std::uint8_t>()),
        member_of(kZero, page.last_as<std::uint8_t>(15)),
        member_of(id_of(6), page.unreadable_as<std::uint8_t>()),
    };
    EXPECT_EQ(written_members(group_of(name, members)), "4711;5;6");
}

TEST(ContactGroupWriting, MembersOfAnotherSizeOrIdLengthAreLeftOut) {
    std::u16string name;
    std::vector<ContactGroupMember> members;
    for (const std::uint32_t size : {0U, 24U, 39U, 40U, 41U}) {
        for (const std::uint32_t length : {0U, 8U, 16U, 17U}) {
            members.push_back(member_of(id_of(size * 100 + length)));
            members.back().size = size;
            members.back().idLength = length;
        }
    }
    EXPECT_EQ(written_members(group_of(name, members)), "4016");
}

TEST(ContactGroupWriting, UnreadableNamesAndArraysCountAsAbsent) {
    const GuardPage page;
    std::u16string name = u"Friends";
    std::vector<ContactGroupMember> members{member_of(id_of(1))};
    ContactGroupItem group = group_of(name, members);
    group.groupName = page.unreadable_as<char16_t>();
    EXPECT_EQ(written(group), group_text("FN:", "1"));
    group = group_of(name, members);
    group.members = page.unreadable_as<ContactGroupMember>();
    EXPECT_EQ(written(group), group_text("FN:Friends", ""));
    group.members = nullptr;
    EXPECT_EQ(written(group), group_text("FN:Friends", ""));
}

TEST(ContactGroupWriting, AWildCountEndsAtWhatCanBeRead) {
    const GuardPage page;
    std::u16string name;
    auto* bytes = page.last(2 * sizeof(ContactGroupMember) + 39);  // the third entry lacks a byte
    const ContactGroupMember entries[] = {member_of(id_of(1)), member_of(id_of(2))};
    std::memcpy(bytes, entries, sizeof entries);
    ContactGroupItem group{sizeof group, name.data(), 0,
                           static_cast<ContactGroupMember*>(static_cast<void*>(bytes))};
    struct {
        std::uint32_t count;
        const char* members;
    } const rows[] = {{0, ""},           {1, "1"},        {2, "1;2"}, {3, "1;2"}, {INT32_MAX, "1;2"},
                      {0x80000000U, ""}, {UINT32_MAX, ""}};
    for (const auto& row : rows) {
        group.memberCount = row.count;
        EXPECT_EQ(written_members(group), row.members) << row.count;
    }
}

TEST(ContactGroupWriting, NothingNeedsToBeAligned) {
    std::u16string name = u"Caf\u00E9";
    Id block = id_of(9);
    std::vector<ContactGroupMember> members{member_of(id_of(1)), member_of(kZero, block.data())};
    ContactGroupItem group = group_of(name, members);
    const std::string expected = written(group);
    std::vector<std::byte> memory(256);
    std::size_t used = 1;
    const auto move = [&](const void* from, std::size_t size) {
        std::byte* const to = memory.data() + used;
        std::memcpy(to, from, size);
        used += size + size % 2;
        return static_cast<void*>(to);
    };
    members[1].idBlock = static_cast<std::uint8_t*>(move(block.data(), block.size()));
    group.groupName = static_cast<char16_t*>(move(name.data(), (name.size() + 1) * sizeof(char16_t)));
    group.members = static_cast<ContactGroupMember*>(move(members.data(), 2 * sizeof(ContactGroupMember)));
    const void* const odd = move(&group, sizeof group);
    ASSERT_LE(used, memory.size());
    OwnedText out;
    out.data.size = sizeof out.data;
    EXPECT_EQ(ConvertToVersit(VZ_TYPE_CONTACT_GROUP, odd, &out.data), VZ_OK);
    EXPECT_EQ(out.bytes(), expected);
}

TEST(ContactGroupWriting, ANameThatRunsIntoAnUnreadablePageEndsThere) {
    const GuardPage page;
    auto* const name = page.last_as<char16_t>(4);
    name[0] = u'a';
    name[1] = u'b';
    const ContactGroupItem group{sizeof group, name, 0, nullptr};
    EXPECT_EQ(written(group), group_text("FN:ab", ""));
}

TEST(ContactGroupWriting, TheSizesOfRecordAndOutputAreDemanded) {
    std::u16string name = u"Friends";
    std::vector<ContactGroupMember> members{member_of(id_of(1))};
    char text[] = "before";
    for (const std::uint32_t size : {0U, 20U, 23U, 25U, 32U, UINT32_MAX}) {
        const ContactGroupItem group = group_of(name, members);
        VersitData out{size, 7, 6, text};
        EXPECT_EQ(ConvertToVersit(VZ_TYPE_CONTACT_GROUP, &group, &out), VZ_ERR_INVALID_PARAM);
        EXPECT_EQ(ConvertToVersit2(0x02000010, 280, 1, VZ_TYPE_CONTACT_GROUP, &group, &out),
                  VZ_ERR_INVALID_PARAM);
        EXPECT_EQ(out.size, size) << "a refused output is as it was";
        EXPECT_EQ(out.format, 7U);
        EXPECT_EQ(out.length, 6U);
        EXPECT_EQ(out.text, text);
    }
    for (const std::uint32_t size : {0U, 31U, 33U, 64U}) {
        ContactGroupItem group = group_of(name, members);
        group.size = size;
        VersitData out{sizeof out, 7, 6, text};
        EXPECT_EQ(ConvertToVersit(VZ_TYPE_CONTACT_GROUP, &group, &out), VZ_ERR_INVALID_PARAM) << size;
        EXPECT_EQ(out.length, 0U);
        EXPECT_EQ(out.text, nullptr);
    }
}

TEST(ContactGroupWriting, ProfilesAndVersionsChangeNothing) {
    std::u16string name = u"Friends";
    std::vector<ContactGroupMember> members{member_of(id_of(1))};
    const ContactGroupItem group = group_of(name, members);
    for (const std::uint32_t version : {1U, 12U, 13U, 16U}) {
        const AnnouncedVersion announced(version);
        OwnedText out;
        out.data.size = sizeof out.data;
        ASSERT_EQ(ConvertToVersit2(0x02000020, 300, 1, VZ_TYPE_CONTACT_GROUP, &group, &out.data), VZ_OK);
        EXPECT_EQ(out.bytes(), group_text("FN:Friends", "1"));
    }
}

// ---- Reading.

struct MemberRow {
    const char* what;
    std::string_view value;
    std::uint32_t count;
    std::vector<Id> ids;
};

TEST(ContactGroupReading, TokensBecomeMembers) {
    const MemberRow rows[] = {
        {"no value has no token", "", 0, {}},
        {"one", "42", 1, {id_of(42)}},
        {"several, in order", "3;1;2", 3, {id_of(3), id_of(1), id_of(2)}},
        {"the same twice", "1;1", 2, {id_of(1), id_of(1)}},
        {"blanks around digits", " 1 ;\t2\t", 2, {id_of(1), id_of(2)}},
        {"leading zeros", "007;0000000000000000000000000000000000000000000001", 2, {id_of(7), id_of(1)}},
        {"empty tokens count", "1;;2", 3, {id_of(1), id_of(2)}},
        {"empty tokens at the ends", ";1;", 3, {id_of(1)}},
        {"nothing but a separator", ";", 2, {}},
        {"a blank is a token", " ", 1, {}},
        {"words between numbers", "a;1;b;2", 4, {id_of(1), id_of(2)}},
        {"signs, points and hexadecimal", "+1;-1;1.0;0x1;1e3", 5, {}},
        {"a blank inside", "1 2", 1, {}},
        {"commas do not separate", "1,2", 1, {}},
        {"escapes are no separators' business", "1\\;2", 2, {id_of(2)}},
        {"one more than fits", "340282366920938463463374607431768211456", 1, {}},
        {"forty digits", "1000000000000000000000000000000000000000;5", 2, {id_of(5)}},
        {"Arabic digits", "\xD9\xA1", 1, {}},
    };
    for (const MemberRow& row : rows) {
        OwnedGroup group;
        ASSERT_EQ(group.read(group_text("FN:x", row.value)), VZ_OK) << row.what;
        EXPECT_EQ(group.item.memberCount, row.count) << row.what;
        ASSERT_EQ(group.item.members == nullptr, row.count == 0) << row.what;
        for (std::size_t i = 0; i < row.count; ++i) {
            const ContactGroupMember& member = group.item.members[i];
            const bool filled = i < row.ids.size();
            EXPECT_EQ(member.size, filled ? 40U : 0U) << row.what;
            EXPECT_EQ(member.reserved, 0U) << row.what;
            EXPECT_EQ(member.idLength, filled ? 16U : 0U) << row.what;
            EXPECT_EQ(member.idBlock != nullptr, filled) << row.what;
            EXPECT_EQ(id_in(member), filled ? row.ids[i] : kZero) << row.what;
            if (filled) {
                EXPECT_TRUE(std::all_of(member.idBlock, member.idBlock + 16, [](int b) { return b == 0; }));
            }
        }
    }
}

TEST(ContactGroupReading, EachNumberOf128Bits) {
    for (const NumberRow& row : kNumbers) {
        OwnedGroup group;
        ASSERT_EQ(group.read(group_text("FN:", row.decimal)), VZ_OK);
        ASSERT_EQ(group.item.memberCount, 1U);
        EXPECT_EQ(id_in(group.item.members[0]), row.id) << row.decimal;
        EXPECT_EQ(written_members(group.item), row.decimal);
    }
}

struct NameReadRow {
    const char* what;
    std::string text;
    std::u16string name;
};

std::string card(std::initializer_list<std::string_view> middle) {
    return lines({"BEGIN:VCARD", "VERSION:2.1"}) + lines(middle) + lines({"END:VCARD"});
}

TEST(ContactGroupReading, TheNameComesFromFn) {
    const NameReadRow rows[] = {
        {"no FN", card({"X-CNTGRP:1"}), u"(null)"},
        {"an empty FN", card({"FN:"}), u""},
        {"plain", card({"FN:Friends"}), u"Friends"},
        {"separators are text", card({"FN:a;b\\;c,d:e"}), u"a;b\\;c,d:e"},
        {"quoted-printable", card({"FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=89quipe"}),
         u"\u00C9quipe"},
        {"softly broken", card({"FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=89qu=", "ipe"}),
         u"\u00C9quipe"},
        {"Base64", card({"FN;ENCODING=BASE64;CHARSET=UTF-8:w4lxdWlwZQ"}), u"\u00C9quipe"},
        {"UTF-8 as it stands", card({"FN;CHARSET=UTF-8:\xC3\x89quipe"}), u"\u00C9quipe"},
        {"Latin-1", card({"FN;CHARSET=ISO-8859-1:\xC9quipe"}), u"\u00C9quipe"},
        {"Shift_JIS", card({"FN;CHARSET=SHIFT_JIS:\x97\x46\x92\x42"}), u"\u53CB\u9054"},
        {"the last one counts", card({"FN:a", "FN:b"}), u"b"},
        {"names in lower case", lines({"begin:vcard", "version:2.1", "fn:a", "end:vcard"}), u"a"},
        {"not from a card inside", card({"BEGIN:VCARD", "FN:inner", "END:VCARD", "N:x"}), u"(null)"},
        {"not from a card behind", card({"FN:a"}) + card({"FN:b"}), u"a"},
        {"no END", lines({"BEGIN:VCARD", "VERSION:2.1", "FN:a"}), u"a"},
    };
    for (const NameReadRow& row : rows) {
        OwnedGroup group;
        ASSERT_EQ(group.read(row.text), VZ_OK) << row.what;
        EXPECT_EQ(text_of(group.item.groupName), row.name) << row.what;
    }
}

TEST(ContactGroupReading, ListsOverSeveralLinesAreOneList) {
    OwnedGroup group;
    ASSERT_EQ(group.read(card({"X-CNTGRP:1;x", "X-CNTGRP:", "x-cntgrp:2"})), VZ_OK);
    EXPECT_EQ(group.item.memberCount, 3U);
    EXPECT_EQ(written_members(group.item), "1;2");
}

TEST(ContactGroupReading, AnEncodedOrFoldedListIsDecoded) {
    OwnedGroup group;
    ASSERT_EQ(group.read(card({"X-CNTGRP;ENCODING=QUOTED-PRINTABLE:1=3B2;=", "3", "X-CNTGRP:4;", " 5"})),
              VZ_OK);
    EXPECT_EQ(written_members(group.item), "1;2;3;4;5");
}

TEST(ContactGroupReading, OnlyGroupsOfVersion21AreTaken) {
    const std::string texts[] = {
        lines({"BEGIN:VCARD", "FN:a", "X-CNTGRP:1", "END:VCARD"}),
        lines({"BEGIN:VCARD", "VERSION:3.0", "FN:a", "X-CNTGRP:1", "END:VCARD"}),
        lines({"BEGIN:VCARD", "VERSION:2.10", "FN:a", "X-CNTGRP:1", "END:VCARD"}),
        lines({"BEGIN:VCARD", "VERSION:", "FN:a", "X-CNTGRP:1", "END:VCARD"}),
        lines({"BEGIN:VBKM", "VERSION:2.1", "FN:a", "X-CNTGRP:1", "END:VBKM"}),
        lines({"FN:a", "VERSION:2.1", "X-CNTGRP:1"}),
    };
    for (const std::string& text : texts) {
        OwnedGroup group;
        EXPECT_EQ(group.read(text), VZ_ERR_INVALID_TEXT) << text;
        EXPECT_EQ(group.item.size, 32U);
        EXPECT_EQ(group.item.groupName, nullptr);
        EXPECT_EQ(group.item.memberCount, 0U);
        EXPECT_EQ(group.item.members, nullptr);
    }
}

TEST(ContactGroupReading, ARecordOfAnotherSizeIsRefusedBeforeTheVersionIsLookedAt) {
    for (const std::uint32_t size : {0U, 24U, 31U, 33U, 64U}) {
        for (const char* version : {"VERSION:2.1", "VERSION:3.0"}) {
            char16_t name[] = u"before";
            ContactGroupItem item{size, name, 77, nullptr};
            std::string text = lines({"BEGIN:VCARD", version, "FN:a", "X-CNTGRP:1", "END:VCARD"});
            const VersitData in = data_of(text);
            EXPECT_EQ(ConvertFromVersit(VZ_TYPE_CONTACT_GROUP, &in, &item), VZ_ERR_INVALID_PARAM) << size;
            EXPECT_EQ(item.size, size) << "a refused record is as it was";
            EXPECT_EQ(item.groupName, name);
            EXPECT_EQ(item.memberCount, 77U);
        }
    }
}

TEST(ContactGroupReading, WhatTheRecordHeldIsNotLookedAt) {
    const GuardPage page;
    OwnedGroup group;
    group.item.groupName = page.unreadable_as<char16_t>();
    group.item.memberCount = 5;
    group.item.members = page.unreadable_as<ContactGroupMember>();
    ASSERT_EQ(group.read(group_text("FN:a", "1")), VZ_OK);
    EXPECT_EQ(text_of(group.item.groupName), u"a");
    EXPECT_EQ(group.item.memberCount, 1U);
}

// ---- There and back.

TEST(ContactGroupRoundTrip, RandomGroupsComeBackEqual) {
    std::mt19937_64 random(1234);
    constexpr std::u16string_view kPieces[] = {
        u"a",    u" ",          u";",   u":",      u"\\", u",",          u"\u00E9",    u"\n",
        u"\r\n", u"\U0001F600", u"FN:", u"\u53CB", u"\t", u"X-CNTGRP:9", u"END:VCARD", u"Friends"};
    for (int round = 0; round < 3000; ++round) {
        std::u16string name;
        for (auto count = random() % 8; count > 0; --count) name += kPieces[random() % std::size(kPieces)];
        std::vector<ContactGroupMember> members;
        Id block{};
        for (auto count = random() % 20; count > 0; --count) {
            members.push_back(member_of(id_of(random() >> random() % 64, random() >> random() % 64)));
            members.back().idBlock = block.data();
        }
        std::string text = written(group_of(name, members));
        OwnedGroup back;
        ASSERT_EQ(back.read(text), VZ_OK);
        ASSERT_EQ(text_of(back.item.groupName), name);
        ASSERT_EQ(back.item.memberCount, members.size());
        for (std::size_t i = 0; i < members.size(); ++i) {
            ASSERT_EQ(id_in(back.item.members[i]), id_in(members[i])) << text;
        }
        ASSERT_EQ(written(back.item), text);
    }
}

TEST(ContactGroupRoundTrip, ALargeGroupComesBack) {
    constexpr std::uint32_t kMembers = 50'000;
    std::u16string name = u"All";
    Id block{};
    std::vector<ContactGroupMember> members;
    for (std::uint32_t i = 0; i < kMembers; ++i) members.push_back(member_of(id_of(i, i), block.data()));
    OwnedGroup back;
    ASSERT_EQ(back.read(written(group_of(name, members))), VZ_OK);
    ASSERT_EQ(back.item.memberCount, kMembers);
    for (std::uint32_t i = 0; i < kMembers; ++i) ASSERT_EQ(id_in(back.item.members[i]), id_of(i, i));
}

TEST(ContactGroupLimits, EachLossAsListed) {
    struct {
        std::u16string name;
        std::u16string back;
    } const rows[] = {
        {u"a=", u"a"},
        {u"a\x1B", u"a\n"},
        {u"QUJBASE64", u"ABA\x01!:"},
        {u"QUOTED-PRINTABLE =41", u"QUOTED-PRINTABLE A"},
        {u"a\xD800z", u"a\uFFFDz"},
    };
    std::vector<ContactGroupMember> members{member_of(id_of(1))};
    for (const auto& row : rows) {
        std::u16string name = row.name;
        OwnedGroup group;
        ASSERT_EQ(group.read(written(group_of(name, members))), VZ_OK);
        EXPECT_EQ(text_of(group.item.groupName), row.back);
        EXPECT_EQ(written_members(group.item), "1");
    }
}

TEST(ContactGroupLimits, AnAbsentNameComesBackEmpty) {
    const ContactGroupItem item{sizeof item, nullptr, 0, nullptr};
    OwnedGroup group;
    ASSERT_EQ(group.read(written(item)), VZ_OK);
    EXPECT_EQ(text_of(group.item.groupName), u"");
}

TEST(ContactGroupLimits, MembersThatTakeNoPartAreGone) {
    std::u16string name;
    std::vector<ContactGroupMember> members{member_of(id_of(1)), member_of(kZero), member_of(id_of(2))};
    members.front().size = 39;
    OwnedGroup group;
    ASSERT_EQ(group.read(written(group_of(name, members))), VZ_OK);
    EXPECT_EQ(group.item.memberCount, 1U);
    EXPECT_EQ(id_in(group.item.members[0]), id_of(2));
}

// ---- Release.

TEST(ContactGroupRelease, LeavesAllButTheSizeZeroAndMayComeTwice) {
    ContactGroupItem item{};
    item.size = sizeof item;
    std::string text = group_text("FN:Friends", "1;x;2");
    const VersitData in = data_of(text);
    ASSERT_EQ(ConvertFromVersit(VZ_TYPE_CONTACT_GROUP, &in, &item), VZ_OK);
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT_GROUP, &item), VZ_OK);
        EXPECT_EQ(item.size, 32U);
        EXPECT_EQ(item.groupName, nullptr);
        EXPECT_EQ(item.memberCount, 0U);
        EXPECT_EQ(item.members, nullptr);
    }
}

TEST(ContactGroupRelease, TheSizeCountsFromInterfaceVersion13On) {
    std::string text = group_text("FN:Friends", "1");
    const VersitData in = data_of(text);
    for (const std::uint32_t version : {1U, 12U, 13U, 16U}) {
        const AnnouncedVersion announced(version);
        OwnedGroup group;
        ASSERT_EQ(ConvertFromVersit(VZ_TYPE_CONTACT_GROUP, &in, &group.item), VZ_OK);
        group.item.size = 31;
        const bool refused = version >= 13;
        EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT_GROUP, &group.item), refused ? VZ_ERR_BAD_VALUE : VZ_OK);
        EXPECT_EQ(group.item.members != nullptr, refused);
        EXPECT_EQ(group.item.groupName != nullptr, refused);
    }
}

TEST(ContactGroupRelease, UnreadablePointersAreLeftAloneAndSetToNull) {
    const GuardPage page;
    ContactGroupItem item{sizeof item, page.unreadable_as<char16_t>(), 3,
                          page.unreadable_as<ContactGroupMember>()};
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT_GROUP, &item), VZ_OK);
    EXPECT_EQ(item.groupName, nullptr);
    EXPECT_EQ(item.members, nullptr);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT_GROUP, page.last(31)), VZ_ERR_POINTER);
}

TEST(ContactGroupRelease, AnUnreadableBlockDoesNotKeepTheOthers) {
    const GuardPage page;
    OwnedGroup group;
    ASSERT_EQ(group.read(group_text("FN:", "1;2")), VZ_OK);
    auto* block = std::exchange(group.item.members[0].idBlock, page.unreadable_as<std::uint8_t>());
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT_GROUP, &group.item), VZ_OK);
    EXPECT_EQ(group.item.members, nullptr);
    VersitData holder{sizeof holder, 0, 0, block};
    EXPECT_EQ(FreeVersitData(&holder), VZ_OK);
}

TEST(ContactGroupRelease, BlocksThatAreTheirOwnArrayOrTheSameTwiceAreReleasedOnce) {
    OwnedGroup group;
    ASSERT_EQ(group.read(group_text("FN:", "1;2;3;4")), VZ_OK);
    ContactGroupMember* members = group.item.members;
    VersitData holder{sizeof holder, 0, 0, members[0].idBlock};
    EXPECT_EQ(FreeVersitData(&holder), VZ_OK);
    holder = {sizeof holder, 0, 0, members[2].idBlock};
    EXPECT_EQ(FreeVersitData(&holder), VZ_OK);
    members[0].idBlock = reinterpret_cast<std::uint8_t*>(members);
    members[2].idBlock = members[1].idBlock;
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT_GROUP, &group.item), VZ_OK);
    EXPECT_EQ(group.item.members, nullptr);
}

}  // namespace
