// Contacts in tests: a value that compares and prints, the record made of one, and the value a record holds.
//
//     const Contact contact{text(VZ_CONTACT_GIVEN_NAME, u"Ann"), text(VZ_CONTACT_PHONE, u"1", kPreferred)};
//     ContactRecord record(contact);
//     ConvertToVersit(VZ_TYPE_CONTACT, record.item(), &out);
//     ConvertFromVersit(VZ_TYPE_CONTACT, &out, &item);
//     EXPECT_EQ(contact_of(item), contact);
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "vzapi/vzapi.h"

namespace vzapi::test {

// Text of a record; none stands for a null pointer.
using Text = std::optional<std::u16string>;

// The seven components in the order of ADR.
struct Address {
    std::array<Text, 7> components;
    bool operator==(const Address&) const = default;
};

struct Date {
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    bool operator==(const Date&) const = default;
};

struct Photo {
    Text type;
    std::string bytes;
    bool operator==(const Photo&) const = default;
};

struct Messaging {
    std::uint32_t kind = VZ_MESSAGING_NONE;
    std::uint32_t preferred = 0;
    Text address;
    bool operator==(const Messaging&) const = default;
};

// A null pointer where a sub-record is expected.
using Null = std::monostate;

using Value = std::variant<Text, Address, Date, Photo, Messaging, std::uint32_t, Null>;

inline constexpr std::uint32_t kPreferred = 1;

// `form` as the library sets it.
[[nodiscard]] inline std::uint32_t form_of(std::uint32_t id) {
    if (id >= VZ_CONTACT_ADDRESS && id <= VZ_CONTACT_ADDRESS_HOME) return VZ_FORM_ADDRESS;
    const bool is_number = id == VZ_CONTACT_CLASS || (id >= VZ_CONTACT_FAVORITE && id <= VZ_CONTACT_GENDER);
    return is_number || id == VZ_CONTACT_MESSAGING ? VZ_FORM_EXTENDED : VZ_FORM_NONE;
}

struct Entry {
    std::uint32_t id;
    Value value;
    std::uint32_t preferred = 0;
    std::uint32_t form = form_of(id);
    bool operator==(const Entry&) const = default;
};

[[nodiscard]] inline Entry text(std::uint32_t id, Text value, std::uint32_t preferred = 0) {
    return {id, Value(std::move(value)), preferred};
}

// The components in the order of ADR; those that are not given are empty strings.
[[nodiscard]] inline Entry address(std::uint32_t id, std::initializer_list<std::u16string_view> components,
                                   std::uint32_t preferred = 0) {
    Address value;
    value.components.fill(std::u16string());
    std::size_t i = 0;
    for (const std::u16string_view component : components) value.components.at(i++) = component;
    return {id, value, preferred};
}

[[nodiscard]] inline Entry date(std::uint32_t id, std::uint16_t year, std::uint8_t month, std::uint8_t day) {
    return {id, Date{year, month, day}};
}

[[nodiscard]] inline Entry photo(Text type, std::string bytes) {
    return {VZ_CONTACT_PHOTO, Photo{std::move(type), std::move(bytes)}};
}

[[nodiscard]] inline Entry messaging(std::uint32_t kind, Text value, std::uint32_t preferred = 0) {
    return {VZ_CONTACT_MESSAGING, Messaging{kind, preferred, std::move(value)}};
}

[[nodiscard]] inline Entry number(std::uint32_t id, std::uint32_t value) {
    return {id, value};
}

// The four lists.
struct Contact {
    Contact() = default;
    // Each entry goes to the list of its id.
    Contact(std::initializer_list<Entry> entries) {
        for (const Entry& entry : entries) add(entry);
    }

    void add(const Entry& entry) { list_of(entry.id).push_back(entry); }

    [[nodiscard]] std::vector<Entry>& list_of(std::uint32_t id) {
        if (id < VZ_CONTACT_PHONE) return general;
        if (id < VZ_CONTACT_ADDRESS) return phones;
        return id < VZ_CONTACT_NOTE ? addresses : extended;
    }

    bool operator==(const Contact&) const = default;

