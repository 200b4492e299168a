#include "fuzz/boundary/definition_files.h"

#include <array>

#include "fuzz/boundary/memory_files.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

constexpr const char* kHugeLevels = R"(<Definitions>
<TypeList><Type Name="Level" BaseType="INT" Size="8"/></TypeList>
<MemoryList><Memory ID="20" Type="Level"/><Memory ID="1" Type="Level"/></MemoryList>
</Definitions>)";

constexpr const char* kLongLevels = R"(<Definitions>
<MemoryList><Memory ID="21" Type="Level"/><Memory ID="20" Type="Word"/>
<Memory ID="5" Type="Level"/></MemoryList>
<TypeList><Type Name="Level" BaseType="UINT" Size="4"/></TypeList>
</Definitions>)";

constexpr const char* kFurtherLists = R"(<Definitions>
<TypeList/><MemoryList><Memory ID="22" Type="Level"/></MemoryList>
<TypeList><Type Name="Tank" BaseType="INT" Size="2"/></TypeList>
<MemoryList><Memory ID="20" Type="Tank"/><Memory ID="21" Type="Tank"/></MemoryList>
<TypeList><Type Name="Level" BaseType="UINT" Size="4"/></TypeList>
</Definitions>)";

/// The definitions that the areas of `kDefinitions` tell, and one of an unknown type.
ModelDefinitions ManyDefinitions() {
    ModelDefinitions all;
    for (const ModelArea& area : AllAreas()) {
        all.types[area.typeName] = &area;
        all.areas[area.identifier] = area.typeName;
    }
    all.areas[5] = "Nothing";
    return all;
}

std::array<ModelDefinitionFile, 7> DefinitionFiles() {
    return {{{kDefinitions, nullptr, ManyDefinitions(), {}},
             {"<Definitions/>", nullptr, {}, {}},
             {"<Definitions", "malformed attribute", {}, {}},
             {"", "unexpected end of file", {}, {}},
             {kHugeLevels, nullptr, {{{"Level", &kHugeLevel}}, {{20, "Level"}, {1, "Level"}}}, {}},
             {kLongLevels,
              nullptr,
              {{{"Level", &kLongLevel}}, {{21, "Level"}, {20, "Word"}, {5, "Level"}}},
              {}},
             {kFurtherLists,
              nullptr,
              {{}, {{22, "Level"}}},
              {{{"Tank", &kTank}, {"Level", &kLongLevel}}, {{20, "Tank"}, {21, "Tank"}}}}}};
}

bool CanCreate(const std::string& path) {
    return !path.empty() && path.front() != '?';
}

/// Adds to the first lists what none of the file's lists has.
void AddMissing(ModelDefinitionFile& file, const ModelDefinitions& more) {
    for (const auto& type : more.types) {
        if (!file.further.types.contains(type.first)) {
            file.first.types.insert(type);
        }
    }
    for (const auto& area : more.areas) {
        if (!file.further.areas.contains(area.first)) {
            file.first.areas.insert(area);
        }
    }
}

std::size_t CountOf(const std::string& part, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

/// A type that exists without a definition.
bool IsImplicit(const ModelArea& area) {
    return area.baseTypeName != nullptr && area.typeName == std::string(area.baseTypeName);
}

/// A file that has been merged defines each of these once.
void RequireDefinedOnce(const ModelDefinitions& definitions, const std::string& bytes) {
    for (const auto& [name, area] : definitions.types) {
        Require(CountOf("<Type Name=\"" + name + '"', bytes) == (IsImplicit(*area) ? 0 : 1),
                "a type is merged once");
    }
    for (const auto& [identifier, type] : definitions.areas) {
        const std::string start = "<Memory ID=\"" + std::to_string(identifier) + "\" Type=\"";
        Require(CountOf(start, bytes) == 1, "an area is merged once");
        Require(CountOf(start + type + '"', bytes) == 1, "an area keeps its type");
    }
}

}  // namespace

const ModelDefinitionFile& ChooseDefinitionFile(Program& program) {
    static const auto files = DefinitionFiles();
    return program.Pick(files);
}

void ModelDefinitionFiles::Put(const std::string& path, const ModelDefinitionFile* file) {
    files_.erase(path);
    MemoryFiles().erase(path);
    if (file != nullptr) {
        files_[path] = *file;
        MemoryFiles()[path] = file->bytes;
    }
}

bool ModelDefinitionFiles::IsReadable(const std::string& path) const {
    const auto file = files_.find(path);
    return file != files_.end() && file->second.complaint == nullptr;
}

std::optional<std::string> ModelDefinitionFiles::Load(const std::string& projectFile) {
    Close();
    const bool isOwn = files_.contains(projectFile);
    const auto file = files_.find(isOwn ? projectFile : kDefaultDefinitions);
    if (file == files_.end()) {
        return std::nullopt;
    }
    if (file->second.complaint != nullptr) {
        return file->second.complaint;
    }
    inUse_ = file->second.first;
    ownFile_ = isOwn ? projectFile : "";
    return std::nullopt;
}

bool ModelDefinitionFiles::Save(const std::string& projectFile) {
    if (ownFile_.empty()) {
        return true;
    }
    if (projectFile.empty() || (projectFile != ownFile_ && !Copy(ownFile_, projectFile))) {
        return false;
    }
    ownFile_ = projectFile;
    return true;
}

void ModelDefinitionFiles::Close() {
    inUse_ = {};
    ownFile_.clear();
}

bool ModelDefinitionFiles::Copy(const std::string& source, const std::string& destination) {
    if (!files_.contains(source) || !CanCreate(destination) || source == destination) {
        return false;
    }
    files_[destination] = files_[source];
    return true;
}

void ModelDefinitionFiles::Merge(const std::string& source, const std::string& projectFile) {
    if (!files_.contains(source)) {
        return;
    }
    if (!files_.contains(projectFile)) {
        static_cast<void>(Copy(kDefaultDefinitions, projectFile));
    }
    if (IsReadable(source) && CanCreate(projectFile)) {
        ModelDefinitionFile merged;
        if (IsReadable(projectFile)) {
            merged = files_[projectFile];
        }
        const ModelDefinitionFile more = files_[source];
        AddMissing(merged, more.first);
        AddMissing(merged, more.further);
        merged.bytes = MemoryFiles()[projectFile];  // how it is written is the XML library's
        RequireDefinedOnce(merged.first, merged.bytes);
        RequireDefinedOnce(merged.further, merged.bytes);
        files_[projectFile] = merged;
    }
    static_cast<void>(Load(projectFile));
}

const ModelArea* ModelDefinitionFiles::AreaOf(std::int32_t identifier) const {
    const auto area = inUse_.areas.find(identifier);
    if (area == inUse_.areas.end()) {
        return nullptr;
    }
    const auto type = inUse_.types.find(area->second);
    return type == inUse_.types.end() ? nullptr : type->second;
}

void ModelDefinitionFiles::RequireWritten() const {
    for (const auto& [path, file] : files_) {
        Require(MemoryFiles().contains(path), "definition files are where they belong");
        Require(MemoryFiles()[path] == file.bytes, "definition files are copied byte by byte");
    }
    for (const auto& [path, bytes] : MemoryFiles()) {
        Require(files_.contains(path) || !path.ends_with("XML"), "no other files are written");
    }
}

}  // namespace orvell::fuzz
