// The primitives of the WSP binary encoding (WAP-230-WSP, section 8.4).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mms/entry_limit.h"
#include "mms/mms_message.h"

namespace vzapi::mms {

// Reads from bytes that may be anything. Every read checks what is left first; one that fails gives nothing
// and leaves the position where it was. Lengths are never trusted before they were compared with what is
// left.
class CWSPEncoding {
public:
    // `limit`, where there is one, counts the headers and parameters that are read.
    explicit CWSPEncoding(Bytes bytes, EntryLimit* limit = nullptr) noexcept : bytes_(bytes), limit_(limit) {}

    [[nodiscard]] std::size_t position() const noexcept { return at_; }
    [[nodiscard]] std::size_t left() const noexcept { return bytes_.size() - at_; }
    [[nodiscard]] bool at_end() const noexcept { return at_ == bytes_.size(); }
    // All that is left, not taken.
    [[nodiscard]] Bytes rest() const noexcept { return bytes_.subspan(at_); }
    // Goes back to a position() of before.
    void return_to(std::size_t position) noexcept { at_ = position; }
    // A reader of `bytes`, which counts for the same limit.
    [[nodiscard]] CWSPEncoding inside(Bytes bytes) const noexcept { return CWSPEncoding(bytes, limit_); }
    // False when there may be no further header or parameter.
    [[nodiscard]] bool take_entry() noexcept { return limit_ == nullptr || limit_->take(); }
    // As if it had just been made.
    void start_again() noexcept {
        at_ = 0;
        if (limit_ != nullptr) *limit_ = EntryLimit(bytes_.size());
    }

    // The next octet, not taken; nothing at the end.
    [[nodiscard]] std::optional<std::uint8_t> peek() const noexcept;
    [[nodiscard]] std::optional<std::uint8_t> octet() noexcept;
    [[nodiscard]] std::optional<std::uint32_t> uintvar() noexcept;        // at most 5 octets and 32 bits
    [[nodiscard]] std::optional<std::uint8_t> short_integer() noexcept;   // 0 to 127
    [[nodiscard]] std::optional<std::uint64_t> long_integer() noexcept;   // at most 8 octets that count
    [[nodiscard]] std::optional<std::uint64_t> integer() noexcept;        // either
    [[nodiscard]] std::optional<std::uint32_t> small_integer() noexcept;  // an integer of at most 32 bits
    [[nodiscard]] std::optional<std::size_t> value_length() noexcept;     // not compared with what is left
    [[nodiscard]] std::optional<Bytes> bytes(std::size_t count) noexcept;
    // A value length, and so many bytes.
    [[nodiscard]] std::optional<Bytes> measured() noexcept;
    // The bytes up to a NUL, which is taken too; a quote 0x7F before them is taken off.
    [[nodiscard]] std::optional<std::string_view> text_string() noexcept;
    // The same of a text that may be a quoted string: without 0x7F, the '"' before it, and one behind it, are
    // taken off.
    [[nodiscard]] std::optional<std::string_view> text() noexcept;
    // A text string, or a length, a charset and a text. `charset` is 0 for a text without one in US-ASCII,
    // and else the one in which encode_text() gives a text that reads the same: the PDU's, but UTF-8 or
    // ISO-8859-1 for eight-bit text without a charset, and UTF-8 for a text that this library does not write
    // in the PDU's charset. Sixteen-bit text is taken by its length, and may hold U+0000.
    struct EncodedText {
        std::uint32_t charset;
        std::u16string text;
    };
    [[nodiscard]] std::optional<EncodedText> encoded_text();
    // The same, of bytes whose end was found already: a missing NUL is no error, and what stands behind one
    // is left out.
    [[nodiscard]] static std::optional<EncodedText> encoded_text_in(Bytes bytes);
    // The charset and the text that a length stands before in an encoded text; without a charset the text
    // alone.
    [[nodiscard]] static std::optional<EncodedText> charset_and_text(Bytes bytes);
    // A content type in any of its forms. The media type is spelt as in the tables where it has a number
    // there; one that has a number alone is "application/x-wsp-59". The first charset parameter with a known
    // name or number goes to `charset`, all others are parameters. A parameter whose number is not known, or
    // whose value does not fit it, is raw and has the name "0x59"; a rest that can be none is left out.
    [[nodiscard]] std::optional<ContentType> content_type();
    // A content disposition: length, kind and parameters; also the bare kind. A kind that has a number alone
    // is "x-wsp-84".
    [[nodiscard]] std::optional<Disposition> disposition();
    // The octets of a value that is not understood, by its first octet.
    [[nodiscard]] std::optional<Bytes> skip_value() noexcept;

private:
    Bytes bytes_;
    EntryLimit* limit_;
    std::size_t at_ = 0;
};

// Writes the shortest form of everything, to the end of one buffer. Texts end at their first NUL.
class WspWriter {
public:
    void octet(std::uint8_t value) { bytes_.push_back(static_cast<std::byte>(value)); }
    void uintvar(std::uint32_t value);
    void short_integer(std::uint8_t value) { octet(static_cast<std::uint8_t>(value | 0x80U)); }
    void long_integer(std::uint64_t value);
    void integer(std::uint64_t value);
    void value_length(std::size_t value);
    void append(Bytes bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }
    // A value length, and the bytes.
    void measured(Bytes bytes);
    // With the NUL, and the quote that every text needs whose first byte is no printable ASCII character.
    void text_string(std::string_view bytes);
    // The same for CWSPEncoding::text(): a text that begins with '"' is quoted too.
    void text(std::string_view bytes);
    void quoted_text(std::string_view bytes);
    // In US-ASCII without a charset where charset is 0 and the text allows it, else with its charset, UTF-8
    // where it has none or cannot hold the text.
    void encoded_text(std::uint32_t charset, std::u16string_view text);
    void content_type(const ContentType& type);
    void disposition(const Disposition& disposition);

    [[nodiscard]] const std::vector<std::byte>& bytes() const noexcept { return bytes_; }
    [[nodiscard]] std::vector<std::byte> take() noexcept { return std::move(bytes_); }

private:
    std::vector<std::byte> bytes_;
};

}  // namespace vzapi::mms
