// The lines of the list `general`.
#include <algorithm>
#include <array>
#include <charconv>

#include "vcard/entries_by_line.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcard {
namespace {

using versit::PropertyId;

// Not in the property table, which has X-NICKNAME in its place.
constexpr std::string_view kNickname = "NICKNAME";

constexpr LineRow kLines[] = {
    // clang-format off
    {{VZ_CONTACT_FAMILY_NAME, VZ_CONTACT_GIVEN_NAME, VZ_CONTACT_ADDITIONAL_NAME, VZ_CONTACT_NAME_PREFIX,
      VZ_CONTACT_NAME_SUFFIX, VZ_CONTACT_NAME_EXTRA}, 5},                      // N
    {{VZ_CONTACT_FORMATTED_NAME}},                                             // FN
    {{VZ_CONTACT_PHONETIC_FAMILY_NAME, VZ_CONTACT_PHONETIC_GIVEN_NAME}, 2},    // SOUND;X-IRMC-N
    {{VZ_CONTACT_COMPANY, VZ_CONTACT_DEPARTMENT}, 1},                          // ORG
    {{VZ_CONTACT_JOB_TITLE}},                                                  // TITLE
    {{VZ_CONTACT_BIRTHDAY}},                                                   // BDAY
    {{VZ_CONTACT_ANNIVERSARY}},                                                // X-ANNIVERSARY
    {{VZ_CONTACT_PHOTO}},                                                      // PHOTO
    {{VZ_CONTACT_SECOND_NAME}},                                                // X-EPOCSECONDNAME
    {{VZ_CONTACT_SPOUSE}},                                                     // X-SPOUSE
    {{VZ_CONTACT_CHILDREN}},                                                   // X-CHILDREN
    {{VZ_CONTACT_ASSISTANT}},                                                  // X-ASSISTANT
    {{VZ_CONTACT_PHONETIC_COMPANY}},                                           // SOUND;X-IRMC-ORG
    // clang-format on
};

constexpr LineOrder kOrder(VZ_CONTACT_FAMILY_NAME, kLines);

// The line of a compound value, and a further one as soon as an entry brings a component that the line has:
// nothing is left out.
void write_compound_lines(ContactWriting& writing, const EntriesByLine& entries, std::size_t line) {
    const FieldRow& row = *entries.first(line)->row;
    std::array<std::u16string_view, 6> components;
    const auto write = [&] {
        writing.compound_line(row.property, row.parameters, components, kLines[line].least_components);
        components.fill({});
    };
    for (const ListedEntry* entry = entries.first(line); entry != nullptr; entry = entries.next(*entry)) {
        std::u16string_view& component = components[entry->row->component];
        if (component.data() != nullptr) write();
        component = entry->text;
    }
    write();
}

void write_text(ContactWriting& writing, const ListedEntry& entry) {
    const auto write = [&](std::string_view name) {
        const std::string_view parameters = entry.row->parameters;
        if (entry.row->kind == ValueKind::MultilineText) {
            writing.multiline_text_line(name, parameters, entry.text);
        } else {
            writing.text_line(name, parameters, entry.text);
        }
    };
    write(versit::property_name(entry.row->property));
    if (!writing.has(Effect::NicknameAndRole)) return;
    if (entry.row->id == VZ_CONTACT_JOB_TITLE) write(versit::property_name(PropertyId::Role));
    if (entry.row->id == VZ_CONTACT_SECOND_NAME) {
        write(kNickname);
        write(versit::property_name(PropertyId::Nickname));
    }
}

// Appends `number` with zeros in front, `least` digits or more.
void append_decimal(std::uint32_t number, std::size_t least, std::string& out) {
    std::array<char, 10> digits;
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const auto count = static_cast<std::size_t>(end - digits.data());
    if (count < least) out.append(least - count, '0');
    out.append(digits.data(), count);
}

void write_date(ContactWriting& writing, const ListedEntry& entry) {
    ContactDate date;
    if (!writing.memory().load(entry.field.value.date, date)) return;
    const bool may_be_absent = writing.api_version() >= VZ_INTERFACE_MARKS;
    if (may_be_absent && (date.size != sizeof date || date.year == 0)) return;
    writing.note_value(entry.row->id);
    if (date.year != 0) writing.note_content(entry.row->id);

    std::string text;
    append_decimal(date.year, 4, text);
    append_decimal(date.month, 2, text);
    append_decimal(date.day, 2, text);
    writing.lines().property(entry.row->property, entry.row->parameters, text);
}

constexpr std::u16string_view kDefaultImageType = u"JPEG";
constexpr std::u16string_view kImageTypes[] = {u"JPG", u"JPEG", u"JPE", u"JFIF", u"PNG", u"BMP", u"GIF"};

// The type of a picture as written. A beginning of a known name stands for itself, and so does the empty text,
// which begins every name: receivers compare no further than the text goes.
std::string image_type(ContactWriting& writing, const ContactPhoto& photo) {
    std::u16string_view type = writing.memory().text(photo.imageType);
    const bool known = type.data() != nullptr &&
                       std::any_of(std::begin(kImageTypes), std::end(kImageTypes),
                                   [type](std::u16string_view name) { return name.starts_with(type); });
    if (!known) type = kDefaultImageType;
    std::string narrow;
    for (const char16_t unit : type) narrow.push_back(static_cast<char>(unit));
    return narrow;
}

void write_photo(ContactWriting& writing, const ListedEntry& entry) {
    ContactPhoto photo;
    if (!writing.memory().load(entry.field.value.photo, photo) || photo.size != sizeof photo) return;
    const std::span<const std::byte> bytes = writing.memory().bytes(photo.data, photo.dataLength);
    if (bytes.empty()) return;
    writing.note_value(entry.row->id);
    writing.note_content(entry.row->id);

    std::string parameters = ";ENCODING=BASE64";
    if (!writing.has(Effect::PhotoWithoutType)) {
        parameters.append(";TYPE=").append(image_type(writing, photo));
    }
    writing.lines().base64(versit::property_name(entry.row->property), parameters, bytes);
}

void write_entry(ContactWriting& writing, const ListedEntry& entry) {
    switch (entry.row->kind) {
        case ValueKind::Date:
            return write_date(writing, entry);
        case ValueKind::Photo:
            return write_photo(writing, entry);
        default:
            return write_text(writing, entry);
    }
}

}  // namespace

void write_general(ContactWriting& writing, const ContactItem& contact) {
    const EntriesByLine entries(writing, contact.general, contact.generalCount, kOrder);
    for (std::size_t line = 0; line < std::size(kLines); ++line) {
        const ListedEntry* entry = entries.first(line);
        if (entry != nullptr && entry->row->kind == ValueKind::Component) {
            write_compound_lines(writing, entries, line);
            continue;
        }
        for (; entry != nullptr; entry = entries.next(*entry)) write_entry(writing, *entry);
    }
}

}  // namespace vzapi::vcard
