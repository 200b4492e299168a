#include "boundary/xmlaccess/xml_access.h"

#include "boundary/xmlaccess/scratch_folder.h"

namespace workbench_test {
namespace {

template <typename Function>
void Resolve(HMODULE library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

XmlAccess::XmlAccess() : library(LoadLibraryA((LibraryFolder() + "ZELKORXML.DLL").c_str())) {
    Resolve(library, "XMLIF_Create", Create);
    Resolve(library, "XMLIF_Open", Open);
    Resolve(library, "XMLIF_ParseText", ParseText);
    Resolve(library, "XMLIF_Save", Save);
    Resolve(library, "XMLIF_Close", Close);
    Resolve(library, "XMLIF_GetLastError", GetLastError);
    Resolve(library, "XMLIF_FreeMString", FreeMString);
    Resolve(library, "XMLIF_FreeHandle", FreeHandle);
    Resolve(library, "XMLIF_GetRootNode", GetRootNode);
    Resolve(library, "XMLIF_AddRootNodeByName", AddRootNodeByName);
    Resolve(library, "XMLIF_GetFirstChildNode", GetFirstChildNode);
    Resolve(library, "XMLIF_GetNextNode", GetNextNode);
    Resolve(library, "XMLIF_GetChildNodeByName", GetChildNodeByName);
    Resolve(library, "XMLIF_AddChildNodeByName", AddChildNodeByName);
    Resolve(library, "XMLIF_InsertBeforeNode", InsertBeforeNode);
    Resolve(library, "XMLIF_RemoveNode", RemoveNode);
    Resolve(library, "XMLIF_GetNodeName", GetNodeName);
    Resolve(library, "XMLIF_GetNumOfAttribs", GetNumOfAttribs);
    Resolve(library, "XMLIF_GetNameOfAttrib", GetNameOfAttrib);
    Resolve(library, "XMLIF_GetAttribValueAsString", GetAttribValueAsString);
    Resolve(library, "XMLIF_GetAttribValueAsULONG", GetAttribValueAsULONG);
    Resolve(library, "XMLIF_SetStringValueAttrib", SetStringValueAttrib);
    Resolve(library, "XMLIF_SetULONGValueAttrib", SetULONGValueAttrib);
    Resolve(library, "XMLIF_RemoveAttrib", RemoveAttrib);
    Resolve(library, "XMLIF_GetNodeText", GetNodeText);
    Resolve(library, "XMLIF_SetNodeText", SetNodeText);
    Resolve(library, "GetDLLVersion", Version);
}

XmlAccess::~XmlAccess() {
    FreeLibrary(library);
}

template <typename Call>
std::string XmlAccess::Take(const Call& call) const {
    MString record{};
    const bool taken = call(&record) != 0;
    const std::string text = taken ? record.text : kNone;
    FreeMString(&record);
    return text;
}

std::string XmlAccess::LastError() const {
    return Take([this](MString* text) { return GetLastError(text); });
}

std::string XmlAccess::Name(XmlNodeHandle node) const {
    return Take([=, this](MString* text) { return GetNodeName(node, text); });
}

std::string XmlAccess::AttributeName(XmlNodeHandle node, std::uint32_t index) const {
    return Take([=, this](MString* text) { return GetNameOfAttrib(node, index, text); });
}

std::string XmlAccess::Attribute(XmlNodeHandle node, const char* name) const {
    return Take([=, this](MString* text) { return GetAttribValueAsString(node, name, text); });
}

std::string XmlAccess::NodeText(XmlNodeHandle node) const {
    return Take([=, this](MString* text) { return GetNodeText(node, text); });
}

}  // namespace workbench_test
