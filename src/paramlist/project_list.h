#pragma once

#include <string>
#include <string_view>

#include "paramlist/csv_file_warnings.h"
#include "paramlist/parameter_list.h"
#include "resources/string_table.h"

namespace orvell::paramlist {

/// The files of a project's parameter list: its own list file, imports and exports.
///
/// Paths are in the ANSI code page. A file with the extension "CSV" is a CSV file, any other a list
/// file. No operation shows a message; all but `Clear` throw std::bad_alloc when memory is short.
class ProjectList {
  public:
    /// Both must outlive the object.
    ProjectList(ParameterList& list, const resources::StringTable& strings)
        : list_(list), strings_(strings) {}

    /// Empties the list, ends declared-only mode and reads the project's list file. The project's
    /// path becomes the project name. When the file cannot be read the list stays empty and without
    /// a name, as it does without a path.
    void Load(std::string_view projectPath);

    enum class SaveOutcome {
        Done,
        PathUnknown,     ///< there is no project path
        FileNotWritten,  ///< the list file could not be written, or not wholly
    };

    /// Writes the project's list file. The project's path becomes the project name.
    [[nodiscard]] SaveOutcome Save(std::string_view projectPath);

    /// Removes all entries and the project name; the kinds stay.
    void Clear();

    /// Reads a file into the entries that exist. False when it cannot be opened, and for a list
    /// file that ends inside its first record.
    [[nodiscard]] bool ImportIntoList(const std::string& path, ImportWarnings& warnings);

    /// As above, but into an emptied list. A list file's entries are created; those of a CSV file
    /// never are.
    [[nodiscard]] bool ImportNewList(const std::string& path, ImportWarnings& warnings);

    /// Writes the whole list. False when the file could not be written, or not wholly.
    [[nodiscard]] bool Export(const std::string& path) const;

  private:
    [[nodiscard]] bool ReadProjectFile(std::string_view projectPath);

    ParameterList& list_;
    const resources::StringTable& strings_;
};

}  // namespace orvell::paramlist
