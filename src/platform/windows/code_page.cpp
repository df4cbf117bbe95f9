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

}  // namespace

std::string system_charset() {
    const UINT code_page = GetACP();
    return code_page == CP_UTF8 ? "UTF-8" : "CP" + std::to_string(code_page);
}

void append_utf16(CodePage code_page, std::string_view bytes, std::u16string& out) {
    const UINT number = code_page == CodePage::SystemDefault ? GetACP() : static_cast<UINT>(code_page);
    if (number == CP_UTF8) return append_utf16_from_utf8(bytes, out);
    while (!bytes.empty()) {
        const std::size_t part = next_part(number, bytes);
        append_part(number, bytes.substr(0, part), out);
        bytes.remove_prefix(part);
    }
}

}  // namespace vzapi::platform
