#include "contact_values.h"

#include "vcard/contact_fields.h"

namespace vzapi::bench {
namespace {

using vcard::ValueKind;

void add_text(const char16_t* text, ContactValues& values) {
    if (text != nullptr) values.texts.emplace_back(text);
}

void add_address(const ContactAddress& address, ContactValues& values) {
    for (const char16_t* text : {address.poBox, address.extendedAddress, address.street, address.city,
                                 address.region, address.postalCode, address.country}) {
        add_text(text, values);
    }
}

void add_photo(const ContactPhoto& photo, ContactValues& values) {
    add_text(photo.imageType, values);
    values.photos.emplace_back(photo.data, photo.dataLength);
}

void add_field(const ContactField& field, ContactValues& values) {
    const vcard::FieldRow* row = vcard::find_contact_field(field.fieldId);
    if (row == nullptr) return;
    if (vcard::is_text(row->kind)) add_text(field.value.text, values);
    if (row->kind == ValueKind::Address) add_address(*field.value.address, values);
    if (row->kind == ValueKind::Messaging) add_text(field.value.messaging->value.text, values);
    if (row->kind == ValueKind::Photo) add_photo(*field.value.photo, values);
}

}  // namespace

void add_values(const ContactItem& item, ContactValues& values) {
    for (const std::span fields :
         {std::span(item.general, item.generalCount), std::span(item.phones, item.phoneCount),
          std::span(item.addresses, item.addressCount), std::span(item.extended, item.extendedCount)}) {
        for (const ContactField& field : fields) add_field(field, values);
    }
}

}  // namespace vzapi::bench
