#include "platform/xml_encoding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/code_page.h"
#include "platform/utf8.h"

namespace vzapi::platform {
namespace {

using namespace std::string_view_literals;

enum class Encoding { Utf8, Utf16LittleEndian, Utf16BigEndian, Latin1, Ascii, ShiftJis };

struct Signature {
    std::string_view bytes;
    std::size_t mark;  // how many of them are a byte-order mark and no text
    Encoding encoding;
};

// What a document may begin with (XML 1.0, appendix F).
constexpr Signature kSignatures[] = {
    {"\xEF\xBB\xBF"sv, 3, Encoding::Utf8},       {"\xFF\xFE"sv, 2, Encoding::Utf16LittleEndian},
    {"\xFE\xFF"sv, 2, Encoding::Utf16BigEndian}, {"<\0"sv, 0, Encoding::Utf16LittleEndian},
    {"\0<"sv, 0, Encoding::Utf16BigEndian},
};

struct CharsetName {
    std::string_view name;  // in capitals
    Encoding encoding;
};

// What a declaration may say of a document that has no signature. Text that was written from UTF-16 and saved
// as bytes still says UTF-16.
constexpr CharsetName kCharsetNames[] = {
    {"UTF-8", Encoding::Utf8},           {"UTF8", Encoding::Utf8},      {"UTF-16", Encoding::Utf8},
    {"US-ASCII", Encoding::Ascii},       {"ASCII", Encoding::Ascii},    {"ISO-8859-1", Encoding::Latin1},
    {"ISO8859-1", Encoding::Latin1},     {"LATIN1", Encoding::Latin1},  {"SHIFT_JIS", Encoding::ShiftJis},
    {"SHIFT-JIS", Encoding::ShiftJis},   {"SJIS", Encoding::ShiftJis},  {"X-SJIS", Encoding::ShiftJis},
    {"WINDOWS-31J", Encoding::ShiftJis}, {"CP932", Encoding::ShiftJis},
};

constexpr std::string_view kBlanks = " \t\r\n";

char to_upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

void skip_blanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// An instruction may have a name that goes on behind "xml".
bool begins_with_declaration(std::string_view document) {
    constexpr std::string_view kBegin = "<?xml";
    return document.starts_with(kBegin) && document.find_first_of(kBlanks) == kBegin.size();
}

// The value of encoding="..." in the declaration; empty when there is none. Whether the declaration is as it
// has to be is found out later, when its characters are known.
std::string_view declared_charset(std::string_view document) {
    if (!begins_with_declaration(document)) return {};
    std::string_view declaration = document.substr(0, document.find("?>"));
    const std::size_t at = declaration.find("encoding");
    if (at == std::string_view::npos) return {};
    declaration.remove_prefix(at + "encoding"sv.size());
    skip_blanks(declaration);
    if (!declaration.starts_with('=')) return {};
    declaration.remove_prefix(1);
    skip_blanks(declaration);
    if (declaration.empty()) return {};
    const std::string_view value = declaration.substr(1);
    return value.substr(0, value.find(declaration.front()));
}

std::optional<Encoding> declared_encoding(std::string_view document) {
    const std::string_view charset = declared_charset(document);
    if (charset.empty()) return Encoding::Utf8;
    const auto is_named = [&](const CharsetName& row) {
        return std::equal(charset.begin(), charset.end(), row.name.begin(), row.name.end(),
                          [](char letter, char capital) { return to_upper(letter) == capital; });
    };
    const auto* const row = std::find_if(std::begin(kCharsetNames), std::end(kCharsetNames), is_named);
    if (row == std::end(kCharsetNames)) return std::nullopt;
    return row->encoding;
}

std::optional<std::u16string> decode_utf8(std::string_view bytes) {
    std::u16string text = utf8_to_utf16(bytes);
    // Only well-formed bytes are the UTF-8 of their own text.
    if (utf16_to_utf8(text) != bytes) return std::nullopt;
    return text;
}

std::optional<std::u16string> decode_utf16(std::string_view bytes, std::size_t low_byte) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto low = static_cast<std::uint8_t>(bytes[2 * i + low_byte]);
        const auto high = static_cast<std::uint8_t>(bytes[2 * i + 1 - low_byte]);
        text[i] = static_cast<char16_t>(high << 8 | low);
    }
    return text;
}

std::u16string decode_latin1(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return char16_t{static_cast<std::uint8_t>(byte)}; });
    return text;
}

std::optional<std::u16string> decode_ascii(std::string_view bytes) {
    std::u16string text = decode_latin1(bytes);
    if (std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0x7F; })) return std::nullopt;
    return text;
}

std::optional<std::u16string> decode_shift_jis(std::string_view bytes) {
    std::u16string text;
    if (!append_utf16_from_shift_jis(bytes, text)) return std::nullopt;
    return text;
}

std::optional<std::u16string> decode(Encoding encoding, std::string_view bytes) {
    switch (encoding) {
        case Encoding::Utf8:
            break;
        case Encoding::Utf16LittleEndian:
            return decode_utf16(bytes, 0);
        case Encoding::Utf16BigEndian:
            return decode_utf16(bytes, 1);
        case Encoding::Latin1:
            return decode_latin1(bytes);
        case Encoding::Ascii:
            return decode_ascii(bytes);
        case Encoding::ShiftJis:
            return decode_shift_jis(bytes);
    }
    return decode_utf8(bytes);
}

}  // namespace

std::optional<std::u16string> decode_xml(std::string_view document) {
    for (const Signature& signature : kSignatures) {
        if (document.starts_with(signature.bytes)) {
            return decode(signature.encoding, document.substr(signature.mark));
        }
    }
    const std::optional<Encoding> encoding = declared_encoding(document);
    return encoding ? decode(*encoding, document) : std::nullopt;
}

}  // namespace vzapi::platform
