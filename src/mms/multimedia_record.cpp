#include "mms/multimedia_record.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>

#include "mms/multipart.h"
#include "mms/wsp_encoding.h"
#include "platform/caller_memory.h"
#include "platform/heap.h"
#include "platform/ole_string.h"
#include "platform/reclaimer.h"
#include "result.h"

namespace vzapi::mms {
namespace {

using platform::CallerMemory;
using platform::Reclaimer;

// Which members of a MultimediaValue count.
struct Members {
    bool token = false;
    bool count = false;
    bool charset = false;
    bool number = false;
    bool name = false;
    bool text = false;
    bool bytes = false;
};

// In the order of the kinds, from VZ_MMS_VALUE_ENCODED_TEXT on.
constexpr Members kMembers[] = {
    {.charset = true, .text = true},                                // ENCODED_TEXT
    {.token = true, .charset = true, .text = true},                 // ADDRESS
    {.token = true, .number = true},                                // TIME
    {.count = true, .number = true},                                // COUNTED_NUMBER
    {.count = true, .number = true},                                // COUNTED_DATE
    {.count = true, .charset = true, .text = true},                 // COUNTED_TEXT
    {.token = true, .count = true, .charset = true, .text = true},  // COUNTED_ADDRESS
    {.token = true, .charset = true, .text = true},                 // MARKED_TEXT
    {.token = true, .number = true},                                // MARKED_NUMBER
    {.name = true, .text = true},                                   // NAMED_TEXT
    {.bytes = true},                                                // RAW
};

// Null for the kinds without a record, and for those that are none.
const Members* members_of(std::uint32_t kind) noexcept {
    const std::uint32_t index = kind - VZ_MMS_VALUE_ENCODED_TEXT;  // wraps around for those before
    return index < std::size(kMembers) ? &kMembers[index] : nullptr;
}

bool is_for_parameter(std::uint32_t kind) noexcept {
    return kind <= VZ_MMS_VALUE_TEXT || kind == VZ_MMS_VALUE_RAW;
}

char16_t* new_string(std::u16string_view text) {
    char16_t* const string = platform::ole_string_allocate(text);
    if (string == nullptr) raise(VZ_ERR_OUT_OF_MEMORY);
    return string;
}

char16_t* new_optional_string(const std::optional<std::u16string>& text) {
    return text ? new_string(*text) : nullptr;
}

std::uint32_t checked_size(std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max()) raise(VZ_ERR_OUT_OF_MEMORY);
    return static_cast<std::uint32_t>(size);
}

// A zero-filled block of the process heap; null for no entries.
template <class Entry>
Entry* new_block(std::size_t count) {
    if (count == 0) return nullptr;
    void* const block = platform::heap_allocate(count * sizeof(Entry));
    if (block == nullptr) raise(VZ_ERR_OUT_OF_MEMORY);
    return static_cast<Entry*>(block);
}

std::uint8_t* new_bytes(Bytes bytes) {
    if (bytes.empty()) return nullptr;
    void* const block = platform::heap_allocate_unfilled(bytes.size());
    if (block == nullptr) raise(VZ_ERR_OUT_OF_MEMORY);
    std::memcpy(block, bytes.data(), bytes.size());
    return static_cast<std::uint8_t*>(block);
}

// What is filled in hangs on the record as soon as it is there, so that a release finds all of it.
void fill_value(const Value& value, const Members& members, MultimediaValue& record) {
    record.size = sizeof record;
    record.token = value.token;
    record.count = value.count;
    record.charset = value.charset;
    record.number = value.number;
    if (members.name) record.name = new_string(value.name);
    if (members.text && value.token != VZ_MMS_ADDRESS_INSERT) record.text = new_string(value.text);
    if (!members.bytes) return;
    record.byteCount = checked_size(value.bytes.size());
    record.bytes = new_bytes(value.bytes);
}

// Fills a header or a parameter.
template <class Entry>
void fill_entry(const Value& value, Entry& entry) {
    entry.size = sizeof entry;
    if (const Members* members = members_of(value.kind)) {
        entry.value.record = new_block<MultimediaValue>(1);
        entry.kind = value.kind;
        return fill_value(value, *members, *entry.value.record);
    }
    if (value.kind == VZ_MMS_VALUE_TEXT) {
        entry.value.text = new_string(value.text);
    } else {
        entry.value.number = value.number;
    }
    entry.kind = value.kind;
}

void fill_headers(const std::vector<Header>& headers, MultimediaHeader*& array, std::uint32_t& count) {
    array = new_block<MultimediaHeader>(headers.size());
    count = checked_size(headers.size());
    for (std::size_t i = 0; i < headers.size(); ++i) {
        array[i].number = headers[i].number;
        fill_entry(headers[i].value, array[i]);
    }
}

void fill_parameters(const std::vector<Parameter>& parameters, MultimediaParameter*& array,
                     std::uint32_t& count) {
    array = new_block<MultimediaParameter>(parameters.size());
    count = checked_size(parameters.size());
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        array[i].name = new_string(parameters[i].name);
        fill_entry(parameters[i].value, array[i]);
    }
}

