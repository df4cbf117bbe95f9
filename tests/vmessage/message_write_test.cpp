// A message record to text: the lines of each layout, and memory that cannot be trusted.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "support/guard_page.h"
#include "support/pointer_to.h"
#include "vmessage/message_builder.h"

namespace {

using namespace vzapi::test;

constexpr Time kTime{2009, 3, 5, 14, 7, 9};

std::u16string card(std::u16string_view tel_line) {
    std::u16string text = u"BEGIN:VCARD\r\nVERSION:3.0\r\nN:\r\n";
    if (!tel_line.empty()) text.append(tel_line).append(u"\r\n");
    return text + u"END:VCARD\r\n";
}

const std::u16string kNoNumber = card(u"");

TEST(MessageWriting, AReceivedMessage) {
    const Message message{VZ_MESSAGE_STATUS_READ, VZ_MESSAGE_TYPE_DELIVER, {u"+15550100"}, u"Hello", kTime};
    EXPECT_EQ(
        written(message),
        wide_lines({u"BEGIN:VMSG", u"VERSION:1.1", u"X-IRMC-STATUS:READ", u"X-IRMC-BOX:INBOX",
                    u"X-NRD-DT:20090305T140709Z", u"X-MESSAGE-TYPE:DELIVER", u"BEGIN:VCARD", u"VERSION:3.0",
                    u"N:", u"TEL:+15550100", u"END:VCARD", u"BEGIN:VENV", u"BEGIN:VBODY",
                    u"Date:05.03.2009 14:07:09", u"Hello\nEND:VBODY", u"END:VENV", u"END:VMSG"}));
}

TEST(MessageWriting, ASentMessageInTheExtendedForm) {
    const Message message{
        VZ_MESSAGE_STATUS_SENT, VZ_MESSAGE_TYPE_SUBMIT, {u"+15550100"}, u"Hello\r\nyou", kTime};
    EXPECT_EQ(written(message, Form::Extended),
              wide_lines({u"BEGIN:VMSG",
                          u"VERSION:1.1",
                          u"X-IRMC-STATUS:SENT",
                          u"X-IRMC-BOX:INBOX",
                          u"X-IRMC-TYPE:SMS\nX-NRD-DT:20090305T140709Z",
                          u"X-MESSAGE-TYPE:SUBMIT",
                          u"BEGIN:VCARD",
                          u"VERSION:3.0",
                          u"N:",
                          u"END:VCARD",
                          u"BEGIN:VENV",
                          u"BEGIN:VCARD",
                          u"VERSION:3.0",
                          u"N:",
                          u"TEL:+15550100",
                          u"END:VCARD",
                          u"BEGIN:VENV",
                          u"BEGIN:VBODY",
                          u"Date:05.03.2009 14:07:09",
                          u"X-SMS;TYPE=TEXT;CHARSET=UTF-8:Hello\nyou\nEND:VBODY",
                          u"END:VENV",
                          u"END:VENV",
                          u"END:VMSG"}));
}

TEST(MessageWriting, AnEmptyRecord) {
    EXPECT_EQ(written(Message{}),
              wide_lines({u"BEGIN:VMSG", u"VERSION:1.1", u"X-IRMC-STATUS:", u"X-IRMC-BOX:INBOX",
                          u"X-NRD-DT:00000T000000Z", u"X-MESSAGE-TYPE:", u"BEGIN:VCARD", u"VERSION:3.0",
                          u"N:", u"END:VCARD", u"BEGIN:VENV", u"BEGIN:VBODY", u"Date:", u"\nEND:VBODY",
                          u"END:VENV", u"END:VMSG"}));
}

// ---- Which pair of selectors gives the extended form.

struct SelectorRow {
    std::uint64_t option1;
    std::uint32_t option2;
    std::uint64_t option3;
    bool extended;
};

TEST(MessageWriting, OnePairOfSelectorsGivesTheExtendedForm) {
    const SelectorRow rows[] = {
        {0, 0, 0, false},
        {0x02000010, 16, 0, true},
        {0x02000010, 16, 1, true},
        {33554448, 16, 0, true},
        {0x02000010, 15, 1, false},
        {0x02000010, 17, 1, false},
        {0x02000010, 10, 1, false},
        {0x02000010, 0, 1, false},
        {0x02000020, 16, 1, false},
        {0x02000011, 16, 1, false},
        {0, 16, 1, false},
        {16, 0x02000010, 1, false},
        {0x0000000102000010, 16, 0, true},  // the selectors are numbers of 32 bits
    };
    const MessageRecord record(Message{});
    for (const SelectorRow& row : rows) {
        OwnedText out;
        ASSERT_EQ(
            ConvertToVersit2(row.option1, row.option2, row.option3, VZ_TYPE_MESSAGE, &record.item, &out.data),
            VZ_OK);
        const std::u16string text = units_of(out.data);
        EXPECT_EQ(text.find(u"X-IRMC-TYPE:SMS\nX-NRD-DT") != text.npos, row.extended) << row.option1;
        EXPECT_EQ(text.find(u"\r\nX-SMS;TYPE=TEXT;CHARSET=UTF-8:\nEND:VBODY\r\n") != text.npos, row.extended);
        EXPECT_EQ(text.find(u"X-SMS") != text.npos, row.extended) << row.option2;
    }
}

// ---- Codes.

constexpr std::u16string_view kStatuses[16] = {
    u"",          u"UNSENT",    u"SENT",      u"FAILED",    u"UNREAD",  u"READ", u"DRAFT", u"PENDING",
    u"CANCELLED", u"DELIVERED", u"RECEIVING", u"TEMP_FAIL", u"SENDING", u"",     u"",      u""};

constexpr std::u16string_view kTypes[16] = {u"",
                                            u"DELIVER",
                                            u"DELIVER_REPORT",
                                            u"SUBMIT",
                                            u"SUBMIT_REPORT",
                                            u"STATUS_REPORT",
                                            u"SMS_COMMAND",
                                            u"",
                                            u"",
                                            u"",
                                            u"",
                                            u"",
                                            u"",
                                            u"",
                                            u"",
                                            u""};

std::u16string line_of(const std::u16string& text, const std::u16string& name) {
    const std::size_t begin = text.find(u"\r\n" + name + u":") + name.size() + 3;
    return text.substr(begin, text.find(u"\r\n", begin) - begin);
}

TEST(MessageWriting, EachStatusAndEachTypeAndCodesOutOfRange) {
    for (std::uint32_t code = 0; code < 16; ++code) {
        const std::u16string text = written(Message{code, 15 - code, {}, {}, {}});
        EXPECT_EQ(line_of(text, u"X-IRMC-STATUS"), kStatuses[code]);
        EXPECT_EQ(line_of(text, u"X-MESSAGE-TYPE"), kTypes[15 - code]);
        EXPECT_EQ(line_of(text, u"X-IRMC-BOX"), u"INBOX");
    }
}

TEST(MessageWriting, OtherFlagsAndTheSizeAreNotLookedAt) {
    MessageRecord record(Message{2, 3, {u"1"}, u"a", kTime});
    const std::u16string text = written(record.item);
    record.item.flags |= 0xFFFF00FF;
    record.item.size = 7;
    EXPECT_EQ(written(record.item), text);
}

// ---- Addresses.

std::u16string between_header_and_body(const std::u16string& text) {
    const std::size_t begin = text.find(u"BEGIN:VCARD\r\n");
    return text.substr(begin, text.find(u"BEGIN:VBODY\r\n") - begin);
}

std::u16string behind_body(const std::u16string& text) {
    return text.substr(text.rfind(u"END:VBODY\r\n") + 11);
}

std::u16string repeated(std::u16string_view piece, std::size_t times) {
    std::u16string text;
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

TEST(MessageWriting, OnlyTheFirstRecipientOfASentMessage) {
    for (const std::size_t count : {std::size_t{1}, std::size_t{3}, std::size_t{255}}) {
        Message message{0, VZ_MESSAGE_TYPE_SUBMIT, std::vector<WideText>(count, u"2"), u"", {}};
        message.numbers.front() = u"1";
        const std::u16string text = written(message);
        EXPECT_EQ(between_header_and_body(text),
                  kNoNumber + u"BEGIN:VENV\r\n" + card(u"TEL:1") + u"BEGIN:VENV\r\n");
        EXPECT_EQ(behind_body(text), u"END:VENV\r\nEND:VENV\r\nEND:VMSG\r\n");
    }
    const std::u16string none = written(Message{0, VZ_MESSAGE_TYPE_SUBMIT, {}, u"", {}});
    EXPECT_EQ(between_header_and_body(none), kNoNumber + u"BEGIN:VENV\r\n" + kNoNumber + u"BEGIN:VENV\r\n");
}

TEST(MessageWriting, AllAddressesOfAnyOtherMessage) {
    for (const std::uint32_t type : {0U, 1U, 2U, 4U, 5U, 6U, 7U, 15U}) {
        for (const std::size_t count :
             {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{3}, std::size_t{255}}) {
            Message message{0, type, std::vector<WideText>(count, u"2"), u"", {}};
            std::u16string expected = kNoNumber;
            if (count > 0) {
                message.numbers.front() = u"1";
                expected = card(u"TEL:1") + repeated(u"BEGIN:VENV\r\n" + card(u"TEL:2"), count - 1);
            }
            const std::u16string text = written(message);
            EXPECT_EQ(between_header_and_body(text), expected + u"BEGIN:VENV\r\n");
            EXPECT_EQ(behind_body(text), repeated(u"END:VENV\r\n", count == 0 ? 1 : count) + u"END:VMSG\r\n");
        }
    }
}

TEST(MessageWriting, NumbersAreWrittenAsTheyNeed) {
    const struct {
        std::u16string number;
        std::u16string line;
    } rows[] = {
        {u"", u"TEL:"},
        {u"+1 (555) 0100", u"TEL:+1 (555) 0100"},
        {u"ACME;Shop:1", u"TEL:ACME;Shop:1"},
        {u"Caf\u00E9", u"TEL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Caf=C3=A9"},
        {u"1\r\n2", u"TEL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:1=0D=0A2"},
        {std::u16string(30, u'\u00E9'),
         u"TEL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9=C3=A9=C3=A9=C3=A9=C3=A9=\r\n" +
             repeated(u"=C3=A9", 12) + u"=\r\n" + repeated(u"=C3=A9", 12) + u"=\r\n=C3=A9"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(between_header_and_body(written(Message{0, 1, {row.number}, {}, {}})),
                  card(row.line) + u"BEGIN:VENV\r\n");
    }
}

TEST(MessageWriting, NullAndUnreadableNumbersAndArraysGiveCardsWithoutANumber) {
    const GuardPage page;
    for (char16_t* number : {static_cast<char16_t*>(nullptr), page.unreadable_as<char16_t>(),
                             pointer_to<char16_t>(1), pointer_to<char16_t>(UINTPTR_MAX)}) {
        MessageRecord record(Message{0, 1, {u"1", u"2", u"3"}, {}, {}});
        record.addresses[1].number = number;
        EXPECT_EQ(between_header_and_body(written(record.item)), card(u"TEL:1") + u"BEGIN:VENV\r\n" +
                                                                     kNoNumber + u"BEGIN:VENV\r\n" +
                                                                     card(u"TEL:3") + u"BEGIN:VENV\r\n");
    }
    for (MessageAddress* addresses :
         {static_cast<MessageAddress*>(nullptr), page.unreadable_as<MessageAddress>(),
          pointer_to<MessageAddress>(1), pointer_to<MessageAddress>(UINTPTR_MAX - 20)}) {
        for (const std::uint32_t type : {1U, 3U}) {
            MessageRecord record(Message{0, type, {u"1", u"2"}, {}, {}});
            record.item.addresses = addresses;
            EXPECT_EQ(between_header_and_body(written(record.item)),
                      kNoNumber + u"BEGIN:VENV\r\n" + kNoNumber + u"BEGIN:VENV\r\n");
        }
    }
}

TEST(MessageWriting, AnArrayThatEndsInAnUnreadablePageGivesWhatCanBeRead) {
    const GuardPage page;
    char16_t number[] = u"7";
    const MessageAddress address{0, number};
    auto* bytes = page.last(2 * sizeof address + 15);  // the third entry lacks a byte, and all are misaligned
    std::memcpy(bytes, &address, sizeof address);
    std::memcpy(bytes + sizeof address, &address, sizeof address);
    MessageItem item{};
    item.flags = VZ_MESSAGE_TYPE_DELIVER << VZ_MESSAGE_TYPE_SHIFT;
    item.addressCount = 3;
    item.addresses = page.last_as<MessageAddress>(2 * sizeof address + 15);
    EXPECT_EQ(between_header_and_body(written(item)), card(u"TEL:7") + u"BEGIN:VENV\r\n" + card(u"TEL:7") +
                                                          u"BEGIN:VENV\r\n" + kNoNumber + u"BEGIN:VENV\r\n");
}

TEST(MessageWriting, AddressesWithoutACountAreNotUsed) {
    for (const std::uint32_t type : {1U, 3U}) {
        MessageRecord record(Message{0, type, {u"1"}, {}, {}});
        record.item.addressCount = 0;
        EXPECT_EQ(written(record.item).find(u"TEL"), std::u16string::npos);
    }
}

// ---- The text.

std::u16string body_of(const std::u16string& text) {
    const std::size_t begin = text.find(u"\r\nDate:");
    const std::size_t line = text.find(u"\r\n", begin + 2) + 2;
    return text.substr(line, text.rfind(u"END:VBODY\r\n") - line);
}

TEST(MessageWriting, TheTextAsItStandsButForItsLineEnds) {
    const struct {
        WideText text;
        std::u16string body;
    } rows[] = {
        {std::nullopt, u"\n"},
        {u"", u"\n"},
        {u"a", u"a\n"},
        {u"a\r\nb", u"a\nb\n"},
        {u"a\r\n", u"a\n\n"},
        {u"\r\n", u"\n\n"},
        {u"\r\n\r\n", u"\n\n\n"},
        {u"a\rb", u"a\rb\n"},
        {u"a\nb", u"a\nb\n"},
        {u"a\r\r\nb", u"a\r\nb\n"},
        {u"a\r", u"a\r\n"},
        {u"  a =\r\n\tb=", u"  a =\n\tb=\n"},
        {u"TEL:1\r\nEND:VCARD\r\nEND:VBODY", u"TEL:1\nEND:VCARD\nEND:VBODY\n"},
        {u"Date:01.01.2000 00:00:00", u"Date:01.01.2000 00:00:00\n"},
        {u"\U0001F600\u00E9", u"\U0001F600\u00E9\n"},
        {std::u16string(u"\xD800 \xDC00\xD83D"), std::u16string(u"\xD800 \xDC00\xD83D\n")},
        {std::u16string(500, u'x'), std::u16string(500, u'x') + u"\n"},
        {std::u16string(u"a\0b", 3), std::u16string(u"a\0b\n", 4)},
    };
    for (const auto& row : rows) {
        const Message message{0, 1, {}, row.text, {}};
        EXPECT_EQ(body_of(written(message)), row.body);
        EXPECT_EQ(body_of(written(message, Form::Extended)), u"X-SMS;TYPE=TEXT;CHARSET=UTF-8:" + row.body);
    }
}

TEST(MessageWriting, OnlyTheLengthTellsWhereATextEnds) {
    MessageRecord record(Message{0, 1, {}, u"abcdef", {}});
    const struct {
        std::uint32_t length;
        std::u16string body;
    } rows[] = {{0, u"\n"}, {1, u"\n"}, {2, u"a\n"}, {3, u"a\n"}, {4, u"ab\n"}, {12, u"abcdef\n"}};
    for (const auto& row : rows) {
        record.item.textLength = row.length;
        EXPECT_EQ(body_of(written(record.item)), row.body);
    }
}

TEST(MessageWriting, ATextUpToAnUnreadablePageAndAtAnOddAddress) {
    const GuardPage page;
    const std::u16string text = u"a\r\nb";
    for (const std::size_t shift : {std::size_t{0}, std::size_t{1}}) {
        auto* bytes = page.last(8 + shift);
        std::memcpy(bytes, text.data(), 8);
        MessageItem item{};
        item.text = page.last_as<char16_t>(8 + shift);
        item.textLength = 8;
        EXPECT_EQ(body_of(written(item)), u"a\nb\n");
    }
}

TEST(MessageWriting, ATextThatCannotBeReadToItsEndIsNone) {
    const GuardPage page;
    MessageItem item{};
    for (char16_t* text : {static_cast<char16_t*>(nullptr), page.unreadable_as<char16_t>(),
                           page.last_as<char16_t>(8), pointer_to<char16_t>(UINTPTR_MAX - 3)}) {
        for (const std::uint32_t length : {10U, 0x7FFFFFFEU, 0xFFFFFFFFU}) {
            item.text = text;
            item.textLength = length;
            EXPECT_EQ(body_of(written(item)), u"\n");
        }
    }
}

// ---- Arguments.

TEST(MessageWriting, TheOutputIsSetUpWhateverItHeld) {
    const MessageRecord record(Message{});
    VersitData out{99, 98, 97, pointer_to<void>(96)};
    ASSERT_EQ(ConvertToVersit(VZ_TYPE_MESSAGE, &record.item, &out), VZ_OK);
    EXPECT_EQ(out.size, 24U);
    EXPECT_EQ(out.format, 1U);
    EXPECT_EQ(units_of(out).substr(0, 12), u"BEGIN:VMSG\r\n");
    EXPECT_EQ(FreeVersitData(&out), VZ_OK);
}

}  // namespace
