#pragma once

#include <windows.h>

#include <string>

#include "xmlaccess/xmlif.h"

namespace workbench_test {

/// The loaded ZELKORXML.DLL, with its texts as strings; handles stay as they are.
class XmlAccess {
  public:
    XmlAccess();
    ~XmlAccess();
    XmlAccess(const XmlAccess&) = delete;
    XmlAccess& operator=(const XmlAccess&) = delete;

    // What a text function left when it did not succeed.
    static constexpr const char* kNone = "(none)";

    [[nodiscard]] std::string LastError() const;
    [[nodiscard]] std::string Name(XmlNodeHandle node) const;
    [[nodiscard]] std::string AttributeName(XmlNodeHandle node, std::uint32_t index) const;
    [[nodiscard]] std::string Attribute(XmlNodeHandle node, const char* name) const;
    [[nodiscard]] std::string NodeText(XmlNodeHandle node) const;

    HMODULE library;
    decltype(&XMLIF_Create) Create;
    decltype(&XMLIF_Open) Open;
    decltype(&XMLIF_ParseText) ParseText;
    decltype(&XMLIF_Save) Save;
    decltype(&XMLIF_Close) Close;
    decltype(&XMLIF_GetLastError) GetLastError;
    decltype(&XMLIF_FreeMString) FreeMString;
    decltype(&XMLIF_FreeHandle) FreeHandle;
    decltype(&XMLIF_GetRootNode) GetRootNode;
    decltype(&XMLIF_AddRootNodeByName) AddRootNodeByName;
    decltype(&XMLIF_GetFirstChildNode) GetFirstChildNode;
    decltype(&XMLIF_GetNextNode) GetNextNode;
    decltype(&XMLIF_GetChildNodeByName) GetChildNodeByName;
    decltype(&XMLIF_AddChildNodeByName) AddChildNodeByName;
    decltype(&XMLIF_InsertBeforeNode) InsertBeforeNode;
    decltype(&XMLIF_RemoveNode) RemoveNode;
    decltype(&XMLIF_GetNodeName) GetNodeName;
    decltype(&XMLIF_GetNumOfAttribs) GetNumOfAttribs;
    decltype(&XMLIF_GetNameOfAttrib) GetNameOfAttrib;
    decltype(&XMLIF_GetAttribValueAsString) GetAttribValueAsString;
    decltype(&XMLIF_GetAttribValueAsULONG) GetAttribValueAsULONG;
    decltype(&XMLIF_SetStringValueAttrib) SetStringValueAttrib;
    decltype(&XMLIF_SetULONGValueAttrib) SetULONGValueAttrib;
    decltype(&XMLIF_RemoveAttrib) RemoveAttrib;
    decltype(&XMLIF_GetNodeText) GetNodeText;
    decltype(&XMLIF_SetNodeText) SetNodeText;
    decltype(&GetDLLVersion) Version;

  private:
    /// The text that `call` put into its record, or `kNone`.
    template <typename Call>
    std::string Take(const Call& call) const;
};

}  // namespace workbench_test
