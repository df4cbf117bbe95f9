// Text to a message record: what is demanded of a message, its header, its addresses, its body.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "vmessage/message_builder.h"

namespace {

using namespace vzapi::test;

constexpr Time kTime{2009, 3, 5, 14, 7, 9};

// A message of the header lines and body lines given; each ends in CR LF.
std::u16string message_text(std::u16string_view header, std::u16string_view body) {
    return u"BEGIN:VMSG\r\nVERSION:1.1\r\n" + std::u16string(header) + u"BEGIN:VENV\r\nBEGIN:VBODY\r\n" +
           std::u16string(body) + u"END:VBODY\r\nEND:VENV\r\nEND:VMSG\r\n";
}

std::u16string card(std::u16string_view lines) {
    return u"BEGIN:VCARD\r\nVERSION:3.0\r\n" + std::u16string(lines) + u"END:VCARD\r\n";
}

TEST(MessageReading, AReceivedMessage) {
    const std::u16string text =
        wide_lines({u"BEGIN:VMSG", u"VERSION:1.1", u"X-IRMC-STATUS:READ", u"X-IRMC-BOX:INBOX",
                    u"X-NRD-DT:20090305T140709Z", u"X-MESSAGE-TYPE:DELIVER", u"BEGIN:VCARD", u"VERSION:3.0",
                    u"N:", u"TEL:+15550100", u"END:VCARD", u"BEGIN:VENV", u"BEGIN:VBODY",
                    u"Date:05.03.2009 14:07:09", u"Hello\nyou", u"END:VBODY", u"END:VENV", u"END:VMSG"});
    EXPECT_EQ(read_message(text), (Message{5, 1, {u"+15550100"}, u"Hello\r\nyou", kTime}));
}

TEST(MessageReading, TheSmallestMessage) {
    for (const std::u16string_view version : {u"1.0", u"1.1"}) {
        const std::u16string text = u"BEGIN:VMSG\r\nVERSION:" + std::u16string(version) +
                                    u"\r\nBEGIN:VBODY\r\nEND:VBODY\r\nEND:VMSG\r\n";
        EXPECT_EQ(read_message(text), (Message{0, 3, {}, u"", {}}));
    }
}

// ---- What is no message.

TEST(MessageReading, OtherNamesVersionsAndMessagesWithoutABodyAreRefused) {
    const std::u16string body = u"BEGIN:VBODY\r\nEND:VBODY\r\n";
    const std::u16string end = u"END:VMSG\r\n";
    const std::u16string rows[] = {
        u"BEGIN:VMSG\r\nVERSION:2.1\r\n" + body + end,
        u"BEGIN:VMSG\r\nVERSION:1.10\r\n" + body + end,
        u"BEGIN:VMSG\r\nVERSION: 1.1\r\n" + body + end,
        u"BEGIN:VMSG\r\nVERSION:1.1 \r\n" + body + end,
        u"BEGIN:VMSG\r\nVERSION:\r\n" + body + end,
        u"BEGIN:VMSG\r\n" + body + end,
        u"BEGIN:vmsg\r\nVERSION:1.1\r\n" + body + end,
        u"BEGIN:VMSGS\r\nVERSION:1.1\r\n" + body + end,
        u"BEGIN:VCARD\r\nVERSION:1.1\r\n" + body + u"END:VCARD\r\n",
        u"BEGIN:VCARD\r\nBEGIN:VMSG\r\nVERSION:1.1\r\n" + body + end,
        body + u"BEGIN:VMSG\r\nVERSION:1.1\r\n" + body + end,
        u"BEGIN:VMSG\r\nVERSION:1.1\r\n" + end,
        u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VENV\r\nEND:VENV\r\n" + end,
        u"BEGIN:VMSG\r\nVERSION:1.1\r\n" + end + body,  // behind the message
        u"BEGIN:VMSG\r\nVERSION:1.1\r\n" + end + u"BEGIN:VMSG\r\nVERSION:1.1\r\n" + body + end,
        u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VMSG\r\nVERSION:1.1\r\n" + body + end,
        u"BEGIN:VMSG\r\nBEGIN:VENV\r\nVERSION:1.1\r\n" + body + u"END:VENV\r\n" + end,
        u"BEGIN:VMSG\r\n" + card(u"") + body + end,  // the card's version is not the message's
        u"BEGIN:VMSG\r\nBEGIN:VBODY\r\nVERSION:1.1\r\nEND:VBODY\r\n" + end,
        u"BEGIN:VMSG\r\nVERSION:1.2\r\nVERSION:1.1\r\n" + body + end,
        u"VERSION:1.1\r\n",
        u"TEL:1\r\n",
    };
    for (const std::u16string& text : rows) {
        EXPECT_EQ(read_result(text), VZ_ERR_INVALID_TEXT) << testing::PrintToString(text);
    }
}

TEST(MessageReading, ARefusedTextSetsOnlyTheSize) {
    std::u16string text = u"BEGIN:VMSG\r\nVERSION:2.1\r\nX-IRMC-STATUS:READ\r\n";
    const VersitData in = data_of(text);
    MessageItem item;
    for (const std::uint32_t size : {64U, 60U}) {
        std::memset(&item, 0xA5, sizeof item);
        item.size = size;
        MessageItem expected;
        std::memset(&expected, size == 64 ? 0 : 0xA5, sizeof expected);
        expected.size = 64;
        EXPECT_EQ(ConvertFromVersit(VZ_TYPE_MESSAGE, &in, &item), VZ_ERR_INVALID_TEXT);
        EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0) << size;
    }
}

