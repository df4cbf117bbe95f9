// Every allocation of a conversion gets its turn to fail: the call says so, leaks nothing, and leaves a
// record or text that can be released.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/failing_allocations.h"
#include "support/text.h"
#include "vzapi/vzapi.h"

namespace vzapi::test {
namespace {

// Runs `call` with its first, second, third ... allocation failing, until there is no such allocation and it
// succeeds. `after_failure` looks at what a failed call left.
template <class Call, class AfterFailure>
std::size_t fail_each_allocation(Call call, AfterFailure after_failure) {
    for (std::size_t nth = 1;; ++nth) {
        FailingAllocations failing(nth);
        const ResultCode code = call();
        failing.stop();
        if (!failing.failed()) {
            EXPECT_EQ(code, VZ_OK);
            return nth - 1;
        }
        EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY) << "allocation " << nth;
        after_failure();
    }
}

const std::string kBookmark = lines(
    {"BEGIN:VBKM", "VERSION:1.0", "TITLE;CHARSET=UTF-8:a title longer than any short string",
     "URL:http://example.com/an/address/longer/than/any/short/string", "BEGIN:ENV",
     "X-IRMC-URL;QUOTED-PRINTABLE:=", "[InternetShortcut]=", "URL=http://example.com/another/long/address",
     "END:ENV", "END:VBKM"});

TEST(AllocationFailure, ReadingABookmark) {
    std::string text = kBookmark;
    const VersitData in = data_of(text);
    BookmarkItem item{};
    item.size = sizeof item;
    const std::size_t failures =
        fail_each_allocation([&] { return ConvertFromVersit(VZ_TYPE_BOOKMARK, &in, &item); },
                             [&] {
                                 EXPECT_EQ(item.size, sizeof item);
                                 EXPECT_EQ(FreeConverterData(VZ_TYPE_BOOKMARK, &item), VZ_OK);
                             });
    EXPECT_GE(failures, FailingAllocations::sees_operator_new() ? 5U : 3U)
        << "three strings, and with operator new the text and the lines, at the least";
    EXPECT_EQ(FreeConverterData(VZ_TYPE_BOOKMARK, &item), VZ_OK);
}

TEST(AllocationFailure, WritingABookmark) {
    char16_t title[] = u"a title longer than any short string, caf\u00E9";
    char16_t url[] = u"http://example.com/an/address/longer/than/any/short/string";
    const BookmarkItem item{sizeof(BookmarkItem), title, url, url};
    VersitData out{};
    const std::size_t failures =
        fail_each_allocation([&] { return ConvertToVersit(VZ_TYPE_BOOKMARK, &item, &out); },
                             [&] {
                                 EXPECT_EQ(out.length, 0U);
                                 EXPECT_EQ(out.text, nullptr);
                                 EXPECT_EQ(FreeVersitData(&out), VZ_OK);
                             });
    EXPECT_GE(failures, FailingAllocations::sees_operator_new() ? 2U : 1U)
        << "the block, and with operator new the growing text, at the least";
    EXPECT_EQ(FreeVersitData(&out), VZ_OK);
}

const std::string kContactGroup =
    lines({"BEGIN:VCARD", "VERSION:2.1", "FN;CHARSET=UTF-8:a name longer than any short string",
           "X-CNTGRP:1;2;no number;340282366920938463463374607431768211455", "END:VCARD"});

TEST(AllocationFailure, ReadingAContactGroup) {
    std::string text = kContactGroup;
    const VersitData in = data_of(text);
    ContactGroupItem item{};
    item.size = sizeof item;
    const std::size_t failures =
        fail_each_allocation([&] { return ConvertFromVersit(VZ_TYPE_CONTACT_GROUP, &in, &item); },
                             [&] {
                                 EXPECT_EQ(item.size, sizeof item);
                                 EXPECT_EQ(item.members, nullptr);
                                 EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT_GROUP, &item), VZ_OK);
                             });
    EXPECT_GE(failures, FailingAllocations::sees_operator_new() ? 7U : 5U)
        << "the name, the array and three blocks, and with operator new the text and the lines, at the least";
    EXPECT_EQ(item.memberCount, 4U);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT_GROUP, &item), VZ_OK);
}

TEST(AllocationFailure, WritingAContactGroup) {
    char16_t name[] = u"a name longer than any short string, caf\u00E9";
    ContactGroupMember members[3]{};
    for (ContactGroupMember& member : members) {
        member.size = sizeof member;
        member.idLength = VZ_GROUP_MEMBER_ID_LENGTH;
        member.id[15] = 0xFF;
    }
    const ContactGroupItem item{sizeof item, name, 3, members};
    VersitData out{};
    out.size = sizeof out;
    const std::size_t failures =
        fail_each_allocation([&] { return ConvertToVersit(VZ_TYPE_CONTACT_GROUP, &item, &out); },
                             [&] {
                                 EXPECT_EQ(out.text, nullptr);
                                 EXPECT_EQ(FreeVersitData(&out), VZ_OK);
                                 out.size = sizeof out;
                             });
    EXPECT_GE(failures, FailingAllocations::sees_operator_new() ? 3U : 1U)
        << "the block, and with operator new the list and the growing text, at the least";
    EXPECT_EQ(FreeVersitData(&out), VZ_OK);
}

TEST(AllocationFailure, ParsingAMessage) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new cannot be made to fail here";
    std::u16string text = u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VBODY\r\na\r\nEND:VBODY\r\nEND:VMSG\r\n";
    const VersitData in = data_of(text);
    MessageItem item{};
    item.size = sizeof item;
    for (std::size_t nth = 1; nth <= 2; ++nth) {
        FailingAllocations failing(nth);
        const ResultCode code = ConvertFromVersit(VZ_TYPE_MESSAGE, &in, &item);
        failing.stop();
        EXPECT_TRUE(failing.failed());
        EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY);
    }
}

}  // namespace
}  // namespace vzapi::test
