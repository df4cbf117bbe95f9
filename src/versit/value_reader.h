// The values of lines as text, for readers that walk over many lines: one object for the whole walk, whose
// buffers are used again for each value.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "versit/compound_value.h"
#include "versit/property.h"

namespace vzapi::versit {

// The charset of values whose line names none.
enum class DefaultCharset : bool { System, Utf8 };

// Values are decoded as the line says (none is the encoding where it says nothing) and converted from the
// line's charset. An encoded NUL ends a text, as it does in a record. Views and components live until the next
// call.
class ValueReader {
public:
    explicit ValueReader(DefaultCharset charset = DefaultCharset::System);

    // The whole value.
    [[nodiscard]] std::u16string_view text(const VersitProperty& line);

    // The whole value, its escapes taken back.
    [[nodiscard]] std::u16string_view text(const VersitProperty& line, Escapes escapes);

    // Splits the value by the rules of component_texts(), up to the first `most` components; those behind are
    // dropped. Returns how many there are, one at the least.
    std::size_t split(const VersitProperty& line, Escapes escapes, std::size_t most);

    // A component of the value split last; empty when it had fewer.
    [[nodiscard]] std::u16string_view component(std::size_t index) const noexcept;

private:
    struct Part {
        std::size_t begin;
        std::size_t end;
    };

    void convert(std::string_view bytes, std::string_view charset);
    void split_encoded(std::string_view value, std::string_view charset, Escapes escapes, std::size_t most);
    void split_text(Escapes escapes, std::size_t most);
    void unescape_from(std::size_t begin, Escapes escapes);

    const bool default_is_utf8_;  // the system is asked once, not for each text
    std::string bytes_;
    std::u16string text_;
    std::vector<Part> parts_;  // of text_
};

}  // namespace vzapi::versit
