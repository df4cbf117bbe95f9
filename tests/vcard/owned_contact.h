// A contact record that is read from text, shown as one line an entry, and released.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/utf8.h"
#include "vcard/contact_reader.h"
#include "vcard/contact_record.h"
#include "versit/parser.h"
#include "vzapi/vzapi.h"

namespace vzapi::test {

inline std::string utf8(const char16_t* text) {
    return text == nullptr ? std::string("(null)") : platform::utf16_to_utf8(text);
}

inline std::string digits(unsigned number, std::size_t width) {
    std::string text = std::to_string(number);
    return std::string(text.size() < width ? width - text.size() : 0, '0') + text;
}

inline std::string show_address(const ContactAddress& address) {
    return utf8(address.poBox) + "|" + utf8(address.extendedAddress) + "|" + utf8(address.street) + "|" +
           utf8(address.city) + "|" + utf8(address.region) + "|" + utf8(address.postalCode) + "|" +
           utf8(address.country);
}

inline std::string show_date(const ContactDate& date) {
    std::string text = digits(date.year, 4) + "-" + digits(date.month, 2) + "-" + digits(date.day, 2);
    if (date.hour + date.minute + date.second != 0) {
        text += " " + digits(date.hour, 2) + ":" + digits(date.minute, 2) + ":" + digits(date.second, 2);
    }
    return text;
}

inline std::string show_photo(const ContactPhoto& photo) {
    return utf8(photo.imageType) + " " +
           std::string(reinterpret_cast<const char*>(photo.data), photo.dataLength);
}

inline std::string show_value(const ContactField& entry) {
    switch (vcard::find_contact_field(entry.fieldId)->kind) {
        case vcard::ValueKind::Date:
            return show_date(*entry.value.date);
        case vcard::ValueKind::Photo:
            return show_photo(*entry.value.photo);
        case vcard::ValueKind::Address:
            return show_address(*entry.value.address);
        case vcard::ValueKind::Messaging:
            return "kind " + std::to_string(entry.value.messaging->form) +
                   (entry.value.messaging->preferred != 0 ? "* " : " ") +
                   utf8(entry.value.messaging->value.text);
        case vcard::ValueKind::Class:
        case vcard::ValueKind::Gender:
        case vcard::ValueKind::Number:
            return std::to_string(entry.value.number);
        default:
            return utf8(entry.value.text);
    }
}

// "P64* +1 555": list, id, a star when preferred, "/form" when it is not 0, the value.
inline std::string show_list(char list, const ContactField* entries, std::uint32_t count) {
    std::string text;
    for (std::uint32_t i = 0; i < count; ++i) {
        const ContactField& entry = entries[i];
        text += list + std::to_string(entry.fieldId) + (entry.preferred != 0 ? "*" : "") +
                (entry.form != 0 ? "/" + std::to_string(entry.form) : "") + " " + show_value(entry) + "\n";
        if (entry.size != sizeof entry) text += "wrong size\n";
    }
    return text;
}

inline std::string show(const ContactItem& item) {
    return show_list('G', item.general, item.generalCount) + show_list('P', item.phones, item.phoneCount) +
           show_list('A', item.addresses, item.addressCount) +
           show_list('E', item.extended, item.extendedCount);
}

// The lines between the frame of a card.
inline std::string card(std::string_view body, std::string_view version = "2.1") {
    return "BEGIN:VCARD\r\nVERSION:" + std::string(version) + "\r\n" + std::string(body) +
           "\r\nEND:VCARD\r\n";
}

struct OwnedContact {
    OwnedContact() {
        std::memset(&item, 0, sizeof item);  // padding included: tests compare the bytes
        item.size = sizeof item;
    }
    ~OwnedContact() {
        item.size = sizeof item;
        vcard::release_contact(&item, {});
    }
    OwnedContact(const OwnedContact&) = delete;
    OwnedContact& operator=(const OwnedContact&) = delete;

    // Reads `text`; the code that was raised, or VZ_OK.
    ResultCode read(std::string_view text) {
        const versit::VersitObject object = versit::parse(text);
        try {
            vcard::read_contact(object, &item, {});
        } catch (ResultCode code) {
            return code;
        }
        return VZ_OK;
    }

    ContactItem item{};
};

// What the text of a whole card is read to.
inline std::string read_text(std::string_view text) {
    OwnedContact contact;
    const ResultCode code = contact.read(text);
    return code == VZ_OK ? show(contact.item) : "result " + std::to_string(code);
}

// What the lines of one card are read to.
inline std::string read_lines(std::string_view body, std::string_view version = "2.1") {
    return read_text(card(body, version));
}

}  // namespace vzapi::test
