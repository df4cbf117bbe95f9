#include "vcalendar/calendar_record.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <span>
#include <string>
#include <utility>

#include "platform/pointer_probe.h"
#include "result.h"
#include "vcalendar/calendar_fields.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcalendar {
namespace {

using platform::HeapPointer;

constexpr std::size_t kMost = std::numeric_limits<std::uint8_t>::max();  // the counts are bytes

// A zero-filled block of the process heap for `count` records; null for none.
template <class Record>
HeapPointer<Record> make_block(std::size_t count = 1) {
    if (count == 0) return nullptr;
    HeapPointer<Record> block(static_cast<Record*>(platform::heap_allocate(count * sizeof(Record))));
    if (!block) raise(VZ_ERR_OUT_OF_MEMORY);
    return block;
}

HeapPointer<char16_t> make_text(std::u16string_view text) {
    HeapPointer<char16_t> block = make_block<char16_t>(text.size() + 1);
    std::copy(text.begin(), text.end(), block.get());
    return block;
}

// Null for an empty name.
HeapPointer<char> make_name(std::string_view name) {
    HeapPointer<char> block = make_block<char>(name.empty() ? 0 : name.size() + 1);
    std::copy(name.begin(), name.end(), block.get());
    return block;
}

template <class Record>
HeapPointer<Record> make_array(const std::vector<Record>& records) {
    HeapPointer<Record> block = make_block<Record>(records.size());
    std::copy(records.begin(), records.end(), block.get());
    return block;
}

// The blocks of a record that is released. All are found before the first one is freed, so that a record
// whose pointers lead in circles is never followed into a freed block; one found twice is freed once, since
// the heap does not own it any more.
class FoundBlocks {
public:
    void add(void* block) noexcept { blocks_[count_++] = block; }

    void free_all() const noexcept {
        for (void* block : std::span(blocks_).first(count_)) platform::heap_free(block);
    }

private:
    static constexpr std::size_t kMostOfAField = 3;   // a geo and its two texts
    static constexpr std::size_t kMostOfARecord = 5;  // three arrays and two names

    std::array<void*, kMost * kMostOfAField + kMostOfARecord> blocks_;  // as many as `count_`
    std::size_t count_ = 0;
};

void find_blocks(const CalendarField& field, std::uint32_t item_type, FoundBlocks& found) {
    const FieldRow* row = find_calendar_field(field.fieldId);
    if (row == nullptr) return;
    if (field.fieldId == VZ_CALENDAR_BIRTH_YEAR && has_birth_year(item_type)) return;
    switch (row->kind) {
        case FieldKind::Text:
            found.add(field.value.text);
            break;
        case FieldKind::Geo:
            if (platform::heap_size(field.value.geo) < sizeof(CalendarGeo)) break;
            found.add(field.value.geo->latitude);
            found.add(field.value.geo->longitude);
            found.add(field.value.geo);
            break;
        case FieldKind::Reference:
            found.add(field.value.reference);
            break;
        case FieldKind::Class:
        case FieldKind::Priority:
        case FieldKind::Status:
            break;  // numbers
    }
}

// The block tells how many entries there can be, whatever `fieldCount` says.
void find_blocks(const CalendarItem& item, FoundBlocks& found) {
    const std::size_t room = platform::heap_size(item.fields) / sizeof(CalendarField);
    const std::size_t count = std::min<std::size_t>(item.fieldCount, room);
    for (std::size_t i = 0; i < count; ++i) find_blocks(item.fields[i], item.itemType, found);
    found.add(item.fields);
    found.add(item.exceptions);
    found.add(item.daylightRules);
    found.add(item.standardName);
    found.add(item.daylightName);
}

}  // namespace

// Comes before a value is allocated, so that an allocated value always finds its place.
void CalendarBuilder::make_room(std::size_t blocks) {
    constexpr std::size_t kFirstEntries = 16;
    if (fields_.size() == fields_.capacity()) {
        fields_.reserve(std::max(kFirstEntries, 2 * fields_.capacity()));
    }
    if (blocks_.size() + blocks > blocks_.capacity()) {
        blocks_.reserve(std::max(kFirstEntries, 2 * blocks_.capacity()));
    }
}

void CalendarBuilder::add(std::uint32_t id, CalendarValue value) noexcept {
    fields_.push_back({sizeof(CalendarField), 0, VZ_CALENDAR_VALUE_SIZE, id, value});
}

void CalendarBuilder::add_text(std::uint32_t id, std::u16string_view text) {
    if (fields_are_full()) return;
    make_room(1);
    HeapPointer<char16_t> block = make_text(text);
    CalendarValue value{};
    value.text = block.get();
    blocks_.emplace_back(block.release());
    add(id, value);
}

