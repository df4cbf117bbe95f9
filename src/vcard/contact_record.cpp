#include "vcard/contact_record.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "platform/ole_string.h"
#include "platform/pointer_probe.h"
#include "platform/reclaimer.h"
#include "result.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcard {
namespace {

using platform::HeapPointer;
using platform::OleString;
using platform::Reclaimer;

constexpr std::size_t kListCount = 4;
constexpr std::size_t kAddressParts = 7;

// The members of an address in the order of ADR.
constexpr char16_t* ContactAddress::*const kAddressMembers[kAddressParts] = {
    &ContactAddress::poBox,            //
    &ContactAddress::extendedAddress,  //
    &ContactAddress::street,           //
    &ContactAddress::city,             //
    &ContactAddress::region,           //
    &ContactAddress::postalCode,       //
    &ContactAddress::country,
};

// A list of a record: where its count and its array stand.
struct ListMembers {
    std::uint32_t ContactItem::*count;
    ContactField* ContactItem::*entries;
};

// In the order of ContactList.
constexpr ListMembers kLists[kListCount] = {
    {&ContactItem::generalCount, &ContactItem::general},
    {&ContactItem::phoneCount, &ContactItem::phones},
    {&ContactItem::addressCount, &ContactItem::addresses},
    {&ContactItem::extendedCount, &ContactItem::extended},
};

OleString make_string(std::u16string_view text) {
    OleString string(platform::ole_string_allocate(text));
    if (!string) raise(VZ_ERR_OUT_OF_MEMORY);
    return string;
}

// A zero-filled block of the process heap for `count` records.
template <class Record>
HeapPointer<Record> make_block(std::size_t count = 1) {
    HeapPointer<Record> block(static_cast<Record*>(platform::heap_allocate(count * sizeof(Record))));
    if (!block) raise(VZ_ERR_OUT_OF_MEMORY);
    return block;
}

ContactValue text_value(OleString string) {
    ContactValue value{};
    value.text = string.release();
    return value;
}

std::size_t list_index(std::uint32_t id) {
    return static_cast<std::size_t>(find_contact_field(id)->list);
}

void release_address(ContactAddress* address, Reclaimer& reclaimer) {
    const Reclaimer::Taken taken = reclaimer.take(address, sizeof *address);
    if (!taken) return;
    for (const auto member : kAddressMembers) reclaimer.release_string(address->*member);
}

void release_photo(ContactPhoto* photo, Reclaimer& reclaimer) {
    const Reclaimer::Taken taken = reclaimer.take(photo, sizeof *photo);
    if (!taken) return;
    reclaimer.release_string(photo->imageType);
    reclaimer.release(photo->data);
}

void release_messaging(ContactField* messaging, Reclaimer& reclaimer) {
    const Reclaimer::Taken taken = reclaimer.take(messaging, sizeof *messaging);
    if (taken) reclaimer.release_string(messaging->value.text);
}

void release_value(const ContactField& entry, Reclaimer& reclaimer) {
    const FieldRow* row = find_contact_field(entry.fieldId);
    if (row == nullptr) return;
    if (is_text(row->kind)) return reclaimer.release_string(entry.value.text);
    switch (row->kind) {
        case ValueKind::Date:
            return reclaimer.release(entry.value.date);
        case ValueKind::Photo:
            return release_photo(entry.value.photo, reclaimer);
        case ValueKind::Address:
            return release_address(entry.value.address, reclaimer);
        case ValueKind::Messaging:
            return release_messaging(entry.value.messaging, reclaimer);
        default:  // a number
            return;
    }
}

// The block tells how many entries there can be, whatever `count` says.
void release_list(ContactField* entries, std::uint32_t count, Reclaimer& reclaimer) {
    const Reclaimer::Taken taken = reclaimer.take(entries);
    const std::size_t room = taken.size() / sizeof(ContactField);
    const std::size_t claimed = static_cast<std::int32_t>(count) > 0 ? count : 0;
    for (std::size_t i = 0; i < std::min(claimed, room); ++i) release_value(entries[i], reclaimer);
}

}  // namespace

ContactBuilder::~ContactBuilder() {
    if (entries_.empty()) return;
    Reclaimer reclaimer;
    for (const ContactField& entry : entries_) release_value(entry, reclaimer);
}

// Comes before a value is allocated, so that an allocated value always finds its place.
void ContactBuilder::make_room() {
    constexpr std::size_t kFirstEntries = 16;
    if (entries_.size() < entries_.capacity()) return;
    entries_.reserve(std::max(kFirstEntries, 2 * entries_.capacity()));
}

void ContactBuilder::add(std::uint32_t id, bool preferred, std::uint32_t form, ContactValue value) noexcept {
    entries_.push_back({sizeof(ContactField), preferred ? 1U : 0U, form, id, value});
    added_.set(id);
}

