#include "versit/names.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace vzapi::versit {
namespace {

// The tables of the interface, written down a second time: a changed row must be changed here as well.
struct NarrowRow {
    int index;
    PropertyId id;
    std::string_view name;
};

constexpr NarrowRow kNarrowNames[] = {
    {0, PropertyId::Begin, "BEGIN"},
    {1, PropertyId::End, "END"},
    {2, PropertyId::Adr, "ADR"},
    {3, PropertyId::Org, "ORG"},
    {4, PropertyId::N, "N"},
    {5, PropertyId::Agent, "AGENT"},
    {6, PropertyId::Logo, "LOGO"},
    {7, PropertyId::Photo, "PHOTO"},
    {8, PropertyId::Label, "LABEL"},
    {9, PropertyId::Fn, "FN"},
    {10, PropertyId::Title, "TITLE"},
    {11, PropertyId::Sound, "SOUND"},
    {12, PropertyId::Version, "VERSION"},
    {13, PropertyId::Tel, "TEL"},
    {14, PropertyId::Email, "EMAIL"},
    {15, PropertyId::Tz, "TZ"},
    {16, PropertyId::Geo, "GEO"},
    {17, PropertyId::Note, "NOTE"},
    {18, PropertyId::Url, "URL"},
    {19, PropertyId::Bday, "BDAY"},
    {20, PropertyId::Role, "ROLE"},
    {21, PropertyId::Rev, "REV"},
    {22, PropertyId::Uid, "UID"},
    {23, PropertyId::Key, "KEY"},
    {24, PropertyId::Mailer, "MAILER"},
    {25, PropertyId::Categories, "CATEGORIES"},
    {26, PropertyId::Class, "CLASS"},
    {27, PropertyId::Nickname, "X-NICKNAME"},
    {28, PropertyId::Prodid, "PRODID"},
    {29, PropertyId::SortString, "SORT-STRING"},
    {30, PropertyId::Daylight, "DAYLIGHT"},
    {31, PropertyId::Aalarm, "AALARM"},
    {32, PropertyId::Dalarm, "DALARM"},
    {33, PropertyId::Exdate, "EXDATE"},
    {34, PropertyId::Malarm, "MALARM"},
    {35, PropertyId::Palarm, "PALARM"},
    {36, PropertyId::Rdate, "RDATE"},
    {37, PropertyId::Resources, "RESOURCES"},
    {38, PropertyId::Status, "STATUS"},
    {39, PropertyId::Attach, "ATTACH"},
    {40, PropertyId::Attendee, "ATTENDEE"},
    {41, PropertyId::Dcreated, "DCREATED"},
    {42, PropertyId::Completed, "COMPLETED"},
    {43, PropertyId::Description, "DESCRIPTION"},
    {44, PropertyId::Due, "DUE"},
    {45, PropertyId::Dtend, "DTEND"},
    {46, PropertyId::Exrule, "EXRULE"},
    {47, PropertyId::LastModified, "LAST-MODIFIED"},
    {48, PropertyId::Location, "LOCATION"},
    {49, PropertyId::Rnum, "RNUM"},
    {50, PropertyId::Priority, "PRIORITY"},
    {51, PropertyId::RelatedTo, "RELATED-TO"},
    {52, PropertyId::Rrule, "RRULE"},
    {53, PropertyId::Sequence, "SEQUENCE"},
    {54, PropertyId::Dtstart, "DTSTART"},
    {55, PropertyId::Summary, "SUMMARY"},
    {56, PropertyId::Transp, "TRANSP"},
    {57, PropertyId::XIrmcStatus, "X-IRMC-STATUS"},
    {58, PropertyId::XIrmcBox, "X-IRMC-BOX"},
    {59, PropertyId::XIrmcUrl, "X-IRMC-URL"},
    {60, PropertyId::XDtmf, "X-DTMF"},
    {61, PropertyId::XPtt, "X-PTT"},
    {62, PropertyId::XItemdata, "X-ITEMDATA"},
    {63, PropertyId::XMessageType, "X-MESSAGE-TYPE"},
    {64, PropertyId::Date, "DATE"},
    {65, PropertyId::XEpocAgendaEntryType, "X-EPOCAGENDAENTRYTYPE"},
    {66, PropertyId::XNrdDt, "X-NRD-DT"},
    {67, PropertyId::XSip, "X-SIP"},
    {68, PropertyId::XEpocSecondName, "X-EPOCSECONDNAME"},
    {69, PropertyId::XWvId, "X-WV-ID"},
    {70, PropertyId::XIrmcN, "X-IRMC-N"},
    {71, PropertyId::XIrmcOrg, "X-IRMC-ORG"},
    {72, PropertyId::XEpocAgendaType, "X-EPOC-AGENDA-TYPE"},
    {73, PropertyId::Trigger, "TRIGGER"},
    {74, PropertyId::XSpouse, "X-SPOUSE"},
    {75, PropertyId::XChildren, "X-CHILDREN"},
    {76, PropertyId::XAssistant, "X-ASSISTANT"},
    {77, PropertyId::XAnniversary, "X-ANNIVERSARY"},
    {78, PropertyId::XAssistantTel, "X-ASSISTANT-TEL"},
    {79, PropertyId::XClass, "X-CLASS"},
    {80, PropertyId::XBirthyear, "X-BIRTHYEAR"},
    {81, PropertyId::XCntgrp, "X-CNTGRP"},
    {82, PropertyId::XCategories, "X-CATEGORIES"},
    {83, PropertyId::XImpp, "X-IMPP"},
    {84, PropertyId::XFavorite, "X-FAVORITE"},
    {85, PropertyId::XSelf, "X-SELF"},
    {86, PropertyId::XJabber, "X-JABBER"},
    {87, PropertyId::XSkype, "X-SKYPE"},
    {88, PropertyId::XFacebook, "X-FACEBOOK"},
    {89, PropertyId::XGender, "X-GENDER"},
};
static_assert(std::size(kNarrowNames) == kPropertyCount);

struct WideRow {
    int index;
    PropertyId id;
    std::u16string_view name;
};

constexpr WideRow kWideNames[] = {
    {0, PropertyId::Begin, u"BEGIN"},
    {1, PropertyId::End, u"END"},
    {2, PropertyId::Adr, u"ADR"},
    {3, PropertyId::Org, u"ORG"},
    {4, PropertyId::N, u"N"},
    {5, PropertyId::Agent, u"AGENT"},
    {6, PropertyId::Logo, u"LOGO"},
    {7, PropertyId::Photo, u"PHOTO"},
    {8, PropertyId::Label, u"LABEL"},
    {9, PropertyId::Fn, u"FN"},
    {10, PropertyId::Title, u"TITLE"},
    {11, PropertyId::Sound, u"SOUND"},
    {12, PropertyId::Version, u"VERSION"},
    {13, PropertyId::Tel, u"TEL"},
    {14, PropertyId::Email, u"EMAIL"},
    {15, PropertyId::Tz, u"TZ"},
    {16, PropertyId::Geo, u"GEO"},
    {17, PropertyId::Note, u"NOTE"},
    {18, PropertyId::Url, u"URL"},
    {19, PropertyId::Bday, u"BDAY"},
    {20, PropertyId::Role, u"ROLE"},
    {21, PropertyId::Rev, u"REV"},
    {22, PropertyId::Uid, u"UID"},
    {23, PropertyId::Key, u"KEY"},
    {24, PropertyId::Mailer, u"MAILER"},
    {25, PropertyId::Categories, u"CATEGORIES"},
    {26, PropertyId::Class, u"CLASS"},
    {27, PropertyId::Nickname, u"NICKNAME"},
    {28, PropertyId::Prodid, u"PRODID"},
    {29, PropertyId::SortString, u"SORT-STRING"},
    {30, PropertyId::Daylight, u"DAYLIGHT"},
    {31, PropertyId::Aalarm, u"AALARM"},
    {32, PropertyId::Dalarm, u"DALARM"},
    {33, PropertyId::Exdate, u"EXDATE"},
    {34, PropertyId::Malarm, u"MALARM"},
    {35, PropertyId::Palarm, u"PALARM"},
    {36, PropertyId::Rdate, u"RDATE"},
    {37, PropertyId::Resources, u"RESOURCES"},
    {38, PropertyId::Status, u"STATUS"},
    {39, PropertyId::Attach, u"ATTACH"},
    {40, PropertyId::Attendee, u"ATTENDEE"},
    {41, PropertyId::Dcreated, u"DCREATED"},
    {42, PropertyId::Completed, u"COMPLETED"},
    {43, PropertyId::Description, u"DESCRIPTION"},
    {44, PropertyId::Due, u"DUE"},
    {45, PropertyId::Dtend, u"DTEND"},
    {46, PropertyId::Exrule, u"EXRULE"},
    {47, PropertyId::LastModified, u"LAST-MODIFIED"},
    {48, PropertyId::Location, u"LOCATION"},
    {49, PropertyId::Rnum, u"RNUM"},
    {50, PropertyId::Priority, u"PRIORITY"},
    {51, PropertyId::RelatedTo, u"RELATED-TO"},
    {52, PropertyId::Rrule, u"RRULE"},
    {53, PropertyId::Sequence, u"SEQUENCE"},
    {54, PropertyId::Dtstart, u"DTSTART"},
    {55, PropertyId::Summary, u"SUMMARY"},
    {56, PropertyId::Transp, u"TRANSP"},
    {57, PropertyId::XIrmcStatus, u"X-IRMC-STATUS"},
    {58, PropertyId::XIrmcBox, u"X-IRMC-BOX"},
    {59, PropertyId::XIrmcUrl, u"X-IRMC-URL"},
    {60, PropertyId::XDtmf, u"X-DTMF"},
    {61, PropertyId::XPtt, u"X-PTT"},
    {62, PropertyId::XItemdata, u"X-ITEMDATA"},
    {63, PropertyId::XMessageType, u"X-MESSAGE-TYPE"},
    {64, PropertyId::Date, u"DATE"},
    {65, PropertyId::XEpocAgendaEntryType, u"X-EPOCAGENDAENTRYTYPE"},
    {66, PropertyId::XNrdDt, u"X-NRD-DT"},
    {67, PropertyId::XSip, u"X-SIP"},
    {68, PropertyId::XEpocSecondName, u"X-EPOCSECONDNAME"},
    {69, PropertyId::XWvId, u"X-WV-ID"},
    {70, PropertyId::XIrmcN, u"X-IRMC-N"},
    {71, PropertyId::XIrmcOrg, u"X-IRMC-ORG"},
    {72, PropertyId::XEpocAgendaType, u"X-EPOC-AGENDA-TYPE"},
    {73, PropertyId::Trigger, u"TRIGGER"},
};
static_assert(std::size(kWideNames) == kWidePropertyCount);

template <class Unit>
std::basic_string<Unit> lower(std::basic_string_view<Unit> text) {
    std::basic_string<Unit> result(text);
    for (Unit& unit : result) {
        if (unit >= Unit('A') && unit <= Unit('Z')) unit = static_cast<Unit>(unit + 32);
    }
    return result;
}

// Every second letter in the other case.
template <class Unit>
std::basic_string<Unit> mixed(std::basic_string_view<Unit> text) {
    std::basic_string<Unit> result = lower(text);
    for (std::size_t i = 0; i < text.size(); i += 2) result[i] = text[i];
    return result;
}

TEST(Names, EveryNarrowPropertyHasItsIndexAndName) {
    for (std::size_t i = 0; i < std::size(kNarrowNames); ++i) {
        const NarrowRow& row = kNarrowNames[i];
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.index, static_cast<int>(i));
        EXPECT_EQ(static_cast<int>(row.id), row.index);
        EXPECT_EQ(property_name(row.id), row.name);
    }
}

