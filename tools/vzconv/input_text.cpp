#include "vzconv/input_text.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <istream>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "vzconv/email_document.h"
#include "vzconv/failure.h"
#include "vzconv/multimedia_pdu.h"
#include "vzconv/text_lines.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

std::filesystem::path path_of(const std::string& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

// Reads to the end, in steps that grow with what was read, so that pipes of unknown length cost linear time.
std::string read_all(std::istream& in, std::size_t expected) {
    constexpr std::size_t kLeast = 0x10000;
    std::string bytes;
    std::size_t used = 0;
    bytes.resize(expected + kLeast);
    while (in.read(bytes.data() + used, static_cast<std::streamsize>(bytes.size() - used))) {
        used = bytes.size();
        bytes.resize(2 * used);
    }
    used += static_cast<std::size_t>(in.gcount());
    if (in.bad()) throw Failure("cannot be read");
    bytes.resize(used);
    return bytes;
}

std::string read_file(const std::string& name) {
    const std::filesystem::path path = path_of(name);
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) throw Failure("is a directory");
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) throw Failure("cannot be opened: " + std::generic_category().message(errno));
    const auto size = std::filesystem::file_size(path, error);
    return read_all(in, error ? 0 : static_cast<std::size_t>(size));
}

enum class Order { LittleEndian, BigEndian };

std::u16string units_of(std::string_view bytes, Order order) {
    std::u16string units;
    units.reserve(bytes.size() / 2 + 1);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        units.push_back(
            static_cast<char16_t>(order == Order::LittleEndian ? first | second << 8 : first << 8 | second));
    }
    if (bytes.size() % 2 != 0) units.push_back(u'\xFFFD');
    return units;
}

// The number, from 1, of the line that stands behind `text`.
std::size_t line_behind(std::string_view text) {
    TextLines lines(text);
    TextLine line{};
    while (lines.next(line)) {
    }
    return line.ending.empty() && !text.empty() ? line.number : line.number + 1;
}

// Takes away the byte order marks inside `text` that stand in front of an object.
void remove_inner_marks(std::string& text) {
    constexpr std::string_view kMarkedBegin =
        "\xEF\xBB\xBF"
        "BEGIN:";
    constexpr std::size_t kMarkSize = 3;
    std::size_t at = text.find(kMarkedBegin);
    if (at == std::string::npos) return;
    std::string kept;
    std::size_t copied = 0;
    for (; at != std::string::npos; at = text.find(kMarkedBegin, at + 1)) {
        if (at != 0 && text[at - 1] != '\n' && text[at - 1] != '\r') continue;
        kept.append(text, copied, at - copied);
        copied = at + kMarkSize;
    }
    text = kept.append(text, copied);
}

InputText text_of_units(std::string_view bytes, Order order) {
    const std::u16string units = units_of(bytes, order);
    InputText input;
    input.text = utf8_from_utf16(units);
    input.charset = TextCharset::Utf8;
    input.unpaired = unpaired_surrogates_in(units);
    if (input.unpaired != 0) {
        const std::u16string_view before(units.data(), first_unpaired_surrogate(units));
        input.unpaired_line = line_behind(utf8_from_utf16(before));
    }
    remove_inner_marks(input.text);
    return input;
}

// Versit text begins with ASCII characters: in UTF-16 every second byte of them is zero.
bool has_zero_halves(std::string_view bytes, std::size_t zero) {
    if (bytes.size() < 4) return false;
    return bytes[zero] == 0 && bytes[zero + 2] == 0 && bytes[1 - zero] != 0 && bytes[3 - zero] != 0;
}

// The text of what is in some Unicode form by its first bytes.
std::optional<InputText> unicode_text_of(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) return text_of_units(bytes.substr(2), Order::LittleEndian);
    if (bytes.starts_with("\xFE\xFF")) return text_of_units(bytes.substr(2), Order::BigEndian);
    if (has_zero_halves(bytes, 1)) return text_of_units(bytes, Order::LittleEndian);
    if (has_zero_halves(bytes, 0)) return text_of_units(bytes, Order::BigEndian);
    if (!bytes.starts_with("\xEF\xBB\xBF")) return std::nullopt;
    InputText input;
    input.text = bytes.substr(3);
    input.charset = TextCharset::Utf8;
    remove_inner_marks(input.text);
    return input;
}

}  // namespace

InputText read_input(const std::string& name, std::istream& standard_input) {
    return eight_bit_text(name == "-" ? read_all(standard_input, 0) : read_file(name));
}

InputText eight_bit_text(std::string bytes) {
    InputText input;
    if (is_multimedia_pdu(bytes)) {
        input.document = kMultimediaPdu;
    } else {
        std::optional<InputText> unicode = unicode_text_of(bytes);
        if (is_email_document(unicode ? unicode->text : bytes)) input.document = kEmailElement;
        if (unicode && input.document.empty()) return *std::move(unicode);
    }
    input.text = std::move(bytes);
    return input;
}

}  // namespace vzconv