TEST(MessageReading, ARecordOfAnotherSizeIsFilledAllTheSame) {
    std::u16string text = message_text(u"X-IRMC-BOX:INBOX\r\n", u"a\r\n");
    const VersitData in = data_of(text);
    OwnedMessage message;
    std::memset(&message.item, 0xA5, sizeof message.item);
    EXPECT_EQ(ConvertFromVersit(VZ_TYPE_MESSAGE, &in, &message.item), VZ_OK);
    EXPECT_EQ(message_of(message.item), (Message{0, 1, {}, u"a", {}}));
    EXPECT_EQ(message.item.addresses, nullptr);
}

TEST(MessageReading, WhatStandsAroundTheMessageIsNotLookedAt) {
    EXPECT_EQ(read_message(u"TEL:9\r\nX-MESSAGE-TYPE:SUBMIT\r\n" + message_text(u"", u"a\r\n") +
                           message_text(u"X-MESSAGE-TYPE:DELIVER\r\n", u"b\r\n")),
              (Message{0, 3, {}, u"a", {}}));
}

// ---- The header.

struct TypeRow {
    std::u16string_view header;
    std::uint32_t status;
    std::uint32_t type;
};

TEST(MessageReading, StatusBoxAndType) {
    const TypeRow rows[] = {
        {u"X-IRMC-STATUS:UNSENT\r\n", 1, 3},
        {u"X-IRMC-STATUS:SENDING\r\n", 12, 3},
        {u"X-IRMC-STATUS:\r\n", 0, 3},
        {u"X-IRMC-STATUS:read\r\n", 0, 3},
        {u"X-IRMC-STATUS:READ\r\nX-IRMC-STATUS:SENT\r\n", 2, 3},
        {u"x-irmc-status:READ\r\n", 5, 3},
        {u"X-IRMC-BOX:INBOX\r\n", 0, 1},
        {u"X-IRMC-BOX:inbox\r\n", 0, 3},
        {u"X-IRMC-BOX:INBOX \r\n", 0, 3},
        {u"X-IRMC-BOX:SENT\r\n", 0, 3},
        {u"X-IRMC-BOX:OUTBOX\r\n", 0, 3},
        {u"X-IRMC-BOX:\r\n", 0, 3},
        {u"X-MESSAGE-TYPE:DELIVER\r\n", 0, 1},
        {u"X-MESSAGE-TYPE:DELIVER_REPORT\r\n", 0, 2},
        {u"X-MESSAGE-TYPE:SUBMIT\r\n", 0, 3},
        {u"X-MESSAGE-TYPE:SUBMIT_REPORT\r\n", 0, 4},
        {u"X-MESSAGE-TYPE:STATUS_REPORT\r\n", 0, 5},
        {u"X-MESSAGE-TYPE:SMS_COMMAND\r\n", 0, 6},
        {u"X-MESSAGE-TYPE:\r\n", 0, 0},
        {u"X-MESSAGE-TYPE:deliver\r\n", 0, 0},
        {u"X-IRMC-BOX:INBOX\r\nX-MESSAGE-TYPE:SUBMIT\r\n", 0, 3},
        {u"X-MESSAGE-TYPE:SUBMIT\r\nX-IRMC-BOX:INBOX\r\n", 0, 3},
        {u"X-IRMC-BOX:SENT\r\nX-MESSAGE-TYPE:DELIVER\r\n", 0, 1},
        {u"X-IRMC-BOX:INBOX\r\nX-MESSAGE-TYPE:OTHER\r\n", 0, 0},
    };
    for (const TypeRow& row : rows) {
        const Message message = read_message(message_text(row.header, u"\r\n"));
        EXPECT_EQ(message.status, row.status) << testing::PrintToString(row.header);
        EXPECT_EQ(message.type, row.type) << testing::PrintToString(row.header);
    }
}

