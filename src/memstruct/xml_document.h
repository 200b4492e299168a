#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "memstruct/xml_access_binding.h"

namespace orvell::memstruct {

/// Owns one node handle of the XML access library and gives it back exactly once.
///
/// Children are walked by `ForEachChild`, which holds one handle at a time.
class XmlNode {
  public:
    XmlNode() = default;
    XmlNode(const XmlAccessBinding& xml, XmlNodeHandle handle) : xml_(&xml), handle_(handle) {}
    XmlNode(XmlNode&& other) noexcept;
    XmlNode& operator=(XmlNode&& other) noexcept;  ///< assigning a node to itself does nothing
    XmlNode(const XmlNode&) = delete;
    XmlNode& operator=(const XmlNode&) = delete;
    ~XmlNode() { Release(); }

    [[nodiscard]] bool IsValid() const { return handle_ != 0; }
    void Release();

    // Results are invalid nodes when this node is invalid or has no such relative.
    [[nodiscard]] XmlNode FirstChild() const;
    [[nodiscard]] XmlNode Next() const;
    [[nodiscard]] XmlNode ChildByName(const std::string& name) const;
    [[nodiscard]] XmlNode ChildByName(resources::StringId name) const;
    [[nodiscard]] XmlNode AddChild(const std::string& name) const;
    [[nodiscard]] XmlNode AddChild(resources::StringId name) const;

    /// Calls `visit` with each child in document order.
    template <typename Visit>
    void ForEachChild(Visit&& visit) const;

    /// Calls `visit` with each child of this name.
    template <typename Visit>
    void ForEachChild(resources::StringId name, Visit&& visit) const;

    /// The element's name, empty when the library fails.
    [[nodiscard]] std::string Name() const;

    /// True when the element's name equals the string exactly; false for a missing string.
    [[nodiscard]] bool NameIs(resources::StringId name) const;

    [[nodiscard]] std::uint32_t AttribCount() const;

    // These return false and empty (zero) `out` when there is no such attribute.
    bool AttribName(std::uint32_t index, std::string& out) const;
    bool AttribText(const std::string& name, std::string& out) const;
    bool AttribText(resources::StringId name, std::string& out) const;
    bool AttribULong(const std::string& name, std::uint32_t& out) const;
    bool AttribULong(resources::StringId name, std::uint32_t& out) const;

    [[nodiscard]] bool SetAttribText(const std::string& name, const std::string& value) const;

  private:
    const XmlAccessBinding* xml_ = nullptr;
    XmlNodeHandle handle_ = 0;
};

/// Owns one document of the XML access library and closes it exactly once.
class XmlDocument {
  public:
    explicit XmlDocument(const XmlAccessBinding& xml) : xml_(xml) {}
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;
    ~XmlDocument() { Close(); }

    /// Both close the document held before; false when the library fails.
    [[nodiscard]] bool Create();
    [[nodiscard]] bool Open(const std::string& path);

    [[nodiscard]] bool Save(const std::string& path) const;
    void Close();

    [[nodiscard]] XmlNode Root() const;
    [[nodiscard]] XmlNode AddRoot(const std::string& name) const;
    [[nodiscard]] XmlNode AddRoot(resources::StringId name) const;

    /// Reason of the library's last failure; needs no document.
    [[nodiscard]] std::string LastError() const { return xml_.LastError(); }

  private:
    const XmlAccessBinding& xml_;
    XmlDocumentHandle handle_ = 0;
};

template <typename Visit>
void XmlNode::ForEachChild(Visit&& visit) const {
    for (XmlNode child = FirstChild(); child.IsValid(); child = child.Next()) {
        visit(std::as_const(child));
    }
}

template <typename Visit>
void XmlNode::ForEachChild(resources::StringId name, Visit&& visit) const {
    ForEachChild([&](const XmlNode& child) {
        if (child.NameIs(name)) {
            visit(child);
        }
    });
}

}  // namespace orvell::memstruct
