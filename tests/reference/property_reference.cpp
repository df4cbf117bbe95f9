#include "reference/property_reference.h"

#include <algorithm>
#include <cstddef>

#include "reference/base64_reference.h"
#include "reference/quoted_printable_reference.h"

namespace vzapi::reference {
namespace {

// The index is the ID.
constexpr const char* kNames[] = {
    "BEGIN",
    "END",
    "ADR",
    "ORG",
    "N",
    "AGENT",
    "LOGO",
    "PHOTO",
    "LABEL",
    "FN",
    "TITLE",  // 10
    "SOUND",
    "VERSION",
    "TEL",
    "EMAIL",
    "TZ",
    "GEO",
    "NOTE",
    "URL",
    "BDAY",
    "ROLE",  // 20
    "REV",
    "UID",
    "KEY",
    "MAILER",
    "CATEGORIES",
    "CLASS",
    "X-NICKNAME",
    "PRODID",
    "SORT-STRING",
    "DAYLIGHT",  // 30
    "AALARM",
    "DALARM",
    "EXDATE",
    "MALARM",
    "PALARM",
    "RDATE",
    "RESOURCES",
    "STATUS",
    "ATTACH",
    "ATTENDEE",  // 40
    "DCREATED",
    "COMPLETED",
    "DESCRIPTION",
    "DUE",
    "DTEND",
    "EXRULE",
    "LAST-MODIFIED",
    "LOCATION",
    "RNUM",
    "PRIORITY",  // 50
    "RELATED-TO",
    "RRULE",
    "SEQUENCE",
    "DTSTART",
    "SUMMARY",
    "TRANSP",
    "X-IRMC-STATUS",
    "X-IRMC-BOX",
    "X-IRMC-URL",
    "X-DTMF",  // 60
    "X-PTT",
    "X-ITEMDATA",
    "X-MESSAGE-TYPE",
    "DATE",
    "X-EPOCAGENDAENTRYTYPE",
    "X-NRD-DT",
    "X-SIP",
    "X-EPOCSECONDNAME",
    "X-WV-ID",
    "X-IRMC-N",  // 70
    "X-IRMC-ORG",
    "X-EPOC-AGENDA-TYPE",
    "TRIGGER",
    "X-SPOUSE",
    "X-CHILDREN",
    "X-ASSISTANT",
    "X-ANNIVERSARY",
    "X-ASSISTANT-TEL",
    "X-CLASS",
    "X-BIRTHYEAR",  // 80
    "X-CNTGRP",
    "X-CATEGORIES",
    "X-IMPP",
    "X-FAVORITE",
    "X-SELF",
    "X-JABBER",
    "X-SKYPE",
    "X-FACEBOOK",
    "X-GENDER",
};

template <class Unit>
std::size_t end_of_name(const Text<Unit>& line) {
    return line.find_first_of(ascii<Unit>(";:"));
}

template <class Unit>
bool is_name_text(const Text<Unit>& text) {
    const Text<Unit> allowed = ascii<Unit>("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-");
    return !text.empty() && upper_cased(text).find_first_not_of(allowed) == Text<Unit>::npos;
}

// The table of the bytes without "X-SPOUSE" to "X-GENDER", and with another name for the nickname.
std::vector<std::u16string> wide_names() {
    std::vector<std::u16string> names;
    for (const std::string name : kNames) {
        if (name == "X-SPOUSE") break;
        names.push_back(ascii<char16_t>(name == "X-NICKNAME" ? "NICKNAME" : name));
    }
    return names;
}

}  // namespace

template <>
const std::vector<std::string>& property_names<char>() {
    static const std::vector<std::string> names(std::begin(kNames), std::end(kNames));
    return names;
}

template <>
const std::vector<std::u16string>& property_names<char16_t>() {
    static const std::vector<std::u16string> names = wide_names();
    return names;
}

namespace {

template <class Unit>
bool is_table_name(const Text<Unit>& upper_name) {
    const std::vector<Text<Unit>>& names = property_names<Unit>();
    return std::find(names.begin(), names.end(), upper_name) != names.end();
}

}  // namespace

template <class Unit>
Text<Unit> property_name(const Text<Unit>& line) {
    const std::size_t end = end_of_name(line);
    if (end == Text<Unit>::npos || end == 0) return {};
    return upper_cased(line.substr(0, end));
}

template <class Unit>
int property_id(const Text<Unit>& line) {
    const std::vector<Text<Unit>>& names = property_names<Unit>();
    for (std::size_t id = 0; id < names.size(); ++id) {
        if (names[id] == property_name(line)) return static_cast<int>(id);
    }
    return -1;
}

template <class Unit>
Text<Unit> property_value(const Text<Unit>& line) {
    const std::size_t colon = line.find(Unit(':'));
    if (colon == Text<Unit>::npos || colon == 0) return {};
    return line.substr(colon + 1);
}

template <class Unit>
int property_encoding(const Text<Unit>& line) {
    if (contains(line, "7BIT")) return 0;
    if (contains(line, "8BIT")) return 1;
    if (contains(line, "QUOTED-PRINTABLE")) return 2;
    if (contains(line, "BASE64")) return 3;
    return contains(line, "ENCODING") ? -1 : -2;
}

std::string decoded_value(const std::string& line, int default_encoding) {
    int encoding = property_encoding(line);
    if (encoding == -2) encoding = default_encoding;
    std::string value = property_value(line);
    if (encoding == 2) return decode_quoted_printable(value);
    if (encoding == 3 || encoding == 4 || encoding == 5) return decode_base64(value);
    return value;
}

template <class Unit>
bool begins_known_property(const Text<Unit>& line) {
    const std::size_t end = end_of_name(line);
    if (end == Text<Unit>::npos || end == 0) return false;
    Text<Unit> name = line.substr(0, end);
    const std::size_t dot = name.find(Unit('.'));
    if (dot != Text<Unit>::npos && is_name_text(name.substr(0, dot))) name = name.substr(dot + 1);
    name = upper_cased(name);
    return is_table_name(name) || name.substr(0, 2) == ascii<Unit>("X-");
}

template <class Unit>
bool has_property_form(const Text<Unit>& line) {
    const std::size_t end = end_of_name(line);
    if (end == Text<Unit>::npos) return false;
    const Text<Unit> name = line.substr(0, end);
    const std::size_t dot = name.find(Unit('.'));
    if (dot == Text<Unit>::npos) return is_name_text(name);
    return is_name_text(name.substr(0, dot)) && is_name_text(name.substr(dot + 1));
}

template std::string property_name(const std::string&);
template std::u16string property_name(const std::u16string&);
template int property_id(const std::string&);
template int property_id(const std::u16string&);
template std::string property_value(const std::string&);
template std::u16string property_value(const std::u16string&);
template int property_encoding(const std::string&);
template int property_encoding(const std::u16string&);
template bool begins_known_property(const std::string&);
template bool begins_known_property(const std::u16string&);
template bool has_property_form(const std::string&);
template bool has_property_form(const std::u16string&);

}  // namespace vzapi::reference
