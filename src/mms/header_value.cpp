#include "mms/header_value.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "mms/mms_charset.h"
#include "platform/utf8.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

using EncodedText = CWSPEncoding::EncodedText;

constexpr std::uint8_t kHighBit = 0x80;
constexpr std::uint8_t kMostLengthOctet = 0x1F;
constexpr std::uint8_t kFirstUnusedField = 0xC0;
constexpr std::uint8_t kAddressPresent = 0x80;
constexpr std::uint8_t kInsertAddress = 0x81;

// How far the text of a value may run past its length, if the length is too small.
constexpr std::size_t kMostOverrun = 64;

Value number_value(std::uint32_t kind, std::uint64_t number) {
    Value value;
    value.kind = kind;
    value.number = number;
    return value;
}

std::optional<Value> number_if(std::uint32_t kind, const std::optional<std::uint64_t>& number) {
    if (!number) return std::nullopt;
    return number_value(kind, *number);
}

// A record's text ends at a NUL, so that one with a NUL inside is kept raw.
std::optional<Value> text_if(std::uint32_t kind, std::optional<EncodedText> text) {
    if (!text || text->text.find(u'\0') != std::u16string::npos) return std::nullopt;
    Value value;
    value.kind = kind;
    value.charset = text->charset;
    value.text = std::move(text->text);
    return value;
}

struct AddressType {
    std::uint32_t token;
    std::string_view suffix;  // in capitals
    std::u16string_view written;
};

constexpr AddressType kAddressTypes[] = {
    {VZ_MMS_ADDRESS_PLMN, "/TYPE=PLMN", u"/TYPE=PLMN"},
    {VZ_MMS_ADDRESS_IPV4, "/TYPE=IPV4", u"/TYPE=IPv4"},
    {VZ_MMS_ADDRESS_IPV6, "/TYPE=IPV6", u"/TYPE=IPv6"},
};

std::optional<Value> address_if(std::uint32_t kind, std::optional<EncodedText> text) {
    std::optional<Value> value = text_if(kind, std::move(text));
    if (!value) return value;
    const std::u16string_view all = value->text;
    for (const AddressType& type : kAddressTypes) {
        if (all.size() < type.suffix.size()) continue;
        const std::size_t end = all.size() - type.suffix.size();
        if (!versit::equals_ignoring_case(all.substr(end), type.suffix)) continue;
        value->token = type.token;
        value->text.resize(end);
        break;
    }
    return value;
}

bool starts_length(const CWSPEncoding& pdu) {
    const std::optional<std::uint8_t> first = pdu.peek();
    return first && *first <= kMostLengthOctet;
}

// True where the octet of the next field stands in place of a text.
bool is_missing(const CWSPEncoding& pdu) {
    const std::optional<std::uint8_t> first = pdu.peek();
    return first && *first >= kHighBit && *first < kFirstUnusedField;
}

// How many bytes behind a value belong to its text all the same: the value has no NUL, and what stands behind
// it, up to a near NUL, begins like no field.
std::size_t overrun(Bytes value, Bytes behind) {
    constexpr std::size_t kLeastValue = 3;  // a token or charset, and a text that was begun
    if (value.size() < kLeastValue || behind.empty()) return 0;
    if (static_cast<std::uint8_t>(behind.front()) >= kHighBit) return 0;
    if (std::find(value.begin(), value.end(), std::byte{0}) != value.end()) return 0;
    const Bytes near = behind.first(std::min(behind.size(), kMostOverrun));
    const auto nul = std::find(near.begin(), near.end(), std::byte{0});
    return nul == near.end() ? 0 : static_cast<std::size_t>(nul - near.begin()) + 1;
}

// What `parse` makes of the bytes behind a value length, which end with a text. A length that is too small is
// looked at only when they make sense: whether they do must not depend on the field behind them.
template <class Parse>
std::invoke_result_t<Parse, Bytes> read_measured_text(CWSPEncoding& pdu, Parse parse) {
    const std::optional<Bytes> value = pdu.measured();
    if (!value) return std::nullopt;
    auto result = parse(*value);
    const std::size_t more = result ? overrun(*value, pdu.rest()) : 0;
    if (more == 0) return result;
    pdu.return_to(pdu.position() - value->size());
    return parse(*pdu.bytes(value->size() + more));
}

