#pragma once

#include <string>
#include <string_view>

namespace orvell::paramlist {

// Windows paths in the ANSI code page. Directories end at a backslash or a drive's colon; a slash
// is a character like any other.

/// The path's extension with its dot, empty when it has none; part of the given text.
[[nodiscard]] std::string_view FileExtension(std::string_view path);

/// Path of the project's list file: the project's path with the extension ".SIL", upper case.
/// Empty for an empty project path.
[[nodiscard]] std::string ListFilePath(std::string_view projectPath);

/// True when the extension says that the file is a CSV file, in whichever case.
[[nodiscard]] bool IsCsvPath(std::string_view path);

}  // namespace orvell::paramlist
