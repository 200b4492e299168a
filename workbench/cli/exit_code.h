#pragma once

namespace workbench::cli {

/// What the program tells its caller; documented in its help.
enum class ExitCode : int {
    Done = 0,
    Refused = 1,     ///< the module showed a message or refused the value, area or file
    WrongUsage = 2,  ///< command line, value or file name cannot be used
    NotLoaded = 3,   ///< the module, its libraries or the display are missing
    Cancelled = 4,   ///< the user has cancelled the dialog or the transfer
};

}  // namespace workbench::cli
