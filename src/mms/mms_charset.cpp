#include "mms/mms_charset.h"

#include <algorithm>
#include <array>

#include "mms/shifted_charsets.h"
#include "platform/code_page.h"
#include "platform/utf8.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr char16_t kMark = 0xFEFF;
constexpr char16_t kSwappedMark = 0xFFFE;

// Who converts.
enum class Method : std::uint8_t {
    System,
    Gb18030,  // the system, or what is left of it in GBK
    UsAscii,
    Latin1,
    Latin6,  // ISO-8859-10, -14 and -16: no Windows code page
    Latin8,
    Latin10,
    Utf8,
    Cesu8,
    Utf16,  // the byte-order mark decides
    Utf16Be,
    Utf16Le,
    Utf32,
    Utf32Be,
    Utf32Le,
    EucJp,
    Iso2022,
    Hz,
};

struct CharsetRow {
    std::uint32_t number;
    Method method;
    std::string_view names;  // in capitals, with blanks between them
    platform::SystemCharset system;
};

constexpr platform::SystemCharset kOwn = {0, nullptr};

constexpr CharsetRow kCharsets[] = {
    // clang-format off
    {3,    Method::UsAscii,  "US-ASCII ASCII ANSI_X3.4-1968 ISO646-US",      kOwn},
    {4,    Method::Latin1,   "ISO-8859-1 ISO_8859-1 ISO8859-1 LATIN1 L1",    kOwn},
    {5,    Method::System,   "ISO-8859-2 ISO_8859-2 ISO8859-2 LATIN2 L2",    {28592, "ISO-8859-2"}},
    {6,    Method::System,   "ISO-8859-3 ISO_8859-3 ISO8859-3 LATIN3 L3",    {28593, "ISO-8859-3"}},
    {7,    Method::System,   "ISO-8859-4 ISO_8859-4 ISO8859-4 LATIN4 L4",    {28594, "ISO-8859-4"}},
    {8,    Method::System,   "ISO-8859-5 ISO_8859-5 ISO8859-5 CYRILLIC",     {28595, "ISO-8859-5"}},
    {9,    Method::System,   "ISO-8859-6 ISO_8859-6 ISO8859-6 ARABIC",       {28596, "ISO-8859-6"}},
    {10,   Method::System,   "ISO-8859-7 ISO_8859-7 ISO8859-7 GREEK",        {28597, "ISO-8859-7"}},
    {11,   Method::System,   "ISO-8859-8 ISO_8859-8 ISO8859-8 HEBREW",       {28598, "ISO-8859-8"}},
    {12,   Method::System,   "ISO-8859-9 ISO_8859-9 ISO8859-9 LATIN5 L5",    {28599, "ISO-8859-9"}},
    {13,   Method::Latin6,   "ISO-8859-10 ISO_8859-10 ISO8859-10 LATIN6 L6", kOwn},
    {17,   Method::System,   "SHIFT_JIS SHIFT-JIS SJIS MS_KANJI",            {932, "CP932"}},
    {18,   Method::EucJp,    "EUC-JP EUCJP",                                 kOwn},
    {36,   Method::System,   "KS_C_5601-1987 KS_C_5601-1989 KSC_5601 KOREAN",{949, "CP949"}},
    {37,   Method::Iso2022,  "ISO-2022-KR",                                  kOwn},
    {38,   Method::System,   "EUC-KR EUCKR",                                 {949, "CP949"}},
    {39,   Method::Iso2022,  "ISO-2022-JP",                                  kOwn},
    {40,   Method::Iso2022,  "ISO-2022-JP-2",                                kOwn},
    {103,  Method::System,   "UNICODE-1-1-UTF-7",                            {65000, "UTF-7"}},
    {104,  Method::Iso2022,  "ISO-2022-CN",                                  kOwn},
    {105,  Method::Iso2022,  "ISO-2022-CN-EXT",                              kOwn},
    {106,  Method::Utf8,     "UTF-8 UTF8",                                   kOwn},
    {109,  Method::System,   "ISO-8859-13 ISO_8859-13 ISO8859-13",           {28603, "ISO-8859-13"}},
    {110,  Method::Latin8,   "ISO-8859-14 ISO_8859-14 ISO8859-14 LATIN8 L8", kOwn},
    {111,  Method::System,   "ISO-8859-15 ISO_8859-15 ISO8859-15 LATIN-9",   {28605, "ISO-8859-15"}},
    {112,  Method::Latin10,  "ISO-8859-16 ISO_8859-16 ISO8859-16 LATIN10 L10",kOwn},
    {113,  Method::System,   "GBK CP936 MS936 WINDOWS-936",                  {936, "CP936"}},
    {114,  Method::Gb18030,  "GB18030",                                      {54936, "GB18030"}},
    {1000, Method::Utf16,    "ISO-10646-UCS-2 UCS-2 UCS2",                   kOwn},
    {1001, Method::Utf32,    "ISO-10646-UCS-4 UCS-4 UCS4",                   kOwn},
    {1012, Method::System,   "UTF-7 UTF7",                                   {65000, "UTF-7"}},
    {1013, Method::Utf16Be,  "UTF-16BE",                                     kOwn},
    {1014, Method::Utf16Le,  "UTF-16LE",                                     kOwn},
    {1015, Method::Utf16,    "UTF-16 UTF16",                                 kOwn},
    {1016, Method::Cesu8,    "CESU-8",                                       kOwn},
    {1017, Method::Utf32,    "UTF-32 UTF32",                                 kOwn},
    {1018, Method::Utf32Be,  "UTF-32BE",                                     kOwn},
    {1019, Method::Utf32Le,  "UTF-32LE",                                     kOwn},
    {2009, Method::System,   "IBM850 CP850 850",                             {850, "CP850"}},
    {2011, Method::System,   "IBM437 CP437 437",                             {437, "CP437"}},
    {2024, Method::System,   "WINDOWS-31J CP932 MS932",                      {932, "CP932"}},
    {2025, Method::System,   "GB2312 EUC-CN GB_2312-80",                     {936, "CP936"}},
    {2026, Method::System,   "BIG5 BIG-5 CN-BIG5 CP950",                     {950, "CP950"}},
    {2084, Method::System,   "KOI8-R",                                       {20866, "KOI8-R"}},
    {2085, Method::Hz,       "HZ-GB-2312",                                   kOwn},
    {2086, Method::System,   "IBM866 CP866 866",                             {866, "CP866"}},
    {2088, Method::System,   "KOI8-U",                                       {21866, "KOI8-U"}},
    {2101, Method::System,   "BIG5-HKSCS",                                   {950, "BIG5-HKSCS"}},
    {2109, Method::System,   "WINDOWS-874 CP874",                            {874, "CP874"}},
    {2250, Method::System,   "WINDOWS-1250 CP1250",                          {1250, "CP1250"}},
    {2251, Method::System,   "WINDOWS-1251 CP1251",                          {1251, "CP1251"}},
    {2252, Method::System,   "WINDOWS-1252 CP1252",                          {1252, "CP1252"}},
    {2253, Method::System,   "WINDOWS-1253 CP1253",                          {1253, "CP1253"}},
    {2254, Method::System,   "WINDOWS-1254 CP1254",                          {1254, "CP1254"}},
    {2255, Method::System,   "WINDOWS-1255 CP1255",                          {1255, "CP1255"}},
    {2256, Method::System,   "WINDOWS-1256 CP1256",                          {1256, "CP1256"}},
    {2257, Method::System,   "WINDOWS-1257 CP1257",                          {1257, "CP1257"}},
    {2258, Method::System,   "WINDOWS-1258 CP1258",                          {1258, "CP1258"}},
    {2259, Method::System,   "TIS-620 TIS620 ISO-8859-11",                   {874, "CP874"}},
    // clang-format on
};

