#include "fake_xml_library.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <utility>

namespace orvell::test {

namespace {

FakeXmlLibrary* current = nullptr;

constexpr std::uint32_t kGarbage = 0xDEADBEEF;

std::optional<std::string> ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void Tell(bool isEntry) {
    if (FakeXmlLibrary::onEntryAndReturn != nullptr) {
        FakeXmlLibrary::onEntryAndReturn(isEntry);
    }
}

/// Tells of an entry and, at its end, of the return.
class Visit {
  public:
    Visit() { Tell(true); }
    ~Visit() { Tell(false); }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;
};

}  // namespace

/// The plain function that forwards to a method of the current object.
template <typename Result, typename... Parameters, Result (FakeXmlLibrary::*method)(Parameters...)>
struct FakeXmlLibrary::Export<method> {
    static Result ORVELL_CALL Call(Parameters... arguments) {
        const Visit visit;
        const ThrowAtEnd end;
        return (current->*method)(arguments...);
    }
    static void* Address() { return test::Address(&Call); }

  private:
    /// Leaves the call by an exception when that is due.
    struct ThrowAtEnd {
        ~ThrowAtEnd() noexcept(false) {
            if (std::exchange(current->hasToThrow_, false)) {
                throw std::runtime_error("thrown by the library");
            }
        }
    };
};

FakeXmlLibrary::FakeXmlLibrary() {
    current = this;
    lastError_.reserve(64);  // one block always, for tests that compare how many are held
}

FakeXmlLibrary::~FakeXmlLibrary() {
    current = nullptr;
}

Symbols FakeXmlLibrary::Functions() {
    using Library = FakeXmlLibrary;
    return {
        {"XMLIF_Create", Export<&Library::Create>::Address()},
        {"XMLIF_Open", Export<&Library::Open>::Address()},
        {"XMLIF_ParseText", Export<&Library::NeverCalled>::Address()},
        {"XMLIF_Save", Export<&Library::Save>::Address()},
        {"XMLIF_Close", Export<&Library::Close>::Address()},
        {"XMLIF_GetLastError", Export<&Library::GetLastError>::Address()},
        {"XMLIF_FreeMString", Export<&Library::FreeMString>::Address()},
        {"XMLIF_FreeHandle", Export<&Library::FreeHandle>::Address()},
        {"XMLIF_GetRootNode", Export<&Library::GetRootNode>::Address()},
        {"XMLIF_AddRootNodeByName", Export<&Library::AddRootNodeByName>::Address()},
        {"XMLIF_GetFirstChildNode", Export<&Library::GetFirstChildNode>::Address()},
        {"XMLIF_GetNextNode", Export<&Library::GetNextNode>::Address()},
        {"XMLIF_GetChildNodeByName", Export<&Library::GetChildNodeByName>::Address()},
        {"XMLIF_AddChildNodeByName", Export<&Library::AddChildNodeByName>::Address()},
        {"XMLIF_InsertBeforeNode", Export<&Library::NeverCalled>::Address()},
        {"XMLIF_RemoveNode", Export<&Library::NeverCalled>::Address()},
        {"XMLIF_GetNodeName", Export<&Library::GetNodeName>::Address()},
        {"XMLIF_GetNumOfAttribs", Export<&Library::GetNumOfAttribs>::Address()},
        {"XMLIF_GetNameOfAttrib", Export<&Library::GetNameOfAttrib>::Address()},
        {"XMLIF_GetAttribValueAsString", Export<&Library::GetAttribValueAsString>::Address()},
        {"XMLIF_GetAttribValueAsULONG", Export<&Library::GetAttribValueAsULONG>::Address()},
        {"XMLIF_SetStringValueAttrib", Export<&Library::SetStringValueAttrib>::Address()},
        {"XMLIF_SetULONGValueAttrib", Export<&Library::NeverCalled>::Address()},
        {"XMLIF_RemoveAttrib", Export<&Library::NeverCalled>::Address()},
        {"XMLIF_GetNodeText", Export<&Library::NeverCalled>::Address()},
        {"XMLIF_SetNodeText", Export<&Library::NeverCalled>::Address()},
    };
}

std::string FakeXmlLibrary::Complaints() const {
    std::string complaints;
    for (const std::string& misuse : misuses) {
        complaints += misuse + '\n';
    }
    const auto tell = [&complaints](std::size_t count, const char* what) {
        if (count != 0) {
            complaints += std::to_string(count) + ' ' + what + " not given back\n";
        }
    };
    tell(DocumentsOut(), "documents");
    tell(NodesOut(), "nodes");
    tell(TextsOut(), "texts");
    return complaints;
}

bool FakeXmlLibrary::Fails() {
    ++calls;
    const bool fails =
        failingCall != 0 && (calls == failingCall || (staysBroken && calls > failingCall));
    hasToThrow_ = fails && throws;
    return fails;
}

FakeDocument* FakeXmlLibrary::DocumentOf(XmlDocumentHandle handle) {
    const auto known = documents_.find(handle);
    if (known == documents_.end()) {
        misuses.emplace_back("call with a handle that is no document");
        return nullptr;
    }
    return known->second.get();
}

FakeXmlLibrary::Node* FakeXmlLibrary::NodeOf(XmlNodeHandle handle) {
    const auto known = nodes_.find(handle);
    if (known == nodes_.end()) {
        misuses.emplace_back("call with a handle that is no node");
        return nullptr;
    }
    if (!documents_.contains(known->second.document)) {
        misuses.emplace_back("call with a node of a closed document");
        return nullptr;
    }
    return &known->second;
}

XmlDocumentHandle FakeXmlLibrary::HandOut(std::unique_ptr<FakeDocument> document) {
    const XmlDocumentHandle handle = NewHandle();
    documents_.emplace(handle, std::move(document));
    return handle;
}

XmlNodeHandle FakeXmlLibrary::HandOut(FakeNode* node, XmlDocumentHandle document) {
    if (node == nullptr) {
        return 0;
    }
    const XmlNodeHandle handle = NewHandle();
    nodes_.emplace(handle, Node{node, document});
    mostNodesOut_ = std::max(mostNodesOut_, nodes_.size());
    return handle;
}

/// Puts a copy of the text, or garbage for none, into the record.
std::int32_t FakeXmlLibrary::Lend(MString* record, const std::string* text) {
    if (record->text != nullptr || record->reserved1 != 0 || record->reserved2 != 0) {
        misuses.emplace_back("record for a text not zeroed");
    }
    auto lent = std::make_unique<std::string>(text == nullptr ? "garbage" : *text);
    const std::uint32_t handle = NewHandle();
    *record = {lent->data(), handle, kGarbage};
    texts_.emplace(handle, std::move(lent));
    return text == nullptr ? 0 : 1;
}

FakeNode* FakeXmlLibrary::SkipOtherNodes(FakeNode* node) const {
    while (node != nullptr && !givesOtherNodes && node->name.starts_with('#')) {
        node = node->next;
    }
    return node;
}

XmlDocumentHandle FakeXmlLibrary::Create() {
    return Fails() ? 0 : HandOut(std::make_unique<FakeDocument>());
}

XmlDocumentHandle FakeXmlLibrary::Open(const char* path) {
    if (Fails()) {
        lastError_ = "told to fail";
        return 0;
    }
    const auto inMemory = files.find(path);
    const auto text = inMemory == files.end() ? ReadFile(path) : std::optional(inMemory->second);
    auto document = std::make_unique<FakeDocument>();
    lastError_ = text ? document->Read(*text) : "file not found";
    return lastError_.empty() ? HandOut(std::move(document)) : 0;
}

std::int32_t FakeXmlLibrary::Save(XmlDocumentHandle handle, const char* path) {
    FakeDocument* document = DocumentOf(handle);
    if (Fails() || document == nullptr) {
        return 0;
    }
    if (const auto inMemory = files.find(path); inMemory != files.end()) {
        inMemory->second = document->Write();
        return 1;
    }
    std::ofstream file(path, std::ios::binary);
    return file << document->Write() << std::flush ? 1 : 0;
}

std::int32_t FakeXmlLibrary::Close(XmlDocumentHandle handle) {
    hasToThrow_ = throws;
    if (documents_.erase(handle) == 0) {
        misuses.emplace_back("close of a handle that is no document");
    }
    for (const auto& [nodeHandle, node] : nodes_) {
        if (node.document == handle) {
            misuses.emplace_back("close of a document with a node still out");
        }
    }
    return 1;
}

std::int32_t FakeXmlLibrary::GetLastError(MString* text) {
    return Lend(text, Fails() ? nullptr : &lastError_);
}

void FakeXmlLibrary::FreeMString(MString* text) {
    hasToThrow_ = throws;
    const auto known = texts_.find(text->reserved1);
    if (known == texts_.end() || known->second->data() != text->text) {
        misuses.emplace_back("return of a text that is not out");
        return;
    }
    texts_.erase(known);
}

void FakeXmlLibrary::FreeHandle(XmlNodeHandle node) {
    hasToThrow_ = throws;
    if (nodes_.erase(node) == 0) {
        misuses.emplace_back("return of a node that is not out");
    }
}

XmlNodeHandle FakeXmlLibrary::GetRootNode(XmlDocumentHandle handle) {
    FakeDocument* document = DocumentOf(handle);
    return Fails() || document == nullptr ? 0 : HandOut(document->Root(), handle);
}

XmlNodeHandle FakeXmlLibrary::AddRootNodeByName(XmlDocumentHandle handle, const char* name) {
    FakeDocument* document = DocumentOf(handle);
    return Fails() || document == nullptr ? 0 : HandOut(document->Add(nullptr, name), handle);
}

XmlNodeHandle FakeXmlLibrary::GetFirstChildNode(XmlNodeHandle handle) {
    const Node* parent = NodeOf(handle);
    return Fails() || parent == nullptr
               ? 0
               : HandOut(SkipOtherNodes(parent->node->firstChild), parent->document);
}

XmlNodeHandle FakeXmlLibrary::GetNextNode(XmlNodeHandle handle) {
    const Node* sibling = NodeOf(handle);
    return Fails() || sibling == nullptr
               ? 0
               : HandOut(SkipOtherNodes(sibling->node->next), sibling->document);
}

XmlNodeHandle FakeXmlLibrary::GetChildNodeByName(XmlNodeHandle handle, const char* name) {
    const Node* parent = NodeOf(handle);
    if (Fails() || parent == nullptr) {
        return 0;
    }
    FakeNode* child = parent->node->firstChild;
    while (child != nullptr && child->name != name) {
        child = child->next;
    }
    return HandOut(child, parent->document);
}

XmlNodeHandle FakeXmlLibrary::AddChildNodeByName(XmlNodeHandle handle, const char* name) {
    const Node* parent = NodeOf(handle);
    if (*name == '\0' || *name == '#') {
        misuses.emplace_back("element added without a proper name");
    }
    return Fails() || parent == nullptr
               ? 0
               : HandOut(DocumentOf(*parent).Add(parent->node, name), parent->document);
}

std::int32_t FakeXmlLibrary::GetNodeName(XmlNodeHandle handle, MString* name) {
    const Node* node = NodeOf(handle);
    return Lend(name, Fails() || node == nullptr ? nullptr : &node->node->name);
}

std::uint32_t FakeXmlLibrary::GetNumOfAttribs(XmlNodeHandle handle) {
    const Node* node = NodeOf(handle);
    return Fails() || node == nullptr ? 0
                                      : static_cast<std::uint32_t>(node->node->attributes.size());
}

std::int32_t FakeXmlLibrary::GetNameOfAttrib(XmlNodeHandle handle, std::uint32_t index,
                                             MString* name) {
    const Node* node = NodeOf(handle);
    const bool exists = !Fails() && node != nullptr && index < node->node->attributes.size();
    return Lend(name, exists ? &node->node->attributes[index].first : nullptr);
}

std::int32_t FakeXmlLibrary::GetAttribValueAsString(XmlNodeHandle handle, const char* name,
                                                    MString* value) {
    const Node* node = NodeOf(handle);
    return Lend(value, Fails() || node == nullptr ? nullptr : node->node->Attribute(name));
}

std::int32_t FakeXmlLibrary::GetAttribValueAsULONG(XmlNodeHandle handle, const char* name,
                                                   std::uint32_t* value) {
    const Node* node = NodeOf(handle);
    const std::string* text = Fails() || node == nullptr ? nullptr : node->node->Attribute(name);
    if (text != nullptr) {
        const char* end = text->data() + text->size();
        const auto [stop, error] = std::from_chars(text->data(), end, *value);
        if (error == std::errc() && stop == end) {
            return 1;
        }
    }
    *value = kGarbage;
    return 0;
}

std::int32_t FakeXmlLibrary::SetStringValueAttrib(XmlNodeHandle handle, const char* name,
                                                  const char* value) {
    const Node* node = NodeOf(handle);
    if (Fails() || node == nullptr) {
        return 0;
    }
    node->node->SetAttribute(name, value);
    return 1;
}

}  // namespace orvell::test
