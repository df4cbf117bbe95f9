#include "vzconv/multimedia_show.h"

#include <algorithm>
#include <iterator>

#include "vzconv/multimedia_header_words.h"
#include "vzconv/multimedia_parts.h"
#include "vzconv/multimedia_words.h"
#include "vzconv/readable.h"
#include "vzconv/size_words.h"
#include "vzconv/unicode.h"
#include "vzconv/utc_time.h"

namespace vzconv {
namespace {

constexpr std::size_t kLabelWidth = 17;

// Headers that a person looks for first, each in one line however often it is there.
constexpr uint32_t kFirst[] = {VZ_MMS_HEADER_FROM, VZ_MMS_HEADER_TO,   VZ_MMS_HEADER_CC,
                               VZ_MMS_HEADER_BCC,  VZ_MMS_HEADER_DATE, VZ_MMS_HEADER_SUBJECT};

bool is_first(uint32_t header) {
    return std::find(std::begin(kFirst), std::end(kFirst), header) != std::end(kFirst);
}

std::string number_in_words(uint32_t header, uint64_t number) {
    std::string word = value_word_of(header, number);
    if (!word.empty()) return word;
    const bool is_size = header == VZ_MMS_HEADER_MESSAGE_SIZE || header == VZ_MMS_HEADER_REPLY_CHARGING_SIZE;
    if (is_size) return size_in_words(number);
    const MultimediaHeaderWord* row = multimedia_header_of(header);
    const bool is_code = row != nullptr && !row->codes.empty();
    return is_code ? "unknown (" + std::to_string(number) + ")" : std::to_string(number);
}

std::string address_in_words(const MultimediaValue& record) {
    return record.token == VZ_MMS_ADDRESS_INSERT ? "(the sender's own address)" : text_of(record.text);
}

std::string time_in_words(uint32_t header, const MultimediaValue& record) {
    if (record.token != VZ_MMS_TIME_RELATIVE) return utc_in_words(record.number);
    const bool is_delivery = header == VZ_MMS_HEADER_DELIVERY_TIME;
    return seconds_in_words(record.number) + (is_delivery ? " after it is sent" : " after it arrives");
}

// "add: family", "12 messages".
std::string marked_in_words(const MultimediaHeader& header) {
    const MultimediaValue& record = *header.value.record;
    const std::string mark(word_of(mark_words(header.number), record.token));
    if (header.kind == VZ_MMS_VALUE_MARKED_TEXT) return mark + ": " + text_of(record.text);
    if (record.token == VZ_MMS_TOTAL_OCTETS) return size_in_words(record.number);
    return std::to_string(record.number) + " " + mark;
}

std::string record_in_words(const MultimediaHeader& header) {
    const MultimediaValue& record = *header.value.record;
    switch (header.kind) {
        case VZ_MMS_VALUE_ADDRESS:
        case VZ_MMS_VALUE_COUNTED_ADDRESS:
            return address_in_words(record);
        case VZ_MMS_VALUE_TIME:
            return time_in_words(header.number, record);
        case VZ_MMS_VALUE_COUNTED_NUMBER:
            return number_in_words(header.number, record.number);
        case VZ_MMS_VALUE_COUNTED_DATE:
            return utc_in_words(record.number);
        case VZ_MMS_VALUE_MARKED_TEXT:
        case VZ_MMS_VALUE_MARKED_NUMBER:
            return marked_in_words(header);
        case VZ_MMS_VALUE_RAW:
            return "(unreadable, " + size_in_words(record.byteCount) + ")";
        default:
            return text_of(record.text);
    }
}

std::string any_value_in_words(const MultimediaHeader& header) {
    switch (header.kind) {
        case VZ_MMS_VALUE_NONE:
            return {};
        case VZ_MMS_VALUE_NUMBER:
            return number_in_words(header.number, header.value.number);
        case VZ_MMS_VALUE_DATE:
            return utc_in_words(header.value.number);
        case VZ_MMS_VALUE_TEXT:
            return text_of(header.value.text);
        default:
            return record_in_words(header);
    }
}

std::string value_in_words(const MultimediaHeader& header) {
    std::string words = any_value_in_words(header);
    return words.empty() ? "(empty)" : words;
}

bool is_counted(const MultimediaHeader& header) {
    return header.kind >= VZ_MMS_VALUE_COUNTED_NUMBER && header.kind <= VZ_MMS_VALUE_COUNTED_ADDRESS;
}

void show_first(const MultimediaItem& item, Readable& readable) {
    for (const uint32_t number : kFirst) {
        std::string values;
        bool is_there = false;
        for (const MultimediaHeader& header : headers_of(item)) {
            if (header.number != number) continue;
            values += (is_there ? ", " : "") + value_in_words(header);
            is_there = true;
        }
        if (is_there) readable.field(multimedia_header_of(number)->label, values);
    }
}

void show_others(const MultimediaItem& item, Readable& readable) {
    for (const MultimediaHeader& header : headers_of(item)) {
        const MultimediaHeaderWord* word = multimedia_header_of(header.number);
        if (word == nullptr || word->label.empty() || is_first(header.number)) continue;
        std::string label(word->label);
        if (is_counted(header)) label += " " + std::to_string(header.value.record->count);
        readable.field(label, value_in_words(header));
    }
}

void show_part(const MultimediaPart& part, std::size_t number, Readable& readable) {
    std::string words = in_one_line(text_of(part.name)) + ", " + in_one_line(text_of(part.contentType)) +
                        ", " + size_in_words(part.dataLength);
    if ((part.flags & VZ_MMS_PART_TRUNCATED) != 0) words += ", cut off";
    if (is_presentation(part)) return readable.field("Presentation", words);
    const bool is_shown = is_text_type(text_of(part.contentType)) && part.dataLength != 0;
    if (is_shown) words += "\n" + text_in_charset(data_of(part), part.charset);
    readable.field("Part " + std::to_string(number), words);
}

}  // namespace

std::string show_multimedia(const MultimediaItem& item) {
    Readable readable(multimedia_heading_of(item.messageType), kLabelWidth);
    show_first(item, readable);
    show_others(item, readable);
    std::size_t number = 0;
    for (const MultimediaPart& part : parts_of(item)) {
        if (!is_container(part)) show_part(part, ++number, readable);
    }
    if ((item.flags & VZ_MMS_TRUNCATED) != 0) readable.field("Cut off", "parts or their data are missing");
    return readable.text();
}

}  // namespace vzconv
