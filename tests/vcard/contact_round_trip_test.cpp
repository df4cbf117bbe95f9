// Record to text to record: equal, but for what the rules themselves lose (contact_losses.h). Each loss is shown
// by example here.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/text.h"
#include "vcard/contact_builder.h"
#include "vcard/contact_losses.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

struct Profile {
    std::uint64_t family = 0;
    std::uint32_t version = 0;
};

Contact there_and_back(const Contact& contact, const Profile& profile = {}) {
    ContactRecord record(contact);
    OwnedText text;
    const std::uint64_t counts = profile.family != 0 ? 1 : 0;
    EXPECT_EQ(
        ConvertToVersit2(profile.family, profile.version, counts, VZ_TYPE_CONTACT, record.item(), &text.data),
        VZ_OK);
    ContactItem back{};
    back.size = sizeof back;
    EXPECT_EQ(ConvertFromVersit(VZ_TYPE_CONTACT, &text.data, &back), VZ_OK);
    Contact result = contact_of(back);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT, &back), VZ_OK);
    return result;
}

// ---- Random records.

constexpr std::u16string_view kPieces[] = {u"a",
                                           u"Ann",
                                           u" ",
                                           u"\t",
                                           u"=",
                                           u"=4",
                                           u"=41",
                                           u":",
                                           u";",
                                           u"\\",
                                           u"\\;",
                                           u"\\n",
                                           u"\\N",
                                           u",",
                                           u"\r",
                                           u"\n",
                                           u"\r\n",
                                           u"\x1B",
                                           u"\x01",
                                           u"\x7F",
                                           u"\u0080",
                                           u"N:",
                                           u"TEL;CELL:1",
                                           u"END:VCARD",
                                           u"BEGIN:VCARD",
                                           u"VERSION:3.0",
                                           u"ENCODING=",
                                           u"CHARSET=SHIFT_JIS",
                                           u"QUOTED-PRINTABLE",
                                           u"quoted-printable",
                                           u"BASE64",
                                           u"base64",
                                           u"7BIT",
                                           u"8BIT",
                                           u"PREF",
                                           u"+49 (30) 5550123",
                                           u"http://example.com/?q=1",
                                           u"\u00E9",
                                           u"\u0395\u03BB\u03BB\u03AC\u03B4\u03B1",
                                           u"\u0634\u0643\u0631\u0627",
                                           u"\u8868\u793A",
                                           u"\u7FFF",
                                           u"\U0001F600",
                                           u"\U0001F468\u200D\U0001F469\u200D\U0001F467",
                                           u"\uFEFF",
                                           u"\uFFFF",
                                           u"\uFFFD"};

constexpr std::u16string_view kImageTypes[] = {u"JPG", u"JPEG", u"JPE", u"JFIF", u"PNG",
                                               u"BMP", u"GIF",  u"J",   u"PN"};

// Contacts over all fields, without what the rules lose.
class Contacts {
public:
    explicit Contacts(unsigned seed) : random_(seed) {}

    Contact next() {
        for (;;) {
            Contact contact = any();
            if (comes_back(contact)) return contact;
        }
    }

    // A contact with nothing but that field.
    Contact only(std::uint32_t id) { return {entry(id)}; }

