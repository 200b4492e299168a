#pragma once

#include "cli/session.h"

namespace workbench::cli {

/// The value that the command line gives, also none behind the area's ID; false when it cannot be
/// used, which has been reported.
[[nodiscard]] bool TakeValue(const Session& session, Value& value);

/// Reports why the module refused a value.
[[nodiscard]] ExitCode Refused(const HostModule& module, const Value& value);

}  // namespace workbench::cli
