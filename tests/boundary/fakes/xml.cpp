// An XML access library for tests. Its "documents" are plain lines, one an element, indented by one
// tab a level, with attributes behind the name, all separated by "|":
//
//     Definitions
//     <tab>TypeList
//     <tab><tab>Type|Name=Word|BaseType=UINT|Size=2
//
// A file that begins with "broken" cannot be opened. FakeXmlOutstanding tells how many documents,
// handles and texts are given out; the version is FAKE_XML_VERSION of the environment.

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "orvell/services.h"

namespace {

struct Element {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<std::unique_ptr<Element>> children;
    Element* parent = nullptr;
};

std::map<uint32_t, std::unique_ptr<Element>> documents;  // root null: an empty document
std::map<uint32_t, Element*> nodes;
uint32_t nextHandle = 1;
int32_t outstanding = 0;
std::string lastError;

uint32_t Issue(Element* element) {
    if (element == nullptr) {
        return 0;
    }
    ++outstanding;
    nodes[nextHandle] = element;
    return nextHandle++;
}

Element* Find(uint32_t handle) {
    const auto found = nodes.find(handle);
    return found == nodes.end() ? nullptr : found->second;
}

uint32_t IssueDocument(std::unique_ptr<Element> root) {
    ++outstanding;
    documents[nextHandle] = std::move(root);
    return nextHandle++;
}

int32_t Lend(MString* out, const std::string& text) {
    ++outstanding;
    out->text = _strdup(text.c_str());
    return 1;
}

int32_t LendNothing(MString*) {
    ++outstanding;
    return 0;
}

Element* Append(Element& parent, std::string name) {
    parent.children.push_back(std::make_unique<Element>());
    Element* child = parent.children.back().get();
    child->name = std::move(name);
    child->parent = &parent;
    return child;
}

std::vector<std::string> Split(const std::string& line) {
    std::vector<std::string> parts(1);
    for (const char character : line) {
        if (character == '|') {
            parts.emplace_back();
        } else {
            parts.back() += character;
        }
    }
    return parts;
}

std::unique_ptr<Element> Read(std::ifstream& file) {
    Element top;
    std::vector<Element*> path{&top};
    for (std::string line; std::getline(file, line);) {
        const std::size_t depth = line.find_first_not_of('\t');
        const std::vector<std::string> parts = Split(line.substr(depth));
        path.resize(depth + 1);
        Element* element = Append(*path.back(), parts[0]);
        path.push_back(element);
        for (std::size_t i = 1; i < parts.size(); ++i) {
            const std::size_t equals = parts[i].find('=');
            element->attributes.emplace_back(parts[i].substr(0, equals),
                                             parts[i].substr(equals + 1));
        }
    }
    return top.children.empty() ? nullptr : std::move(top.children.front());
}

void Write(std::ofstream& file, const Element& element, std::size_t depth) {
    file << std::string(depth, '\t') << element.name;
    for (const auto& [name, value] : element.attributes) {
        file << '|' << name << '=' << value;
    }
    file << '\n';
    for (const auto& child : element.children) {
        Write(file, *child, depth + 1);
    }
}

const std::string* Attribute(uint32_t node, const char* name) {
    Element* element = Find(node);
    if (element != nullptr) {
        for (const auto& attribute : element->attributes) {
            if (attribute.first == name) {
                return &attribute.second;
            }
        }
    }
    return nullptr;
}

}  // namespace

