// Building contact records, and releasing what is left of them after a host had them in its hands.
#include "vcard/contact_record.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <new>
#include <string>

#include "platform/allocation_gate.h"
#include "platform/heap.h"
#include "platform/ole_string.h"
#include "support/failing_allocations.h"
#include "support/guard_page.h"
#include "support/pointer_to.h"
#include "vcard/owned_contact.h"

namespace vzapi::vcard {
namespace {

using test::GuardPage;
using test::show;

constexpr std::array<std::u16string_view, 7> kParts{u"a", u"b", u"c", u"d", u"e", u"f", u""};
constexpr ReleaseContext kOld{12};
constexpr ReleaseContext kChecked{13};

void add_each_kind(ContactBuilder& contact) {
    const std::byte bytes[] = {std::byte{'A'}, std::byte{'B'}};
    contact.add_text(VZ_CONTACT_FAMILY_NAME, false, u"a");
    contact.add_date(VZ_CONTACT_BIRTHDAY, false, {20, 2001, 2, 3, 0, 0, 0, 0, {}});
    contact.add_photo(true, u"PNG", bytes);
    contact.add_text(VZ_CONTACT_PHONE_HOME, true, u"12");
    contact.add_address(VZ_CONTACT_ADDRESS_WORK, true, kParts);
    contact.add_text(VZ_CONTACT_EMAIL, false, u"");
    contact.add_messaging(VZ_MESSAGING_WORK, true, u"b");
    contact.add_number(VZ_CONTACT_CLASS, false, 2);
}

constexpr std::string_view kEachKind =
    "G1 a\nG9 2001-02-03\nG10* PNG AB\nP33* 12\nA257*/3 a|b|c|d|e|f|\nA259 \n"
    "E518/4 kind 4* b\nE516/4 2\n";

ContactItem contact_of_each_kind() {
    ContactItem item{};
    item.size = sizeof item;
    ContactBuilder contact;
    add_each_kind(contact);
    contact.hand_over(item);
    return item;
}

void expect_empty(const ContactItem& item, std::uint32_t size = sizeof(ContactItem)) {
    ContactItem expected;
    std::memset(&expected, 0, sizeof expected);  // between the members, too
    expected.size = size;
    EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0);
}

ResultCode release(void* item, const ReleaseContext& context) {
    try {
        release_contact(item, context);
    } catch (ResultCode code) {
        return code;
    }
    return VZ_OK;
}

TEST(ContactBuilder, HandsOverEachEntryInItsList) {
    ContactItem item = contact_of_each_kind();
    EXPECT_EQ(show(item), kEachKind);
    EXPECT_EQ(item.general[0].size, 24U);
    EXPECT_EQ(item.addresses[0].value.address->size, 64U);
    const ContactField& messaging = *item.extended[0].value.messaging;
    EXPECT_EQ(messaging.size, 24U);
    EXPECT_EQ(messaging.fieldId, 0U);
    release_contact(&item, kChecked);
    expect_empty(item);
}

TEST(ContactBuilder, KnowsWhatWasAdded) {
    ContactBuilder contact;
    EXPECT_FALSE(contact.has(VZ_CONTACT_CLASS));
    contact.add_number(VZ_CONTACT_CLASS, false, 1);
    EXPECT_TRUE(contact.has(VZ_CONTACT_CLASS));
    EXPECT_FALSE(contact.has(VZ_CONTACT_GENDER));
}

TEST(ContactBuilder, WithoutEntriesGivesNoArrays) {
    ContactItem item;
    std::memset(&item, 0xA5, sizeof item);
    ContactBuilder().hand_over(item);
    EXPECT_EQ(item.size, 0xA5A5A5A5U) << "left alone";
    EXPECT_EQ(item.generalCount + item.phoneCount + item.addressCount + item.extendedCount, 0U);
    for (const ContactField* list : {item.general, item.phones, item.addresses, item.extended}) {
        EXPECT_EQ(list, nullptr);
    }
}

TEST(ContactBuilder, APhotoWithoutATypeHasNone) {
    ContactItem item{};
    ContactBuilder contact;
    contact.add_photo(false, {}, std::as_bytes(std::span("x", 1)));
    contact.hand_over(item);
    EXPECT_EQ(item.general[0].value.photo->imageType, nullptr);
    release_contact(&item, kOld);
}

TEST(ContactBuilder, AFailedAllocationLeavesItAsItWas) {
    for (std::size_t nth = 1;; ++nth) {
        ContactItem item{};
        bool raised = false;
        {
            ContactBuilder contact;
            test::FailingAllocations failing(nth);
            try {
                add_each_kind(contact);
                contact.hand_over(item);
            } catch (ResultCode code) {
                raised = code == VZ_ERR_OUT_OF_MEMORY;
            } catch (const std::bad_alloc&) {
                raised = true;
            }
            failing.stop();
            EXPECT_EQ(raised, failing.failed()) << nth;
            if (raised) {
                expect_empty(item, 0);
                contact.hand_over(item);  // what was added before the failure is all there
                EXPECT_TRUE(kEachKind.starts_with(show(item).substr(0, 2)) || item.generalCount == 0) << nth;
            }
        }
        item.size = sizeof item;
        release_contact(&item, kChecked);
        if (!raised) break;
        ASSERT_LT(nth, 100U);
    }
}

TEST(ReleaseContact, GivesEveryBlockAndStringBack) {
    static std::size_t released = 0;
    released = 0;
    ContactItem item = contact_of_each_kind();
    platform::g_test_only_release_observer = [](const void*, std::size_t) noexcept { ++released; };
    release_contact(&item, kChecked);
    platform::g_test_only_release_observer = nullptr;
    EXPECT_EQ(released, 9U) << "four arrays, date, photo and its bytes, address, messaging";
    expect_empty(item);
}

TEST(ReleaseContact, TwiceIsHarmless) {
    ContactItem item = contact_of_each_kind();
    EXPECT_EQ(release(&item, kChecked), VZ_OK);
    EXPECT_EQ(release(&item, kChecked), VZ_OK);
    expect_empty(item);
}

TEST(ReleaseContact, RefusesARecordThatCannotBeRead) {
    const GuardPage page;
    EXPECT_EQ(release(nullptr, kChecked), VZ_ERR_POINTER);
    EXPECT_EQ(release(page.unreadable(), kChecked), VZ_ERR_POINTER);
    EXPECT_EQ(release(page.last(sizeof(ContactItem) - 8), kChecked), VZ_ERR_POINTER);
    EXPECT_EQ(release(test::pointer_to<void>(8), kOld), VZ_ERR_POINTER);
}

TEST(ReleaseContact, ChecksTheSizeFromVersion13On) {
    ContactItem item = contact_of_each_kind();
    for (const std::uint32_t size : {0U, 24U, 63U, 65U, 0xFFFFFFFFU}) {
        item.size = size;
        EXPECT_EQ(release(&item, kChecked), VZ_ERR_BAD_VALUE) << size;
        EXPECT_EQ(show(item), kEachKind) << "untouched";
    }
    EXPECT_EQ(release(&item, kOld), VZ_OK);
    expect_empty(item, 0xFFFFFFFFU);
}

using Spoil = void (*)(ContactItem& item, const GuardPage& page);

struct SpoilCase {
    const char* what;
    Spoil spoil;
};

// What hangs on a pointer that is overwritten is lost: it is given back here, before.
void free_entry_text(ContactField& entry) {
    platform::ole_string_free(entry.value.text);
}

const SpoilCase kSpoiled[] = {
    {"negative count",
     [](ContactItem& item, const GuardPage&) {
         free_entry_text(item.phones[0]);
         item.phoneCount = 0x80000000U;
     }},
    {"no count",
     [](ContactItem& item, const GuardPage&) {
         free_entry_text(item.phones[0]);
         item.phoneCount = 0;
     }},
    {"wild counts",
     [](ContactItem& item, const GuardPage&) {
         item.generalCount = item.phoneCount = item.addressCount = item.extendedCount = 0x7FFFFFFFU;
     }},
    {"unreadable array",
     [](ContactItem& item, const GuardPage& page) {
         free_entry_text(item.phones[0]);
         platform::heap_free(item.phones);
         item.phones = page.unreadable_as<ContactField>();
         item.phoneCount = 0x7FFFFFFFU;
     }},
    {"wild array",
     [](ContactItem& item, const GuardPage&) {
         free_entry_text(item.phones[0]);
         platform::heap_free(item.phones);
         item.phones = test::pointer_to<ContactField>(0x18);
     }},
    {"array of somebody else",
     [](ContactItem& item, const GuardPage& page) {
         free_entry_text(item.phones[0]);
         platform::heap_free(item.phones);
         item.phones = page.last_as<ContactField>();
         item.phones[0] = {24, 0, 0, VZ_CONTACT_PHONE, {test::pointer_to<char16_t>(2)}};
         item.phoneCount = 5;
     }},
    {"null array",
     [](ContactItem& item, const GuardPage&) {
         free_entry_text(item.phones[0]);
         platform::heap_free(item.phones);
         item.phones = nullptr;
     }},
    {"entry of another size", [](ContactItem& item, const GuardPage&) { item.phones[0].size = 23; }},
    {"entry of no field",
     [](ContactItem& item, const GuardPage& page) {
         free_entry_text(item.phones[0]);
         item.phones[0].fieldId = 31;
         item.phones[0].value.text = page.unreadable_as<char16_t>();
     }},
    {"unreadable string",
     [](ContactItem& item, const GuardPage& page) {
         free_entry_text(item.phones[0]);
         item.phones[0].value.text = page.unreadable_as<char16_t>();
     }},
    {"null string",
     [](ContactItem& item, const GuardPage&) {
         free_entry_text(item.phones[0]);
         item.phones[0].value.text = nullptr;
     }},
    {"unreadable sub-records",
     [](ContactItem& item, const GuardPage& page) {
         free_entry_text(item.general[0]);
         platform::heap_free(item.general[1].value.date);
         item.general[0] = {24, 0, 0, VZ_CONTACT_ANNIVERSARY, {page.unreadable_as<char16_t>()}};
         item.general[1].value.date = page.unreadable_as<ContactDate>();
         item.phones[0].fieldId = VZ_CONTACT_ADDRESS;  // a string is no address, and is left alone
         free_entry_text(item.phones[0]);
         item.phones[0].value.address = page.unreadable_as<ContactAddress>();
     }},
    {"sub-records cut off by the page",
     [](ContactItem& item, const GuardPage& page) {
         ContactAddress* address = item.addresses[0].value.address;
         for (char16_t* part : {address->poBox, address->street, address->postalCode, address->city,
                                address->region, address->country, address->extendedAddress}) {
             platform::ole_string_free(part);
         }
         platform::heap_free(address);
         item.addresses[0].value.address = page.last_as<ContactAddress>(32);
     }},
    {"photo with foreign bytes",
     [](ContactItem& item, const GuardPage& page) {
         ContactPhoto* photo = item.general[2].value.photo;
         platform::heap_free(photo->data);
         photo->data = page.last_as<std::uint8_t>();
         platform::ole_string_free(photo->imageType);
         photo->imageType = page.unreadable_as<char16_t>();
     }},
    {"the same sub-record twice",
     [](ContactItem& item, const GuardPage&) {
         free_entry_text(item.general[0]);
         item.general[0] = item.general[1];
     }},
    {"the same array twice",
     [](ContactItem& item, const GuardPage&) {
         free_entry_text(item.phones[0]);
         platform::heap_free(item.phones);
         item.phones = item.general;
         item.phoneCount = item.generalCount;
     }},
    {"an entry that points at its own array",
     [](ContactItem& item, const GuardPage&) {
         platform::ole_string_free(item.extended[0].value.messaging->value.text);
         platform::heap_free(item.extended[0].value.messaging);
         item.extended[0].value.messaging = item.extended;
     }},
    {"a photo whose bytes are its own array",
     [](ContactItem& item, const GuardPage&) {
         ContactPhoto* photo = item.general[2].value.photo;
         platform::heap_free(photo->data);
         photo->data = reinterpret_cast<std::uint8_t*>(item.general);
     }},
    {"a photo whose bytes are the photo",
     [](ContactItem& item, const GuardPage&) {
         ContactPhoto* photo = item.general[2].value.photo;
         platform::heap_free(photo->data);
         photo->data = reinterpret_cast<std::uint8_t*>(photo);
     }},
    {"an entry that points at the array of another list",
     [](ContactItem& item, const GuardPage&) {
         free_entry_text(item.phones[0]);
         platform::ole_string_free(item.extended[0].value.messaging->value.text);
         platform::heap_free(item.extended[0].value.messaging);
         item.phones[0].value.text = nullptr;
         item.extended[0].value.messaging = item.phones;
     }},
};

TEST(ReleaseContact, LeavesAloneWhatIsNotTheLibrarys) {
    for (const SpoilCase& row : kSpoiled) {
        SCOPED_TRACE(row.what);
        const GuardPage page;
        ContactItem item = contact_of_each_kind();
        row.spoil(item, page);
        EXPECT_EQ(release(&item, kChecked), VZ_OK);
        expect_empty(item);
    }
}

// Takes an entry's value with all that hangs on it, so that the entry may be spoiled.
void give_back(const ContactField& entry) {
    auto* array = static_cast<ContactField*>(platform::heap_allocate(sizeof entry));
    *array = entry;
    ContactItem holder{};
    holder.size = sizeof holder;
    holder.generalCount = 1;
    holder.general = array;
    release_contact(&holder, kChecked);
}

// The pointers of a record of each kind by number: each is given back before it is spoiled. False behind the
// last one.
bool spoil_pointer(std::size_t number, ContactItem& item, char16_t* wild) {
    ContactField* const entries[] = {&item.general[0], &item.general[1],   &item.general[2],
                                     &item.phones[0],  &item.addresses[0], &item.addresses[1],
                                     &item.extended[0]};
    constexpr std::size_t kEntryCount = std::size(entries);
    if (number < kEntryCount) {
        give_back(*entries[number]);
        entries[number]->value.text = wild;
        return true;
    }
    ContactAddress& address = *item.addresses[0].value.address;
    char16_t** const strings[] = {&address.poBox,
                                  &address.street,
                                  &address.postalCode,
                                  &address.city,
                                  &address.region,
                                  &address.country,
                                  &address.extendedAddress,
                                  &item.general[2].value.photo->imageType,
                                  &item.extended[0].value.messaging->value.text};
    number -= kEntryCount;
    if (number < std::size(strings)) {
        platform::ole_string_free(*strings[number]);
        *strings[number] = wild;
        return true;
    }
    if (number > std::size(strings)) return false;
    platform::heap_free(item.general[2].value.photo->data);
    item.general[2].value.photo->data = reinterpret_cast<std::uint8_t*>(wild);
    return true;
}

TEST(ReleaseContact, EachPointerOfARecordMayBeUnreadable) {
    const GuardPage page;
    std::size_t pointers = 0;
    for (bool more = true; more;) {
        for (char16_t* wild : {page.unreadable_as<char16_t>(), static_cast<char16_t*>(nullptr),
                               test::pointer_to<char16_t>(1), test::pointer_to<char16_t>(UINTPTR_MAX)}) {
            ContactItem item = contact_of_each_kind();
            more = spoil_pointer(pointers, item, wild);
            EXPECT_EQ(release(&item, kChecked), VZ_OK) << pointers;
            expect_empty(item);
        }
        ++pointers;
    }
    EXPECT_EQ(pointers, 7U + 9U + 1U + 1U) << "entries, strings, the bytes of the photo, and the end";
}

}  // namespace
}  // namespace vzapi::vcard
