// Everything but UTF-8 goes through iconv, with a descriptor of its own for each call: descriptors hold the
// state of a conversion and must not be shared between threads.
#include "platform/code_page.h"

#include <iconv.h>
#include <langinfo.h>
#include <unistd.h>  // environ

#include <array>
#include <cerrno>
#include <clocale>  // newlocale
#include <cstdint>
#include <cstring>
#include <new>
#include <optional>

#include "platform/utf8.h"

namespace vzapi::platform {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

class Converter {
public:
    Converter(const char* target, const char* source) : descriptor_(iconv_open(target, source)) {
        if (!*this && errno == ENOMEM) throw std::bad_alloc();
    }
    ~Converter() {
        if (*this) iconv_close(descriptor_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // False when the system has no such conversion.
    explicit operator bool() const { return reinterpret_cast<std::intptr_t>(descriptor_) != -1; }

    // UTF-16 of `bytes`, with U+FFFD for what is no character.
    void append(std::string_view bytes, std::u16string& out) {
        char* source = const_cast<char*>(bytes.data());
        std::size_t left = bytes.size();
        while (left != 0) {
            switch (step(&source, &left, out)) {
                case EILSEQ:
                    out += kReplacement;
                    ++source;
                    --left;
                    break;
                case EINVAL:  // cut off by the end
                    out += kReplacement;
                    left = 0;
                    break;
                default:
                    break;
            }
        }
        // Some character sets hold a character back until they know that no accent follows it.
        step(nullptr, nullptr, out);
    }

    // False, and part of the text appended, at the first byte that is not defined.
    [[nodiscard]] bool append_defined(std::string_view bytes, std::u16string& out) {
        char* source = const_cast<char*>(bytes.data());
        std::size_t left = bytes.size();
        while (left != 0) {
            const int stopped = step(&source, &left, out);
            if (stopped == EILSEQ || stopped == EINVAL) return false;
        }
        return true;
    }

    // The bytes of `text`; false when a character has none.
    bool append_strictly(std::u16string_view text, std::string& out) {
        char* source = const_cast<char*>(reinterpret_cast<const char*>(text.data()));
        std::size_t left = text.size() * sizeof(char16_t);
        while (left != 0) {
            const int reason = step(&source, &left, out);
            if (reason != 0 && reason != E2BIG) return false;
        }
        step(nullptr, nullptr, out);
        return true;
    }

private:
    // Converts up to a buffer full; returns what stopped it, as an errno, or 0.
    template <class Unit>
    int step(char** source, std::size_t* left, std::basic_string<Unit>& out) {
        std::array<Unit, 512> buffer;
        char* target = reinterpret_cast<char*>(buffer.data());
        std::size_t room = sizeof buffer;
        const bool failed = iconv(descriptor_, source, left, &target, &room) == std::size_t(-1);
        const int reason = failed ? errno : 0;
        out.append(buffer.data(), (sizeof buffer - room) / sizeof(Unit));
        return reason;
    }

    iconv_t descriptor_;
};

constexpr const char* kUnicode = "UTF-16LE";

// For a character set that the system cannot convert: ASCII is all that is certain.
void append_ascii(std::string_view bytes, std::u16string& out) {
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        out += code < 0x80 ? static_cast<char16_t>(code) : kReplacement;
    }
}

void append_from(const char* charset, std::string_view bytes, std::u16string& out) {
    Converter converter(kUnicode, charset);
    if (converter) {
        converter.append(bytes, out);
    } else {
        append_ascii(bytes, out);
    }
}

bool is_utf8_name(std::string_view charset) {
    return charset == "UTF-8" || charset == "utf-8" || charset == "UTF8" || charset == "utf8";
}

// The value of the variable when `entry`, "NAME=value", sets it; null when not.
const char* value_in(const char* entry, std::string_view variable) {
    const bool is_it = std::strncmp(entry, variable.data(), variable.size()) == 0;
    return is_it && entry[variable.size()] == '=' ? entry + variable.size() + 1 : nullptr;
}

// In one walk over the environment: it is asked once for each text.
std::string_view users_locale() {
    constexpr std::array<std::string_view, 3> kVariables = {"LC_ALL", "LC_CTYPE", "LANG"};
    std::array<const char*, kVariables.size()> values{};
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        if (**entry != 'L') continue;
        for (std::size_t i = 0; i < kVariables.size(); ++i) {
            if (values[i] == nullptr) values[i] = value_in(*entry, kVariables[i]);
        }
    }
    for (const char* value : values) {
        if (value != nullptr && *value != '\0') return value;
    }
    return {};
}

// The part of "language_COUNTRY.charset@variant" that names the charset.
std::string charset_part(std::string_view locale) {
    const std::size_t dot = locale.find('.');
    if (dot == std::string_view::npos) return {};
    const std::string_view charset = locale.substr(dot + 1);
    return std::string(charset.substr(0, charset.find('@')));
}

// The charset that an installed locale has.
std::optional<std::string> charset_of_locale(const std::string& name) {
    const locale_t locale = newlocale(LC_CTYPE_MASK, name.c_str(), locale_t{});
    if (locale == locale_t{}) return std::nullopt;
    std::string charset = nl_langinfo_l(CODESET, locale);
    freelocale(locale);
    return charset;
}

bool is_convertible(const std::string& charset) {
    // A slash would begin a suffix that tells iconv how to convert.
    return !charset.empty() && charset.find('/') == std::string::npos && Converter(kUnicode, charset.c_str());
}

}  // namespace

std::string system_charset() {
    const std::string locale(users_locale());
    std::string charset = charset_part(locale);
    if (locale.empty() || locale == "C" || locale == "POSIX" || is_utf8_name(charset)) return "UTF-8";
    // The name's own word counts where the locale is not installed.
    if (std::optional<std::string> installed = charset_of_locale(locale)) charset = *std::move(installed);
    return is_convertible(charset) ? charset : "UTF-8";
}

bool append_utf16_from_shift_jis(std::string_view bytes, std::u16string& out) {
    Converter converter(kUnicode, "CP932");
    return converter && converter.append_defined(bytes, out);
}

void append_utf16(CodePage code_page, std::string_view bytes, std::u16string& out) {
    switch (code_page) {
        case CodePage::SystemDefault:
            if (const std::string charset = system_charset(); !is_utf8_name(charset)) {
                return append_from(charset.c_str(), bytes, out);
            }
            break;
        case CodePage::ShiftJis:
            return append_from("CP932", bytes, out);
        case CodePage::Utf8:
            break;
    }
    append_utf16_from_utf8(bytes, out);
}

bool append_utf16(const SystemCharset& charset, std::string_view bytes, std::u16string& out) {
    Converter converter(kUnicode, charset.iconv_name);
    if (!converter) return false;
    converter.append(bytes, out);
    return true;
}

bool append_bytes(const SystemCharset& charset, std::u16string_view text, std::string& out) {
    Converter converter(charset.iconv_name, kUnicode);
    if (!converter) return false;
    const std::size_t before = out.size();
    if (converter.append_strictly(text, out)) return true;
    out.resize(before);
    return false;
}

}  // namespace vzapi::platform
