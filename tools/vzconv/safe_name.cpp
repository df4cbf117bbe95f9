#include "vzconv/safe_name.h"

#include <algorithm>
#include <optional>

#include "vzconv/ascii.h"
#include "vzconv/file_types.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

constexpr std::string_view kForbidden = "<>:\"|?*/\\";  // in names on Windows
constexpr std::string_view kTrimmed = ". ";
constexpr std::string_view kNoName = "unnamed";
constexpr std::size_t kLongestExtension = 16;  // what is longer belongs to the stem

struct UnitRange {
    char16_t first;
    char16_t last;
};

// Characters that a person does not see, or that make a name look like another one. The joiners U+200C and
// U+200D are none: words of some languages, and some emoji, need them.
constexpr UnitRange kHidden[] = {
    {0x0000, 0x001F},  // C0 controls
    {0x007F, 0x009F},  // DEL, C1 controls
    {0x00AD, 0x00AD},  // soft hyphen
    {0x061C, 0x061C},  // Arabic letter mark
    {0x180E, 0x180E},  // Mongolian vowel separator
    {0x200B, 0x200B},  // zero width space
    {0x200E, 0x200F},  // marks of direction
    {0x2028, 0x202E},  // separators, embeddings and overrides of direction
    {0x2060, 0x206F},  // invisible operators, isolates of direction
    {0xFEFF, 0xFEFF},  // byte order mark
    {0xFFF9, 0xFFFB},  // interlinear annotation
    {0xFFFE, 0xFFFF},  // no characters
};

bool is_hidden(char16_t unit) {
    return std::any_of(std::begin(kHidden), std::end(kHidden),
                       [unit](const UnitRange& range) { return unit >= range.first && unit <= range.last; });
}

bool is_forbidden(char16_t unit) {
    return unit < 0x80 && kForbidden.find(static_cast<char>(unit)) != std::string_view::npos;
}

std::string_view behind_last_separator(std::string_view name) {
    const std::size_t separator = name.find_last_of("/\\");
    return separator == std::string_view::npos ? name : name.substr(separator + 1);
}

std::string without_bad_characters(std::string_view name) {
    std::u16string units = utf16_from_utf8(name);
    for (char16_t& unit : units) {
        if (is_hidden(unit) || is_forbidden(unit)) unit = u'_';
    }
    return utf8_from_utf16(units);
}

std::string_view trimmed_end(std::string_view name) {
    const std::size_t last = name.find_last_not_of(kTrimmed);
    return last == std::string_view::npos ? std::string_view() : name.substr(0, last + 1);
}

std::string_view trimmed_ends(std::string_view name) {
    const std::size_t first = name.find_first_not_of(kTrimmed);
    return first == std::string_view::npos ? std::string_view() : trimmed_end(name.substr(first));
}

bool is_letter(char c) {
    return upper(c) >= 'A' && upper(c) <= 'Z';
}

// Letters and digits, not digits alone: "Part_1.2" and "J. R. Smith" have none.
bool is_extension(std::string_view text) {
    const auto is_known = [](char c) { return is_letter(c) || (c >= '0' && c <= '9'); };
    return text.size() <= kLongestExtension && std::all_of(text.begin(), text.end(), is_known) &&
           std::any_of(text.begin(), text.end(), is_letter);
}

// Where the extension begins, with its dot; the end of the name when there is none.
std::size_t extension_begin(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    const bool has_extension =
        dot != std::string_view::npos && dot != 0 && is_extension(name.substr(dot + 1));
    return has_extension ? dot : name.size();
}

// `stem` and `end`, the stem cut between two characters where both are too long together.
std::string joined_within_limit(std::string_view stem, std::string_view end) {
    const std::size_t room = kLongestName - end.size();
    if (stem.size() > room) {
        std::size_t length = room;
        while (length > 0 && (static_cast<unsigned char>(stem[length]) & 0xC0) == 0x80) --length;
        stem = trimmed_end(stem.substr(0, length));
    }
    return std::string(stem).append(end);
}

// Names that stand for devices on Windows, whatever follows behind a dot.
constexpr std::string_view kDevices[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$", "CLOCK$"};
constexpr std::string_view kNumberedDevices[] = {"COM", "LPT"};
constexpr std::string_view kDeviceNumbers[] = {"0", "1", "2", "3",        "4",        "5",       "6",
                                               "7", "8", "9", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};

bool is_device(std::string_view name) {
    const std::string_view stem = trimmed_end(name.substr(0, name.find('.')));
    for (const std::string_view device : kDevices) {
        if (equal_ignoring_case(stem, device)) return true;
    }
    for (const std::string_view device : kNumberedDevices) {
        if (!starts_ignoring_case(stem, device)) continue;
        const std::string_view number = stem.substr(device.size());
        if (std::find(std::begin(kDeviceNumbers), std::end(kDeviceNumbers), number) !=
            std::end(kDeviceNumbers))
            return true;
    }
    return false;
}

// Letters whose capitals stand at a distance, or beside them.
struct CaseRange {
    char16_t first;  // small letter
    char16_t last;
    char16_t distance;  // to the capital, which comes before; 1: capitals are even
};

constexpr CaseRange kCases[] = {
    {u'a', u'z', 32},                            // Latin
    {0x00E0, 0x00F6, 32},                        // Latin-1
    {0x00F8, 0x00FE, 32}, {0x0101, 0x0137, 1},   // Latin Extended-A
    {0x014B, 0x0177, 1},  {0x03B1, 0x03C1, 32},  // Greek
    {0x03C3, 0x03CB, 32}, {0x0430, 0x044F, 32},  // Cyrillic
    {0x0450, 0x045F, 80}, {0x0461, 0x0481, 1},  {0x048B, 0x04BF, 1},
    {0x04D1, 0x052F, 1},  {0x0561, 0x0586, 48},  // Armenian
    {0x1E01, 0x1E95, 1},                         // Latin Extended Additional
    {0x1EA1, 0x1EFF, 1},  {0xFF41, 0xFF5A, 32},  // full width
};

char16_t capital_of(char16_t unit) {
    for (const CaseRange& range : kCases) {
        if (unit < range.first || unit > range.last) continue;
        if (range.distance == 1 && unit % 2 == 0) return unit;
        return static_cast<char16_t>(unit - range.distance);
    }
    return unit;
}

}  // namespace

std::string safe_name(std::string_view name, std::string_view content_type) {
    const std::string clean = without_bad_characters(behind_last_separator(name));
    std::string_view stem = trimmed_ends(clean);
    if (stem.empty()) stem = kNoName;
    const std::size_t dot = extension_begin(stem);
    std::string end(stem.substr(dot));
    const std::string_view missing = missing_extension(content_type, end.empty() ? end : end.substr(1));
    if (missing.empty()) {
        stem = stem.substr(0, dot);
    } else {
        end = "." + std::string(missing);
    }
    const std::string prefix = is_device(std::string(stem) + end) ? "_" : "";
    return joined_within_limit(prefix + std::string(stem), end);
}

std::string numbered_name(std::string_view name, std::size_t number) {
    const std::size_t dot = extension_begin(name);
    return joined_within_limit(name.substr(0, dot),
                               " (" + std::to_string(number) + ")" + std::string(name.substr(dot)));
}

std::string folded_name(std::string_view name) {
    std::u16string units = utf16_from_utf8(name);
    for (char16_t& unit : units) unit = capital_of(unit);
    return utf8_from_utf16(units);
}

}  // namespace vzconv
