#include "vcard/contact_losses.h"

#include <algorithm>
#include <map>
#include <set>

#include "reference/quoted_printable_reference.h"

namespace vzapi::test {
namespace {

bool contains(std::u16string_view text, std::u16string_view part) {
    return text.find(part) != text.npos;
}

std::u16string upper(std::u16string_view text) {
    std::u16string result(text);
    for (char16_t& unit : result) {
        if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - u'a' + u'A');
    }
    return result;
}

bool is_hexadecimal(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'F') || (unit >= u'a' && unit <= u'f');
}

bool holds_an_escape(std::u16string_view text) {
    for (std::size_t i = 2; i < text.size(); ++i) {
        if (text[i - 2] == u'=' && is_hexadecimal(text[i - 1]) && is_hexadecimal(text[i])) return true;
    }
    return false;
}

const std::u16string* text_in(const Entry& entry) {
    if (const auto* text = std::get_if<Text>(&entry.value)) return *text ? &**text : nullptr;
    if (const auto* messaging = std::get_if<Messaging>(&entry.value)) {
        return messaging->address ? &*messaging->address : nullptr;
    }
    return nullptr;
}

constexpr std::uint32_t kFieldsOfSeveralLines[] = {
    VZ_CONTACT_JOB_TITLE, VZ_CONTACT_SECOND_NAME, VZ_CONTACT_FORMATTED_NAME,
    VZ_CONTACT_SPOUSE,    VZ_CONTACT_CHILDREN,    VZ_CONTACT_ASSISTANT,
    VZ_CONTACT_NOTE};

// The fields that share one property, in the order of its components, and how many of these are always written.
struct Compound {
    std::vector<std::uint32_t> fields;
    std::size_t least;
};

const std::vector<Compound> kCompounds = {
    {{VZ_CONTACT_FAMILY_NAME, VZ_CONTACT_GIVEN_NAME, VZ_CONTACT_ADDITIONAL_NAME, VZ_CONTACT_NAME_PREFIX,
      VZ_CONTACT_NAME_SUFFIX, VZ_CONTACT_NAME_EXTRA},
     5},
    {{VZ_CONTACT_COMPANY, VZ_CONTACT_DEPARTMENT}, 1},
    {{VZ_CONTACT_PHONETIC_FAMILY_NAME, VZ_CONTACT_PHONETIC_GIVEN_NAME}, 2},
};

// Values that a card has one of.
bool is_single(std::uint32_t id) {
    return id < VZ_CONTACT_PHONE || id == VZ_CONTACT_CLASS || id == VZ_CONTACT_GENDER;
}

bool is_in_a_compound(std::uint32_t id) {
    for (const auto& [fields, least] : kCompounds) {
        if (std::find(fields.begin(), fields.end(), id) != fields.end()) return true;
    }
    return false;
}

template <class Visit>
void for_each_entry(const Contact& contact, Visit visit) {
    for (const auto* list : {&contact.general, &contact.phones, &contact.addresses, &contact.extended}) {
        for (const Entry& entry : *list) visit(entry);
    }
}

bool compounds_come_back(const Contact& contact) {
    std::map<std::uint32_t, std::u16string_view> texts;
    for (const Entry& entry : contact.general) {
        if (const std::u16string* text = text_in(entry)) texts[entry.id] = *text;
    }
    for (const auto& [fields, least] : kCompounds) {
        std::vector<std::u16string_view> components;
        components.reserve(fields.size());
        for (const std::uint32_t id : fields) components.push_back(texts[id]);
        while (components.size() > least && components.back().empty()) components.pop_back();
        if (is_lost(compound_value(components))) return false;
    }
    return true;
}

bool is_lost_address(const Address& address) {
    std::vector<std::u16string_view> components;
    for (const Text& component : address.components) {
        if (!component) return true;  // comes back as an empty string
        components.emplace_back(*component);
    }
    return is_lost(compound_value(components));
}

// The values of the marks `id` among `entries`.
std::set<Text> marked(const std::vector<Entry>& entries, std::uint32_t id) {
    std::set<Text> values;
    for (const Entry& entry : entries) {
        if (entry.id == id) values.insert(std::get<Text>(entry.value));
    }
    return values;
}

// Entries without the marks `id`, equal values preferred where `is_compared`.
template <class Compared>
std::vector<Entry> with_marks(const std::vector<Entry>& entries, std::uint32_t id, Compared is_compared) {
    const std::set<Text> values = marked(entries, id);
    std::vector<Entry> result;
    for (Entry entry : entries) {
        if (entry.id == id) continue;
        const auto* value = std::get_if<Text>(&entry.value);
        if (value != nullptr && is_compared(entry.id) && values.count(*value) != 0) entry.preferred = 1;
        if (entry.id == VZ_CONTACT_PHONE_PREFERRED) entry.preferred = 1;
        result.push_back(std::move(entry));
    }
    return result;
}

}  // namespace

PropertyValue property_value(const Entry& entry) {
    const std::u16string* text = text_in(entry);
    if (text == nullptr) return {{}, false};
    return {*text, reference::needs_encoding(*text)};
}

PropertyValue compound_value(const std::vector<std::u16string_view>& components) {
    PropertyValue value{{}, false};
    for (std::size_t i = 0; i < components.size(); ++i) {
        if (i > 0) value.text += u';';
        for (const char16_t unit : components[i]) {
            if (unit == u';' || unit == u'\\') value.text += u'\\';
            value.text += unit;
        }
    }
    value.is_encoded = reference::needs_encoding(value.text);
    return value;
}

