#pragma once

#include <windows.h>

#include <msxml2.h>

namespace workbench::xmlaccess {

// White space is part of a document, so that a file keeps its layout. Elements that are added get
// lines of their own, two blanks deeper than their parent. All return false when MSXML fails.

/// Appends `element` behind the children of `parent`.
[[nodiscard]] bool AppendOnOwnLine(IXMLDOMDocument2* document, IXMLDOMNode* parent,
                                   IXMLDOMNode* element);

/// Inserts `element` before its coming sibling `next`, an element below another one.
[[nodiscard]] bool InsertOnOwnLine(IXMLDOMDocument2* document, IXMLDOMNode* next,
                                   IXMLDOMNode* element);

/// Removes `element` together with the white space before it.
[[nodiscard]] bool RemoveWithLine(IXMLDOMNode* element);

}  // namespace workbench::xmlaccess