constexpr bool charsets_are_in_order() {
    for (std::size_t i = 1; i < std::size(kCharsets); ++i) {
        if (kCharsets[i - 1].number >= kCharsets[i].number) return false;
    }
    return true;
}
static_assert(charsets_are_in_order());

constexpr platform::SystemCharset kGbk = {936, "CP936"};

// The characters of 0xA0 to 0xFF; those below are those of ISO-8859-1.
using UpperHalf = std::array<char16_t, 96>;

constexpr UpperHalf kLatin6 = {
    // clang-format off
    0x00A0, 0x0104, 0x0112, 0x0122, 0x012A, 0x0128, 0x0136, 0x00A7, 0x013B, 0x0110, 0x0160, 0x0166,
    0x017D, 0x00AD, 0x016A, 0x014A, 0x00B0, 0x0105, 0x0113, 0x0123, 0x012B, 0x0129, 0x0137, 0x00B7,
    0x013C, 0x0111, 0x0161, 0x0167, 0x017E, 0x2015, 0x016B, 0x014B, 0x0100, 0x00C1, 0x00C2, 0x00C3,
    0x00C4, 0x00C5, 0x00C6, 0x012E, 0x010C, 0x00C9, 0x0118, 0x00CB, 0x0116, 0x00CD, 0x00CE, 0x00CF,
    0x00D0, 0x0145, 0x014C, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x0168, 0x00D8, 0x0172, 0x00DA, 0x00DB,
    0x00DC, 0x00DD, 0x00DE, 0x00DF, 0x0101, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E6, 0x012F,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x0117, 0x00ED, 0x00EE, 0x00EF, 0x00F0, 0x0146, 0x014D, 0x00F3,
    0x00F4, 0x00F5, 0x00F6, 0x0169, 0x00F8, 0x0173, 0x00FA, 0x00FB, 0x00FC, 0x00FD, 0x00FE, 0x0138,
    // clang-format on
};

