#include "vzconv/contact_parts.h"

#include <charconv>
#include <cstdio>

#include "vzconv/unicode.h"

namespace vzconv {
namespace {

struct ListMembers {
    uint32_t ContactItem::*count;
    ContactField* ContactItem::*entries;
};

// By ContactList.
constexpr ListMembers kLists[] = {
    {&ContactItem::generalCount, &ContactItem::general},
    {&ContactItem::phoneCount, &ContactItem::phones},
    {&ContactItem::addressCount, &ContactItem::addresses},
    {&ContactItem::extendedCount, &ContactItem::extended},
};

constexpr AddressPart kAddressParts[] = {
    {&ContactAddress::poBox, "poBox"},     {&ContactAddress::extendedAddress, "extended"},
    {&ContactAddress::street, "street"},   {&ContactAddress::city, "city"},
    {&ContactAddress::region, "region"},   {&ContactAddress::postalCode, "postalCode"},
    {&ContactAddress::country, "country"},
};

constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};

bool has_time(const ContactDate& date) {
    return date.hour != 0 || date.minute != 0 || date.second != 0;
}

// Takes a number of exactly `digits` digits off the front of `text`, and the separator behind it.
std::optional<uint16_t> take_number(std::string_view& text, std::size_t digits, std::string_view separator) {
    if (text.size() < digits || !text.substr(digits).starts_with(separator)) return std::nullopt;
    uint16_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + digits, number);
    if (error != std::errc() || stop != text.data() + digits) return std::nullopt;
    text.remove_prefix(digits + separator.size());
    return number;
}

// Takes a part of two digits, at most `largest`, into `part`.
bool take_part(std::string_view& text, uint16_t largest, std::string_view separator, uint8_t& part) {
    const std::optional<uint16_t> number = take_number(text, 2, separator);
    if (!number || *number > largest) return false;
    part = static_cast<uint8_t>(*number);
    return true;
}

}  // namespace

std::span<const ContactField> entries_of(const ContactItem& item, ContactList list) {
    const ListMembers& members = kLists[static_cast<std::size_t>(list)];
    const auto count = static_cast<int32_t>(item.*members.count);
    if (count <= 0 || item.*members.entries == nullptr) return {};
    return {item.*members.entries, static_cast<std::size_t>(count)};
}

std::span<const AddressPart> address_parts() {
    return kAddressParts;
}

std::string text_of(const char16_t* text) {
    return text == nullptr ? std::string() : utf8_from_utf16(text);
}

std::string iso_date_of(const ContactDate& date) {
    char text[32];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u", unsigned{date.year}, unsigned{date.month},
                  unsigned{date.day});
    std::string iso = text;
    if (has_time(date)) {
        std::snprintf(text, sizeof text, "T%02u:%02u:%02u", unsigned{date.hour}, unsigned{date.minute},
                      unsigned{date.second});
        iso += text;
    }
    return iso;
}

std::optional<ContactDate> date_of_iso(std::string_view text) {
    ContactDate date{};
    date.size = sizeof date;
    const std::optional<uint16_t> year = take_number(text, 4, "-");
    if (!year || !take_part(text, 12, "-", date.month) || !take_part(text, 31, "", date.day)) {
        return std::nullopt;
    }
    date.year = *year;
    if (text.starts_with('T')) {
        text.remove_prefix(1);
        const bool is_time = take_part(text, 23, ":", date.hour) && take_part(text, 59, ":", date.minute) &&
                             take_part(text, 59, "", date.second);
        if (!is_time) return std::nullopt;
    }
    if (!text.empty()) return std::nullopt;
    return date;
}

std::string readable_date_of(const ContactDate& date) {
    if (date.month < 1 || date.month > 12 || date.day < 1) return iso_date_of(date);
    std::string text = std::to_string(date.day) + " " + kMonths[date.month - 1];
    if (date.year != 0) text += " " + std::to_string(date.year);
    if (has_time(date)) text += ", " + iso_date_of(date).substr(11);
    return text;
}

}  // namespace vzconv