    static bool is_field(std::uint32_t id) {
        const auto in = [id](const auto& ids) { return std::find(ids.begin(), ids.end(), id) != ids.end(); };
        return id <= VZ_CONTACT_DEPARTMENT || in(kPhones) || in(kAddresses) || in(kExtended);
    }

private:
    unsigned below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(random_); }
    bool one_in(unsigned count) { return below(count) == 0; }

    Contact any() {
        Contact contact;
        for (std::uint32_t id = 1; id < VZ_CONTACT_PHONE; ++id) {
            if (id <= VZ_CONTACT_DEPARTMENT && one_in(3)) contact.add(entry(id));
        }
        for (const auto& ids : {kPhones, kAddresses, kExtended}) {
            for (const std::uint32_t id : ids) {
                if (one_in(6)) contact.add(entry(id));
                if (one_in(12) && may_repeat(id)) contact.add(entry(id));
            }
        }
        shuffle(contact.phones);
        shuffle(contact.addresses);
        mark(contact.phones, VZ_CONTACT_PHONE_MARK);
        mark(contact.addresses, VZ_CONTACT_ADDRESS_MARK);
        return contact;
    }

    static bool may_repeat(std::uint32_t id) { return id != VZ_CONTACT_CLASS && id != VZ_CONTACT_GENDER; }

    void shuffle(std::vector<Entry>& entries) { std::shuffle(entries.begin(), entries.end(), random_); }

    // Puts a mark of some entry's value somewhere into the list.
    void mark(std::vector<Entry>& entries, std::uint32_t id) {
        if (entries.empty() || !one_in(4)) return;
        const Entry& marked = entries[below(static_cast<unsigned>(entries.size()))];
        if (!std::holds_alternative<Text>(marked.value)) return;
        entries.insert(entries.begin() + below(static_cast<unsigned>(entries.size())),
                       text(id, some_text(marked)));
    }
    static Text some_text(const Entry& entry) { return std::get<Text>(entry.value); }

    Entry entry(std::uint32_t id) {
        const std::uint32_t preferred = has_flag(id) && one_in(5) ? kPreferred : 0;
        Entry entry{id, value(id), preferred};
        // A value that is lost is drawn again, or hardly any contact were left.
        while (!comes_back({entry})) {
            entry.value = value(id);
            if (turns_into_the_preferred_number(entry)) entry.preferred = 0;
        }
        return entry;
    }

    static bool has_flag(std::uint32_t id) { return id >= VZ_CONTACT_PHONE && id <= VZ_CONTACT_WEB_WORK; }

    Value value(std::uint32_t id) {
        switch (id) {
            case VZ_CONTACT_BIRTHDAY:
            case VZ_CONTACT_ANNIVERSARY:
                return Date{static_cast<std::uint16_t>(1 + below(9999)),
                            static_cast<std::uint8_t>(1 + below(12)),
                            static_cast<std::uint8_t>(1 + below(28))};
            case VZ_CONTACT_PHOTO:
                return Photo{std::u16string(kImageTypes[below(std::size(kImageTypes))]), bytes()};
            case VZ_CONTACT_ADDRESS:
            case VZ_CONTACT_ADDRESS_WORK:
            case VZ_CONTACT_ADDRESS_HOME:
                return address_value();
            case VZ_CONTACT_MESSAGING:
                return Messaging{below(6), below(2), pieces()};
            case VZ_CONTACT_CLASS:
            case VZ_CONTACT_GENDER:
                return 1 + below(3);
            case VZ_CONTACT_FAVORITE:
            case VZ_CONTACT_SELF:
                return static_cast<std::uint32_t>(random_());
            default:
                return Text(pieces());
        }
    }

    Address address_value() {
        Address address;
        for (Text& component : address.components) component = one_in(2) ? std::u16string() : pieces();
        return address;
    }

    std::string bytes() {
        std::string bytes;
        for (unsigned count = 1 + below(300); count > 0; --count) bytes += static_cast<char>(random_());
        return bytes;
    }

    std::u16string pieces() {
        std::u16string text;
        for (unsigned count = 1 + below(8); count > 0; --count) text += kPieces[below(std::size(kPieces))];
        if (one_in(40)) text.append(below(500), u'x');
        return text;
    }

    static inline const std::vector<std::uint32_t> kPhones = {32, 33, 34, 35, 36, 37, 48,  64,  65,  66,
                                                              80, 81, 82, 96, 97, 98, 112, 113, 114, 115};
    static inline const std::vector<std::uint32_t> kAddresses = {256, 257, 258, 259, 260, 261,
                                                                 272, 273, 274, 288, 289, 304};
    static inline const std::vector<std::uint32_t> kExtended = {512, 513, 514, 515, 516,
                                                                517, 518, 519, 520, 521};

    std::mt19937 random_;
};

