// TEL, X-SIP and X-ASSISTANT-TEL to the fields of the phones list, and the SIP addresses of the other list.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vcard/owned_contact.h"

namespace vzapi::test {
namespace {

struct PhoneCase {
    std::vector<std::string> words;
    std::string expected;  // list, id, star
};

const PhoneCase kTel[] = {
    {{}, "P32"},
    {{"VOICE"}, "P32"},
    {{"HOME"}, "P33"},
    {{"WORK"}, "P34"},
    {{"HOME", "VOICE"}, "P33"},
    {{"WORK", "VOICE"}, "P34"},
    {{"CELL"}, "P64"},
    {{"CELL", "VOICE"}, "P64"},
    {{"HOME", "CELL"}, "P65"},
    {{"WORK", "CELL"}, "P66"},
    {{"PREF"}, "P35*"},
    {{"PREF", "VOICE"}, "P35*"},
    {{"CAR"}, "P36"},
    {{"CAR", "VOICE"}, "P36"},
    {{"MODEM"}, "P37"},
    {{"PAGER"}, "P48"},
    {{"FAX"}, "P80"},
    {{"HOME", "FAX"}, "P81"},
    {{"WORK", "FAX"}, "P82"},
    {{"VIDEO"}, "P96"},
    {{"HOME", "VIDEO"}, "P97"},
    {{"WORK", "VIDEO"}, "P98"},
    {{"VOIP"}, "P112"},
    {{"HOME", "VOIP"}, "P113"},
    {{"WORK", "VOIP"}, "P114"},
    // Words beyond the exact forms.
    {{"HOME", "CELL", "VOICE"}, "P65"},
    {{"WORK", "CELL", "VOICE"}, "P66"},
    {{"HOME", "FAX", "VOICE"}, "P81"},
    {{"HOME", "MODEM"}, "P37"},
    {{"WORK", "PAGER"}, "P48"},
    {{"HOME", "CAR"}, "P36"},
    {{"HOME", "WORK"}, "P33"},
    {{"HOME", "WORK", "CELL"}, "P65"},
    {{"PAGER", "MODEM"}, "P48"},
    {{"MODEM", "CAR"}, "P37"},
    {{"CAR", "FAX"}, "P36"},
    {{"FAX", "VIDEO"}, "P80"},
    {{"VIDEO", "VOIP"}, "P96"},
    {{"VOIP", "CELL"}, "P112"},
    {{"CELL", "MSG"}, "P64"},
    {{"MSG"}, "P32"},
    {{"ISDN", "VOICE"}, "P32"},
    {{"CELLULAR"}, "P32"},
    // PREF marks the number, whatever it is.
    {{"PREF", "CELL"}, "P64*"},
    {{"PREF", "HOME"}, "P33*"},
    {{"PREF", "HOME", "VOICE"}, "P33*"},
    {{"PREF", "WORK", "FAX"}, "P82*"},
    {{"PREF", "MSG"}, "P32*"},
    {{"PREF", "MSG", "VOICE"}, "P32*"},
};

struct Style {
    const char* before;
    const char* between;
    const char* after;
};

// The ways to write a list of words.
constexpr Style kStyles[] = {
    {";", ";", ""},
    {";TYPE=", ",", ""},
    {";TYPE=", ";TYPE=", ""},
    {";type=", ";Type=", ""},
    {";", ",", ""},
    {";TYPE=\"", ",", "\""},
    {";TYPE=\"", "\",\"", "\""},
    {";TYPE=\" ", " , ", " \""},
    {"; ", " ; ", " "},
    {"; TYPE = ", " , ", " "},
    {";ENCODING=8BIT;", ";", ";CHARSET=UTF-8"},
    {";CHARSET=UTF-8;TYPE=", ",", ";QUOTED-PRINTABLE"},
};

std::string parameters(const std::vector<std::string>& words, const Style& style) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? style.before : style.between) + word;
    return words.empty() ? text : text + style.after;
}

std::string in_lower_case(std::string text) {
    for (char& unit : text) {
        if (unit >= 'A' && unit <= 'Z') unit = static_cast<char>(unit - 'A' + 'a');
    }
    return text;
}

void expect_phone(const std::string& line, const std::string& expected) {
    EXPECT_EQ(read_lines(line), expected + " 12\n") << line;
}

