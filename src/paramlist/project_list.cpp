#include "paramlist/project_list.h"

#include "paramlist/csv_file_reader.h"
#include "paramlist/csv_file_writer.h"
#include "paramlist/list_file_reader.h"
#include "paramlist/list_file_writer.h"
#include "paramlist/project_list_paths.h"

namespace orvell::paramlist {

void ProjectList::Load(std::string_view projectPath) {
    list_.SetDeclaredOnly(false);
    list_.SetProjectName({});
    list_.BuildOrClear();
    try {
        if (!ReadProjectFile(projectPath)) {
            Clear();
        }
    } catch (...) {
        Clear();  // half a list must not be saved over the whole one
        throw;
    }
}

bool ProjectList::ReadProjectFile(std::string_view projectPath) {
    const std::string path = ListFilePath(projectPath);
    if (path.empty() || !ReadListFile(list_, strings_, path, ListFileScope::AllEntries)) {
        return false;
    }
    list_.SetProjectName(std::string(projectPath));
    return true;
}

ProjectList::SaveOutcome ProjectList::Save(std::string_view projectPath) {
    const std::string path = ListFilePath(projectPath);
    if (path.empty()) {
        return SaveOutcome::PathUnknown;
    }
    list_.SetProjectName(std::string(projectPath));
    return WriteListFile(list_, strings_, path) ? SaveOutcome::Done : SaveOutcome::FileNotWritten;
}

void ProjectList::Clear() {
    list_.SetProjectName({});
    list_.ClearAll();
}

bool ProjectList::ImportIntoList(const std::string& path, ImportWarnings& warnings) {
    return IsCsvPath(path) ? ReadCsvFile(list_, strings_, path, warnings)
                           : ReadListFile(list_, strings_, path, ListFileScope::ExistingEntries);
}

bool ProjectList::ImportNewList(const std::string& path, ImportWarnings& warnings) {
    list_.BuildOrClear();
    return IsCsvPath(path) ? ReadCsvFile(list_, strings_, path, warnings)
                           : ReadListFile(list_, strings_, path, ListFileScope::AllEntries);
}

bool ProjectList::Export(const std::string& path) const {
    return IsCsvPath(path) ? WriteCsvFile(list_, strings_, path)
                           : WriteListFile(list_, strings_, path);
}

}  // namespace orvell::paramlist
