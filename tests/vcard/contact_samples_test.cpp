// The samples of tests/data/contacts: what the phone book promises to show, and that its contacts come back.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "support/text.h"
#include "vcard/contact_builder.h"
#include "vcard/contact_losses.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

std::vector<std::string> cards_of(const std::string& name) {
    std::ifstream file(std::string(VZAPI_TEST_DATA "/contacts/") + name, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::vector<std::string> cards;
    for (std::size_t at = text.find("BEGIN:VCARD"); at != text.npos;) {
        const std::size_t end = text.find("BEGIN:VCARD", at + 1);
        cards.push_back(text.substr(at, end - at));
        at = end;
    }
    return cards;
}

// The contact that a card is read to.
Contact contact_in(std::string card) {
    const VersitData in = data_of(card);
    ContactItem item{};
    item.size = sizeof item;
    EXPECT_EQ(ConvertFromVersit(VZ_TYPE_CONTACT, &in, &item), VZ_OK) << card;
    Contact contact = contact_of(item);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT, &item), VZ_OK);
    return contact;
}

TEST(ContactSamples, ThePhoneBookHasTwentyFiveContactsAndEveryFieldThatHasALine) {
    const std::vector<std::string> cards = cards_of("phone-book.vcf");
    EXPECT_EQ(cards.size(), 25U);
    std::set<std::uint32_t> ids;
    std::size_t photos = 0;
    for (const std::string& card : cards) {
        const Contact contact = contact_in(card);
        for (const auto* list : {&contact.general, &contact.phones, &contact.addresses, &contact.extended}) {
            for (const Entry& entry : *list) {
                ids.insert(entry.id);
                photos += std::holds_alternative<Photo>(entry.value) ? 1 : 0;
            }
        }
    }
    EXPECT_GT(photos, 1U);
    for (const auto& [first, last] : {std::pair{1U, 20U},
                                      {32U, 37U},
                                      {48U, 48U},
                                      {64U, 66U},
                                      {80U, 82U},
                                      {96U, 98U},
                                      {112U, 115U},
                                      {256U, 261U},
                                      {272U, 274U},
                                      {288U, 289U},
                                      {304U, 304U},
                                      {512U, 521U}}) {
        for (std::uint32_t id = first; id <= last; ++id) EXPECT_EQ(ids.count(id), 1U) << id;
    }
}

TEST(ContactSamples, TheContactsOfThePhoneBookComeBack) {
    const AnnouncedVersion announced(16);
    for (const std::string& card : cards_of("phone-book.vcf")) {
        const Contact contact = contact_in(card);
        ContactRecord record(contact);
        OwnedText text;
        ASSERT_EQ(ConvertToVersit(VZ_TYPE_CONTACT, record.item(), &text.data), VZ_OK);
        const Contact back = contact_in(text.bytes());
        EXPECT_EQ(in_order(back), after_the_trip(contact));
    }
}

}  // namespace