    std::vector<Entry> general;
    std::vector<Entry> phones;
    std::vector<Entry> addresses;
    std::vector<Entry> extended;
};

// Owns the record of a contact. What item() gives may be changed at will: nothing of it is released through
// the pointers in it.
class ContactRecord {
public:
    explicit ContactRecord(const Contact& contact) {
        item_.size = sizeof item_;
        fill(contact.general, item_.generalCount, item_.general);
        fill(contact.phones, item_.phoneCount, item_.phones);
        fill(contact.addresses, item_.addressCount, item_.addresses);
        fill(contact.extended, item_.extendedCount, item_.extended);
    }
    ContactRecord(const ContactRecord&) = delete;
    ContactRecord& operator=(const ContactRecord&) = delete;

    [[nodiscard]] ContactItem* item() noexcept { return &item_; }

private:
    void fill(const std::vector<Entry>& entries, std::uint32_t& count, ContactField*& list) {
        auto& fields = lists_.emplace_back();
        for (const Entry& entry : entries) {
            const ContactValue value = std::visit([this](const auto& v) { return value_of(v); }, entry.value);
            fields.push_back({sizeof(ContactField), entry.preferred, entry.form, entry.id, value});
        }
        count = static_cast<std::uint32_t>(fields.size());
        list = fields.empty() ? nullptr : fields.data();
    }

    char16_t* pointer_to_text(const Text& text) { return text ? texts_.emplace_back(*text).data() : nullptr; }

    ContactValue value_of(const Text& text) {
        ContactValue value{};
        value.text = pointer_to_text(text);
        return value;
    }
    ContactValue value_of(const Address& address) {
        std::array<char16_t*, 7> part{};
        for (std::size_t i = 0; i < part.size(); ++i) part[i] = pointer_to_text(address.components[i]);
        ContactValue value{};
        value.address = &addresses_.emplace_back(ContactAddress{sizeof(ContactAddress), part[0], part[2],
                                                                part[5], part[3], part[4], part[6], part[1]});
        return value;
    }
    ContactValue value_of(const Date& date) {
        ContactValue value{};
        value.date = &dates_.emplace_back(ContactDate{sizeof(ContactDate),
                                                      date.year,
                                                      date.month,
                                                      date.day,
                                                      date.hour,
                                                      date.minute,
                                                      date.second,
                                                      0,
                                                      {}});
        return value;
    }
    ContactValue value_of(const Photo& photo) {
        auto& bytes = blocks_.emplace_back(photo.bytes.begin(), photo.bytes.end());
        ContactValue value{};
        value.photo =
            &photos_.emplace_back(ContactPhoto{sizeof(ContactPhoto), pointer_to_text(photo.type),
                                               static_cast<std::uint32_t>(bytes.size()), bytes.data()});
        return value;
    }
    ContactValue value_of(const Messaging& messaging) {
        ContactValue value{};
        value.messaging = &messaging_.emplace_back(ContactField{
            sizeof(ContactField), messaging.preferred, messaging.kind, 0, value_of(messaging.address)});
        return value;
    }
    ContactValue value_of(std::uint32_t number) {
        ContactValue value{};
        value.number = number;
        return value;
    }
    ContactValue value_of(Null /*null*/) { return ContactValue{}; }

