// Every allocation of a conversion gets its turn to fail: the call says so, leaks nothing, and leaves a
// record or text that can be released.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
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

const std::string kCalendar =
    lines({"BEGIN:VCALENDAR", "VERSION:1.0", "TZ:+01:00",
           "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;a name longer than any short string;CEST",
           "BEGIN:VEVENT", "DTSTART:20090315T143000", "DTEND:20090315T153000", "AALARM:20090315T141500;;0;",
           "X-EPOCAGENDAENTRYTYPE:APPOINTMENT",
           "SUMMARY;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:caf=C3=A9 and more", "GEO:47.5;19.05",
           "X-VZAPI-CAL-REFERENCE:1;2;3", "RRULE:W2 TU #0", "EXDATE:20090317T143000", "END:VEVENT",
           "END:VCALENDAR"});

TEST(AllocationFailure, ReadingAndWritingACalendarEntry) {
    const AnnouncedVersion announced(VZ_INTERFACE_VERSION);
    std::string text = kCalendar;
    const VersitData in = data_of(text);
    CalendarItem item{};
    item.size = sizeof item;
    const std::size_t read_failures =
        fail_each_allocation([&] { return ConvertFromVersit(VZ_TYPE_CALENDAR, &in, &item); },
                             [&] {
                                 EXPECT_EQ(item.size, sizeof item);
                                 EXPECT_EQ(item.fields, nullptr);
                                 EXPECT_EQ(item.exceptions, nullptr);
                                 EXPECT_EQ(item.daylightRules, nullptr);
                                 EXPECT_EQ(FreeConverterData(VZ_TYPE_CALENDAR, &item), VZ_OK);
                             });
    EXPECT_GE(read_failures, FailingAllocations::sees_operator_new() ? 12U : 10U)
        << "three arrays, a text, a place and its two texts, a reference and two names, at the least";
    VersitData out{};
    const std::size_t write_failures =
        fail_each_allocation([&] { return ConvertToVersit(VZ_TYPE_CALENDAR, &item, &out); },
                             [&] {
                                 EXPECT_EQ(out.length, 0U);
                                 EXPECT_EQ(out.text, nullptr);
                             });
    EXPECT_GE(write_failures, FailingAllocations::sees_operator_new() ? 4U : 1U)
        << "the block, and with operator new the text, the zone and a name, at the least";
    EXPECT_EQ(FreeVersitData(&out), VZ_OK);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CALENDAR, &item), VZ_OK);
}

void fail_reading_a_message(std::u16string text, std::size_t least_blocks, std::size_t least) {
    const VersitData in = data_of(text);
    MessageItem item{};
    item.size = sizeof item;
    const std::size_t failures =
        fail_each_allocation([&] { return ConvertFromVersit(VZ_TYPE_MESSAGE, &in, &item); },
                             [&] {
                                 EXPECT_EQ(item.size, sizeof item);
                                 EXPECT_EQ(item.text, nullptr);
                                 EXPECT_EQ(item.addresses, nullptr);
                                 EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &item), VZ_OK);
                             });
    EXPECT_GE(failures, FailingAllocations::sees_operator_new() ? least : least_blocks);
    EXPECT_NE(item.textLength, 0U);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &item), VZ_OK);
}

TEST(AllocationFailure, ReadingAMessage) {
    const std::u16string head =
        u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VCARD\r\nTEL:1\r\n"
        u"TEL;QUOTED-PRINTABLE:a=20number=20longer=20than=20any=20short=20string\r\n"
        u"END:VCARD\r\nBEGIN:VENV\r\nBEGIN:VBODY\r\n";
    const std::u16string tail = u"a text longer than any short string\r\nEND:VBODY\r\nEND:VMSG\r\n";
    // The text, the array and two numbers; with operator new the parse, the parts and the decoding.
    fail_reading_a_message(head + tail, 4, 8);
    fail_reading_a_message(head + u"X-SMS;TYPE=TEXT;ENCODING=QUOTED-PRINTABLE:" + tail, 4, 10);
}

TEST(AllocationFailure, WritingAMessage) {
    char16_t text[] = u"a text longer than any short string";
    char16_t number[] = u"a number longer than any short string, caf\u00E9";
    MessageAddress addresses[3] = {{0, number}, {0, nullptr}, {0, number}};
    MessageItem item{};
    item.flags = VZ_MESSAGE_TYPE_DELIVER << VZ_MESSAGE_TYPE_SHIFT;
    item.text = text;
    item.textLength = sizeof text;
    item.addressCount = 3;
    item.addresses = addresses;
    for (const std::uint32_t version : {0U, 16U}) {
        VersitData out{};
        const std::size_t failures = fail_each_allocation(
            [&] { return ConvertToVersit2(VZ_PROFILE_10, version, 0, VZ_TYPE_MESSAGE, &item, &out); },
            [&] {
                EXPECT_EQ(out.length, 0U);
                EXPECT_EQ(out.text, nullptr);
                EXPECT_EQ(FreeVersitData(&out), VZ_OK);
            });
        EXPECT_GE(failures, FailingAllocations::sees_operator_new() ? 5U : 1U)
            << "the block, and with operator new the frame in two parts, a value and the text, at the least";
        EXPECT_EQ(FreeVersitData(&out), VZ_OK);
    }
}

}  // namespace
}  // namespace vzapi::test
