// Reduces an XML document to its elements and their text, so that parsers of different systems cannot differ
// over it.
//
// They do differ over what nobody here needs: one resolves namespaces and drops prefixes that are not
// declared, one knows the name characters of a later edition, each has limits of its own, and one takes
// quadratic time over a comment that does not end. What is left after the reduction, tags with plain ASCII
// names and character data, all of them read alike; that the tags match is for them to see.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vzapi::platform {

// Beyond these a document is refused. An item with the state of one message has a dozen elements.
inline constexpr std::size_t kDeepestXmlElement = 250;
inline constexpr std::size_t kMostXmlElements = 100'000;
inline constexpr std::size_t kLongestXmlName = 1'000;  // UTF-16 units
inline constexpr std::size_t kLongestReducedXml =
    3'000'000;  // UTF-16 units, all that is left out not counted

// The tags of `document` without attributes, and the text between them; declaration, comments and processing
// instructions are left out, CDATA sections become text, CR LF and CR become LF. Nothing when it is not
// well-formed (XML 1.0, fifth edition), the matching of tags aside, when it has a DOCTYPE, or when it is
// beyond a limit.
[[nodiscard]] std::optional<std::u16string> reduce_xml(std::u16string_view document);

// A name as the reduced document spells it: letters and digits of ASCII, '.' and '-' as they are, every other
// unit as '_' and four hexadecimal digits.
[[nodiscard]] std::u16string reduced_name(std::u16string_view name);
[[nodiscard]] std::u16string original_name(std::u16string_view reduced);

}  // namespace vzapi::platform
