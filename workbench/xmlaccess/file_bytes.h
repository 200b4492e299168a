#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace workbench::xmlaccess {

/// Reads a whole disk file. Nothing, with `reason` set, when it cannot be read, is no disk file or
/// holds more than 256 MiB.
[[nodiscard]] std::optional<std::vector<std::byte>> ReadFileBytes(const std::wstring& path,
                                                                  std::string& reason);

/// Writes a file through a second one beside it, which takes its place when it is complete: after
/// a failure (false, with `reason` set) the file is as it was before.
[[nodiscard]] bool ReplaceFileBytes(const std::wstring& path, std::span<const std::byte> bytes,
                                    std::string& reason);

}  // namespace workbench::xmlaccess