TEST(MessageReading, OnlyAMessageWithoutBoxAndTypeIsSetFromItsAddresses) {
    const TypeRow rows[] = {
        {u"", 0, 1},
        {u"X-IRMC-STATUS:READ\r\n", 5, 1},
        {u"X-IRMC-BOX:INBOX\r\n", 0, 1},
        {u"X-IRMC-BOX:SENT\r\n", 0, 3},
        {u"X-MESSAGE-TYPE:\r\n", 0, 0},
        {u"X-MESSAGE-TYPE:SUBMIT\r\n", 0, 3},
    };
    for (const TypeRow& row : rows) {
        const std::u16string header = std::u16string(row.header) + card(u"TEL:1\r\n");
        EXPECT_EQ(read_message(message_text(header, u"\r\n")),
                  (Message{row.status, row.type, {u"1"}, u"", {}}));
    }
    EXPECT_EQ(read_message(message_text(card(u"N:\r\n"), u"\r\n")).type, 3U) << "a card without a number";
}

TEST(MessageReading, HeaderLinesInOtherComponentsAreNotTheMessages) {
    const std::u16string lines =
        u"X-IRMC-STATUS:READ\r\nX-IRMC-BOX:INBOX\r\nX-MESSAGE-TYPE:DELIVER\r\nX-NRD-DT:20090305T140709Z\r\n";
    EXPECT_EQ(read_message(message_text(card(lines), u"\r\n")), (Message{0, 3, {}, u"", {}}));
    EXPECT_EQ(read_message(u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VENV\r\n" + lines +
                           u"BEGIN:VBODY\r\nEND:VBODY\r\nEND:VENV\r\nEND:VMSG\r\n"),
              (Message{0, 3, {}, u"", {}}));
}

struct TimeRow {
    std::u16string_view header;
    std::u16string_view body;
    Time time;
    std::u16string_view text;
};

