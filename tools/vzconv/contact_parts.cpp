#include "vzconv/contact_parts.h"

#include "vzconv/date_text.h"

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

bool has_time(const ContactDate& date) {
    return date.hour != 0 || date.minute != 0 || date.second != 0;
}

DateParts parts_of(const ContactDate& date) {
    return {date.year, date.month, date.day, date.hour, date.minute, date.second};
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

std::string iso_date_of(const ContactDate& date) {
    const DateParts parts = parts_of(date);
    return has_time(date) ? iso_day_of(parts) + "T" + iso_clock_of(parts) : iso_day_of(parts);
}

std::optional<ContactDate> date_of_iso(std::string_view text) {
    const std::optional<IsoDate> date = date_of_iso_text(text);
    if (!date) return std::nullopt;
    const DateParts& parts = date->parts;
    return ContactDate{sizeof(ContactDate), parts.year,   parts.month, parts.day, parts.hour,
                       parts.minute,        parts.second, 0,           {}};
}

std::string readable_date_of(const ContactDate& date) {
    if (date.month < 1 || date.month > 12 || date.day < 1) return iso_date_of(date);
    std::string text = std::to_string(date.day) + " " + std::string(month_name(date.month));
    if (date.year != 0) text += " " + std::to_string(date.year);
    if (has_time(date)) text += ", " + iso_clock_of(parts_of(date));
    return text;
}

}  // namespace vzconv