std::optional<EncodedText> read_encoded(CWSPEncoding& pdu) {
    if (is_missing(pdu)) return EncodedText{};
    if (!starts_length(pdu)) return pdu.encoded_text();
    return read_measured_text(pdu, CWSPEncoding::charset_and_text);
}

std::optional<EncodedText> read_text(CWSPEncoding& pdu) {
    if (is_missing(pdu)) return EncodedText{};
    if (starts_length(pdu) && pdu.peek() != 0) return std::nullopt;
    const std::optional<std::string_view> text = pdu.text_string();
    if (!text) return std::nullopt;
    return EncodedText{kNoCharset, decode_text(kNoCharset, *text)};
}

std::optional<Value> read_octet(CWSPEncoding& pdu) {
    const std::optional<std::uint8_t> number = pdu.short_integer();
    if (!number) return std::nullopt;
    return number_value(VZ_MMS_VALUE_NUMBER, std::uint64_t{*number} | kHighBit);
}

std::optional<Value> read_octet_or_text(CWSPEncoding& pdu) {
    if (std::optional<Value> value = read_octet(pdu)) return value;
    return text_if(VZ_MMS_VALUE_TEXT, read_text(pdu));
}

std::optional<Value> read_version(CWSPEncoding& pdu) {
    const std::optional<std::uint8_t> number = pdu.short_integer();
    if (!number) return std::nullopt;
    return number_value(VZ_MMS_VALUE_NUMBER, *number);
}

// Also without the token before the address, and without the length.
std::optional<Value> parse_from(Bytes bytes) {
    constexpr std::uint32_t kKind = VZ_MMS_VALUE_ADDRESS;
    CWSPEncoding inside(bytes);
    if (inside.peek() == kInsertAddress && bytes.size() == 1) {
        Value insert;
        insert.kind = kKind;
        insert.token = VZ_MMS_ADDRESS_INSERT;
        return insert;
    }
    if (inside.peek() != kAddressPresent) return address_if(kKind, CWSPEncoding::charset_and_text(bytes));
    static_cast<void>(inside.octet());
    return address_if(kKind, CWSPEncoding::encoded_text_in(inside.rest()));
}

std::optional<Value> read_from(CWSPEncoding& pdu) {
    if (starts_length(pdu)) return read_measured_text(pdu, parse_from);
    return address_if(VZ_MMS_VALUE_ADDRESS, read_encoded(pdu));
}

std::optional<Value> parse_marked_text(Bytes bytes) {
    CWSPEncoding inside(bytes);
    const std::optional<Value> token = read_octet(inside);
    if (!token) return std::nullopt;
    std::optional<Value> value =
        text_if(VZ_MMS_VALUE_MARKED_TEXT, CWSPEncoding::encoded_text_in(inside.rest()));
    if (value) value->token = static_cast<std::uint32_t>(token->number);
    return value;
}

std::optional<Value> parse_marked_number(std::uint32_t kind, Bytes bytes) {
    CWSPEncoding inside(bytes);
    const std::optional<Value> token = read_octet(inside);
    if (!token) return std::nullopt;
    const bool is_known_time = token->number == VZ_MMS_TIME_ABSOLUTE || token->number == VZ_MMS_TIME_RELATIVE;
    if (kind == VZ_MMS_VALUE_TIME && !is_known_time) return std::nullopt;
    std::optional<Value> value = number_if(kind, inside.integer());
    if (!value || !inside.at_end()) return std::nullopt;
    value->token = static_cast<std::uint32_t>(token->number);
    return value;
}

std::optional<Value> read_marked_number(std::uint32_t kind, CWSPEncoding& pdu) {
    const std::optional<Bytes> value = pdu.measured();
    if (!value) return std::nullopt;
    return parse_marked_number(kind, *value);
}

std::optional<Value> read_counted_number(std::uint32_t kind, CWSPEncoding& pdu) {
    const std::optional<Bytes> bytes = pdu.measured();
    if (!bytes) return std::nullopt;
    CWSPEncoding inside(*bytes);
    const std::optional<std::uint32_t> count = inside.small_integer();
    if (!count) return std::nullopt;
    std::optional<Value> value =
        kind == VZ_MMS_VALUE_COUNTED_NUMBER ? read_octet(inside) : number_if(kind, inside.integer());
    if (!value || !inside.at_end()) return std::nullopt;
    value->kind = kind;
    value->count = *count;
    return value;
}

