// The DOM of the system, MSXML 3.0.
#include "platform/xml_parser.h"

#include <windows.h>
// After windows.h, on which they depend.
#include <msxml2.h>
#include <oleauto.h>

#include <new>
#include <string>
#include <utility>

#include "platform/com_scope.h"
#include "platform/ole_string.h"

namespace vzapi::platform {
namespace {

constexpr CLSID kDomDocument30 = {
    0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}};
constexpr IID kDomDocument2 = {0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

// Ends the reading when the DOM does not answer; does not leave this file.
struct DomFailure {};

void require(HRESULT answer) {
    if (answer == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(answer)) throw DomFailure();
}

// Owns one reference to a COM object.
template <class T>
class Com {
public:
    Com() = default;
    Com(Com&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Com& operator=(Com&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
    ~Com() {
        if (object_ != nullptr) object_->Release();
    }

    T* operator->() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    // Where a function puts a new reference; only for an empty owner.
    T** receive() noexcept { return &object_; }

private:
    T* object_ = nullptr;
};

using Document = Com<IXMLDOMDocument2>;
using Node = Com<IXMLDOMNode>;

OleString ole_string(std::u16string_view text) {
    OleString string(ole_string_allocate(text));
    if (!string) throw std::bad_alloc();
    return string;
}

BSTR bstr(const OleString& string) noexcept {
    return reinterpret_cast<BSTR>(const_cast<char16_t*>(string.get()));
}

// Nothing outside the document is opened and no white space is lost.
Document new_document() {
    Document document;
    const HRESULT answer = CoCreateInstance(kDomDocument30, nullptr, CLSCTX_INPROC_SERVER, kDomDocument2,
                                            reinterpret_cast<void**>(document.receive()));
    require(answer);
    require(document->put_async(VARIANT_FALSE));
    require(document->put_validateOnParse(VARIANT_FALSE));
    require(document->put_resolveExternals(VARIANT_FALSE));
    require(document->put_preserveWhiteSpace(VARIANT_TRUE));
    // Early releases do not know it.
    VARIANT yes{};
    yes.vt = VT_BOOL;
    yes.boolVal = VARIANT_TRUE;
    static_cast<void>(document->setProperty(bstr(ole_string(u"ProhibitDTD")), yes));
    return document;
}

template <class From>
Node first_child(const From& node) {
    Node child;
    require(node->get_firstChild(child.receive()));
    return child;
}

Node next_sibling(const Node& node) {
    Node sibling;
    require(node->get_nextSibling(sibling.receive()));
    return sibling;
}

DOMNodeType type_of(const Node& node) {
    DOMNodeType type = NODE_INVALID;
    require(node->get_nodeType(&type));
    return type;
}

std::u16string name_of(const Node& node) {
    BSTR name = nullptr;
    require(node->get_nodeName(&name));
    return std::u16string(OleString(reinterpret_cast<char16_t*>(name)).view());
}

void append_value(const Node& node, std::u16string& text) {
    VARIANT value;
    VariantInit(&value);
    require(node->get_nodeValue(&value));
    if (value.vt == VT_BSTR) {
        text += OleString(reinterpret_cast<char16_t*>(value.bstrVal)).view();
    } else {
        VariantClear(&value);
    }
}

// Not deeper than a reduced document is.
void append_text(const Node& element, std::u16string& text) {
    for (Node node = first_child(element); node; node = next_sibling(node)) {
        if (type_of(node) == NODE_TEXT) append_value(node, text);
        if (type_of(node) == NODE_ELEMENT) append_text(node, text);
    }
}

// The first element of that name below `node`, in document order; empty when there is none.
template <class From>
Node find_element(const From& parent, std::u16string_view name) {
    for (Node node = first_child(parent); node; node = next_sibling(node)) {
        if (type_of(node) != NODE_ELEMENT) continue;
        if (name_of(node) == name) return node;
        if (Node found = find_element(node, name)) return found;
    }
    return {};
}

XmlOutcome read(const Document& document, std::u16string_view text, std::u16string_view parent,
                std::vector<XmlElement>& children) {
    VARIANT_BOOL is_loaded = VARIANT_FALSE;
    const HRESULT answer = document->loadXML(bstr(ole_string(text)), &is_loaded);
    if (answer == E_OUTOFMEMORY) throw std::bad_alloc();
    if (answer != S_OK || is_loaded == VARIANT_FALSE) return XmlOutcome::Refused;
    const Node element = find_element(document, parent);
    if (!element) return XmlOutcome::Read;
    for (Node node = first_child(element); node; node = next_sibling(node)) {
        if (type_of(node) != NODE_ELEMENT) continue;
        children.push_back({name_of(node), {}});
        append_text(node, children.back().text);
    }
    return XmlOutcome::Read;
}

}  // namespace

XmlOutcome parse_reduced_xml(std::u16string_view document, std::u16string_view parent,
                             std::vector<XmlElement>& children) {
    const ComScope com(ComRelease::Always);
    try {
        return read(new_document(), document, parent, children);
    } catch (const DomFailure&) {
        return XmlOutcome::Unavailable;
    }
}

}  // namespace vzapi::platform
