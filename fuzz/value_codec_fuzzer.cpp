// Transfer encodings and the accessors of a line against their literal twins. The input is taken as a line,
// as an encoded value, as bytes to encode, and as UTF-16 text to encode.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "fuzz_check.h"
#include "reference/base64_reference.h"
#include "reference/line_list_comparison.h"
#include "reference/property_reference.h"
#include "reference/quoted_printable_reference.h"
#include "versit/base64.h"
#include "versit/property.h"
#include "versit/property_line.h"
#include "versit/quoted_printable.h"

namespace vzapi::fuzz {
namespace {

template <class Unit>
void check_line(const std::basic_string<Unit>& line) {
    const versit::BasicVersitProperty<Unit> property{std::basic_string_view<Unit>(line)};
    const std::string shown = reference::literal_of(line);
    check(property.name() == reference::property_name(line), "name of " + shown);
    check(int(property.id()) == reference::property_id(line), "ID of " + shown);
    check(property.value() == reference::property_value(line), "value of " + shown);
    check(int(property.encoding()) == reference::property_encoding(line), "encoding of " + shown);
    check(versit::begins_known_property<Unit>(line) == reference::begins_known_property(line),
          "strict " + shown);
    check(versit::has_property_form<Unit>(line) == reference::has_property_form(line), "loose " + shown);
}

void check_decoding(const std::string& text, std::string_view exact) {
    const std::string shown = reference::literal_of(text);
    check(versit::decode_base64(exact) == reference::decode_base64(text), "Base64 of " + shown);
    check(versit::decode_quoted_printable(exact) == reference::decode_quoted_printable(text),
          "escapes of " + shown);
    const versit::VersitProperty line{exact};
    for (int encoding = -2; encoding <= 5; ++encoding) {
        check(versit::decoded_value(line, versit::Encoding(encoding)) ==
                  reference::decoded_value(text, encoding),
              "decoded value, default " + std::to_string(encoding) + ", of " + shown);
    }
}

void check_encoding(const std::string& bytes, const std::u16string& text) {
    std::string base64;
    versit::append_base64(std::as_bytes(std::span(bytes)), base64);
    check(base64 == reference::encode_base64(bytes), "to Base64: " + reference::literal_of(bytes));
    check(versit::decode_base64(base64) == bytes, "to Base64 and back: " + reference::literal_of(bytes));
    std::string escaped;
    versit::append_quoted_printable(text, escaped);
    check(escaped == reference::encode_quoted_printable(text), "to escapes: " + reference::literal_of(text));
    check(versit::needs_encoding(text) == reference::needs_encoding(text),
          "needs: " + reference::literal_of(text));
}

}  // namespace
}  // namespace vzapi::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi::fuzz;
    if (size > kLongestInput) return 0;
    const std::string_view exact(reinterpret_cast<const char*>(data), size);
    const std::string text(exact);
    std::u16string units;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        units += static_cast<char16_t>(data[i] + data[i + 1] * 256U);
    }
    check_line(text);
    check_line(units);
    check_line(std::u16string(data, data + size));
    check_decoding(text, exact);
    check_encoding(text, units);
    return 0;
}
