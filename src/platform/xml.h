// Small XML documents, read by the system's own parser: on Windows the DOM that comes as a COM component, on
// Linux libexpat. The same bytes give the same answer on both.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vzapi::platform {

struct XmlElement {
    std::u16string name;  // as it stands in the document; a namespace prefix is part of it
    std::u16string text;  // all character data, that of the elements inside included; may be empty
};

enum class XmlOutcome {
    Read,
    Refused,      // not well-formed, in an unknown character set, with a DOCTYPE, or beyond a limit
    Unavailable,  // the system has no parser
};

// Appends the direct child elements of the first element called `parent`, at whatever depth it is, to
// `children`, all in document order; none when there is no such element. After any other outcome than Read
// what was appended means nothing. Throws only std::bad_alloc.
//
// A document is XML 1.0 in UTF-8, in UTF-16 that shows by its byte-order mark or its first two bytes, or in a
// character set that its declaration names: ISO-8859-1, Shift_JIS, US-ASCII. Namespaces are not looked at.
// Nothing outside the document is ever opened. The cost is linear in the bytes.
[[nodiscard]] XmlOutcome xml_children(std::string_view document, std::u16string_view parent,
                                      std::vector<XmlElement>& children);

}  // namespace vzapi::platform
