// The fixed name tables of versit text: properties, encodings, components. An ID is the row's index.
#pragma once

#include <cstddef>
#include <string_view>

namespace vzapi::versit {

// IDs of the 90 property names. Readers get the ID of a line from its name, writers the name from the ID.
enum class PropertyId : int {
    None = -1,
    Begin = 0,
    End,
    Adr,
    Org,
    N,
    Agent,
    Logo,
    Photo,
    Label,
    Fn,
    Title,  // 10
    Sound,
    Version,
    Tel,
    Email,
    Tz,
    Geo,
    Note,
    Url,
    Bday,
    Role,  // 20
    Rev,
    Uid,
    Key,
    Mailer,
    Categories,
    Class,
    Nickname,  // "X-NICKNAME" on the 8-bit side, "NICKNAME" on the UTF-16 side
    Prodid,
    SortString,
    Daylight,  // 30
    Aalarm,
    Dalarm,
    Exdate,
    Malarm,
    Palarm,
    Rdate,
    Resources,
    Status,
    Attach,
    Attendee,  // 40
    Dcreated,
    Completed,
    Description,
    Due,
    Dtend,
    Exrule,
    LastModified,
    Location,
    Rnum,
    Priority,  // 50
    RelatedTo,
    Rrule,
    Sequence,
    Dtstart,
    Summary,
    Transp,
    XIrmcStatus,
    XIrmcBox,
    XIrmcUrl,
    XDtmf,  // 60
    XPtt,
    XItemdata,
    XMessageType,
    Date,
    XEpocAgendaEntryType,
    XNrdDt,
    XSip,
    XEpocSecondName,
    XWvId,
    XIrmcN,  // 70
    XIrmcOrg,
    XEpocAgendaType,
    Trigger,
    XSpouse,
    XChildren,
    XAssistant,
    XAnniversary,
    XAssistantTel,
    XClass,
    XBirthyear,  // 80
    XCntgrp,
    XCategories,
    XImpp,
    XFavorite,
    XSelf,
    XJabber,
    XSkype,
    XFacebook,
    XGender,
};

inline constexpr std::size_t kPropertyCount = 90;

// The UTF-16 side knows the first 74 of them, up to Trigger.
inline constexpr std::size_t kWidePropertyCount = 74;

// REQUIRES: `id` is not None.
[[nodiscard]] std::string_view property_name(PropertyId id) noexcept;
[[nodiscard]] std::u16string_view wide_property_name(PropertyId id) noexcept;  // REQUIRES: below 74

// The ID whose name equals `name`, ASCII letters compared without regard to case; None when there is none.
[[nodiscard]] PropertyId find_property(std::string_view name) noexcept;
[[nodiscard]] PropertyId find_property(std::u16string_view name) noexcept;

// Transfer encodings, as named in a line.
enum class Encoding : int {
    None = -2,     // the line states none
    Unknown = -1,  // the line states one that is not known
    SevenBit = 0,
    EightBit = 1,
    QuotedPrintable = 2,
    Base64 = 3,
    Base64Default = 4,  // given as defaults by readers; decoded as Base64
    Base64Default2 = 5,
};

inline constexpr std::size_t kEncodingCount = 4;
[[nodiscard]] std::string_view encoding_name(Encoding encoding) noexcept;  // REQUIRES: 0 to 3

// Components of 8-bit text.
enum class ComponentId : int { VCard = 0, VCalendar, VEvent, VTodo, VMsg, VEnv, VBody, VBkm, VAlarm };

inline constexpr std::size_t kComponentCount = 9;
[[nodiscard]] std::string_view component_name(ComponentId id) noexcept;

// Components of UTF-16 text: a list of its own, in which the bookmark is called "VBOOKMARK".
enum class WideComponentId : int { VCalendar = 0, VTodo, VMsg, VEnv, VBookmark, VAlarm };

inline constexpr std::size_t kWideComponentCount = 6;
[[nodiscard]] std::u16string_view wide_component_name(WideComponentId id) noexcept;

}  // namespace vzapi::versit
