// ContactItem to vCard 2.1 text: each field, and how its value stands in the line.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "result.h"
#include "vcard/contact_fields.h"
#include "vcard/written_contact.h"
#include "versit/parser.h"

namespace vzapi::test {
namespace {

#define QP ";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:"

TEST(ContactWriting, AnItemWithoutEntriesGivesTheThreeLinesOfTheFrame) {
    EXPECT_EQ(written(Contact()), "BEGIN:VCARD\r\nVERSION:2.1\r\nEND:VCARD\r\n");
}

TEST(ContactWriting, NamesAndOtherGeneralFields) {
    expect_all({
        {"family name", {text(1, u"Doe")}, card({"N:Doe;;;;"})},
        {"given name", {text(2, u"Ann")}, card({"N:;Ann;;;"})},
        {"additional name", {text(3, u"B.")}, card({"N:;;B.;;"})},
        {"prefix", {text(4, u"Dr.")}, card({"N:;;;Dr.;"})},
        {"suffix", {text(5, u"Jr.")}, card({"N:;;;;Jr."})},
        {"sixth part", {text(6, u"x")}, card({"N:;;;;;x"})},
        {"an empty sixth part", {text(1, u"Doe"), text(6, u"")}, card({"N:Doe;;;;"})},
        {"all parts, in any order of the list",
         {text(6, u"6"), text(3, u"3"), text(1, u"1"), text(5, u"5"), text(2, u"2"), text(4, u"4")},
         card({"N:1;2;3;4;5;6"})},
        {"a part of no length is a part", {text(2, u"")}, card({"N:;;;;"})},
        {"a second family name has a line of its own",
         {text(1, u"A"), text(2, u"B"), text(1, u"C"), text(2, u"D")},
         card({"N:A;B;;;", "N:C;D;;;"})},
        {"a second family name before the given name",
         {text(1, u"A"), text(1, u"C"), text(2, u"D")},
         card({"N:A;;;;", "N:C;D;;;"})},
        {"a second family name behind one of no length",
         {text(1, u""), text(1, u"B"), text(2, u"C")},
         card({"N:;;;;", "N:B;C;;;"})},
        {"company", {text(7, u"Acme")}, card({"ORG:Acme"})},
        {"a second company", {text(7, u"A"), text(20, u"S"), text(7, u"B")}, card({"ORG:A;S", "ORG:B"})},
        {"company and department", {text(20, u"Sales"), text(7, u"Acme")}, card({"ORG:Acme;Sales"})},
        {"department", {text(20, u"Sales")}, card({"ORG:;Sales"})},
        {"an empty department", {text(7, u"Acme"), text(20, u"")}, card({"ORG:Acme"})},
        {"title", {text(8, u"Driver")}, card({"TITLE:Driver"})},
        {"birthday", {date(9, 1984, 7, 3)}, card({"BDAY:19840703"})},
        {"second name", {text(11, u"Nan")}, card({"X-EPOCSECONDNAME:Nan"})},
        {"formatted name", {text(12, u"Ann Doe")}, card({"FN:Ann Doe"})},
        {"no formatted name is made up", {text(1, u"Doe"), text(2, u"Ann")}, card({"N:Doe;Ann;;;"})},
        {"phonetic names", {text(13, u"dou"), text(14, u"an")}, card({"SOUND;X-IRMC-N:dou;an"})},
        {"phonetic family name", {text(13, u"dou")}, card({"SOUND;X-IRMC-N:dou;"})},
        {"phonetic given name", {text(14, u"an")}, card({"SOUND;X-IRMC-N:;an"})},
        {"phonetic company", {text(15, u"akmi")}, card({"SOUND;X-IRMC-ORG:akmi"})},
        {"spouse", {text(16, u"Bo")}, card({"X-SPOUSE:Bo"})},
        {"children", {text(17, u"Cy")}, card({"X-CHILDREN:Cy"})},
        {"assistant", {text(18, u"Di")}, card({"X-ASSISTANT:Di"})},
        {"anniversary", {date(19, 2001, 12, 31)}, card({"X-ANNIVERSARY:20011231"})},
        {"a text of no length", {text(8, u"")}, card({"TITLE:"})},
        {"several of one kind in list order", {text(8, u"b"), text(8, u"a")}, card({"TITLE:b", "TITLE:a"})},
    });
}

TEST(ContactWriting, Phones) {
    expect_all({
        {"32", {text(32, u"1")}, card({"TEL;VOICE:1"})},
        {"33", {text(33, u"1")}, card({"TEL;HOME:1"})},
        {"34", {text(34, u"1")}, card({"TEL;WORK:1"})},
        {"35", {text(35, u"1")}, card({"TEL;PREF:1"})},
        {"36", {text(36, u"1")}, card({"TEL;CAR:1"})},
        {"37", {text(37, u"1")}, card({"TEL;MODEM:1"})},
        {"48", {text(48, u"1")}, card({"TEL;PAGER:1"})},
        {"64", {text(64, u"1")}, card({"TEL;CELL:1"})},
        {"65", {text(65, u"1")}, card({"TEL;CELL;HOME:1"})},
        {"66", {text(66, u"1")}, card({"TEL;CELL;WORK:1"})},
        {"80", {text(80, u"1")}, card({"TEL;FAX:1"})},
        {"81", {text(81, u"1")}, card({"TEL;FAX;HOME:1"})},
        {"82", {text(82, u"1")}, card({"TEL;FAX;WORK:1"})},
        {"96", {text(96, u"1")}, card({"TEL;VIDEO:1"})},
        {"97", {text(97, u"1")}, card({"TEL;VIDEO;HOME:1"})},
        {"98", {text(98, u"1")}, card({"TEL;VIDEO;WORK:1"})},
        {"112", {text(112, u"1")}, card({"X-SIP;VOIP:1"})},
        {"113", {text(113, u"1")}, card({"X-SIP;VOIP;HOME:1"})},
        {"114", {text(114, u"1")}, card({"X-SIP;VOIP;WORK:1"})},
        {"115", {text(115, u"1")}, card({"X-ASSISTANT-TEL:1"})},
        {"255", {text(255, u"1")}, card({})},
        {"list order",
         {text(80, u"1"), text(32, u"2"), text(80, u"3")},
         card({"TEL;FAX:1", "TEL;VOICE:2", "TEL;FAX:3"})},
        {"letters and signs", {text(64, u"+1 (555) p12w#*")}, card({"TEL;CELL:+1 (555) p12w#*"})},
        {"a number that needs encoding",
         {text(65, u"\u0661", kPreferred)},
         card({"TEL;CELL;HOME;PREF" QP "=D9=A1"})},
    });
}

TEST(ContactWriting, Addresses) {
    expect_all({
        {"256",
         {address(256, {u"1", u"2", u"3", u"4", u"5", u"6", u"7"})},
         card({"ADR;POSTAL:1;2;3;4;5;6;7"})},
        {"257", {address(257, {u"", u"", u"Main St 1"})}, card({"ADR;WORK:;;Main St 1;;;;"})},
        {"258", {address(258, {})}, card({"ADR;HOME:;;;;;;"})},
        {"null components", {{258, Address()}}, card({"ADR;HOME:;;;;;;"})},
        {"259", {text(259, u"a@example.com")}, card({"EMAIL:a@example.com"})},
        {"260", {text(260, u"a@example.com")}, card({"EMAIL;INTERNET;HOME:a@example.com"})},
        {"261", {text(261, u"a@example.com")}, card({"EMAIL;INTERNET;WORK:a@example.com"})},
        {"272", {text(272, u"http://example.com/")}, card({"URL:http://example.com/"})},
        {"273", {text(273, u"http://example.com/")}, card({"URL;HOME:http://example.com/"})},
        {"274", {text(274, u"http://example.com/")}, card({"URL;WORK:http://example.com/"})},
        {"288", {text(288, u"sip:a@example.com")}, card({"X-SIP;POC:sip:a@example.com"})},
        {"289", {text(289, u"sip:a@example.com")}, card({"X-SIP;SWIS:sip:a@example.com"})},
        {"304", {text(304, u"sip:a@example.com")}, card({"X-SIP:sip:a@example.com"})},
        {"511", {text(511, u"a@example.com")}, card({})},
        {"home e-mail that needs encoding",
         {text(260, u"\u00E9@a")},
         card({"EMAIL;INTERNET;HOME" QP "=C3=A9@a"})},
        {"work web address that needs encoding", {text(274, u"\u00E9")}, card({"URL;WORK" QP "=C3=A9"})},
        {"push-to-talk that needs encoding", {text(288, u"\u00E9")}, card({"X-SIP;POC" QP "=C3=A9"})},
        {"video sharing that needs encoding", {text(289, u"\u00E9")}, card({"X-SIP;SWIS" QP "=C3=A9"})},
        {"SIP that needs encoding", {text(304, u"\u00E9")}, card({"X-SIP" QP "=C3=A9"})},
        {"list order",
         {text(304, u"s"), text(272, u"w"), address(256, {}), text(259, u"e"), text(272, u"v")},
         card({"X-SIP:s", "URL:w", "ADR;POSTAL:;;;;;;", "EMAIL:e", "URL:v"})},
    });
}

TEST(ContactWriting, ExtendedFields) {
    expect_all({
        {"note", {text(512, u"Note")}, card({"NOTE:Note"})},
        {"DTMF", {text(513, u"p1234#")}, card({"X-DTMF:p1234#"})},
        {"UID", {text(514, u"id-1")}, card({"UID:id-1"})},
        {"wireless village", {text(515, u"wv:a")}, card({"X-WV-ID:wv:a"})},
        {"class 1", {number(516, 1)}, card({"CLASS:PRIVATE", "X-CLASS:PRIVATE"})},
        {"class 2", {number(516, 2)}, card({"CLASS:PUBLIC", "X-CLASS:PUBLIC"})},
        {"class 3", {number(516, 3)}, card({"CLASS:NONE", "X-CLASS:NONE"})},
        {"class 0", {number(516, 0)}, card({})},
        {"class 4", {number(516, 4)}, card({})},
        {"GEO", {text(517, u"60.1,24.9")}, card({"GEO:60.1,24.9"})},
        {"messaging", {messaging(0, u"a@example.com")}, card({"X-IMPP:a@example.com"})},
        {"messaging 1", {messaging(1, u"a")}, card({"X-IMPP;TYPE=PERSONAL:a"})},
        {"messaging 2", {messaging(2, u"a")}, card({"X-IMPP;TYPE=BUSINESS:a"})},
        {"messaging 3", {messaging(3, u"a")}, card({"X-IMPP;TYPE=HOME:a"})},
        {"messaging 4", {messaging(4, u"a")}, card({"X-IMPP;TYPE=WORK:a"})},
        {"messaging 5", {messaging(5, u"a")}, card({"X-IMPP;TYPE=MOBILE:a"})},
        {"messaging 6", {messaging(6, u"a")}, card({"X-IMPP:a"})},
        {"preferred messaging", {messaging(5, u"a", kPreferred)}, card({"X-IMPP;TYPE=MOBILE;PREF:a"})},
        {"preferred messaging of no kind",
         {messaging(0, u"\u00E9", kPreferred)},
         card({"X-IMPP;PREF" QP "=C3=A9"})},
        {"messaging with another number than 1", {messaging(3, u"a", 2)}, card({"X-IMPP;TYPE=HOME:a"})},
        {"messaging without address", {messaging(1, std::nullopt)}, card({})},
        {"favourite", {number(519, 1)}, card({"X-FAVORITE:1"})},
        {"favourite, largest number", {number(519, 4294967295)}, card({"X-FAVORITE:4294967295"})},
        {"self", {number(520, 0)}, card({"X-SELF:0"})},
        {"gender 1", {number(521, 1)}, card({"X-GENDER:male"})},
        {"gender 2", {number(521, 2)}, card({"X-GENDER:female"})},
        {"gender 3", {number(521, 3)}, card({"X-GENDER:undefined"})},
        {"gender 0", {number(521, 0)}, card({})},
        {"gender 4", {number(521, 4)}, card({})},
    });
}

TEST(ContactWriting, OnlyTheLow32BitsOfANumberCount) {
    ContactRecord record({number(516, 2), number(519, 7)});
    for (std::size_t i = 0; i < 2; ++i) record.item()->extended[i].value.number |= 0xABCD'0000'0000;
    EXPECT_EQ(written(record.item()), card({"CLASS:PUBLIC", "X-CLASS:PUBLIC", "X-FAVORITE:7"}));
}

TEST(ContactWriting, TheOrderOfTheLinesIsFixed) {
    const Contact contact{number(521, 1),       number(520, 2),      number(519, 3),      messaging(0, u"m1"),
                          text(517, u"geo"),    number(516, 1),      text(515, u"wv"),    text(514, u"uid"),
                          text(513, u"dtmf"),   text(512, u"note1"), text(512, u"note2"), messaging(1, u"m2"),
                          text(259, u"e"),      address(258, {}),    text(32, u"1"),      text(20, u"dep"),
                          date(19, 2000, 1, 2), text(18, u"as"),     text(17, u"ch"),     text(16, u"sp"),
                          text(15, u"pc"),      text(14, u"pg"),     text(13, u"pf"),     text(12, u"fn"),
                          text(11, u"sn"),      photo(u"PNG", "x"),  date(9, 1999, 3, 4), text(8, u"ti"),
                          text(7, u"co"),       text(1, u"fa")};
    EXPECT_EQ(written(contact), card({"N:fa;;;;",
                                      "FN:fn",
                                      "SOUND;X-IRMC-N:pf;pg",
                                      "ORG:co;dep",
                                      "TITLE:ti",
                                      "BDAY:19990304",
                                      "X-ANNIVERSARY:20000102",
                                      "PHOTO;ENCODING=BASE64;TYPE=PNG:eA==",
                                      "X-EPOCSECONDNAME:sn",
                                      "X-SPOUSE:sp",
                                      "X-CHILDREN:ch",
                                      "X-ASSISTANT:as",
                                      "SOUND;X-IRMC-ORG:pc",
                                      "TEL;VOICE:1",
                                      "EMAIL:e",
                                      "ADR;HOME:;;;;;;",
                                      "CLASS:PRIVATE",
                                      "X-CLASS:PRIVATE",
                                      "X-GENDER:male",
                                      "NOTE:note1",
                                      "NOTE:note2",
                                      "X-DTMF:dtmf",
                                      "X-WV-ID:wv",
                                      "X-IMPP:m1",
                                      "X-IMPP;TYPE=PERSONAL:m2",
                                      "UID:uid",
                                      "GEO:geo",
                                      "X-FAVORITE:3",
                                      "X-SELF:2"}));
}

TEST(ContactWriting, EveryFieldButTheMarkersGivesALineWithItsPropertyAndParameters) {
    for (const vcard::FieldRow& row : vcard::contact_fields()) {
        const std::string out = written(Contact{sample_of(row)});
        if (row.kind == vcard::ValueKind::Marker) {
            EXPECT_EQ(out, card({})) << row.id;
            continue;
        }
        const std::string head =
            "\r\n" + std::string(versit::property_name(row.property)) + std::string(row.parameters);
        EXPECT_NE(out.find(head), std::string::npos) << row.id << ": " << out;
    }
}

TEST(ContactWriting, UnknownFieldsAndFieldsInAnotherListAreSkipped) {
    Contact contact;
    for (const std::uint32_t id : {0U, 21U, 31U, 32U, 255U, 512U, 522U, 0xFFFFFFFFU})
        contact.general.push_back(text(id, u"x"));
    for (const std::uint32_t id : {1U, 38U, 67U, 116U, 254U, 259U, 511U})
        contact.phones.push_back(text(id, u"x"));
    for (const std::uint32_t id : {1U, 32U, 255U, 262U, 275U, 290U, 305U, 512U})
        contact.addresses.push_back(text(id, u"x"));
    for (const std::uint32_t id : {1U, 32U, 259U, 511U, 522U, 543U, 544U, 0x80000000U})
        contact.extended.push_back(text(id, u"x"));
    EXPECT_EQ(written(contact), card({}));
}

// ---- Values.

TEST(ContactWriting, ValuesThatNeedItAreQuotedPrintableUtf8) {
    expect_all({
        {"printable ASCII", {text(8, u"a=b;c:d,e\\f\tg")}, card({"TITLE:a=b;c:d,e\\f\tg"})},
        {"beyond ASCII", {text(8, u"Caf\u00E9=")}, card({"TITLE" QP "Caf=C3=A9=3D"})},
        {"beyond the first plane", {text(32, u"\U0001F600")}, card({"TEL;VOICE" QP "=F0=9F=98=80"})},
        {"unpaired surrogate", {text(8, u"\xD83D!")}, card({"TITLE" QP "=EF=BF=BD!"})},
        {"line breaks", {text(513, u"a\r\nb\nc\rd")}, card({"X-DTMF" QP "a=0D=0Ab=0Ac=0Dd"})},
        {"phonetic company", {text(15, u"\u30A2")}, card({"SOUND;X-IRMC-ORG" QP "=E3=82=A2"})},
        {"phonetic names", {text(13, u"\u30A2"), text(14, u"b")}, card({"SOUND;X-IRMC-N" QP "=E3=82=A2;b"})},
        {"the whole name when one part needs it",
         {text(1, u"Doe"), text(2, u"Zo\u00EB")},
         card({"N" QP "Doe;Zo=C3=AB;;;"})},
        {"the whole organisation", {text(7, u"A=B"), text(20, u"\u00E9")}, card({"ORG" QP "A=3DB;=C3=A9"})},
        {"the whole address",
         {address(258, {u"", u"", u"R\u00FC 1", u"Bern"}, kPreferred)},
         card({"ADR;HOME;PREF" QP ";;R=C3=BC 1;Bern;;;"})},
        {"a line break in an address",
         {address(256, {u"", u"", u"a\r\nb"})},
         card({"ADR;POSTAL" QP ";;a=0D=0Ab;;;;"})},
    });
}

TEST(ContactWriting, SemicolonsAndBackslashesOfComponentsAreEscaped) {
    expect_all({
        {"name", {text(1, u"a;b"), text(2, u"c\\d")}, card({"N:a\\;b;c\\\\d;;;"})},
        {"organisation", {text(7, u"a;"), text(20, u"\\")}, card({"ORG:a\\;;\\\\"})},
        {"phonetic name", {text(13, u";"), text(14, u";")}, card({"SOUND;X-IRMC-N:\\;;\\;"})},
        {"address", {address(256, {u"", u";", u"\\;"})}, card({"ADR;POSTAL:;\\;;\\\\\\;;;;;"})},
        {"quoted-printable", {text(1, u"\u00E9;b")}, card({"N" QP "=C3=A9\\;b;;;;"})},
        {"single texts are left alone",
         {text(8, u"a;b\\c"), text(15, u";")},
         card({"TITLE:a;b\\c", "SOUND;X-IRMC-ORG:;"})},
    });
}

TEST(ContactWriting, BackslashNStandsForALineBreakInTheFieldsThatMayHoldSeveralLines) {
    struct Row {
        std::uint32_t id;
        const char* name;
    };
    const Row rows[] = {{8, "TITLE"},       {11, "X-EPOCSECONDNAME"}, {12, "FN"},   {16, "X-SPOUSE"},
                        {17, "X-CHILDREN"}, {18, "X-ASSISTANT"},      {512, "NOTE"}};
    for (const auto& [id, name] : rows) {
        const std::string head = std::string(name) + QP;
        EXPECT_EQ(written(Contact{text(id, u"a\\nb")}), card({head + "a=0D=0Ab"})) << id;
        EXPECT_EQ(written(Contact{text(id, u"\\Na\\n")}), card({head + "=0D=0Aa=0D=0A"})) << id;
        EXPECT_EQ(written(Contact{text(id, u"\r\n\\N\u00E9")}), card({head + "=0D=0A=0D=0A=C3=A9"})) << id;
        EXPECT_EQ(written(Contact{text(id, u"a\\\\nb")}), card({head + "a\\=0D=0Ab"})) << id;
        EXPECT_EQ(written(Contact{text(id, u"a\\b\\")}), card({std::string(name) + ":a\\b\\"})) << id;
    }
}

TEST(ContactWriting, BackslashNIsTextEverywhereElse) {
    expect_all({
        {"phonetic company", {text(15, u"a\\nb")}, card({"SOUND;X-IRMC-ORG:a\\nb"})},
        {"name", {text(1, u"a\\nb")}, card({"N:a\\\\nb;;;;"})},
        {"number", {text(32, u"a\\nb")}, card({"TEL;VOICE:a\\nb"})},
        {"web address", {text(272, u"a\\nb")}, card({"URL:a\\nb"})},
        {"DTMF", {text(513, u"a\\nb")}, card({"X-DTMF:a\\nb"})},
        {"messaging", {messaging(0, u"a\\nb")}, card({"X-IMPP:a\\nb"})},
    });
}

// The physical lines of `text`.
std::vector<std::string> physical_lines(const std::string& text) {
    std::vector<std::string> result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        result.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return result;
}

TEST(ContactWriting, LongQuotedPrintableValuesAreFolded) {
    const std::u16string value = std::u16string(100, u'\u00E9') + u" END:VCARD";
    for (const Contact& contact : {Contact{text(512, value)}, Contact{text(1, value), text(2, u"b")},
                                   Contact{address(256, {value, value, value})}}) {
        const std::string out = written(contact);
        const auto all = physical_lines(out);
        EXPECT_GT(all.size(), 8U);
        for (const std::string& line : all) EXPECT_LE(line.size(), 76U) << line;
        const versit::VersitObject object = versit::parse(out);
        EXPECT_EQ(object.lines().size(), 4U) << "four logical lines, frame included";
    }
}

TEST(ContactWriting, LongPlainValuesAreNot) {
    const std::u16string value(5000, u'a');
    EXPECT_EQ(written(Contact{text(512, value)}), card({"NOTE:" + std::string(5000, 'a')}));
}

// ---- Dates.

TEST(ContactWriting, DatesWithoutAYearOrOfAnotherSizeCountAsAbsentFromVersionFourteenOn) {
    struct Row {
        std::uint32_t size;
        std::uint16_t year;
        bool absent;
    };
    for (const Row& row : {Row{20, 1984, false}, Row{20, 0, true}, Row{24, 1984, true}, Row{0, 1984, true},
                           Row{16, 0, true}, Row{20, 65535, false}}) {
        for (const std::uint32_t version : {0U, 12U, 13U, 14U, 15U, 16U}) {
            ContactRecord record({date(9, row.year, 7, 3), date(19, row.year, 12, 31)});
            for (std::size_t i = 0; i < 2; ++i) record.item()->general[i].value.date->size = row.size;
            const std::string year = row.year == 0 ? "0000" : std::to_string(row.year);
            EXPECT_EQ(written(record.item(), kNoProfile, version),
                      row.absent && version >= 14
                          ? card({})
                          : card({"BDAY:" + year + "0703", "X-ANNIVERSARY:" + year + "1231"}))
                << row.size << ' ' << row.year << ' ' << version;
        }
    }
}

TEST(ContactWriting, DatesGoOutAsTheyStandWithoutTheirTime) {
    const Entry early{9, Date{1, 2, 3, 4, 5, 6}};
    expect_all({
        {"zeros in front", {early}, card({"BDAY:00010203"})},
        {"no month, no day", {date(9, 2000, 0, 0)}, card({"BDAY:20000000"})},
        {"no date of a calendar", {date(9, 2000, 255, 100)}, card({"BDAY:2000255100"})},
        {"two birthdays",
         {date(9, 2000, 1, 1), date(9, 1999, 1, 1)},
         card({"BDAY:20000101", "BDAY:19990101"})},
    });
}

// ---- Sizes.

TEST(ContactWriting, ARecordOfAnotherSizeIsRefusedFromVersionThirteenOn) {
    for (const std::uint32_t size : {0U, 32U, 63U, 64U, 65U}) {
        for (const std::uint32_t version : {0U, 12U, 13U, 14U, 16U}) {
            ContactRecord record({text(8, u"a")});
            record.item()->size = size;
            if (size != 64 && version >= 13) {
                try {
                    static_cast<void>(written(record.item(), kNoProfile, version));
                    ADD_FAILURE() << size << ' ' << version;
                } catch (ResultCode code) {
                    EXPECT_EQ(code, VZ_ERR_BAD_VALUE);
                }
            } else {
                EXPECT_EQ(written(record.item(), kNoProfile, version), card({"TITLE:a"}));
            }
        }
    }
}

TEST(ContactWriting, SizesOfEntriesAddressesAndNestedEntriesAreNotLookedAt) {
    ContactRecord record({text(8, u"a"), text(32, u"1"), address(256, {u"b"}), messaging(1, u"c")});
    record.item()->general[0].size = 0;
    record.item()->phones[0].size = 32;
    record.item()->addresses[0].size = 1;
    record.item()->addresses[0].value.address->size = 56;
    record.item()->extended[0].size = 0xFFFFFFFF;
    record.item()->extended[0].value.messaging->size = 0;
    EXPECT_EQ(written(record.item()),
              card({"TITLE:a", "TEL;VOICE:1", "ADR;POSTAL:b;;;;;;", "X-IMPP;TYPE=PERSONAL:c"}));
}

}  // namespace
}  // namespace vzapi::test
