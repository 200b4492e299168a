#pragma once

#include <string>
#include <string_view>

#include "platform/registry.h"

namespace orvell::paramlist {

/// The command that the registry has for opening files with this path's extension: that of the
/// program which the user has chosen for the extension, else that of the file type. Empty when
/// there is none.
[[nodiscard]] std::string FindEditorCommand(const platform::Registry& registry,
                                            std::string_view filePath);

/// The command line that opens the file: the command with the file's path, in quotation marks, in
/// place of "%1", or behind it when the command has no such place. A program below the system's
/// directory ("%SystemRoot%\") loses that prefix: it lies on the search path.
[[nodiscard]] std::string EditorCommandLine(std::string_view command, std::string_view filePath);

}  // namespace orvell::paramlist
