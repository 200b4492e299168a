#pragma once

#include "memstruct/xml_document.h"

namespace orvell::memstruct {

/// Copies the types and memory areas below the root `source` that the root `destination` does not
/// have yet, by name or ID, to the end of the destination's first lists. All lists of both roots
/// are looked at.
///
/// The number of calls of the XML library is linear in the size of both documents.
void MergeDefinitions(const XmlNode& source, const XmlNode& destination);

/// Sets all attributes of `source` on `destination`, in their order, and adds copies of all its
/// descendant elements. Texts are not copied. Any depth will do: a handle or two a level are held,
/// but no stack.
void CopyElement(const XmlNode& source, XmlNode destination);

}  // namespace orvell::memstruct
