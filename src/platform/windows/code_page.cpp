#include "platform/code_page.h"

#include <windows.h>

#include <array>

#include "platform/utf8.h"

namespace vzapi::platform {
namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// The system converts at most this many bytes in one call; far below INT_MAX, so that no length overflows.
constexpr std::size_t kMostBytes = 1U << 20;

// True for the first byte of a two-byte character.
using LeadBytes = std::array<bool, 256>;

LeadBytes lead_bytes(UINT code_page) {
    LeadBytes lead{};
    CPINFO info{};
    if (!GetCPInfo(code_page, &info)) return lead;
    for (std::size_t i = 0; i + 1 < MAX_LEADBYTES && info.LeadByte[i] != 0; i += 2) {
        for (std::size_t byte = info.LeadByte[i]; byte <= info.LeadByte[i + 1]; ++byte) lead[byte] = true;
    }
    return lead;
}

// How many of the bytes to convert next: all, or as many whole characters as one call takes.
std::size_t next_part(UINT code_page, std::string_view bytes) {
    if (bytes.size() <= kMostBytes) return bytes.size();
    const LeadBytes lead = lead_bytes(code_page);
    std::size_t end = 0;
    while (end < kMostBytes - 1) end += lead[static_cast<unsigned char>(bytes[end])] ? 2 : 1;
    return end;
}

// False when a byte is not defined.
bool append_defined_part(UINT code_page, std::string_view bytes, std::u16string& out) {
    const int size = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(code_page, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
    if (units <= 0) return false;
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(units));
    auto* const end = reinterpret_cast<wchar_t*>(&out[before]);
    return MultiByteToWideChar(code_page, MB_ERR_INVALID_CHARS, bytes.data(), size, end, units) == units;
}

// For a code page that the system cannot convert: ASCII is all that is certain.
void append_ascii(std::string_view bytes, std::u16string& out) {
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        out += code < 0x80 ? static_cast<char16_t>(code) : char16_t{0xFFFD};
    }
}

void append_part(UINT code_page, std::string_view bytes, std::u16string& out) {
    const int size = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(code_page, 0, bytes.data(), size, nullptr, 0);
    if (units <= 0) return append_ascii(bytes, out);
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(units));
    MultiByteToWideChar(code_page, 0, bytes.data(), size, reinterpret_cast<wchar_t*>(&out[before]), units);
}

void append_parts(UINT code_page, std::string_view bytes, std::u16string& out) {
    while (!bytes.empty()) {
        const std::size_t part = next_part(code_page, bytes);
        append_part(code_page, bytes.substr(0, part), out);
        bytes.remove_prefix(part);
    }
}

// UTF-7 and GB18030, where no lead byte tells how long a character is: converted in one call, which takes an
// int.
constexpr UINT kGb18030 = 54936;
constexpr std::size_t kMostAtOnce = 1U << 28;

bool has_states(UINT code_page) {
    return code_page == CP_UTF7 || code_page == kGb18030;
}

}  // namespace

std::string system_charset() {
    const UINT code_page = GetACP();
    return code_page == CP_UTF8 ? "UTF-8" : "CP" + std::to_string(code_page);
}

void append_utf16(CodePage code_page, std::string_view bytes, std::u16string& out) {
    const UINT number = code_page == CodePage::SystemDefault ? GetACP() : static_cast<UINT>(code_page);
    if (number == CP_UTF8) return append_utf16_from_utf8(bytes, out);
    append_parts(number, bytes, out);
}

bool append_utf16(const SystemCharset& charset, std::string_view bytes, std::u16string& out) {
    if (!IsValidCodePage(charset.code_page)) return false;
    if (!has_states(charset.code_page)) {
        append_parts(charset.code_page, bytes, out);
    } else if (bytes.size() <= kMostAtOnce) {
        if (!bytes.empty()) append_part(charset.code_page, bytes, out);
    } else {
        return false;
    }
    return true;
}

bool append_bytes(const SystemCharset& charset, std::u16string_view text, std::string& out) {
    if (!IsValidCodePage(charset.code_page) || text.size() > kMostAtOnce) return false;
    if (text.empty()) return true;
    const auto* units = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    // The code pages with states do not take the flag and cannot tell; the two hold all of Unicode.
    const bool has_all = has_states(charset.code_page);
    const DWORD flags = has_all ? 0 : WC_NO_BEST_FIT_CHARS;
    BOOL lacks_one = FALSE;
    BOOL* const lacks = has_all ? nullptr : &lacks_one;
    const int size = WideCharToMultiByte(charset.code_page, flags, units, length, nullptr, 0, nullptr, lacks);
    if (size <= 0 || lacks_one) return false;
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(size));
    WideCharToMultiByte(charset.code_page, flags, units, length, &out[before], size, nullptr, nullptr);
    return true;
}

bool append_utf16_from_shift_jis(std::string_view bytes, std::u16string& out) {
    constexpr auto number = static_cast<UINT>(CodePage::ShiftJis);
    const std::size_t before = out.size();
    while (!bytes.empty()) {
        const std::size_t part = next_part(number, bytes);
        if (!append_defined_part(number, bytes.substr(0, part), out)) return false;
        bytes.remove_prefix(part);
    }
    // The byte 80 is no character; this system alone makes it one.
    return out.find(u'\x80', before) == std::u16string::npos;
}

}  // namespace vzapi::platform