constexpr UpperHalf kLatin8 = {
    // clang-format off
    0x00A0, 0x1E02, 0x1E03, 0x00A3, 0x010A, 0x010B, 0x1E0A, 0x00A7, 0x1E80, 0x00A9, 0x1E82, 0x1E0B,
    0x1EF2, 0x00AD, 0x00AE, 0x0178, 0x1E1E, 0x1E1F, 0x0120, 0x0121, 0x1E40, 0x1E41, 0x00B6, 0x1E56,
    0x1E81, 0x1E57, 0x1E83, 0x1E60, 0x1EF3, 0x1E84, 0x1E85, 0x1E61, 0x00C0, 0x00C1, 0x00C2, 0x00C3,
    0x00C4, 0x00C5, 0x00C6, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC, 0x00CD, 0x00CE, 0x00CF,
    0x0174, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x1E6A, 0x00D8, 0x00D9, 0x00DA, 0x00DB,
    0x00DC, 0x00DD, 0x0176, 0x00DF, 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E6, 0x00E7,
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00ED, 0x00EE, 0x00EF, 0x0175, 0x00F1, 0x00F2, 0x00F3,
    0x00F4, 0x00F5, 0x00F6, 0x1E6B, 0x00F8, 0x00F9, 0x00FA, 0x00FB, 0x00FC, 0x00FD, 0x0177, 0x00FF,
    // clang-format on
};

constexpr UpperHalf kLatin10 = {
    // clang-format off
    0x00A0, 0x0104, 0x0105, 0x0141, 0x20AC, 0x201E, 0x0160, 0x00A7, 0x0161, 0x00A9, 0x0218, 0x00AB,
    0x0179, 0x00AD, 0x017A, 0x017B, 0x00B0, 0x00B1, 0x010C, 0x0142, 0x017D, 0x201D, 0x00B6, 0x00B7,
    0x017E, 0x010D, 0x0219, 0x00BB, 0x0152, 0x0153, 0x0178, 0x017C, 0x00C0, 0x00C1, 0x00C2, 0x0102,
    0x00C4, 0x0106, 0x00C6, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC, 0x00CD, 0x00CE, 0x00CF,
    0x0110, 0x0143, 0x00D2, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x015A, 0x0170, 0x00D9, 0x00DA, 0x00DB,
    0x00DC, 0x0118, 0x021A, 0x00DF, 0x00E0, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x0107, 0x00E6, 0x00E7,
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x00EC, 0x00ED, 0x00EE, 0x00EF, 0x0111, 0x0144, 0x00F2, 0x00F3,
    0x00F4, 0x0151, 0x00F6, 0x015B, 0x0171, 0x00F9, 0x00FA, 0x00FB, 0x00FC, 0x0119, 0x021B, 0x00FF,
    // clang-format on
};