void ContactBuilder::add_text(std::uint32_t id, bool preferred, std::u16string_view text) {
    make_room();
    add(id, preferred, VZ_FORM_NONE, text_value(make_string(text)));
}

void ContactBuilder::add_number(std::uint32_t id, bool preferred, std::uint32_t number) {
    make_room();
    ContactValue value{};
    value.number = number;
    add(id, preferred, VZ_FORM_EXTENDED, value);
}

void ContactBuilder::add_date(std::uint32_t id, bool preferred, const ContactDate& date) {
    make_room();
    HeapPointer<ContactDate> block = make_block<ContactDate>();
    *block = date;
    ContactValue value{};
    value.date = block.release();
    add(id, preferred, VZ_FORM_NONE, value);
}

void ContactBuilder::add_photo(bool preferred, std::u16string_view image_type,
                               std::span<const std::byte> data) {
    if (data.size() > std::numeric_limits<std::uint32_t>::max()) raise(VZ_ERR_OUT_OF_MEMORY);
    HeapPointer<std::uint8_t> block = make_block<std::uint8_t>(data.size());
    if (!data.empty()) std::memcpy(block.get(), data.data(), data.size());
    add_photo(preferred, image_type, std::move(block), static_cast<std::uint32_t>(data.size()));
}

void ContactBuilder::add_photo(bool preferred, std::u16string_view image_type, HeapPointer<std::uint8_t> data,
                               std::uint32_t length) {
    make_room();
    OleString type;
    if (!image_type.empty()) type = make_string(image_type);
    HeapPointer<ContactPhoto> photo = make_block<ContactPhoto>();
    *photo = {sizeof(ContactPhoto), type.release(), length, data.release()};
    ContactValue value{};
    value.photo = photo.release();
    add(VZ_CONTACT_PHOTO, preferred, VZ_FORM_NONE, value);
}

void ContactBuilder::add_address(std::uint32_t id, bool preferred,
                                 const std::array<std::u16string_view, 7>& components) {
    make_room();
    std::array<OleString, kAddressParts> strings;
    std::transform(components.begin(), components.end(), strings.begin(), make_string);
    HeapPointer<ContactAddress> address = make_block<ContactAddress>();
    address->size = sizeof(ContactAddress);
    for (std::size_t i = 0; i < kAddressParts; ++i) {
        address.get()->*kAddressMembers[i] = strings[i].release();
    }
    ContactValue value{};
    value.address = address.release();
    add(id, preferred, VZ_FORM_ADDRESS, value);
}

void ContactBuilder::add_messaging(std::uint32_t kind, bool preferred, std::u16string_view address) {
    make_room();
    OleString text = make_string(address);
    HeapPointer<ContactField> nested = make_block<ContactField>();
    *nested = {sizeof(ContactField), preferred ? 1U : 0U, kind, 0, text_value(std::move(text))};
    ContactValue value{};
    value.messaging = nested.release();
    add(VZ_CONTACT_MESSAGING, false, VZ_FORM_EXTENDED, value);
}

void ContactBuilder::hand_over(ContactItem& item) {
    std::array<std::uint32_t, kListCount> counts{};
    for (const ContactField& entry : entries_) ++counts[list_index(entry.fieldId)];

    std::array<HeapPointer<ContactField>, kListCount> arrays;
    for (std::size_t list = 0; list < kListCount; ++list) {
        if (counts[list] != 0) arrays[list] = make_block<ContactField>(counts[list]);
    }
    std::array<std::size_t, kListCount> filled{};
    for (const ContactField& entry : entries_) {
        const std::size_t list = list_index(entry.fieldId);
        arrays[list].get()[filled[list]++] = entry;
    }
    entries_.clear();
    added_.reset();
    for (std::size_t list = 0; list < kListCount; ++list) {
        item.*kLists[list].count = counts[list];
        item.*kLists[list].entries = arrays[list].release();
    }
}

void release_contact(void* item, const ReleaseContext& context) {
    if (!platform::is_readable(item, sizeof(ContactItem))) raise(VZ_ERR_POINTER);
    auto& contact = *static_cast<ContactItem*>(item);
    const bool size_is_checked = context.api_version >= VZ_INTERFACE_CHECKED_SIZES;
    if (size_is_checked && contact.size != sizeof(ContactItem)) raise(VZ_ERR_BAD_VALUE);
    Reclaimer reclaimer;
    for (const ListMembers& list : kLists)
        release_list(contact.*list.entries, contact.*list.count, reclaimer);
    std::memset(static_cast<std::byte*>(item) + sizeof contact.size, 0, sizeof contact - sizeof contact.size);
}

}  // namespace vzapi::vcard
