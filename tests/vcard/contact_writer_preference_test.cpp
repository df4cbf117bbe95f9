// ContactItem to vCard 2.1 text: which of its values is preferred, as an entry or a mark says it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vcard/contact_fields.h"
#include "vcard/written_contact.h"

namespace vzapi::test {
namespace {

TEST(ContactWriting, PreferredEntriesCarryPrefOnce) {
    for (const std::uint32_t version : {0U, 13U, 14U, 16U}) {
        for (const vcard::FieldRow& row : vcard::contact_fields()) {
            const bool has_types =
                row.list == vcard::ContactList::Phones || row.list == vcard::ContactList::Addresses;
            Entry entry = sample_of(row);
            entry.preferred = kPreferred;
            const std::string out = written(Contact{entry}, kNoProfile, version);
            const std::size_t at = out.find(";PREF");
            const bool expected = has_types && row.kind != vcard::ValueKind::Marker;
            EXPECT_EQ(at != std::string::npos, expected) << row.id << ": " << out;
            if (!expected) continue;
            EXPECT_EQ(out.find(";PREF", at + 1), std::string::npos) << row.id << ": " << out;
        }
    }
}

TEST(ContactWriting, PrefFollowsTheTypes) {
    expect_all({
        {"home number", {text(33, u"1", kPreferred)}, card({"TEL;HOME;PREF:1"})},
        {"preferred number", {text(35, u"1", kPreferred)}, card({"TEL;PREF:1"})},
        {"VoIP", {text(113, u"1", kPreferred)}, card({"X-SIP;VOIP;HOME;PREF:1"})},
        {"assistant's number", {text(115, u"1", kPreferred)}, card({"X-ASSISTANT-TEL;PREF:1"})},
        {"address", {address(257, {}, kPreferred)}, card({"ADR;WORK;PREF:;;;;;;"})},
        {"e-mail", {text(259, u"e", kPreferred)}, card({"EMAIL;PREF:e"})},
        {"home e-mail", {text(260, u"e", kPreferred)}, card({"EMAIL;INTERNET;HOME;PREF:e"})},
        {"web address", {text(272, u"w", kPreferred)}, card({"URL;PREF:w"})},
        {"push-to-talk", {text(288, u"s", kPreferred)}, card({"X-SIP;POC;PREF:s"})},
        {"SIP", {text(304, u"s", kPreferred)}, card({"X-SIP;PREF:s"})},
        {"another number than 1 is no preference", {text(33, u"1", 2)}, card({"TEL;HOME:1"})},
    });
}

struct MarkCase {
    const char* what;
    Contact contact;
    std::string before;  // interface version 13
    std::string after;   // 14
};

TEST(ContactWriting, MarkedValuesCarryPrefFromVersionFourteenOn) {
    const MarkCase rows[] = {
        {"number",
         {text(255, u"1"), text(32, u"1"), text(33, u"2")},
         card({"TEL;VOICE:1", "TEL;HOME:2"}),
         card({"TEL;VOICE;PREF:1", "TEL;HOME:2"})},
        {"the mark stands last",
         {text(64, u"1"), text(255, u"1")},
         card({"TEL;CELL:1"}),
         card({"TEL;CELL;PREF:1"})},
        {"all numbers that equal it",
         {text(64, u"1"), text(255, u"1"), text(66, u"1")},
         card({"TEL;CELL:1", "TEL;CELL;WORK:1"}),
         card({"TEL;CELL;PREF:1", "TEL;CELL;WORK;PREF:1"})},
        {"assistant's number",
         {text(255, u"1"), text(115, u"1")},
         card({"X-ASSISTANT-TEL:1"}),
         card({"X-ASSISTANT-TEL;PREF:1"})},
        {"VoIP", {text(255, u"1"), text(112, u"1")}, card({"X-SIP;VOIP:1"}), card({"X-SIP;VOIP;PREF:1"})},
        {"preferred number",
         {text(255, u"1"), text(35, u"1", kPreferred)},
         card({"TEL;PREF:1"}),
         card({"TEL;PREF:1"})},
        {"preferred and marked",
         {text(255, u"1"), text(34, u"1", kPreferred)},
         card({"TEL;WORK;PREF:1"}),
         card({"TEL;WORK;PREF:1"})},
        {"several marks",
         {text(255, u"3"), text(255, u"1"), text(32, u"1"), text(32, u"2"), text(32, u"3")},
         card({"TEL;VOICE:1", "TEL;VOICE:2", "TEL;VOICE:3"}),
         card({"TEL;VOICE;PREF:1", "TEL;VOICE:2", "TEL;VOICE;PREF:3"})},
        {"equal means unit for unit",
         {text(255, u"1"), text(32, u"10"), text(32, u" 1"), text(32, u"")},
         card({"TEL;VOICE:10", "TEL;VOICE: 1", "TEL;VOICE:"}),
         card({"TEL;VOICE:10", "TEL;VOICE: 1", "TEL;VOICE:"})},
        {"an empty mark marks empty numbers",
         {text(255, u""), text(32, u""), text(33, u"1")},
         card({"TEL;VOICE:", "TEL;HOME:1"}),
         card({"TEL;VOICE;PREF:", "TEL;HOME:1"})},
        {"all equal units, beyond the first plane too",
         {text(511, u"\U0001F600"), text(259, u"\U0001F600"), text(259, u"\U0001F601")},
         card({"EMAIL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=F0=9F=98=80",
               "EMAIL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=F0=9F=98=81"}),
         card({"EMAIL;PREF;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=F0=9F=98=80",
               "EMAIL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=F0=9F=98=81"})},
        {"postal addresses are not marked",
         {text(511, u"a"), address(256, {u"a"})},
         card({"ADR;POSTAL:a;;;;;;"}),
         card({"ADR;POSTAL:a;;;;;;"})},
        {"not even by an empty mark",
         {text(511, u""), address(256, {u"a"}), text(272, u"")},
         card({"ADR;POSTAL:a;;;;;;", "URL:"}),
         card({"ADR;POSTAL:a;;;;;;", "URL;PREF:"})},
        {"every e-mail and web address",
         {text(511, u"a"), text(259, u"a"), text(260, u"a"), text(261, u"a"), text(272, u"a"),
          text(273, u"a"), text(274, u"a"), text(288, u"a"), text(289, u"a")},
         card({"EMAIL:a", "EMAIL;INTERNET;HOME:a", "EMAIL;INTERNET;WORK:a", "URL:a", "URL;HOME:a",
               "URL;WORK:a", "X-SIP;POC:a", "X-SIP;SWIS:a"}),
         card({"EMAIL;PREF:a", "EMAIL;INTERNET;HOME;PREF:a", "EMAIL;INTERNET;WORK;PREF:a", "URL;PREF:a",
               "URL;HOME;PREF:a", "URL;WORK;PREF:a", "X-SIP;POC:a", "X-SIP;SWIS:a"})},
        {"a mark without value",
         {text(255, std::nullopt), text(32, u"")},
         card({"TEL;VOICE:"}),
         card({"TEL;VOICE:"})},
        {"e-mail",
         {text(511, u"a"), text(260, u"a"), text(259, u"b")},
         card({"EMAIL;INTERNET;HOME:a", "EMAIL:b"}),
         card({"EMAIL;INTERNET;HOME;PREF:a", "EMAIL:b"})},
        {"web address", {text(273, u"a"), text(511, u"a")}, card({"URL;HOME:a"}), card({"URL;HOME;PREF:a"})},
        {"SIP is not marked", {text(511, u"a"), text(304, u"a")}, card({"X-SIP:a"}), card({"X-SIP:a"})},
        {"a mark holds for its own list",
         {text(255, u"a"), text(259, u"a"), text(511, u"b"), text(32, u"b")},
         card({"TEL;VOICE:b", "EMAIL:a"}),
         card({"TEL;VOICE:b", "EMAIL:a"})},
    };
    for (const MarkCase& row : rows) {
        EXPECT_EQ(written(row.contact, kNoProfile, 13), row.before) << row.what;
        EXPECT_EQ(written(row.contact, kNoProfile, 14), row.after) << row.what;
        EXPECT_EQ(written(row.contact, kNoProfile, 16), row.after) << row.what;
    }
}

TEST(ContactWriting, ManyMarksStayCheap) {
    Contact contact;
    std::string expected = lines({"BEGIN:VCARD", "VERSION:2.1"});
    constexpr int kCount = 20000;  // compared one with another, these would be 400 million
    for (int i = 0; i < kCount; ++i) {
        const std::string digits = std::to_string(i);
        const std::u16string value(digits.begin(), digits.end());
        contact.add(text(255, value));
        contact.add(text(32, i % 2 == 0 ? value : value + u"x"));
        expected += i % 2 == 0 ? "TEL;VOICE;PREF:" + digits + "\r\n" : "TEL;VOICE:" + digits + "x\r\n";
    }
    EXPECT_EQ(written(contact), expected + "END:VCARD\r\n");
}

}  // namespace
}  // namespace vzapi::test
