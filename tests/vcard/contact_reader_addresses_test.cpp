// ADR, EMAIL and URL to the fields of the addresses list.
#include <gtest/gtest.h>

#include <string>

#include "vcard/owned_contact.h"

namespace vzapi::test {
namespace {

struct LineCase {
    std::string line;
    std::string expected;
};

const LineCase kCases[] = {
    {"ADR;POSTAL:a;b;c;d;e;f;g", "A256/3 a|b|c|d|e|f|g"},
    {"ADR;WORK:a;b;c;d;e;f;g", "A257/3 a|b|c|d|e|f|g"},
    {"ADR;HOME:a;b;c;d;e;f;g", "A258/3 a|b|c|d|e|f|g"},
    {"ADR:a;b;c;d;e;f;g", "A256/3 a|b|c|d|e|f|g"},
    {"ADR;DOM;PARCEL:a;b;c;d;e;f;g", "A256/3 a|b|c|d|e|f|g"},
    {"ADR;TYPE=work,pref:a", "A257*/3 a||||||"},
    {"ADR;TYPE=WORK;TYPE=HOME:a", "A258/3 a||||||"},
    {"ADR;PREF:a", "A256*/3 a||||||"},
    {"ADR;HOME:;;Main St 1", "A258/3 ||Main St 1||||"},
    {"ADR;HOME:;;;;;;g;h;i", "A258/3 ||||||g"},
    {"ADR:a\\;b\\\\;c\\,d", "A256/3 a;b\\|c\\,d|||||"},
    {"ADR;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=3Bb;c\\;d;=C3=A9", "A256/3 a;b|c;d|\xC3\xA9||||"},
    {"ADR;ENCODING=BASE64:YTtiO2M=", "A256/3 a|b|c||||"},
    {"ADR;POSTAL:;;;;;;", ""},
    {"ADR:", ""},
    {"EMAIL:a@example.com", "A259 a@example.com"},
    {"EMAIL;INTERNET:a@example.com", "A259 a@example.com"},
    {"EMAIL;INTERNET;HOME:a@example.com", "A260 a@example.com"},
    {"EMAIL;HOME:a@example.com", "A260 a@example.com"},
    {"EMAIL;INTERNET;WORK:a@example.com", "A261 a@example.com"},
    {"EMAIL;TYPE=internet,work,pref:a@example.com", "A261* a@example.com"},
    {"EMAIL;WORK;HOME:a@example.com", "A260 a@example.com"},
    {"EMAIL;PREF:a@example.com", "A259* a@example.com"},
    {"EMAIL:", ""},
    {"URL:http://example.com/a;b?c=d:e", "A272 http://example.com/a;b?c=d:e"},
    {"URL;HOME:http://example.com/", "A273 http://example.com/"},
    {"URL;WORK:http://example.com/", "A274 http://example.com/"},
    {"URL;WORK;PREF:http://example.com/", "A274* http://example.com/"},
    {"URL;HOME:", ""},
};

TEST(ContactReaderAddresses, EachLineGivesItsEntry) {
    for (const LineCase& row : kCases) {
        EXPECT_EQ(read_lines(row.line), row.expected.empty() ? "" : row.expected + "\n") << row.line;
    }
}

TEST(ContactReaderAddresses, MissingComponentsAreEmptyStringsNotNull) {
    OwnedContact contact;
    ASSERT_EQ(contact.read(card("ADR;HOME:;;Main St 1")), VZ_OK);
    ASSERT_EQ(contact.item.addressCount, 1U);
    const ContactField& entry = contact.item.addresses[0];
    EXPECT_EQ(entry.fieldId, 258U);
    EXPECT_EQ(entry.form, 3U);
    EXPECT_EQ(entry.preferred, 0U);
    const ContactAddress& address = *entry.value.address;
    EXPECT_EQ(address.size, 64U);
    for (const char16_t* empty : {address.poBox, address.postalCode, address.city, address.region,
                                  address.country, address.extendedAddress}) {
        ASSERT_NE(empty, nullptr);
        EXPECT_EQ(*empty, u'\0');
    }
    EXPECT_EQ(std::u16string(address.street), u"Main St 1");
}

TEST(ContactReaderAddresses, AnEncodedSemicolonStaysInItsComponent) {
    EXPECT_EQ(read_lines("ADR;WORK;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:;;Dock =3B 7;K=C3=B6ln;;;"),
              "A257/3 ||Dock ; 7|K\xC3\xB6ln|||\n");
}

TEST(ContactReaderAddresses, EscapesOfVersion3) {
    EXPECT_EQ(read_lines("ADR;TYPE=HOME:;;Main St 1\\, rear\\nleft;a\\;b\\\\c", "3.0"),
              "A258/3 ||Main St 1, rear\nleft|a;b\\c|||\n");
}

}  // namespace
}  // namespace vzapi::test