    ContactItem item_{};
    std::deque<std::vector<ContactField>> lists_;
    std::deque<std::u16string> texts_;
    std::deque<ContactAddress> addresses_;
    std::deque<ContactDate> dates_;
    std::deque<ContactPhoto> photos_;
    std::deque<ContactField> messaging_;
    std::deque<std::vector<std::uint8_t>> blocks_;
};

// ---- The value of a record, whose sizes are checked on the way.

[[nodiscard]] inline Text text_at(const char16_t* text) {
    return text == nullptr ? Text() : Text(text);
}

[[nodiscard]] inline Value value_of(const ContactAddress& address) {
    EXPECT_EQ(address.size, sizeof address);
    return Address{{text_at(address.poBox), text_at(address.extendedAddress), text_at(address.street),
                    text_at(address.city), text_at(address.region), text_at(address.postalCode),
                    text_at(address.country)}};
}

[[nodiscard]] inline Value value_of(const ContactDate& date) {
    EXPECT_EQ(date.size, sizeof date);
    return Date{date.year, date.month, date.day, date.hour, date.minute, date.second};
}

[[nodiscard]] inline Value value_of(const ContactPhoto& photo) {
    EXPECT_EQ(photo.size, sizeof photo);
    return Photo{text_at(photo.imageType), std::string(photo.data, photo.data + photo.dataLength)};
}

[[nodiscard]] inline Value value_of(const ContactField& nested) {
    EXPECT_EQ(nested.size, sizeof nested);
    return Messaging{nested.form, nested.preferred, text_at(nested.value.text)};
}

[[nodiscard]] inline Value value_at(std::uint32_t id, const ContactValue& value) {
    switch (id) {
        case VZ_CONTACT_BIRTHDAY:
        case VZ_CONTACT_ANNIVERSARY:
            return value.date != nullptr ? value_of(*value.date) : Null();
        case VZ_CONTACT_PHOTO:
            return value.photo != nullptr ? value_of(*value.photo) : Null();
        case VZ_CONTACT_ADDRESS:
        case VZ_CONTACT_ADDRESS_WORK:
        case VZ_CONTACT_ADDRESS_HOME:
            return value.address != nullptr ? value_of(*value.address) : Null();
        case VZ_CONTACT_MESSAGING:
            return value.messaging != nullptr ? value_of(*value.messaging) : Null();
        case VZ_CONTACT_CLASS:
        case VZ_CONTACT_FAVORITE:
        case VZ_CONTACT_SELF:
        case VZ_CONTACT_GENDER:
            return static_cast<std::uint32_t>(value.number);
        default:
            return text_at(value.text);
    }
}

[[nodiscard]] inline std::vector<Entry> entries_of(const ContactField* list, std::uint32_t count) {
    std::vector<Entry> entries;
    for (std::uint32_t i = 0; i < count; ++i) {
        EXPECT_EQ(list[i].size, sizeof list[i]);
        entries.push_back(
            {list[i].fieldId, value_at(list[i].fieldId, list[i].value), list[i].preferred, list[i].form});
    }
    return entries;
}

[[nodiscard]] inline Contact contact_of(const ContactItem& item) {
    EXPECT_EQ(item.size, sizeof item);
    Contact contact;
    contact.general = entries_of(item.general, item.generalCount);
    contact.phones = entries_of(item.phones, item.phoneCount);
    contact.addresses = entries_of(item.addresses, item.addressCount);
    contact.extended = entries_of(item.extended, item.extendedCount);
    return contact;
}

// ---- Printing: one entry a line, units outside printable ASCII as \uXXXX.

inline void print(const Text& text, std::ostream& out) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    if (!text) {
        out << "null";
        return;
    }
    out << '"';
    for (const char16_t unit : *text) {
        if (unit >= u' ' && unit <= u'~') {
            out << static_cast<char>(unit);
        } else {
            out << "\\u" << kDigits[unit >> 12] << kDigits[unit >> 8 & 15] << kDigits[unit >> 4 & 15]
                << kDigits[unit & 15];
        }
    }
    out << '"';
}

inline void print(const Address& address, std::ostream& out) {
    for (const Text& component : address.components) print(component, out << "; ");
}
inline void print(const Date& date, std::ostream& out) {
    out << date.year << '-' << +date.month << '-' << +date.day << ' ' << +date.hour << ':' << +date.minute
        << ':' << +date.second;
}
inline void print(const Photo& photo, std::ostream& out) {
    print(photo.type, out);
    out << ", " << photo.bytes.size() << " bytes";
}
inline void print(const Messaging& messaging, std::ostream& out) {
    out << "kind " << messaging.kind << ", preferred " << messaging.preferred << ", ";
    print(messaging.address, out);
}
inline void print(std::uint32_t number, std::ostream& out) {
    out << number;
}
inline void print(Null /*null*/, std::ostream& out) {
    out << "null";
}

inline std::ostream& operator<<(std::ostream& out, const Entry& entry) {
    out << entry.id << ": ";
    std::visit([&out](const auto& value) { print(value, out); }, entry.value);
    if (entry.preferred != 0) out << ", preferred " << entry.preferred;
    if (entry.form != form_of(entry.id)) out << ", form " << entry.form;
    return out;
}

inline std::ostream& operator<<(std::ostream& out, const Contact& contact) {
    for (const auto* list : {&contact.general, &contact.phones, &contact.addresses, &contact.extended}) {
        for (const Entry& entry : *list) out << "\n  " << entry;
    }
    return out;
}

}  // namespace vzapi::test
