#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "common/lent_text.h"
#include "xmlaccess/xml_library.h"
#include "xmlaccess/xmlif.h"

namespace {

using workbench::xmlaccess::XmlLibrary;

std::unique_ptr<XmlLibrary> library;

/// Runs `work` with the library; nothing but its result, or 0, leaves through the boundary.
template <typename Work>
auto Guarded(const Work& work) noexcept -> decltype(work(*library)) {
    try {
        if (library != nullptr) {
            return work(*library);
        }
    } catch (...) {
        // out of memory is the only reason; a result of 0 says that nothing was done
    }
    return decltype(work(*library))();
}

/// As `Guarded`, for work whose optional text is lent.
template <typename Work>
std::int32_t GuardedText(MString* result, const Work& work) noexcept {
    if (result == nullptr) {
        return 0;
    }
    *result = MString{};
    return Guarded([&](XmlLibrary& xml) -> std::int32_t {
        const std::optional<std::string> text = work(xml);
        return text && workbench::LendText(*result, *text) ? 1 : 0;
    });
}

std::int32_t Truth(bool value) {
    return value ? 1 : 0;
}

/// An absent text counts as empty.
const char* Given(const char* text) {
    return text == nullptr ? "" : text;
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
    if (reason == DLL_PROCESS_ATTACH) {
        try {
            library = std::make_unique<XmlLibrary>();
        } catch (...) {
            return FALSE;
        }
    } else if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) {
        library.reset();
    } else if (reason == DLL_PROCESS_DETACH) {
        // MSXML may be gone already when the process ends: what is still open stays with it.
        static_cast<void>(library.release());
    }
    return TRUE;
}

// ---- Documents ----

XmlDocumentHandle XMLIF_Create() {
    return Guarded([](XmlLibrary& xml) { return xml.Create(); });
}

XmlDocumentHandle XMLIF_Open(const char* path) {
    return Guarded([=](XmlLibrary& xml) { return xml.Open(Given(path)); });
}

XmlDocumentHandle XMLIF_ParseText(const char* text) {
    return Guarded([=](XmlLibrary& xml) { return xml.ParseText(Given(text)); });
}

std::int32_t XMLIF_Save(XmlDocumentHandle document, const char* path) {
    return Guarded([=](XmlLibrary& xml) { return Truth(xml.Save(document, Given(path))); });
}

std::int32_t XMLIF_Close(XmlDocumentHandle document) {
    return Guarded([=](XmlLibrary& xml) { return Truth(xml.Close(document)); });
}

std::int32_t XMLIF_GetLastError(MString* text) {
    return GuardedText(text, [](XmlLibrary& xml) {
        return xml.LastError().empty() ? std::nullopt : std::optional(xml.LastError());
    });
}

void XMLIF_FreeMString(MString* text) {
    workbench::TakeBackText(text);
}

// ---- Nodes ----

void XMLIF_FreeHandle(XmlNodeHandle node) {
    Guarded([=](XmlLibrary& xml) { xml.FreeNode(node); });
}

XmlNodeHandle XMLIF_GetRootNode(XmlDocumentHandle document) {
    return Guarded([=](XmlLibrary& xml) { return xml.Root(document); });
}

XmlNodeHandle XMLIF_AddRootNodeByName(XmlDocumentHandle document, const char* name) {
    return Guarded([=](XmlLibrary& xml) { return xml.AddRoot(document, Given(name)); });
}

XmlNodeHandle XMLIF_GetFirstChildNode(XmlNodeHandle node) {
    return Guarded([=](XmlLibrary& xml) { return xml.FirstChild(node); });
}

XmlNodeHandle XMLIF_GetNextNode(XmlNodeHandle node) {
    return Guarded([=](XmlLibrary& xml) { return xml.Next(node); });
}

XmlNodeHandle XMLIF_GetChildNodeByName(XmlNodeHandle node, const char* name) {
    return Guarded([=](XmlLibrary& xml) { return xml.ChildByName(node, Given(name)); });
}

XmlNodeHandle XMLIF_AddChildNodeByName(XmlNodeHandle node, const char* name) {
    return Guarded([=](XmlLibrary& xml) { return xml.AddChild(node, Given(name)); });
}

XmlNodeHandle XMLIF_InsertBeforeNode(XmlNodeHandle node, const char* name) {
    return Guarded([=](XmlLibrary& xml) { return xml.InsertBefore(node, Given(name)); });
}

std::int32_t XMLIF_RemoveNode(XmlNodeHandle node) {
    return Guarded([=](XmlLibrary& xml) { return Truth(xml.Remove(node)); });
}

std::int32_t XMLIF_GetNodeName(XmlNodeHandle node, MString* name) {
    return GuardedText(name, [=](XmlLibrary& xml) { return xml.Name(node); });
}

// ---- Attributes and text ----

std::uint32_t XMLIF_GetNumOfAttribs(XmlNodeHandle node) {
    return Guarded([=](XmlLibrary& xml) { return xml.AttributeCount(node); });
}

std::int32_t XMLIF_GetNameOfAttrib(XmlNodeHandle node, std::uint32_t index, MString* name) {
    return GuardedText(name, [=](XmlLibrary& xml) { return xml.AttributeName(node, index); });
}

std::int32_t XMLIF_GetAttribValueAsString(XmlNodeHandle node, const char* name, MString* value) {
    return GuardedText(value,
                       [=](XmlLibrary& xml) { return xml.AttributeText(node, Given(name)); });
}

std::int32_t XMLIF_GetAttribValueAsULONG(XmlNodeHandle node, const char* name,
                                         std::uint32_t* value) {
    if (value == nullptr) {
        return 0;
    }
    *value = 0;
    return Guarded([=](XmlLibrary& xml) {
        const std::optional<std::uint32_t> number = xml.AttributeNumber(node, Given(name));
        *value = number.value_or(0);
        return Truth(number.has_value());
    });
}

std::int32_t XMLIF_SetStringValueAttrib(XmlNodeHandle node, const char* name, const char* value) {
    return Guarded(
        [=](XmlLibrary& xml) { return Truth(xml.SetAttribute(node, Given(name), Given(value))); });
}

std::int32_t XMLIF_SetULONGValueAttrib(XmlNodeHandle node, const char* name, std::uint32_t value) {
    return Guarded([=](XmlLibrary& xml) {
        return Truth(xml.SetAttribute(node, Given(name), std::to_string(value)));
    });
}

std::int32_t XMLIF_RemoveAttrib(XmlNodeHandle node, const char* name) {
    return Guarded([=](XmlLibrary& xml) { return Truth(xml.RemoveAttribute(node, Given(name))); });
}

std::int32_t XMLIF_GetNodeText(XmlNodeHandle node, MString* text) {
    return GuardedText(text, [=](XmlLibrary& xml) { return xml.Text(node); });
}

std::int32_t XMLIF_SetNodeText(XmlNodeHandle node, const char* text) {
    return Guarded([=](XmlLibrary& xml) { return Truth(xml.SetText(node, Given(text))); });
}

double GetDLLVersion() {
    return 2.0 + 1.0 / 100;
}
