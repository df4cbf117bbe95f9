#include "vzconv/versit_output.h"

#include <ostream>

#include "vzconv/failure.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

constexpr std::string_view kMark = "\xFF\xFE";

std::string little_endian_bytes_of(std::u16string_view units) {
    std::string bytes;
    bytes.reserve(2 * units.size());
    for (const char16_t unit : units) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
}

}  // namespace

void put(std::ostream& out, std::string_view text) {
    if (!out.write(text.data(), static_cast<std::streamsize>(text.size()))) throw OutputLost();
}

void VersitOutput::put_object(const Kind& kind, std::string_view text) {
    const bool is_wide = kind.form == TextForm::Utf16 && !utf8_;
    const bool is_binary = kind.form == TextForm::Binary;
    const State state = is_binary ? State::Binary : is_wide ? State::Utf16 : State::EightBit;
    if (state_ == State::Binary)
        throw Failure("cannot stand behind a multimedia message, which is a whole file");
    if (is_binary && state_ != State::Empty)
        throw Failure("multimedia messages are whole files and cannot stand behind other objects");
    if (state_ != State::Empty && state_ != state) {
        throw Failure(is_wide
                          ? "messages are UTF-16 and cannot stand behind other objects; --utf8 writes both"
                          : "cannot stand behind messages, which are UTF-16; --utf8 writes both");
    }
    if (is_wide && state_ == State::Empty) put(out_, kMark);
    state_ = state;
    if (is_wide) {
        put(out_, little_endian_bytes_of(utf16_from_utf8(text)));
    } else {
        put(out_, text);
    }
}

}  // namespace vzconv