bool makes_a_bookmark(std::u16string_view text) {
    return contains(upper(text), u"BEGIN:VBKM");
}

bool holds_an_unpaired_surrogate(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] < 0xD800 || text[i] > 0xDFFF) continue;
        const bool is_pair =
            text[i] < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
        if (!is_pair) return true;
        ++i;
    }
    return false;
}

bool is_left_encoded(const PropertyValue& value) {
    if (!value.is_encoded) return false;
    const std::string encoded = reference::encode_quoted_printable(value.text);
    return encoded.find("7BIT") != encoded.npos || encoded.find("8BIT") != encoded.npos;
}

bool ends_in_an_equals_sign(const PropertyValue& value) {
    return !value.is_encoded && value.text.ends_with(u'=');
}

bool ends_in_an_escape_character(const PropertyValue& value) {
    return !value.is_encoded && value.text.ends_with(u'\x1B');
}

bool is_decoded_by_mistake(const PropertyValue& value) {
    if (value.is_encoded || contains(value.text, u"7BIT") || contains(value.text, u"8BIT")) return false;
    if (contains(value.text, u"QUOTED-PRINTABLE")) return holds_an_escape(value.text);
    return contains(value.text, u"BASE64");
}

bool is_lost(const PropertyValue& value) {
    return makes_a_bookmark(value.text) || holds_an_unpaired_surrogate(value.text) ||
           is_left_encoded(value) || ends_in_an_equals_sign(value) || ends_in_an_escape_character(value) ||
           is_decoded_by_mistake(value);
}

bool holds_line_break_letters(const Entry& entry) {
    const std::u16string* text = text_in(entry);
    const auto* const end = std::end(kFieldsOfSeveralLines);
    return text != nullptr && std::find(std::begin(kFieldsOfSeveralLines), end, entry.id) != end &&
           (contains(*text, u"\\n") || contains(*text, u"\\N"));
}

bool turns_into_the_preferred_number(const Entry& entry) {
    return entry.id == VZ_CONTACT_PHONE && entry.preferred == 1;
}

bool is_no_plain_day(const Entry& entry) {
    const auto* date = std::get_if<Date>(&entry.value);
    if (date == nullptr) return false;
    return date->year == 0 || date->year > 9999 || date->month == 0 || date->month > 12 || date->day == 0 ||
           date->day > 31 || date->hour != 0 || date->minute != 0 || date->second != 0;
}

bool loses_its_image_type(const Entry& entry) {
    const auto* photo = std::get_if<Photo>(&entry.value);
    if (photo == nullptr) return false;
    if (!photo->type || photo->type->empty()) return true;
    for (const std::u16string_view known : {u"JPG", u"JPEG", u"JPE", u"JFIF", u"PNG", u"BMP", u"GIF"}) {
        if (known.starts_with(*photo->type)) return false;
    }
    return true;
}

bool has_no_word(const Entry& entry) {
    if (entry.id != VZ_CONTACT_CLASS && entry.id != VZ_CONTACT_GENDER) return false;
    const auto* number = std::get_if<std::uint32_t>(&entry.value);
    return number != nullptr && (*number < 1 || *number > 3);
}

bool is_empty(const Entry& entry) {
    if (const auto* photo = std::get_if<Photo>(&entry.value)) return photo->bytes.empty();
    if (const auto* address = std::get_if<Address>(&entry.value)) {
        return std::all_of(address->components.begin(), address->components.end(),
                           [](const Text& component) { return !component || component->empty(); });
    }
    const bool is_text =
        std::holds_alternative<Text>(entry.value) || std::holds_alternative<Messaging>(entry.value);
    const std::u16string* text = text_in(entry);
    return is_text && (text == nullptr || text->empty());
}

bool is_lost(const Entry& entry) {
    const auto* address = std::get_if<Address>(&entry.value);
    const bool is_alone = !is_in_a_compound(entry.id);
    return std::holds_alternative<Null>(entry.value) || is_empty(entry) ||
           (address != nullptr && is_lost_address(*address)) ||
           (is_alone && is_lost(property_value(entry))) || holds_line_break_letters(entry) ||
           turns_into_the_preferred_number(entry) || is_no_plain_day(entry) || loses_its_image_type(entry) ||
           has_no_word(entry);
}

bool comes_back(const Contact& contact) {
    std::map<std::uint32_t, int> counts;
    bool all = compounds_come_back(contact);
    for_each_entry(contact, [&](const Entry& entry) {
        if (is_lost(entry) || (is_single(entry.id) && ++counts[entry.id] > 1)) all = false;
    });
    const Contact after = after_the_trip(contact);
    return all && std::none_of(after.phones.begin(), after.phones.end(), turns_into_the_preferred_number);
}

Contact in_order(Contact contact) {
    const auto by_id = [](const Entry& a, const Entry& b) { return a.id < b.id; };
    std::stable_sort(contact.general.begin(), contact.general.end(), by_id);
    std::stable_sort(contact.extended.begin(), contact.extended.end(), by_id);
    return contact;
}

Contact after_the_trip(const Contact& contact) {
    Contact after = in_order(contact);
    for (auto* list : {&after.general, &after.extended}) {
        for (Entry& entry : *list) entry.preferred = 0;
    }
    after.phones = with_marks(contact.phones, VZ_CONTACT_PHONE_MARK, [](std::uint32_t) { return true; });
    after.addresses = with_marks(contact.addresses, VZ_CONTACT_ADDRESS_MARK, [](std::uint32_t id) {
        return id >= VZ_CONTACT_EMAIL && id <= VZ_CONTACT_WEB_WORK;
    });
    return after;
}

}  // namespace vzapi::test
