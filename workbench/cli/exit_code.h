#pragma once

namespace workbench::cli {

/// What the program tells its caller; documented in its help.
enum class ExitCode : int {
    kDone = 0,
    kRefused = 1,     ///< the module showed a message or refused the value, area or file
    kWrongUsage = 2,  ///< command line, value or file name cannot be used
    kNotLoaded = 3,   ///< the module, its libraries or the display are missing
};

}  // namespace workbench::cli
