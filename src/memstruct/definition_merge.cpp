#include "memstruct/definition_merge.h"

#include <set>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace orvell::memstruct {

using resources::StringId;

namespace {

/// Adds definitions to one document; knows what the document has from the start.
class DefinitionMerge {
  public:
    explicit DefinitionMerge(const XmlNode& root);

    void AddTypes(const XmlNode& sourceList);
    void AddAreas(const XmlNode& sourceList);

  private:
    bool CopyIntoList(const XmlNode& source, StringId elementName, XmlNode& list,
                      StringId listName) const;

    const XmlNode& root_;
    XmlNode typeList_;  // the root's first lists, looked up when they are needed
    XmlNode areaList_;
    std::unordered_set<std::string> typeNames_;
    std::set<std::uint32_t> areaIds_;  // ordered: hashed numbers could be chosen to collide
};

DefinitionMerge::DefinitionMerge(const XmlNode& root) : root_(root) {
    root.ForEachChild([this](const XmlNode& list) {
        if (list.NameIs(StringId::ElementTypeList)) {
            list.ForEachChild(StringId::ElementType, [this](const XmlNode& type) {
                std::string name;
                if (type.AttribText(StringId::AttributeName, name)) {
                    typeNames_.insert(std::move(name));
                }
            });
        } else if (list.NameIs(StringId::ElementMemoryList)) {
            list.ForEachChild(StringId::ElementMemory, [this](const XmlNode& area) {
                std::uint32_t id = 0;
                if (area.AttribULong(StringId::AttributeId, id)) {
                    areaIds_.insert(id);
                }
            });
        }
    });
}

void DefinitionMerge::AddTypes(const XmlNode& sourceList) {
    sourceList.ForEachChild(StringId::ElementType, [this](const XmlNode& type) {
        std::string name;
        if (type.AttribText(StringId::AttributeName, name) && !typeNames_.contains(name) &&
            CopyIntoList(type, StringId::ElementType, typeList_, StringId::ElementTypeList)) {
            typeNames_.insert(std::move(name));
        }
    });
}

void DefinitionMerge::AddAreas(const XmlNode& sourceList) {
    sourceList.ForEachChild(StringId::ElementMemory, [this](const XmlNode& area) {
        std::uint32_t id = 0;
        if (area.AttribULong(StringId::AttributeId, id) && !areaIds_.contains(id) &&
            CopyIntoList(area, StringId::ElementMemory, areaList_, StringId::ElementMemoryList)) {
            areaIds_.insert(id);
        }
    });
}

bool DefinitionMerge::CopyIntoList(const XmlNode& source, StringId elementName, XmlNode& list,
                                   StringId listName) const {
    if (!list.IsValid()) {
        list = root_.ChildByName(listName);
    }
    if (!list.IsValid()) {
        list = root_.AddChild(listName);
    }
    XmlNode copy = list.AddChild(elementName);
    if (!copy.IsValid()) {
        return false;
    }
    CopyElement(source, std::move(copy));
    return true;
}

void CopyAttributes(const XmlNode& source, const XmlNode& destination) {
    std::string name;
    std::string value;
    const std::uint32_t count = source.AttribCount();
    for (std::uint32_t i = 0; i < count; ++i) {
        if (source.AttribName(i, name) && source.AttribText(name, value)) {
            // An attribute that cannot be set is missing in the copy; a merge reports nothing.
            static_cast<void>(destination.SetAttribText(name, value));
        }
    }
}

/// False for what a library may give between the elements: texts and comments, which have no name
/// or one such as "#text".
bool IsElementName(const std::string& name) {
    return !name.empty() && name.front() != '#';
}

/// An element whose children are being copied.
struct OpenCopy {
    XmlNode nextChild;  // of the source, to be copied next
    XmlNode copy;       // takes the copied children
};

}  // namespace

void MergeDefinitions(const XmlNode& source, const XmlNode& destination) {
    DefinitionMerge merge(destination);
    source.ForEachChild([&merge](const XmlNode& list) {
        if (list.NameIs(StringId::ElementTypeList)) {
            merge.AddTypes(list);
        } else if (list.NameIs(StringId::ElementMemoryList)) {
            merge.AddAreas(list);
        }
    });
}

void CopyElement(const XmlNode& source, XmlNode destination) {
    CopyAttributes(source, destination);
    std::vector<OpenCopy> open;
    open.push_back({source.FirstChild(), std::move(destination)});
    while (!open.empty()) {
        OpenCopy& innermost = open.back();
        const XmlNode child = std::move(innermost.nextChild);
        if (!child.IsValid()) {
            open.pop_back();
            continue;
        }
        innermost.nextChild = child.Next();
        const std::string name = child.Name();
        if (!IsElementName(name)) {
            continue;
        }
        XmlNode copy = innermost.copy.AddChild(name);
        if (copy.IsValid()) {
            CopyAttributes(child, copy);
            open.push_back({child.FirstChild(), std::move(copy)});
        }
    }
}

}  // namespace orvell::memstruct
