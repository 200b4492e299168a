#pragma once

#include <string>
#include <string_view>

namespace orvell::memstruct {

// Windows paths in the ANSI code page. Directories end at a backslash or a drive's colon; a slash
// is a character like any other.

/// Path of the default definitions: the module's file name with the extension ".XML", upper case.
/// Empty for an empty module path.
[[nodiscard]] std::string DefaultStructFile(std::string_view modulePath);

/// Path of the project's definitions: the project's file name with the extension ".STDMEMXML",
/// upper case. Empty for an empty project path.
[[nodiscard]] std::string ProjectStructFile(std::string_view projectPath);

/// What follows the last backslash or colon, upper case.
[[nodiscard]] std::string FileNamePart(std::string_view path);

/// `relative` below `directory`, with one backslash between them, upper case. Each "..\" that
/// `relative` begins with removes one level of the directory, as long as there is one.
[[nodiscard]] std::string JoinPath(std::string_view directory, std::string_view relative);

}  // namespace orvell::memstruct