void fill_part(const Part& part, MultimediaPart& record) {
    record.size = sizeof record;
    record.flags = part.flags;
    record.container = part.container;
    record.charset = part.type.charset;
    record.contentType = new_string(part.type.media);
    fill_parameters(part.type.parameters, record.parameters, record.parameterCount);
    record.name = new_string(part.name);
    record.contentId = new_optional_string(part.content_id);
    record.contentLocation = new_optional_string(part.content_location);
    if (part.disposition) {
        record.disposition = new_string(part.disposition->kind);
        fill_parameters(part.disposition->parameters, record.dispositionParameters,
                        record.dispositionParameterCount);
    }
    fill_headers(part.headers, record.headers, record.headerCount);
    record.dataLength = checked_size(part.data.size());
    record.data = new_bytes(part.data);
}

void fill_item(const Message& message, MultimediaItem& item) {
    item.messageType = message.type;
    item.flags = message.flags;
    fill_headers(message.headers, item.headers, item.headerCount);
    item.parts = new_block<MultimediaPart>(message.parts.size());
    item.partCount = checked_size(message.parts.size());
    for (std::size_t i = 0; i < message.parts.size(); ++i) fill_part(message.parts[i], item.parts[i]);
}

// Reads the record of a caller.
class Loader {
public:
    std::vector<Header> headers(const MultimediaHeader* array, std::uint32_t count) {
        std::vector<Header> headers;
        for (std::size_t i = 0; i < count; ++i) {
            const auto record = entry(array, i);
            headers.push_back({record.number, value(record.kind, record.value)});
        }
        return headers;
    }

    std::vector<Part> parts(const MultimediaPart* array, std::uint32_t count) {
        if (count > kMostParts) raise(VZ_ERR_BAD_VALUE);
        std::vector<Part> parts;
        for (std::size_t i = 0; i < count; ++i) {
            parts.push_back(part(entry(array, i)));
            const std::uint32_t container = parts.back().container;
            const bool is_sound =
                container <= i &&
                (container == 0 || (parts[container - 1].flags & VZ_MMS_PART_CONTAINER) != 0);
            if (!is_sound) raise(VZ_ERR_BAD_VALUE);
        }
        return parts;
    }

private:
    template <class Record>
    Record entry(const Record* array, std::size_t index) {
        Record record;
        if (!memory_.load_entry(array, index, record) || record.size != sizeof record)
            raise(VZ_ERR_BAD_VALUE);
        return record;
    }

    // An empty one for null.
    std::u16string text(const char16_t* address) {
        const std::u16string_view text = memory_.text(address);
        if (text.data() == nullptr && address != nullptr) raise(VZ_ERR_BAD_VALUE);
        return std::u16string(text);
    }

    std::optional<std::u16string> optional_text(const char16_t* address) {
        if (address == nullptr) return std::nullopt;
        return text(address);
    }

    Bytes bytes(const std::uint8_t* address, std::uint32_t count) {
        const Bytes bytes = memory_.bytes(address, count);
        if (bytes.size() != count) raise(VZ_ERR_BAD_VALUE);
        return bytes;
    }

    // Bytes that do not end where they say would swallow what is written behind them.
    Bytes raw_value(const MultimediaValue& record) {
        const Bytes raw = bytes(record.bytes, record.byteCount);
        CWSPEncoding octets(raw);
        if (!octets.skip_value() || !octets.at_end()) raise(VZ_ERR_BAD_VALUE);
        return raw;
    }

    Value value(std::uint32_t kind, const MultimediaContent& content) {
        Value value;
        value.kind = kind;
        if (const Members* members = members_of(kind)) {
            const MultimediaValue record = entry(content.record, 0);
            if (members->token) value.token = record.token;
            if (members->count) value.count = record.count;
            if (members->charset) value.charset = record.charset;
            if (members->number) value.number = record.number;
            if (members->name) value.name = text(record.name);
            if (members->text) value.text = text(record.text);
            if (members->bytes) value.bytes = raw_value(record);
        } else if (kind == VZ_MMS_VALUE_TEXT) {
            value.text = text(content.text);
        } else if (kind == VZ_MMS_VALUE_NUMBER || kind == VZ_MMS_VALUE_DATE) {
            value.number = content.number;
        } else if (kind != VZ_MMS_VALUE_NONE) {
            raise(VZ_ERR_BAD_VALUE);
        }
        return value;
    }