// An address, an encoded text, or a text string behind a count.
enum class Counted : std::uint8_t { Address, Encoded, Plain };

std::optional<Value> parse_counted(Counted what, Bytes bytes) {
    CWSPEncoding inside(bytes);
    const std::optional<std::uint32_t> count = inside.small_integer();
    if (!count) return std::nullopt;
    std::optional<Value> value;
    switch (what) {
        case Counted::Address:
            value = address_if(VZ_MMS_VALUE_COUNTED_ADDRESS, CWSPEncoding::encoded_text_in(inside.rest()));
            break;
        case Counted::Encoded:
            value = text_if(VZ_MMS_VALUE_COUNTED_TEXT, CWSPEncoding::encoded_text_in(inside.rest()));
            break;
        case Counted::Plain:
            if (starts_length(inside) && inside.peek() != 0) return std::nullopt;
            value = text_if(VZ_MMS_VALUE_COUNTED_TEXT, CWSPEncoding::encoded_text_in(inside.rest()));
            if (value) value->charset = kNoCharset;
            break;
    }
    if (value) value->count = *count;
    return value;
}

std::optional<Value> read_counted(Counted what, CWSPEncoding& pdu) {
    if (!starts_length(pdu)) return std::nullopt;
    return read_measured_text(pdu, [what](Bytes bytes) { return parse_counted(what, bytes); });
}

std::optional<Value> read_form(HeaderForm form, std::uint32_t pdu_type, CWSPEncoding& pdu) {
    const bool is_counted = starts_length(pdu) && pdu.peek() != 0;
    switch (form) {
        case HeaderForm::Octet:
            return read_octet(pdu);
        case HeaderForm::OctetOrText:
            return read_octet_or_text(pdu);
        case HeaderForm::Version:
            return read_version(pdu);
        case HeaderForm::Integer:
        case HeaderForm::LongInteger:
            return number_if(VZ_MMS_VALUE_NUMBER, pdu.integer());
        case HeaderForm::Date:
            return number_if(VZ_MMS_VALUE_DATE, pdu.integer());
        case HeaderForm::Text:
            return text_if(VZ_MMS_VALUE_TEXT, read_text(pdu));
        case HeaderForm::EncodedText:
            return text_if(VZ_MMS_VALUE_ENCODED_TEXT, read_encoded(pdu));
        case HeaderForm::Address:
            return address_if(VZ_MMS_VALUE_ADDRESS, read_encoded(pdu));
        case HeaderForm::From:
            return read_from(pdu);
        case HeaderForm::Time:
            return read_marked_number(VZ_MMS_VALUE_TIME, pdu);
        case HeaderForm::MarkedText:
            return read_measured_text(pdu, parse_marked_text);
        case HeaderForm::MarkedNumber:
            return read_marked_number(VZ_MMS_VALUE_MARKED_NUMBER, pdu);
        case HeaderForm::CountedAddress:
            return read_counted(Counted::Address, pdu);
        case HeaderForm::CountedDate:
            return read_counted_number(VZ_MMS_VALUE_COUNTED_DATE, pdu);
        case HeaderForm::OctetOrCounted:
            return is_counted ? read_counted_number(VZ_MMS_VALUE_COUNTED_NUMBER, pdu) : read_octet(pdu);
        case HeaderForm::EncodedOrCounted:
            if (is_counted && counts_response_texts(pdu_type)) {
                return read_counted(Counted::Encoded, pdu);
            }
            return text_if(VZ_MMS_VALUE_ENCODED_TEXT, read_encoded(pdu));
        case HeaderForm::TextOrCounted:
            return is_counted ? read_counted(Counted::Plain, pdu)
                              : text_if(VZ_MMS_VALUE_TEXT, read_text(pdu));
        case HeaderForm::ContentType:
        case HeaderForm::Raw:
            break;
    }
    return std::nullopt;
}

// True where the eight-bit characters of a text begin.
bool is_unquoted_text(HeaderForm form, const CWSPEncoding& pdu) {
    const std::optional<std::uint8_t> first = pdu.peek();
    if (!first || *first < kFirstUnusedField) return false;
    switch (form) {
        case HeaderForm::Text:
        case HeaderForm::EncodedText:
        case HeaderForm::Address:
        case HeaderForm::From:
        case HeaderForm::EncodedOrCounted:
        case HeaderForm::TextOrCounted:
            return true;
        default:
            return false;
    }
}

