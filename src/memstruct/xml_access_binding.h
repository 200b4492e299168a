#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvell/services.h"
#include "platform/library.h"
#include "resources/string_table.h"

namespace orvell::memstruct {

/// The host's XML access library, bound by name.
///
/// Every call checks its function first: a missing one makes the call return 0, an empty text or
/// nothing. Texts that the library lends are copied and given back at once, whether the call
/// succeeded or not.
class XmlAccessBinding {
  public:
    /// `strings` holds the element and attribute names that are looked up by number.
    explicit XmlAccessBinding(const resources::StringTable& strings) : strings_(strings) {}
    XmlAccessBinding(const XmlAccessBinding&) = delete;
    XmlAccessBinding& operator=(const XmlAccessBinding&) = delete;

    /// Frees what is bound, loads the library at `path` and resolves its 26 functions, also those
    /// never called. False, with nothing bound, when the path is empty, the library does not load
    /// or lacks one.
    [[nodiscard]] bool Bind(platform::LibraryLoader& loader, const std::string& path);

    /// Frees the library and clears all functions; nothing when nothing is bound.
    void Unbind();

    /// As `Unbind`, but leaves the library to the ending process.
    void Abandon();

    /// The bound library, null when none is.
    [[nodiscard]] const platform::Library* BoundLibrary() const { return library_.get(); }

    [[nodiscard]] const resources::StringTable& Strings() const { return strings_; }

    [[nodiscard]] XmlDocumentHandle Create() const;
    [[nodiscard]] XmlDocumentHandle Open(const std::string& path) const;
    [[nodiscard]] bool Save(XmlDocumentHandle document, const std::string& path) const;
    void Close(XmlDocumentHandle document) const;

    /// Reason of the library's last failure, empty when there is none.
    [[nodiscard]] std::string LastError() const;

    void FreeHandle(XmlNodeHandle node) const;
    [[nodiscard]] XmlNodeHandle RootNode(XmlDocumentHandle document) const;
    [[nodiscard]] XmlNodeHandle AddRootNode(XmlDocumentHandle document, const char* name) const;
    [[nodiscard]] XmlNodeHandle FirstChild(XmlNodeHandle node) const;
    [[nodiscard]] XmlNodeHandle NextNode(XmlNodeHandle node) const;
    [[nodiscard]] XmlNodeHandle ChildByName(XmlNodeHandle node, const char* name) const;
    [[nodiscard]] XmlNodeHandle AddChild(XmlNodeHandle node, const char* name) const;

    /// These fill `text` and return true, or empty it and return false.
    bool NodeName(XmlNodeHandle node, std::string& text) const;
    bool AttribName(XmlNodeHandle node, std::uint32_t index, std::string& text) const;
    bool AttribText(XmlNodeHandle node, const char* name, std::string& text) const;

    [[nodiscard]] std::uint32_t AttribCount(XmlNodeHandle node) const;

    /// Sets `value` to 0 and returns false when the attribute is absent or not an unsigned number.
    bool AttribULong(XmlNodeHandle node, const char* name, std::uint32_t& value) const;

    [[nodiscard]] bool SetAttribText(XmlNodeHandle node, const char* name, const char* value) const;

  private:
    const resources::StringTable& strings_;
    std::unique_ptr<platform::Library> library_;
    XmlAccessFunctions functions_{};
};

}  // namespace orvell::memstruct
