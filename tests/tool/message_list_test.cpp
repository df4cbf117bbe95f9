#include "vzconv/message_list.h"

#include <gtest/gtest.h>

#include "vzconv/message_parts.h"
#include "vzconv/message_time.h"

namespace vzconv {
namespace {

struct Row {
    const char* time;  // null: none
    uint32_t type;
    uint32_t status;
    std::vector<std::u16string> numbers;
    const char16_t* text;
    const char* place;
};

std::string list_of(std::initializer_list<Row> rows) {
    MessageList list;
    for (const Row& row : rows) {
        MessageRecord record;
        if (row.time != nullptr) record.set_time(message_time_of(row.time).value());
        record.set_type(row.type);
        record.set_status(row.status);
        for (const std::u16string& number : row.numbers) record.add_number(number);
        record.set_text(row.text);
        list.add(record.item(), row.place);
    }
    return list.text();
}

TEST(MessageList, TheOldestStandsFirstAndWhatHasNoDateLast) {
    EXPECT_EQ(
        list_of({
            {nullptr, VZ_MESSAGE_TYPE_NONE, 0, {}, u"", "a:1"},
            {"2009-03-05T14:07:09", VZ_MESSAGE_TYPE_DELIVER, VZ_MESSAGE_STATUS_UNREAD, {u"1"}, u"b", "b:1"},
            {"2009-03-05T14:07:08",
             VZ_MESSAGE_TYPE_SUBMIT,
             VZ_MESSAGE_STATUS_SENT,
             {u"22", u"3"},
             u"c\r\nd",
             "c:1"},
            {"2009-03-05T14:07:09", VZ_MESSAGE_TYPE_DELIVER, 0, {u""}, u"e", "d:1"},
            {"10000-01-01", VZ_MESSAGE_TYPE_DELIVER, 0, {u"4\n5"}, u"f", "e:1"},
        }),
        "2009-03-05 14:07:08   out  22 and 1 more  sent    c d  c:1\n"
        "2009-03-05 14:07:09   in   1              unread  b    b:1\n"
        "2009-03-05 14:07:09   in   no number      -       e    d:1\n"
        "10000-01-01 00:00:00  in   4 5            -       f    e:1\n"
        "no date               -    -              -            a:1\n");
}

TEST(MessageList, LongTextsAreCutAtACharacter) {
    const std::u16string fifty(50, u'\x00E9');
    const std::string out = list_of({{nullptr, 0, 0, {}, fifty.c_str(), "a"}});
    EXPECT_NE(out.find("\xC3\xA9  a\n"), std::string::npos) << out;
    const std::string cut = list_of({{nullptr, 0, 0, {}, (fifty + u'z').c_str(), "a"}});
    std::string expected = "no date  -  -  -  ";
    for (int i = 0; i < 47; ++i) expected += "\xC3\xA9";
    EXPECT_EQ(cut, expected + "...  a\n");
}

TEST(MessageList, ControlCharactersDoNotReachTheTerminal) {
    EXPECT_EQ(list_of({{nullptr, 0, 0, {u"\x001B[1m"}, u"\x0007", "a"}}),
              "no date  -  \xE2\x90\x9B[1m  -  \xE2\x90\x87  a\n");
}

TEST(MessageList, NoMessagesAreNoLines) {
    EXPECT_EQ(MessageList().text(), "");
}

}  // namespace
}  // namespace vzconv
