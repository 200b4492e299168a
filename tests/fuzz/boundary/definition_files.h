#pragma once

#include <map>
#include <optional>
#include <string>

#include "fuzz/boundary/definition_model.h"

namespace orvell::fuzz {

/// The definitions beside the module.
inline constexpr const char* kDefaultDefinitions = "D:\\BIN\\ORVELL.XML";

/// Types and areas, of a file or in use.
struct ModelDefinitions {
    std::map<std::string, const ModelArea*> types;  ///< as an area of the type is described
    std::map<std::int32_t, std::string> areas;      ///< the names of their types
};

/// A definition file, and what it means.
struct ModelDefinitionFile {
    std::string bytes;
    const char* complaint = nullptr;  ///< of the XML library; null for a file that can be read
    ModelDefinitions first;           ///< what stands in the first lists, which are loaded
    ModelDefinitions further;         ///< what stands in other lists, which count in merging only
};

/// A definition file that the host or the user may have put somewhere.
[[nodiscard]] const ModelDefinitionFile& ChooseDefinitionFile(Program& program);

/// The definition files of a disk, and which of their definitions are in use. Paths are whole.
class ModelDefinitionFiles {
  public:
    /// Puts a file where the module finds it, or takes it away.
    void Put(const std::string& path, const ModelDefinitionFile* file);

    /// The project's own file or the default one; what the XML library complains about.
    [[nodiscard]] std::optional<std::string> Load(const std::string& projectFile);

    /// Carries the project's own file along; true without one. No path, no success.
    [[nodiscard]] bool Save(const std::string& projectFile);

    void Close();

    /// True unless the file cannot be read, or not be created, or is to be copied onto itself.
    [[nodiscard]] bool Copy(const std::string& source, const std::string& destination);

    /// Adds what the source has and the project lacks, and loads the project.
    void Merge(const std::string& source, const std::string& projectFile);

    /// The area as it is defined at present; null when it is not, or has an unknown type.
    [[nodiscard]] const ModelArea* AreaOf(std::int32_t identifier) const;

    /// Compares the definition files: each is there, with its bytes, and there are no others.
    void RequireWritten() const;

  private:
    [[nodiscard]] bool IsReadable(const std::string& path) const;

    std::map<std::string, ModelDefinitionFile> files_;
    ModelDefinitions inUse_;
    std::string ownFile_;  // of the project; empty unless it is in use
};

}  // namespace orvell::fuzz