    std::vector<Parameter> parameters(const MultimediaParameter* array, std::uint32_t count) {
        std::vector<Parameter> parameters;
        for (std::size_t i = 0; i < count; ++i) {
            const auto record = entry(array, i);
            std::u16string name = text(record.name);
            if (name.empty() || !is_for_parameter(record.kind)) raise(VZ_ERR_BAD_VALUE);
            parameters.push_back({std::move(name), value(record.kind, record.value)});
        }
        return parameters;
    }

    Part part(const MultimediaPart& record) {
        Part part;
        part.flags = record.flags;
        part.container = record.container;
        part.type.media = text(record.contentType);
        part.type.charset = record.charset;
        part.type.parameters = parameters(record.parameters, record.parameterCount);
        part.name = text(record.name);
        part.content_id = optional_text(record.contentId);
        part.content_location = optional_text(record.contentLocation);
        if (auto kind = optional_text(record.disposition)) {
            part.disposition = Disposition{
                *std::move(kind), parameters(record.dispositionParameters, record.dispositionParameterCount)};
        }
        part.headers = headers(record.headers, record.headerCount);
        part.data = bytes(record.data, record.dataLength);
        const bool is_container = (part.flags & VZ_MMS_PART_CONTAINER) != 0;
        if (is_container && !part.data.empty()) raise(VZ_ERR_BAD_VALUE);
        return part;
    }

    CallerMemory memory_;
};

void release_value(std::uint32_t kind, const MultimediaContent& content, Reclaimer& reclaimer) {
    if (kind == VZ_MMS_VALUE_TEXT) return reclaimer.release_string(content.text);
    if (members_of(kind) == nullptr) return;
    const Reclaimer::Taken taken = reclaimer.take(content.record, sizeof(MultimediaValue));
    if (!taken) return;
    reclaimer.release_string(content.record->name);
    reclaimer.release_string(content.record->text);
    reclaimer.release(content.record->bytes);
}

// The block tells how many entries there can be, whatever `count` says.
template <class Entry, class Release>
void release_array(Entry* array, std::uint32_t count, Reclaimer& reclaimer, Release release) {
    const Reclaimer::Taken taken = reclaimer.take(array);
    const std::size_t room = taken.size() / sizeof(Entry);
    for (std::size_t i = 0; i < std::min<std::size_t>(count, room); ++i) release(array[i]);
}

void release_headers(MultimediaHeader* headers, std::uint32_t count, Reclaimer& reclaimer) {
    release_array(headers, count, reclaimer, [&reclaimer](const MultimediaHeader& header) {
        release_value(header.kind, header.value, reclaimer);
    });
}

void release_parameters(MultimediaParameter* parameters, std::uint32_t count, Reclaimer& reclaimer) {
    release_array(parameters, count, reclaimer, [&reclaimer](const MultimediaParameter& parameter) {
        reclaimer.release_string(parameter.name);
        release_value(parameter.kind, parameter.value, reclaimer);
    });
}

void release_part(const MultimediaPart& part, Reclaimer& reclaimer) {
    reclaimer.release_string(part.contentType);
    release_parameters(part.parameters, part.parameterCount, reclaimer);
    for (char16_t* const text : {part.name, part.contentId, part.contentLocation, part.disposition})
        reclaimer.release_string(text);
    release_parameters(part.dispositionParameters, part.dispositionParameterCount, reclaimer);
    release_headers(part.headers, part.headerCount, reclaimer);
    reclaimer.release(part.data);
}

}  // namespace

void fill_record(const Message& message, MultimediaItem& item) {
    clear_record(item);
    try {
        fill_item(message, item);
    } catch (...) {
        release_record(&item);
        throw;
    }
}

Message load_record(const MultimediaItem& item) {
    if (item.size != sizeof item) raise(VZ_ERR_BAD_VALUE);
    Message message;
    Loader loader;
    message.type = item.messageType;
    message.flags = item.flags;
    message.headers = loader.headers(item.headers, item.headerCount);
    message.parts = loader.parts(item.parts, item.partCount);
    return message;
}

void clear_record(MultimediaItem& item) noexcept {
    std::memset(reinterpret_cast<std::byte*>(&item) + sizeof item.size, 0, sizeof item - sizeof item.size);
}

void release_record(void* item) {
    if (!platform::is_readable(item, sizeof(MultimediaItem))) raise(VZ_ERR_POINTER);
    auto& record = *static_cast<MultimediaItem*>(item);
    if (record.size != sizeof record) raise(VZ_ERR_BAD_VALUE);
    Reclaimer reclaimer;
    release_headers(record.headers, record.headerCount, reclaimer);
    release_array(record.parts, record.partCount, reclaimer,
                  [&reclaimer](const MultimediaPart& part) { release_part(part, reclaimer); });
    clear_record(record);
}

}  // namespace vzapi::mms
