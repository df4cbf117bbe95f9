#include "vzconv/contact.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <deque>
#include <string>

#include "vzapi/vzapi.h"
#include "vzconv/contact_json.h"
#include "vzconv/failure.h"
#include "vzconv/json_object.h"
#include "vzconv/library.h"

namespace vzconv {
namespace {

// What the library writes for a record, without any of the tool's code.
std::string direct_text(const ContactItem& item, const ProfileRow& profile) {
    VersitData data{};
    const uint64_t counts = profile.family == VZ_PROFILE_NONE ? VZ_PROFILE_OFF : VZ_PROFILE_ON;
    EXPECT_EQ(ConvertToVersit2(profile.family, profile.version, counts, VZ_TYPE_CONTACT, &item, &data),
              VZ_OK);
    std::string text(static_cast<const char*>(data.text), data.length);
    EXPECT_EQ(FreeVersitData(&data), VZ_OK);
    return text;
}

// A record made by hand of strings that live as long as it.
class HandMade {
public:
    HandMade() { item_.size = sizeof item_; }
    HandMade(const HandMade&) = delete;
    HandMade& operator=(const HandMade&) = delete;

    char16_t* text(std::u16string text) { return texts_.emplace_back(std::move(text)).data(); }

    void add(std::vector<ContactField>& list, uint32_t id, std::u16string value, bool preferred = false) {
        ContactField field{sizeof(ContactField), preferred ? 1U : 0U, VZ_FORM_NONE, id, {}};
        field.value.text = text(std::move(value));
        list.push_back(field);
    }

    void add_number(uint32_t id, uint64_t number) {
        ContactField field{sizeof(ContactField), 0, VZ_FORM_EXTENDED, id, {}};
        field.value.number = number;
        extended.push_back(field);
    }

    void add_date(uint32_t id, uint16_t year, uint8_t month, uint8_t day) {
        ContactDate& date = dates_.emplace_back();
        date = {sizeof(ContactDate), year, month, day, 0, 0, 0, 0, {}};
        ContactField field{sizeof(ContactField), 0, VZ_FORM_NONE, id, {}};
        field.value.date = &date;
        general.push_back(field);
    }

    void add_photo(char16_t* type) {
        static uint8_t bytes[] = {0xFF, 0xD8, 0, 1, 2, 3, 0xFF, 0xD9};
        photo_ = {sizeof(ContactPhoto), type, sizeof bytes, bytes};
        ContactField field{sizeof(ContactField), 0, VZ_FORM_NONE, VZ_CONTACT_PHOTO, {}};
        field.value.photo = &photo_;
        general.push_back(field);
    }

    void add_address(uint32_t id, bool preferred) {
        ContactAddress& address = postal_.emplace_back();
        address = {sizeof(ContactAddress),
                   text(u"1"),
                   text(u"Stra\u00DFe; 3"),
                   text(u"6"),
                   text(u"4"),
                   text(u"5"),
                   text(u"7"),
                   text(u"2")};
        ContactField field{sizeof(ContactField), preferred ? 1U : 0U, VZ_FORM_ADDRESS, id, {}};
        field.value.address = &address;
        addresses.push_back(field);
    }

    void add_messaging(uint32_t kind, bool preferred) {
        ContactField& inner = messaging_.emplace_back();
        inner = {sizeof(ContactField), preferred ? 1U : 0U, kind, VZ_CONTACT_MESSAGING, {}};
        inner.value.text = text(u"skype:someone");
        ContactField field{sizeof(ContactField), 0, VZ_FORM_EXTENDED, VZ_CONTACT_MESSAGING, {}};
        field.value.messaging = &inner;
        extended.push_back(field);
    }

    const ContactItem& item() {
        item_.generalCount = static_cast<uint32_t>(general.size());
        item_.general = general.data();
        item_.phoneCount = static_cast<uint32_t>(phones.size());
        item_.phones = phones.data();
        item_.addressCount = static_cast<uint32_t>(addresses.size());
        item_.addresses = addresses.data();
        item_.extendedCount = static_cast<uint32_t>(extended.size());
        item_.extended = extended.data();
        return item_;
    }