TEST(MessageReading, TheTimeOfTheHeaderBeforeThatOfTheBody) {
    const TimeRow rows[] = {
        {u"X-NRD-DT:20090305T140709Z\r\n", u"a\n", kTime, u"a"},
        {u"X-NRD-DT:20090305T140709\r\n", u"a\n", kTime, u"a"},
        {u"X-NRD-DT:20090305T140709Z\r\n", u"Date:01.02.2003 04:05:06\r\na\n", kTime, u"a"},
        {u"X-NRD-DT:20090305T140709Z\r\n", u"Date:\r\na\n", kTime, u"a"},
        {u"X-NRD-DT:20090305T140709Z\r\n", u"Date:00.00.0 00:00:00\r\na\n", kTime, u"a"},
        {u"X-NRD-DT:00000T000000Z\r\n", u"Date:05.03.2009 14:07:09\r\na\n", kTime, u"a"},
        {u"X-NRD-DT:00000T000000\r\n", u"Date:\r\na\n", {}, u"a"},
        {u"X-NRD-DT:00000T000000Z\r\n", u"a\n", {}, u"a"},
        {u"X-NRD-DT:yesterday\r\n", u"Date:05.03.2009 14:07:09\r\na\n", kTime, u"a"},
        {u"X-NRD-DT:20090305T140709Z\r\nX-NRD-DT:00000T000000Z\r\n", u"a\n", {}, u"a"},
        {u"", u"Date:05.03.2009 14:07:09\r\na\n", kTime, u"a"},
        {u"", u"DATE: 5.3.2009  14:07:09 \na\n", kTime, u"a"},
        {u"", u"date:05.03.2009 14:07:09\na\n", kTime, u"a"},
        {u"", u"Date:05.03.2009 14:07\na\n", {2009, 3, 5, 14, 7, 0}, u"a"},
        {u"", u"Date:00.00.0 00:00:00\na\n", {}, u"a"},
        {u"", u"Date:  \na\n", {}, u"a"},
        {u"", u"Date:05.03.2009 14:07:09\n", kTime, u""},
        {u"", u"Date:05.03.2009 14:07:09\n\n", kTime, u""},
        // Only the first line, and only a time or nothing.
        {u"", u"a\nDate:05.03.2009 14:07:09\n", {}, u"a\r\nDate:05.03.2009 14:07:09"},
        {u"", u"\nDate:05.03.2009 14:07:09\n", {}, u"\r\nDate:05.03.2009 14:07:09"},
        {u"", u"Date:\nDate:05.03.2009 14:07:09\n", {}, u"Date:05.03.2009 14:07:09"},
        {u"", u"Date: tomorrow at 8?\nYes\n", {}, u"Date: tomorrow at 8?\r\nYes"},
        {u"", u"Dates:05.03.2009 14:07:09\n", {}, u"Dates:05.03.2009 14:07:09"},
        {u"", u" Date:05.03.2009 14:07:09\n", {}, u" Date:05.03.2009 14:07:09"},
        {u"", u"Date\n", {}, u"Date"},
    };
    for (const TimeRow& row : rows) {
        const Message message = read_message(message_text(row.header, row.body));
        EXPECT_EQ(message.time, row.time) << testing::PrintToString(row.header) << row.body.size();
        EXPECT_EQ(message.text, std::u16string(row.text));
    }
}

// ---- Addresses.

struct NumberRow {
    std::u16string lines;
    std::vector<WideText> numbers;
};

TEST(MessageReading, TheNumbersOfACard) {
    const NumberRow rows[] = {
        {u"TEL:+1 555\r\n", {u"+1 555"}},
        {u"TEL;CELL;VOICE:1\r\n", {u"1"}},
        {u"tel:1\r\n", {u"1"}},
        {u"TEL:\r\n", {u""}},
        {u"TEL:1\r\nTEL:2\r\n", {u"1", u"2"}},
        {u"N:Smith\r\n", {}},
        {u"item1.TEL:1\r\n", {}},
        {u"EMAIL:1\r\n", {}},
        {u"TEL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Caf=C3=A9\r\n", {u"Caf\u00E9"}},
        {u"TEL;ENCODING=QUOTED-PRINTABLE:Caf=C3=\r\n=A9=0D=0A1\r\n", {u"Caf\u00E9\r\n1"}},
        {u"TEL;QUOTED-PRINTABLE;CHARSET=ISO-8859-1:Caf=E9\r\n", {u"Caf\u00E9"}},
        {u"TEL;QUOTED-PRINTABLE;CHARSET=\"SHIFT_JIS\":=93=FA=83\\\r\n", {u"\u65E5\u30BD"}},
        {u"TEL;QUOTED-PRINTABLE:\u00E9=C3=A9\u65E5=41\r\n", {u"\u00E9\u00E9\u65E5A"}},
        {u"TEL;ENCODING=BASE64:KzE1NTU\r\n", {u"+1555"}},
        {u"TEL;ENCODING=BASE64:Q2Fmw6k\r\n", {u"Caf\u00E9"}},
        {u"TEL;ENCODING=BASE64;CHARSET=ISO-8859-1:Y2Fm6Q\r\n", {u"caf\u00E9"}},
        {u"TEL;ENCODING=QUOTED-PRINTABLE:1=002\r\n", {u"1"}},
        {u"TEL;ENCODING=X-OTHER:=41\r\n", {u"=41"}},
        {u"TEL:Caf\u00E9 \xD800\r\n", {u"Caf\u00E9 \xD800"}},
        {u"TEL:1\r\n 2\r\n", {u"12"}},
    };
    for (const NumberRow& row : rows) {
        EXPECT_EQ(read_message(message_text(card(row.lines), u"\r\n")).numbers, row.numbers)
            << testing::PrintToString(row.lines);
    }
}

