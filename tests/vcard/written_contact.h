// Writing a contact of the test's own, and the texts to expect.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "call_context.h"
#include "support/text.h"
#include "vcard/contact_builder.h"
#include "vcard/contact_fields.h"
#include "vcard/contact_writer.h"

namespace vzapi::test {

// A receiving device, at the newest interface version unless a test says otherwise.
struct Profile {
    std::uint32_t family = 0;
    std::uint32_t version = 0;
    std::uint64_t third = 1;
};

inline constexpr Profile kNoProfile{0, 0, 0};

[[nodiscard]] inline std::string written(ContactItem* item, const Profile& profile = kNoProfile,
                                         std::uint32_t api_version = VZ_INTERFACE_VERSION) {
    return vcard::write_contact(item, {api_version, profile.family, profile.version, profile.third});
}

[[nodiscard]] inline std::string written(const Contact& contact, const Profile& profile = kNoProfile,
                                         std::uint32_t api_version = VZ_INTERFACE_VERSION) {
    ContactRecord record(contact);
    return written(record.item(), profile, api_version);
}

// An entry of that field with a value of its kind.
[[nodiscard]] inline Entry sample_of(const vcard::FieldRow& row) {
    switch (row.kind) {
        case vcard::ValueKind::Date:
            return date(row.id, 2000, 1, 2);
        case vcard::ValueKind::Photo:
            return photo(u"PNG", "x");
        case vcard::ValueKind::Address:
            return address(row.id, {u"a"});
        case vcard::ValueKind::Messaging:
            return messaging(1, u"a");
        case vcard::ValueKind::Class:
        case vcard::ValueKind::Gender:
        case vcard::ValueKind::Number:
            return number(row.id, 1);
        default:
            return text(row.id, u"a");
    }
}

// The text of a contact whose fields are `middle`.
[[nodiscard]] inline std::string card(std::initializer_list<std::string_view> middle) {
    return lines({"BEGIN:VCARD", "VERSION:2.1"}) + lines(middle) + lines({"END:VCARD"});
}

struct WriteCase {
    const char* what;
    Contact contact;
    std::string expected;
};

inline void expect_all(const std::vector<WriteCase>& cases) {
    for (const WriteCase& row : cases) EXPECT_EQ(written(row.contact), row.expected) << row.what;
}

}  // namespace vzapi::test
