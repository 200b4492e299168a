#pragma once

#include <string>

#include "cli/command_line.h"
#include "cli/exit_code.h"
#include "cli/host_module.h"
#include "cli/module_messages.h"

namespace workbench::cli {

/// One run of the program: the command line, the loaded module with the project's definitions, and
/// the messages that the module shows.
class Session {
  public:
    explicit Session(const CommandLine& commandLine) : commandLine_(commandLine) {}

    /// Loads the module and the project. Anything but `Done` has been reported.
    [[nodiscard]] ExitCode Start();

    [[nodiscard]] const CommandLine& Options() const { return commandLine_; }
    [[nodiscard]] HostModule& Module() { return module_; }
    [[nodiscard]] const HostModule& Module() const { return module_; }
    [[nodiscard]] ModuleMessages& Messages() { return messages_; }
    [[nodiscard]] const std::string& Project() const { return project_; }

    /// The project as the command line names it. List files begin with it, and should be the same
    /// wherever the project lies.
    [[nodiscard]] std::string ProjectAsGiven() const;

    /// The definition file in use: the project's own, else the default one beside the module.
    [[nodiscard]] std::string DefinitionPath() const;

    /// The file beside the project that holds the values of the simulated target system.
    [[nodiscard]] std::string TargetPath() const;

    /// The memory-area ID in the second argument; false when it is none, which has been reported.
    [[nodiscard]] bool ReadAreaId(std::uint32_t& id) const;

    /// Reports that the module has no values for an area.
    static ExitCode RefuseArea(std::uint32_t id);

  private:
    const CommandLine& commandLine_;
    std::string project_;
    ModuleMessages messages_;  // before the module: it may show a message while it is loaded
    HostModule module_;
};

/// A path as the module needs it: absolute, with backslashes.
[[nodiscard]] std::string FullPath(const std::string& path);

/// A path as given, with backslashes.
[[nodiscard]] std::string WithBackslashes(std::string path);

[[nodiscard]] bool FileExists(const std::string& path);

/// The definition file that lies beside a project's file.
[[nodiscard]] std::string DefinitionPathOf(const std::string& project);

/// The part of a path behind its last backslash.
[[nodiscard]] std::string FileName(const std::string& path);

}  // namespace workbench::cli