TEST(MessageReading, TheCardsOfAMessageInTheOrderOfTheText) {
    const std::u16string text = u"BEGIN:VMSG\r\nVERSION:1.1\r\nTEL:0\r\n" + card(u"TEL:1\r\n") +
                                u"BEGIN:VENV\r\nTEL:0\r\n" + card(u"TEL:2\r\n") + card(u"N:\r\n") +
                                u"BEGIN:VENV\r\n" + card(u"TEL:3\r\nTEL:4\r\n") + u"BEGIN:VBODY\r\n" +
                                card(u"TEL:0\r\n") + u"END:VBODY\r\nEND:VENV\r\n" + card(u"TEL:5\r\n") +
                                u"END:VENV\r\nEND:VMSG\r\n";
    EXPECT_EQ(read_message(text).numbers, (std::vector<WideText>{u"1", u"2", u"3", u"4", u"5"}));
}

TEST(MessageReading, AtMost255Addresses) {
    for (const std::size_t count :
         {std::size_t{254}, std::size_t{255}, std::size_t{256}, std::size_t{1000}}) {
        std::u16string cards;
        std::vector<WideText> numbers;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string digits = std::to_string(i);
            const std::u16string number(digits.begin(), digits.end());
            cards += card(u"TEL:" + number + u"\r\n");
            if (i < 255) numbers.emplace_back(number);
        }
        EXPECT_EQ(read_message(message_text(cards, u"\r\n")).numbers, numbers);
    }
}

// ---- Which body.

TEST(MessageReading, TheInnermostBodyTheFirstOfSeveral) {
    const std::u16string begin = u"BEGIN:VMSG\r\nVERSION:1.1\r\n";
    const std::u16string end = u"END:VMSG\r\n";
    const auto body = [](std::u16string_view text) {
        return u"BEGIN:VBODY\r\n" + std::u16string(text) + u"\r\nEND:VBODY\r\n";
    };
    const auto envelope = [](std::u16string_view content) {
        return u"BEGIN:VENV\r\n" + std::u16string(content) + u"END:VENV\r\n";
    };
    EXPECT_EQ(read_message(begin + body(u"a") + body(u"b") + end).text, u"a");
    EXPECT_EQ(read_message(begin + body(u"a") + envelope(body(u"b")) + end).text, u"b");
    EXPECT_EQ(read_message(begin + envelope(body(u"a")) + body(u"b") + end).text, u"a");
    EXPECT_EQ(read_message(begin + envelope(body(u"a") + envelope(body(u"b") + body(u"c"))) + end).text,
              u"b");
    EXPECT_EQ(read_message(begin + u"begin:vbody\r\na\r\nend:vbody\r\n" + end).text, u"a");
    EXPECT_EQ(read_message(begin + u"BEGIN:X-OTHER\r\n" + body(u"a") + u"END:X-OTHER\r\n" + end).text, u"a");
}

