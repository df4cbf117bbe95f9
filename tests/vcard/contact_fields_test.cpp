// The table of contact fields, every row typed again from what each field is.
#include "vcard/contact_fields.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>

#include "vcard/owned_contact.h"

namespace vzapi::vcard {
namespace {

using enum ContactList;
using enum ValueKind;

struct ExpectedRow {
    std::uint32_t id;
    ContactList list;
    ValueKind kind;
    std::string_view property;  // empty: none
    std::string_view parameters;
    std::uint8_t component;
};

constexpr ExpectedRow kExpected[] = {
    // clang-format off
    {1, General, Component, "N", "", 0},
    {2, General, Component, "N", "", 1},
    {3, General, Component, "N", "", 2},
    {4, General, Component, "N", "", 3},
    {5, General, Component, "N", "", 4},
    {6, General, Component, "N", "", 5},
    {7, General, Component, "ORG", "", 0},
    {8, General, MultilineText, "TITLE", "", 0},
    {9, General, Date, "BDAY", "", 0},
    {10, General, Photo, "PHOTO", "", 0},
    {11, General, MultilineText, "X-EPOCSECONDNAME", "", 0},
    {12, General, MultilineText, "FN", "", 0},
    {13, General, Component, "SOUND", ";X-IRMC-N", 0},
    {14, General, Component, "SOUND", ";X-IRMC-N", 1},
    {15, General, Text, "SOUND", ";X-IRMC-ORG", 0},
    {16, General, MultilineText, "X-SPOUSE", "", 0},
    {17, General, MultilineText, "X-CHILDREN", "", 0},
    {18, General, MultilineText, "X-ASSISTANT", "", 0},
    {19, General, Date, "X-ANNIVERSARY", "", 0},
    {20, General, Component, "ORG", "", 1},
    {32, Phones, Text, "TEL", ";VOICE", 0},
    {33, Phones, Text, "TEL", ";HOME", 0},
    {34, Phones, Text, "TEL", ";WORK", 0},
    {35, Phones, Text, "TEL", ";PREF", 0},
    {36, Phones, Text, "TEL", ";CAR", 0},
    {37, Phones, Text, "TEL", ";MODEM", 0},
    {48, Phones, Text, "TEL", ";PAGER", 0},
    {64, Phones, Text, "TEL", ";CELL", 0},
    {65, Phones, Text, "TEL", ";CELL;HOME", 0},
    {66, Phones, Text, "TEL", ";CELL;WORK", 0},
    {80, Phones, Text, "TEL", ";FAX", 0},
    {81, Phones, Text, "TEL", ";FAX;HOME", 0},
    {82, Phones, Text, "TEL", ";FAX;WORK", 0},
    {96, Phones, Text, "TEL", ";VIDEO", 0},
    {97, Phones, Text, "TEL", ";VIDEO;HOME", 0},
    {98, Phones, Text, "TEL", ";VIDEO;WORK", 0},
    {112, Phones, Text, "X-SIP", ";VOIP", 0},
    {113, Phones, Text, "X-SIP", ";VOIP;HOME", 0},
    {114, Phones, Text, "X-SIP", ";VOIP;WORK", 0},
    {115, Phones, Text, "X-ASSISTANT-TEL", "", 0},
    {255, Phones, Marker, "", "", 0},
    {256, Addresses, ValueKind::Address, "ADR", ";POSTAL", 0},
    {257, Addresses, ValueKind::Address, "ADR", ";WORK", 0},
    {258, Addresses, ValueKind::Address, "ADR", ";HOME", 0},
    {259, Addresses, Text, "EMAIL", "", 0},
    {260, Addresses, Text, "EMAIL", ";INTERNET;HOME", 0},
    {261, Addresses, Text, "EMAIL", ";INTERNET;WORK", 0},
    {272, Addresses, Text, "URL", "", 0},
    {273, Addresses, Text, "URL", ";HOME", 0},
    {274, Addresses, Text, "URL", ";WORK", 0},
    {288, Addresses, Text, "X-SIP", ";POC", 0},
    {289, Addresses, Text, "X-SIP", ";SWIS", 0},
    {304, Addresses, Text, "X-SIP", "", 0},
    {511, Addresses, Marker, "", "", 0},
    {512, Extended, MultilineText, "NOTE", "", 0},
    {513, Extended, Text, "X-DTMF", "", 0},
    {514, Extended, Text, "UID", "", 0},
    {515, Extended, Text, "X-WV-ID", "", 0},
    {516, Extended, Class, "CLASS", "", 0},
    {517, Extended, Text, "GEO", "", 0},
    {518, Extended, Messaging, "X-IMPP", "", 0},
    {519, Extended, Number, "X-FAVORITE", "", 0},
    {520, Extended, Number, "X-SELF", "", 0},
    {521, Extended, Gender, "X-GENDER", "", 0},
    // clang-format on
};

std::string_view property_name(const FieldRow& row) {
    return row.property == versit::PropertyId::None ? std::string_view{}
                                                    : versit::property_name(row.property);
}

TEST(ContactFields, AreTheseRows) {
    ASSERT_EQ(contact_fields().size(), std::size(kExpected));
    for (std::size_t i = 0; i < std::size(kExpected); ++i) {
        const FieldRow& row = contact_fields()[i];
        const ExpectedRow& expected = kExpected[i];
        EXPECT_EQ(row.id, expected.id) << "row " << i;
        EXPECT_EQ(row.list, expected.list) << expected.id;
        EXPECT_EQ(row.kind, expected.kind) << expected.id;
        EXPECT_EQ(property_name(row), expected.property) << expected.id;
        EXPECT_EQ(row.parameters, expected.parameters) << expected.id;
        EXPECT_EQ(row.component, expected.component) << expected.id;
    }
}

TEST(ContactFields, AreFoundByTheirIdsAndNoOthers) {
    std::size_t found = 0;
    for (std::uint32_t id = 0; id < 2000; ++id) {
        const FieldRow* row = find_contact_field(id);
        if (row == nullptr) continue;
        EXPECT_EQ(row->id, id);
        ++found;
    }
    EXPECT_EQ(found, std::size(kExpected));
    for (const std::uint32_t id : {0U, 21U, 31U, 38U, 254U, 522U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(find_contact_field(id), nullptr) << id;
    }
}

TEST(ContactFields, TextKindsAreThoseWhoseValueIsAString) {
    for (const ValueKind kind : {Component, Text, MultilineText, Marker}) EXPECT_TRUE(is_text(kind));
    for (const ValueKind kind : {Date, Photo, ValueKind::Address, Messaging, Class, Gender, Number}) {
        EXPECT_FALSE(is_text(kind));
    }
}

TEST(ContactFields, WordsStandForTheirCodes) {
    const auto words = [](std::span<const versit::WordRow> rows) {
        std::string text;
        for (const versit::WordRow& row : rows)
            text += std::to_string(row.code) + " " + std::string(row.word) + "\n";
        return text;
    };
    EXPECT_EQ(words(gender_words()), "1 male\n2 female\n3 undefined\n");
    EXPECT_EQ(words(messaging_words()), "1 PERSONAL\n2 BUSINESS\n3 HOME\n4 WORK\n5 MOBILE\n");
}

// Names a property line of the row with a value of its kind.
std::string line_of(const FieldRow& row) {
    std::string line = std::string(property_name(row)) + std::string(row.parameters) + ":";
    switch (row.kind) {
        case Date:
            return line + "20010203";
        case Photo:
            return line + "QUJD";
        case Class:
            return line + "PUBLIC";
        case Gender:
            return line + "female";
        case Number:
            return line + "7";
        default:
            return line + std::string(row.component, ';') + "value";
    }
}

TEST(ContactFields, EveryRowIsReadFromTheLineThatItDescribes) {
    for (const FieldRow& row : contact_fields()) {
        if (row.kind == Marker) continue;
        test::OwnedContact contact;
        ASSERT_EQ(contact.read(test::card(line_of(row))), VZ_OK) << line_of(row);
        const std::string shown = test::show(contact.item);
        const std::string list(1, "GPAE"[static_cast<std::size_t>(row.list)]);
        EXPECT_EQ(shown.substr(0, shown.find_first_of("*/ ")), list + std::to_string(row.id)) << line_of(row);
        EXPECT_EQ(shown.find('\n'), shown.size() - 1) << "one entry: " << line_of(row);
    }
}

}  // namespace
}  // namespace vzapi::vcard
