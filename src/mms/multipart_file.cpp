// The head of a part: its content type and headers, by the numbers of WAP-230-WSP, table 39.
#include <algorithm>

#include "mms/mms_charset.h"
#include "mms/multipart.h"
#include "mms/transfer_encoding.h"
#include "platform/utf8.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

constexpr std::uint32_t kContentLocation = 0x0E;
constexpr std::uint32_t kOldContentDisposition = 0x2E;  // the one that all readers know
constexpr std::uint32_t kContentId = 0x40;
constexpr std::uint32_t kContentDisposition = 0x45;
constexpr std::uint8_t kNumberMark = 0x80;
constexpr std::uint8_t kFirstCharacter = 0x20;  // what is less begins a length
constexpr std::uint8_t kShiftDelimiter = 0x7F;
constexpr std::u16string_view kUnknownMedia = u"application/octet-stream";

std::string_view text_in(Bytes bytes) noexcept {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes bytes_of(std::string_view text) noexcept {
    return std::as_bytes(std::span(text));
}

// The id of `"<id>"`, with or without each of the marks.
std::u16string without_brackets(std::u16string text) {
    if (text.ends_with(u'"')) text.pop_back();
    if (text.size() > 1 && text.front() == u'<' && text.back() == u'>') {
        text.pop_back();
        text.erase(0, 1);
    }
    return text;
}

// A text string of either kind, or one with a charset, as some writers send it.
std::optional<std::u16string> read_text(CWSPEncoding& head) {
    const std::optional<std::uint8_t> first = head.peek();
    if (first && *first >= kFirstCharacter) {
        const std::optional<std::string_view> text = head.text();
        if (!text) return std::nullopt;
        return decode_text(kNoCharset, *text);
    }
    auto text = head.encoded_text();
    if (!text) return std::nullopt;
    return text->text.substr(0, text->text.find(u'\0'));
}

// Reads the value into the member that the header has in Part. False when it has none, or has it already, or
// the value is not of the form.
bool read_member(std::uint32_t number, CWSPEncoding& head, Part& part) {
    switch (number) {
        case kContentLocation:
            if (part.content_location) return false;
            part.content_location = read_text(head);
            return part.content_location.has_value();
        case kContentId:
            if (part.content_id) return false;
            if (auto text = read_text(head)) part.content_id = without_brackets(std::move(*text));
            return part.content_id.has_value();
        case kOldContentDisposition:
        case kContentDisposition:
            if (part.disposition) return false;
            part.disposition = head.disposition();
            return part.disposition.has_value();
        default:
            return false;
    }
}

bool read_numbered(CWSPEncoding& head, Part& part) {
    const std::uint32_t number = *head.octet() - std::uint32_t{kNumberMark};
    if (read_member(number, head, part)) return true;
    Header header{number, {}};
    const std::optional<std::uint8_t> first = head.peek();
    CWSPEncoding value = head;
    if (!first || !head.skip_value()) return false;
    const bool is_text = *first == 0 || *first >= kFirstCharacter;
    if (*first >= kNumberMark) {
        header.value.kind = VZ_MMS_VALUE_NUMBER;
        header.value.number = *value.short_integer();
    } else if (const auto text = is_text ? value.text() : std::nullopt) {
        header.value.kind = VZ_MMS_VALUE_TEXT;
        header.value.text = decode_text(kNoCharset, *text);
    } else {
        header.value.kind = VZ_MMS_VALUE_RAW;
        header.value.bytes = *value.skip_value();
    }
    if (!head.take_entry()) return false;
    append(part.headers, std::move(header));
    return true;
}

// A name stands as it is, without the quotes that a text may have.
std::optional<std::u16string> read_name(CWSPEncoding& head) {
    const std::optional<Bytes> name = head.skip_value();
    if (!name) return std::nullopt;
    return decode_text(kNoCharset, text_in(name->first(name->size() - 1)));
}

// The number of the member's header by its name; 0 for all others.
std::uint32_t member_number(std::u16string_view name) noexcept {
    if (versit::equals_ignoring_case(name, "CONTENT-LOCATION")) return kContentLocation;
    if (versit::equals_ignoring_case(name, "CONTENT-ID")) return kContentId;
    return versit::equals_ignoring_case(name, "CONTENT-DISPOSITION") ? kOldContentDisposition : 0;
}

bool read_named(CWSPEncoding& head, Part& part) {
    auto name = read_name(head);
    if (!name) return false;
    const std::uint32_t number = member_number(*name);
    if (number != 0 && read_member(number, head, part)) return true;
    const auto text = head.text();
    if (!text) return false;
    Header header;
    header.value.kind = VZ_MMS_VALUE_NAMED_TEXT;
    header.value.name = std::move(*name);
    header.value.text = decode_text(kNoCharset, *text);
    if (!head.take_entry()) return false;
    append(part.headers, std::move(header));
    return true;
}

// False at the end of what can be understood, or there may be: behind a shift to another page the numbers
// mean other headers.
bool read_header(CWSPEncoding& head, Part& part) {
    const std::uint8_t first = *head.peek();
    if (first >= kNumberMark) return read_numbered(head, part);
    if (first >= kFirstCharacter && first < kShiftDelimiter) return read_named(head, part);
    return first == 0 && head.octet().has_value();  // one NUL too many behind a text
}

void undo_transfer_encoding(Part& part) {
    auto content = without_transfer_encoding(part.headers, part.data);
    if (!content) return;
    part.decoded = std::move(*content);
    part.data = part.decoded;
    std::erase_if(part.headers, is_transfer_encoding);
}

void write_header(const Header& header, WspWriter& head) {
    const Value& value = header.value;
    if (value.kind == VZ_MMS_VALUE_NAMED_TEXT) {
        head.append(bytes_of(platform::utf16_to_utf8(value.name)));
        head.octet(0);
        return head.text(platform::utf16_to_utf8(value.text));
    }
    head.octet(static_cast<std::uint8_t>(header.number | kNumberMark));
    switch (value.kind) {
        case VZ_MMS_VALUE_NUMBER:
            return head.integer(value.number);
        case VZ_MMS_VALUE_DATE:
            return head.long_integer(value.number);
        case VZ_MMS_VALUE_TEXT:
            return head.text(platform::utf16_to_utf8(value.text));
        default:
            return head.append(value.bytes);
    }
}

}  // namespace