TEST(ContactRoundTrip, RandomContactsComeBackEqual) {
    const AnnouncedVersion announced(16);
    Contacts contacts(1234);
    for (int i = 0; i < 3000; ++i) {
        const Contact contact = contacts.next();
        ASSERT_EQ(in_order(there_and_back(contact)), after_the_trip(contact)) << i;
    }
}

// Under no profile does a contact become another one: what is written twice is read once, and a line that
// clears a field of the device is no entry.
TEST(ContactRoundTrip, RandomContactsComeBackEqualFromEveryProfile) {
    const AnnouncedVersion announced(16);
    const Profile profiles[] = {{VZ_PROFILE_10, 10},  {VZ_PROFILE_10, 16},  {VZ_PROFILE_10, 260},
                                {VZ_PROFILE_10, 280}, {VZ_PROFILE_20, 300}, {VZ_PROFILE_20, 322},
                                {VZ_PROFILE_20, 323}};
    for (const Profile& profile : profiles) {
        Contacts contacts(profile.version);
        const bool writes_image_types = profile.version != 300;
        for (int i = 0; i < 300; ++i) {
            const Contact contact = contacts.next();
            Contact expected = after_the_trip(contact);
            for (Entry& entry : expected.general) {
                auto* photo = std::get_if<Photo>(&entry.value);
                if (photo != nullptr && !writes_image_types) photo->type = std::nullopt;
            }
            ASSERT_EQ(in_order(there_and_back(contact, profile)), expected) << profile.version << ' ' << i;
        }
    }
}

TEST(ContactRoundTrip, EveryFieldComesBack) {
    const AnnouncedVersion announced(16);
    for (std::uint32_t id = 1; id <= VZ_CONTACT_GENDER; ++id) {
        Contacts contacts(id);
        if (!Contacts::is_field(id)) continue;
        for (int i = 0; i < 50; ++i) {
            const Contact contact = contacts.only(id);
            ASSERT_EQ(there_and_back(contact), after_the_trip(contact));
        }
    }
}

TEST(ContactRoundTrip, EveryCharacterComesBackInAPlainAndInACompoundValue) {
    for (char32_t point = 1; point < 0x110000; point += point < 0x3000 ? 1 : 251) {
        if (point >= 0xD800 && point < 0xE000) continue;
        std::u16string value = u"<";
        if (point < 0x10000) {
            value.push_back(static_cast<char16_t>(point));
        } else {
            value.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
            value.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
        }
        value.push_back(u'>');
        const Contact contact{text(VZ_CONTACT_GIVEN_NAME, value), text(VZ_CONTACT_FORMATTED_NAME, value),
                              text(VZ_CONTACT_PHONE_MOBILE, value),
                              address(VZ_CONTACT_ADDRESS_HOME, {value, u"", value})};
        ASSERT_EQ(there_and_back(contact), contact) << static_cast<std::uint32_t>(point);
    }
}

// ---- The losses, each by example: what comes back instead, and nothing else suffers.

struct LossRow {
    const char* what;
    Contact contact;
    Contact back;
};

