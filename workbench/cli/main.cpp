#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/module_check.h"
#include "cli/output.h"
#include "cli/session.h"
#include "cli/usage.h"
#include "common/code_page.h"

namespace workbench::cli {
namespace {

/// The command line's words in the ANSI code page, without the program's name. False when one has
/// a character that the module's texts cannot hold.
bool ReadWords(std::vector<std::string>& words) {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> wide(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    for (int i = 1; i < count; ++i) {
        const std::wstring_view word = wide.get()[i];
        if (!FitsAnsi(word)) {
            return false;
        }
        words.push_back(AnsiFromWide(word));
    }
    return true;
}

ExitCode RunCommand(Session& session) {
    switch (session.Options().command) {
        case Command::Areas:
            return ListAreas(session);
        case Command::Size:
            return PrintSize(session);
        case Command::Text:
            return PrintText(session);
        case Command::Leaves:
            return PrintLeaves(session);
        case Command::Check:
            return CheckValue(session);
        case Command::Edit:
            return EditValue(session);
        case Command::Read:
            return ReadOnline(session);
        case Command::Write:
            return WriteOnline(session);
        case Command::Merge:
            return MergeDefinitions(session);
        case Command::Export:
            return ExportDefinitions(session);
        case Command::Save:
            return SaveDefinitions(session);
        case Command::ListShow:
            return ShowList(session);
        case Command::ListGet:
            return PrintParameter(session);
        case Command::ListSet:
            return SetParameter(session);
        case Command::ListDeclare:
            return UpdateList(session);
        case Command::ListExport:
            return ExportList(session);
        case Command::ListImport:
            return ImportList(session);
        case Command::None:
            break;
    }
    return ExitCode::WrongUsage;
}

ExitCode Run() {
    std::vector<std::string> words;
    CommandLine commandLine;
    std::string error;
    if (!ReadWords(words)) {
        PrintError("A word has characters outside the system's code page; use other names.");
        return ExitCode::WrongUsage;
    }
    if (IsModuleCheck(words)) {
        return RunModuleCheck(words);
    }
    if (!ParseCommandLine(words, commandLine, error)) {
        PrintError(error);
        return ExitCode::WrongUsage;
    }
    if (commandLine.help) {
        Print(Usage(commandLine.command));
        return ExitCode::Done;
    }
    Session session(commandLine);
    const ExitCode started = session.Start();
    return started == ExitCode::Done ? RunCommand(session) : started;
}

}  // namespace
}  // namespace workbench::cli

int main() {
    return static_cast<int>(workbench::cli::Run());
}