bool is_octet(std::uint64_t number) {
    return number >= kHighBit && number <= std::numeric_limits<std::uint8_t>::max();
}

void write_text(std::u16string_view text, WspWriter& pdu) {
    pdu.text_string(platform::utf16_to_utf8(text));
}

std::u16string address_text(const Value& value) {
    std::u16string text = value.text.substr(0, value.text.find(u'\0'));
    for (const AddressType& type : kAddressTypes) {
        if (type.token == value.token) text += type.written;
    }
    return text;
}

bool is_address(const Value& value) {
    return value.token <= VZ_MMS_ADDRESS_IPV6;
}

bool write_from(const Value& value, WspWriter& pdu) {
    WspWriter inside;
    if (value.token == VZ_MMS_ADDRESS_INSERT) {
        inside.octet(kInsertAddress);
    } else if (is_address(value)) {
        inside.octet(kAddressPresent);
        inside.encoded_text(value.charset, address_text(value));
    } else {
        return false;
    }
    pdu.measured(inside.bytes());
    return true;
}

bool write_marked(const Value& value, bool is_time, WspWriter& pdu) {
    const bool is_known_time = value.token == VZ_MMS_TIME_ABSOLUTE || value.token == VZ_MMS_TIME_RELATIVE;
    if (!is_octet(value.token) || (is_time && !is_known_time)) return false;
    WspWriter inside;
    inside.octet(static_cast<std::uint8_t>(value.token));
    if (value.kind == VZ_MMS_VALUE_MARKED_TEXT) {
        inside.encoded_text(value.charset, value.text);
    } else if (is_time) {
        inside.long_integer(value.number);
    } else {
        inside.integer(value.number);
    }
    pdu.measured(inside.bytes());
    return true;
}

bool write_counted(HeaderForm form, const Value& value, WspWriter& pdu) {
    WspWriter inside;
    inside.integer(value.count);
    switch (form) {
        case HeaderForm::CountedAddress:
            if (!is_address(value)) return false;
            inside.encoded_text(value.charset, address_text(value));
            break;
        case HeaderForm::CountedDate:
            inside.long_integer(value.number);
            break;
        case HeaderForm::OctetOrCounted:
            if (!is_octet(value.number)) return false;
            inside.octet(static_cast<std::uint8_t>(value.number));
            break;
        case HeaderForm::EncodedOrCounted:
            inside.encoded_text(value.charset, value.text);
            break;
        default:
            write_text(value.text, inside);
            break;
    }
    pdu.measured(inside.bytes());
    return true;
}

// Where a charset would look like a count the bytes stand alone, and are taken for what they look like.
void write_bare_text(const Value& value, WspWriter& pdu) {
    std::uint32_t charset = value.charset == kLatin1 ? kLatin1 : kUtf8;
    std::string bytes =
        encode_text(charset, std::u16string_view(value.text).substr(0, value.text.find(u'\0')));
    if (charset == kLatin1 && guess_charset(bytes) != kLatin1) {
        bytes = platform::utf16_to_utf8(value.text);
    }
    pdu.text_string(bytes);
}

bool write_number(HeaderForm form, std::uint64_t number, WspWriter& pdu) {
    switch (form) {
        case HeaderForm::Octet:
        case HeaderForm::OctetOrText:
        case HeaderForm::OctetOrCounted:
            if (!is_octet(number)) return false;
            pdu.octet(static_cast<std::uint8_t>(number));
            return true;
        case HeaderForm::Version:
            if (number >= kHighBit) return false;
            pdu.short_integer(static_cast<std::uint8_t>(number));
            return true;
        case HeaderForm::Integer:
            pdu.integer(number);
            return true;
        default:
            pdu.long_integer(number);
            return true;
    }
}

