#include "vzconv/contact_show.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "vzconv/contact_json.h"
#include "vzconv/json_object.h"

namespace vzconv {
namespace {

std::string shown(const char* json) {
    ContactRecord record;
    take_contact(nlohmann::json::parse(json), record);
    return show_contact(record.item());
}

TEST(ContactShow, AContactReadsFromTheNameToTheRest) {
    EXPECT_EQ(
        shown(
            R"({"uid":"u","note":"a\nb","birthday":"1980-02-29","class":"public","favorite":1,"self":2,)"
            R"("name":{"family":"Muster","given":"Anna","prefix":"Dr."},"formattedName":"Dr. Anna Muster",)"
            R"("organization":{"company":"Works"},"title":"Head","phones":[{"type":"mobile home","number":"1","preferred":true}],)"
            R"("addresses":[{"type":"email work","address":"a@example.com"},)"
            R"({"type":"postal home","poBox":"12","street":"S 1","postalCode":"10115","city":"Berlin"}],)"
            R"("messaging":[{"type":"work","address":"m","preferred":true},{"address":"n"}],)"
            R"("photo":{"type":"GIF","data":"AA=="}})"),
        "Contact\n"
        "  Name                 Dr. Anna Muster\n"
        "  Company              Works\n"
        "  Title                Head\n"
        "  Mobile, home         1 (preferred)\n"
        "  E-mail, work         a@example.com\n"
        "  Address, home        PO box 12\n"
        "                       S 1\n"
        "                       10115 Berlin\n"
        "  Messaging, work      m (preferred)\n"
        "  Messaging            n\n"
        "  Birthday             29 February 1980\n"
        "  Note                 a\n"
        "                       b\n"
        "  Photo                GIF, 1 byte\n"
        "  Favourite            yes\n"
        "  Own card             2\n"
        "  Class                public\n"
        "  Identifier           u\n");
}

struct NameRow {
    const char* json;
    const char* shown;
};

TEST(ContactShow, ThePartsOfTheNameAreNamedWhereTheyDoNotMakeUpTheName) {
    const NameRow rows[] = {
        {"{}", "Contact\n  (empty)\n"},
        {R"({"name":{"family":"B","given":"A"}})", "Contact\n  Name                 A B\n"},
        {R"({"name":{"family":"A","given":"B"},"formattedName":"A B"})",
         "Contact\n  Name                 A B\n"},
        {R"({"name":{"family":"\u8303","given":"\u5c0f"},"formattedName":"\u8303\u5c0f"})",
         "Contact\n  Name                 \xE8\x8C\x83\xE5\xB0\x8F\n"},
        {R"({"formattedName":"A B"})", "Contact\n  Name                 A B\n"},
        {R"({"name":{"family":"B","given":"A"},"formattedName":"B, A"})",
         "Contact\n  Name                 B, A\n  Family name          B\n  Given name           A\n"},
        {R"({"name":{"family":"B","given":"A"},"formattedName":["B, A","A B"]})",
         "Contact\n  Name                 B, A\n  Name                 A B\n"},
    };
    for (const NameRow& row : rows) EXPECT_EQ(shown(row.json), row.shown) << row.json;
}

TEST(ContactShow, APreferredAddressHasTheMarkBelow) {
    EXPECT_EQ(
        shown(R"({"addresses":[{"type":"postal","poBox":"Box 1","country":"Utopia","preferred":true}]})"),
        "Contact\n"
        "  Address              Box 1\n"
        "                       Utopia\n"
        "                       (preferred)\n");
}

TEST(ContactShow, SizesAreRounded) {
    const auto photo_of = [](std::size_t bytes) {
        ContactRecord record;
        const ContactWord* word = contact_word_of(VZ_CONTACT_PHOTO);
        record.add(*word, false, record.photo(std::nullopt, std::vector<uint8_t>(bytes)));
        return show_contact(record.item());
    };
    EXPECT_EQ(photo_of(0), "Contact\n  Photo                picture, 0 bytes\n");
    EXPECT_EQ(photo_of(1023), "Contact\n  Photo                picture, 1023 bytes\n");
    EXPECT_EQ(photo_of(1024), "Contact\n  Photo                picture, 1 KB\n");
    EXPECT_EQ(photo_of(1536), "Contact\n  Photo                picture, 1.5 KB\n");
    EXPECT_EQ(photo_of(1572864), "Contact\n  Photo                picture, 1.5 MB\n");
}

TEST(ContactShow, ATextOfControlsReachesNoTerminal) {
    EXPECT_EQ(shown(R"({"note":"\u001b[31m"})"), "Contact\n  Note                 \xE2\x90\x9B[31m\n");
}

}  // namespace
}  // namespace vzconv