TEST(MessageReading, MissingAndStrayFramesDoNotMatter) {
    const std::u16string begin = u"BEGIN:VMSG\r\nVERSION:1.1\r\n";
    const std::u16string body = u"BEGIN:VBODY\r\na\r\nEND:VBODY\r\n";
    const Message expected{0, 1, {u"1", u"2"}, u"a", {}};
    const std::u16string rows[] = {
        begin + card(u"TEL:1\r\n") + card(u"TEL:2\r\n") + body,
        begin + u"END:VENV\r\nEND:VCARD\r\nEND:OTHER\r\n" + card(u"TEL:1\r\n") + card(u"TEL:2\r\n") + body,
        begin + u"BEGIN:VCARD\r\nTEL:1\r\nBEGIN:VENV\r\n" + card(u"TEL:2\r\n") + body,
        begin + u"BEGIN:VENV\r\n" + card(u"TEL:1\r\n") + u"BEGIN:VCARD\r\nTEL:2\r\n" + body + u"END:VMSG\r\n",
        begin + card(u"TEL:1\r\n") + card(u"TEL:2\r\n") + body + u"BEGIN:VMSG\r\nX-IRMC-BOX:SENT\r\n",
        begin + u"BEGIN:VENV\r\n" + card(u"TEL:1\r\n") + card(u"TEL:2\r\n") + u"BEGIN:VBODY\r\na",
    };
    for (const std::u16string& text : rows) {
        EXPECT_EQ(read_message(text), expected) << testing::PrintToString(text);
    }
    EXPECT_EQ(read_message(begin + u"BEGIN:VBODY").text, u"");
    EXPECT_EQ(read_message(begin + u"BEGIN:VBODY\r\n").text, u"");
}

TEST(MessageReading, AComponentWithoutItsEndEndsWithTheOneAroundIt) {
    const std::u16string begin = u"BEGIN:VMSG\r\nVERSION:1.1\r\n";
    const std::u16string unended = u"BEGIN:VENV\r\nBEGIN:VCARD\r\nBEGIN:X-OTHER\r\nEND:VENV\r\n";
    const std::u16string body = u"BEGIN:VBODY\r\na\r\nEND:VBODY\r\n";
    const std::u16string end = u"X-IRMC-STATUS:READ\r\nTEL:1\r\nEND:VMSG\r\n";
    EXPECT_EQ(read_message(begin + unended + body + end), (Message{5, 3, {}, u"a", {}}));
    // What hangs to its END:VBODY makes that no end of something else.
    EXPECT_EQ(
        read_message(begin + u"BEGIN:X-OTHER\r\n" + body.substr(0, body.size() - 2) + u"\nmore:1\r\n" + end),
        (Message{0, 3, {}, u"a", {}}));
}

TEST(MessageReading, EveryBeginningOfAMessageIsReadOrRefused) {
    const std::u16string text = message_text(card(u"TEL:1\r\n"), u"Date:05.03.2009 14:07:09\r\na\r\nb\r\n");
    const std::size_t body = text.find(u"BEGIN:VBODY") + 11;
    for (std::size_t size = 0; size <= text.size(); ++size) {
        const bool has_body = size >= body && size != body + 1;  // a CR alone ends no line
        EXPECT_EQ(read_result(text.substr(0, size)), has_body ? VZ_OK : VZ_ERR_INVALID_TEXT) << size;
    }
}

TEST(MessageReading, ManyEmptyLinesBehindBareLineFeeds) {
    const std::u16string text =
        u"BEGIN:VMSG\n\n\n\nVERSION:1.1\n\n\n\nX-IRMC-STATUS:READ\n\n\n\nX-IRMC-BOX:INBOX\n\n\n\n"
        u"X-NRD-DT:20090305T140709Z\n\n\n\nBEGIN:VCARD\n\n\n\nTEL:1\n\n\n\n"
        u"TEL;ENCODING=QUOTED-PRINTABLE:=32\n\n\n\nEND:VCARD\n\n\n\nBEGIN:VBODY\na\nEND:VBODY\nEND:VMSG\n";
    EXPECT_EQ(read_message(text), (Message{5, 1, {u"1", u"2"}, u"a", kTime}));
}

TEST(MessageReading, FramesInAnyCaseWithBlanksBehind) {
    const std::u16string text =
        u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VENV\r\nX-IRMC-STATUS:READ\r\nbegin:vcard \r\nTEL:1\r\n"
        u"End:VCard \t\r\nTEL:2\r\nbegin:vbody \r\na\r\nend:vbody\t\r\nend:venv \r\nX-IRMC-BOX:SENT\r\n"
        u"end:vmsg \r\nX-IRMC-STATUS:SENT\r\n";
    EXPECT_EQ(read_message(text), (Message{0, 3, {u"1"}, u"a", {}}));
    EXPECT_EQ(read_message(u"BEGIN:VMSG \r\nVERSION:1.1\r\nBEGIN:VBODY\r\na\r\n"),
              (Message{0, 3, {}, u"a", {}}));
}