const CharsetRow* find_charset(std::uint32_t number) noexcept {
    const auto* row =
        std::lower_bound(std::begin(kCharsets), std::end(kCharsets), number,
                         [](const CharsetRow& each, std::uint32_t wanted) { return each.number < wanted; });
    return row != std::end(kCharsets) && row->number == number ? row : nullptr;
}

const UpperHalf* upper_half(Method method) noexcept {
    switch (method) {
        case Method::Latin6:
            return &kLatin6;
        case Method::Latin8:
            return &kLatin8;
        case Method::Latin10:
            return &kLatin10;
        default:
            return nullptr;
    }
}

std::uint8_t byte_of(char byte) {
    return static_cast<std::uint8_t>(byte);
}

bool is_ascii(std::string_view bytes) noexcept {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte_of(byte) < 0x80; });
}

bool is_below(std::u16string_view text, char16_t limit) noexcept {
    return std::all_of(text.begin(), text.end(), [limit](char16_t unit) { return unit < limit; });
}

bool is_continuation(std::string_view bytes, std::size_t at) noexcept {
    return at < bytes.size() && (byte_of(bytes[at]) & 0xC0U) == 0x80;
}

// How many bytes the well-formed character at `at` has; 0: none is there (Unicode 15, table 3-7).
std::size_t utf8_length(std::string_view bytes, std::size_t at) noexcept {
    const std::uint8_t lead = byte_of(bytes[at]);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4 || !is_continuation(bytes, at + 1)) return 0;
    const std::uint8_t second = byte_of(bytes[at + 1]);
    if (lead < 0xE0) return 2;
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F)) return 0;
    if ((lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F)) return 0;
    if (!is_continuation(bytes, at + 2)) return 0;
    if (lead < 0xF0) return 3;
    return is_continuation(bytes, at + 3) ? 4 : 0;
}

bool is_utf8(std::string_view bytes) noexcept {
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = utf8_length(bytes, at);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

std::u16string widened(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text += static_cast<char16_t>(byte_of(byte));
    return text;
}

std::string narrowed(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text) bytes += static_cast<char>(unit);
    return bytes;
}

std::u16string decode_upper_half(const UpperHalf& upper, std::string_view bytes) {
    std::u16string text = widened(bytes);
    for (char16_t& unit : text) {
        if (unit >= 0xA0) unit = upper[unit - 0xA0U];
    }
    return text;
}

// Characters that the charset does not have are left out.
std::string encode_upper_half(const UpperHalf& upper, std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        const auto* found = std::find(upper.begin(), upper.end(), unit);
        if (unit < 0xA0) bytes += static_cast<char>(unit);
        if (unit >= 0xA0 && found != upper.end()) bytes += static_cast<char>(0xA0 + (found - upper.begin()));
    }
    return bytes;
}

// UTF-8 of which each surrogate may stand for itself (Unicode technical report 26).
std::u16string decode_cesu8(std::string_view bytes) {
    std::u16string text;
    std::size_t done = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const bool is_surrogate = byte_of(bytes[at]) == 0xED && is_continuation(bytes, at + 1) &&
                                  byte_of(bytes[at + 1]) >= 0xA0 && is_continuation(bytes, at + 2);
        if (!is_surrogate) continue;
        platform::append_utf16_from_utf8(bytes.substr(done, at - done), text);
        text += static_cast<char16_t>(0xD000U | (byte_of(bytes[at + 1]) & 0x3FU) << 6U |
                                      (byte_of(bytes[at + 2]) & 0x3FU));
        at += 2;
        done = at + 1;
    }
    platform::append_utf16_from_utf8(bytes.substr(done), text);
    return text;
}

std::string encode_cesu8(std::u16string_view text) {
    std::string bytes;
    const auto add = [&bytes](std::uint32_t byte) { bytes += static_cast<char>(byte); };
    for (const char16_t unit : text) {
        if (unit < 0x80) {
            add(unit);
        } else if (unit < 0x800) {
            add(0xC0U | unit >> 6U);
            add(0x80U | (unit & 0x3FU));
        } else {
            add(0xE0U | unit >> 12U);
            add(0x80U | (unit >> 6U & 0x3FU));
            add(0x80U | (unit & 0x3FU));
        }
    }
    return bytes;
}