TEST(Names, EveryWidePropertyHasItsIndexAndName) {
    for (std::size_t i = 0; i < std::size(kWideNames); ++i) {
        const WideRow& row = kWideNames[i];
        SCOPED_TRACE(i);
        EXPECT_EQ(row.index, static_cast<int>(i));
        EXPECT_EQ(static_cast<int>(row.id), row.index);
        EXPECT_TRUE(wide_property_name(row.id) == row.name);
    }
}

TEST(Names, NarrowNamesAreFoundInAnyCase) {
    for (const NarrowRow& row : kNarrowNames) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(find_property(row.name), row.id);
        EXPECT_EQ(find_property(lower(row.name)), row.id);
        EXPECT_EQ(find_property(mixed(row.name)), row.id);
    }
}

TEST(Names, WideNamesAreFoundInAnyCase) {
    for (const WideRow& row : kWideNames) {
        SCOPED_TRACE(row.index);
        EXPECT_EQ(find_property(row.name), row.id);
        EXPECT_EQ(find_property(lower(row.name)), row.id);
        EXPECT_EQ(find_property(mixed(row.name)), row.id);
    }
}

TEST(Names, TheNicknameIsCalledDifferentlyOnTheTwoSides) {
    EXPECT_EQ(find_property("X-NICKNAME"), PropertyId::Nickname);
    EXPECT_EQ(find_property("NICKNAME"), PropertyId::None);
    EXPECT_EQ(find_property(u"NICKNAME"), PropertyId::Nickname);
    EXPECT_EQ(find_property(u"X-NICKNAME"), PropertyId::None);
}

