#pragma once

#include <windows.h>

#include <msxml2.h>
#include <wrl/client.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xmlaccess/handle_table.h"

namespace workbench::xmlaccess {

/// All documents and nodes that the library has handed out, and the reason of its last failure.
///
/// Operations answer a handle that is not in use, a name that is no XML name or a failure of MSXML
/// with their failure value (0, false, nothing) and set the reason. Texts are in the ANSI code
/// page. Each operation costs no more than its result, but the first look at an element's
/// attributes, which reads the names of all.
class XmlLibrary {
  public:
    // ---- Documents ----
    [[nodiscard]] std::uint32_t Create();
    [[nodiscard]] std::uint32_t Open(std::string_view path);
    [[nodiscard]] std::uint32_t ParseText(std::string_view text);
    [[nodiscard]] bool Save(std::uint32_t document, std::string_view path);
    bool Close(std::uint32_t document);
    [[nodiscard]] const std::string& LastError() const { return lastError_; }

    // ---- Nodes ----
    void FreeNode(std::uint32_t node);
    [[nodiscard]] std::uint32_t Root(std::uint32_t document);
    [[nodiscard]] std::uint32_t AddRoot(std::uint32_t document, std::string_view name);
    [[nodiscard]] std::uint32_t FirstChild(std::uint32_t node);
    [[nodiscard]] std::uint32_t Next(std::uint32_t node);
    [[nodiscard]] std::uint32_t ChildByName(std::uint32_t node, std::string_view name);
    [[nodiscard]] std::uint32_t AddChild(std::uint32_t node, std::string_view name);
    [[nodiscard]] std::uint32_t InsertBefore(std::uint32_t node, std::string_view name);
    [[nodiscard]] bool Remove(std::uint32_t node);
    [[nodiscard]] std::optional<std::string> Name(std::uint32_t node);

    // ---- Attributes and text ----
    [[nodiscard]] std::uint32_t AttributeCount(std::uint32_t node);
    [[nodiscard]] std::optional<std::string> AttributeName(std::uint32_t node, std::size_t index);
    [[nodiscard]] std::optional<std::string> AttributeText(std::uint32_t node,
                                                           std::string_view name);
    [[nodiscard]] std::optional<std::uint32_t> AttributeNumber(std::uint32_t node,
                                                               std::string_view name);
    [[nodiscard]] bool SetAttribute(std::uint32_t node, std::string_view name,
                                    std::string_view value);
    [[nodiscard]] bool RemoveAttribute(std::uint32_t node, std::string_view name);
    [[nodiscard]] std::optional<std::string> Text(std::uint32_t node);
    [[nodiscard]] bool SetText(std::uint32_t node, std::string_view text);

  private:
    struct Document {
        Microsoft::WRL::ComPtr<IXMLDOMDocument2> dom;
        std::uint32_t attributeRevision = 1;  ///< counts changes of any element's attributes
    };
    struct Node {
        Microsoft::WRL::ComPtr<IXMLDOMElement> element;
        std::uint32_t document = 0;
        std::uint32_t namesRevision = 0;  ///< the document's when `attributeNames` was read
        std::vector<std::string> attributeNames;
    };

    template <typename LoadInto>
    std::uint32_t CreateLoaded(const LoadInto& load);
    Document* FindDocument(std::uint32_t handle);
    Node* FindNode(std::uint32_t handle);
    Document& DocumentOf(const Node& node) { return *documents_.Find(node.document); }

    /// Handle of `node`, or of the first element behind it; 0 when there is none.
    std::uint32_t FirstElementFrom(Microsoft::WRL::ComPtr<IXMLDOMNode> node,
                                   std::uint32_t document);
    std::uint32_t AddNode(Microsoft::WRL::ComPtr<IXMLDOMElement> element, std::uint32_t document);
    Microsoft::WRL::ComPtr<IXMLDOMElement> NewElement(const Document& document,
                                                      std::string_view name);
    const std::vector<std::string>& AttributeNames(Node& node);
    std::optional<std::wstring> WideAttribute(std::uint32_t node, std::string_view name);

    /// Sets the reason and returns false (0).
    bool Fail(std::string reason);

    HandleTable<Document, 1> documents_;
    HandleTable<Node, 2> nodes_;
    std::string lastError_;
};

}  // namespace workbench::xmlaccess
