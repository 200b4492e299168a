#pragma once

#include <string>

namespace orvell::platform {

/// True when the file can be opened for binary reading. Paths are in the ANSI code page.
[[nodiscard]] bool FileExists(const std::string& path);

/// Copies all bytes of `source` into `destination`, which is created or truncated.
///
/// The source is opened first and denies others writing, the destination is opened for this
/// process alone: copying a file onto itself fails and leaves it intact. False on any file error;
/// a partly written destination is then left behind.
[[nodiscard]] bool CopyWholeFile(const std::string& source, const std::string& destination);

}  // namespace orvell::platform
