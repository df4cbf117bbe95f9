#include "platform/xml.h"

#include <optional>

#include "platform/xml_encoding.h"
#include "platform/xml_parser.h"
#include "platform/xml_reduction.h"

namespace vzapi::platform {
namespace {

// The text of the document is given back before the system's parser needs memory of its own.
std::optional<std::u16string> reduced(std::string_view document) {
    const std::optional<std::u16string> text = decode_xml(document);
    return text ? reduce_xml(*text) : std::nullopt;
}

}  // namespace

XmlOutcome xml_children(std::string_view document, std::u16string_view parent,
                        std::vector<XmlElement>& children) {
    const std::optional<std::u16string> text = reduced(document);
    if (!text) return XmlOutcome::Refused;
    const XmlOutcome outcome = parse_reduced_xml(*text, reduced_name(parent), children);
    for (XmlElement& child : children) child.name = original_name(child.name);
    return outcome;
}

}  // namespace vzapi::platform
