// Both directions work through a small buffer, whose content is appended when it is full: the result needs no
// zero-filling first, and grows geometrically whatever the text.
#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vzapi::platform {
namespace {

using Byte = unsigned char;

constexpr char16_t kReplacement = 0xFFFD;
constexpr std::ptrdiff_t kRun = 16;   // characters of an ASCII run that are looked at and copied together
constexpr std::size_t kChunk = 1024;  // characters of the source that are turned over between two appends

// What may follow a lead byte (Unicode 15, table 3-7). `trailing` 0: no lead byte.
struct Lead {
    Byte trailing = 0;
    Byte second_low = 0;  // the range of the second byte; those after it are 80..BF
    Byte second_high = 0;
    Byte payload = 0;  // the bits of the lead byte that belong to the code point
};

struct LeadRow {
    Byte first, last;
    Lead lead;
};

constexpr LeadRow kLeadRows[] = {
    {0xC2, 0xDF, {1, 0x80, 0xBF, 0x1F}}, {0xE0, 0xE0, {2, 0xA0, 0xBF, 0x0F}},
    {0xE1, 0xEC, {2, 0x80, 0xBF, 0x0F}}, {0xED, 0xED, {2, 0x80, 0x9F, 0x0F}},
    {0xEE, 0xEF, {2, 0x80, 0xBF, 0x0F}}, {0xF0, 0xF0, {3, 0x90, 0xBF, 0x07}},
    {0xF1, 0xF3, {3, 0x80, 0xBF, 0x07}}, {0xF4, 0xF4, {3, 0x80, 0x8F, 0x07}},
};

constexpr auto kLeads = [] {
    std::array<Lead, 256> leads{};
    for (const LeadRow& row : kLeadRows) {
        for (std::size_t byte = row.first; byte <= row.last; ++byte) leads[byte] = row.lead;
    }
    return leads;
}();

constexpr bool is_surrogate(char16_t unit) {
    return (unit & 0xF800) == 0xD800;
}
constexpr bool is_high_surrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool is_low_surrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

// The bits that no ASCII character has, in eight bytes of units.
template <class Unit>
constexpr std::uint64_t kNotAscii = sizeof(Unit) == 1 ? 0x8080808080808080U : 0xFF80FF80FF80FF80U;

template <class Unit>
bool is_ascii_run(const Unit* source) {
    std::array<std::uint64_t, kRun * sizeof(Unit) / sizeof(std::uint64_t)> words;
    std::memcpy(words.data(), source, sizeof words);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words) all |= word;
    return (all & kNotAscii<Unit>) == 0;
}

// A run of ASCII is widened and narrowed all at once.
using Bytes [[gnu::vector_size(kRun)]] = Byte;
using Units [[gnu::vector_size(2 * kRun)]] = std::uint16_t;
static_assert(std::endian::native == std::endian::little);

void copy_run(const Byte* source, char16_t* out) {
    Bytes bytes;
    std::memcpy(&bytes, source, sizeof bytes);
    const Units units = __builtin_convertvector(bytes, Units);
    std::memcpy(out, &units, sizeof units);
}

