// Messages made to be slow, at full size. What they prove is that the result is right and comes at all: a
// reader or writer that is not linear in the text does not come back from any of them.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "vmessage/message_builder.h"

namespace {

using namespace vzapi::test;

std::u16string repeated(std::u16string_view piece, std::size_t times) {
    std::u16string text;
    text.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

std::u16string message_text(const std::u16string& header, const std::u16string& body) {
    return u"BEGIN:VMSG\r\nVERSION:1.1\r\n" + header + u"BEGIN:VENV\r\nBEGIN:VBODY\r\n" + body +
           u"END:VBODY\r\nEND:VENV\r\nEND:VMSG\r\n";
}

TEST(HostileMessage, MegabytesOfText) {
    EXPECT_EQ(read_message(message_text(u"", std::u16string(1 << 20, u'a') + u"\n")).text->size(),
              std::size_t{1} << 20);
    EXPECT_EQ(read_message(message_text(u"", std::u16string(4 << 20, u'\n'))).text,
              repeated(u"\r\n", (4 << 20) - 1));
    EXPECT_EQ(read_message(message_text(u"", repeated(u"END:VBODY\n", 1'000'000))).text->size(),
              std::size_t{11 * 1'000'000 - 2});
}

TEST(HostileMessage, AHundredThousandLinesAndAddresses) {
    const std::u16string card = u"BEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\n";
    EXPECT_EQ(read_message(message_text(repeated(card, 100'000), u"a\n")).numbers.size(), 255U);
    EXPECT_EQ(read_message(message_text(u"BEGIN:VCARD\r\n" + repeated(u"TEL:1\r\n", 100'000), u"a\n"))
                  .numbers.size(),
              255U);
    EXPECT_EQ(read_message(message_text(repeated(u"X-IRMC-STATUS:READ\r\n", 100'000), u"a\n")).status, 5U);
    EXPECT_EQ(read_message(message_text(u"", repeated(u"a\r\n", 100'000))).text->size(), 299'998U);
}

TEST(HostileMessage, AHundredThousandLevels) {
    const std::size_t levels = 100'000;
    EXPECT_EQ(read_message(message_text(repeated(u"BEGIN:VENV\r\n", levels), u"a\n")).text, u"a");
    EXPECT_EQ(
        read_message(message_text(repeated(u"BEGIN:VENV\r\n", levels) + repeated(u"END:VCARD\r\n", levels) +
                                      repeated(u"END:OTHER\r\n", levels),
                                  u"a\n"))
            .text,
        u"a");
    EXPECT_EQ(read_message(message_text(repeated(u"BEGIN:VCARD\r\nBEGIN:VENV\r\nEND:VCARD\r\n", levels) +
                                            repeated(u"END:VENV\r\n", levels),
                                        u"a\n"))
                  .text,
              u"a");
    const std::u16string bodies = repeated(u"BEGIN:VBODY\r\na\r\nEND:VBODY\r\n", levels);
    EXPECT_EQ(read_message(u"BEGIN:VMSG\r\nVERSION:1.1\r\n" + bodies + u"END:VMSG\r\n").text, u"a");
}

TEST(HostileMessage, QuotedPrintableTextOfAMillionPieces) {
    const std::u16string head = u"X-SMS;TYPE=TEXT;ENCODING=QUOTED-PRINTABLE";
    const std::size_t count = 1'000'000;
    EXPECT_EQ(read_message(message_text(u"", head + u":" + repeated(u"=41=\n", count))).text,
              std::u16string(count, u'A'));
    EXPECT_EQ(read_message(message_text(u"", head + u":" + repeated(u"=\n", count))).text, u"");
    EXPECT_EQ(read_message(message_text(u"", head + u":" + repeated(u"=41\u65E5", count) + u"\n")).text,
              repeated(u"A\u65E5", count));
    EXPECT_EQ(read_message(
                  message_text(u"", head + u";CHARSET=SHIFT_JIS:" + repeated(u"=41\u65E5", 100'000) + u"\n"))
                  .text,
              repeated(u"A\u65E5", 100'000));
    EXPECT_EQ(read_message(message_text(u"", u"X-SMS" + repeated(u";A=B", count) + u";TYPE=TEXT:a\n")).text,
              u"a");
}

TEST(HostileMessage, WritingMegabytes) {
    for (const std::u16string_view piece : {u"\r\n", u"\r", u"\n", u"a", u"\xD800"}) {
        const std::u16string text = repeated(piece, 1 << 20);
        EXPECT_GT(written(Message{0, 1, {}, text, {}}).size(), std::size_t{1} << 20);
    }
    Message message{0, 1, {}, u"", {}};
    for (int i = 0; i < 255; ++i) message.numbers.emplace_back(std::u16string(10'000, u'\u65E5'));
    EXPECT_GT(written(message).size(), std::size_t{255} * 90'000);
}

}  // namespace
