#include "vzconv/input_text.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <istream>
#include <string_view>
#include <system_error>
#include <utility>

#include "vzconv/failure.h"
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

InputText utf8_of_units(std::string_view bytes, Order order) {
    std::u16string units;
    units.reserve(bytes.size() / 2 + 1);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        units.push_back(
            static_cast<char16_t>(order == Order::LittleEndian ? first | second << 8 : first << 8 | second));
    }
    if (bytes.size() % 2 != 0) units.push_back(u'\xFFFD');
    return {utf8_from_utf16(units), TextCharset::Utf8};
}

// Versit text begins with ASCII characters: in UTF-16 every second byte of them is zero.
bool has_zero_halves(std::string_view bytes, std::size_t zero) {
    if (bytes.size() < 4) return false;
    return bytes[zero] == 0 && bytes[zero + 2] == 0 && bytes[1 - zero] != 0 && bytes[3 - zero] != 0;
}

}  // namespace

InputText read_input(const std::string& name, std::istream& standard_input) {
    return eight_bit_text(name == "-" ? read_all(standard_input, 0) : read_file(name));
}

InputText eight_bit_text(std::string bytes) {
    const std::string_view view = bytes;
    if (view.starts_with("\xFF\xFE")) return utf8_of_units(view.substr(2), Order::LittleEndian);
    if (view.starts_with("\xFE\xFF")) return utf8_of_units(view.substr(2), Order::BigEndian);
    if (has_zero_halves(view, 1)) return utf8_of_units(view, Order::LittleEndian);
    if (has_zero_halves(view, 0)) return utf8_of_units(view, Order::BigEndian);
    if (view.starts_with("\xEF\xBB\xBF")) return {bytes.substr(3), TextCharset::Utf8};
    return {std::move(bytes), TextCharset::Unknown};
}

}  // namespace vzconv
