#include "cli/definition_file.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

#include "cli/library.h"
#include "common/module_path.h"
#include "orvell/services.h"

namespace workbench::cli {
namespace {

/// The functions of ZELKORXML.DLL that reading needs.
class XmlReader {
  public:
    [[nodiscard]] bool Bind() {
        library_.reset(LoadLibraryA((FolderOfModule(nullptr) + "ZELKORXML.DLL").c_str()));
        return Resolve("XMLIF_Open", xml_.Open) && Resolve("XMLIF_Close", xml_.Close) &&
               Resolve("XMLIF_GetLastError", xml_.GetLastError) &&
               Resolve("XMLIF_FreeMString", xml_.FreeMString) &&
               Resolve("XMLIF_FreeHandle", xml_.FreeHandle) &&
               Resolve("XMLIF_GetRootNode", xml_.GetRootNode) &&
               Resolve("XMLIF_GetFirstChildNode", xml_.GetFirstChildNode) &&
               Resolve("XMLIF_GetNextNode", xml_.GetNextNode) &&
               Resolve("XMLIF_GetChildNodeByName", xml_.GetChildNodeByName) &&
               Resolve("XMLIF_GetNodeName", xml_.GetNodeName) &&
               Resolve("XMLIF_GetAttribValueAsString", xml_.GetAttribValueAsString) &&
               Resolve("XMLIF_GetAttribValueAsULONG", xml_.GetAttribValueAsULONG);
    }

    [[nodiscard]] XmlDocumentHandle Open(const std::string& path) {
        return xml_.Open(path.c_str());
    }
    void Close(XmlDocumentHandle document) { xml_.Close(document); }

    /// Calls `visit` for every element `name` below the first `list` under the root.
    template <typename Visit>
    void ForEach(XmlDocumentHandle document, const char* list, std::string_view name,
                 const Visit& visit) {
        const XmlNodeHandle root = xml_.GetRootNode(document);
        const XmlNodeHandle parent = xml_.GetChildNodeByName(root, list);
        XmlNodeHandle node = xml_.GetFirstChildNode(parent);
        while (node != 0) {
            if (Name(node) == name) {
                visit(node);
            }
            const XmlNodeHandle next = xml_.GetNextNode(node);
            xml_.FreeHandle(node);
            node = next;
        }
        xml_.FreeHandle(parent);
        xml_.FreeHandle(root);
    }

    [[nodiscard]] std::string LastError() {
        return Take([this](MString* text) { return xml_.GetLastError(text); });
    }
    [[nodiscard]] std::string Name(XmlNodeHandle node) {
        return Take([=, this](MString* text) { return xml_.GetNodeName(node, text); });
    }
    [[nodiscard]] std::string Text(XmlNodeHandle node, const char* attribute) {
        return Take([=, this](MString* text) {
            return xml_.GetAttribValueAsString(node, attribute, text);
        });
    }
    [[nodiscard]] std::uint32_t Number(XmlNodeHandle node, const char* attribute) {
        std::uint32_t number = 0;
        return xml_.GetAttribValueAsULONG(node, attribute, &number) != 0 ? number : 0;
    }

  private:
    template <typename Function>
    bool Resolve(const char* name, Function& function) {
        return ResolveFunction(library_.get(), name, function);
    }

    template <typename Call>
    std::string Take(const Call& call) {
        MString record{};
        std::string text = call(&record) != 0 ? record.text : "";
        xml_.FreeMString(&record);
        return text;
    }

    LoadedLibrary library_;
    XmlAccessFunctions xml_{};
};

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos
               ? std::string{}
               : text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

}  // namespace

bool ReadDefinitions(const std::string& path, Definitions& definitions, std::string& error) {
    XmlReader reader;
    if (!reader.Bind()) {
        error = "ZELKORXML.DLL beside workbench.exe cannot be used.";
        return false;
    }
    const XmlDocumentHandle document = reader.Open(path);
    if (document == 0) {
        error = reader.LastError();
        return false;
    }
    definitions = {};
    reader.ForEach(document, "TypeList", "Type", [&](XmlNodeHandle) { ++definitions.typeCount; });
    reader.ForEach(document, "MemoryList", "Memory", [&](XmlNodeHandle node) {
        const Area area{reader.Number(node, "ID"), Trimmed(reader.Text(node, "Type"))};
        if (area.id != 0 && !area.typeName.empty()) {
            definitions.areas.push_back(area);
        }
    });
    reader.Close(document);
    std::ranges::stable_sort(definitions.areas, {}, &Area::id);
    const auto repeated = std::ranges::unique(definitions.areas, {}, &Area::id);
    definitions.areas.erase(repeated.begin(), repeated.end());
    return true;
}

}  // namespace workbench::cli
