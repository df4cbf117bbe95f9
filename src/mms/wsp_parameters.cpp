#include "mms/wsp_parameters.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <utility>

#include "mms/mms_charset.h"
#include "mms/mms_tables.h"
#include "platform/utf8.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

constexpr std::uint8_t kQuote = 0x7F;
constexpr std::uint32_t kMostShort = 0x7F;
constexpr std::uint64_t kMost32 = std::numeric_limits<std::uint32_t>::max();

// Before the number, in hexadecimal digits, of what has no name.
constexpr std::u16string_view kNamelessMedia = u"application/x-wsp-";
constexpr std::u16string_view kNamelessKind = u"x-wsp-";
constexpr std::u16string_view kNamelessParameter = u"0x";

std::u16string text_of(std::string_view bytes) {
    return decode_text(kNoCharset, bytes);
}

std::u16string widened(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

bool same_name(std::u16string_view text, std::string_view name) {
    return std::equal(text.begin(), text.end(), name.begin(), name.end(), [](char16_t unit, char letter) {
        return versit::to_upper(unit) == static_cast<char16_t>(versit::to_upper(letter));
    });
}

std::u16string numbered(std::u16string_view prefix, std::uint32_t number) {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    std::u16string name(prefix);
    std::uint32_t shift = 28;
    while (shift > 4 && number >> shift == 0) shift -= 4;  // two digits at least
    for (;; shift -= 4) {
        name += kDigits[number >> shift & 0xFU];
        if (shift == 0) return name;
    }
}

// The number of a name that numbered() makes.
std::optional<std::uint32_t> number_of(std::u16string_view prefix, std::u16string_view name) {
    if (!name.starts_with(prefix) || name.size() > prefix.size() + 8) return std::nullopt;
    std::uint32_t number = 0;
    for (const char16_t digit : name.substr(prefix.size())) {
        const bool is_decimal = digit >= u'0' && digit <= u'9';
        number = number << 4U | (is_decimal ? digit - u'0' : digit - u'A' + 10U);
    }
    if (numbered(prefix, number) != name) return std::nullopt;
    return number;
}

std::u16string media_name(std::uint32_t code) {
    const std::string_view media = media_of_code(code);
    return media.empty() ? numbered(kNamelessMedia, code) : widened(media);
}

std::optional<std::uint32_t> media_code(std::u16string_view media) {
    if (const std::optional<std::uint32_t> code = code_of_media(media)) return code;
    const std::optional<std::uint32_t> code = number_of(kNamelessMedia, media);
    return code && media_of_code(*code).empty() ? code : std::nullopt;
}

// As the table spells it; 0x0E and 0x25 are misspelt in several public ones.
std::u16string spelt(std::u16string_view media) {
    constexpr std::u16string_view kMisspelt = u"byterantes";
    std::u16string name(media);
    if (name.ends_with(kMisspelt))
        name.replace(name.size() - kMisspelt.size(), kMisspelt.size(), u"byteranges");
    const std::optional<std::uint32_t> code = code_of_media(name);
    return code ? media_name(*code) : name;
}

Value number_value(std::uint32_t kind, std::uint64_t number) {
    Value value;
    value.kind = kind;
    value.number = number;
    return value;
}

Value text_value(std::u16string text) {
    Value value;
    value.kind = VZ_MMS_VALUE_TEXT;
    value.text = std::move(text);
    return value;
}

// With the name as the table spells it, and a media type too.
Parameter named(std::u16string_view name, Value value) {
    const ParameterRow* row = find_parameter(name);
    Parameter parameter{row == nullptr ? std::u16string(name) : widened(row->name), std::move(value)};
    if (row != nullptr && row->form == ParameterForm::Type)
        parameter.value.text = spelt(parameter.value.text);
    return parameter;
}

bool starts_text(const CWSPEncoding& bytes) {
    const std::optional<std::uint8_t> first = bytes.peek();
    return first && *first >= 0x20 && *first <= kQuote;
}

// Also an empty text, and one of eight-bit bytes whose quote is missing.
bool starts_any_text(const CWSPEncoding& bytes) {
    return starts_text(bytes) || bytes.peek() == 0 || bytes.peek() >= std::uint8_t{0xC0};
}

std::optional<Value> read_text(CWSPEncoding& bytes) {
    const std::optional<std::string_view> text = bytes.text();
    if (!text) return std::nullopt;
    return text_value(text_of(*text));
}

template <class Number>
std::optional<Value> number_if(std::uint32_t kind, const std::optional<Number>& number) {
    if (!number) return std::nullopt;
    return number_value(kind, *number);
}

std::optional<Value> read_type(CWSPEncoding& bytes) {
    if (starts_text(bytes)) return read_text(bytes);
    const std::optional<std::uint8_t> code = bytes.short_integer();
    if (!code) return std::nullopt;
    return text_value(media_name(*code));
}

std::optional<Value> read_nothing(CWSPEncoding& bytes) {
    if (bytes.peek() != 0) return std::nullopt;
    static_cast<void>(bytes.octet());
    return Value{};
}

std::optional<Value> read_typed(ParameterForm form, CWSPEncoding& bytes) {
    switch (form) {
        case ParameterForm::Q:
            return number_if(VZ_MMS_VALUE_NUMBER, bytes.uintvar());
        case ParameterForm::Charset:
            if (starts_text(bytes)) return read_text(bytes);
            return number_if(VZ_MMS_VALUE_NUMBER, bytes.small_integer());
        case ParameterForm::Version:
        case ParameterForm::FieldName:
            if (starts_text(bytes)) return read_text(bytes);
            return number_if(VZ_MMS_VALUE_NUMBER, bytes.short_integer());
        case ParameterForm::Integer:
        case ParameterForm::Seconds:
            return number_if(VZ_MMS_VALUE_NUMBER, bytes.integer());
        case ParameterForm::ShortInteger:
            return number_if(VZ_MMS_VALUE_NUMBER, bytes.short_integer());
        case ParameterForm::Date:
            return number_if(VZ_MMS_VALUE_DATE, bytes.integer());
        case ParameterForm::Type:
            return read_type(bytes);
        case ParameterForm::Text:
            return starts_any_text(bytes) ? read_text(bytes) : std::nullopt;
        case ParameterForm::None:
            return read_nothing(bytes);
    }
    return std::nullopt;
}

std::optional<Value> read_untyped(CWSPEncoding& bytes) {
    if (bytes.at_end()) return Value{};
    if (bytes.peek() == 0) return read_nothing(bytes);
    if (starts_text(bytes)) return read_text(bytes);
    return number_if(VZ_MMS_VALUE_NUMBER, bytes.integer());
}

// True where a value of several octets was begun: its first one alone is no value, whose meaning would depend
// on what stands behind it.
bool runs_on(ParameterForm form, const CWSPEncoding& bytes) {
    const std::optional<std::uint8_t> first = bytes.peek();
    if (form == ParameterForm::Q) return first >= std::uint8_t{0x80};
    return form == ParameterForm::Text && first >= std::uint8_t{0xC0};
}

std::optional<Parameter> read_numbered_parameter(std::uint32_t number, CWSPEncoding& bytes) {
    const ParameterRow* row = find_parameter(number);
    if (row != nullptr) {
        if (std::optional<Value> value = read_typed(row->form, bytes)) {
            return named(widened(row->name), *std::move(value));
        }
    }
    if (row != nullptr && runs_on(row->form, bytes)) return std::nullopt;
    const std::optional<Bytes> raw = bytes.skip_value();
    if (!raw) return std::nullopt;
    Parameter parameter{numbered(kNamelessParameter, number), {}};
    parameter.value.kind = VZ_MMS_VALUE_RAW;
    parameter.value.bytes = *raw;
    return parameter;
}

std::optional<Parameter> read_parameter(CWSPEncoding& bytes) {
    if (const std::optional<std::uint8_t> number = bytes.short_integer()) {
        return read_numbered_parameter(*number, bytes);
    }
    if (!starts_text(bytes)) return std::nullopt;
    const std::optional<std::string_view> name = bytes.text_string();
    if (!name || name->empty()) return std::nullopt;
    std::optional<Value> value = read_untyped(bytes);
    if (!value) return std::nullopt;
    return named(text_of(*name), *std::move(value));
}

// The number of the charset that a parameter names.
std::optional<std::uint32_t> charset_of(const Parameter& parameter) {
    const Value& value = parameter.value;
    if (!same_name(parameter.name, "charset")) return std::nullopt;
    if (value.kind == VZ_MMS_VALUE_TEXT) return charset_of_name(value.text);
    if (value.kind != VZ_MMS_VALUE_NUMBER || value.number == kNoCharset || value.number > kMost32) {
        return std::nullopt;
    }
    return static_cast<std::uint32_t>(value.number);
}

void add_parameter(Parameter parameter, ContentType& type) {
    const std::optional<std::uint32_t> charset = charset_of(parameter);
    if (charset && type.charset == kNoCharset) {
        type.charset = *charset;
    } else {
        append(type.parameters, std::move(parameter));
    }
}

// The text up to the next ';' that stands in no quotes, which are left there; `text` begins behind it then.
std::u16string_view take_field(std::u16string_view& text) {
    bool is_quoted = false;
    std::size_t end = 0;
    for (; end < text.size() && (is_quoted || text[end] != u';'); ++end) {
        if (text[end] == u'"') is_quoted = !is_quoted;
    }
    const std::u16string_view field = versit::trim_blanks(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return field;
}

Parameter mime_parameter(std::u16string_view field) {
    const std::size_t equals = std::min(field.find(u'='), field.size());
    const std::u16string_view name = versit::trim_blanks(field.substr(0, equals));
    std::u16string_view text = versit::trim_blanks(field.substr(std::min(equals + 1, field.size())));
    if (text.size() >= 2 && text.front() == u'"' && text.back() == u'"')
        text = text.substr(1, text.size() - 2);
    return named(name, text.empty() ? Value{} : text_value(std::u16string(text)));
}

// The next parameter of a text that "name; parameter=value" was begun to be taken apart from; `bytes` counts
// them.
std::optional<Parameter> take_mime_parameter(std::u16string_view& text, CWSPEncoding& bytes) {
    while (!text.empty()) {
        const std::u16string_view field = take_field(text);
        if (field.empty() || field.front() == u'=') continue;
        if (!bytes.take_entry()) return std::nullopt;
        return mime_parameter(field);
    }
    return std::nullopt;
}

std::optional<std::u16string> take_text(CWSPEncoding& bytes) {
    const std::optional<std::string_view> text = bytes.text_string();
    if (!text) return std::nullopt;
    return text_of(*text);
}

constexpr std::uint8_t kFirstKind = 0x80;
constexpr std::array<std::string_view, 3> kKinds = {"form-data", "attachment", "inline"};

std::u16string kind_name(std::uint8_t octet) {
    const std::size_t index = octet - std::size_t{kFirstKind};
    return index < kKinds.size() ? widened(kKinds[index]) : numbered(kNamelessKind, octet);
}

std::optional<std::uint8_t> kind_octet(std::u16string_view kind) {
    for (std::size_t index = 0; index < kKinds.size(); ++index) {
        if (same_name(kind, kKinds[index])) return static_cast<std::uint8_t>(kFirstKind + index);
    }
    const std::optional<std::uint32_t> octet = number_of(kNamelessKind, kind);
    if (!octet || *octet < kFirstKind + kKinds.size() || *octet > 0xFF) return std::nullopt;
    return static_cast<std::uint8_t>(*octet);
}

bool fits(ParameterForm form, const Value& value) {
    const bool is_text = value.kind == VZ_MMS_VALUE_TEXT;
    const bool is_number = value.kind == VZ_MMS_VALUE_NUMBER;
    switch (form) {
        case ParameterForm::Q:
            return is_number && value.number <= kMost32;
        case ParameterForm::Charset:
            return is_text || (is_number && value.number <= kMost32);
        case ParameterForm::Version:
        case ParameterForm::FieldName:
            return is_text || (is_number && value.number <= kMostShort);
        case ParameterForm::Integer:
        case ParameterForm::Seconds:
            return is_number;
        case ParameterForm::ShortInteger:
            return is_number && value.number <= kMostShort;
        case ParameterForm::Date:
            return value.kind == VZ_MMS_VALUE_DATE;
        case ParameterForm::Type:
        case ParameterForm::Text:
            return is_text;
        case ParameterForm::None:
            return value.kind == VZ_MMS_VALUE_NONE;
    }
    return false;
}

// The number to write; several may have one name with different values.
const ParameterRow* row_for(const Parameter& parameter) {
    const ParameterRow* found = nullptr;
    for (const ParameterRow& row : parameter_rows()) {
        if (!same_name(parameter.name, row.name) || !fits(row.form, parameter.value)) continue;
        if (found == nullptr || row.is_written) found = &row;
    }
    return found;
}

// An empty text would look like no value.
void write_unmistakable_text(std::u16string_view text, WspWriter& bytes) {
    const std::string utf8 = platform::utf16_to_utf8(text);
    if (utf8.empty()) bytes.octet(kQuote);
    bytes.text(utf8);
}

void write_type(std::u16string_view media, WspWriter& bytes) {
    const std::optional<std::uint32_t> code = media_code(media);
    if (code && *code <= kMostShort) {
        bytes.short_integer(static_cast<std::uint8_t>(*code));
    } else {
        write_unmistakable_text(media, bytes);
    }
}

void write_untyped(const Value& value, WspWriter& bytes) {
    switch (value.kind) {
        case VZ_MMS_VALUE_NONE:
            return bytes.octet(0);
        case VZ_MMS_VALUE_NUMBER:
        case VZ_MMS_VALUE_DATE:
            return bytes.integer(value.number);
        default:
            return write_unmistakable_text(value.text, bytes);
    }
}

void write_typed(ParameterForm form, const Value& value, WspWriter& bytes) {
    switch (form) {
        case ParameterForm::Q:
            return bytes.uintvar(static_cast<std::uint32_t>(value.number));
        case ParameterForm::Date:
            return bytes.long_integer(value.number);
        case ParameterForm::Text:
            return bytes.text(platform::utf16_to_utf8(value.text));
        case ParameterForm::Type:
            return write_type(value.text, bytes);
        default:
            return write_untyped(value, bytes);
    }
}

// The number that names what has no name; none for a name.
std::optional<std::uint8_t> number_in_name(const Parameter& parameter) {
    const std::optional<std::uint32_t> number = number_of(kNamelessParameter, parameter.name);
    if (!number || *number > kMostShort) return std::nullopt;
    return static_cast<std::uint8_t>(*number);
}

void write_parameter(const Parameter& parameter, WspWriter& bytes) {
    if (parameter.value.kind == VZ_MMS_VALUE_RAW) {
        bytes.short_integer(*number_in_name(parameter));
        bytes.append(parameter.value.bytes);
    } else if (const ParameterRow* row = row_for(parameter)) {
        bytes.short_integer(static_cast<std::uint8_t>(row->number));
        write_typed(row->form, parameter.value, bytes);
    } else {
        bytes.text_string(platform::utf16_to_utf8(parameter.name));
        write_untyped(parameter.value, bytes);
    }
}

}  // namespace

std::optional<ContentType> read_media(CWSPEncoding& bytes) {
    if (const std::optional<std::uint32_t> code = bytes.small_integer()) {
        ContentType type;
        type.media = media_name(*code);
        return type;
    }
    const std::optional<std::uint8_t> first = bytes.peek();
    if (!first || *first < 0x20) return std::nullopt;
    const std::optional<std::u16string> text = take_text(bytes);
    if (!text) return std::nullopt;
    std::u16string_view fields = *text;
    ContentType type;
    type.media = spelt(take_field(fields));
    if (type.media.empty()) return std::nullopt;
    while (std::optional<Parameter> parameter = take_mime_parameter(fields, bytes))
        add_parameter(*std::move(parameter), type);
    return type;
}

std::optional<Disposition> read_disposition_kind(CWSPEncoding& bytes) {
    if (const std::optional<std::uint8_t> number = bytes.short_integer()) {
        return Disposition{kind_name(static_cast<std::uint8_t>(kFirstKind | *number)), {}};
    }
    const std::optional<std::u16string> text = take_text(bytes);
    if (!text) return std::nullopt;
    std::u16string_view fields = *text;
    Disposition disposition{std::u16string(take_field(fields)), {}};
    if (disposition.kind.empty()) return std::nullopt;
    if (const std::optional<std::uint8_t> octet = kind_octet(disposition.kind)) {
        disposition.kind = kind_name(*octet);
    }
    while (std::optional<Parameter> parameter = take_mime_parameter(fields, bytes))
        append(disposition.parameters, *std::move(parameter));
    return disposition;
}

void read_parameters(CWSPEncoding& bytes, std::vector<Parameter>& parameters) {
    while (!bytes.at_end()) {
        std::optional<Parameter> parameter = read_parameter(bytes);
        if (!parameter || !bytes.take_entry()) return;
        append(parameters, *std::move(parameter));
    }
}

void read_parameters(CWSPEncoding& bytes, ContentType& type) {
    while (!bytes.at_end()) {
        std::optional<Parameter> parameter = read_parameter(bytes);
        if (!parameter || !bytes.take_entry()) return;
        add_parameter(*std::move(parameter), type);
    }
}

bool can_write(const Parameter& parameter) {
    if (parameter.name.empty()) return false;
    if (parameter.value.kind != VZ_MMS_VALUE_RAW) return true;
    CWSPEncoding octets(parameter.value.bytes);
    return number_in_name(parameter) && octets.skip_value() && octets.at_end();
}

bool write_media(std::u16string_view media, WspWriter& bytes) {
    const std::optional<std::uint32_t> code = media_code(media);
    if (code) {
        bytes.integer(*code);
    } else {
        bytes.text_string(platform::utf16_to_utf8(media));
    }
    return !code || *code <= kMostShort;
}

void write_disposition_kind(std::u16string_view kind, WspWriter& bytes) {
    if (const std::optional<std::uint8_t> octet = kind_octet(kind)) {
        bytes.octet(*octet);
    } else {
        bytes.text_string(platform::utf16_to_utf8(kind));
    }
}

void write_charset(std::uint32_t charset, WspWriter& bytes) {
    if (charset == kNoCharset) return;
    const ParameterRow* row = find_parameter(u"charset");
    bytes.short_integer(static_cast<std::uint8_t>(row->number));
    bytes.integer(charset);
}

void write_parameters(const std::vector<Parameter>& parameters, WspWriter& bytes) {
    for (const Parameter& parameter : parameters) write_parameter(parameter, bytes);
}

}  // namespace vzapi::mms
