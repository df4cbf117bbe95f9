#include "vcard/entries_by_line.h"

#include <algorithm>

namespace vzapi::vcard {
namespace {

constexpr std::uint32_t kUsualEntries = 16;  // room for as many is made at once, if the count says there are

}  // namespace

EntriesByLine::EntriesByLine(ContactWriting& writing, const ContactField* list, std::uint32_t count,
                             const LineOrder& order) {
    entries_.reserve(std::min(count, kUsualEntries));
    EntryWalk walk(writing.memory(), list, count, UnreadableEntry::IsSkipped);
    for (ContactField field; walk.next(field);) {
        const std::size_t line = order.line_of(field.fieldId);
        if (line == LineOrder::kNoLine) continue;
        ListedEntry entry{find_contact_field(field.fieldId), field, {}, kNone};
        if (is_text(entry.row->kind)) {
            entry.text = writing.note_text(field);
            if (entry.text.data() == nullptr) continue;
        }
        add(line, entry);
    }
}

void EntriesByLine::add(std::size_t line, const ListedEntry& entry) {
    const auto index = static_cast<std::uint32_t>(entries_.size());
    entries_.push_back(entry);
    Chain& chain = chains_[line];
    if (chain.first == kNone) {
        chain.first = index;
    } else {
        entries_[chain.last].next = index;
    }
    chain.last = index;
}

}  // namespace vzapi::vcard
