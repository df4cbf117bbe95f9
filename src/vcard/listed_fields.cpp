// The lines of the lists `phones` and `addresses`, in the order of the list.
#include <algorithm>
#include <vector>

#include "vcard/contact_writing.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcard {
namespace {

using versit::PropertyId;

struct Line {
    const FieldRow* row;
    ContactField field;
    std::u16string_view text;
};

// The entries of one list, and the values that mark the preferred ones among them.
struct List {
    std::vector<Line> lines;
    std::vector<std::u16string_view> marks;
};

constexpr std::uint32_t kUsualEntries = 8;  // room for as many is made at once, if the count says there are

bool can_be_marked(const FieldRow& row) {
    return row.list == ContactList::Phones || row.property == PropertyId::Email ||
           row.property == PropertyId::Url;
}

// The list up to its first entry that cannot be read.
List read_list(ContactWriting& writing, const ContactField* entries, std::uint32_t count, ContactList which) {
    List list;
    list.lines.reserve(std::min(count, kUsualEntries));
    EntryWalk walk(writing.memory(), entries, count, UnreadableEntry::EndsList);
    for (ContactField field; walk.next(field);) {
        const FieldRow* row = find_contact_field(field.fieldId);
        if (row == nullptr || row->list != which) continue;
        std::u16string_view text;
        if (is_text(row->kind)) {
            text = writing.note_text(field);
            if (text.data() == nullptr) continue;
        }
        if (row->kind == ValueKind::Marker) {
            list.marks.push_back(text);
        } else {
            list.lines.push_back({row, field, text});
        }
    }
    std::sort(list.marks.begin(), list.marks.end());
    return list;
}

bool is_preferred(const ContactWriting& writing, const List& list, const Line& line) {
    if (line.field.preferred == 1) return true;
    return writing.api_version() >= VZ_INTERFACE_MARKS && can_be_marked(*line.row) &&
           std::binary_search(list.marks.begin(), list.marks.end(), line.text);
}

void write_address(ContactWriting& writing, const Line& line, std::string_view parameters) {
    ContactAddress address;
    if (!writing.memory().load(line.field.value.address, address)) return;
    writing.note_value(line.row->id);
    platform::CallerMemory& memory = writing.memory();
    const std::u16string_view components[] = {
        memory.text(address.poBox),  memory.text(address.extendedAddress), memory.text(address.street),
        memory.text(address.city),   memory.text(address.region),          memory.text(address.postalCode),
        memory.text(address.country)};
    writing.compound_line(line.row->property, parameters, components, std::size(components));
}

void write_list(ContactWriting& writing, const ContactField* entries, std::uint32_t count,
                ContactList which) {
    const List list = read_list(writing, entries, count, which);
    for (const Line& line : list.lines) {
        const bool without_type = line.row->id == VZ_CONTACT_PHONE && writing.has(Effect::PlainVoiceNumber);
        const std::string_view parameters = writing.with_preference(
            without_type ? std::string_view{} : line.row->parameters, is_preferred(writing, list, line));
        if (line.row->kind == ValueKind::Address) {
            write_address(writing, line, parameters);
        } else {
            writing.text_line(versit::property_name(line.row->property), parameters, line.text);
        }
    }
}

}  // namespace

void write_phones(ContactWriting& writing, const ContactItem& contact) {
    write_list(writing, contact.phones, contact.phoneCount, ContactList::Phones);
}

void write_addresses(ContactWriting& writing, const ContactItem& contact) {
    write_list(writing, contact.addresses, contact.addressCount, ContactList::Addresses);
}

}  // namespace vzapi::vcard
