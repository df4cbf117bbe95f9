// vCard text to ContactItem: versions, the general and extended fields, and texts of every brokenness.
#include "vcard/contact_reader.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

#include "support/environment.h"
#include "support/failing_allocations.h"
#include "vcard/owned_contact.h"

namespace vzapi::test {
namespace {

const std::string kInvalid = "result " + std::to_string(VZ_ERR_INVALID_TEXT);

struct TextCase {
    std::string text;
    std::string expected;
};

TEST(ContactReader, TakesVersions21And30Only) {
    const TextCase cases[] = {
        {card("TEL:1", "2.1"), "P32 1\n"},
        {card("TEL:1", "3.0"), "P32 1\n"},
        {"begin:vcard\r\nversion:2.1\r\ntel:1\r\nend:vcard\r\n", "P32 1\n"},
        {"BEGIN: VCard \r\nTEL:1\r\nVERSION:2.1\r\n", "P32 1\n"},
        {card("TEL:1", "4.0"), kInvalid},
        {card("TEL:1", "2.1 "), kInvalid},
        {card("TEL:1", " 3.0"), kInvalid},
        {card("TEL:1", "2.10"), kInvalid},
        {card("TEL:1", ""), kInvalid},
        {"BEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\n", kInvalid},
        {"BEGIN:VCALENDAR\r\nVERSION:2.1\r\nTEL:1\r\nEND:VCALENDAR\r\n", kInvalid},
        {"BEGIN:VCALENDAR\r\n" + card("TEL:1"), kInvalid},
        {"VERSION:2.1\r\nTEL:1\r\n", kInvalid},
        {"VERSION:2.1\r\nBEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\n", kInvalid},
        {"BEGIN:VCARD\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nEND:VCARD\r\nEND:VCARD\r\n", kInvalid},
        {"BEGIN:VCARD\r\nVERSION:4.0\r\nVERSION:2.1\r\nEND:VCARD\r\n", kInvalid},
        {"", kInvalid},
    };
    for (const TextCase& row : cases) EXPECT_EQ(read_text(row.text), row.expected) << row.text;
}

TEST(ContactReader, AnotherVersionFillsNothing) {
    OwnedContact contact;
    EXPECT_EQ(contact.read(card("N:a;b\r\nTEL:1", "4.0")), VZ_ERR_INVALID_TEXT);
    ContactItem expected;
    std::memset(&expected, 0, sizeof expected);
    expected.size = 64;
    EXPECT_EQ(std::memcmp(&contact.item, &expected, sizeof expected), 0);
}

TEST(ContactReader, AFailedReadLeavesWhatTheRecordHolds) {
    ContactItem item;
    std::memset(&item, 0xA5, sizeof item);
    const ContactItem before = item;
    const versit::VersitObject object = versit::parse(card("TEL:1", "4.0"));
    EXPECT_THROW(vcard::read_contact(object, &item, {}), ResultCode);
    EXPECT_EQ(std::memcmp(&item, &before, sizeof item), 0);
}

TEST(ContactReader, SetsTheListsFreshWhateverTheyHeld) {
    ContactItem item;
    std::memset(&item, 0xA5, sizeof item);
    item.size = 48;
    vcard::read_contact(versit::parse(card("TEL:1")), &item, {});
    EXPECT_EQ(item.size, 48U);
    EXPECT_EQ(show(item), "P32 1\n");
    EXPECT_EQ(item.general, nullptr);
    EXPECT_EQ(item.addresses, nullptr);
    EXPECT_EQ(item.extended, nullptr);
    vcard::release_contact(&item, {});
}

const TextCase kLines[] = {
    // Names.
    {"N:a;b;c;d;e", "G1 a\nG2 b\nG3 c\nG4 d\nG5 e\n"},
    {"N:a;b;c;d;e;f", "G1 a\nG2 b\nG3 c\nG4 d\nG5 e\nG6 f\n"},
    {"N:a;b;c;d;e;f;g;h", "G1 a\nG2 b\nG3 c\nG4 d\nG5 e\nG6 f\n"},
    {"N:;b;;;", "G2 b\n"},
    {"N:a", "G1 a\n"},
    {"N:", ""},
    {"N:;;;;", ""},
    {"N:a\\;b\\\\;c", "G1 a;b\\\nG2 c\n"},
    {"N:a\\,b\\nc", "G1 a\\,b\\nc\n"},
    {"N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BCller;a=3Bb;c\\;d",
     "G1 M\xC3\xBCller\nG2 a;b\nG3 c;d\n"},
    {"N;CHARSET=ISO-8859-1:M\xFCller;X", "G1 M\xC3\xBCller\nG2 X\n"},
    {"N;CHARSET=\"ISO-8859-1\":M\xFCller", "G1 M\xC3\xBCller\n"},
    {"N;CHARSET=X-OWN:M\xC3\xBCller", "G1 M\xC3\xBCller\n"},
    {"N;CHARSET=UTF-8:\xF0\x9F\x98\x80;b", "G1 \xF0\x9F\x98\x80\nG2 b\n"},
    // Shift_JIS, whose second bytes may be 0x5C: U+8868 is 95 5C, U+30BD 83 5C.
    {"N;CHARSET=SHIFT_JIS:\x95\x5C;\x83\x5C", "G1 \xE8\xA1\xA8\nG2 \xE3\x82\xBD\n"},
    {"N;CHARSET=shift_jis;ENCODING=QUOTED-PRINTABLE:=95=5C;=83=5C", "G1 \xE8\xA1\xA8\nG2 \xE3\x82\xBD\n"},
    {"N;CHARSET=SHIFT_JIS;ENCODING=QUOTED-PRINTABLE:=95\\;=83\\;c",
     "G1 \xE8\xA1\xA8\nG2 \xE3\x82\xBD\nG3 c\n"},
    {"N;CHARSET=SHIFT_JIS;ENCODING=QUOTED-PRINTABLE:a\\;b;=95=5C", "G1 a;b\nG2 \xE8\xA1\xA8\n"},
    {"FN:Full Name", "G12 Full Name\n"},
    {"FN:a;b\\;c", "G12 a;b\\;c\n"},
    {"FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=0D=0Ab", "G12 a\r\nb\n"},
    {"FN;ENCODING=QUOTED-PRINTABLE:a=00b", "G12 a\n"},
    {"FN;ENCODING=QUOTED-PRINTABLE:=00b", ""},
    {"FN:", ""},
    {"FN;PREF:a", "G12* a\n"},
    {"FN:a\r\nFN:b", "G12 a\nG12 b\n"},
    {"X-EPOCSECONDNAME:Second", "G11 Second\n"},
    {"X-NICKNAME:Nick", "G11 Nick\n"},
    {"X-NICKNAME:Nick\r\nX-EPOCSECONDNAME:Second", "G11 Second\n"},
    {"X-EPOCSECONDNAME:Second\r\nX-NICKNAME:Nick", "G11 Second\n"},
    {"X-NICKNAME:Nick\r\nX-EPOCSECONDNAME:", "G11 Nick\n"},
    {"NICKNAME:Nick", ""},
    // Sounds.
    {"SOUND;X-IRMC-N:a;b", "G13 a\nG14 b\n"},
    {"SOUND;X-IRMC-N:a;b;c;;", "G13 a\nG14 b\n"},
    {"SOUND;TYPE=x-irmc-n:a\\;b", "G13 a;b\n"},
    {"SOUND;X-IRMC-N;ENCODING=QUOTED-PRINTABLE:a=3Bb;c", "G13 a;b\nG14 c\n"},
    {"SOUND;X-IRMC-ORG:a;b", "G15 a;b\n"},
    {"SOUND;X-IRMC-ORG;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9", "G15 \xC3\xA9\n"},
    {"SOUND;WAVE;BASE64:QUJD", ""},
    // Organisation.
    {"ORG:Company;Department", "G7 Company\nG20 Department\n"},
    {"ORG:Company", "G7 Company\n"},
    {"ORG:;Department", "G20 Department\n"},
    {"ORG:Company;Department;Office", "G7 Company\nG20 Department\n"},
    {"ORG:a\\;b;c", "G7 a;b\nG20 c\n"},
    {"ORG:", ""},
    {"TITLE:Manager", "G8 Manager\n"},
    {"ROLE:Lead", "G8 Lead\n"},
    {"ROLE:Lead\r\nTITLE:Manager", "G8 Manager\n"},
    {"TITLE:Manager\r\nROLE:Lead", "G8 Manager\n"},
    {"TITLE:\r\nROLE:Lead", "G8 Lead\n"},
    {"X-SPOUSE:a", "G16 a\n"},
    {"X-CHILDREN:a, b", "G17 a, b\n"},
    {"X-ASSISTANT:a", "G18 a\n"},
    // Dates.
    {"BDAY:20010203", "G9 2001-02-03\n"},
    {"BDAY:2001-02-03", "G9 2001-02-03\n"},
    {"BDAY:20010203T040506Z", "G9 2001-02-03 04:05:06\n"},
    {"X-ANNIVERSARY:2001-02-03T04:05:06", "G19 2001-02-03 04:05:06\n"},
    {"BDAY;ENCODING=QUOTED-PRINTABLE:=32001-02-03", "G9 2001-02-03\n"},
    {"BDAY;VALUE=date:2001-02-03", "G9 2001-02-03\n"},
    {"BDAY;PREF:2001-02-03\r\nX-ANNIVERSARY;TYPE=pref:20010203", "G9* 2001-02-03\nG19* 2001-02-03\n"},
    {"BDAY:", ""},
    {"X-ANNIVERSARY:", ""},
    {"BDAY:20010229", ""},
    {"BDAY:some day", ""},
    // Extended.
    {"NOTE:a note", "E512 a note\n"},
    {"NOTE:a\nb", "E512 a\nb\n"},
    {"NOTE:see 8BIT docs", "E512 see 8BIT docs\n"},
    {"NOTE:a=3Db", "E512 a=3Db\n"},
    {"NOTE;ENCODING=X-FOO:abc", "E512 abc\n"},
    {"NOTE;ENCODING=BASE64:SGVsbG8=", "E512 Hello\n"},
    {"NOTE;QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9", "E512 \xC3\xA9\n"},
    {"NOTE:one\r\nNOTE:two", "E512 one\nE512 two\n"},
    {"NOTE;PREF:one\r\nUID;PREF:two", "E512* one\nE514* two\n"},
    {"NOTE:", ""},
    {"X-DTMF:1p2", "E513 1p2\n"},
    {"UID:42", "E514 42\n"},
    {"X-WV-ID:wv:a@example.com", "E515 wv:a@example.com\n"},
    {"GEO:1.5;2.5", "E517 1.5;2.5\n"},
    {"CLASS:PRIVATE", "E516/4 1\n"},
    {"CLASS:PUBLIC", "E516/4 2\n"},
    {"CLASS:NONE", "E516/4 3\n"},
    {"X-CLASS:none ", "E516/4 3\n"},
    {"CLASS:PRIVATE\r\nX-CLASS:PRIVATE", "E516/4 1\n"},
    {"X-CLASS:PUBLIC\r\nCLASS:PRIVATE", "E516/4 2\n"},
    {"CLASS;PREF:PRIVATE", "E516*/4 1\n"},
    {"CLASS:CONFIDENTIAL", ""},
    {"CLASS:CONFIDENTIAL\r\nX-CLASS:PRIVATE", "E516/4 1\n"},
    {"CLASS:", ""},
    {"X-GENDER:MALE", "E521/4 1\n"},
    {"X-GENDER:female", "E521/4 2\n"},
    {"X-GENDER:Undefined", "E521/4 3\n"},
    {"X-GENDER;PREF:male", "E521*/4 1\n"},
    {"X-GENDER:M", ""},
    {"X-FAVORITE:1", "E519/4 1\n"},
    {"X-FAVORITE:0", "E519/4 0\n"},
    {"X-FAVORITE;PREF:1\r\nX-SELF;PREF=1:0", "E519*/4 1\nE520*/4 0\n"},
    {"X-FAVORITE: 7 ", "E519/4 7\n"},
    {"X-FAVORITE:4294967295", "E519/4 4294967295\n"},
    {"X-FAVORITE:00000000004294967295", "E519/4 4294967295\n"},
    {"X-FAVORITE:4294967296", ""},
    {"X-FAVORITE:99999999999999999999999999", ""},
    {"X-FAVORITE:-1", ""},
    {"X-FAVORITE:1a", ""},
    {"X-FAVORITE:", ""},
    {"X-SELF:3", "E520/4 3\n"},
    // Messaging.
    {"X-IMPP:a", "E518/4 kind 0 a\n"},
    {"X-IMPP;TYPE=PERSONAL:a", "E518/4 kind 1 a\n"},
    {"X-IMPP;TYPE=BUSINESS:a", "E518/4 kind 2 a\n"},
    {"X-IMPP;TYPE=HOME:a", "E518/4 kind 3 a\n"},
    {"X-IMPP;TYPE=WORK:a", "E518/4 kind 4 a\n"},
    {"X-IMPP;TYPE=MOBILE:a", "E518/4 kind 5 a\n"},
    {"X-IMPP;TYPE=MOBILE,WORK,HOME,BUSINESS,PERSONAL:a", "E518/4 kind 1 a\n"},
    {"X-IMPP;TYPE=mobile,work,home,business:a", "E518/4 kind 2 a\n"},
    {"X-IMPP;TYPE=MOBILE;TYPE=WORK;HOME:a", "E518/4 kind 3 a\n"},
    {"X-IMPP;TYPE=HOME;PREF:skype:a", "E518/4 kind 3* skype:a\n"},
    {"X-IMPP;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9", "E518/4 kind 0 \xC3\xA9\n"},
    {"X-JABBER:jabber:a", "E518/4 kind 0 jabber:a\n"},
    {"X-JABBER;google-talk:a", "E518/4 kind 0 a\n"},
    {"X-SKYPE;TYPE=WORK;PREF:a", "E518/4 kind 4* a\n"},
    {"X-FACEBOOK;facebook-chat:a", "E518/4 kind 0 a\n"},
    {"X-IMPP:", ""},
    // What is none of a contact, and what is no line.
    {"X-OWN:a\r\nREV:20010203T040506Z\r\nCATEGORIES:a\r\nX-CATEGORIES:\r\nMAILER:a\r\nLABEL:a", ""},
    {"no line\r\nFN:a", "G12 a\n"},
    {":a\r\n;:a\r\nFN:a", "G12 a\n"},
    {"item1.FN:a", ""},
    {"DTSTART:20010203\r\nSUMMARY:a\r\nDATE:a", ""},
};

TEST(ContactReader, EachLineGivesItsEntries) {
    for (const TextCase& row : kLines) EXPECT_EQ(read_lines(row.text), row.expected) << row.text;
}

TEST(ContactReader, EscapesOfVersion3) {
    const TextCase cases[] = {
        {"N:a\\,b;c\\nd;e\\Nf;g\\\\;h\\;i", "G1 a,b\nG2 c\nd\nG3 e\nf\nG4 g\\\nG5 h;i\n"},
        {"FN:a\\, b\\; c\\nd\\\\n\\x\\", "G12 a, b; c\nd\\n\\x\\\n"},
        {"NOTE:first\\nsecond", "E512 first\nsecond\n"},
        {"TEL;TYPE=HOME,PREF:1\\,2", "P33* 1,2\n"},
        {"ORG:Company\\, Inc.;Sales", "G7 Company, Inc.\nG20 Sales\n"},
        {"X-IMPP:a\\,b", "E518/4 kind 0 a,b\n"},
        {"GEO:1.5;2.5", "E517 1.5;2.5\n"},
    };
    for (const TextCase& row : cases) EXPECT_EQ(read_lines(row.text, "3.0"), row.expected) << row.text;
}

TEST(ContactReader, PlainTextIsNotTakenForBase64InEitherVersion) {
    for (const char* version : {"2.1", "3.0"}) {
        EXPECT_EQ(read_lines("NOTE:abcd\r\nTEL:1234", version), "P32 1234\nE512 abcd\n");
    }
}

#ifndef _WIN32
TEST(ContactReader, TextWithoutCharsetIsOfTheSystemsDefaultCodePage) {
    const EnvironmentVariable locale("LC_ALL", "xx_XX.ISO-8859-1");
    EXPECT_EQ(read_lines("FN:caf\xE9\r\nN:caf\xE9;b"), "G12 caf\xC3\xA9\nG1 caf\xC3\xA9\nG2 b\n");
    EXPECT_EQ(read_lines("FN;CHARSET=UTF-8:caf\xC3\xA9"), "G12 caf\xC3\xA9\n");
}
#endif

TEST(ContactReader, LinesOfNestedComponentsAreNotTheCards) {
    EXPECT_EQ(read_text(card("FN:a\r\nAGENT:\r\n" + card("FN:b\r\nTEL:2\r\nTITLE:c") + "ROLE:d\r\nTEL:1")),
              "G12 a\nG8 d\nP32 1\n");
}

TEST(ContactReader, OnlyTheFirstCardIsRead) {
    EXPECT_EQ(read_text(card("TEL:1") + card("TEL:2")), "P32 1\n");
}

TEST(ContactReader, ACardWithoutEndReachesToTheEndOfTheText) {
    EXPECT_EQ(read_text("BEGIN:VCARD\r\nVERSION:2.1\r\nFN:a\r\nTEL:1"), "G12 a\nP32 1\n");
}

// Every list, every kind of value.
const std::string kRichCard = card(
    "N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BCller and a long name;Anna Maria=3B;;;\r\n"
    "FN;CHARSET=UTF-8:Anna Maria M\xC3\xBCller\r\nORG:An example company;Sales department\r\n"
    "SOUND;X-IRMC-N:a;b\r\nSOUND;X-IRMC-ORG:c\r\nBDAY:2001-02-03\r\nX-ANNIVERSARY:20010203T040506\r\n"
    "PHOTO;TYPE=PNG;ENCODING=BASE64:QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVo=\r\n\r\n"
    "TEL;CELL;HOME;PREF:+44 5550100\r\nX-SIP;VOIP:sip:a@example.com\r\nX-SIP;POC:sip:b@example.com\r\n"
    "ADR;HOME:;;Main Street 12;Springfield;;12345;USA\r\nEMAIL;INTERNET;WORK:anna@example.com\r\n"
    "URL:http://example.com/\r\nX-IMPP;TYPE=HOME;PREF:xmpp:anna@example.com\r\nCLASS:PRIVATE\r\n"
    "X-GENDER:female\r\nX-FAVORITE:1\r\nNOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:two=0D=0A=\r\nlines");

TEST(ContactReader, ReadsARichCard) {
    EXPECT_EQ(read_text(kRichCard),
              "G1 M\xC3\xBCller and a long name\nG2 Anna Maria;\nG12 Anna Maria M\xC3\xBCller\n"
              "G7 An example company\nG20 Sales department\nG13 a\nG14 b\nG15 c\nG9 2001-02-03\n"
              "G19 2001-02-03 04:05:06\nG10 PNG ABCDEFGHIJKLMNOPQRSTUVWXYZ\n"
              "P65* +44 5550100\nP112 sip:a@example.com\n"
              "A288 sip:b@example.com\nA258/3 ||Main Street 12|Springfield||12345|USA\n"
              "A261 anna@example.com\nA272 http://example.com/\n"
              "E518/4 kind 3* xmpp:anna@example.com\nE516/4 1\nE521/4 2\nE519/4 1\nE512 two\r\nlines\n");
}

TEST(ContactReader, EveryPrefixOfARichCardIsReadOrRefused) {
    std::size_t read = 0;
    for (std::size_t length = 0; length <= kRichCard.size(); ++length) {
        OwnedContact contact;
        const ResultCode code = contact.read(kRichCard.substr(0, length));
        EXPECT_TRUE(code == VZ_OK || code == VZ_ERR_INVALID_TEXT) << length;
        read += code == VZ_OK ? 1 : 0;
    }
    // All that hold the version, but for the one that cuts its line end in two: "2.1\r" is no version.
    EXPECT_EQ(read, kRichCard.size() - std::string("BEGIN:VCARD\r\nVERSION:2.1").size());
}

TEST(ContactReader, EveryByteInPlaceOfEveryOtherIsReadOrRefused) {
    for (std::size_t at = 0; at < kRichCard.size(); ++at) {
        for (const char byte : {'\0', '\r', '\n', ';', ':', '=', '\\', '"', ',', '\x95', '\xFF'}) {
            std::string text = kRichCard;
            text[at] = byte;
            OwnedContact contact;
            const ResultCode code = contact.read(text);
            EXPECT_TRUE(code == VZ_OK || code == VZ_ERR_INVALID_TEXT) << at;
            if (code == VZ_OK) static_cast<void>(show(contact.item));
        }
    }
}

TEST(ContactReader, AFailedAllocationLeaksNothingAndFillsNothing) {
    const versit::VersitObject object = versit::parse(kRichCard);
    static_cast<void>(read_text(kRichCard));  // the tables are built once
    std::size_t failures = 0;
    for (std::size_t nth = 1;; ++nth) {
        ContactItem item;
        std::memset(&item, 0, sizeof item);  // padding included: it is compared below
        ResultCode code = VZ_OK;
        FailingAllocations failing(nth);
        try {
            vcard::read_contact(object, &item, {});
        } catch (ResultCode raised) {
            code = raised;
        } catch (const std::bad_alloc&) {
            code = VZ_ERR_OUT_OF_MEMORY;
        }
        failing.stop();
        if (!failing.failed()) {
            EXPECT_EQ(code, VZ_OK);
            item.size = sizeof item;
            vcard::release_contact(&item, {});
            break;
        }
        EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY) << "allocation " << nth;
        ContactItem untouched;
        std::memset(&untouched, 0, sizeof untouched);
        EXPECT_EQ(std::memcmp(&item, &untouched, sizeof item), 0) << "allocation " << nth;
        ++failures;
    }
    // 23 strings (seven of the postal address), 6 sub-records and blocks, 4 arrays: those of operator new, where
    // they can be made to fail, come on top.
    constexpr std::size_t kBlocksAndStrings = 23 + 6 + 4;
    if (FailingAllocations::sees_operator_new()) {
        EXPECT_GT(failures, kBlocksAndStrings);
    } else {
        EXPECT_EQ(failures, kBlocksAndStrings);
    }
}

// Hostile shapes: each takes time in proportion to its length, so that the whole is over at once.
TEST(ContactReader, LongTextsOfOneKindAreRead) {
    constexpr std::size_t kMany = 100'000;
    const auto repeated = [](std::string_view text, std::size_t times) {
        std::string result;
        for (std::size_t i = 0; i < times; ++i) result += text;
        return result;
    };
    const std::string cases[] = {
        "N:" + repeated(";", kMany),
        "N:" + repeated("\\;", kMany),
        "N;QUOTED-PRINTABLE:" + repeated(";=3B\\;", kMany),
        "N;CHARSET=SHIFT_JIS;QUOTED-PRINTABLE:" + repeated("=95\\", kMany),
        "ADR:" + repeated(";a", kMany),
        "TEL" + repeated(";HOME", kMany) + ":1",
        "TEL;TYPE=" + repeated(",", kMany) + ":1",
        "TEL" + repeated(";X=\"", kMany) + ":1",
        "FN:" + repeated("a", kMany) + "\r\nPHOTO" + repeated(";A", kMany) + ":QUJD",
        repeated("CLASS:PRIVATE\r\n", kMany),
        repeated("BEGIN:A\r\n", kMany),
        repeated("END:A\r\n", kMany),
        repeated("TEL:1\r\n", kMany),
    };
    for (const std::string& text : cases) {
        OwnedContact contact;
        EXPECT_EQ(contact.read(card(text)), VZ_OK) << text.substr(0, 40);
        EXPECT_EQ(contact.item.phoneCount, text.starts_with("TEL:1\r") ? kMany : text.starts_with("TEL"));
    }
}

}  // namespace
}  // namespace vzapi::test
