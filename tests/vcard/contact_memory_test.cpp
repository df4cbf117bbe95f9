// Writing a contact out of memory that cannot be trusted: pointers that cannot be read, counts that are wild,
// addresses that are odd, and allocations that fail.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "result.h"
#include "support/failing_allocations.h"
#include "support/guard_page.h"
#include "support/pointer_to.h"
#include "vcard/entry_walk.h"
#include "vcard/written_contact.h"

namespace vzapi::test {
namespace {

constexpr std::size_t kPage = 4096;

// ---- Values.

// One entry, and whether it still gives a line when its value cannot be read.
struct ValueCase {
    Entry entry;
    std::string line;
};

const ValueCase kValues[] = {
    {text(1, u"a"), "N:a;;;;"},
    {text(7, u"a"), "ORG:a"},
    {text(8, u"a"), "TITLE:a"},
    {date(9, 2000, 1, 2), "BDAY:20000102"},
    {photo(u"PNG", "x"), "PHOTO;ENCODING=BASE64;TYPE=PNG:eA=="},
    {text(13, u"a"), "SOUND;X-IRMC-N:a;"},
    {date(19, 2000, 1, 2), "X-ANNIVERSARY:20000102"},
    {text(32, u"a"), "TEL;VOICE:a"},
    {text(115, u"a"), "X-ASSISTANT-TEL:a"},
    {address(256, {u"a"}), "ADR;POSTAL:a;;;;;;"},
    {text(259, u"a"), "EMAIL:a"},
    {text(304, u"a"), "X-SIP:a"},
    {text(512, u"a"), "NOTE:a"},
    {messaging(0, u"a"), "X-IMPP:a"},
};

ContactField& only_entry(ContactItem& item) {
    for (ContactField* list : {item.general, item.phones, item.addresses, item.extended}) {
        if (list != nullptr) return *list;
    }
    throw std::bad_alloc();
}

TEST(ContactMemory, EntriesWhoseValueCannotBeReadAreSkipped) {
    const GuardPage page;
    for (const ValueCase& row : kValues) {
        for (char16_t* value :
             {static_cast<char16_t*>(nullptr), page.unreadable_as<char16_t>(), pointer_to<char16_t>(1),
              pointer_to<char16_t>(UINTPTR_MAX), pointer_to<char16_t>(UINTPTR_MAX - 15)}) {
            ContactRecord record(Contact{row.entry});
            EXPECT_EQ(written(record.item()), card({row.line}));
            only_entry(*record.item()).value.text = value;
            EXPECT_EQ(written(record.item()), card({})) << row.line;
        }
    }
}

TEST(ContactMemory, TheEntriesAroundAnUnreadableValueStay) {
    const GuardPage page;
    ContactRecord record({text(8, u"a"), text(8, u"b"), text(8, u"c"), text(32, u"1"), text(32, u"2"),
                          text(32, u"3"), text(259, u"d"), text(259, u"e"), text(259, u"f"), text(512, u"g"),
                          text(512, u"h"), text(512, u"i")});
    record.item()->general[1].value.text = page.unreadable_as<char16_t>();
    record.item()->phones[1].value.text = page.unreadable_as<char16_t>();
    record.item()->addresses[1].value.text = page.unreadable_as<char16_t>();
    record.item()->extended[1].value.text = page.unreadable_as<char16_t>();
    EXPECT_EQ(written(record.item()), card({"TITLE:a", "TITLE:c", "TEL;VOICE:1", "TEL;VOICE:3", "EMAIL:d",
                                            "EMAIL:f", "NOTE:g", "NOTE:i"}));
}

TEST(ContactMemory, MarksThatCannotBeReadMarkNothing) {
    const GuardPage page;
    ContactRecord record({text(255, u"1"), text(32, u"1"), text(32, u"")});
    record.item()->phones[0].value.text = page.unreadable_as<char16_t>();
    EXPECT_EQ(written(record.item()), card({"TEL;VOICE:1", "TEL;VOICE:"}));
}

TEST(ContactMemory, PartsOfAnAddressThatCannotBeReadAreEmpty) {
    const GuardPage page;
    char16_t* const unreadable = page.unreadable_as<char16_t>();
    struct Part {
        char16_t* ContactAddress::*member;
        const char* line;
    };
    const Part parts[] = {
        {&ContactAddress::poBox, "ADR;HOME:;2;3;4;5;6;7"},
        {&ContactAddress::extendedAddress, "ADR;HOME:1;;3;4;5;6;7"},
        {&ContactAddress::street, "ADR;HOME:1;2;;4;5;6;7"},
        {&ContactAddress::city, "ADR;HOME:1;2;3;;5;6;7"},
        {&ContactAddress::region, "ADR;HOME:1;2;3;4;;6;7"},
        {&ContactAddress::postalCode, "ADR;HOME:1;2;3;4;5;;7"},
        {&ContactAddress::country, "ADR;HOME:1;2;3;4;5;6;"},
    };
    for (const Part& part : parts) {
        for (char16_t* value : {unreadable, static_cast<char16_t*>(nullptr)}) {
            ContactRecord record({address(258, {u"1", u"2", u"3", u"4", u"5", u"6", u"7"})});
            record.item()->addresses[0].value.address->*part.member = value;
            EXPECT_EQ(written(record.item()), card({part.line}));
        }
    }
}

TEST(ContactMemory, SubRecordsThatEndInAnUnreadablePageAreSkipped) {
    const GuardPage page;
    for (const ValueCase& row : kValues) {
        const bool is_text = std::holds_alternative<Text>(row.entry.value);
        if (is_text) continue;
        ContactRecord record(Contact{row.entry});
        ContactField& entry = only_entry(*record.item());
        std::memcpy(page.last(16), static_cast<const void*>(entry.value.text), 16);
        entry.value.text = page.last_as<char16_t>(16);
        EXPECT_EQ(written(record.item()), card({})) << row.line;
    }
}

TEST(ContactMemory, APhotoWhoseDataCannotBeReadToTheEndIsSkipped) {
    const GuardPage page(2);
    ContactRecord record({photo(u"PNG", "x")});
    ContactPhoto& photo = *record.item()->general[0].value.photo;
    photo.data = page.last_as<std::uint8_t>(kPage + 3);
    photo.dataLength = kPage + 4;
    EXPECT_EQ(written(record.item()), card({}));
    for (const std::uint32_t length : {0x7FFFFFFFU, 0xFFFFFFFFU}) {
        photo.dataLength = length;
        EXPECT_EQ(written(record.item()), card({}));
    }
    photo.data = page.last_as<std::uint8_t>(3);
    photo.dataLength = 3;
    EXPECT_EQ(written(record.item()), card({"PHOTO;ENCODING=BASE64;TYPE=PNG:AAAA"}));
    photo.imageType = page.unreadable_as<char16_t>();
    EXPECT_EQ(written(record.item()), card({"PHOTO;ENCODING=BASE64;TYPE=JPEG:AAAA"}));
    photo.data = page.unreadable_as<std::uint8_t>();
    EXPECT_EQ(written(record.item()), card({}));
}

TEST(ContactMemory, ATextThatRunsIntoAnUnreadablePageEndsThere) {
    const GuardPage page;
    auto* const end = page.last_as<char16_t>(6);
    end[0] = u'a';
    end[1] = u'b';
    end[2] = u'c';
    ContactRecord record({text(8, u""), text(32, u""), messaging(0, u"")});
    record.item()->general[0].value.text = end;
    record.item()->phones[0].value.text = end;
    record.item()->extended[0].value.messaging->value.text = end;
    EXPECT_EQ(written(record.item()), card({"TITLE:abc", "TEL;VOICE:abc", "X-IMPP:abc"}));
}

TEST(ContactMemory, ARecordThatCannotBeReadIsRefused) {
    const GuardPage page;
    for (ContactItem* item : {page.unreadable_as<ContactItem>(), page.last_as<ContactItem>(32),
                              static_cast<ContactItem*>(nullptr)}) {
        try {
            static_cast<void>(written(item));
            ADD_FAILURE();
        } catch (ResultCode code) {
            EXPECT_EQ(code, VZ_ERR_POINTER);
        }
    }
}

// ---- Lists.

struct ListCase {
    const char* what;
    ContactField* ContactItem::*list;
    std::uint32_t ContactItem::*count;
    std::string head;
    std::uint32_t id;
    bool skips;  // what cannot be read, rather than ending there
};

const ListCase kLists[] = {
    {"general", &ContactItem::general, &ContactItem::generalCount, "TITLE:", 8, true},
    {"phones", &ContactItem::phones, &ContactItem::phoneCount, "TEL;VOICE:", 32, false},
    {"addresses", &ContactItem::addresses, &ContactItem::addressCount, "EMAIL:", 259, false},
    {"extended", &ContactItem::extended, &ContactItem::extendedCount, "NOTE:", 512, true},
};

// Puts an entry of the list at `address`.
void place(const ListCase& list, std::byte* address, const char16_t* value) {
    ContactField entry{sizeof(ContactField), 0, 0, list.id, {}};
    entry.value.text = const_cast<char16_t*>(value);
    std::memcpy(address, &entry, sizeof entry);
}

std::string written_list(const ListCase& list, const std::byte* entries, std::uint32_t count) {
    ContactItem item{};
    item.size = sizeof item;
    item.*list.list = static_cast<ContactField*>(static_cast<void*>(const_cast<std::byte*>(entries)));
    item.*list.count = count;
    return written(&item);
}

TEST(ContactMemory, NegativeCountsAreEmptyLists) {
    for (const ListCase& list : kLists) {
        std::byte entries[sizeof(ContactField)];
        place(list, entries, u"a");
        EXPECT_EQ(written_list(list, entries, 1), card({list.head + "a"}));
        for (const std::uint32_t count : {0U, 0x80000000U, 0x80000001U, 0xFFFFFFFFU}) {
            EXPECT_EQ(written_list(list, entries, count), card({})) << list.what << ' ' << count;
        }
    }
}

TEST(ContactMemory, AListThatCannotBeReadIsEmptyWhateverItsCount) {
    const GuardPage page(1, 300);
    for (const ListCase& list : kLists) {
        for (const std::uint32_t count : {1U, 1000U, 0x7FFFFFFFU, 0x80000000U}) {
            EXPECT_EQ(written_list(list, page.unreadable(), count), card({})) << list.what << ' ' << count;
            EXPECT_EQ(written_list(list, nullptr, count), card({})) << list.what << ' ' << count;
            EXPECT_EQ(written_list(list, pointer_to<std::byte>(UINTPTR_MAX - 100), count), card({}))
                << list.what << ' ' << count;
        }
    }
}

TEST(ContactMemory, AWildCountGivesWhatCanBeRead) {
    const GuardPage page(1, 300);
    for (const ListCase& list : kLists) {
        for (const std::size_t cut :
             {0U, 1U, 16U, 23U}) {  // bytes of an entry that begins in front of the page
            std::byte* const entries = page.last(2 * sizeof(ContactField) + cut);
            std::memset(entries, 0, 2 * sizeof(ContactField) + cut);
            place(list, entries, u"a");
            place(list, entries + sizeof(ContactField), u"b");
            EXPECT_EQ(written_list(list, entries, 0x7FFFFFFF), card({list.head + "a", list.head + "b"}))
                << list.what << ' ' << cut;
        }
    }
}

TEST(ContactMemory, UnreadableEntriesAreSkippedAPageAtATimeOrEndTheList) {
    for (const std::size_t hole : {1U, 2U, 5U}) {
        const GuardPage page(1, hole, 1);
        for (const ListCase& list : kLists) {
            for (std::size_t shift = 0; shift < sizeof(ContactField); ++shift) {
                std::memset(page.begin(), 0, kPage);
                std::memset(page.behind(), 0, kPage);
                std::byte* const entries = page.last(sizeof(ContactField) + shift);
                const auto distance = static_cast<std::size_t>(page.behind() - entries);
                const std::size_t first_behind = (distance + sizeof(ContactField) - 1) / sizeof(ContactField);
                place(list, entries, u"a");
                place(list, entries + first_behind * sizeof(ContactField), u"b");
                const auto count = static_cast<std::uint32_t>(first_behind + 1);
                const auto both = card({list.head + "a", list.head + "b"});
                const auto first = card({list.head + "a"});
                EXPECT_EQ(written_list(list, entries, count), list.skips ? both : first)
                    << list.what << shift;
                EXPECT_EQ(written_list(list, entries, count - 1), first) << list.what << shift;
            }
        }
    }
}

TEST(ContactMemory, AListEndsWhereManyPagesInARowCannotBeRead) {
    constexpr std::size_t kMost = vcard::EntryWalk::kMostUnreadablePages;
    for (const std::size_t hole : {kMost - 1, kMost}) {
        const GuardPage page(3, hole, 1);
        for (const ListCase& list : kLists) {
            std::byte* const entries = page.unreadable() - 3 * kPage;  // 512 entries up to the hole
            std::memset(entries, 0, 3 * kPage);
            std::memset(page.behind(), 0, kPage);
            const auto distance = static_cast<std::size_t>(page.behind() - entries);
            const std::size_t first_behind = (distance + sizeof(ContactField) - 1) / sizeof(ContactField);
            place(list, entries + first_behind * sizeof(ContactField), u"b");
            const auto count = static_cast<std::uint32_t>(first_behind + 1);
            EXPECT_EQ(written_list(list, entries, count),
                      list.skips && hole < kMost ? card({list.head + "b"}) : card({}))
                << list.what << ' ' << hole;
        }
    }
}

TEST(ContactMemory, UnreadablePagesCountInARowOnly) {
    constexpr std::size_t kHole = vcard::EntryWalk::kMostUnreadablePages - 1;
    const GuardPage page(1, kHole, 1 + kHole + 1);
    page.forbid(page.behind() + kPage, kHole);
    std::byte* const last = page.behind() + (1 + kHole) * kPage;
    for (const ListCase& list : kLists) {
        const auto first_entry_in = [&](const std::byte* address) {
            const auto distance = static_cast<std::size_t>(address - page.begin());
            return (distance + sizeof(ContactField) - 1) / sizeof(ContactField);
        };
        place(list, page.begin(), u"a");
        place(list, page.begin() + first_entry_in(page.behind()) * sizeof(ContactField), u"b");
        place(list, page.begin() + first_entry_in(last) * sizeof(ContactField), u"c");
        EXPECT_EQ(
            written_list(list, page.begin(), static_cast<std::uint32_t>(first_entry_in(last) + 1)),
            list.skips ? card({list.head + "a", list.head + "b", list.head + "c"}) : card({list.head + "a"}))
            << list.what;
    }
}

TEST(ContactMemory, NullEntriesOfNoFieldAreSkippedInEveryList) {
    for (const ListCase& list : kLists) {
        std::byte entries[3 * sizeof(ContactField)] = {};
        place(list, entries + 2 * sizeof(ContactField), u"a");
        EXPECT_EQ(written_list(list, entries, 3), card({list.head + "a"})) << list.what;
    }
}

// ---- Every pointer of a record.

// Each field once, all texts alike, so that the marks mark what can be marked.
Contact contact_of_all_fields() {
    Contact contact;
    for (const vcard::FieldRow& row : vcard::contact_fields()) contact.add(sample_of(row));
    return contact;
}

std::vector<Entry> Contact::*const kEntries[] = {&Contact::general, &Contact::phones, &Contact::addresses,
                                                 &Contact::extended};

// A place of a record where a pointer stands, and the contact that is left when it cannot be read.
struct PointerSlot {
    std::string what;
    char16_t** pointer;
    Contact left;
};

using PointerSlots = std::vector<PointerSlot>;

template <class T>
char16_t** slot(T*& pointer) {
    static_assert(sizeof(T*) == sizeof(char16_t*));
    return static_cast<char16_t**>(static_cast<void*>(&pointer));
}

// The pointers in the sub-record of an entry; those of numbers and texts have none.
void add_inner_slots(const Contact& contact, std::size_t list, std::size_t at, ContactField& field,
                     PointerSlots& slots) {
    const std::string what = std::to_string(field.fieldId) + ", inside";
    Contact left = contact;
    Entry& entry = (left.*kEntries[list])[at];
    if (auto* value = std::get_if<Address>(&entry.value)) {
        ContactAddress& record = *field.value.address;
        char16_t** const parts[] = {&record.poBox,  &record.extendedAddress, &record.street, &record.city,
                                    &record.region, &record.postalCode,      &record.country};
        for (std::size_t i = 0; i < std::size(parts); ++i) {
            const Text part = std::exchange(value->components[i], std::nullopt);
            slots.push_back({what, parts[i], left});
            value->components[i] = part;
        }
    } else if (auto* picture = std::get_if<Photo>(&entry.value)) {
        picture->type = std::nullopt;
        slots.push_back({what, slot(field.value.photo->imageType), left});
        picture->bytes.clear();
        slots.push_back({what, slot(field.value.photo->data), left});
    } else if (auto* address = std::get_if<Messaging>(&entry.value)) {
        address->address = std::nullopt;
        slots.push_back({what, slot(field.value.messaging->value.text), left});
    }
}

PointerSlots slots_of(const Contact& contact, ContactItem& item) {
    PointerSlots slots;
    for (std::size_t list = 0; list < std::size(kLists); ++list) {
        ContactField*& fields = item.*kLists[list].list;
        Contact left = contact;
        (left.*kEntries[list]).clear();
        slots.push_back({kLists[list].what, slot(fields), left});
        for (std::size_t at = 0; at < item.*kLists[list].count; ++at) {
            ContactField& field = fields[at];
            const Value& value = (contact.*kEntries[list])[at].value;
            if (std::holds_alternative<std::uint32_t>(value)) continue;
            left = contact;
            (left.*kEntries[list]).erase((left.*kEntries[list]).begin() + static_cast<std::ptrdiff_t>(at));
            slots.push_back({std::to_string(field.fieldId), &field.value.text, left});
            add_inner_slots(contact, list, at, field, slots);
        }
    }
    return slots;
}

TEST(ContactMemory, EachPointerOfARecordMayBeUnreadable) {
    const GuardPage page;
    const Contact contact = contact_of_all_fields();
    ContactRecord record(contact);
    const PointerSlots slots = slots_of(contact, *record.item());
    EXPECT_EQ(slots.size(), 4U + 60U + 3U * 7U + 2U + 1U)
        << "lists, all fields but four numbers, addresses, photo, messaging";
    for (const Profile& profile : {kNoProfile, Profile{0x2000010, 280}, Profile{0x2000010, 10}}) {
        const std::string whole = written(record.item(), profile);
        for (const PointerSlot& each : slots) {
            const std::string expected = written(each.left, profile);
            for (char16_t* wild : {page.unreadable_as<char16_t>(), static_cast<char16_t*>(nullptr),
                                   pointer_to<char16_t>(1), pointer_to<char16_t>(UINTPTR_MAX)}) {
                char16_t* const kept = std::exchange(*each.pointer, wild);
                EXPECT_EQ(written(record.item(), profile), expected) << each.what;
                *each.pointer = kept;
            }
        }
        EXPECT_EQ(written(record.item(), profile), whole) << "all pointers are as they were";
    }
}

// ---- Odd addresses.

TEST(ContactMemory, NothingNeedsToBeAligned) {
    // Everything of this contact stands at an odd address.
    ContactRecord record({text(8, u"\u00E9"), date(9, 2000, 1, 2), photo(u"PNG", "x"), text(1, u"n"),
                          text(32, u"1"), address(256, {u"a", u"b"}), messaging(1, u"m"),
                          text(512, u"a\\nb")});
    std::vector<std::byte> memory(4096);
    std::size_t used = 1;
    const auto move = [&](const void* from, std::size_t size) {
        std::byte* const to = memory.data() + used;
        std::memcpy(to, from, size);
        used += size + (size % 2);
        return static_cast<void*>(to);
    };
    const auto move_text = [&](char16_t*& text) {
        if (text != nullptr) {
            text = static_cast<char16_t*>(
                move(text, (std::char_traits<char16_t>::length(text) + 1) * sizeof(char16_t)));
        }
    };
    ContactItem& item = *record.item();
    const std::string expected = written(&item);
    for (std::uint32_t i : {0U, 3U}) move_text(item.general[i].value.text);
    item.general[1].value.text =
        static_cast<char16_t*>(move(item.general[1].value.text, sizeof(ContactDate)));
    move_text(item.general[2].value.photo->imageType);
    item.general[2].value.text =
        static_cast<char16_t*>(move(item.general[2].value.text, sizeof(ContactPhoto)));
    move_text(item.phones[0].value.text);
    move_text(item.addresses[0].value.address->poBox);
    move_text(item.addresses[0].value.address->extendedAddress);
    item.addresses[0].value.text =
        static_cast<char16_t*>(move(item.addresses[0].value.text, sizeof(ContactAddress)));
    move_text(item.extended[0].value.messaging->value.text);
    item.extended[0].value.text =
        static_cast<char16_t*>(move(item.extended[0].value.text, sizeof(ContactField)));
    move_text(item.extended[1].value.text);
    item.general = static_cast<ContactField*>(move(item.general, 4 * sizeof(ContactField)));
    item.phones = static_cast<ContactField*>(move(item.phones, sizeof(ContactField)));
    item.addresses = static_cast<ContactField*>(move(item.addresses, sizeof(ContactField)));
    item.extended = static_cast<ContactField*>(move(item.extended, 2 * sizeof(ContactField)));
    const void* const odd = move(&item, sizeof item);
    ASSERT_LE(used, memory.size());
    EXPECT_EQ(vcard::write_contact(odd, {VZ_INTERFACE_VERSION, 0, 0, 0}), expected);
}

TEST(ContactMemory, AnOddTextThatEndsAtAnUnreadablePage) {
    const GuardPage page;
    const char16_t value[] = {u'a', u'b'};
    std::memcpy(page.last(5), value, sizeof value);
    std::memset(page.last(1), 0, 1);
    ContactRecord record({text(8, u""), text(8, u"")});
    record.item()->general[0].value.text = page.last_as<char16_t>(5);
    record.item()->general[1].value.text = page.last_as<char16_t>(1);
    EXPECT_EQ(written(record.item()), card({"TITLE:ab"}));
}

// ---- Allocations.

TEST(ContactMemory, EveryAllocationMayFail) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new cannot be made to fail here";
    const std::u16string value(100, u'\u00E9');
    const Contact contact{text(1, value),
                          text(8, value),
                          photo(u"PNG", std::string(300, 'x')),
                          date(9, 2000, 1, 2),
                          text(255, u"1"),
                          text(65, u"1", kPreferred),
                          address(258, {value}),
                          text(259, value),
                          text(512, value + u"\\n"),
                          messaging(5, value, kPreferred)};
    ContactRecord record(contact);
    const std::string expected = written(record.item());
    for (std::size_t nth = 1;; ++nth) {
        std::string out;
        bool refused = false;
        FailingAllocations failing(nth);
        try {
            out = written(record.item());
        } catch (const std::bad_alloc&) {
            refused = true;
        }
        failing.stop();
        EXPECT_EQ(refused, failing.failed()) << nth;
        if (!failing.failed()) {
            EXPECT_EQ(out, expected);
            EXPECT_GE(nth, 5U) << "the text, the entries, the marks and the scratch texts, at the least";
            return;
        }
    }
}

}  // namespace
}  // namespace vzapi::test