TEST(ContactReaderPhones, EachListOfWordsGivesItsFieldInEveryOrderAndStyle) {
    for (const PhoneCase& row : kTel) {
        const std::vector<std::string> forward = row.words;
        const std::vector<std::string> backward(forward.rbegin(), forward.rend());
        for (const Style& style : kStyles) {
            for (const auto& words : {forward, backward}) {
                const std::string text = parameters(words, style);
                expect_phone("TEL" + text + ":12", row.expected);
            }
        }
        expect_phone("tel" + in_lower_case(parameters(forward, kStyles[1])) + ":12", row.expected);
        expect_phone("Tel" + in_lower_case(parameters(backward, kStyles[0])) + ":12", row.expected);
    }
}

const PhoneCase kSip[] = {
    {{"VOIP"}, "P112"},         {{"VOIP", "HOME"}, "P113"},
    {{"VOIP", "WORK"}, "P114"}, {{"VOIP", "HOME", "WORK"}, "P113"},
    {{"VOIP", "POC"}, "P112"},  {{"VOIP", "PREF"}, "P112*"},
    {{"POC"}, "A288"},          {{"POC", "HOME"}, "A288"},
    {{"SWIS"}, "A289"},         {{"SWIS", "PREF"}, "A289*"},
    {{"POC", "SWIS"}, "A288"},  {{}, "A304"},
    {{"PREF"}, "A304*"},        {{"HOME"}, "A304"},
};

TEST(ContactReaderPhones, SipAddressesGoToTheListThatTheirWordsTell) {
    for (const PhoneCase& row : kSip) {
        for (const Style& style : kStyles)
            expect_phone("X-SIP" + parameters(row.words, style) + ":12", row.expected);
    }
}

TEST(ContactReaderPhones, AssistantIsAFieldOfItsOwn) {
    expect_phone("X-ASSISTANT-TEL:12", "P115");
    expect_phone("X-ASSISTANT-TEL;PREF:12", "P115*");
    expect_phone("X-ASSISTANT-TEL;TYPE=pref:12", "P115*");
    expect_phone("X-ASSISTANT-TEL;CELL;HOME:12", "P115");
}

TEST(ContactReaderPhones, HomeAndVoiceInBothOrdersAreTheHomeNumber) {
    expect_phone("TEL;HOME;VOICE:12", "P33");
    expect_phone("TEL;VOICE;HOME:12", "P33");
}

TEST(ContactReaderPhones, PreferredMobileNumber) {
    EXPECT_EQ(read_lines("TEL;PREF;CELL:1"), "P64* 1\n");
}

TEST(ContactReaderPhones, PrefWithAValueIsPref) {
    expect_phone("TEL;CELL;PREF=1:12", "P64*");
}

TEST(ContactReaderPhones, NamesOfEncodingsAreNoTypes) {
    expect_phone("TEL;PREF;7BIT:12", "P35*");
    expect_phone("TEL;8bit;PREF:12", "P35*");
    expect_phone("TEL;PREF;BASE64:MTI", "P35*");
    expect_phone("TEL;PREF;QUOTED-PRINTABLE:=312", "P35*");
    expect_phone("TEL;PREF;UUENCODE:12", "P32*");
}

TEST(ContactReaderPhones, OtherParametersAreNoTypes) {
    expect_phone("TEL;X-KIND=HOME:12", "P32");
    expect_phone("TEL;X-KIND=PREF:12", "P32");
}

TEST(ContactReaderPhones, NumbersStayInTheOrderOfTheLines) {
    EXPECT_EQ(read_lines("TEL;WORK:1\r\nTEL;HOME:2\r\nX-SIP;VOIP:3\r\nTEL;HOME:2"),
              "P34 1\nP33 2\nP112 3\nP33 2\n");
}

TEST(ContactReaderPhones, EmptyNumberIsNoEntry) {
    EXPECT_EQ(read_lines("TEL;VOICE:\r\nTEL:\r\nX-SIP:\r\nX-ASSISTANT-TEL:"), "");
}

TEST(ContactReaderPhones, GroupPrefixMakesALineUnknown) {
    EXPECT_EQ(read_lines("item1.TEL;HOME:1\r\nTEL:2"), "P32 2\n");
}

TEST(ContactReaderPhones, ParametersWithoutWordsAreNone) {
    for (const char* line : {"TEL;:12", "TEL;;:12", "TEL;TYPE=:12", "TEL;=:12", "TEL;,,:12", "TEL;\":12",
                             "TEL;TYPE=\"\":12", "TEL;=HOME:12"}) {
        EXPECT_NE(read_lines(line), "") << line;
    }
    expect_phone("TEL;;;:12", "P32");
    expect_phone("TEL;TYPE=:12", "P32");
    EXPECT_EQ(read_lines("TEL;;PREF;:12"), "P35* 12\n");
}

}  // namespace
}  // namespace vzapi::test
