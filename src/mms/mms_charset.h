// Character sets of multimedia messages: the numbers of the IANA registry (MIBenum).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vzapi::mms {

inline constexpr std::uint32_t kNoCharset = 0;
inline constexpr std::uint32_t kUsAscii = 3;
inline constexpr std::uint32_t kLatin1 = 4;
inline constexpr std::uint32_t kUtf8 = 106;

// The text of `bytes`. Those of a charset that is not known are taken for the characters U+0000 to U+00FF.
// Without a charset, and where US-ASCII has eight-bit bytes: UTF-8 where the bytes are valid UTF-8, else
// ISO-8859-1. UCS-2, UTF-16, UCS-4 and UTF-32 without a byte-order mark are big-endian; a mark is taken away.
[[nodiscard]] std::u16string decode_text(std::uint32_t charset, std::string_view bytes);

// `text` in the charset, which is changed to UTF-8 when it cannot hold the text so that decode_text() gives
// it back, or this library does not write it: the charsets that switch between character sets, and EUC-JP.
// Without a charset the text is US-ASCII, or else UTF-8 and `charset` says so. An unpaired surrogate becomes
// U+FFFD where the charset has none.
[[nodiscard]] std::string encode_text(std::uint32_t& charset, std::u16string_view text);

// The charset that decode_text() takes `bytes` for which have none: none when they are US-ASCII, else UTF-8
// or ISO-8859-1.
[[nodiscard]] std::uint32_t guess_charset(std::string_view bytes) noexcept;

// The bytes of one unit of text in the charset: 1, 2 or 4.
[[nodiscard]] std::size_t unit_size(std::uint32_t charset) noexcept;

// The number of a charset's name, compared without regard to case: "utf-8".
[[nodiscard]] std::optional<std::uint32_t> charset_of_name(std::u16string_view name) noexcept;

}  // namespace vzapi::mms