void CalendarBuilder::add_number(std::uint32_t id, std::uint32_t number) {
    if (fields_are_full()) return;
    make_room(0);
    CalendarValue value{};
    value.number = number;
    add(id, value);
}

void CalendarBuilder::add_geo(std::u16string_view latitude, std::u16string_view longitude) {
    if (fields_are_full()) return;
    make_room(3);
    HeapPointer<char16_t> latitude_block = make_text(latitude);
    HeapPointer<char16_t> longitude_block = make_text(longitude);
    HeapPointer<CalendarGeo> geo = make_block<CalendarGeo>();
    geo->size = sizeof(CalendarGeo);
    geo->latitude = latitude_block.get();
    geo->longitude = longitude_block.get();
    CalendarValue value{};
    value.geo = geo.get();
    blocks_.emplace_back(latitude_block.release());
    blocks_.emplace_back(longitude_block.release());
    blocks_.emplace_back(geo.release());
    add(VZ_CALENDAR_GEO, value);
}

void CalendarBuilder::add_reference(const std::array<std::uint32_t, 3>& numbers) {
    if (fields_are_full()) return;
    make_room(1);
    HeapPointer<CalendarReference> reference = make_block<CalendarReference>();
    reference->size = sizeof(CalendarReference);
    std::copy(numbers.begin(), numbers.end(), reference->numbers);
    CalendarValue value{};
    value.reference = reference.get();
    blocks_.emplace_back(reference.release());
    add(VZ_CALENDAR_REFERENCE, value);
}

void CalendarBuilder::add_exception(const CalendarTime& time) {
    if (!exceptions_are_full()) exceptions_.push_back(time);
}

void CalendarBuilder::set_zone(ZoneBlock zone) noexcept {
    zone_ = std::move(zone);
    has_zone_ = true;
}

bool CalendarBuilder::has(std::uint32_t id) const noexcept {
    return std::any_of(fields_.begin(), fields_.end(),
                       [id](const CalendarField& each) { return each.fieldId == id; });
}

std::size_t CalendarBuilder::field_places() const noexcept {
    return kMost - fields_.size();
}

bool CalendarBuilder::fields_are_full() const noexcept {
    return field_places() == 0;
}

bool CalendarBuilder::exceptions_are_full() const noexcept {
    return exceptions_.size() >= kMost;
}

void CalendarBuilder::hand_over(const SizeSwitches& switches, CalendarItem& item) {
    zone_.rules.resize(std::min(zone_.rules.size(), kMost));
    HeapPointer<CalendarField> fields = make_array(fields_);
    HeapPointer<CalendarTime> exceptions;
    if (switches.exceptions) exceptions = make_array(exceptions_);
    HeapPointer<DaylightRule> rules;
    HeapPointer<char> standard_name;
    HeapPointer<char> daylight_name;
    if (switches.time_zone && has_zone_) {
        rules = make_array(zone_.rules);
        standard_name = make_name(zone_.standard_name);
        daylight_name = make_name(zone_.daylight_name);
    }

    for (auto& block : blocks_) static_cast<void>(block.release());
    item.fieldCount = static_cast<std::uint8_t>(fields_.size());
    item.fields = fields.release();
    if (switches.exceptions) {
        item.exceptionCount = static_cast<std::uint8_t>(exceptions_.size());
        item.exceptions = exceptions.release();
    }
    if (switches.time_zone) {
        item.zoneSize = has_zone_ ? VZ_ZONE_BLOCK_SIZE : 0;
        item.standardOffset = zone_.standard_offset;
        item.daylightOffset = zone_.daylight_offset;
        item.daylightCount = static_cast<std::uint8_t>(zone_.rules.size());
        item.daylightRules = rules.release();
        item.standardName = standard_name.release();
        item.daylightName = daylight_name.release();
    }
    *this = CalendarBuilder();
}

void release_calendar(void* item, const ReleaseContext& /*context*/) {
    std::uint32_t size = 0;
    if (!platform::is_readable(item, VZ_CALENDAR_SIZE_BASE)) raise(VZ_ERR_POINTER);
    std::memcpy(&size, item, sizeof size);
    const std::size_t length = record_length(size);
    if (!platform::is_readable(item, length)) raise(VZ_ERR_POINTER);

    CalendarItem record{};
    std::memcpy(&record, item, length);
    FoundBlocks found;
    find_blocks(record, found);
    found.free_all();
    std::memset(static_cast<std::byte*>(item) + sizeof size, 0, length - sizeof size);
}

}  // namespace vzapi::vcalendar
