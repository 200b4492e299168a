#include "memstruct/memory_structure_store.h"

#include <algorithm>

#include "memstruct/definition_reader.h"
#include "memstruct/xml_document.h"
#include "platform/file_system.h"

namespace orvell::memstruct {

void MemoryStructureStore::Clear() {
    areaIndexById_.clear();
    areas_.clear();
    typesByName_.clear();
    types_.clear();
}

void MemoryStructureStore::AddImplicitTypes() {
    std::vector<TypeDef> implicitTypes;
    for (std::uint32_t number = values::kFirstBaseTypeCode; number < values::kEndOfBaseTypeCodes;
         ++number) {
        const std::string& name = strings_.Text(static_cast<resources::StringId>(number));
        if (name.empty()) {
            break;
        }
        const auto code = static_cast<values::BaseTypeCode>(number);
        if (values::IsImplicitType(code) && FindType(name) == nullptr) {
            TypeDef& type = implicitTypes.emplace_back();
            type.name = name;
            type.baseType = code;
        }
    }
    for (auto type = implicitTypes.rbegin(); type != implicitTypes.rend(); ++type) {
        types_.push_front(std::move(*type));
        typesByName_[types_.front().name] = &types_.front();
    }
}

bool MemoryStructureStore::LoadStructFile(std::string path) {
    Clear();
    currentPath_.clear();
    try {
        return ReadStructFile(std::move(path));
    } catch (...) {
        Clear();
        currentPath_.clear();
        throw;
    }
}

bool MemoryStructureStore::ReadStructFile(std::string path) {
    AddImplicitTypes();
    XmlDocument document(xml_);
    bool isReadable = true;
    if (platform::FileExists(path)) {
        isReadable = document.Open(path);
        if (isReadable) {
            currentPath_ = std::move(path);
        }
    } else if (platform::FileExists(defaultPath_)) {
        isReadable = document.Open(defaultPath_);
    }
    DefinitionReader(*this, strings_).Read(document.Root());  // nothing without a document
    document.Close();
    ResolveReferences();
    return isReadable;
}

bool MemoryStructureStore::AddType(TypeDef&& type) {
    if (typesByName_.contains(type.name)) {
        return false;
    }
    TypeDef& added = types_.emplace_back(std::move(type));
    typesByName_.emplace(added.name, &added);
    return true;
}

bool MemoryStructureStore::AddArea(std::uint32_t id, std::string typeName) {
    if (!areaIndexById_.try_emplace(id, areas_.size()).second) {
        return false;
    }
    areas_.push_back({id, std::move(typeName)});
    return true;
}

void MemoryStructureStore::ResolveReferences() {
    ResolveTypes(types_, typesByName_, converters_);
    std::ranges::sort(areas_, {}, &MemoryArea::id);
    for (std::size_t index = 0; index < areas_.size(); ++index) {
        MemoryArea& area = areas_[index];
        area.type = FindType(area.typeName);
        areaIndexById_[area.id] = index;
    }
}

const TypeDef* MemoryStructureStore::FindType(std::string_view name) const {
    const auto known = typesByName_.find(name);
    return known == typesByName_.end() ? nullptr : known->second;
}

const MemoryArea* MemoryStructureStore::FindMemoryArea(std::uint32_t id) const {
    const auto known = areaIndexById_.find(id);
    return known == areaIndexById_.end() ? nullptr : &areas_[known->second];
}

const TypeDef* MemoryStructureStore::TypeOfArea(std::uint32_t id) const {
    const MemoryArea* area = FindMemoryArea(id);
    return area == nullptr ? nullptr : area->type;
}

std::uint32_t MemoryStructureStore::StoredSize(const TypeDef* type) {
    return type == nullptr ? 0 : type->storedSize;
}

std::int32_t MemoryStructureStore::SignednessClass(const TypeDef* type) {
    return type == nullptr ? -1 : type->signedness;
}

}  // namespace orvell::memstruct