extern "C" {

int32_t ORVELL_CALL FakeXmlOutstanding() {
    return outstanding;
}

double ORVELL_CALL GetDLLVersion() {
    char version[32] = "2.01";
    GetEnvironmentVariableA("FAKE_XML_VERSION", version, sizeof(version));
    return std::atof(version);
}

uint32_t ORVELL_CALL XMLIF_Create() {
    return IssueDocument(nullptr);
}

uint32_t ORVELL_CALL XMLIF_Open(const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::string first;
    if (!std::getline(file, first) || first == "broken") {
        lastError = "line 1 is broken";
        return 0;
    }
    file.seekg(0);
    return IssueDocument(Read(file));
}

int32_t ORVELL_CALL XMLIF_Save(uint32_t document, const char* path) {
    std::ofstream file(path, std::ios::binary);
    Write(file, *documents.at(document), 0);
    return file.good() ? 1 : 0;
}

int32_t ORVELL_CALL XMLIF_Close(uint32_t document) {
    outstanding -= static_cast<int32_t>(documents.erase(document));
    return 1;
}

int32_t ORVELL_CALL XMLIF_GetLastError(MString* text) {
    return Lend(text, lastError);
}

void ORVELL_CALL XMLIF_FreeMString(MString* text) {
    --outstanding;
    std::free(text->text);
    text->text = nullptr;
}

void ORVELL_CALL XMLIF_FreeHandle(uint32_t node) {
    outstanding -= static_cast<int32_t>(nodes.erase(node));
}

uint32_t ORVELL_CALL XMLIF_GetRootNode(uint32_t document) {
    return Issue(documents.at(document).get());
}

uint32_t ORVELL_CALL XMLIF_AddRootNodeByName(uint32_t document, const char* name) {
    auto root = std::make_unique<Element>();
    root->name = name;
    documents.at(document) = std::move(root);
    return XMLIF_GetRootNode(document);
}

uint32_t ORVELL_CALL XMLIF_GetFirstChildNode(uint32_t node) {
    Element* element = Find(node);
    return element == nullptr || element->children.empty() ? 0 : Issue(element->children[0].get());
}

uint32_t ORVELL_CALL XMLIF_GetNextNode(uint32_t node) {
    Element* element = Find(node);
    if (element == nullptr || element->parent == nullptr) {
        return 0;
    }
    const auto& siblings = element->parent->children;
    for (std::size_t i = 0; i + 1 < siblings.size(); ++i) {
        if (siblings[i].get() == element) {
            return Issue(siblings[i + 1].get());
        }
    }
    return 0;
}

uint32_t ORVELL_CALL XMLIF_GetChildNodeByName(uint32_t node, const char* name) {
    Element* element = Find(node);
    if (element != nullptr) {
        for (const auto& child : element->children) {
            if (child->name == name) {
                return Issue(child.get());
            }
        }
    }
    return 0;
}

uint32_t ORVELL_CALL XMLIF_AddChildNodeByName(uint32_t node, const char* name) {
    return Issue(Append(*Find(node), name));
}

int32_t ORVELL_CALL XMLIF_GetNodeName(uint32_t node, MString* name) {
    const Element* element = Find(node);
    return element == nullptr ? LendNothing(name) : Lend(name, element->name);
}

uint32_t ORVELL_CALL XMLIF_GetNumOfAttribs(uint32_t node) {
    const Element* element = Find(node);
    return element == nullptr ? 0 : static_cast<uint32_t>(element->attributes.size());
}

int32_t ORVELL_CALL XMLIF_GetNameOfAttrib(uint32_t node, uint32_t index, MString* name) {
    const Element* element = Find(node);
    return element == nullptr || index >= element->attributes.size()
               ? LendNothing(name)
               : Lend(name, element->attributes[index].first);
}

int32_t ORVELL_CALL XMLIF_GetAttribValueAsString(uint32_t node, const char* name, MString* value) {
    const std::string* text = Attribute(node, name);
    return text == nullptr ? LendNothing(value) : Lend(value, *text);
}

int32_t ORVELL_CALL XMLIF_GetAttribValueAsULONG(uint32_t node, const char* name, uint32_t* value) {
    const std::string* text = Attribute(node, name);
    if (text == nullptr || text->empty()) {
        return 0;
    }
    char* end = nullptr;
    *value = std::strtoul(text->c_str(), &end, 10);
    return *end == '\0' ? 1 : 0;
}

int32_t ORVELL_CALL XMLIF_SetStringValueAttrib(uint32_t node, const char* name, const char* value) {
    Find(node)->attributes.emplace_back(name, value);
    return 1;
}

// Part of the library's contract, not called by the module.
void ORVELL_CALL XMLIF_ParseText() {}
void ORVELL_CALL XMLIF_InsertBeforeNode() {}
void ORVELL_CALL XMLIF_RemoveNode() {}
void ORVELL_CALL XMLIF_SetULONGValueAttrib() {}
void ORVELL_CALL XMLIF_RemoveAttrib() {}
void ORVELL_CALL XMLIF_GetNodeText() {}
void ORVELL_CALL XMLIF_SetNodeText() {}
}
