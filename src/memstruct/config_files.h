#pragma once

#include <string_view>

#include "memstruct/config_paths.h"
#include "memstruct/memory_structure_store.h"

namespace orvell::memstruct {

/// What became of an operation on the configuration files.
enum class ConfigOutcome { Done, PathUnknown, Failed };

/// The five operations that the host's configuration slots ask for. They show nothing; the caller
/// turns the outcome into a message.
class ConfigFiles {
  public:
    /// Both must outlive the object.
    ConfigFiles(MemoryStructureStore& store, const XmlAccessBinding& xml)
        : store_(store), xml_(xml) {}

    /// Loads the project's definitions, or the default ones when the project has none. After
    /// `Failed`, the XML library's last error tells the reason. `PathUnknown`, with the store left
    /// as it is, for an empty path.
    [[nodiscard]] ConfigOutcome Load(std::string_view projectPath);

    /// Carries the project's definitions along to the project's present path. `Done`, with nothing
    /// written, when the project has none.
    [[nodiscard]] ConfigOutcome Save(std::string_view projectPath);

    /// Empties the store.
    void Close();

    /// Copies the project's definitions into `directory`; a null directory fails, and so does a
    /// project without definitions of its own.
    [[nodiscard]] ConfigOutcome Export(std::string_view projectPath, const char* directory);

    /// Adds the definitions of the exported file in `directory` to the project's file and loads it
    /// anew. Definitions that the project has stay as they are; a project without a file begins
    /// with a copy of the default file. Nothing for a null directory, an unknown path or a missing
    /// source file.
    void Merge(std::string_view projectPath, const char* directory);

  private:
    void MergeFile(const std::string& sourceFile, const std::string& projectFile) const;

    MemoryStructureStore& store_;
    const XmlAccessBinding& xml_;
};

}  // namespace orvell::memstruct
