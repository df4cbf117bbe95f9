// Record to text to record, in both layouts: equal, but for what the rules themselves lose. Each loss is
// shown by example, and docs/limits.md lists them.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "vmessage/message_builder.h"
#include "vmessage/message_losses.h"

namespace {

using namespace vzapi::test;

constexpr Time kTime{2009, 3, 5, 14, 7, 9};

Message with_text(std::u16string_view text) {
    return {5, 1, {u"+15550100"}, std::u16string(text), kTime};
}

// ---- What comes back.

TEST(MessageRoundTrip, EachKindOfText) {
    const std::u16string texts[] = {
        u"",
        u"Hello",
        u"two\r\nlines",
        u"\r\n",
        u"\r\n\r\n",
        u"ends in a line end\r\n",
        u"a lone \r inside",
        u"\rin front",
        u"  blanks in front",
        u"\tand a tab\r\n \r\n\t",
        u"blanks behind  ",
        u"ends in =",
        u"=\r\n==\r\n=3D",
        u"TEL:1\r\nEND:VCARD\r\nBEGIN:VCARD",
        u"BEGIN:VMSG\r\nVERSION:9\r\nX-MESSAGE-TYPE:SUBMIT\r\nEND:VMSG",
        u"END:VBODY",
        u"a\r\nEND:VBODY\r\nb",
        u"END:VBODY\r\nEND:VENV\r\nEND:VMSG\r\n",
        u"BEGIN:VBODY\r\na",
        u"BEGIN:VBODY\r\na\r\nEND:VBODY",
        u"> END:VBODY\r\n> BEGIN:VBODY",
        u"END:VBODY:\r\nBEGIN:VBODY:",
        u"Date:",
        u"Date:01.01.2000 00:00:00",
        u"Date: tomorrow",
        u"a\r\nX-SMS;TYPE=TEXT:b",
        u"QUOTED-PRINTABLE =41=\r\nBASE64 7BIT",
        u"BEGIN:VBKM",
        u"ends in ESC\x1B\r\n\x1B",
        u"caf\u00E9 \u65E5\u672C \U0001F600\U0001F468\u200D\U0001F469",
        std::u16string(u"\xD800"),
        std::u16string(u"a\xDC00\xD83D b"),
        u"\xFEFF\xFFFE\xFFFF\x01\x7F\x80\x85\u2028",
        std::u16string(1'000, u'x') + u"\r\n" + std::u16string(1'000, u' '),
    };
    for (const Form form : kForms) {
        for (const std::u16string& text : texts) {
            EXPECT_EQ(there_and_back(with_text(text), form), with_text(text));
        }
    }
}

TEST(MessageRoundTrip, EveryUnitComesBack) {
    std::u16string text;
    for (char32_t unit = 1; unit < 0x10000; ++unit) {
        if (unit != u'\n') text.append(u"<").push_back(static_cast<char16_t>(unit));
    }
    for (const Form form : kForms) EXPECT_EQ(there_and_back(with_text(text), form), with_text(text));
}

TEST(MessageRoundTrip, AMegabyteOfText) {
    const std::u16string_view pieces[] = {u"a", u"line\r\n", u"END:VBODY\r\n", u"\U0001F600", u"= \r\n"};
    for (const std::u16string_view piece : pieces) {
        std::u16string text;
        while (text.size() < (std::size_t{1} << 19)) text += piece;
        for (const Form form : kForms) EXPECT_EQ(there_and_back(with_text(text), form), with_text(text));
    }
}

TEST(MessageRoundTrip, EachStatusTypeAndCountOfAddresses) {
    for (std::uint32_t status = 0; status <= 12; ++status) {
        for (std::uint32_t type = 0; type <= 6; ++type) {
            for (const std::size_t count :
                 {std::size_t{0}, std::size_t{1}, std::size_t{3}, std::size_t{255}}) {
                if (count == 255 && status != 0) continue;
                Message message{status, type, {}, u"a", kTime};
                const bool outgoing = type == VZ_MESSAGE_TYPE_SUBMIT;
                for (std::size_t i = 0; i < (outgoing && count > 1 ? 1 : count); ++i) {
                    message.numbers.emplace_back(std::u16string(i, u'7'));
                }
                for (const Form form : kForms) EXPECT_EQ(there_and_back(message, form), message);
            }
        }
    }
}

TEST(MessageRoundTrip, NumbersThatTakeSeveralLines) {
    for (const std::u16string_view name :
         {u"TEL:", u"NICKNAME;", u"a.nickname:", u"X-NICKNAME:", u"END:VBODY"}) {
        for (std::size_t length = 0; length < 80; ++length) {
            const std::u16string number =
                u"\u00E9" + std::u16string(length, u'7') + std::u16string(name) + std::u16string(80, u'8');
            const Message message{5, 1, {number, u"1"}, u"a", kTime};
            EXPECT_EQ(there_and_back(message, Form::Plain), message);
        }
    }
}

TEST(MessageRoundTrip, EachTime) {
    const Time times[] = {{},
                          kTime,
                          {1, 1, 1, 0, 0, 0},
                          {999, 12, 31, 23, 59, 59},
                          {10'000, 1, 1, 0, 0, 0},
                          {65'535, 99, 99, 99, 99, 99},
                          {2009, 0, 0, 0, 0, 0},
                          {2009, 3, 5, 14, 7, 100},  // the line of the body tells it
                          {2009, 3, 5, 255, 255, 255}};
    for (const Time& time : times) {
        for (const Form form : kForms) {
            const Message message{0, 0, {}, u"a", time};
            EXPECT_EQ(there_and_back(message, form), message);
        }
    }
}

// ---- Random records.

class Messages {
public:
    explicit Messages(unsigned seed) : random_(seed) {}

    Message message() {
        Message message;
        message.status = below(16);
        message.type = below(16);
        message.time = below(4) == 0 ? Time{} : time();
        for (unsigned count = addresses(); count > 0; --count) message.numbers.push_back(number());
        if (below(10) != 0) message.text = text();
        return message;
    }

private:
    unsigned below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(random_); }

    unsigned addresses() { return below(200) == 0 ? 255 : below(5); }

    std::uint8_t field() { return static_cast<std::uint8_t>(below(20) == 0 ? below(256) : below(100)); }

    Time time() {
        const auto year = static_cast<std::uint16_t>(below(3) == 0 ? below(65'536) : 1990 + below(50));
        return {year, field(), field(), field(), field(), field()};
    }

    template <std::size_t Count>
    std::u16string pieces(const std::u16string_view (&pieces)[Count], unsigned most) {
        std::u16string text;
        for (unsigned count = below(most); count > 0; --count) text += pieces[below(Count)];
        return text;
    }

    WideText number() {
        static constexpr std::u16string_view kPieces[] = {u"+",
                                                          u"4",
                                                          u"49 ",
                                                          u"(0)",
                                                          u"=",
                                                          u"=41",
                                                          u":",
                                                          u";",
                                                          u"\\",
                                                          u" ",
                                                          u"\t",
                                                          u"\r",
                                                          u"\n",
                                                          u"\r\n",
                                                          u"\x1B",
                                                          u"é",
                                                          u"\u65E5",
                                                          u"\U0001F600",
                                                          u"TEL:",
                                                          u"7BIT",
                                                          u"ENCODING",
                                                          u"BASE64",
                                                          u"DATE",
                                                          u"END:VENV",
                                                          u"BEGIN:VBKM",
                                                          u"END:VCARD",
                                                          u"QUOTED-PRINTABLE",
                                                          u"quoted-printable",
                                                          u"BEGIN:VBODY"};
        if (below(10) == 0) return std::nullopt;
        std::u16string number = pieces(kPieces, below(2) == 0 ? 3 : 20);
        if (below(2) == 0) std::erase_if(number, [](char16_t unit) { return unit == u'='; });
        return number;
    }

    std::u16string text() {
        static constexpr std::u16string_view kPieces[] = {
            u"a",
            u"Hello",
            u" ",
            u"\t",
            u"\r",
            u"\n",
            u"\r\n",
            u"\r\n",
            u"\r\n",
            u"=",
            u"=41",
            u":",
            u";",
            u"\x1B",
            u"END:VBODY",
            u"end:vbody \t",
            u"BEGIN:VBODY",
            u"BEGIN:VMSG",
            u"END:VMSG",
            u"BEGIN:VENV",
            u"END:VENV",
            u"BEGIN:VCARD",
            u"TEL:1",
            u"END:VCARD",
            u"VERSION:9",
            u"X-MESSAGE-TYPE:SUBMIT",
            u"X-NRD-DT:20090305T140709Z",
            u"Date:",
            u"Date:05.03.2009 14:07:09",
            u"X-SMS",
            u";TYPE=TEXT",
            u"X-SMS;TYPE=TEXT:",
            u"X-SMS;TYPE=TEXT;ENCODING=QUOTED-PRINTABLE:",
            u"QUOTED-PRINTABLE",
            u"BASE64",
            u"BEGIN:VBKM",
            u"\u00E9",
            u"\u65E5",
            u"\U0001F600",
            u"\xD800",
            u"\xDC00",
            u"\xFEFF",
            u"\xFFFF",
            u"\x01",
            u"\x7F",
        };
        std::u16string text = pieces(kPieces, 12);
        if (below(50) == 0) text.insert(below(static_cast<unsigned>(text.size()) + 1), 1, u'\0');
        if (below(20) == 0) text.append(below(2000), u'x');
        return text;
    }

    std::mt19937 random_;
};

TEST(MessageRoundTrip, RandomRecordsComeBack) {
    Messages messages(1234);
    std::size_t compared = 0;
    constexpr int kRecords = 20'000;
    for (int i = 0; i < kRecords; ++i) {
        const Message message = messages.message();
        for (const Form form : kForms) {
            const Message back = there_and_back(message, form);
            if (!comes_back(message, form)) continue;
            ++compared;
            ASSERT_EQ(back, after_the_trip(message, form)) << i << " " << testing::PrintToString(message);
        }
    }
    EXPECT_GT(compared, std::size_t{kRecords}) << "half of them, at the least, lose nothing untold";
}

TEST(MessageRoundTrip, RandomTextsComeBackWhateverTheyDoToTheMessage) {
    Messages messages(4321);
    for (int i = 0; i < 20'000; ++i) {
        Message message = messages.message();
        message.numbers.clear();
        const std::u16string text = message.text.value_or(u"");
        for (const Form form : kForms) {
            const bool is_told = form == Form::Extended || !looks_extended(text);
            // An envelope or a body of the text's own may lie deeper than ours.
            if (!is_told || ends_its_body(text, form)) continue;
            ASSERT_EQ(there_and_back(message, form).text, text_after_the_trip(text, form)) << i;
        }
    }
}

// ---- The losses, each by example: just that is lost, and the rest of the message stays.

struct LossRow {
    std::u16string text;
    std::u16string back;
};

TEST(MessageLimits, LineEndsOtherThanCrLf) {
    const LossRow rows[] = {
        {u"a\nb", u"a\r\nb"},     {u"\n", u"\r\n"},         {u"a\n\nb", u"a\r\n\r\nb"},
        {u"a\n\rb", u"a\r\n\rb"}, {u"a\r\r\nb", u"a\r\nb"}, {u"a\r\r\r\nb", u"a\r\r\nb"},
        {u"a\r", u"a"},           {u"a\r\r", u"a\r"},       {u"\r", u""},
    };
    for (const Form form : kForms) {
        for (const LossRow& row : rows) {
            EXPECT_EQ(there_and_back(with_text(row.text), form), with_text(row.back));
            EXPECT_EQ(text_after_the_trip(row.text, form), row.back);
        }
    }
}

TEST(MessageLimits, ATextEndsAtItsNul) {
    const LossRow rows[] = {
        {std::u16string(u"a\0b", 3), u"a"},
        {std::u16string(u"\0", 1), u""},
        {std::u16string(u"a\r\nb\0c\r\nd", 10), u"a\r\nb"},
        {std::u16string(u"a\r\n\0b", 5), u"a"},
        {std::u16string(u"a\r\0b", 4), u"a\r"},
    };
    for (const Form form : kForms) {
        for (const LossRow& row : rows) {
            EXPECT_EQ(there_and_back(with_text(row.text), form), with_text(row.back));
        }
    }
}

TEST(MessageLimits, AQuotedBodyEndsTheText) {
    const LossRow rows[] = {
        {u"a\r\nEND:VBODY\r\nb\r\nBEGIN:VBODY\r\nc", u"a"},
        {u"END:VBODY\r\nBEGIN:VBODY", u""},
        {u"a\r\nend:vbody \t\r\nBegin:VBody\r\nc", u"a"},
        {u"a\r\nEND:VBODY\r\nb\r\nEND:VBODY\r\nBEGIN:VBODY\r\nc", u"a\r\nEND:VBODY\r\nb"},
    };
    for (const Form form : kForms) {
        for (const LossRow& row : rows) {
            const std::u16string text = u"Look:\r\n" + row.text;
            const std::u16string back = row.back.empty() ? u"Look:" : u"Look:\r\n" + row.back;
            EXPECT_EQ(there_and_back(with_text(text), form), with_text(back));
        }
    }
}

TEST(MessageLimits, WhatFollowsAQuotedBodyMayBeReadAsTheMessages) {
    const std::u16string quoted =
        u"a\r\nEND:VBODY\r\nBEGIN:VCARD\r\nTEL:666\r\nEND:VCARD\r\nEND:VENV\r\nX-IRMC-STATUS:SENT\r\n"
        u"BEGIN:VENV\r\nBEGIN:VENV\r\nBEGIN:VBODY\r\nb";
    for (const Form form : kForms) {
        EXPECT_EQ(there_and_back(with_text(quoted), form),
                  (Message{2, 1, {u"+15550100", u"666"}, u"b", kTime}));
    }
}

TEST(MessageLimits, InThePlainFormALineOfTheExtendedForm) {
    const LossRow rows[] = {
        {u"X-SMS;TYPE=TEXT:a\r\nb", u"a\r\nb"},
        {u"X-SMS;TYPE=TEXT;CHARSET=UTF-8:", u""},
        {u"x-sms;other;type=text:a", u"a"},
        {u"X-SMS;TYPE=TEXT;ENCODING=QUOTED-PRINTABLE:=41=\r\nb", u"Ab"},
    };
    for (const LossRow& row : rows) {
        EXPECT_TRUE(looks_extended(row.text));
        EXPECT_EQ(there_and_back(with_text(row.text), Form::Plain), with_text(row.back));
        EXPECT_EQ(there_and_back(with_text(row.text), Form::Extended), with_text(row.text));
    }
}

TEST(MessageLimits, NoTextComesBackAsAnEmptyOne) {
    for (const Form form : kForms) {
        EXPECT_EQ(there_and_back(Message{5, 1, {u"1"}, std::nullopt, kTime}, form),
                  (Message{5, 1, {u"1"}, u"", kTime}));
    }
}

TEST(MessageLimits, TheUnitThatAnOddLengthCutsInHalf) {
    MessageRecord record(with_text(u"ab"));
    record.item.textLength = 3;
    EXPECT_EQ(read_message(written(record.item)), with_text(u"a"));
}

TEST(MessageLimits, CodesWithoutAWord) {
    for (const Form form : kForms) {
        EXPECT_EQ(there_and_back(Message{13, 1, {u"1"}, u"a", kTime}, form),
                  (Message{0, 1, {u"1"}, u"a", kTime}));
        EXPECT_EQ(there_and_back(Message{5, 7, {u"1"}, u"a", kTime}, form),
                  (Message{5, 0, {u"1"}, u"a", kTime}));
        EXPECT_EQ(there_and_back(Message{15, 15, {}, u"a", kTime}, form), (Message{0, 0, {}, u"a", kTime}));
    }
}

TEST(MessageLimits, FlagsBesideStatusAndTypeAndReservedMembers) {
    MessageRecord record(with_text(u"a"));
    record.item.flags |= 0xFFFF0022;
    record.item.timestamp.reserved = 7;
    record.item.timestamp.unused[8] = 7;
    record.addresses[0].reserved = 7;
    EXPECT_EQ(read_message(written(record.item)), with_text(u"a")) << "read_message() looks at all of them";
}

TEST(MessageLimits, RecipientsBehindTheFirst) {
    for (const Form form : kForms) {
        EXPECT_EQ(there_and_back(Message{2, 3, {u"1", u"2", u"3"}, u"a", kTime}, form),
                  (Message{2, 3, {u"1"}, u"a", kTime}));
        EXPECT_EQ(there_and_back(Message{2, 3, {std::nullopt, u"2"}, u"a", kTime}, form),
                  (Message{2, 3, {}, u"a", kTime}));
    }
}

TEST(MessageLimits, AddressesWithoutANumber) {
    for (const Form form : kForms) {
        EXPECT_EQ(there_and_back(Message{5, 1, {std::nullopt, u"2", std::nullopt, u""}, u"a", kTime}, form),
                  (Message{5, 1, {u"2", u""}, u"a", kTime}));
    }
}

TEST(MessageLimits, NumbersAsTheValuesOfAnyProperty) {
    const LossRow rows[] = {
        {u"1=", u"1"},
        {u"1\x1B", u"1"},
        {u"QUOTED-PRINTABLE=41", u"QUOTED-PRINTABLEA"},
        {u"BASE64", std::u16string(u"\x04\x04\xFFFD\xFFFD")},
        {u"\u00E7BIT", u"=C3=A7BIT"},
        {std::u16string(u"1\xD800"), u"1\uFFFD"},
    };
    for (const Form form : kForms) {
        for (const LossRow& row : rows) {
            EXPECT_EQ(there_and_back(Message{5, 1, {u"0", row.text, u"2"}, u"a", kTime}, form),
                      (Message{5, 1, {u"0", row.back, u"2"}, u"a", kTime}));
        }
    }
}

TEST(MessageLimits, AMentionOfABookmarkCutsLongEncodedNumbers) {
    const std::u16string number = std::u16string(20, u'\u00E9');
    for (const Form form : kForms) {
        Message message{5, 1, {u"1", number}, u"a BEGIN:VBKM b", kTime};
        const Message back = there_and_back(message, form);
        EXPECT_EQ(back.numbers[1], number.substr(0, 5));
        message.numbers[1] = back.numbers[1];
        EXPECT_EQ(back, message);
    }
}

TEST(MessageLimits, TheRestOfATimeWithoutAYear) {
    for (const Form form : kForms) {
        EXPECT_EQ(there_and_back(Message{5, 1, {}, u"a", {0, 3, 5, 14, 7, 9}}, form),
                  (Message{5, 1, {}, u"a", {}}));
    }
}

TEST(MessageLimits, ADateWithThreeDigitsIsAnother) {
    const struct {
        Time time;
        Time back;
    } rows[] = {
        {{2009, 200, 5, 14, 7, 9}, {20'092, 0, 5, 14, 7, 9}},
        {{2009, 3, 105, 14, 7, 9}, {20'090, 31, 5, 14, 7, 9}},
    };
    for (const auto& row : rows) {
        for (const Form form : kForms) {
            EXPECT_EQ(there_and_back(Message{5, 1, {}, u"a", row.time}, form),
                      (Message{5, 1, {}, u"a", row.back}));
        }
    }
}

}  // namespace
