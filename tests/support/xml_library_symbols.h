#pragma once

#include <string>

#include "support/fake_libraries.h"

namespace orvell::test {

/// Every function of an XML library but `GetDLLVersion`, at the same address.
template <typename Function>
[[nodiscard]] Symbols XmlLibrarySymbols(Function* function) {
    Symbols symbols;
    for (const char* name : {"Create",
                             "Open",
                             "ParseText",
                             "Save",
                             "Close",
                             "GetLastError",
                             "FreeMString",
                             "FreeHandle",
                             "GetRootNode",
                             "AddRootNodeByName",
                             "GetFirstChildNode",
                             "GetNextNode",
                             "GetChildNodeByName",
                             "AddChildNodeByName",
                             "InsertBeforeNode",
                             "RemoveNode",
                             "GetNodeName",
                             "GetNumOfAttribs",
                             "GetNameOfAttrib",
                             "GetAttribValueAsString",
                             "GetAttribValueAsULONG",
                             "SetStringValueAttrib",
                             "SetULONGValueAttrib",
                             "RemoveAttrib",
                             "GetNodeText",
                             "SetNodeText"}) {
        symbols[std::string("XMLIF_") + name] = Address(function);
    }
    return symbols;
}

}  // namespace orvell::test
