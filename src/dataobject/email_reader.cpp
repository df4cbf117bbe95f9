#include "dataobject/email_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>
#include <string>
#include <vector>

#include "dataobject/email_time.h"
#include "platform/heap.h"
#include "platform/ole_string.h"
#include "platform/pointer_probe.h"
#include "platform/xml.h"
#include "platform/xml_characters.h"
#include "result.h"
#include "vzapi/email.h"

namespace vzapi::dataobject {
namespace {

enum class Entry { Flag, Time, ItemText };

struct ElementRow {
    std::u16string_view name;
    Entry entry;
    std::uint32_t id;
};

// What the children of "Email" become; any other is skipped. Flags and times in the order of their ids.
constexpr ElementRow kElements[] = {
    {u"read", Entry::Flag, VZ_EMAIL_FLAG_READ},
    {u"forwarded", Entry::Flag, VZ_EMAIL_FLAG_FORWARDED},
    {u"replied", Entry::Flag, VZ_EMAIL_FLAG_REPLIED},
    {u"deleted", Entry::Flag, VZ_EMAIL_FLAG_DELETED},
    {u"flagged", Entry::Flag, VZ_EMAIL_FLAG_FLAGGED},
    {u"created", Entry::Time, VZ_EMAIL_TIME_CREATED},
    {u"modified", Entry::Time, VZ_EMAIL_TIME_MODIFIED},
    {u"received", Entry::Time, VZ_EMAIL_TIME_RECEIVED},
    {u"emailitem", Entry::ItemText, 0},
};

const ElementRow* row_of(std::u16string_view name) noexcept {
    const auto* const row = std::find_if(std::begin(kElements), std::end(kElements),
                                         [name](const ElementRow& element) { return element.name == name; });
    return row == std::end(kElements) ? nullptr : row;
}

std::vector<platform::XmlElement> children_of_email(std::string_view document) {
    std::vector<platform::XmlElement> children;
    switch (platform::xml_children(document, u"Email", children)) {
        case platform::XmlOutcome::Read:
            break;
        case platform::XmlOutcome::Refused:
            raise(VZ_ERR_BAD_VALUE);
        case platform::XmlOutcome::Unavailable:
            raise(VZ_ERR_UNEXPECTED);
    }
    return children;
}

// A block of the process heap with the entries; null when there are none.
template <class Field>
platform::HeapPointer<Field> array_of(const std::vector<Field>& fields) {
    if (fields.empty()) return {};
    const std::size_t bytes = fields.size() * sizeof(Field);
    platform::HeapPointer<Field> array(static_cast<Field*>(platform::heap_allocate(bytes)));
    if (!array) throw std::bad_alloc();
    std::memcpy(array.get(), fields.data(), bytes);
    return array;
}

// What one document gives, owned here until the record takes it over.
class Collected {
public:
    // Elements without text add nothing.
    void add(const platform::XmlElement& element) {
        const ElementRow* const row = row_of(element.name);
        const std::u16string_view text = platform::trim_xml_space(element.text);
        if (row == nullptr || text.empty()) return;
        switch (row->entry) {
            case Entry::Flag:
                flags_.push_back({sizeof(EmailFlagField), row->id, text == u"false" ? 0U : 1U});
                break;
            case Entry::Time:
                add_time(row->id, read_email_time(text));
                break;
            case Entry::ItemText:
                item_text_ = text;
                break;
        }
    }

    // Fills `item`, which is empty.
    void hand_over(EmailItem& item) const {
        platform::HeapPointer<EmailTimeField> times = array_of(times_);
        platform::HeapPointer<EmailFlagField> flags = array_of(flags_);
        platform::OleString text;
        if (!item_text_.empty()) {
            text = platform::OleString(platform::ole_string_allocate(item_text_));
            if (!text) throw std::bad_alloc();
        }
        item.timeCount = static_cast<std::uint32_t>(times_.size());
        item.times = times.release();
        item.flagCount = static_cast<std::uint32_t>(flags_.size());
        item.flags = flags.release();
        item.itemText = text.release();
    }

private:
    void add_time(std::uint32_t id, const MessageTime& time) {
        if (time.year != 0) times_.push_back({sizeof(EmailTimeField), id, time});
    }

    std::vector<EmailTimeField> times_;
    std::vector<EmailFlagField> flags_;
    std::u16string item_text_;
};

// Zeroes all of the record, what stands between its members too, but its size.
void clear(EmailItem& item) noexcept {
    auto* const bytes = reinterpret_cast<std::byte*>(&item);
    std::memset(bytes + sizeof item.size, 0, sizeof item - sizeof item.size);
}

}  // namespace

void read_email(std::string_view document, EmailItem& item) {
    clear(item);
    Collected collected;
    for (const platform::XmlElement& element : children_of_email(document)) collected.add(element);
    collected.hand_over(item);
}

void release_email(EmailItem& item) noexcept {
    platform::heap_free(item.times);
    platform::heap_free(item.flags);
    if (platform::is_readable(item.itemText)) platform::ole_string_free(item.itemText);
    clear(item);
}

}  // namespace vzapi::dataobject
