#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "fake_xml_text.h"
#include "orvell/services.h"
#include "support/fake_libraries.h"

namespace orvell::test {

/// An XML access library that works on trees in memory, counts what it hands out, notes each misuse
/// and fails when told to. One object at a time: the library's functions know no other context.
///
/// A call that fails fills its results with garbage, so that nobody gets by with reading them.
class FakeXmlLibrary {
  public:
    FakeXmlLibrary();
    ~FakeXmlLibrary();
    FakeXmlLibrary(const FakeXmlLibrary&) = delete;
    FakeXmlLibrary& operator=(const FakeXmlLibrary&) = delete;

    /// All functions that the library exports.
    [[nodiscard]] static Symbols Functions();

    /// Files that exist in memory, by path; `Open` and `Save` look here before the disk.
    std::map<std::string, std::string> files;

    /// Whether nodes for texts and comments stand among the elements.
    bool givesOtherNodes = false;

    /// The call that fails, counted from 1; 0: none. Calls that give something back never fail.
    std::uint64_t failingCall = 0;
    /// Whether all calls after it fail as well.
    bool staysBroken = false;
    /// Whether calls that fail end by an exception, and all calls that give something back as well.
    bool throws = false;

    /// Told of each entry into the library and each return from it; null: nobody is.
    static inline void (*onEntryAndReturn)(bool isEntry) = nullptr;

    /// Calls so far, without those that give something back.
    std::uint64_t calls = 0;

    /// What is out at the moment; 0 for each of them when all has been given back.
    [[nodiscard]] std::size_t DocumentsOut() const { return documents_.size(); }
    [[nodiscard]] std::size_t NodesOut() const { return nodes_.size(); }
    [[nodiscard]] std::size_t TextsOut() const { return texts_.size(); }
    [[nodiscard]] std::size_t MostNodesOut() const { return mostNodesOut_; }

    /// Handles and texts given back twice, used after that, records not zeroed, ...
    std::vector<std::string> misuses;

    /// Misuses and what is out, one a line; empty when there is nothing to complain about.
    [[nodiscard]] std::string Complaints() const;

  private:
    struct Node {
        FakeNode* node;
        XmlDocumentHandle document;
    };

    template <auto method>
    struct Export;

    bool Fails();
    std::uint32_t NewHandle() { return ++lastHandle_; }
    FakeDocument* DocumentOf(XmlDocumentHandle handle);
    Node* NodeOf(XmlNodeHandle handle);
    FakeDocument& DocumentOf(const Node& node) { return *documents_.at(node.document); }
    XmlDocumentHandle HandOut(std::unique_ptr<FakeDocument> document);
    XmlNodeHandle HandOut(FakeNode* node, XmlDocumentHandle document);
    std::int32_t Lend(MString* record, const std::string* text);
    FakeNode* SkipOtherNodes(FakeNode* node) const;

    XmlDocumentHandle Create();
    XmlDocumentHandle Open(const char* path);
    std::int32_t Save(XmlDocumentHandle document, const char* path);
    std::int32_t Close(XmlDocumentHandle document);
    std::int32_t GetLastError(MString* text);
    void FreeMString(MString* text);
    void FreeHandle(XmlNodeHandle node);
    XmlNodeHandle GetRootNode(XmlDocumentHandle document);
    XmlNodeHandle AddRootNodeByName(XmlDocumentHandle document, const char* name);
    XmlNodeHandle GetFirstChildNode(XmlNodeHandle node);
    XmlNodeHandle GetNextNode(XmlNodeHandle node);
    XmlNodeHandle GetChildNodeByName(XmlNodeHandle node, const char* name);
    XmlNodeHandle AddChildNodeByName(XmlNodeHandle node, const char* name);
    std::int32_t GetNodeName(XmlNodeHandle node, MString* name);
    std::uint32_t GetNumOfAttribs(XmlNodeHandle node);
    std::int32_t GetNameOfAttrib(XmlNodeHandle node, std::uint32_t index, MString* name);
    std::int32_t GetAttribValueAsString(XmlNodeHandle node, const char* name, MString* value);
    std::int32_t GetAttribValueAsULONG(XmlNodeHandle node, const char* name, std::uint32_t* value);
    std::int32_t SetStringValueAttrib(XmlNodeHandle node, const char* name, const char* value);
    void NeverCalled() { misuses.emplace_back("call of a function that nobody needs"); }

    std::unordered_map<XmlDocumentHandle, std::unique_ptr<FakeDocument>> documents_;
    std::unordered_map<XmlNodeHandle, Node> nodes_;
    std::unordered_map<std::uint32_t, std::unique_ptr<std::string>> texts_;
    std::uint32_t lastHandle_ = 1000;
    std::size_t mostNodesOut_ = 0;
    bool hasToThrow_ = false;
    std::string lastError_;
};

}  // namespace orvell::test
