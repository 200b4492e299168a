#include <utility>

#include "common/code_page.h"
#include "xmlaccess/com_support.h"
#include "xmlaccess/xml_library.h"
#include "xmlaccess/xml_names.h"

namespace workbench::xmlaccess {

using Microsoft::WRL::ComPtr;

/// The names in the document's order. MSXML finds an attribute by its index only by counting, so
/// they are read at once and kept while no attribute of the document changes.
const std::vector<std::string>& XmlLibrary::AttributeNames(Node& node) {
    const std::uint32_t revision = DocumentOf(node).attributeRevision;
    if (node.namesRevision == revision) {
        return node.attributeNames;
    }
    node.attributeNames.clear();
    node.namesRevision = revision;
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    ComPtr<IXMLDOMNode> attribute;
    if (FAILED(node.element->get_attributes(&attributes)) || attributes == nullptr) {
        return node.attributeNames;
    }
    while (attributes->nextNode(attribute.ReleaseAndGetAddressOf()) == S_OK) {
        BStr name;
        attribute->get_nodeName(name.Receive());
        node.attributeNames.push_back(AnsiFromWide(name.View()));
    }
    return node.attributeNames;
}

std::uint32_t XmlLibrary::AttributeCount(std::uint32_t node) {
    Node* entry = FindNode(node);
    return entry == nullptr ? 0 : static_cast<std::uint32_t>(AttributeNames(*entry).size());
}

std::optional<std::string> XmlLibrary::AttributeName(std::uint32_t node, std::size_t index) {
    Node* entry = FindNode(node);
    if (entry == nullptr) {
        return std::nullopt;
    }
    const std::vector<std::string>& names = AttributeNames(*entry);
    return index < names.size() ? std::optional(names[index]) : std::nullopt;
}

std::optional<std::wstring> XmlLibrary::WideAttribute(std::uint32_t node, std::string_view name) {
    Node* entry = FindNode(node);
    Variant value;
    if (entry == nullptr ||
        entry->element->getAttribute(BStr(WideFromAnsi(name)).Get(), value.Receive()) != S_OK) {
        return std::nullopt;
    }
    return std::wstring(value.Text());
}

std::optional<std::string> XmlLibrary::AttributeText(std::uint32_t node, std::string_view name) {
    const std::optional<std::wstring> value = WideAttribute(node, name);
    return value ? std::optional(AnsiFromWide(*value)) : std::nullopt;
}

std::optional<std::uint32_t> XmlLibrary::AttributeNumber(std::uint32_t node,
                                                         std::string_view name) {
    const std::optional<std::wstring> value = WideAttribute(node, name);
    return value ? ParseUnsigned(*value) : std::nullopt;
}

bool XmlLibrary::SetAttribute(std::uint32_t node, std::string_view name, std::string_view value) {
    Node* entry = FindNode(node);
    if (entry == nullptr) {
        return false;
    }
    const std::wstring wideName = WideFromAnsi(name);
    const std::wstring wideValue = WideFromAnsi(value);
    if (!IsXmlName(wideName) || !IsXmlText(wideValue)) {
        return Fail("The attribute's name is no XML name or its value has a control character.");
    }
    if (FAILED(entry->element->setAttribute(BStr(wideName).Get(),
                                            Variant(std::wstring_view(wideValue)).Get()))) {
        return Fail("MSXML did not take the attribute.");
    }
    ++DocumentOf(*entry).attributeRevision;
    return true;
}

bool XmlLibrary::RemoveAttribute(std::uint32_t node, std::string_view name) {
    Node* entry = FindNode(node);
    if (entry == nullptr ||
        entry->element->removeAttribute(BStr(WideFromAnsi(name)).Get()) != S_OK) {
        return false;
    }
    ++DocumentOf(*entry).attributeRevision;
    return true;
}

std::optional<std::string> XmlLibrary::Text(std::uint32_t node) {
    Node* entry = FindNode(node);
    BStr text;
    if (entry == nullptr || FAILED(entry->element->get_text(text.Receive()))) {
        return std::nullopt;
    }
    return AnsiFromWide(text.View());
}

bool XmlLibrary::SetText(std::uint32_t node, std::string_view text) {
    Node* entry = FindNode(node);
    if (entry == nullptr) {
        return false;
    }
    const std::wstring wide = WideFromAnsi(text);
    if (!IsXmlText(wide)) {
        return Fail("The text has a control character.");
    }
    return SUCCEEDED(entry->element->put_text(BStr(wide).Get())) ||
           Fail("MSXML did not take the text.");
}

}  // namespace workbench::xmlaccess
