#include "cli/session.h"

#include <windows.h>

#include <algorithm>

#include "cli/output.h"
#include "common/module_path.h"

namespace workbench::cli {

std::string FullPath(const std::string& path) {
    const DWORD size = GetFullPathNameA(path.c_str(), 0, nullptr, nullptr);
    std::string full(size, '\0');
    full.resize(GetFullPathNameA(path.c_str(), size, full.data(), nullptr));
    return full;
}

std::string WithBackslashes(std::string path) {
    std::ranges::replace(path, '/', '\\');
    return path;
}

bool FileExists(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

namespace {

/// `extension` without a dot.
std::string WithExtension(const std::string& project, const std::string& extension) {
    const std::size_t dot = project.find_last_of(".:\\");
    const bool hasExtension = dot != std::string::npos && project[dot] == '.';
    return project.substr(0, hasExtension ? dot : project.size()) + "." + extension;
}

}  // namespace

std::string DefinitionPathOf(const std::string& project) {
    return WithExtension(project, "STDMEMXML");
}

std::string FileName(const std::string& path) {
    return path.substr(path.rfind('\\') + 1);
}

ExitCode Session::Start() {
    if (commandLine_.language) {
        SetEnvironmentVariableA("ZELKOR_LANGUAGE", commandLine_.language->c_str());
    }
    project_ = FullPath(commandLine_.arguments.front());
    if (!FileExists(project_)) {
        PrintError("There is no project file " + commandLine_.arguments.front() +
                   ". Give the path of an existing one.");
        return ExitCode::WrongUsage;
    }
    if (!ModuleMessages::CanShowWindows()) {
        PrintError(
            "This session cannot show windows, so messages of the module would be lost. Start "
            "workbench under a display (with Wine: xvfb-run -a).");
        return ExitCode::NotLoaded;
    }
    std::string error;
    const bool loaded = module_.Load(error);
    messages_.Report();  // such as a missing language: the module goes on without it
    if (!loaded) {
        PrintError(error);
        return ExitCode::NotLoaded;
    }
    module_.LoadConfiguration(project_);
    return messages_.Report() ? ExitCode::Refused : ExitCode::Done;
}

std::string Session::ProjectAsGiven() const {
    return WithBackslashes(commandLine_.arguments.front());
}

std::string Session::DefinitionPath() const {
    const std::string own = DefinitionPathOf(project_);
    return FileExists(own) ? own : FolderOfModule(nullptr) + "ORVELL.XML";
}

std::string Session::TargetPath() const {
    return WithExtension(project_, "TARGET");
}

ExitCode Session::RefuseArea(std::uint32_t id) {
    PrintError(
        "Memory area " + std::to_string(id) +
        " is not defined or its type has no value. workbench areas PROJECT lists the areas.");
    return ExitCode::Refused;
}

bool Session::ReadAreaId(std::uint32_t& id) const {
    const std::string& text = commandLine_.arguments[1];
    const auto number = ParseNumber(text);
    if (!number) {
        PrintError("\"" + text +
                   "\" is no memory-area ID. Give a decimal number; workbench areas "
                   "PROJECT lists them.");
    }
    id = number.value_or(0);
    return number.has_value();
}

}  // namespace workbench::cli
