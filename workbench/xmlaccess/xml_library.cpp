#include "xmlaccess/xml_library.h"

#include <utility>

#include "common/code_page.h"
#include "xmlaccess/com_support.h"
#include "xmlaccess/dom_document.h"
#include "xmlaccess/dom_layout.h"
#include "xmlaccess/file_bytes.h"
#include "xmlaccess/msxml_ids.h"
#include "xmlaccess/xml_names.h"

namespace workbench::xmlaccess {

using Microsoft::WRL::ComPtr;

bool XmlLibrary::Fail(std::string reason) {
    lastError_ = std::move(reason);
    return false;
}

// ---- Documents ----

XmlLibrary::Document* XmlLibrary::FindDocument(std::uint32_t handle) {
    Document* document = documents_.Find(handle);
    if (document == nullptr) {
        Fail("The document handle is not in use.");
    }
    return document;
}

std::uint32_t XmlLibrary::Create() {
    ComPtr<IXMLDOMDocument2> dom = NewDomDocument(lastError_);
    if (dom == nullptr) {
        return 0;
    }
    const std::uint32_t handle = documents_.Add({std::move(dom)});
    return handle != 0 ? handle : Fail("Too many documents are open.");
}

/// A new document that `load` fills; it is closed again when that fails.
template <typename LoadInto>
std::uint32_t XmlLibrary::CreateLoaded(const LoadInto& load) {
    const std::uint32_t handle = Create();
    if (handle != 0 && !load(documents_.Find(handle)->dom.Get())) {
        documents_.Remove(handle);
        return 0;
    }
    return handle;
}

std::uint32_t XmlLibrary::Open(std::string_view path) {
    if (path.empty()) {
        return Fail("No file is named.");
    }
    const auto bytes = ReadFileBytes(WideFromAnsi(path), lastError_);
    if (!bytes) {
        return 0;
    }
    return CreateLoaded(
        [&](IXMLDOMDocument2* dom) { return LoadDomDocument(dom, *bytes, lastError_); });
}

std::uint32_t XmlLibrary::ParseText(std::string_view text) {
    const std::wstring wide = WideFromAnsi(text);
    return CreateLoaded(
        [&](IXMLDOMDocument2* dom) { return ParseDomDocument(dom, wide, lastError_); });
}

bool XmlLibrary::Save(std::uint32_t document, std::string_view path) {
    Document* entry = FindDocument(document);
    if (entry == nullptr) {
        return false;
    }
    if (path.empty()) {
        return Fail("No file is named.");
    }
    std::vector<std::byte> bytes;
    return WriteDomDocument(entry->dom.Get(), bytes, lastError_) &&
           ReplaceFileBytes(WideFromAnsi(path), bytes, lastError_);
}

bool XmlLibrary::Close(std::uint32_t document) {
    return documents_.Remove(document) || Fail("The document handle is not in use.");
}

// ---- Nodes ----

/// A node of a closed document is as good as gone, though its handle still goes back.
XmlLibrary::Node* XmlLibrary::FindNode(std::uint32_t handle) {
    Node* node = nodes_.Find(handle);
    if (node == nullptr || documents_.Find(node->document) == nullptr) {
        Fail("The node handle is not in use.");
        return nullptr;
    }
    return node;
}

std::uint32_t XmlLibrary::AddNode(ComPtr<IXMLDOMElement> element, std::uint32_t document) {
    const std::uint32_t handle = nodes_.Add({std::move(element), document, 0, {}});
    return handle != 0 ? handle : Fail("Too many nodes are in use.");
}

void XmlLibrary::FreeNode(std::uint32_t node) {
    nodes_.Remove(node);
}

std::uint32_t XmlLibrary::FirstElementFrom(ComPtr<IXMLDOMNode> node, std::uint32_t document) {
    while (node != nullptr) {
        ComPtr<IXMLDOMElement> element;
        if (SUCCEEDED(node->QueryInterface(kIidDomElement,
                                           reinterpret_cast<void**>(element.GetAddressOf())))) {
            return AddNode(std::move(element), document);
        }
        ComPtr<IXMLDOMNode> next;
        node->get_nextSibling(&next);
        node = std::move(next);
    }
    return 0;
}

std::uint32_t XmlLibrary::Root(std::uint32_t document) {
    Document* entry = FindDocument(document);
    ComPtr<IXMLDOMElement> root;
    if (entry == nullptr || FAILED(entry->dom->get_documentElement(&root)) || root == nullptr) {
        return 0;
    }
    return AddNode(std::move(root), document);
}

ComPtr<IXMLDOMElement> XmlLibrary::NewElement(const Document& document, std::string_view name) {
    const std::wstring wide = WideFromAnsi(name);
    ComPtr<IXMLDOMElement> element;
    if (!IsXmlName(wide) || FAILED(document.dom->createElement(BStr(wide).Get(), &element))) {
        Fail("The element name is no XML name.");
        return nullptr;
    }
    return element;
}

std::uint32_t XmlLibrary::AddRoot(std::uint32_t document, std::string_view name) {
    Document* entry = FindDocument(document);
    if (entry == nullptr) {
        return 0;
    }
    ComPtr<IXMLDOMElement> root;
    if (SUCCEEDED(entry->dom->get_documentElement(&root)) && root != nullptr) {
        return Fail("The document already has a root element.");
    }
    root = NewElement(*entry, name);
    if (root == nullptr) {
        return 0;
    }
    if (FAILED(entry->dom->appendChild(root.Get(), nullptr))) {
        return Fail("MSXML did not take the root element.");
    }
    return AddNode(std::move(root), document);
}

std::uint32_t XmlLibrary::FirstChild(std::uint32_t node) {
    Node* entry = FindNode(node);
    ComPtr<IXMLDOMNode> child;
    if (entry == nullptr || FAILED(entry->element->get_firstChild(&child))) {
        return 0;
    }
    return FirstElementFrom(std::move(child), entry->document);
}

std::uint32_t XmlLibrary::Next(std::uint32_t node) {
    Node* entry = FindNode(node);
    ComPtr<IXMLDOMNode> sibling;
    if (entry == nullptr || FAILED(entry->element->get_nextSibling(&sibling))) {
        return 0;
    }
    return FirstElementFrom(std::move(sibling), entry->document);
}

std::uint32_t XmlLibrary::ChildByName(std::uint32_t node, std::string_view name) {
    std::uint32_t child = FirstChild(node);
    while (child != 0 && Name(child) != name) {
        const std::uint32_t next = Next(child);
        FreeNode(child);
        child = next;
    }
    return child;
}

std::uint32_t XmlLibrary::AddChild(std::uint32_t node, std::string_view name) {
    Node* entry = FindNode(node);
    if (entry == nullptr) {
        return 0;
    }
    const Document& document = DocumentOf(*entry);
    ComPtr<IXMLDOMElement> child = NewElement(document, name);
    if (child == nullptr) {
        return 0;
    }
    if (!AppendOnOwnLine(document.dom.Get(), entry->element.Get(), child.Get())) {
        return Fail("MSXML did not take the element.");
    }
    return AddNode(std::move(child), entry->document);
}

std::uint32_t XmlLibrary::InsertBefore(std::uint32_t node, std::string_view name) {
    Node* entry = FindNode(node);
    if (entry == nullptr) {
        return 0;
    }
    const Document& document = DocumentOf(*entry);
    ComPtr<IXMLDOMElement> element = NewElement(document, name);
    if (element == nullptr) {
        return 0;
    }
    if (!InsertOnOwnLine(document.dom.Get(), entry->element.Get(), element.Get())) {
        return Fail("MSXML did not take the element.");
    }
    return AddNode(std::move(element), entry->document);
}

bool XmlLibrary::Remove(std::uint32_t node) {
    Node* entry = FindNode(node);
    return entry != nullptr &&
           (RemoveWithLine(entry->element.Get()) || Fail("The element has no parent."));
}

std::optional<std::string> XmlLibrary::Name(std::uint32_t node) {
    Node* entry = FindNode(node);
    BStr name;
    if (entry == nullptr || FAILED(entry->element->get_nodeName(name.Receive()))) {
        return std::nullopt;
    }
    return AnsiFromWide(name.View());
}

}  // namespace workbench::xmlaccess