enum class Order : std::uint8_t { Marked, Big, Little };

// The unit of `size` bytes at the front.
std::uint32_t unit_at(std::string_view bytes, std::size_t size, bool is_little) {
    std::uint32_t unit = 0;
    for (std::size_t i = 0; i < size; ++i) {
        unit = unit << 8U | byte_of(bytes[is_little ? size - 1 - i : i]);
    }
    return unit;
}

void append_unit(std::uint32_t unit, std::size_t size, bool is_little, std::string& bytes) {
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t shift = 8 * (is_little ? i : size - 1 - i);
        bytes += static_cast<char>(unit >> shift & 0xFFU);
    }
}

void append_code_point(std::uint32_t code, std::u16string& text) {
    if (code < 0x10000) {
        const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
        text += is_surrogate ? kReplacement : static_cast<char16_t>(code);
    } else if (code <= 0x10FFFF) {
        text += static_cast<char16_t>(0xD7C0 + (code >> 10U));
        text += static_cast<char16_t>(0xDC00 + (code & 0x3FFU));
    } else {
        text += kReplacement;
    }
}

std::u16string decode_units(std::size_t size, Order order, std::string_view bytes) {
    bool is_little = order == Order::Little;
    if (bytes.size() >= size) {
        if (order == Order::Marked) is_little = unit_at(bytes, size, true) == kMark;
        if (unit_at(bytes, size, is_little) == kMark) bytes.remove_prefix(size);
    }
    std::u16string text;
    text.reserve(bytes.size() / size + 1);
    for (; bytes.size() >= size; bytes.remove_prefix(size)) {
        const std::uint32_t unit = unit_at(bytes, size, is_little);
        if (size == 2) {
            text += static_cast<char16_t>(unit);
        } else {
            append_code_point(unit, text);
        }
    }
    if (!bytes.empty()) text += kReplacement;
    return text;
}

bool is_high_surrogate(char16_t unit) {
    return (unit & 0xFC00U) == 0xD800;
}

bool is_low_surrogate(char16_t unit) {
    return (unit & 0xFC00U) == 0xDC00;
}

// A text that begins like a byte-order mark has one put before it.
std::string encode_units(std::size_t size, Order order, std::u16string_view text) {
    const bool is_little = order == Order::Little;
    std::string bytes;
    bytes.reserve((text.size() + 1) * size);
    if (!text.empty() && (text[0] == kMark || (text[0] == kSwappedMark && order == Order::Marked))) {
        append_unit(kMark, size, is_little, bytes);
    }
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::uint32_t unit = text[at];
        if (size == 4 && is_high_surrogate(text[at]) && at + 1 < text.size() &&
            is_low_surrogate(text[at + 1])) {
            unit = 0x10000 + ((unit & 0x3FFU) << 10U | (text[++at] & 0x3FFU));
        } else if (size == 4 && (is_high_surrogate(text[at]) || is_low_surrogate(text[at]))) {
            unit = kReplacement;
        }
        append_unit(unit, size, is_little, bytes);
    }
    return bytes;
}

Order order_of(Method method) {
    if (method == Method::Utf16 || method == Method::Utf32) return Order::Marked;
    return method == Method::Utf16Le || method == Method::Utf32Le ? Order::Little : Order::Big;
}

std::size_t unit_size_of(Method method) {
    if (method == Method::Utf16 || method == Method::Utf16Be || method == Method::Utf16Le) return 2;
    return method == Method::Utf32 || method == Method::Utf32Be || method == Method::Utf32Le ? 4 : 1;
}

std::u16string decode_by_system(const CharsetRow& row, std::string_view bytes) {
    std::u16string text;
    if (platform::append_utf16(row.system, bytes, text)) return text;
    if (row.method == Method::Gb18030 && platform::append_utf16(kGbk, bytes, text)) return text;
    return widened(bytes);
}