TEST(MessageReading, BareLineFeedsAndEmptyLines) {
    const std::u16string text =
        u"BEGIN:VMSG\n\nVERSION:1.1\n\nX-IRMC-STATUS:READ\nX-IRMC-BOX:INBOX\n\nBEGIN:VCARD\nVERSION:2.1\n"
        u"TEL;CELL:1\n\nEND:VCARD\n\nBEGIN:VENV\nBEGIN:VBODY\nDate:05.03.2009 14:07:09\na\n\nb\nEND:VBODY\n"
        u"END:VENV\nEND:VMSG\n";
    EXPECT_EQ(read_message(text), (Message{5, 1, {u"1"}, u"a\r\n\r\nb", kTime}));
}

// ---- The text.

struct BodyRow {
    std::u16string body;
    std::u16string text;
};

TEST(MessageReading, TheLinesOfABodyAreTheText) {
    const BodyRow rows[] = {
        {u"", u""},
        {u"\n", u""},
        {u"\n\n", u"\r\n"},
        {u"a\n", u"a"},
        {u"a\r\n", u"a"},
        {u"a\nb\r\nc\n", u"a\r\nb\r\nc"},
        {u"a\rb\n", u"a\rb"},
        {u"a\r\r\nb\n", u"a\r\r\nb"},
        {u"  a\n\tb \n", u"  a\r\n\tb "},
        {u"a=\nb==\n", u"a=\r\nb=="},
        {u"TEL:1\nEND:VCARD\nBEGIN:VCARD\nVERSION:9\n", u"TEL:1\r\nEND:VCARD\r\nBEGIN:VCARD\r\nVERSION:9"},
        {u"a\nEND:VBODY\nb\n", u"a\r\nEND:VBODY\r\nb"},
        {u"END:VBODY\nEND:VENV\nEND:VMSG\nb\n", u"END:VBODY\r\nEND:VENV\r\nEND:VMSG\r\nb"},
        {u"BEGIN:VBODY\nb\n", u"BEGIN:VBODY\r\nb"},
        {u"BEGIN:VMSG\nb\n", u"BEGIN:VMSG\r\nb"},
        {u"\xFEFF\U0001F600\xD800 \xDC00\n", u"\xFEFF\U0001F600\xD800 \xDC00"},
        {u"a\x1B\nb\n", u"a\x1B\r\nb"},
        {u"NOTE;ENCODING=QUOTED-PRINTABLE:=41=\nb\n", u"NOTE;ENCODING=QUOTED-PRINTABLE:=41=\r\nb"},
    };
    for (const BodyRow& row : rows) {
        EXPECT_EQ(read_message(message_text(u"", row.body)).text, row.text)
            << testing::PrintToString(row.body);
    }
}

