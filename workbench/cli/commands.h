#pragma once

#include "cli/exit_code.h"
#include "cli/session.h"

namespace workbench::cli {

// One function a command. The session has started; what fails has been reported.

[[nodiscard]] ExitCode ListAreas(Session& session);
[[nodiscard]] ExitCode PrintSize(Session& session);

[[nodiscard]] ExitCode PrintText(Session& session);
[[nodiscard]] ExitCode PrintLeaves(Session& session);
[[nodiscard]] ExitCode CheckValue(Session& session);

[[nodiscard]] ExitCode EditValue(Session& session);
[[nodiscard]] ExitCode ReadOnline(Session& session);
[[nodiscard]] ExitCode WriteOnline(Session& session);

[[nodiscard]] ExitCode MergeDefinitions(Session& session);
[[nodiscard]] ExitCode ExportDefinitions(Session& session);
[[nodiscard]] ExitCode SaveDefinitions(Session& session);

[[nodiscard]] ExitCode ShowList(Session& session);
[[nodiscard]] ExitCode PrintParameter(Session& session);
[[nodiscard]] ExitCode SetParameter(Session& session);
[[nodiscard]] ExitCode UpdateList(Session& session);
[[nodiscard]] ExitCode ExportList(Session& session);
[[nodiscard]] ExitCode ImportList(Session& session);

}  // namespace workbench::cli
