#pragma once

#include <string>

namespace orvell::platform {

/// Starts programs; tests record them instead.
class ProcessStarter {
  public:
    ProcessStarter() = default;
    ProcessStarter(const ProcessStarter&) = delete;
    ProcessStarter& operator=(const ProcessStarter&) = delete;
    virtual ~ProcessStarter() = default;

    /// Starts a program with its default window and does not wait for it. The command line (in the
    /// ANSI code page) begins with the program, which is looked for on the search path when it has
    /// no full path. False when it could not be started.
    [[nodiscard]] virtual bool Start(const std::string& commandLine) = 0;
};

/// The processes of Windows; the native builds start none.
[[nodiscard]] ProcessStarter& SystemProcessStarter();

}  // namespace orvell::platform
