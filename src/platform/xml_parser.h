// The system's XML parser behind platform/xml.h.
#pragma once

#include <string_view>
#include <vector>

#include "platform/xml.h"

namespace vzapi::platform {

// As xml_children(), for a document that reduce_xml() has made. Names stay in the form that it gave them.
[[nodiscard]] XmlOutcome parse_reduced_xml(std::u16string_view document, std::u16string_view parent,
                                           std::vector<XmlElement>& children);

}  // namespace vzapi::platform
