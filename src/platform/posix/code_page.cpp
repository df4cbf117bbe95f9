// Everything but UTF-8 goes through iconv, with a descriptor of its own for each call: descriptors hold the
// state of a conversion and must not be shared between threads.
#include "platform/code_page.h"

#include <iconv.h>
#include <langinfo.h>

#include <array>
#include <cerrno>
#include <clocale>  // newlocale
#include <cstdint>
#include <cstdlib>
#include <new>
#include <optional>

#include "platform/utf8.h"

namespace vzapi::platform {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

class Converter {
public:
    explicit Converter(const char* charset) : descriptor_(iconv_open("UTF-16LE", charset)) {
        if (!*this && errno == ENOMEM) throw std::bad_alloc();
    }
    ~Converter() {
        if (*this) iconv_close(descriptor_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // False when the system has no such conversion.
    explicit operator bool() const { return reinterpret_cast<std::intptr_t>(descriptor_) != -1; }

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

private:
    // Converts up to a buffer full; returns what stopped it, as an errno, or 0.
    int step(char** source, std::size_t* left, std::u16string& out) {
        std::array<char16_t, 512> buffer;
        char* target = reinterpret_cast<char*>(buffer.data());
        std::size_t room = sizeof buffer;
        const bool failed = iconv(descriptor_, source, left, &target, &room) == std::size_t(-1);
        const int reason = failed ? errno : 0;
        out.append(buffer.data(), (sizeof buffer - room) / sizeof(char16_t));
        return reason;
    }

    iconv_t descriptor_;
};

// For a character set that the system cannot convert: ASCII is all that is certain.
void append_ascii(std::string_view bytes, std::u16string& out) {
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        out += code < 0x80 ? static_cast<char16_t>(code) : kReplacement;
    }
}

void append_from(const char* charset, std::string_view bytes, std::u16string& out) {
    Converter converter(charset);
    if (converter) {
        converter.append(bytes, out);
    } else {
        append_ascii(bytes, out);
    }
}

bool is_utf8_name(std::string_view charset) {
    return charset == "UTF-8" || charset == "utf-8" || charset == "UTF8" || charset == "utf8";
}

std::string_view users_locale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
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
    return !charset.empty() && charset.find('/') == std::string::npos && Converter(charset.c_str());
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

}  // namespace vzapi::platform
