#include "vzconv/contact_record.h"

#include <limits>

#include "vzconv/contact_parts.h"
#include "vzconv/failure.h"

namespace vzconv {
namespace {

uint32_t form_of(ContactValueKind kind) {
    switch (kind) {
        case ContactValueKind::Address:
            return VZ_FORM_ADDRESS;
        case ContactValueKind::Messaging:
        case ContactValueKind::Class:
        case ContactValueKind::Gender:
        case ContactValueKind::Number:
            return VZ_FORM_EXTENDED;
        default:
            return VZ_FORM_NONE;
    }
}

}  // namespace

ContactValue ContactRecord::text(std::u16string text) {
    texts_.push_back(std::move(text));
    ContactValue value{};
    value.text = texts_.back().data();
    return value;
}

ContactValue ContactRecord::date(const ContactDate& date) {
    dates_.push_back(date);
    ContactValue value{};
    value.date = &dates_.back();
    return value;
}

ContactValue ContactRecord::photo(std::optional<std::u16string> image_type, std::vector<uint8_t> data) {
    if (data.size() > std::numeric_limits<uint32_t>::max()) throw Failure("a photo of more than 4 GB");
    char16_t* type = image_type ? text(std::move(*image_type)).text : nullptr;
    pictures_.push_back(std::move(data));
    std::vector<uint8_t>& bytes = pictures_.back();
    photos_.push_back({sizeof(ContactPhoto), type, static_cast<uint32_t>(bytes.size()), bytes.data()});
    ContactValue value{};
    value.photo = &photos_.back();
    return value;
}

ContactValue ContactRecord::address(std::vector<std::u16string> parts) {
    ContactAddress address{};
    address.size = sizeof address;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        address.*address_parts()[i].member = text(std::move(parts[i])).text;
    }
    addresses_.push_back(address);
    ContactValue value{};
    value.address = &addresses_.back();
    return value;
}

ContactValue ContactRecord::messaging(bool preferred, uint32_t kind, std::u16string address) {
    messaging_.push_back(
        {sizeof(ContactField), preferred ? 1U : 0U, kind, VZ_CONTACT_MESSAGING, text(std::move(address))});
    ContactValue value{};
    value.messaging = &messaging_.back();
    return value;
}

void ContactRecord::add(const ContactWord& word, bool preferred, const ContactValue& value) {
    lists_[static_cast<std::size_t>(word.list)].push_back(
        {sizeof(ContactField), preferred ? 1U : 0U, form_of(word.kind), word.id, value});
}

ContactItem ContactRecord::item() {
    ContactItem item{};
    item.size = sizeof item;
    const auto give = [this](ContactList list, uint32_t& count, ContactField*& entries) {
        std::vector<ContactField>& from = lists_[static_cast<std::size_t>(list)];
        count = static_cast<uint32_t>(from.size());
        entries = from.data();
    };
    give(ContactList::General, item.generalCount, item.general);
    give(ContactList::Phones, item.phoneCount, item.phones);
    give(ContactList::Addresses, item.addressCount, item.addresses);
    give(ContactList::Extended, item.extendedCount, item.extended);
    return item;
}

}  // namespace vzconv