void CMultipartFile::decode(Bytes head, Bytes data, EntryLimit& limit, Part& part) {
    CWSPEncoding reader(head, &limit);
    if (auto type = reader.content_type()) {
        part.type = std::move(*type);
    } else {
        static_cast<void>(reader.skip_value());
    }
    if (part.type.media.empty()) part.type.media = kUnknownMedia;
    while (!reader.at_end() && read_header(reader, part)) {
    }
    part.data = data;
    undo_transfer_encoding(part);
}

void CMultipartFile::encode_head(const Part& part, WspWriter& head) {
    head.content_type(part.type);
    if (part.content_id) {
        head.octet(kContentId | kNumberMark);
        head.quoted_text(platform::utf16_to_utf8(u"<" + *part.content_id + u">"));
    }
    if (part.content_location) {
        head.octet(kContentLocation | kNumberMark);
        head.text(platform::utf16_to_utf8(*part.content_location));
    }
    if (part.disposition) {
        head.octet(kOldContentDisposition | kNumberMark);
        head.disposition(*part.disposition);
    }
    // The data are without it, and a reader that believed it would spoil them.
    const bool is_undone = without_transfer_encoding(part.headers, part.data).has_value();
    for (const Header& header : part.headers) {
        if (!is_undone || !is_transfer_encoding(header)) write_header(header, head);
    }
}

}  // namespace vzapi::mms