TEST(MessageReading, TheTextOfASmsProperty) {
    const BodyRow rows[] = {
        {u"X-SMS;TYPE=TEXT;CHARSET=UTF-8:a\nb\n", u"a\r\nb"},
        {u"Date:05.03.2009 14:07:09\r\nX-SMS;TYPE=TEXT;CHARSET=UTF-8:a\r\nb\r\n", u"a\r\nb"},
        {u"X-SMS;TYPE=TEXT:a:b;c=\n", u"a:b;c="},
        {u"X-SMS;TYPE=TEXT:\n", u""},
        {u"X-SMS;TYPE=TEXT:\n\n", u"\r\n"},
        {u"x-sms;type=text:a\n", u"a"},
        {u"X-Sms;Type=Text:a\n", u"a"},
        {u"X-SMS;CHARSET=UTF-8;TYPE=TEXT:a\n", u"a"},
        {u"X-SMS;TYPE=TEXT;CHARSET=UTF-8:QUOTED-PRINTABLE =41=\nBASE64\n",
         u"QUOTED-PRINTABLE =41=\r\nBASE64"},
        {u"X-SMS;TYPE=TEXT:X-SMS;TYPE=TEXT:a\n", u"X-SMS;TYPE=TEXT:a"},
        {u"X-SMS;TYPE=TEXT:Date:05.03.2009 14:07:09\n", u"Date:05.03.2009 14:07:09"},
        // Anything else is text.
        {u"X-SMS:a\n", u"X-SMS:a"},
        {u"X-SMS;TYPE=VOICE:a\n", u"X-SMS;TYPE=VOICE:a"},
        {u"X-SMS;TYPE=TEXT\n:a\n", u"X-SMS;TYPE=TEXT\r\n:a"},
        {u" X-SMS;TYPE=TEXT:a\n", u" X-SMS;TYPE=TEXT:a"},
        {u"a\nX-SMS;TYPE=TEXT:b\n", u"a\r\nX-SMS;TYPE=TEXT:b"},
        {u"TEXT;ENCODING=QUOTED-PRINTABLE:=41\n", u"TEXT;ENCODING=QUOTED-PRINTABLE:=41"},
    };
    for (const BodyRow& row : rows) {
        EXPECT_EQ(read_message(message_text(u"", row.body)).text, row.text)
            << testing::PrintToString(row.body);
    }
}

TEST(MessageReading, AQuotedPrintableTextOverSoftBreaks) {
    const std::u16string head = u"X-SMS;TYPE=TEXT;ENCODING=QUOTED-PRINTABLE";
    const BodyRow rows[] = {
        {u":Caf=C3=A9\n", u"Caf\u00E9"},
        {u":\n", u""},
        {u":a=0D=0Ab\n", u"a\r\nb"},
        {u":a=\nb=\r\nc\n", u"abc"},
        {u":Caf=C3=\n=A9\n", u"Caf\u00E9"},
        {u":a\nb=\nc\n", u"a\r\nbc"},
        {u":a=\n\nb\n", u"a\r\nb"},
        {u":a=\n", u"a"},
        {u":a==\n\nb\n", u"a=\r\nb"},
        {u":=\n=\n=\na\n", u"a"},
        {u":=F0=9F=98=80\n", u"\U0001F600"},
        {u":=C3\n", u"\uFFFD"},
        {u":a=3D=\nTEL:1\n", u"a=TEL:1"},
        {u":=4=G1=\n", u"=4=G1"},
        {u":\u65E5=E6=9C=AC\xD800=41\n", u"\u65E5\u672C\xD800\x41"},
        {u":a=00b\n", std::u16string(u"a\0b", 3)},
        {u";CHARSET=UTF-8:=C3=A9\n", u"\u00E9"},
        {u";CHARSET=:=C3=A9\n", u"\u00E9"},
        {u";CHARSET=ISO-8859-1:=E9\n", u"\u00E9"},
        {u";CHARSET=SHIFT_JIS:=93=FA=96=7B\n", u"\u65E5\u672C"},
        {u";CHARSET=X-OTHER:=C3=A9\n", u"\u00E9"},
    };
    for (const BodyRow& row : rows) {
        EXPECT_EQ(read_message(message_text(u"", head + row.body)).text, row.text)
            << testing::PrintToString(row.body);
    }
    EXPECT_EQ(read_message(message_text(u"", u"X-SMS;TYPE=TEXT;QUOTED-PRINTABLE:=41\n")).text, u"A");
}

TEST(MessageReading, TheTextIsABlockWithAZeroBehindIt) {
    OwnedMessage message;
    ASSERT_EQ(message.read(message_text(u"", u"abc\r\n")), VZ_OK);
    EXPECT_EQ(message.item.textLength, 6U);
    EXPECT_EQ(std::u16string(message.item.text), u"abc");
    ASSERT_EQ(FreeConverterData(VZ_TYPE_MESSAGE, &message.item), VZ_OK);
    ASSERT_EQ(message.read(message_text(u"", u"")), VZ_OK);
    EXPECT_EQ(message.item.textLength, 0U);
    ASSERT_NE(message.item.text, nullptr);
    EXPECT_EQ(message.item.text[0], u'\0');
}

}  // namespace
