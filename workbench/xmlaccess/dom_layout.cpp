#include "xmlaccess/dom_layout.h"

#include <wrl/client.h>

#include <algorithm>
#include <string>

#include "xmlaccess/com_support.h"

namespace workbench::xmlaccess {
namespace {

using Microsoft::WRL::ComPtr;
using Node = ComPtr<IXMLDOMNode>;

constexpr std::wstring_view kStep = L"  ";
constexpr std::size_t kDeepestIndentation = 64;  // deeper levels share it: the file stays small

DOMNodeType TypeOf(IXMLDOMNode* node) {
    DOMNodeType type = NODE_INVALID;
    if (node != nullptr) {
        node->get_nodeType(&type);
    }
    return type;
}

bool IsText(IXMLDOMNode* node) {
    const DOMNodeType type = TypeOf(node);
    return type == NODE_TEXT || type == NODE_CDATA_SECTION;
}

bool IsWhiteSpace(IXMLDOMNode* node) {
    Variant value;
    return TypeOf(node) == NODE_TEXT && SUCCEEDED(node->get_nodeValue(value.Receive())) &&
           value.Text().find_first_not_of(L" \t\r\n") == std::wstring_view::npos;
}

Node PreviousSibling(IXMLDOMNode* node) {
    Node previous;
    node->get_previousSibling(&previous);
    return previous;
}

Node Parent(IXMLDOMNode* node) {
    Node parent;
    node->get_parentNode(&parent);
    return parent;
}

/// The blanks and tabs before an element on its line; none when it does not begin its line.
std::wstring Indentation(IXMLDOMNode* element) {
    const Node before = PreviousSibling(element);
    Variant value;
    if (!IsWhiteSpace(before.Get()) || FAILED(before->get_nodeValue(value.Receive()))) {
        return {};
    }
    const std::wstring_view space = value.Text();
    const std::size_t lineEnd = space.rfind(L'\n');
    return lineEnd == std::wstring_view::npos
               ? std::wstring{}
               : std::wstring(space.substr(lineEnd + 1, kDeepestIndentation));
}

bool InsertBefore(IXMLDOMNode* parent, IXMLDOMNode* child, IXMLDOMNode* next) {
    return SUCCEEDED(parent->insertBefore(child, Variant(next).Get(), nullptr));
}

/// Starts a new line before `next`, or at the end of `parent` when it is null.
bool InsertLineBreak(IXMLDOMDocument2* document, IXMLDOMNode* parent, IXMLDOMNode* next,
                     const std::wstring& indentation) {
    ComPtr<IXMLDOMText> space;
    return SUCCEEDED(document->createTextNode(BStr(L"\n" + indentation).Get(), &space)) &&
           InsertBefore(parent, space.Get(), next);
}

}  // namespace

// Of two neighbouring texts an implementation may keep one only, so none is put beside another.
bool AppendOnOwnLine(IXMLDOMDocument2* document, IXMLDOMNode* parent, IXMLDOMNode* element) {
    Node last;
    parent->get_lastChild(&last);
    const bool closesOnOwnLine = IsWhiteSpace(last.Get());
    const bool isMixedContent = IsText(last.Get()) && !closesOnOwnLine;
    if (!InsertBefore(parent, element, closesOnOwnLine ? last.Get() : nullptr)) {
        return false;
    }
    if (isMixedContent) {
        return true;
    }
    const std::wstring outer = Indentation(parent);
    std::wstring inner = outer;
    if (inner.size() < kDeepestIndentation) {
        inner += kStep;
    }
    return (IsText(PreviousSibling(element).Get()) ||
            InsertLineBreak(document, parent, element, inner)) &&
           (closesOnOwnLine || InsertLineBreak(document, parent, nullptr, outer));
}

bool InsertOnOwnLine(IXMLDOMDocument2* document, IXMLDOMNode* next, IXMLDOMNode* element) {
    const Node parent = Parent(next);
    const std::wstring indentation = Indentation(next);
    return TypeOf(parent.Get()) == NODE_ELEMENT && InsertBefore(parent.Get(), element, next) &&
           InsertLineBreak(document, parent.Get(), next, indentation);
}

bool RemoveWithLine(IXMLDOMNode* element) {
    const Node parent = Parent(element);
    if (parent == nullptr) {
        return false;
    }
    const Node before = PreviousSibling(element);
    if (IsWhiteSpace(before.Get())) {
        parent->removeChild(before.Get(), nullptr);
    }
    return SUCCEEDED(parent->removeChild(element, nullptr));
}

}  // namespace workbench::xmlaccess
