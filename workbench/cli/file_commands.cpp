#include <string>

#include "cli/commands.h"
#include "cli/definition_file.h"
#include "cli/output.h"

namespace workbench::cli {
namespace {

/// True when the project has a definition file of its own; else that has been reported.
bool HasOwnDefinitions(const Session& session) {
    if (FileExists(DefinitionPathOf(session.Project()))) {
        return true;
    }
    PrintError("The project has no definition file of its own. workbench merge makes one.");
    return false;
}

std::string Counts(const std::string& path) {
    Definitions definitions;
    std::string ignored;
    if (!ReadDefinitions(path, definitions, ignored)) {
        return "no definitions";
    }
    return std::to_string(definitions.typeCount) + " types and " +
           std::to_string(definitions.areas.size()) + " areas";
}

}  // namespace

ExitCode MergeDefinitions(Session& session) {
    const std::string own = DefinitionPathOf(session.Project());
    const std::string& directory = session.Options().arguments[1];
    const std::string source = FullPath(directory) + "\\" + FileName(own);
    if (!FileExists(source)) {
        PrintError("There is no " + FileName(own) + " in " + directory +
                   ". Give a directory that an export has filled.");
        return ExitCode::WrongUsage;
    }
    const std::string before = Counts(own);
    session.Module().MergeConfiguration(session.Project(), FullPath(directory));
    if (session.Messages().Report()) {
        return ExitCode::Refused;
    }
    // The module keeps silent about a file that it cannot read.
    Definitions merged;
    std::string error;
    if (!ReadDefinitions(source, merged, error)) {
        PrintError("Nothing was merged, the file cannot be read: " + error);
        return ExitCode::Refused;
    }
    Print(FileName(own) + ": " + before + " before, " + Counts(own) + " now\n");
    return ExitCode::Done;
}

ExitCode ExportDefinitions(Session& session) {
    if (!HasOwnDefinitions(session)) {
        return ExitCode::Refused;
    }
    const std::string& directory = session.Options().arguments[1];
    session.Module().ExportConfiguration(session.Project(), FullPath(directory));
    if (session.Messages().Report()) {
        return ExitCode::Refused;
    }
    Print(FileName(DefinitionPathOf(session.Project())) + " is now in " + directory + "\n");
    return ExitCode::Done;
}

ExitCode SaveDefinitions(Session& session) {
    if (!HasOwnDefinitions(session)) {
        return ExitCode::Refused;
    }
    const std::string& newProject = session.Options().arguments[1];
    session.Module().SaveConfiguration(FullPath(newProject));
    if (session.Messages().Report()) {
        return ExitCode::Refused;
    }
    Print("The definitions go with " + newProject + "\n");
    return ExitCode::Done;
}

}  // namespace workbench::cli