std::u16string decode_guessed(std::string_view bytes) {
    return is_utf8(bytes) ? platform::utf8_to_utf16(bytes) : widened(bytes);
}

std::u16string decode_by_row(const CharsetRow& row, std::string_view bytes) {
    std::u16string text;
    switch (row.method) {
        case Method::System:
        case Method::Gb18030:
            return decode_by_system(row, bytes);
        case Method::UsAscii:
            return decode_guessed(bytes);
        case Method::Latin1:
            return widened(bytes);
        case Method::Latin6:
        case Method::Latin8:
        case Method::Latin10:
            return decode_upper_half(*upper_half(row.method), bytes);
        case Method::Utf8:
            return platform::utf8_to_utf16(bytes);
        case Method::Cesu8:
            return decode_cesu8(bytes);
        case Method::EucJp:
            append_euc_jp(bytes, text);
            return text;
        case Method::Iso2022:
            append_iso_2022(bytes, text);
            return text;
        case Method::Hz:
            append_hz(bytes, text);
            return text;
        default:
            return decode_units(unit_size_of(row.method), order_of(row.method), bytes);
    }
}

// The bytes of the text, or whatever else comes closest: who asks compares.
std::string encode_by_row(const CharsetRow& row, std::u16string_view text) {
    std::string bytes;
    switch (row.method) {
        case Method::System:
            if (!platform::append_bytes(row.system, text, bytes)) bytes.clear();
            return bytes;
        case Method::Gb18030:
            if (!platform::append_bytes(row.system, text, bytes) &&
                !platform::append_bytes(kGbk, text, bytes)) {
                bytes.clear();
            }
            return bytes;
        case Method::UsAscii:
        case Method::Latin1:
            return narrowed(text);
        case Method::Latin6:
        case Method::Latin8:
        case Method::Latin10:
            return encode_upper_half(*upper_half(row.method), text);
        case Method::Cesu8:
            return encode_cesu8(text);
        case Method::EucJp:
        case Method::Iso2022:
        case Method::Hz:
            return bytes;
        default:
            return encode_units(unit_size_of(row.method), order_of(row.method), text);
    }
}

bool holds(std::uint32_t charset, std::u16string_view text, std::string_view bytes) {
    if (charset == kUsAscii) return is_below(text, 0x80);
    return decode_text(charset, bytes) == text;
}

bool same_name(std::u16string_view text, std::string_view upper) noexcept {
    return versit::equals_ignoring_case(text, upper);
}

bool has_name(const CharsetRow& row, std::u16string_view name) noexcept {
    std::string_view names = row.names;
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(' '), names.size());
        if (same_name(name, names.substr(0, end))) return true;
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return false;
}

}  // namespace

std::u16string decode_text(std::uint32_t charset, std::string_view bytes) {
    if (charset == kNoCharset) return decode_guessed(bytes);
    const CharsetRow* row = find_charset(charset);
    return row == nullptr ? widened(bytes) : decode_by_row(*row, bytes);
}

std::string encode_text(std::uint32_t& charset, std::u16string_view text) {
    if (charset == kNoCharset && is_below(text, 0x80)) return narrowed(text);
    if (charset != kNoCharset && charset != kUtf8) {
        const CharsetRow* row = find_charset(charset);
        std::string bytes = row == nullptr ? narrowed(text) : encode_by_row(*row, text);
        if (holds(charset, text, bytes)) return bytes;
    }
    charset = kUtf8;
    return platform::utf16_to_utf8(text);
}

std::uint32_t guess_charset(std::string_view bytes) noexcept {
    if (is_ascii(bytes)) return kNoCharset;
    return is_utf8(bytes) ? kUtf8 : kLatin1;
}

std::size_t unit_size(std::uint32_t charset) noexcept {
    const CharsetRow* row = find_charset(charset);
    return row == nullptr ? 1 : unit_size_of(row->method);
}

std::optional<std::uint32_t> charset_of_name(std::u16string_view name) noexcept {
    const auto* row = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                   [name](const CharsetRow& each) { return has_name(each, name); });
    if (row == std::end(kCharsets)) return std::nullopt;
    return row->number;
}

}  // namespace vzapi::mms