    std::vector<ContactField> general, phones, addresses, extended;

private:
    ContactItem item_{};
    std::deque<std::u16string> texts_;
    std::deque<ContactDate> dates_;
    std::deque<ContactAddress> postal_;
    std::deque<ContactField> messaging_;
    ContactPhoto photo_{};
};

// Every field, backwards and forwards, so that no order is taken for granted.
void fill_with_everything(HandMade& made) {
    for (uint32_t id = 30; id-- > 1;) {
        if (id <= 20 && id != VZ_CONTACT_BIRTHDAY && id != VZ_CONTACT_ANNIVERSARY && id != VZ_CONTACT_PHOTO) {
            made.add(made.general, id, u"g\u00E9n " + std::u16string(1, static_cast<char16_t>(u'A' + id)));
        }
    }
    made.add_date(VZ_CONTACT_ANNIVERSARY, 2005, 6, 14);
    made.add_date(VZ_CONTACT_BIRTHDAY, 1980, 2, 29);
    made.add_photo(made.text(u"PNG"));
    for (const ContactWord& word : contact_words()) {
        const std::u16string value(word.word.begin(), word.word.end());
        if (word.list == ContactList::Phones) made.add(made.phones, word.id, value, word.id % 3 == 0);
        if (word.list == ContactList::Addresses && word.kind == ContactValueKind::Text) {
            made.add(made.addresses, word.id, value, word.id % 2 == 0);
        }
    }
    made.add(made.phones, VZ_CONTACT_PHONE_MARK, u"fax home");
    made.add(made.addresses, VZ_CONTACT_ADDRESS_MARK, u"web home");
    for (const uint32_t id : {256U, 258U, 257U}) made.add_address(id, id == 258);
    made.add(made.phones, VZ_CONTACT_PHONE, u"again");
    for (uint32_t kind = 0; kind <= VZ_MESSAGING_MOBILE; ++kind) made.add_messaging(kind, kind == 2);
    made.add_number(VZ_CONTACT_GENDER, VZ_GENDER_UNDEFINED);
    made.add_number(VZ_CONTACT_SELF, 4294967295);
    made.add_number(VZ_CONTACT_FAVORITE, 7);
    made.add_number(VZ_CONTACT_CLASS, VZ_CLASS_PRIVATE);
    for (const uint32_t id : {517U, 515U, 514U, 513U, 512U, 512U})
        made.add(made.extended, id, u"line\r\n\u05D0");
}

std::string text_by_json(const ContactItem& item, const ProfileRow& profile) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_contact(item, object);
    return kContactConverter.from_json(nlohmann::json::parse(object.dump()), {profile_of(profile.name)});
}

TEST(Contact, JsonCarriesAllThatAnyProfileWrites) {
    const LibrarySession session;
    HandMade everything;
    fill_with_everything(everything);
    HandMade nothing;
    HandMade little;
    little.add(little.general, VZ_CONTACT_COMPANY, u"");
    little.add_photo(nullptr);
    for (HandMade* made : {&everything, &nothing, &little}) {
        for (const ProfileRow& profile : profiles()) {
            EXPECT_EQ(text_by_json(made->item(), profile), direct_text(made->item(), profile))
                << profile.name;
        }
    }
}

TEST(Contact, EntriesComeBackInTheirPlaceAsTheyWere) {
    HandMade made;
    fill_with_everything(made);
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_contact(made.item(), object);
    ContactRecord record;
    take_contact(nlohmann::json::parse(object.dump()), record);
    const ContactItem item = record.item();
    EXPECT_EQ(item.generalCount, made.general.size());
    EXPECT_EQ(item.extendedCount, made.extended.size());
    ASSERT_EQ(item.phoneCount, made.phones.size());
    ASSERT_EQ(item.addressCount, made.addresses.size());
    const auto expect_same = [](const ContactField& a, const ContactField& b) {
        EXPECT_EQ(a.size, b.size);
        EXPECT_EQ(a.fieldId, b.fieldId);
        EXPECT_EQ(a.preferred, b.preferred) << a.fieldId;
        EXPECT_EQ(a.form, b.form) << a.fieldId;
    };
    for (std::size_t i = 0; i < made.phones.size(); ++i) expect_same(item.phones[i], made.phones[i]);
    for (std::size_t i = 0; i < made.addresses.size(); ++i) expect_same(item.addresses[i], made.addresses[i]);
    for (uint32_t i = 0; i < item.extendedCount; ++i) {
        EXPECT_EQ(item.extended[i].form, item.extended[i].fieldId >= 518 || item.extended[i].fieldId == 516
                                             ? uint32_t{VZ_FORM_EXTENDED}
                                             : uint32_t{VZ_FORM_NONE});
    }
}

TEST(Contact, PartsOfOneLineStayTogether) {
    const LibrarySession session;
    HandMade made;
    made.add(made.general, VZ_CONTACT_GIVEN_NAME, u"a");
    made.add(made.general, VZ_CONTACT_FAMILY_NAME, u"b");
    made.add(made.general, VZ_CONTACT_GIVEN_NAME, u"c");
    made.add(made.general, VZ_CONTACT_DEPARTMENT, u"d");
    made.add(made.general, VZ_CONTACT_FORMATTED_NAME, u"e");
    made.add(made.general, VZ_CONTACT_FORMATTED_NAME, u"f");
    made.add(made.general, VZ_CONTACT_FAMILY_NAME, u"g");
    made.add(made.general, VZ_CONTACT_COMPANY, u"h");
    made.add(made.general, VZ_CONTACT_COMPANY, u"i");
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_contact(made.item(), object);
    EXPECT_EQ(object.dump(), R"({"name":[{"given":"a","family":"b"},{"given":"c","family":"g"}],)"
                             R"("formattedName":["e","f"],)"
                             R"("organization":[{"department":"d","company":"h"},{"company":"i"}]})");
    EXPECT_EQ(text_by_json(made.item(), profiles()[0]), direct_text(made.item(), profiles()[0]));
}

struct RefusalRow {
    const char* json;
    const char* reason;
};

TEST(Contact, WhatIsUnknownOrOfAWrongTypeIsRefusedByItsName) {
    const RefusalRow rows[] = {
        {R"({"nickname":"a"})", R"(unknown key "nickname")"},
        {R"({"order":["note"]})", R"(unknown key "order")"},
        {R"({"name":[{"family":"a"},{"middle":"a"}]})", R"(unknown key "name[1].middle")"},
        {R"({"name":{"family":["a"]}})", R"("name.family" must be a string, not an array)"},
        {R"({"name":{"middle":"a"}})", R"(unknown key "name.middle")"},
        {R"({"name":"a"})", R"("name" must be an object, not a string)"},
        {R"({"name":{"family":1}})", R"("name.family" must be a string, not a number)"},
        {R"({"spouse":["a",true]})", R"("spouse[1]" must be a string, not a boolean)"},
        {R"({"title":null})", R"("title" must be a string, not null)"},
        {R"({"note":"a\u0000b"})", R"("note" holds a NUL character)"},
        {R"({"phones":{}})", R"("phones" must be an array, not an object)"},
        {R"({"phones":["1"]})", R"("phones[0]" must be an object, not a string)"},
        {R"({"phones":[{"number":"1"}]})", R"(the key "phones[0].type" is missing)"},
        {R"({"phones":[{"type":"home"}]})", R"(the key "phones[0].number" is missing)"},
        {R"({"phones":[{"type":"cell","number":"1"}]})", R"(unknown type "cell" in "phones[0].type")"},
        {R"({"phones":[{"type":"home","number":"1"},{"type":"home","number":1}]})",
         R"("phones[1].number" must be a string, not a number)"},
        {R"({"phones":[{"type":"home","number":"1","preferred":1}]})",
         R"("phones[0].preferred" must be true or false, not a number)"},
        {R"({"phones":[{"type":"home","number":"1","address":"2"}]})", R"(unknown key "phones[0].address")"},
        {R"({"addresses":[{"type":"postal","address":"2"}]})", R"(unknown key "addresses[0].address")"},
        {R"({"addresses":[{"type":"email","street":"2","address":"a"}]})",
         R"(unknown key "addresses[0].street")"},
        {R"({"birthday":"29.2.1980"})",
         R"("birthday" must be a date like 1980-02-29 or 1980-02-29T12:30:00, not "29.2.1980")"},
        {R"({"class":"secret"})", R"("class" must be one of private, public, none, not "secret")"},
        {R"({"gender":1})", R"("gender" must be a string, not a number)"},
        {R"({"favorite":"1"})", R"("favorite" must be a number, not a string)"},
        {R"({"favorite":-1})", R"("favorite" must be a whole number from 0 to 4294967295, not -1)"},
        {R"({"self":4294967296})", R"("self" must be a whole number from 0 to 4294967295, not 4294967296)"},
        {R"({"messaging":[{"type":"cell","address":"a"}]})",
         R"("messaging[0].type" must be one of personal, business, home, work, mobile, not "cell")"},
        {R"({"messaging":[{}]})", R"(the key "messaging[0].address" is missing)"},
        {R"({"photo":"AA=="})", R"("photo" must be an object, not a string)"},
        {R"({"photo":{"type":"PNG"}})", R"(the key "photo.data" is missing)"},
        {R"({"photo":{"data":"A"}})", R"("photo.data" is no Base64)"},
        {R"({"photo":{"data":"AA==","size":2}})", R"("photo.size" is 2, but "data" has 1 bytes)"},
    };
    const LibrarySession session;
    for (const RefusalRow& row : rows) {
        try {
            kContactConverter.from_json(nlohmann::json::parse(row.json), {});
            ADD_FAILURE() << "taken: " << row.json;
        } catch (const Failure& failure) {
            EXPECT_STREQ(failure.what(), row.reason) << row.json;
        }
    }
}

TEST(Contact, OtherWaysToSayTheSameHaveOnePlainForm) {
    EXPECT_EQ(
        kContactConverter
            .plain_form(nlohmann::json::parse(
                R"({"note":["a"],"title":"b","phones":[],"spouse":[],"organization":[],)"
                R"("birthday":"1980-02-29T00:00:00","addresses":[{"type":"postal","city":"","preferred":false}],)"
                R"("messaging":{"address":"c"},"photo":{"data":"AA=="}})"))
            .dump(),
        R"({"addresses":[{"type":"postal"}],"birthday":"1980-02-29","messaging":[{"address":"c"}],)"
        R"("note":"a","photo":{"data":"AA==","size":1},"title":"b"})");
}

TEST(Contact, TextToJsonToTextIsTextToRecordToText) {
    const LibrarySession session;
    const std::string text =
        "BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE:n\r\nTEL;CELL;PREF:1\r\nFN:f\r\nEMAIL:a@example.com\r\nORG:o;"
        "d\r\n"
        "N:a;b\r\nADR;HOME:;;s\r\nTITLE:t\r\nFN:f\r\nURL;WORK:u\r\nCLASS:PUBLIC\r\nTEL:2\r\nBDAY:19800229\r\n"
        "X-IMPP;TYPE=HOME:i\r\nNOTE:m\r\nPHOTO;ENCODING=BASE64;TYPE=GIF:AAEC\r\nX-FAVORITE:2\r\nEND:"
        "VCARD\r\n";
    const ReadRecord<ContactItem, kContactRecord> contact(text);
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    kContactConverter.to_json(text, {}, object);
    for (const ProfileRow& profile : profiles()) {
        EXPECT_EQ(kContactConverter.from_json(nlohmann::json(object), {profile_of(profile.name)}),
                  direct_text(*contact, profile))
            << profile.name;
    }
}

}  // namespace
}  // namespace vzconv
