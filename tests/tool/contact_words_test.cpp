#include "vzconv/contact_words.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "vzapi/vzapi.h"

namespace vzconv {
namespace {

struct IdRange {
    uint32_t first, last;
    ContactList list;
};

// The ids of vzapi/contact.h, in runs.
constexpr IdRange kIds[] = {
    {VZ_CONTACT_FAMILY_NAME, VZ_CONTACT_DEPARTMENT, ContactList::General},
    {VZ_CONTACT_PHONE, VZ_CONTACT_PHONE_MODEM, ContactList::Phones},
    {VZ_CONTACT_PHONE_PAGER, VZ_CONTACT_PHONE_PAGER, ContactList::Phones},
    {VZ_CONTACT_PHONE_MOBILE, VZ_CONTACT_PHONE_MOBILE_WORK, ContactList::Phones},
    {VZ_CONTACT_PHONE_FAX, VZ_CONTACT_PHONE_FAX_WORK, ContactList::Phones},
    {VZ_CONTACT_PHONE_VIDEO, VZ_CONTACT_PHONE_VIDEO_WORK, ContactList::Phones},
    {VZ_CONTACT_PHONE_VOIP, VZ_CONTACT_PHONE_ASSISTANT, ContactList::Phones},
    {VZ_CONTACT_PHONE_MARK, VZ_CONTACT_PHONE_MARK, ContactList::Phones},
    {VZ_CONTACT_ADDRESS, VZ_CONTACT_EMAIL_WORK, ContactList::Addresses},
    {VZ_CONTACT_WEB, VZ_CONTACT_WEB_WORK, ContactList::Addresses},
    {VZ_CONTACT_PUSH_TO_TALK, VZ_CONTACT_VIDEO_SHARING, ContactList::Addresses},
    {VZ_CONTACT_SIP, VZ_CONTACT_SIP, ContactList::Addresses},
    {VZ_CONTACT_ADDRESS_MARK, VZ_CONTACT_ADDRESS_MARK, ContactList::Addresses},
    {VZ_CONTACT_NOTE, VZ_CONTACT_GENDER, ContactList::Extended},
};

TEST(ContactWords, EveryIdHasOneRowInItsList) {
    std::size_t count = 0;
    for (const IdRange& range : kIds) {
        for (uint32_t id = range.first; id <= range.last; ++id, ++count) {
            const ContactWord* word = contact_word_of(id);
            ASSERT_NE(word, nullptr) << id;
            EXPECT_EQ(word->id, id);
            EXPECT_EQ(word->list, range.list) << id;
        }
    }
    EXPECT_EQ(contact_words().size(), count);
    for (const uint32_t id : {0U, 21U, 31U, 38U, 254U, 262U, 510U, 522U, 0xFFFFFFFFU}) {
        EXPECT_EQ(contact_word_of(id), nullptr) << id;
    }
}

TEST(ContactWords, WordsAreUniqueWhereTheyStandAndLabelsAreThere) {
    std::set<std::pair<ContactList, std::string_view>> types;
    std::set<std::pair<std::string_view, std::string_view>> keys;
    for (const ContactWord& word : contact_words()) {
        EXPECT_FALSE(word.label.empty()) << word.word;
        if (word.list == ContactList::Phones || word.list == ContactList::Addresses) {
            EXPECT_TRUE(types.insert({word.list, word.word}).second) << word.word;
            EXPECT_EQ(contact_word_of(word.list, word.word), &word);
        } else {
            EXPECT_TRUE(keys.insert({word.group, word.word}).second) << word.word;
        }
    }
    EXPECT_EQ(contact_word_of(ContactList::Phones, "Mobile"), nullptr);
}

TEST(ContactWords, TheFieldsOfAGroupStandTogether) {
    std::set<std::string_view> groups;
    std::string_view last;
    for (const ContactWord& word : contact_words()) {
        if (!word.group.empty() && word.group != last) {
            EXPECT_TRUE(groups.insert(word.group).second) << word.group;
        }
        last = word.group;
    }
    EXPECT_EQ(groups, (std::set<std::string_view>{"name", "organization", "phonetic"}));
}

TEST(ContactWords, CodesHaveWords) {
    EXPECT_EQ(word_of(class_words(), VZ_CLASS_NONE), "none");
    EXPECT_EQ(word_of(gender_words(), VZ_GENDER_FEMALE), "female");
    EXPECT_EQ(word_of(messaging_words(), VZ_MESSAGING_MOBILE), "mobile");
    EXPECT_EQ(word_of(class_words(), 4), "");
    EXPECT_EQ(code_of(messaging_words(), "business"), uint32_t{VZ_MESSAGING_BUSINESS});
    EXPECT_FALSE(code_of(messaging_words(), "Business"));
}

}  // namespace
}  // namespace vzconv