// The kinds of each form.
bool has_kind(HeaderForm form, std::uint32_t pdu_type, std::uint32_t kind) {
    switch (form) {
        case HeaderForm::Octet:
        case HeaderForm::Version:
        case HeaderForm::Integer:
        case HeaderForm::LongInteger:
            return kind == VZ_MMS_VALUE_NUMBER;
        case HeaderForm::OctetOrText:
            return kind == VZ_MMS_VALUE_NUMBER || kind == VZ_MMS_VALUE_TEXT;
        case HeaderForm::Date:
            return kind == VZ_MMS_VALUE_DATE;
        case HeaderForm::Text:
            return kind == VZ_MMS_VALUE_TEXT;
        case HeaderForm::EncodedText:
            return kind == VZ_MMS_VALUE_ENCODED_TEXT;
        case HeaderForm::Address:
        case HeaderForm::From:
            return kind == VZ_MMS_VALUE_ADDRESS;
        case HeaderForm::Time:
            return kind == VZ_MMS_VALUE_TIME;
        case HeaderForm::MarkedText:
            return kind == VZ_MMS_VALUE_MARKED_TEXT;
        case HeaderForm::MarkedNumber:
            return kind == VZ_MMS_VALUE_MARKED_NUMBER;
        case HeaderForm::CountedAddress:
            return kind == VZ_MMS_VALUE_COUNTED_ADDRESS;
        case HeaderForm::CountedDate:
            return kind == VZ_MMS_VALUE_COUNTED_DATE;
        case HeaderForm::OctetOrCounted:
            return kind == VZ_MMS_VALUE_NUMBER || kind == VZ_MMS_VALUE_COUNTED_NUMBER;
        case HeaderForm::EncodedOrCounted:
            return kind == VZ_MMS_VALUE_ENCODED_TEXT ||
                   (kind == VZ_MMS_VALUE_COUNTED_TEXT && counts_response_texts(pdu_type));
        case HeaderForm::TextOrCounted:
            return kind == VZ_MMS_VALUE_TEXT || kind == VZ_MMS_VALUE_COUNTED_TEXT;
        case HeaderForm::ContentType:
        case HeaderForm::Raw:
            break;
    }
    return false;
}

}  // namespace

bool counts_response_texts(std::uint32_t pdu_type) noexcept {
    return pdu_type == VZ_MMS_MBOX_DELETE_CONF || pdu_type == VZ_MMS_DELETE_CONF;
}

std::optional<Value> read_header_value(HeaderForm form, std::uint32_t pdu_type, CWSPEncoding& pdu) {
    const std::size_t before = pdu.position();
    if (std::optional<Value> value = read_form(form, pdu_type, pdu)) return value;
    pdu.return_to(before);
    // A text without its quote that no NUL ends: not an octet, or else the next NUL would make a text of it.
    if (is_unquoted_text(form, pdu)) return std::nullopt;
    const std::optional<Bytes> raw = pdu.skip_value();
    if (!raw) return std::nullopt;
    Value value;
    value.kind = VZ_MMS_VALUE_RAW;
    value.bytes = *raw;
    return value;
}

bool write_header_value(HeaderForm form, std::uint32_t pdu_type, const Value& value, WspWriter& pdu) {
    if (value.kind == VZ_MMS_VALUE_RAW) {
        pdu.append(value.bytes);
        return true;
    }
    if (!has_kind(form, pdu_type, value.kind)) return false;
    switch (value.kind) {
        case VZ_MMS_VALUE_NUMBER:
        case VZ_MMS_VALUE_DATE:
            return write_number(form, value.number, pdu);
        case VZ_MMS_VALUE_TEXT:
            write_text(value.text, pdu);
            return true;
        case VZ_MMS_VALUE_ENCODED_TEXT:
            if (form == HeaderForm::EncodedOrCounted && counts_response_texts(pdu_type)) {
                write_bare_text(value, pdu);
            } else {
                pdu.encoded_text(value.charset, value.text);
            }
            return true;
        case VZ_MMS_VALUE_ADDRESS:
            if (form == HeaderForm::From) return write_from(value, pdu);
            if (!is_address(value)) return false;
            pdu.encoded_text(value.charset, address_text(value));
            return true;
        case VZ_MMS_VALUE_TIME:
        case VZ_MMS_VALUE_MARKED_TEXT:
        case VZ_MMS_VALUE_MARKED_NUMBER:
            return write_marked(value, value.kind == VZ_MMS_VALUE_TIME, pdu);
        default:
            return write_counted(form, value, pdu);
    }
}

}  // namespace vzapi::mms