TEST(Names, TheWideSideDoesNotKnowTheLastSixteen) {
    for (std::size_t i = kWidePropertyCount; i < kPropertyCount; ++i) {
        const std::string_view name = kNarrowNames[i].name;
        SCOPED_TRACE(name);
        EXPECT_EQ(find_property(std::u16string(name.begin(), name.end())), PropertyId::None);
    }
}

TEST(Names, NothingElseIsFound) {
    const std::string_view misses[] = {
        "",      " ",    "TE",        "TELL",     "TEL ",        " TEL",
        "TEL:",  "TEL;", "ITEM1.TEL", "X-",       "X-UNKNOWN",   "XSIP",
        "X_SIP", "7BIT", "VCARD",     "ENCODING", "X-NICKNAMES", "X-EPOCAGENDAENTRYTYPES",
        "@EL",   "`el",  "[",         "X-SIPS",   "NOT-A-NAME",  "A-NAME-LONGER-THAN-EVERY-OTHER-NAME",
    };
    for (const std::string_view miss : misses) {
        SCOPED_TRACE(miss);
        EXPECT_EQ(find_property(miss), PropertyId::None);
        EXPECT_EQ(find_property(std::u16string(miss.begin(), miss.end())), PropertyId::None);
    }
}

TEST(Names, ANulIsACharacterOfAName) {
    EXPECT_EQ(find_property(std::string_view("X-SIP\0", 6)), PropertyId::None);
    EXPECT_EQ(find_property(std::u16string_view(u"\0TEL", 4)), PropertyId::None);
}