TEST(ContactLimits, EachLossAsListed) {
    const AnnouncedVersion announced(16);
    const std::u16string surrogate = u"a\xD800z";
    const LossRow rows[] = {
        {"an empty text", {text(512, u""), text(64, u""), text(1, u"")}, {}},
        {"a null text", {text(512, {}), text(64, {}), text(1, {})}, {}},
        {"an empty address", {address(258, {})}, {}},
        {"a photo without bytes", {photo(u"PNG", "")}, {}},
        {"a final equals sign", {text(512, u"a=")}, {text(512, u"a")}},
        {"a final equals sign of the last component",
         {text(7, u"a"), text(20, u"b=")},
         {text(7, u"a"), text(20, u"b")}},
        {"a flag in a list without types",
         {text(12, u"a", kPreferred), text(512, u"b", kPreferred)},
         {text(12, u"a"), text(512, u"b")}},
        {"a final ESC", {text(512, u"a\x1B")}, {text(512, u"a\n")}},
        {"a plain value that names Base64", {text(512, u"QUJBASE64")}, {text(512, u"ABA\x01!:")}},
        {"a plain value with an escape that names quoted-printable",
         {text(512, u"QUOTED-PRINTABLE=41")},
         {text(512, u"QUOTED-PRINTABLEA")}},
        {"an encoded value that names 8BIT", {text(512, u"\u00E9 8BIT")}, {text(512, u"=C3=A9 8BIT")}},
        {"an unpaired surrogate", {text(512, surrogate)}, {text(512, u"a\uFFFDz")}},
        {"the letters of a line break", {text(512, u"a\\nb")}, {text(512, u"a\r\nb")}},
        {"the same in capitals", {text(12, u"a\\Nb")}, {text(12, u"a\r\nb")}},
        {"the time of a day",
         {{VZ_CONTACT_BIRTHDAY, Date{1970, 1, 2, 3, 4, 5}}},
         {date(VZ_CONTACT_BIRTHDAY, 1970, 1, 2)}},
        {"a date without year", {date(VZ_CONTACT_ANNIVERSARY, 0, 1, 2)}, {}},
        {"an image type unknown to devices", {photo(u"TIFF", "x")}, {photo(u"JPEG", "x")}},
        {"no image type", {photo({}, "x")}, {photo(u"JPEG", "x")}},
        {"a class without a word", {number(VZ_CONTACT_CLASS, 4)}, {}},
        {"a gender without a word", {number(VZ_CONTACT_GENDER, 0)}, {}},
        {"the general number, preferred", {text(32, u"1", kPreferred)}, {text(35, u"1", kPreferred)}},
        {"the preferred number without its flag", {text(35, u"1")}, {text(35, u"1", kPreferred)}},
        {"a mark", {text(64, u"1"), text(255, u"1")}, {text(64, u"1", kPreferred)}},
        {"a mark among addresses", {text(259, u"a"), text(511, u"a")}, {text(259, u"a", kPreferred)}},
    };
    for (const LossRow& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_FALSE(comes_back(row.contact) && after_the_trip(row.contact) == row.contact);
        EXPECT_EQ(there_and_back(row.contact), row.back);
        Contact with_neighbours = row.contact;
        Contact neighbours_back = row.back;
        for (Contact* contact : {&with_neighbours, &neighbours_back}) {
            contact->add(text(VZ_CONTACT_EMAIL_HOME, u"ann@example.com"));
            contact->add(text(VZ_CONTACT_WIRELESS_VILLAGE_ID, u"caf\u00E9"));
        }
        EXPECT_EQ(there_and_back(with_neighbours), neighbours_back);
    }
}

TEST(ContactLimits, AMentionOfABookmarkUndoesTheSoftBreaksOfTheCard) {
    const Contact contact{text(512, u"begin:vbkm \u00E9 " + std::u16string(100, u'x'))};
    EXPECT_FALSE(comes_back(contact));
    EXPECT_NE(there_and_back(contact), contact);
}

TEST(ContactProfileOptions, TheLowHalfOfTheFirstCounts) {
    ContactRecord record{Contact{}};
    for (const std::uint64_t upper_half :
         {std::uint64_t{0}, std::uint64_t{1} << 32, ~std::uint64_t{0} << 32}) {
        OwnedText text;
        ASSERT_EQ(
            ConvertToVersit2(upper_half | VZ_PROFILE_10, 280, 1, VZ_TYPE_CONTACT, record.item(), &text.data),
            VZ_OK);
        EXPECT_NE(text.bytes().find("\r\nBDAY:\r\n"), std::string::npos) << upper_half;
    }
}

}  // namespace