void copy_run(const char16_t* source, char* out) {
    Bytes first;
    Bytes second;
    std::memcpy(&first, source, sizeof first);
    std::memcpy(&second, source + kRun / 2, sizeof second);
    // The low byte of each unit.
    const Bytes run =
        __builtin_shufflevector(first, second, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    std::memcpy(out, &run, sizeof run);
}

// Texts up to this length get room for the most that they can become: counting would cost more.
constexpr std::size_t kShort = 256;

// Room for `more` units, at least doubling, so that many small appends stay linear.
template <class String>
void make_room(String& out, std::size_t more) {
    if (out.capacity() - out.size() < more) out.reserve(std::max(out.size() + more, 2 * out.capacity()));
}

// The sum of `weigh`, at most 2 for a unit, over all units. Blocks are summed in the units' own width, in
// which the processor adds many at a time.
template <class Unit, class Weigh>
std::size_t sum(const Unit* source, const Unit* end, Weigh weigh) {
    constexpr std::ptrdiff_t kBlock = 64;
    std::size_t total = 0;
    for (; end - source >= kBlock; source += kBlock) {
        Unit block = 0;
        for (std::ptrdiff_t i = 0; i < kBlock; ++i) block = static_cast<Unit>(block + weigh(source[i]));
        total += block;
    }
    for (; source != end; ++source) total += weigh(*source);
    return total;
}

// The units that well-formed text becomes. Ill-formed text may need more.
std::size_t count_units(const Byte* source, const Byte* end) {
    return sum(source, end, [](Byte byte) {
        return static_cast<Byte>(((byte & 0xC0) != 0x80 ? 1 : 0) + (byte >= 0xF0 ? 1 : 0));
    });
}

// The bytes that well-formed text becomes. An unpaired surrogate needs one more.
std::size_t count_bytes(std::u16string_view text) {
    return text.size() + sum(text.data(), text.data() + text.size(), [](char16_t unit) {
               return static_cast<char16_t>((unit >= 0x80 ? 1 : 0) +
                                            (unit >= 0x800 && !is_surrogate(unit) ? 1 : 0));
           });
}

// Takes one character, or one maximal ill-formed part, from a source that is not at its end; U+FFFD for the
// latter.
char32_t take_character(const Byte*& source, const Byte* end) {
    const Byte first = *source++;
    if (first < 0x80) return first;
    const Lead& lead = kLeads[first];
    if (lead.trailing == 0) return kReplacement;
    if (source == end || *source < lead.second_low || *source > lead.second_high) return kReplacement;
    char32_t character = static_cast<char32_t>(first & lead.payload) << 6 | (*source++ & 0x3FU);
    for (int i = 1; i < lead.trailing; ++i) {
        if (source == end || (*source & 0xC0) != 0x80) return kReplacement;
        character = character << 6 | (*source++ & 0x3FU);
    }
    return character;
}

char16_t* put_units(char32_t character, char16_t* out) {
    if (character < 0x10000) {
        *out++ = static_cast<char16_t>(character);
    } else {
        *out++ = static_cast<char16_t>(0xD7C0 + (character >> 10));
        *out++ = static_cast<char16_t>(0xDC00 | (character & 0x3FF));
    }
    return out;
}

// Takes one character from a source that is not at its end; U+FFFD for an unpaired surrogate.
char32_t take_character(const char16_t*& source, const char16_t* end) {
    const char16_t unit = *source++;
    if (!is_surrogate(unit)) return unit;
    if (!is_high_surrogate(unit) || source == end || !is_low_surrogate(*source)) return kReplacement;
    return 0x10000 + (static_cast<char32_t>(unit & 0x3FF) << 10 | static_cast<char32_t>(*source++ & 0x3FF));
}

char* put_bytes(char32_t character, char* out) {
    const auto put = [&out](char32_t byte) { *out++ = static_cast<char>(static_cast<Byte>(byte)); };
    if (character < 0x80) {
        put(character);
        return out;
    }
    if (character < 0x800) {
        put(0xC0 | character >> 6);
    } else {
        if (character < 0x10000) {
            put(0xE0 | character >> 12);
        } else {
            put(0xF0 | character >> 18);
            put(0x80 | (character >> 12 & 0x3F));
        }
        put(0x80 | (character >> 6 & 0x3F));
    }
    put(0x80 | (character & 0x3F));
    return out;
}

// Turns `source` over until `stop` is reached or, by the rest of one character, passed.
template <class Unit, class Out, class Put>
Out* turn_over(const Unit*& source, const Unit* stop, const Unit* end, Out* out, Put put) {
    const Unit* at = source;  // in a register, where writing bytes cannot change it
    while (at < stop) {
        if (*at >= 0x80) {
            out = put(take_character(at, end), out);
        } else if (stop - at >= kRun && is_ascii_run(at)) {
            copy_run(at, out);
            at += kRun;
            out += kRun;
        } else {  // the run is shorter: up to its end
            do *out++ = static_cast<Out>(*at++);
            while (at < stop && *at < 0x80);
        }
    }
    source = at;
    return out;
}

// `kMost`: the most units of the target that one unit of the source can become.
template <std::size_t kMost, class Unit, class String, class Put>
void append(const Unit* source, const Unit* end, String& out, Put put) {
    constexpr std::size_t kOvershoot = 3;  // the rest of a character of four bytes
    std::array<typename String::value_type, (kChunk + kOvershoot) * kMost> buffer;
    while (source != end) {
        const Unit* stop = source + std::min<std::size_t>(kChunk, static_cast<std::size_t>(end - source));
        const auto* filled = turn_over(source, stop, end, buffer.data(), put);
        out.append(buffer.data(), static_cast<std::size_t>(filled - buffer.data()));
    }
}

}  // namespace

void append_utf16_from_utf8(std::string_view bytes, std::u16string& out) {
    const Byte* source = reinterpret_cast<const Byte*>(bytes.data());
    const Byte* end = source + bytes.size();
    make_room(out, bytes.size() <= kShort ? bytes.size() : count_units(source, end));
    append<1>(source, end, out, put_units);
}

void append_utf8(std::u16string_view text, std::string& out) {
    make_room(out, text.size() <= kShort ? 3 * text.size() : count_bytes(text));
    append<3>(text.data(), text.data() + text.size(), out, put_bytes);
}

std::u16string utf8_to_utf16(std::string_view bytes) {
    std::u16string text;
    append_utf16_from_utf8(bytes, text);
    return text;
}

std::string utf16_to_utf8(std::u16string_view text) {
    std::string bytes;
    append_utf8(text, bytes);
    return bytes;
}

}  // namespace vzapi::platform