TEST(Names, EveryNameCutShortOrExtendedIsAnotherName) {
    for (const NarrowRow& row : kNarrowNames) {
        SCOPED_TRACE(row.name);
        EXPECT_NE(find_property(row.name.substr(1)), row.id);
        EXPECT_NE(find_property(row.name.substr(0, row.name.size() - 1)), row.id);
        EXPECT_NE(find_property(std::string(row.name) + "S"), row.id);
    }
}

TEST(Names, BytesAbove127AreNotFoldedIntoLetters) {
    std::string name = "TEL";
    name[0] = static_cast<char>(name[0] | '\x80');
    EXPECT_EQ(find_property(name), PropertyId::None);
}

// Units whose low byte, or whose full-width form, is that of a letter.
TEST(Names, UnitsAboveAsciiAreNotTakenForLetters) {
    EXPECT_EQ(find_property(u"\u0154\u0145\u014C"), PropertyId::None);
    EXPECT_EQ(find_property(u"\uFF34\uFF25\uFF2C"), PropertyId::None);
    EXPECT_EQ(find_property(u"\u212AEY"), PropertyId::None);  // the Kelvin sign
}

TEST(Names, EncodingsHaveTheirIndexAndName) {
    EXPECT_EQ(kEncodingCount, 4U);
    EXPECT_EQ(encoding_name(Encoding{0}), "7BIT");
    EXPECT_EQ(encoding_name(Encoding{1}), "8BIT");
    EXPECT_EQ(encoding_name(Encoding{2}), "QUOTED-PRINTABLE");
    EXPECT_EQ(encoding_name(Encoding{3}), "BASE64");
    EXPECT_EQ(Encoding::SevenBit, Encoding{0});
    EXPECT_EQ(Encoding::EightBit, Encoding{1});
    EXPECT_EQ(Encoding::QuotedPrintable, Encoding{2});
    EXPECT_EQ(Encoding::Base64, Encoding{3});
    EXPECT_EQ(Encoding::Base64Default, Encoding{4});
    EXPECT_EQ(Encoding::Base64Default2, Encoding{5});
    EXPECT_EQ(Encoding::Unknown, Encoding{-1});
    EXPECT_EQ(Encoding::None, Encoding{-2});
}

TEST(Names, NarrowComponentsHaveTheirIndexAndName) {
    const std::string_view names[] = {"VCARD", "VCALENDAR", "VEVENT", "VTODO", "VMSG",
                                      "VENV",  "VBODY",     "VBKM",   "VALARM"};
    ASSERT_EQ(std::size(names), kComponentCount);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(component_name(ComponentId{i}), names[i]);
    EXPECT_EQ(ComponentId::VCard, ComponentId{0});
    EXPECT_EQ(ComponentId::VEvent, ComponentId{2});
    EXPECT_EQ(ComponentId::VBkm, ComponentId{7});
    EXPECT_EQ(ComponentId::VAlarm, ComponentId{8});
}

TEST(Names, WideComponentsHaveTheirIndexAndName) {
    const std::u16string_view names[] = {u"VCALENDAR", u"VTODO", u"VMSG", u"VENV", u"VBOOKMARK", u"VALARM"};
    ASSERT_EQ(std::size(names), kWideComponentCount);
    for (int i = 0; i < 6; ++i) EXPECT_TRUE(wide_component_name(WideComponentId{i}) == names[i]) << i;
    EXPECT_EQ(WideComponentId::VMsg, WideComponentId{2});
    EXPECT_EQ(WideComponentId::VAlarm, WideComponentId{5});
}

}  // namespace
}  // namespace vzapi::versit
