#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/output.h"
#include "cli/progress_display.h"

namespace workbench::cli {
namespace {

std::string ExtensionOf(const std::string& path) {
    const std::size_t dot = path.find_last_of(".:\\");
    return dot != std::string::npos && path[dot] == '.' ? path.substr(dot) : std::string{};
}

bool IsCsvPath(const std::string& path) {
    return CompareStringA(LOCALE_INVARIANT, NORM_IGNORECASE, ExtensionOf(path).c_str(), -1, ".CSV",
                          -1) == CSTR_EQUAL;
}

/// The declarations in a file; empty lines are passed over. False, with `error` saying what to do,
/// when the file cannot be used.
bool ReadDeclarations(const std::string& path, std::vector<Declaration>& declarations,
                      std::string& error) {
    std::ifstream file(path);
    if (!file) {
        error = "The file " + path + " cannot be read. Give an existing one.";
        return false;
    }
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        std::istringstream words(line);
        std::string first;
        std::string second;
        std::string third;
        words >> first >> second >> third;
        if (!third.empty()) {
            error = path + ", line " + std::to_string(number) +
                    ": give an old and a new address, or a new one alone.";
            return false;
        }
        if (!first.empty()) {
            declarations.push_back(second.empty() ? Declaration{"", first}
                                                  : Declaration{first, second});
        }
    }
    return true;
}

/// Saves the list; what the module says about that and about what came before it is reported.
ExitCode SaveUnlessRefused(Session& session) {
    if (session.Messages().Report()) {
        return ExitCode::Refused;
    }
    session.Module().List().Save(session.ProjectAsGiven());
    return session.Messages().Report() ? ExitCode::Refused : ExitCode::Done;
}

}  // namespace

ExitCode UpdateList(Session& session) {
    HostParameterList& list = session.Module().List();
    std::vector<Declaration> declarations;
    std::string error;
    if (!ReadDeclarations(session.Options().arguments[1], declarations, error)) {
        PrintError(error);
        return ExitCode::WrongUsage;
    }
    list.Load(session.ProjectAsGiven());
    list.Update(declarations);
    for (const Declaration& declaration : declarations) {
        if (!list.Has(declaration.newAddress)) {
            PrintError("The module does not take " + declaration.newAddress +
                       ". Give a kind and a number above 0, such as PW12. Nothing was saved.");
            return ExitCode::Refused;
        }
    }
    return SaveUnlessRefused(session);
}

ExitCode ExportList(Session& session) {
    HostParameterList& list = session.Module().List();
    const std::string path = WithBackslashes(session.Options().arguments[1]);
    list.Load(session.ProjectAsGiven());
    {
        const ProgressDisplay progress(path);
        list.Export(session.ProjectAsGiven(), path);
    }
    if (session.Messages().Report()) {
        return ExitCode::Refused;
    }
    Print("The list is now in " + path + "\n");
    return ExitCode::Done;
}

ExitCode ImportList(Session& session) {
    HostParameterList& list = session.Module().List();
    const CommandLine& options = session.Options();
    const std::string path = WithBackslashes(options.arguments[1]);
    if (options.replace && IsCsvPath(path)) {
        PrintError("A CSV file makes no parameters, so --replace would only empty the list.");
        return ExitCode::WrongUsage;
    }
    list.Load(session.ProjectAsGiven());
    {
        const ProgressDisplay progress(path);
        options.replace ? list.ImportAnew(session.ProjectAsGiven(), path)
                        : list.Import(session.ProjectAsGiven(), path);
    }
    return SaveUnlessRefused(session);
}

}  // namespace workbench::cli
