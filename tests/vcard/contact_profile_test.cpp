// What receiving devices want written their own way.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "vcard/written_contact.h"

namespace vzapi::test {
namespace {

constexpr std::uint32_t kCategoriesFamily = 0x2000020;
constexpr std::uint32_t kServiceFamily = 0x2000010;

constexpr Profile kTypeless{kCategoriesFamily, 300};  // empty fields, photos without a type
constexpr Profile kClearing{kServiceFamily, 280};     // empty fields
constexpr Profile kClearingToo{kServiceFamily, 260};  // empty fields
constexpr Profile kByService{kServiceFamily, 10};     // nickname, role, messaging by service
constexpr Profile kByServiceToo{kServiceFamily, 16};  // the same

const std::vector<std::string_view> kEmptyFieldLines = {"BDAY:",
                                                        "X-ANNIVERSARY:",
                                                        "NOTE:",
                                                        "PHOTO;ENCODING=BASE64:",
                                                        "ORG:",
                                                        "TITLE:",
                                                        "TEL;VOICE:",
                                                        "EMAIL:",
                                                        "EMAIL;INTERNET;HOME:",
                                                        "EMAIL;INTERNET;WORK:",
                                                        "ADR;POSTAL:;;;;;;",
                                                        "ADR;HOME:;;;;;;",
                                                        "ADR;WORK:;;;;;;",
                                                        "URL:",
                                                        "URL;HOME:",
                                                        "URL;WORK:",
                                                        "X-EPOCSECONDNAME:"};

// The text of a contact with `middle` and then the empty-field lines but `left_out`.
std::string cleared_card(std::initializer_list<std::string_view> middle, std::string_view left_out = {}) {
    std::string out = lines({"BEGIN:VCARD", "VERSION:2.1"}) + lines(middle);
    for (const std::string_view line : kEmptyFieldLines) {
        if (line != left_out) out.append(line).append("\r\n");
    }
    return out + lines({"END:VCARD"});
}

// ---- Empty fields.

TEST(ContactProfiles, AnItemWithoutEntriesGetsAllSeventeenEmptyFieldLines) {
    ASSERT_EQ(kEmptyFieldLines.size(), 17U);
    for (const std::uint32_t version : {0U, 13U, 14U, 16U}) {
        EXPECT_EQ(written(Contact(), kClearing, version), cleared_card({}));
        EXPECT_EQ(written(Contact(), kClearingToo, version), cleared_card({}));
    }
    EXPECT_EQ(written(Contact(), kTypeless, 13), cleared_card({}));
    EXPECT_EQ(written(Contact(), kTypeless, 14), cleared_card({"X-CATEGORIES:"}));
}

TEST(ContactProfiles, OnlyTheseProfilesHaveEmptyFieldLines) {
    for (const Profile& profile :
         {Profile{kServiceFamily, 280, 0}, Profile{kServiceFamily, 281}, Profile{kServiceFamily, 270},
          Profile{kServiceFamily, 300}, Profile{0, 280}, Profile{0x2000011, 260}}) {
        EXPECT_EQ(written(Contact(), profile), card({})) << profile.family << ' ' << profile.version;
    }
    for (const std::uint32_t version : {299U, 301U, 280U, 260U, 323U, 0U, 0xFFFFFFFFU}) {
        EXPECT_EQ(written(Contact(), {kCategoriesFamily, version}), card({"X-CATEGORIES:"})) << version;
    }
    EXPECT_EQ(written(Contact(), {kCategoriesFamily, 300, 0}), card({}));
    EXPECT_EQ(written(Contact(), {kServiceFamily, 280, 0x100000000}), cleared_card({}))
        << "all 64 bits of the third number count";
}

struct ClearCase {
    const char* what;
    Contact contact;
    std::string_view line;      // what the entry itself gives; empty: nothing
    std::string_view left_out;  // the empty-field line that it keeps from being written
};

TEST(ContactProfiles, AnEntryWithAValueKeepsItsEmptyFieldLineAway) {
    const ClearCase rows[] = {
        {"birthday", {date(9, 2000, 1, 2)}, "BDAY:20000102", "BDAY:"},
        {"anniversary", {date(19, 2000, 1, 2)}, "X-ANNIVERSARY:20000102", "X-ANNIVERSARY:"},
        {"note", {text(512, u"a")}, "NOTE:a", "NOTE:"},
        {"a note of no length", {text(512, u"")}, "NOTE:", "NOTE:"},
        {"photo", {photo(u"PNG", "x")}, "PHOTO;ENCODING=BASE64;TYPE=PNG:eA==", "PHOTO;ENCODING=BASE64:"},
        {"company", {text(7, u"a")}, "ORG:a", "ORG:"},
        {"title", {text(8, u"a")}, "TITLE:a", "TITLE:"},
        {"number", {text(32, u"1")}, "TEL;VOICE:1", "TEL;VOICE:"},
        {"e-mail", {text(259, u"a")}, "EMAIL:a", "EMAIL:"},
        {"home e-mail", {text(260, u"a")}, "EMAIL;INTERNET;HOME:a", "EMAIL;INTERNET;HOME:"},
        {"work e-mail", {text(261, u"a")}, "EMAIL;INTERNET;WORK:a", "EMAIL;INTERNET;WORK:"},
        {"address", {address(256, {u"a"})}, "ADR;POSTAL:a;;;;;;", "ADR;POSTAL:;;;;;;"},
        {"home address", {address(258, {u"a"})}, "ADR;HOME:a;;;;;;", "ADR;HOME:;;;;;;"},
        {"work address", {address(257, {u"a"})}, "ADR;WORK:a;;;;;;", "ADR;WORK:;;;;;;"},
        {"an address without text", {address(256, {})}, "ADR;POSTAL:;;;;;;", "ADR;POSTAL:;;;;;;"},
        {"web address", {text(272, u"a")}, "URL:a", "URL:"},
        {"home web address", {text(273, u"a")}, "URL;HOME:a", "URL;HOME:"},
        {"work web address", {text(274, u"a")}, "URL;WORK:a", "URL;WORK:"},
        {"second name", {text(11, u"a")}, "X-EPOCSECONDNAME:a", "X-EPOCSECONDNAME:"},
    };
    for (const ClearCase& row : rows) {
        EXPECT_EQ(written(row.contact, kClearing), cleared_card({row.line}, row.left_out)) << row.what;
    }
}

TEST(ContactProfiles, AnEntryWithoutContentDoesNot) {
    const ClearCase rows[] = {
        {"company", {text(7, u"")}, "ORG:", ""},
        {"department only", {text(20, u"a")}, "ORG:;a", ""},
        {"title", {text(8, u"")}, "TITLE:", ""},
        {"number", {text(32, u"")}, "TEL;VOICE:", ""},
        {"another number", {text(33, u"1")}, "TEL;HOME:1", ""},
        {"e-mail", {text(259, u"")}, "EMAIL:", ""},
        {"home e-mail", {text(260, u"")}, "EMAIL;INTERNET;HOME:", ""},
        {"work e-mail", {text(261, u"")}, "EMAIL;INTERNET;WORK:", ""},
        {"web address", {text(272, u"")}, "URL:", ""},
        {"home web address", {text(273, u"")}, "URL;HOME:", ""},
        {"work web address", {text(274, u"")}, "URL;WORK:", ""},
        {"second name", {text(11, u"")}, "X-EPOCSECONDNAME:", ""},
    };
    for (const ClearCase& row : rows) {
        EXPECT_EQ(written(row.contact, kClearing), cleared_card({row.line})) << row.what;
    }
}

TEST(ContactProfiles, AnEntryThatCannotBeUsedDoesNot) {
    for (const std::uint32_t id : {7U, 8U, 9U, 10U, 11U, 19U, 32U, 256U, 257U, 258U, 259U, 272U, 512U}) {
        EXPECT_EQ(written(Contact{{id, Null()}}, kClearing), cleared_card({})) << id;
    }
    ContactRecord record({photo(u"PNG", "x")});
    record.item()->general[0].value.photo->dataLength = 0;
    EXPECT_EQ(written(record.item(), kClearing), cleared_card({}));
}

TEST(ContactProfiles, OneEntryOfSeveralIsEnough) {
    EXPECT_EQ(written(Contact{text(8, u""), text(8, u"a")}, kClearing),
              cleared_card({"TITLE:", "TITLE:a"}, "TITLE:"));
}

TEST(ContactProfiles, DatesWithoutAYearAndThoseThatCountAsAbsentAreCleared) {
    const Contact contact{date(9, 0, 1, 2)};
    EXPECT_EQ(written(contact, kClearing, 14), cleared_card({}));
    EXPECT_EQ(written(contact, kClearing, 13), cleared_card({"BDAY:00000102"}));

    ContactRecord record({date(9, 2000, 1, 2)});
    record.item()->general[0].value.date->size = 24;
    EXPECT_EQ(written(record.item(), kClearing, 14), cleared_card({}));
    EXPECT_EQ(written(record.item(), kClearing, 13), cleared_card({"BDAY:20000102"}, "BDAY:"));
}

TEST(ContactProfiles, AContactWithAllFieldsHasNoEmptyFieldLine) {
    const Contact contact{text(7, u"a"),    text(8, u"a"),        date(9, 2000, 1, 2), photo(u"PNG", "x"),
                          text(11, u"a"),   date(19, 2000, 1, 2), text(32, u"1"),      address(256, {}),
                          address(257, {}), address(258, {}),     text(259, u"a"),     text(260, u"a"),
                          text(261, u"a"),  text(272, u"a"),      text(273, u"a"),     text(274, u"a"),
                          text(512, u"a")};
    EXPECT_EQ(written(contact, kClearing), written(contact));
}

// ---- Photos without a type.

TEST(ContactProfiles, APhotoHasNoTypeForTheProfileThatClearsAndHasCategories) {
    const Contact contact{photo(u"PNG", "abc")};
    const std::string with_type = "PHOTO;ENCODING=BASE64;TYPE=PNG:YWJj";
    EXPECT_EQ(written(contact, kTypeless, 13),
              cleared_card({"PHOTO;ENCODING=BASE64:YWJj"}, "PHOTO;ENCODING=BASE64:"));
    EXPECT_EQ(written(contact, {kCategoriesFamily, 300, 0}), card({with_type}));
    EXPECT_EQ(written(contact, {kCategoriesFamily, 301}, 13), card({with_type}));
    EXPECT_EQ(written(contact, kClearing), cleared_card({with_type}, "PHOTO;ENCODING=BASE64:"));
}

// ---- The general voice number.

TEST(ContactProfiles, TheGeneralVoiceNumberHasNoTypeFromVersion323On) {
    const Contact contact{text(32, u"1"), text(32, u"2", kPreferred), text(33, u"3"), text(32, u"\u0661")};
    const auto with_type = card({"TEL;VOICE:1", "TEL;VOICE;PREF:2", "TEL;HOME:3",
                                 "TEL;VOICE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D9=A1"});
    const auto without =
        card({"TEL:1", "TEL;PREF:2", "TEL;HOME:3", "TEL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D9=A1"});
    for (const std::uint32_t version : {323U, 324U, 1000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(written(contact, {kCategoriesFamily, version}, 13), without) << version;
        EXPECT_EQ(written(contact, {kCategoriesFamily, version, 0}, 13), with_type) << version;
        EXPECT_EQ(written(contact, {kServiceFamily, version}, 13), with_type) << version;
    }
    EXPECT_EQ(written(contact, {kCategoriesFamily, 322}, 13), with_type);
}

TEST(ContactProfiles, AMarkedGeneralVoiceNumberKeepsPref) {
    EXPECT_EQ(written(Contact{text(255, u"1"), text(32, u"1")}, {kCategoriesFamily, 323}),
              card({"TEL;PREF:1", "X-CATEGORIES:"}));
}

// ---- Categories and the lines written as they stand.

TEST(ContactProfiles, AnEmptyCategoriesLineEndsTheExtendedFieldsFromVersionFourteenOn) {
    const Contact contact{number(520, 1), messaging(1, u"a")};
    const auto with = card({"X-IMPP;TYPE=PERSONAL:a", "X-SELF:1", "X-CATEGORIES:"});
    const auto without = card({"X-IMPP;TYPE=PERSONAL:a", "X-SELF:1"});
    for (const std::uint32_t version : {0U, 1U, 299U, 323U, 0xFFFFFFFFU}) {
        EXPECT_EQ(written(contact, {kCategoriesFamily, version}, 14), with) << version;
        EXPECT_EQ(written(contact, {kCategoriesFamily, version}, 16), with) << version;
        EXPECT_EQ(written(contact, {kCategoriesFamily, version}, 13), without) << version;
        EXPECT_EQ(written(contact, {kCategoriesFamily, version, 0}, 16), without) << version;
        EXPECT_EQ(written(contact, {kServiceFamily + 1, version}, 16), without) << version;
    }
}

TEST(ContactProfiles, PlainNoteDtmfAndWirelessVillageLinesAreNothingButPrefixAndValue) {
    const Contact contact{text(512, u"a=b;c:d"), text(513, u"p1"), text(515, u"wv:a;b")};
    EXPECT_EQ(written(contact, {kCategoriesFamily, 1}, 14),
              card({"NOTE:a=b;c:d", "X-DTMF:p1", "X-WV-ID:wv:a;b", "X-CATEGORIES:"}));
}

TEST(ContactProfiles, NoTextBreaksOutOfItsLine) {
    const Contact contact{text(512, u"a\r\nEND:VCARD"), text(513, u"\u00E9"), text(515, u"\n"),
                          text(512, u"a\\nb")};
    EXPECT_EQ(written(contact, {kCategoriesFamily, 1}, 14),
              card({"NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=0D=0AEND:VCARD",
                    "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=0D=0Ab",
                    "X-DTMF;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9",
                    "X-WV-ID;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=0A", "X-CATEGORIES:"}));
}

// ---- Nickname, role and messaging by service.

TEST(ContactProfiles, SecondNameAndTitleAreWrittenUnderOtherNamesToo) {
    const Contact contact{text(8, u"Driver"), text(11, u"Nan")};
    const auto all =
        card({"TITLE:Driver", "ROLE:Driver", "X-EPOCSECONDNAME:Nan", "NICKNAME:Nan", "X-NICKNAME:Nan"});
    const auto plain = card({"TITLE:Driver", "X-EPOCSECONDNAME:Nan"});
    for (const std::uint32_t version : {0U, 13U, 16U}) {
        EXPECT_EQ(written(contact, kByService, version), all);
        EXPECT_EQ(written(contact, kByServiceToo, version), all);
    }
    for (const std::uint32_t version : {0U, 9U, 11U, 15U, 17U, 270U}) {
        EXPECT_EQ(written(contact, {kServiceFamily, version}), plain) << version;
    }
    EXPECT_EQ(written(contact, {kServiceFamily, 10, 0}), plain);
    EXPECT_EQ(written(contact, {kCategoriesFamily, 10}, 13), plain);
}

TEST(ContactProfiles, OtherNamesHoldSeveralLinesToo) {
    const std::string rest = ";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=0D=0Ab";
    EXPECT_EQ(written(Contact{text(8, u"a\\nb"), text(11, u"a\\Nb")}, kByService),
              card({"TITLE" + rest, "ROLE" + rest, "X-EPOCSECONDNAME" + rest, "NICKNAME" + rest,
                    "X-NICKNAME" + rest}));
}

struct ServiceCase {
    const char16_t* address;
    const char* head;
};

TEST(ContactProfiles, MessagingAddressesAreNamedByTheirService) {
    const ServiceCase rows[] = {
        {u"a@example.com", "X-JABBER"},
        {u"", "X-JABBER"},
        {u"jabber:a", "X-JABBER"},
        {u"nordachat:a", "X-JABBER"},
        {u"google-talk:a", "X-JABBER"},
        {u"Zuv:a", "X-JABBER;nordachat"},
        {u"Google:a", "X-JABBER;google-talk"},
        {u"skype:a", "X-SKYPE"},
        {u"Skype:a", "X-SKYPE"},
        {u"facebook-chat:a", "X-FACEBOOK"},
        {u"Facebook:a", "X-FACEBOOK;facebook-chat"},
        // Anywhere in the address, the first of the list that is found.
        {u"a skype:a", "X-SKYPE"},
        {u"skype:a jabber:b", "X-JABBER"},
        {u"Zuv:nordachat:", "X-JABBER"},
        {u"Facebook:google-talk:", "X-JABBER"},
        {u"skype:Google:Zuv:", "X-JABBER;nordachat"},
        {u"skype:Google:", "X-JABBER;google-talk"},
        {u"Facebook:skype:", "X-SKYPE"},
        {u"Facebook:facebook-chat:", "X-FACEBOOK"},
        // Case counts, and so does the colon.
        {u"SKYPE:a", "X-JABBER"},
        {u"zuv:a", "X-JABBER"},
        {u"google:a", "X-JABBER"},
        {u"facebook:a", "X-JABBER"},
        {u"skype", "X-JABBER"},
    };
    for (const ServiceCase& row : rows) {
        const std::u16string_view wide(row.address);
        const std::string value(wide.begin(), wide.end());
        const Contact contact{messaging(3, row.address), messaging(0, row.address, kPreferred)};
        const auto expected = card({row.head + (";TYPE=HOME:" + value), row.head + (";PREF:" + value)});
        EXPECT_EQ(written(contact, kByService), expected);
        EXPECT_EQ(written(contact, kByServiceToo, 0), expected);
        EXPECT_EQ(written(contact, {kServiceFamily, 11}),
                  card({"X-IMPP;TYPE=HOME:" + value, "X-IMPP;PREF:" + value}));
    }
}

}  // namespace
}  // namespace vzapi::test
